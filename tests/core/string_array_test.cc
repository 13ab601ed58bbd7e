#include "nkfoundation/core/string_array.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

TEST(StringArrayFrameTest, CountThenNestedStrings) {
  EXPECT_EQ(Serialize(OStringArray()), Hex("08000000 0000D0FE 00000000"));
  OStringArray strings;
  strings.Add(u"abc");
  strings.Add(u"");
  EXPECT_EQ(strings.GetObjectSize(), 34u);
  EXPECT_EQ(Serialize(strings), Hex("1E000000 0000D0FE 02000000 0A000000 0001CBFE 6100 6200 6300"
                                    "04000000 0001CBFE"));
}

// Unlike the object arrays, reading does not append; even a payload too short
// for the count empties the array.
TEST(StringArrayFrameTest, ReadingReplacesTheStringsOrFails) {
  OStringArray strings;
  strings.Add(u"old");
  const Bytes newer = Hex("12000000 0000D0FE 01000000 04000000 0001CBFE 7A7A");
  ASSERT_TRUE(Deserialize(strings, newer));
  EXPECT_EQ(Serialize(strings), newer);

  ASSERT_TRUE(Deserialize(strings, Hex("08000000 0000D0FE 05000000")));
  EXPECT_EQ(strings.GetCount(), 0);

  // A string that fails fails the array, even when the count promises a
  // second string and the stream stands exactly at the frame's end.
  EXPECT_FALSE(Deserialize(strings, Hex("14000000 0000D0FE 02000000 0A000000 0001CBFE 6100 6200 6300")));
  EXPECT_EQ(strings.GetCount(), 1);

  // A damaged second string: the rest of the frame becomes the tail.
  EXPECT_FALSE(Deserialize(strings, Hex("18000000 0000D0FE 02000000 04000000 0001CBFE 04000000 00000000")));
  EXPECT_EQ(strings.GetCount(), 1);
  EXPECT_EQ(strings.m_oUserData.GetCount(), 8);
}

}  // namespace
}  // namespace nk::testing
