#include "nkfoundation/image/image_array.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "nkfoundation/core/frame_walker.h"
#include "tests/support/bytes.h"
#include "tests/support/counting_progress.h"
#include "tests/support/sensor_images.h"

namespace nk::testing {
namespace {

std::shared_ptr<OType_Image> ImageOf(const std::vector<std::uint8_t>& pixels, int width, int height, int bpp) {
  auto image = std::make_shared<OType_Image>();
  EXPECT_TRUE(image->SetImage(0, 0, width, height, bpp, pixels.data()));
  return image;
}

TEST(ImageArrayFrameTest, LeadingFieldsAndCountThreshold) {
  OType_Image_Array array;
  array.m_iSelectedIndex = 2;
  array.m_isSelected = true;
  const Bytes empty = Hex("15000000 0006D0FE 02000000 00000000 38FFFFFF 01 00000000");
  EXPECT_EQ(Serialize(array), empty);

  OType_Image_Array read;
  ASSERT_TRUE(Deserialize(read, empty));
  EXPECT_EQ(read.m_iSelectedIndex, 2);
  EXPECT_TRUE(read.m_isSelected);

  // 16 bytes of payload: below the threshold, all of it becomes the tail.
  const Bytes older = Hex("14000000 0006D0FE 05000000 00000000 38FFFFFF 00000000");
  OType_Image_Array old;
  ASSERT_TRUE(Deserialize(old, older));
  EXPECT_EQ(old.m_iSelectedIndex, -1);
  EXPECT_EQ(old.m_oUserData.GetCount(), 16);
}

TEST(ImageArrayFrameTest, WalkerFindsTheImagesBehindTheLeadingFields) {
  OType_Image_Array array;
  array.Add(ImageOf({1, 2, 3, 4}, 2, 2, 1));
  array.Add(ImageOf({5, 6, 7}, 1, 1, 3));
  const Bytes bytes = Serialize(array);
  // A view of the array's own fields is shown before the count.
  const auto describe = [](std::uint32_t id, OByteStream&) -> std::optional<nk::ObjectDescription> {
    if (id != nk::object_id::kImageArray) return std::nullopt;
    return nk::ObjectDescription{{{"own", "field"}}, 0};
  };
  const nk::WalkResult walk = nk::WalkFrames(bytes.data(), bytes.size(), describe);
  ASSERT_FALSE(walk.error);
  ASSERT_EQ(walk.frames.size(), 1u);
  const nk::FrameNode& node = walk.frames[0];
  ASSERT_EQ(node.fields.size(), 2u);
  EXPECT_EQ(node.fields[0].name, "own");
  EXPECT_EQ(node.fields[1].value, "2");
  ASSERT_EQ(node.children.size(), 2u);
  EXPECT_EQ(node.children[1].offset, 8 + 17 + array[0]->GetObjectSize());
  EXPECT_EQ(*node.tail, 0u);
}

TEST(ImageArrayFrameTest, RoundTripAppendsAndStopsAtADamagedImage) {
  OType_Image_Array array;
  array.Add(ImageOf(GradientWithNoise(640, 480, 1), 640, 480, 1));
  array.Add(ImageOf(GradientWithNoise(320, 240, 3), 320, 240, 3));
  array.Add(ImageOf(FlatFieldWithDefects(1280, 1024), 1280, 1024, 1));
  array.Add(nullptr);  // written as a default image
  const Bytes written = Serialize(array);
  EXPECT_EQ(written.size(), array.GetObjectSize());

  OType_Image_Array read;
  read.Add(std::make_shared<OType_Image>());
  ASSERT_TRUE(Deserialize(read, written));
  ASSERT_EQ(read.GetCount(), 5);
  EXPECT_EQ(read[2]->GetImage_Width(), 320);
  EXPECT_EQ(read[2]->GetPixel(5, 5), array[1]->GetPixel(5, 5));

  // The second image's pixel count now runs past its frame: it fails, the
  // first stays, the images after it become the array's tail.
  Bytes damaged = written;
  const std::size_t first = 8 + 17 + array[0]->GetObjectSize();
  damaged[first + 8 + 28 + 3] = 0x7F;
  OType_Image_Array partial;
  auto damaged_stream = StreamOf(damaged);
  EXPECT_FALSE(partial.GetObjectData(damaged_stream, true));
  EXPECT_EQ(partial.GetCount(), 1);
  EXPECT_EQ(damaged_stream.GetPosition(), damaged.size());
  EXPECT_EQ(Serialize(partial).size(), damaged.size() - array[1]->GetObjectSize());
}

TEST(ImageArrayStorageTest, CompressionStepsAndRoundTrip) {
  OType_Image_Array array;
  const auto gradient = GradientWithNoise(64, 48, 3);
  for (int i = 0; i < 3; ++i) array.Add(ImageOf(gradient, 64, 48, 3));
  array.Add(nullptr);
  array[1]->iConvertData(2);
  EXPECT_EQ(array.iGetCompressProgressSteps(), 2);

  CountingProgress progress;
  EXPECT_EQ(array.iCompressImageData(&progress), 1);
  EXPECT_EQ(progress.steps, 2);
  EXPECT_EQ(array.iGetCompressProgressSteps(), 0);
  EXPECT_EQ(array.iGetDeCompressProgressSteps(), 3);
  EXPECT_EQ(array.iCompressImageData(nullptr), 1);

  OType_Image_Array copy;
  array.CopyTo(&copy);
  ASSERT_EQ(copy.GetCount(), 4);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Serialize(*copy[i]), Serialize(*array[i]));

  progress.steps = 0;
  EXPECT_EQ(copy.iDeCompressImageData(&progress), 1);
  EXPECT_EQ(progress.steps, 3);
  for (int i = 0; i < 3; ++i) {
    ASSERT_EQ(copy[i]->GetImageDataSize(), static_cast<int>(gradient.size()));
    EXPECT_TRUE(std::equal(gradient.begin(), gradient.end(), copy[i]->GetImageData()));
  }
}

}  // namespace
}  // namespace nk::testing
