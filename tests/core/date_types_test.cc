#include "nkfoundation/core/date_types.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using Fields = std::array<int, 6>;  // year, month, day, hour, minute, second

Fields FieldsOf(const COleDateTime& d) {
  return {d.GetYear(), d.GetMonth(), d.GetDay(), d.GetHour(), d.GetMinute(), d.GetSecond()};
}

COleDateTime FromFields(const Fields& f) { return COleDateTime(f[0], f[1], f[2], f[3], f[4], f[5]); }

TEST(OleDateTest, FieldsAndValuesConvertBothWaysWithinRange) {
  // Day 0 is 30 December 1899; before it the fraction still runs forward.
  const std::pair<double, Fields> kDates[] = {
      {0.25, {1899, 12, 30, 6, 0, 0}},     {-1.25, {1899, 12, 29, 6, 0, 0}},
      {38718.0, {2006, 1, 1, 0, 0, 0}},    {36951.5, {2001, 3, 1, 12, 0, 0}},
      {-657434.0, {100, 1, 1, 0, 0, 0}},   {2958465.0, {9999, 12, 31, 0, 0, 0}},
  };
  for (const auto& [value, fields] : kDates) {
    EXPECT_EQ(FieldsOf(COleDateTime(value)), fields) << value;
    EXPECT_EQ(FromFields(fields), COleDateTime(value)) << value;
  }
  // The time of day resolves to the nearest second, across midnight too.
  EXPECT_EQ(FieldsOf(COleDateTime(1.0 - 0.4 / 86400)), (Fields{1899, 12, 31, 0, 0, 0}));

  const Fields kBad[] = {{99, 12, 31, 0, 0, 0}, {10000, 1, 1, 0, 0, 0}, {2001, 2, 29, 0, 0, 0},
                         {2000, 13, 1, 0, 0, 0}, {2000, 1, 1, 24, 0, 0}, {2000, 1, 1, 0, 0, 60}};
  for (const Fields& f : kBad) {
    EXPECT_EQ(FromFields(f).GetStatus(), COleDateTime::invalid) << f[0] << "-" << f[1] << "-" << f[2];
  }
  EXPECT_EQ(FieldsOf(COleDateTime(-657435.0)), (Fields{-1, -1, -1, -1, -1, -1}));
  EXPECT_EQ(FieldsOf(FromFields({2001, 2, 29, 0, 0, 0})), (Fields{-1, -1, -1, -1, -1, -1}));
}

TEST(OleDateTest, FormatRendersFieldsAndKeepsOtherCharacters) {
  const COleDateTime date(2003, 2, 1, 4, 5, 6);
  EXPECT_EQ(date.Format(u"@@%d.%m.%Y"), u"@@01.02.2003");
  EXPECT_EQ(date.Format(u"@@%H:%M:%S %y %% %q%"), u"@@04:05:06 03 % %q%");
  EXPECT_EQ(COleDateTime(2003, 2, 30, 0, 0, 0).Format(u"%d"), u"Invalid DateTime");
  COleDateTime null_date;
  null_date.SetStatus(COleDateTime::null);
  EXPECT_EQ(null_date.Format(u"%d"), u"");
}

}  // namespace
