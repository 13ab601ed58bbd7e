#include "nkfoundation/image/image.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/geometry/vector.h"
#include "nkfoundation/geometry/vector_array.h"
#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

constexpr int kMarker = OType_Image::kInvalidPixel;
constexpr unsigned kUMarker = 0x80000000u;

OType_Image Made(int x, int y, int width, int height, int bpp) {
  OType_Image image;
  EXPECT_TRUE(image.Create(x, y, width, height, bpp));
  return image;
}

OVector At(int x, int y) { return OVector(x, y); }

// Exposes the busy flag that Create sets while it works.
class BusyImage : public OType_Image {
 public:
  using OType_Image::SetBusy;
};

TEST(ImageGeometryTest, BottomUpIndexRule) {
  struct Case {
    int bpp, x, y, index;
  };
  const Case cases[] = {
      {1, 10, 22, 0},  {1, 13, 20, 11}, {1, 14, 20, kMarker}, {1, 9, 20, kMarker},
      {1, 10, 23, kMarker}, {1, 10, 19, kMarker}, {1, 11, 21, 5}, {3, 10, 22, 0},
      {3, 13, 20, 33}, {3, 11, 21, 15}, {2, 10, 22, kMarker}, {0, 10, 22, kMarker},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.bpp << " " << c.x << "," << c.y);
    const OType_Image image = Made(10, 20, 4, 3, c.bpp);
    EXPECT_EQ(image.GetDataIndex(c.x, c.y), c.index);
    EXPECT_EQ(image.GetDataIndex(At(c.x, c.y)), c.index);
  }
  // The vector form rounds half up: 10.5 -> 11, 21.49 -> 21.
  const OType_Image image = Made(10, 20, 4, 3, 1);
  EXPECT_EQ(image.GetDataIndex(OVector(10.5, 21.49)), 5);
  EXPECT_EQ(image.GetDataIndex(OVector(9.5, 20.0)), 4 * 2 + 0);
  EXPECT_EQ(image.GetDataIndex(OVector(9.49, 20.0)), kMarker);
}

TEST(ImageGeometryTest, CreateAndSetters) {
  OType_Image image = Made(0, 0, 640, 480, 1);
  EXPECT_EQ(image.GetImageDataSize(), 307200);
  EXPECT_EQ(image.GetImage_Right(), 640);
  EXPECT_EQ(image.GetImage_Top(), 480);
  EXPECT_EQ(image.GetDataIndexOffset(), 306560);
  EXPECT_EQ(image.GetBitsPerPixel(), 8);

  EXPECT_FALSE(image.SetImage_X(-1));
  EXPECT_EQ(image.GetImage_X(), 0);
  EXPECT_TRUE(image.SetImage_X(5));
  EXPECT_TRUE(image.SetImage_Height(2));
  EXPECT_EQ(image.GetImage_Right(), 645);
  EXPECT_EQ(image.GetImage_Top(), 2);
  EXPECT_EQ(image.GetDataIndexOffset(), 640 - 5);
}

TEST(ImageGeometryTest, BusyImageRefusesCreateAndAssignment) {
  BusyImage busy;
  ASSERT_TRUE(busy.Create(0, 0, 2, 2, 1));
  busy.SetBusy(true);
  EXPECT_FALSE(busy.Create(0, 0, 5, 5, 1));
  EXPECT_EQ(busy.GetImageDataSize(), 4);
  const OType_Image source = Made(0, 0, 3, 3, 3);
  static_cast<OType_Image&>(busy) = source;
  EXPECT_EQ(busy.GetImageDataSize(), 4);
  OType_Image target;
  target = busy;  // busy on the source side
  EXPECT_EQ(target.GetImageDataSize(), 0);
  busy.SetBusy(false);
  static_cast<OType_Image&>(busy) = source;
  EXPECT_EQ(busy.GetImageDataSize(), 27);
}

