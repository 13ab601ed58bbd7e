#include "nkfoundation/core/string_array.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"

namespace {

using nk::testing::Bytes;
using nk::testing::Hex;

const Bytes kTwoStrings = Hex("1E000000 0000D0FE 02000000 0A000000 0001CBFE 6100 6200 6300"
                              "04000000 0001CBFE");

TEST(StringArrayFrameTest, CountThenNestedStrings) {
  OStringArray empty;
  EXPECT_EQ(nk::testing::Serialize(empty), Hex("08000000 0000D0FE 00000000"));

  OStringArray strings;
  strings.Add(u"abc");
  strings.Add(u"");
  EXPECT_EQ(strings.GetObjectSize(), 34u);
  EXPECT_EQ(nk::testing::Serialize(strings), kTwoStrings);
}

TEST(StringArrayFrameTest, OlderAndNewerLayouts) {
  // A payload under 8 bytes reads no count, but still empties the array.
  OStringArray strings;
  strings.Add(u"old");
  auto older = nk::testing::StreamOf(Hex("08000000 0000D0FE 05000000"));
  ASSERT_TRUE(strings.GetObjectData(older, true));
  EXPECT_EQ(strings.GetCount(), 0);
  EXPECT_EQ(strings.m_oUserData.GetCount(), 4);

  const Bytes newer = Hex("12000000 0000D0FE 01000000 04000000 0001CBFE 7A7A");
  auto stream = nk::testing::StreamOf(newer);
  ASSERT_TRUE(strings.GetObjectData(stream, true));
  EXPECT_EQ(strings.GetCount(), 1);
  EXPECT_EQ(nk::testing::Serialize(strings), newer);
}

TEST(StringArrayFrameTest, AStringThatFailsFailsTheArray) {
  // The count promises two strings; the second is missing although the
  // stream stands exactly at the frame's end.
  Bytes missing = Hex("14000000 0000D0FE 02000000 0A000000 0001CBFE 6100 6200 6300");
  OStringArray strings;
  auto stream = nk::testing::StreamOf(missing);
  EXPECT_FALSE(strings.GetObjectData(stream, true));
  EXPECT_EQ(strings.GetCount(), 1);

  // A damaged second string: the rest of the frame becomes the tail.
  Bytes damaged = Hex("18000000 0000D0FE 02000000 04000000 0001CBFE 04000000 00000000");
  auto damaged_stream = nk::testing::StreamOf(damaged);
  EXPECT_FALSE(strings.GetObjectData(damaged_stream, true));
  EXPECT_EQ(strings.GetCount(), 1);
  EXPECT_EQ(strings.m_oUserData.GetCount(), 8);
}

}  // namespace
