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

}  // namespace
}  // namespace nk::testing
