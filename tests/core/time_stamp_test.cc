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

TEST(TimeStampFrameTest, YearFirstAndShortPayloadsReadAsDefaults) {
  EXPECT_EQ(Serialize(MakeTime(2010, 2, 3, 4, 5, 6, 7)),
            Hex("20000000 0008D0FE DA070000 02000000 03000000 04000000 05000000 06000000 07000000"));

  // 24 bytes of fields, one short of the minimum, become the tail; the
  // fields reset whatever the flag says.
  const Bytes older = Hex("1C000000 0008D0FE DA070000 02000000 03000000 04000000 05000000 06000000");
  for (bool initialize : {false, true}) {
    OTime time = MakeTime(2010, 2, 3, 4, 5, 6, 7);
    ASSERT_TRUE(Deserialize(time, older, initialize));
    EXPECT_EQ(time.m_oUserData.GetCount(), 24);
    time.m_oUserData.RemoveAll();
    EXPECT_EQ(Serialize(time), kDefaultFrame);
  }
}

// Validate keeps a stamp whole or resets all of it; the month goes unchecked.
TEST(TimeStampValidateTest, RangesAndTheUncheckedMonth) {
  const std::pair<OTime, bool> kCases[] = {
      {MakeTime(2010, 2, 3, 4, 5, 6, 1'000'000), true}, {MakeTime(2010, 13, 3, 4, 5, 6, 7), true},
      {MakeTime(2037, 12, 31, 23, 59, 59, 0), true},    {MakeTime(2038, 1, 1, 0, 0, 0, 0), false},
      {MakeTime(1969, 12, 31, 0, 0, 0, 0), false},      {MakeTime(2010, 2, 0, 4, 5, 6, 7), false},
      {MakeTime(2010, 2, 3, 4, 5, 60, 7), false}};
  for (const auto& [time, kept] : kCases) {
    OTime validated = time;
    validated.Validate();
    EXPECT_EQ(Serialize(validated), kept ? Serialize(OTime(time)) : kDefaultFrame);
  }
}

class TimeStampLocalTest : public UtcZoneTest {};

TEST_F(TimeStampLocalTest, PlatformDatesAndMicrosecondsFromYearZero) {
  EXPECT_EQ(MakeTime(2006, 1, 1, 0, 0, 1, 5).ToMicroseconds(),
            62'167'219'200'000'000 + 1'136'073'601'000'005);
  OTime time;
  time.SetTime(CTime(1'152'969'255));  // 2006-07-15 13:14:15
  EXPECT_EQ(Serialize(time), Serialize(MakeTime(2006, 7, 15, 13, 14, 15, 0)));
  EXPECT_EQ(time.GetTime().GetTime(), 1'152'969'255);
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
  const std::int64_t ahead = precise.ToMicroseconds() - coarse.ToMicroseconds();
  EXPECT_TRUE(coarse.m_iYear >= 2024 && ahead >= 0 && ahead <= 5'000'000) << ahead;
}

}  // namespace
}  // namespace nk::testing