TEST(ImagePixelTest, GreyAccessors) {
  OType_Image image = Made(10, 20, 4, 3, 1);
  EXPECT_TRUE(image.SetPixel(13, 20, 0x123456u));
  EXPECT_EQ(image.GetImageData()[11], 0x56);
  EXPECT_EQ(image.GetPixel(11), 0x565656u);
  EXPECT_EQ(image.GetPixel(At(13, 20)), 0x565656u);
  EXPECT_EQ(image.GetPixel_Grey(13, 20), 0x56);
  EXPECT_EQ(image.GetPixel_CompH(11), 0);
  EXPECT_EQ(image.GetPixel(12), kUMarker);
  EXPECT_EQ(image.GetPixel(-1), kUMarker);
  EXPECT_EQ(image.GetPixel(14, 20), kUMarker);
  EXPECT_EQ(image.GetPixel_Grey(14, 20), kMarker);
  EXPECT_FALSE(image.SetPixel(12, 1u));
  EXPECT_FALSE(image.SetPixel(14, 20, 1u));

  // Grey SetPixel_Grey writes and still answers false.
  EXPECT_FALSE(image.SetPixel_Grey(0, 200));
  EXPECT_EQ(image.GetImageData()[0], 200);
  EXPECT_FALSE(image.SetPixel_Grey(12, 200));

  EXPECT_EQ(image.IsPixelBlack(1), 1);
  EXPECT_EQ(image.IsPixelBlack(0), 0);
  EXPECT_TRUE(image.SetPixel(1, 255u));
  EXPECT_EQ(image.IsPixelWhite(1), 1);
  EXPECT_EQ(image.IsPixelWhite(12), 0);
  EXPECT_EQ(image.IsPixelBlack(99, 99), kMarker);
  EXPECT_EQ(image.IsPixelWhite(At(99, 99)), kMarker);
}

TEST(ImagePixelTest, ColourAccessors) {
  OType_Image image = Made(0, 0, 2, 2, 3);
  const int last = image.GetImageDataSize() - 3;  // 9: the last whole pixel
  struct Case {
    unsigned rgb;
    int grey, hue;
  };
  // The grey mean rounds (s + 1) / 3: remainder 2 up, 1 down.
  const Case cases[] = {{0x000101, 1, 64}, {0x000001, 0, 32}, {0x0000FF, 85, 32},
                        {0xFFFFFF, 255, 0}, {0xFF0000, 85, 160}, {0x808080, 128, 0}};
  for (const Case& c : cases) {
    EXPECT_TRUE(image.SetPixel(last, c.rgb));
    EXPECT_EQ(image.GetPixel(last), c.rgb);
    EXPECT_EQ(image.GetPixel_Grey(last), c.grey);
    EXPECT_EQ(image.GetPixel_CompH(last), c.hue);
  }
  EXPECT_EQ(image.GetImageData()[9], 0x80);
  // The last two bytes cannot start a pixel.
  EXPECT_EQ(image.GetPixel(last + 1), kUMarker);
  EXPECT_EQ(image.GetPixel_Grey(last + 1), kMarker);
  EXPECT_EQ(image.GetPixel_CompH(last + 1), kMarker);
  EXPECT_FALSE(image.SetPixel(last + 1, 0u));
  EXPECT_TRUE(image.SetPixel_Grey(0, 7));
  EXPECT_EQ(image.GetPixel(0), 0x070707u);
  EXPECT_FALSE(image.SetPixel_Grey(last + 1, 7));
  EXPECT_EQ(image.IsPixelBlack(last + 1), 0);
}

TEST(ImagePixelTest, OtherPixelSizesWriteNothing) {
  OType_Image image = Made(0, 0, 2, 2, 2);
  EXPECT_TRUE(image.SetPixel(0, 0xFFFFFFu));
  EXPECT_EQ(image.GetImageData()[0], 0);
  EXPECT_FALSE(image.SetPixel_Grey(0, 9));
  EXPECT_EQ(image.GetPixel(0), kUMarker);
  EXPECT_EQ(image.GetPixel_Grey(0), kMarker);
  EXPECT_EQ(image.GetPixel_CompH(0), kMarker);
  EXPECT_EQ(image.IsPixelBlack(0), 0);
}

