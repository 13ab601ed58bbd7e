#include "nkfoundation/core/date_types.h"

#include <gtest/gtest.h>

#include <string>

#include "nkfoundation/core/text.h"
#include "tests/support/utc_zone.h"

namespace {

struct OleDateCase {
  double value;
  int year, month, day, hour, minute, second;
};

// Day 0 is 30 December 1899; before it the fraction still runs forward.
constexpr OleDateCase kOleDates[] = {
    {0.0, 1899, 12, 30, 0, 0, 0},
    {0.25, 1899, 12, 30, 6, 0, 0},
    {-1.25, 1899, 12, 29, 6, 0, 0},
    {-1.0, 1899, 12, 29, 0, 0, 0},
    {2.5, 1900, 1, 1, 12, 0, 0},
    {38718.0, 2006, 1, 1, 0, 0, 0},
    {36951.5, 2001, 3, 1, 12, 0, 0},  // after a non-leap February
    {-657434.0, 100, 1, 1, 0, 0, 0},
    {2958465.0, 9999, 12, 31, 0, 0, 0},
};

TEST(OleDateTest, FieldsAndValuesConvertBothWays) {
  for (const OleDateCase& c : kOleDates) {
    SCOPED_TRACE(c.value);
    const COleDateTime date(c.value);
    EXPECT_EQ(date.GetYear(), c.year);
    EXPECT_EQ(date.GetMonth(), c.month);
    EXPECT_EQ(date.GetDay(), c.day);
    EXPECT_EQ(date.GetHour(), c.hour);
    EXPECT_EQ(date.GetMinute(), c.minute);
    EXPECT_EQ(date.GetSecond(), c.second);
    const COleDateTime built(c.year, c.month, c.day, c.hour, c.minute, c.second);
    EXPECT_EQ(built.GetStatus(), COleDateTime::valid);
    EXPECT_DOUBLE_EQ(built.m_dt, c.value);
  }
}

TEST(OleDateTest, TimeOfDayRoundsToTheNearestSecondAcrossMidnight) {
  const COleDateTime almost_midnight(1.0 - 0.4 / 86400);
  EXPECT_EQ(almost_midnight.GetDay(), 31);
  EXPECT_EQ(almost_midnight.GetHour(), 0);
  EXPECT_EQ(COleDateTime(0.5 + 0.6 / 86400).GetSecond(), 1);
}

TEST(OleDateTest, OutOfRangeFieldsGiveAnInvalidDate) {
  const int kBad[][6] = {{99, 12, 31, 0, 0, 0},    {10000, 1, 1, 0, 0, 0}, {2001, 2, 29, 0, 0, 0},
                         {2000, 13, 1, 0, 0, 0},   {2000, 1, 0, 0, 0, 0},  {2000, 1, 1, 24, 0, 0},
                         {2000, 1, 1, 0, 60, 0},   {2000, 1, 1, 0, 0, 60}, {-1, 1, 1, 0, 0, 0}};
  for (const auto& f : kBad) {
    const COleDateTime date(f[0], f[1], f[2], f[3], f[4], f[5]);
    EXPECT_EQ(date.GetStatus(), COleDateTime::invalid) << f[0] << "-" << f[1] << "-" << f[2];
    EXPECT_EQ(date.GetYear(), -1);
  }
  EXPECT_EQ(COleDateTime(2000, 2, 29, 23, 59, 59).GetStatus(), COleDateTime::valid);
}

TEST(OleDateTest, FieldsOfUnconvertibleValuesAreMinusOne) {
  EXPECT_EQ(COleDateTime(-657435.0).GetYear(), -1);
  EXPECT_EQ(COleDateTime(2958466.0).GetMonth(), -1);
  COleDateTime null_date(1.0);
  null_date.SetStatus(COleDateTime::null);
  EXPECT_EQ(null_date.GetDay(), -1);
}

TEST(OleDateTest, FormatRendersFieldsAndKeepsOtherCharacters) {
  const COleDateTime date(2003, 2, 1, 4, 5, 6);
  EXPECT_EQ(date.Format(u"@@%d.%m.%Y"), u"@@01.02.2003");
  EXPECT_EQ(date.Format(u"@@%H:%M:%S"), u"@@04:05:06");
  EXPECT_EQ(date.Format(u"%y %% %q%"), u"03 % %q%");
  EXPECT_EQ(COleDateTime(2003, 2, 30, 0, 0, 0).Format(u"%d"), u"Invalid DateTime");
  EXPECT_EQ(COleDateTime(1e7).Format(u"%d"), u"Invalid DateTime");
  COleDateTime null_date;
  null_date.SetStatus(COleDateTime::null);
  EXPECT_EQ(null_date.Format(u"%d"), u"");
}

TEST(OleDateTest, ParseReadsNumericDatesAndTimes) {
  struct Case {
    const char16_t* text;
    std::uint32_t flags;
    COleDateTime expected;
  } const kCases[] = {
      {u"01.02.2003", 0, COleDateTime(2003, 2, 1, 0, 0, 0)},
      {u"2003-2-1 4:05:06", 0, COleDateTime(2003, 2, 1, 4, 5, 6)},
      {u"  12:30 ", 0, COleDateTime(1899, 12, 30, 12, 30, 0)},
      {u"1.2.2003 4:05", COleDateTime::kDateValueOnly, COleDateTime(2003, 2, 1, 0, 0, 0)},
      {u"1.2.2003 4:05", COleDateTime::kTimeValueOnly, COleDateTime(1899, 12, 30, 4, 5, 0)},
  };
  for (const Case& c : kCases) {
    COleDateTime date;
    EXPECT_TRUE(date.ParseDateTime(c.text, c.flags)) << nk::ToUtf8(c.text);
    EXPECT_EQ(date, c.expected);
  }
  for (const char16_t* bad : {u"", u"1.2", u"31.2.2003", u"1.2.2003 1:2 x", u"12:30:00:01", u"a"}) {
    COleDateTime date(5.0);
    EXPECT_FALSE(date.ParseDateTime(bad));
    EXPECT_EQ(date.m_dt, 0.0);
    EXPECT_EQ(date.GetStatus(), COleDateTime::invalid);
  }
}

class LocalTimeTest : public nk::testing::UtcZoneTest {};

TEST_F(LocalTimeTest, FieldsAreReadInLocalTime) {
  const CTime epoch(0);
  EXPECT_EQ(epoch.GetYear(), 1970);
  EXPECT_EQ(epoch.GetMonth(), 1);
  EXPECT_EQ(epoch.GetDay(), 1);
  const CTime moment(2006, 7, 15, 13, 14, 15);
  EXPECT_EQ(moment.GetTime(), 1152969255);
  EXPECT_EQ(moment.GetHour(), 13);
  EXPECT_EQ(moment.GetMinute(), 14);
  EXPECT_EQ(moment.GetSecond(), 15);
  // The runtime normalises out-of-range fields: month 13 is next January.
  EXPECT_EQ(CTime(2005, 13, 1, 0, 0, 0).GetTime(), CTime(2006, 1, 1, 0, 0, 0).GetTime());
}

}  // namespace
