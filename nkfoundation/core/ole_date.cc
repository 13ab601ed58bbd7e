#include "nkfoundation/core/ole_date.h"

#include <cmath>
#include <cstdint>

namespace nk::ole_date::portable {

namespace {

struct CivilDate {
  int year;
  int month;
  int day;
};

constexpr bool IsLeapYear(int year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr int DaysInMonth(int year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

// Days since 1 January 1970 (the era-based algorithm: exact for every year).
constexpr std::int64_t DaysFromCivil(CivilDate date) {
  const std::int64_t y = date.year - (date.month <= 2 ? 1 : 0);
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const std::int64_t year_of_era = y - era * 400;
  const std::int64_t month_index = (date.month + 9) % 12;  // March = 0
  const std::int64_t day_of_year = (153 * month_index + 2) / 5 + date.day - 1;
  const std::int64_t day_of_era =
      year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
  return era * 146097 + day_of_era - 719468;
}

constexpr CivilDate CivilFromDays(std::int64_t days) {
  days += 719468;
  const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
  const std::int64_t day_of_era = days - era * 146097;
  const std::int64_t year_of_era =
      (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const std::int64_t day_of_year =
      day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const std::int64_t month_index = (5 * day_of_year + 2) / 153;
  const int day = static_cast<int>(day_of_year - (153 * month_index + 2) / 5 + 1);
  const int month = static_cast<int>(month_index < 10 ? month_index + 3 : month_index - 9);
  const int year = static_cast<int>(year_of_era + era * 400 + (month <= 2 ? 1 : 0));
  return {year, month, day};
}

// Day 0 of the OLE date.
constexpr std::int64_t kOleEpochDays = DaysFromCivil({1899, 12, 30});
constexpr int kSecondsPerDay = 86400;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

bool InRange(const Fields& f) {
  return f.year >= kFirstYear && f.year <= kLastYear && f.month >= 1 && f.month <= 12 &&
         f.day >= 1 && f.day <= DaysInMonth(f.year, f.month) && f.hour >= 0 && f.hour <= 23 &&
         f.minute >= 0 && f.minute <= 59 && f.second >= 0 && f.second <= 59;
}

}  // namespace

bool FromFields(const Fields& fields, double* date) {
  if (!InRange(fields)) return false;
  const std::int64_t days =
      DaysFromCivil({fields.year, fields.month, fields.day}) - kOleEpochDays;
  const double fraction =
      (fields.hour * 3600 + fields.minute * 60 + fields.second) / double{kSecondsPerDay};
  // Before day 0 the fraction still counts forward within the day, so it is
  // stored with the sign of the day.
  *date = days < 0 ? static_cast<double>(days) - fraction : static_cast<double>(days) + fraction;
  return true;
}

bool ToFields(double date, Fields* fields) {
  // Beyond about ±3.3 million days no date lies in years 100 to 9999.
  if (!std::isfinite(date) || std::fabs(date) > 3.3e6) return false;
  const double whole = std::trunc(date);
  std::int64_t days = static_cast<std::int64_t>(whole);
  std::int64_t seconds = std::llround(std::fabs(date - whole) * kSecondsPerDay);
  if (seconds == kSecondsPerDay) {
    seconds = 0;
    ++days;
  }
  const CivilDate civil = CivilFromDays(days + kOleEpochDays);
  if (civil.year < kFirstYear || civil.year > kLastYear) return false;
  *fields = {civil.year,
             civil.month,
             civil.day,
             static_cast<int>(seconds / 3600),
             static_cast<int>(seconds / 60 % 60),
             static_cast<int>(seconds % 60)};
  return true;
}

}  // namespace nk::ole_date::portable