TEST(ImageFrameTest, ByteExactFrame) {
  OType_Image image = Made(1, 2, 2, 1, 1);
  image.m_iImage_ProcessStep = 5;
  image.m_name = u"A";
  image.GetImageData()[0] = 0xAB;
  image.m_oAcquisition_TimeDate = OTime();
  const Bytes expected = Hex(
      "60000000 0007D0FE"
      "05000000 00000000 01000000 01000000 02000000 02000000 01000000"
      "02000000 AB00"
      "06000000 0001CBFE 4100"
      "04000000 0001CBFE"
      "20000000 0008D0FE D6070000 01000000 01000000 00000000 00000000 00000000 00000000"
      "38FFFFFF");
  EXPECT_EQ(Serialize(image), expected);
  EXPECT_EQ(image.GetObjectSize(), expected.size());

  OType_Image read;
  ASSERT_TRUE(Deserialize(read, expected));
  EXPECT_EQ(read.GetImage_Right(), 3);
  EXPECT_EQ(read.GetDataIndexOffset(), (3 - 1) * 2 - 1);
  EXPECT_EQ(read.GetPixel(1, 2), 0xABABABu);
  EXPECT_EQ(Serialize(read), expected);
}

TEST(ImageFrameTest, FortyEightByteGate) {
  // 47 bytes of payload: an older record; nothing is read, name and comment
  // go, the time becomes now, and the bytes are kept as the tail.
  OType_Image image;
  image.m_name = u"old";
  image.m_oAcquisition_TimeDate = OTime();
  Bytes frame = Hex("33000000 0007D0FE");
  frame.resize(8 + 47, 0x01);
  ASSERT_TRUE(Deserialize(image, frame));
  EXPECT_TRUE(image.m_name.empty());
  EXPECT_NE(image.m_oAcquisition_TimeDate.m_iYear, 2006);
  EXPECT_EQ(image.GetImage_Width(), 0);
  EXPECT_EQ(image.m_oUserData.GetCount(), 47);

  // 48 bytes are the smallest record: no pixels, empty strings, then a
  // nested time that is missing, so the object fails.
  Bytes least = Hex("34000000 0007D0FE");
  least.resize(8 + 32, 0);
  least = Concat(least, Hex("04000000 0001CBFE 04000000 0001CBFE"));
  EXPECT_FALSE(Deserialize(OType_Image(), least));
}

TEST(ImageFrameTest, DamagedFramesFailCleanly) {
  const Bytes good = Serialize(Made(0, 0, 4, 4, 3));
  // A pixel count beyond the frame.
  Bytes lying = good;
  lying[8 + 28] = 0xFF;
  lying[8 + 31] = 0x7F;
  OType_Image image;
  auto stream = StreamOf(lying);
  EXPECT_FALSE(image.GetObjectData(stream, true));
  EXPECT_EQ(stream.GetPosition(), lying.size());
  // A frame cut inside its pixels fails (cut before 48 bytes of payload it
  // would read as an older record).
  for (std::size_t n = 8 + 48; n < 8 + 32 + 48; ++n) {
    Bytes cut(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(n));
    EXPECT_FALSE(Deserialize(OType_Image(), cut)) << n;
  }
  // Hostile geometry: accessors refuse every position.
  Bytes wild = good;
  for (int i = 12; i < 36; ++i) wild[static_cast<std::size_t>(i)] = 0x7F;
  wild[16] = 1;
  wild[17] = wild[18] = wild[19] = 0;
  wild[8 + 28] = 48;
  wild[8 + 29] = wild[8 + 30] = wild[8 + 31] = 0;
  ASSERT_TRUE(Deserialize(image, wild));
  EXPECT_EQ(image.GetPixel(0x7F7F7F7F, 0x7F7F7F7F), kUMarker);
  EXPECT_EQ(image.GetDataIndex(0, 0), kMarker);
}

