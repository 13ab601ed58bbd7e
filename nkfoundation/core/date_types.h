// The platform date types: `CTime` (seconds since 1970, read in local time)
// and `COleDateTime` (an OLE automation date: days since 30 December 1899).
//
// A Windows build with the host's class framework (NK_HAVE_MFC) uses the
// framework's own classes. Everywhere else, including the mingw build, this
// header supplies small value types of the same names and meaning, limited to
// what time stamps and variants use. Like the framework's, they convert
// through the runtime library's 64-bit time functions and OLE automation on
// Windows (nkfoundation/core/ole_date.h); other platforms use the C library
// and portable calendar arithmetic.
#ifndef NKFOUNDATION_CORE_DATE_TYPES_H_
#define NKFOUNDATION_CORE_DATE_TYPES_H_

#if defined(NK_HAVE_MFC)

#include <afxdisp.h>

#else  // !NK_HAVE_MFC

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

#include "nkfoundation/core/export.h"

// A moment as seconds since 1 January 1970 UTC; its fields are read in the
// process's local time zone.
class NKF_API CTime {
 public:
  CTime() = default;
  explicit CTime(std::int64_t seconds) : m_time(seconds) {}
  // The given local time, daylight saving decided by the runtime library
  // (`dst` < 0) or forced (0 standard time, > 0 daylight time). A time the
  // runtime cannot represent gives -1 seconds, whose fields do not convert.
  CTime(int year, int month, int day, int hour, int minute, int second, int dst = -1);

  std::int64_t GetTime() const { return m_time; }

  // Fills `out` with the local broken-down time and returns it, or returns
  // nullptr when the runtime library cannot convert this moment.
  std::tm* GetLocalTm(std::tm* out) const;

  // Local-time fields; 0 when the moment does not convert.
  int GetYear() const;
  int GetMonth() const;  // 1 = January
  int GetDay() const;
  int GetHour() const;
  int GetMinute() const;
  int GetSecond() const;

  friend bool operator==(const CTime&, const CTime&) = default;

 private:
  std::int64_t m_time = 0;
};

// An OLE automation date: whole days since 30 December 1899 plus the time of
// day as the fraction. For dates before that day the fraction still counts
// forward from the start of the day: -1.25 is 29 December 1899, 06:00.
// Dates from 1 January 100 to 31 December 9999 convert to fields; the time
// of day is resolved to the nearest second.
class NKF_API COleDateTime {
 public:
  enum DateTimeStatus { error = -1, valid = 0, invalid = 1, null = 2 };

  COleDateTime() = default;
  COleDateTime(double date) : m_dt(date) {}  // NOLINT: the framework's implicit form
  // Status invalid (and the value 0) when a field is out of range.
  COleDateTime(int year, int month, int day, int hour, int minute, int second);

  // Sets the value from fields; returns the new status.
  DateTimeStatus SetDateTime(int year, int month, int day, int hour, int minute, int second);
  DateTimeStatus GetStatus() const { return m_status; }
  void SetStatus(DateTimeStatus status) { m_status = status; }

  // Fields of a valid date; -1 (`error`) when the status is not valid or the
  // value lies outside the convertible range.
  int GetYear() const;
  int GetMonth() const;  // 1 = January
  int GetDay() const;
  int GetHour() const;
  int GetMinute() const;
  int GetSecond() const;

  // Renders the date with `format`, where %d %m %Y %y %H %M %S give the
  // zero-padded fields, %% a percent sign and every other character stands
  // for itself. A null date renders as empty text; an invalid one, or one
  // whose value does not convert, as "Invalid DateTime".
  std::u16string Format(std::u16string_view format) const;

  friend bool operator==(const COleDateTime&, const COleDateTime&) = default;

  double m_dt = 0.0;
  DateTimeStatus m_status = valid;
};

#endif  // NK_HAVE_MFC

#endif  // NKFOUNDATION_CORE_DATE_TYPES_H_
