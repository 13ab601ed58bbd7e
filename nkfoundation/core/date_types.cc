#include "nkfoundation/core/date_types.h"

#if !defined(NK_HAVE_MFC)

#include <cmath>
#include <cstdio>

#include "nkfoundation/core/local_time.h"

namespace {

// --- The proleptic Gregorian calendar ---------------------------------------

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

struct DateFields {
  int year, month, day, hour, minute, second;
};

bool InRange(const DateFields& f) {
  return f.year >= kFirstYear && f.year <= kLastYear && f.month >= 1 && f.month <= 12 &&
         f.day >= 1 && f.day <= DaysInMonth(f.year, f.month) && f.hour >= 0 && f.hour <= 23 &&
         f.minute >= 0 && f.minute <= 59 && f.second >= 0 && f.second <= 59;
}

double OleDateFromFields(const DateFields& f) {
  const std::int64_t days = DaysFromCivil({f.year, f.month, f.day}) - kOleEpochDays;
  const double fraction = (f.hour * 3600 + f.minute * 60 + f.second) / double{kSecondsPerDay};
  // Before day 0 the fraction still counts forward within the day, so it is
  // stored with the sign of the day.
  return days < 0 ? static_cast<double>(days) - fraction : static_cast<double>(days) + fraction;
}

bool FieldsFromOleDate(double date, DateFields* out) {
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
  *out = {civil.year,
          civil.month,
          civil.day,
          static_cast<int>(seconds / 3600),
          static_cast<int>(seconds / 60 % 60),
          static_cast<int>(seconds % 60)};
  return civil.year >= kFirstYear && civil.year <= kLastYear;
}

}  // namespace

// --- CTime -------------------------------------------------------------------

CTime::CTime(int year, int month, int day, int hour, int minute, int second, int dst) {
  std::tm fields{};
  fields.tm_year = year - 1900;
  fields.tm_mon = month - 1;
  fields.tm_mday = day;
  fields.tm_hour = hour;
  fields.tm_min = minute;
  fields.tm_sec = second;
  fields.tm_isdst = dst;
  m_time = nk::local_time::FromFields(&fields);
}

std::tm* CTime::GetLocalTm(std::tm* out) const { return nk::local_time::ToFields(m_time, out) ? out : nullptr; }

namespace {

// One local-time field of `time` (tm field plus `kOffset`), or 0.
template <int std::tm::*kField, int kOffset = 0>
int LocalField(const CTime& time) {
  std::tm fields;
  return time.GetLocalTm(&fields) ? fields.*kField + kOffset : 0;
}

}  // namespace

int CTime::GetYear() const { return LocalField<&std::tm::tm_year, 1900>(*this); }
int CTime::GetMonth() const { return LocalField<&std::tm::tm_mon, 1>(*this); }
int CTime::GetDay() const { return LocalField<&std::tm::tm_mday>(*this); }
int CTime::GetHour() const { return LocalField<&std::tm::tm_hour>(*this); }
int CTime::GetMinute() const { return LocalField<&std::tm::tm_min>(*this); }
int CTime::GetSecond() const { return LocalField<&std::tm::tm_sec>(*this); }

// --- COleDateTime ----------------------------------------------------------

COleDateTime::COleDateTime(int year, int month, int day, int hour, int minute, int second) {
  SetDateTime(year, month, day, hour, minute, second);
}

COleDateTime::DateTimeStatus COleDateTime::SetDateTime(int year, int month, int day, int hour,
                                                       int minute, int second) {
  const DateFields fields{year, month, day, hour, minute, second};
  if (!InRange(fields)) {
    m_dt = 0.0;
    m_status = invalid;
  } else {
    m_dt = OleDateFromFields(fields);
    m_status = valid;
  }
  return m_status;
}

namespace {

// One field of a valid, convertible date, or -1.
template <int DateFields::*kField>
int FieldOf(const COleDateTime& date) {
  DateFields fields;
  if (date.GetStatus() != COleDateTime::valid || !FieldsFromOleDate(date.m_dt, &fields)) {
    return COleDateTime::error;
  }
  return fields.*kField;
}

}  // namespace

int COleDateTime::GetYear() const { return FieldOf<&DateFields::year>(*this); }
int COleDateTime::GetMonth() const { return FieldOf<&DateFields::month>(*this); }
int COleDateTime::GetDay() const { return FieldOf<&DateFields::day>(*this); }
int COleDateTime::GetHour() const { return FieldOf<&DateFields::hour>(*this); }
int COleDateTime::GetMinute() const { return FieldOf<&DateFields::minute>(*this); }
int COleDateTime::GetSecond() const { return FieldOf<&DateFields::second>(*this); }

std::u16string COleDateTime::Format(std::u16string_view format) const {
  if (m_status == null) return {};
  DateFields fields;
  if (m_status != valid || !FieldsFromOleDate(m_dt, &fields)) return u"Invalid DateTime";

  std::u16string text;
  auto append_number = [&text](int value, int width) {
    char digits[8];
    std::snprintf(digits, sizeof digits, "%0*d", width, value);
    for (const char* c = digits; *c != '\0'; ++c) text += static_cast<char16_t>(*c);
  };
  for (std::size_t i = 0; i < format.size(); ++i) {
    if (format[i] != u'%' || i + 1 == format.size()) {
      text += format[i];
      continue;
    }
    switch (format[++i]) {
      case u'd': append_number(fields.day, 2); break;
      case u'm': append_number(fields.month, 2); break;
      case u'Y': append_number(fields.year, 4); break;
      case u'y': append_number(fields.year % 100, 2); break;
      case u'H': append_number(fields.hour, 2); break;
      case u'M': append_number(fields.minute, 2); break;
      case u'S': append_number(fields.second, 2); break;
      case u'%': text += u'%'; break;
      default:
        text += u'%';
        text += format[i];
    }
  }
  return text;
}

#endif  // !NK_HAVE_MFC