TEST(ImageStorageTest, ConvertDataRules) {
  OType_Image image = Made(0, 0, 64, 48, 3);
  for (int i = 0; i < image.GetImageDataSize(); ++i) image.GetImageData()[i] = static_cast<unsigned char>(i / 7);
  const std::vector<unsigned char> raw(image.GetImageData(), image.GetImageData() + image.GetImageDataSize());
  EXPECT_EQ(image.iConvertData(0), 1);
  EXPECT_EQ(image.iConvertData(1), 0);
  EXPECT_EQ(image.iConvertData(2), 1);
  EXPECT_EQ(image.m_iImageFormat, 2);
  EXPECT_LT(image.GetImageDataSize(), static_cast<int>(raw.size()));
  EXPECT_EQ(image.iConvertData(2), 1);
  EXPECT_EQ(image.iConvertData(1), 0);

  // The compressed form travels and comes back to the same pixels.
  OType_Image read;
  ASSERT_TRUE(Deserialize(read, Serialize(image)));
  EXPECT_EQ(read.m_iImageFormat, 2);
  EXPECT_EQ(read.iConvertData(0), 1);
  EXPECT_EQ(std::vector<unsigned char>(read.GetImageData(), read.GetImageData() + read.GetImageDataSize()), raw);

  read.m_iImageFormat = 5;
  EXPECT_EQ(read.iConvertData(0), 0);
  EXPECT_EQ(read.m_iImageFormat, 5);
}

TEST(ImageStorageTest, CopiesTakeEverything) {
  OType_Image image = Made(3, 4, 2, 2, 1);
  image.m_name = u"n";
  image.m_isSelected = true;
  image.m_oUserData.Add(9);
  image.SetPixel(3, 4, 77u);
  std::unique_ptr<OType_Image> copy(image.opCreateCopy());
  EXPECT_EQ(Serialize(*copy), Serialize(image));
  EXPECT_TRUE(copy->m_isSelected);

  OType_Image blank;
  image.CopyTo(&blank, false);
  EXPECT_EQ(blank.GetImage_X(), 3);
  EXPECT_EQ(blank.GetImageDataSize(), 4);
  EXPECT_EQ(blank.GetPixel(3, 4), 0u);
}

TEST(ImageCreationTest, PointsPlanesGreyAndDrawing) {
  OVector_Array points;
  points.Add(std::make_shared<OVector>(5, 7));
  points.Add(std::make_shared<OVector>(8, 6));
  OType_Image mask;
  ASSERT_TRUE(mask.Create(points));
  EXPECT_EQ(mask.GetImage_X(), 5);
  EXPECT_EQ(mask.GetImage_Width(), 4);
  EXPECT_EQ(mask.GetImage_Height(), 2);
  EXPECT_EQ(mask.IsPixelWhite(5, 7), 1);
  EXPECT_EQ(mask.IsPixelWhite(8, 6), 1);
  EXPECT_EQ(mask.IsPixelBlack(6, 6), 1);
  EXPECT_FALSE(OType_Image().Create(OVector_Array()));

  // Planes arrive top-down; the first row is y = Y and is stored last.
  const unsigned char r[] = {1, 2, 3, 4}, g[] = {5, 6, 7, 8}, b[] = {9, 10, 11, 12};
  OType_Image colour;
  ASSERT_EQ(colour.iSetImage_FromRawRGBPlanes(r, g, b, 2, 2), 1);
  EXPECT_EQ(colour.GetPixel(1, 0), 2u | 6u << 8 | 10u << 16);
  EXPECT_EQ(colour.GetImageData()[0], 3);

  OType_Image grey;
  ASSERT_TRUE(colour.CopyRGBToGrey(&grey));
  EXPECT_EQ(grey.GetImage_BytesPerPixel(), 1);
  EXPECT_EQ(grey.GetPixel_Grey(1, 1), (4 + 8 + 12 + 1) / 3);

  OType_Image drawn = Made(0, 0, 4, 4, 1);
  EXPECT_TRUE(drawn.SetSolidRect(-1, 2, 3, 5, 9u));
  EXPECT_EQ(drawn.GetPixel_Grey(1, 3), 9);
  EXPECT_EQ(drawn.GetPixel_Grey(2, 3), 0);
  EXPECT_EQ(drawn.GetPixel_Grey(0, 1), 0);
  EXPECT_FALSE(drawn.SetSolidRect(4, 0, 2, 2, 9u));
  EXPECT_TRUE(drawn.SetSolidVerticalLine(3, 9, 1, 5u));
  EXPECT_EQ(drawn.GetPixel_Grey(3, 0), 0);
  EXPECT_EQ(drawn.GetPixel_Grey(3, 1), 5);
  EXPECT_EQ(drawn.GetPixel_Grey(3, 3), 5);

  drawn.CreateEmpty();
  EXPECT_TRUE(drawn.IsEmpty());
}

}  // namespace
}  // namespace nk::testing
