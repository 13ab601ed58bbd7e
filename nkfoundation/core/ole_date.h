// Conversions between OLE automation dates (days since 30 December 1899, the
// time of day as the fraction) and calendar fields, behind `COleDateTime`.
//
// Windows converts through OLE automation (oleaut32), as the host's class
// framework does; other platforms use the portable arithmetic. The portable
// arithmetic is built everywhere so that Windows builds can check the two
// against each other. The library does not export any of this.
#ifndef NKFOUNDATION_CORE_OLE_DATE_H_
#define NKFOUNDATION_CORE_OLE_DATE_H_

namespace nk::ole_date {

struct Fields {
  int year;
  int month;  // 1 = January
  int day;
  int hour;
  int minute;
  int second;

  friend bool operator==(const Fields&, const Fields&) = default;
};

// The arithmetic of the proleptic Gregorian calendar. Dates from 1 January
// 100 to 31 December 9999 convert; the time of day is resolved to the
// nearest second. Before day 0 the fraction still counts forward within the
// day: -1.25 is 29 December 1899, 06:00.
namespace portable {

// False, `date` untouched, when a field is out of range (29 February of a
// common year included).
bool FromFields(const Fields& fields, double* date);
// False, `fields` untouched, when `date` lies outside the convertible range
// or is not a number.
bool ToFields(double date, Fields* fields);

}  // namespace portable

// The platform's conversions, with the contracts above.
#if defined(_WIN32)
bool FromFields(const Fields& fields, double* date);
bool ToFields(double date, Fields* fields);
#else
inline bool FromFields(const Fields& fields, double* date) {
  return portable::FromFields(fields, date);
}
inline bool ToFields(double date, Fields* fields) { return portable::ToFields(date, fields); }
#endif

}  // namespace nk::ole_date

#endif  // NKFOUNDATION_CORE_OLE_DATE_H_
