#include "nkfoundation/core/time_stamp.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/support/bytes.h"
#include "tests/support/utc_zone.h"

namespace {

using nk::testing::Bytes;
using nk::testing::Hex;
using nk::testing::Serialize;

// Year 2006 first, microseconds last: the reverse of the declaration order.
const Bytes kDefaultFrame = Hex("20000000 0008D0FE D6070000 01000000 01000000 00000000"
                                "00000000 00000000 00000000");

OTime MakeTime(int year, int month, int day, int hour, int minute, int second, int micro) {
  OTime t;
  std::tie(t.m_iYear, t.m_iMonth, t.m_iDayOfMonth, t.m_iHours, t.m_iMinutes, t.m_iSeconds,
           t.m_iMicroSeconds) = std::tie(year, month, day, hour, minute, second, micro);
  return t;
}

TEST(TimeStampFrameTest, FieldsTravelFromYearDownToMicroseconds) {
  OTime time;
  EXPECT_EQ(Serialize(time), kDefaultFrame);
  OTime stamp = MakeTime(2010, 2, 3, 4, 5, 6, 7);
  const Bytes frame = Hex("20000000 0008D0FE DA070000 02000000 03000000 04000000"
                          "05000000 06000000 07000000");
  EXPECT_EQ(Serialize(stamp), frame);

  // A newer, longer stamp reads its fields and keeps the surplus.
  Bytes newer = frame;
  newer[0] += 2;
  newer.insert(newer.end(), {0xAA, 0xBB});
  auto stream = nk::testing::StreamOf(newer);
  ASSERT_TRUE(time.GetObjectData(stream, true));
  EXPECT_EQ(time.m_iYear, 2010);
  EXPECT_EQ(Serialize(time), newer);
}

TEST(TimeStampFrameTest, ShortPayloadResetsToDefaultsWhateverTheFlag) {
  // 24 bytes of fields: one short of the minimum. They become the tail.
  const Bytes older = Hex("1C000000 0008D0FE DA070000 02000000 03000000 04000000"
                          "05000000 06000000");
  for (bool initialize : {false, true}) {
    OTime time = MakeTime(2010, 2, 3, 4, 5, 6, 7);
    auto stream = nk::testing::StreamOf(older);
    ASSERT_TRUE(time.GetObjectData(stream, initialize));
    EXPECT_EQ(time.m_oUserData.GetCount(), 24);
    time.m_oUserData.RemoveAll();
    EXPECT_EQ(Serialize(time), kDefaultFrame);
  }
}

// The frame of `time` after Validate().
Bytes ValidatedFrame(OTime time) {
  time.Validate();
  return Serialize(time);
}

TEST(TimeStampValidateTest, RangesAndTheUncheckedMonth) {
  for (OTime kept : {MakeTime(2010, 2, 3, 4, 5, 6, 1'000'000), MakeTime(2010, 13, 3, 4, 5, 6, 7),
                     MakeTime(2037, 12, 31, 23, 59, 59, 0)}) {
    EXPECT_EQ(ValidatedFrame(kept), Serialize(kept));
  }
  for (const OTime& reset : {MakeTime(2038, 1, 1, 0, 0, 0, 0), MakeTime(1969, 12, 31, 0, 0, 0, 0),
                             MakeTime(2010, 2, 0, 4, 5, 6, 7), MakeTime(2010, 2, 3, 4, 5, 60, 7)}) {
    EXPECT_EQ(ValidatedFrame(reset), kDefaultFrame);
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
  EXPECT_EQ(time.m_iMonth, 7);
  EXPECT_EQ(time.GetTime().GetTime(), 1'152'969'255);
  EXPECT_EQ(time.GetTime().GetYear() * 100 + time.GetTime().GetMonth(), 200607);
  time.SetOleTime(COleDateTime(2011, 12, 24, 18, 30, 5));
  EXPECT_EQ(time.GetOleTime(), COleDateTime(2011, 12, 24, 18, 30, 5));
  time.SetOleTime(COleDateTime(2011, 2, 30, 0, 0, 0));  // invalid
  EXPECT_EQ(Serialize(time), kDefaultFrame);
  time.SetOleTime(COleDateTime(1960, 1, 1, 0, 0, 0));  // valid, out of range
  EXPECT_EQ(Serialize(time), kDefaultFrame);
}

TEST_F(TimeStampLocalTest, CurrentTimeLiesInRange) {
  OTime coarse;
  coarse.SetToCurrentTime();
  OTime precise;
  precise.SetToCurrentTimePrecisely();
  EXPECT_GE(coarse.m_iYear, 2024);
  EXPECT_LE(precise.ToMicroseconds() - coarse.ToMicroseconds(), 5'000'000);
  EXPECT_GE(precise.ToMicroseconds(), coarse.ToMicroseconds());
}

}  // namespace
