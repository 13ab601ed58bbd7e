#include "nkfoundation/core/time_stamp.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/support/bytes.h"
#include "tests/support/utc_zone.h"

namespace nk::testing {
namespace {

// Year 2006 first, microseconds last: the reverse of the declaration order.
// Every reset below compares against it, which pins the defaults.
const Bytes kDefaultFrame = Hex("20000000 0008D0FE D6070000 01000000 01000000 00000000"
                                "00000000 00000000 00000000");

OTime MakeTime(int year, int month, int day, int hour, int minute, int second, int micro) {
  OTime t;
  std::tie(t.m_iYear, t.m_iMonth, t.m_iDayOfMonth, t.m_iHours, t.m_iMinutes, t.m_iSeconds,
           t.m_iMicroSeconds) = std::tie(year, month, day, hour, minute, second, micro);
  return t;
}

TEST(TimeStampFrameTest, FieldsTravelFromYearDownToMicroseconds) {
  EXPECT_EQ(Serialize(MakeTime(2010, 2, 3, 4, 5, 6, 7)),
            Hex("20000000 0008D0FE DA070000 02000000 03000000 04000000 05000000 06000000 07000000"));
}

TEST(TimeStampFrameTest, ShortPayloadResetsToDefaultsWhateverTheFlag) {
  // 24 bytes of fields: one short of the minimum. They become the tail.
  const Bytes older = Hex("1C000000 0008D0FE DA070000 02000000 03000000 04000000 05000000 06000000");
  for (bool initialize : {false, true}) {
    OTime time = MakeTime(2010, 2, 3, 4, 5, 6, 7);
    auto stream = StreamOf(older);
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

class TimeStampLocalTest : public UtcZoneTest {};

TEST_F(TimeStampLocalTest, MicrosecondsCountFromYearZero) {
  EXPECT_EQ(MakeTime(1970, 1, 1, 0, 0, 0, 0).ToMicroseconds(), 62'167'219'200'000'000);
  EXPECT_EQ(MakeTime(2006, 1, 1, 0, 0, 1, 5).ToMicroseconds(),
            62'167'219'200'000'000 + 1'136'073'601'000'005);
}

TEST_F(TimeStampLocalTest, PlatformDatesConvertOrGiveTheDefaults) {
  OTime time;
  time.SetTime(CTime(1'152'969'255));  // 2006-07-15 13:14:15
  EXPECT_EQ(Serialize(time), Serialize(MakeTime(2006, 7, 15, 13, 14, 15, 0)));
  EXPECT_EQ(time.GetTime().GetTime(), 1'152'969'255);
  EXPECT_EQ(time.GetTime().GetYear() * 100 + time.GetTime().GetMonth(), 200607);
  time.SetOleTime(COleDateTime(2011, 12, 24, 18, 30, 5));
  EXPECT_EQ(time.GetOleTime(), COleDateTime(2011, 12, 24, 18, 30, 5));
  for (const COleDateTime& refused : {COleDateTime(2011, 2, 30, 0, 0, 0),  // invalid
                                      COleDateTime(1960, 1, 1, 0, 0, 0)}) {  // valid, out of range
    OTime stamp = MakeTime(2010, 2, 3, 4, 5, 6, 7);
    stamp.SetOleTime(refused);
    EXPECT_EQ(Serialize(stamp), kDefaultFrame);
  }
}

TEST_F(TimeStampLocalTest, CurrentTimeLiesInRange) {
  OTime coarse, precise;
  coarse.SetToCurrentTime();
  precise.SetToCurrentTimePrecisely();
  EXPECT_GE(coarse.m_iYear, 2024);
  const std::int64_t ahead = precise.ToMicroseconds() - coarse.ToMicroseconds();
  EXPECT_TRUE(ahead >= 0 && ahead <= 5'000'000) << ahead;
}

}  // namespace
}  // namespace nk::testing
