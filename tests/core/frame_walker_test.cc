#include "nkfoundation/core/frame_walker.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

// A processing-time array carries its acquisition part number before the
// count, so the walker must look for the count four bytes later.
TEST(FrameWalkerTest, ProcessingTimeArrayCountFollowsThePartNumber) {
  const Bytes empty_array = Hex("0C000000 0027D0FE 05000000 00000000");
  const WalkResult walk = WalkFrames(empty_array.data(), empty_array.size());
  EXPECT_FALSE(walk.error) << walk.error->message;
  ASSERT_EQ(walk.frames.size(), 1u);
  EXPECT_EQ(walk.frames[0].tail, 0u);
}

// Settings written last claim six bytes beyond the data: the frame is shown
// as far as it goes. An element may not run past the end its array announces.
TEST(FrameWalkerTest, OnlyNestedFramesMustEndWithinTheirEnclosingFrame) {
  const Bytes settings = Hex("1E000000 0054D0FE 0101010101010101010101010101010101010101");
  WalkResult walk = WalkFrames(settings.data(), settings.size());
  EXPECT_FALSE(walk.error) << walk.error->message;
  ASSERT_EQ(walk.frames.size(), 1u);
  EXPECT_EQ(walk.frames[0].size, 28u);
  EXPECT_EQ(walk.frames[0].missing, 6u);

  // A vector array of one vector whose frame announces 4 bytes too many.
  const Bytes array = Hex("20000000 0014D0FE 01000000 1C000000 0015D0FE 0000000000000000 0000000000000000");
  walk = WalkFrames(array.data(), array.size());
  ASSERT_TRUE(walk.error);
  EXPECT_EQ(walk.error->offset, 12u);
  ASSERT_EQ(walk.frames.size(), 1u);
  EXPECT_TRUE(walk.frames[0].children.empty());
}

}  // namespace
}  // namespace nk::testing
