#include "nkfoundation/core/date_types.h"

#if !defined(NK_HAVE_MFC)

#include <cstdio>

#include "nkfoundation/core/local_time.h"
#include "nkfoundation/core/ole_date.h"

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
  if (nk::ole_date::FromFields({year, month, day, hour, minute, second}, &m_dt)) {
    m_status = valid;
  } else {
    m_dt = 0.0;
    m_status = invalid;
  }
  return m_status;
}

namespace {

using nk::ole_date::Fields;

// The fields of a valid date whose value converts.
bool FieldsOf(const COleDateTime& date, Fields* fields) {
  return date.GetStatus() == COleDateTime::valid && nk::ole_date::ToFields(date.m_dt, fields);
}

// One field of a valid, convertible date, or -1.
template <int Fields::*kField>
int FieldOf(const COleDateTime& date) {
  Fields fields;
  return FieldsOf(date, &fields) ? fields.*kField : COleDateTime::error;
}

}  // namespace

int COleDateTime::GetYear() const { return FieldOf<&Fields::year>(*this); }
int COleDateTime::GetMonth() const { return FieldOf<&Fields::month>(*this); }
int COleDateTime::GetDay() const { return FieldOf<&Fields::day>(*this); }
int COleDateTime::GetHour() const { return FieldOf<&Fields::hour>(*this); }
int COleDateTime::GetMinute() const { return FieldOf<&Fields::minute>(*this); }
int COleDateTime::GetSecond() const { return FieldOf<&Fields::second>(*this); }

std::u16string COleDateTime::Format(std::u16string_view format) const {
  if (m_status == null) return {};
  Fields fields;
  if (!FieldsOf(*this, &fields)) return u"Invalid DateTime";

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
