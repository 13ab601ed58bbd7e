// OLE automation dates through oleaut32, the conversions the host's class
// framework uses, so that dates read and shown here agree with the desktop
// application's to the second.
#include <windows.h>
#include <oleauto.h>

#include <cmath>
#include <initializer_list>
#include <limits>

#include "nkfoundation/core/ole_date.h"

namespace nk::ole_date {

namespace {

bool FitsWord(int value) { return value >= 0 && value <= std::numeric_limits<WORD>::max(); }

}  // namespace

bool FromFields(const Fields& fields, double* date) {
  // SYSTEMTIME holds 16-bit fields; wider values must not wrap into range.
  for (int value : {fields.year, fields.month, fields.day, fields.hour, fields.minute,
                    fields.second}) {
    if (!FitsWord(value)) return false;
  }
  SYSTEMTIME time{};
  time.wYear = static_cast<WORD>(fields.year);
  time.wMonth = static_cast<WORD>(fields.month);
  time.wDay = static_cast<WORD>(fields.day);
  time.wHour = static_cast<WORD>(fields.hour);
  time.wMinute = static_cast<WORD>(fields.minute);
  time.wSecond = static_cast<WORD>(fields.second);
  DATE converted;
  if (!SystemTimeToVariantTime(&time, &converted)) return false;
  // OLE automation rolls fields over (31 April becomes 1 May) and reads
  // years below 100 as two-digit years; a date is valid only when it comes
  // back with the fields it was given.
  Fields back;
  if (!ToFields(converted, &back) || !(back == fields)) return false;
  *date = converted;
  return true;
}

bool ToFields(double date, Fields* fields) {
  // OLE automation's range check lets NaN through, into arbitrary fields.
  if (!std::isfinite(date)) return false;
  SYSTEMTIME time;
  if (!VariantTimeToSystemTime(date, &time)) return false;
  *fields = {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
  return true;
}

}  // namespace nk::ole_date
