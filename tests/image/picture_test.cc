#include "nkfoundation/image/picture.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "nkfoundation/image/image.h"
#include "nkfoundation/image/picture_codecs.h"
#include "tests/support/sensor_images.h"
#include "tests/support/temp_dir.h"

namespace {

using nk::Picture;
using nk::PictureFormat;
using nk::PictureStatus;

Picture PictureOf(std::vector<std::uint8_t> pixels, int width, int height, int channels) {
  return {width, height, channels, std::move(pixels)};
}

std::vector<std::uint8_t> Encoded(const Picture& picture, PictureFormat format) {
  std::vector<std::uint8_t> bytes;
  EXPECT_EQ(nk::EncodePicture(picture, format, bytes), PictureStatus::kOk);
  return bytes;
}

int MaxDifference(const Picture& a, const Picture& b) {
  int worst = 0;
  for (std::size_t i = 0; i < a.pixels.size(); ++i) worst = std::max(worst, std::abs(a.pixels[i] - b.pixels[i]));
  return worst;
}

TEST(PictureTest, LosslessFormatsRoundTripSensorAndCorpusImages) {
  std::vector<Picture> pictures = {
      PictureOf(nk::testing::GradientWithNoise(641, 480, 1), 641, 480, 1),
      PictureOf(nk::testing::GradientWithNoise(321, 241, 3), 321, 241, 3)};
  for (const auto& file : nk::testing::CorpusImages(NKF_CORPUS_DIR)) {
    Picture picture;
    ASSERT_EQ(nk::DecodePicture(file.bytes.data(), file.bytes.size(), picture), PictureStatus::kOk) << file.name;
    pictures.push_back(std::move(picture));
  }
  EXPECT_GE(pictures.size(), 3u);
  for (const Picture& picture : pictures) {
    for (PictureFormat format : {PictureFormat::kBmp, PictureFormat::kPnm, PictureFormat::kPng}) {
      if (!nk::IsPictureFormatSupported(format)) continue;
      const auto bytes = Encoded(picture, format);
      Picture back;
      ASSERT_EQ(nk::DecodePicture(bytes.data(), bytes.size(), back), PictureStatus::kOk);
      EXPECT_EQ(back.width, picture.width);
      EXPECT_EQ(back.channels, picture.channels);
      EXPECT_EQ(back.pixels, picture.pixels);
    }
  }
}

TEST(PictureTest, JpegKeepsThePictureCloseAndTheGeometryExact) {
  if (!nk::IsPictureFormatSupported(PictureFormat::kJpeg)) GTEST_SKIP() << "no JPEG in this build";
  for (int channels : {1, 3}) {
    const Picture picture = PictureOf(nk::testing::GradientWithNoise(97, 61, channels), 97, 61, channels);
    const auto bytes = Encoded(picture, PictureFormat::kJpeg);
    Picture back;
    ASSERT_EQ(nk::DecodeJpeg(bytes.data(), bytes.size(), back), PictureStatus::kOk);
    EXPECT_EQ(back.width, 97);
    EXPECT_EQ(back.height, 61);
    EXPECT_EQ(back.channels, channels);
    EXPECT_LE(MaxDifference(picture, back), 40);
  }
}

TEST(PictureTest, BmpRowOrderAndLayout) {
  // 3 x 2 colour: rows padded to 12 bytes, stored bottom-up, blue first.
  const Picture picture = PictureOf({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18}, 3, 2, 3);
  const auto bytes = Encoded(picture, PictureFormat::kBmp);
  ASSERT_EQ(bytes.size(), 54u + 2 * 12);
  EXPECT_EQ(bytes[54], 12);  // bottom row first, blue of its first pixel
  EXPECT_EQ(bytes[56], 10);
  EXPECT_EQ(bytes[54 + 12], 3);

  // The same rows stored top-down (negative height) read the same.
  std::vector<std::uint8_t> top_down = bytes;
  std::copy(bytes.begin() + 54, bytes.begin() + 66, top_down.begin() + 66);
  std::copy(bytes.begin() + 66, bytes.end(), top_down.begin() + 54);
  top_down[22] = top_down[23] = top_down[24] = top_down[25] = 0xFF;
  top_down[22] = 0xFE;
  Picture back;
  ASSERT_EQ(nk::DecodeBmp(top_down.data(), top_down.size(), back), PictureStatus::kOk);
  EXPECT_EQ(back.pixels, picture.pixels);
}

TEST(PictureTest, HostileHeadersAreRefusedBeforeAllocating) {
  struct Case {
    std::string name;
    std::vector<std::uint8_t> bytes;
    PictureStatus status;
  };
  // A 100-byte BMP that claims 60000 x 60000 pixels.
  auto huge_bmp = Encoded(PictureOf(std::vector<std::uint8_t>(4 * 4 * 3, 7), 4, 4, 3), PictureFormat::kBmp);
  huge_bmp.resize(100);
  huge_bmp[18] = huge_bmp[22] = 0x60;
  huge_bmp[19] = huge_bmp[23] = 0xEA;
  auto cut_bmp = Encoded(PictureOf(std::vector<std::uint8_t>(8 * 8, 7), 8, 8, 1), PictureFormat::kBmp);
  cut_bmp.resize(cut_bmp.size() - 1);
  auto rle_bmp = cut_bmp;
  rle_bmp[30] = 1;
  const std::string pnm = "P5 60000 60000 255\n";
  const std::string short_pnm = "P6\n# c\n2 2\n255\n0123456789";
  const Case cases[] = {
      {"huge bmp", huge_bmp, PictureStatus::kTooLarge},
      {"cut bmp", cut_bmp, PictureStatus::kDamaged},
      {"compressed bmp", rle_bmp, PictureStatus::kUnsupported},
      {"huge pnm", {pnm.begin(), pnm.end()}, PictureStatus::kTooLarge},
      {"short pnm", {short_pnm.begin(), short_pnm.end()}, PictureStatus::kDamaged},
      {"16-bit pnm", {'P', '5', ' ', '1', ' ', '1', ' ', '9', '9', '9', ' ', 0, 0}, PictureStatus::kUnsupported},
      {"empty", {}, PictureStatus::kUnknownFormat},
      {"text", {'h', 'i'}, PictureStatus::kUnknownFormat},
      {"png signature only", {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'},
       nk::IsJpegPngAvailable() ? PictureStatus::kDamaged : PictureStatus::kUnsupported},
      {"jpeg start only", {0xFF, 0xD8, 0xFF, 0xE0, 0, 0x10},
       nk::IsJpegPngAvailable() ? PictureStatus::kDamaged : PictureStatus::kUnsupported},
  };
  for (const Case& c : cases) {
    Picture picture{1, 1, 1, {42}};
    EXPECT_EQ(nk::DecodePicture(c.bytes.data(), c.bytes.size(), picture), c.status) << c.name;
    EXPECT_EQ(picture.pixels, std::vector<std::uint8_t>{42}) << c.name;
  }
}

TEST(PictureTest, DamagedLibraryFormatsNeverCrash) {
  if (!nk::IsJpegPngAvailable()) GTEST_SKIP() << "no JPEG or PNG in this build";
  const Picture picture = PictureOf(nk::testing::GradientWithNoise(40, 30, 3), 40, 30, 3);
  for (PictureFormat format : {PictureFormat::kPng, PictureFormat::kJpeg}) {
    const auto good = Encoded(picture, format);
    for (std::size_t n = 0; n < good.size(); n += 7) {
      std::vector<std::uint8_t> bad = good;
      bad[n] ^= 0x5A;
      Picture out;
      nk::DecodePicture(bad.data(), bad.size(), out);
      std::vector<std::uint8_t> cut(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(n));
      nk::DecodePicture(cut.data(), cut.size(), out);
    }
  }
}

TEST(PictureTest, ImagesKeepTheirRowOrderThroughFiles) {
  nk::testing::TempDir dir;
  OType_Image image;
  ASSERT_TRUE(image.Create(0, 0, 3, 2, 3));
  image.SetPixel(0, 0, 0x0000FFu);  // the top-left pixel is red
  for (const char* name : {"a.bmp", "a.png", "a.ppm"}) {
    if (!nk::IsPictureFormatSupported(nk::PictureFormatOfPath(name))) continue;
    Picture picture;
    ASSERT_TRUE(image.ToPicture(picture));
    EXPECT_EQ(picture.pixels[0], 255);
    ASSERT_EQ(nk::WritePictureFile(dir / name, picture), PictureStatus::kOk);
    OType_Image back;
    ASSERT_TRUE(back.Create(dir / name)) << name;
    EXPECT_EQ(back.GetPixel(0, 0), 0x0000FFu) << name;
    EXPECT_EQ(std::vector<unsigned char>(back.GetImageData(), back.GetImageData() + 18),
              std::vector<unsigned char>(image.GetImageData(), image.GetImageData() + 18));
  }
  OType_Image grey;
  ASSERT_TRUE(grey.CreateDataFromPicture(dir / "a.bmp", true));
  EXPECT_EQ(grey.GetPixel_Grey(0, 0), 85);
  nk::PictureStatus status;
  EXPECT_FALSE(grey.CreateDataFromPicture(dir / "missing.bmp", false, &status));
  EXPECT_EQ(status, PictureStatus::kCannotOpen);
}

}  // namespace
