#include "nkfoundation/core/time_stamp.h"

#include <gtest/gtest.h>

#include "nkfoundation/core/memory_stream.h"
#include "tests/support/bytes.h"
#include "tests/support/utc_zone.h"

namespace {

using nk::testing::Bytes;
using nk::testing::Hex;

// Year 2006 first, microseconds last: the reverse of the declaration order.
const Bytes kDefaultFrame = Hex("20000000 0008D0FE D6070000 01000000 01000000 00000000"
                                "00000000 00000000 00000000");

OTime MakeTime(int year, int month, int day, int hour, int minute, int second, int micro) {
  OTime time;
  time.m_iYear = year;
  time.m_iMonth = month;
  time.m_iDayOfMonth = day;
  time.m_iHours = hour;
  time.m_iMinutes = minute;
  time.m_iSeconds = second;
  time.m_iMicroSeconds = micro;
  return time;
}

TEST(TimeStampFrameTest, FieldsTravelFromYearDownToMicroseconds) {
  OTime time;
  EXPECT_EQ(nk::testing::Serialize(time), kDefaultFrame);
  EXPECT_EQ(time.GetObjectSize(), 36u);

  OTime stamp = MakeTime(2010, 2, 3, 4, 5, 6, 7);
  const Bytes frame = Hex("20000000 0008D0FE DA070000 02000000 03000000 04000000"
                          "05000000 06000000 07000000");
  EXPECT_EQ(nk::testing::Serialize(stamp), frame);
  OTime read;
  auto stream = nk::testing::StreamOf(frame);
  ASSERT_TRUE(read.GetObjectData(stream, false));
  EXPECT_EQ(nk::testing::Serialize(read), frame);
}

TEST(TimeStampFrameTest, ShortPayloadResetsToDefaultsWhateverTheFlag) {
  // 24 bytes of fields: one short of the minimum.
  const Bytes older = Hex("1C000000 0008D0FE DA070000 02000000 03000000 04000000"
                          "05000000 06000000");
  for (bool initialize : {false, true}) {
    OTime time = MakeTime(2010, 2, 3, 4, 5, 6, 7);
    auto stream = nk::testing::StreamOf(older);
    ASSERT_TRUE(time.GetObjectData(stream, initialize));
    // The unread fields become the tail.
    EXPECT_EQ(time.m_oUserData.GetCount(), 24);
    time.m_oUserData.RemoveAll();
    EXPECT_EQ(nk::testing::Serialize(time), kDefaultFrame);
  }
}

TEST(TimeStampFrameTest, NewerLayoutKeepsItsSurplusAsTail) {
  Bytes newer = kDefaultFrame;
  newer[0] += 2;
  newer.push_back(0xAA);
  newer.push_back(0xBB);
  OTime time;
  auto stream = nk::testing::StreamOf(newer);
  ASSERT_TRUE(time.GetObjectData(stream, true));
  EXPECT_EQ(time.m_oUserData.GetCount(), 2);
  EXPECT_EQ(nk::testing::Serialize(time), newer);
}

TEST(TimeStampFrameTest, WrongIdentifierLeavesTheObject) {
  Bytes other = kDefaultFrame;
  other[5] = 0x09;
  OTime time = MakeTime(2010, 2, 3, 4, 5, 6, 7);
  auto stream = nk::testing::StreamOf(other);
  EXPECT_FALSE(time.GetObjectData(stream, true));
  EXPECT_EQ(time.m_iYear, 2010);
}

TEST(TimeStampValidateTest, RangesAndTheUncheckedMonth) {
  struct Case {
    OTime time;
    bool kept;
  } const kCases[] = {
      {MakeTime(2010, 2, 3, 4, 5, 6, 1'000'000), true},
      {MakeTime(2010, 13, 3, 4, 5, 6, 7), true},
      {MakeTime(1970, 1, 1, 0, 0, 0, 0), true},
      {MakeTime(2037, 12, 31, 23, 59, 59, 0), true},
      {MakeTime(2038, 1, 1, 0, 0, 0, 0), false},
      {MakeTime(1969, 12, 31, 0, 0, 0, 0), false},
      {MakeTime(2010, 2, 32, 4, 5, 6, 7), false},
      {MakeTime(2010, 2, 0, 4, 5, 6, 7), false},
      {MakeTime(2010, 2, 3, 24, 5, 6, 7), false},
      {MakeTime(2010, 2, 3, 4, 60, 6, 7), false},
      {MakeTime(2010, 2, 3, 4, 5, 60, 7), false},
      {MakeTime(2010, 2, 3, 4, 5, 6, -1), false},
  };
  for (const Case& c : kCases) {
    OTime time = c.time;
    time.Validate();
    OTime expected = c.kept ? c.time : OTime();
    EXPECT_EQ(nk::testing::Serialize(time), nk::testing::Serialize(expected))
        << c.time.m_iYear << "-" << c.time.m_iMonth << "-" << c.time.m_iDayOfMonth;
  }
}

class TimeStampLocalTest : public nk::testing::UtcZoneTest {};

TEST_F(TimeStampLocalTest, MicrosecondsCountFromYearZero) {
  EXPECT_EQ(MakeTime(1970, 1, 1, 0, 0, 0, 0).ToMicroseconds(), 62'167'219'200'000'000);
  EXPECT_EQ(MakeTime(2006, 1, 1, 0, 0, 1, 5).ToMicroseconds(),
            62'167'219'200'000'000 + 1'136'073'601'000'005);
}

TEST_F(TimeStampLocalTest, PlatformDatesConvertOrGiveTheDefaults) {
  OTime time;
  time.SetTime(CTime(1'152'969'255));  // 2006-07-15 13:14:15
  EXPECT_EQ(time.m_iYear, 2006);
  EXPECT_EQ(time.m_iMonth, 7);
  EXPECT_EQ(time.m_iSeconds, 15);
  EXPECT_EQ(time.GetTime().GetTime(), 1'152'969'255);

  time.SetOleTime(COleDateTime(2011, 12, 24, 18, 30, 5));
  EXPECT_EQ(time.m_iDayOfMonth, 24);
  EXPECT_EQ(time.m_iHours, 18);
  EXPECT_EQ(time.GetOleTime(), COleDateTime(2011, 12, 24, 18, 30, 5));

  time.SetOleTime(COleDateTime(2011, 2, 30, 0, 0, 0));  // invalid
  EXPECT_EQ(time.m_iYear, 2006);
  time.SetOleTime(COleDateTime(1960, 1, 1, 0, 0, 0));  // valid, out of range
  EXPECT_EQ(time.m_iYear, 2006);
}

TEST_F(TimeStampLocalTest, CurrentTimeLiesInRange) {
  OTime coarse;
  coarse.SetToCurrentTime();
  OTime precise;
  precise.SetToCurrentTimePrecisely();
  EXPECT_GE(coarse.m_iYear, 2024);
  EXPECT_EQ(coarse.m_iMicroSeconds, 0);
  EXPECT_LE(precise.ToMicroseconds() - coarse.ToMicroseconds(), 5'000'000);
  EXPECT_GE(precise.ToMicroseconds(), coarse.ToMicroseconds());
}

}  // namespace
