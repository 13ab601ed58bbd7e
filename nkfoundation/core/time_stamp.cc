#include "nkfoundation/core/time_stamp.h"

#include <chrono>
#include <ctime>

#include "nkfoundation/core/local_time.h"

namespace {

// The span from 1 January of year 0 to 1 January 1970, in the 100 ns ticks
// that the conversion to microseconds counts in.
constexpr std::int64_t kTicksPerSecond = 10'000'000;
constexpr std::int64_t kTicksBefore1970 = 621'672'192'000'000'000;

bool InRange(std::int32_t value, std::int32_t low, std::int32_t high) {
  return value >= low && value <= high;
}

}  // namespace

void OTime::InitializeMembers(bool /*bInitialize*/) {
  m_iMicroSeconds = 0;
  m_iSeconds = 0;
  m_iMinutes = 0;
  m_iHours = 0;
  m_iDayOfMonth = 1;
  m_iMonth = 1;
  m_iYear = 2006;
}

void OTime::SetLocalFields(std::int64_t seconds) {
  std::tm fields;
  if (!nk::local_time::ToFields(seconds, &fields)) {
    m_iSeconds = m_iMinutes = m_iHours = m_iDayOfMonth = m_iMonth = m_iYear = -1;
    return;
  }
  m_iSeconds = fields.tm_sec;
  m_iMinutes = fields.tm_min;
  m_iHours = fields.tm_hour;
  m_iDayOfMonth = fields.tm_mday;
  m_iMonth = fields.tm_mon + 1;
  m_iYear = fields.tm_year + 1900;
}

void OTime::SetToCurrentTime() {
  SetLocalFields(nk::local_time::Now());
  m_iMicroSeconds = 0;
  Validate();
}

void OTime::SetToCurrentTimePrecisely() {
  using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, kTicksPerSecond>>;
  const std::int64_t ticks =
      std::chrono::duration_cast<Ticks>(std::chrono::system_clock::now().time_since_epoch())
          .count();
  SetLocalFields(ticks / kTicksPerSecond);
  m_iMicroSeconds = static_cast<std::int32_t>(ticks % kTicksPerSecond / 10);
}

void OTime::SetTime(const CTime& time) {
  SetLocalFields(time.GetTime());
  m_iMicroSeconds = 0;
  Validate();
}

void OTime::SetOleTime(const COleDateTime& time) {
  const bool valid = time.GetStatus() == COleDateTime::valid;
  m_iMicroSeconds = 0;
  m_iSeconds = valid ? time.GetSecond() : -1;
  m_iMinutes = valid ? time.GetMinute() : -1;
  m_iHours = valid ? time.GetHour() : -1;
  m_iDayOfMonth = valid ? time.GetDay() : -1;
  m_iMonth = valid ? time.GetMonth() : -1;
  m_iYear = valid ? time.GetYear() : -1;
  Validate();
}

CTime OTime::GetTime() const {
  return CTime(m_iYear, m_iMonth, m_iDayOfMonth, m_iHours, m_iMinutes, m_iSeconds);
}

COleDateTime OTime::GetOleTime() const {
  return COleDateTime(m_iYear, m_iMonth, m_iDayOfMonth, m_iHours, m_iMinutes, m_iSeconds);
}

void OTime::Validate() {
  const bool valid = InRange(m_iMicroSeconds, 0, 1'000'000) && InRange(m_iSeconds, 0, 59) &&
                     InRange(m_iMinutes, 0, 59) && InRange(m_iHours, 0, 23) &&
                     InRange(m_iDayOfMonth, 1, 31) && InRange(m_iYear, 1970, 2037);
  if (!valid) InitializeMembers(true);
}

std::int64_t OTime::ToMicroseconds() const {
  std::tm fields{};
  fields.tm_sec = m_iSeconds;
  fields.tm_min = m_iMinutes;
  fields.tm_hour = m_iHours;
  fields.tm_mday = m_iDayOfMonth;
  fields.tm_mon = m_iMonth - 1;
  fields.tm_year = m_iYear - 1900;
  fields.tm_isdst = -1;
  const std::int64_t seconds = nk::local_time::FromFields(&fields);
  return (seconds * kTicksPerSecond + kTicksBefore1970) / 10 + m_iMicroSeconds;
}

void OTime::CopyTo(OTime* target) const {
  if (target != nullptr) *target = *this;
}
