// OTime: a broken-down local date and time with microseconds, the time stamp
// that images and other records carry.
#ifndef NKFOUNDATION_CORE_TIME_STAMP_H_
#define NKFOUNDATION_CORE_TIME_STAMP_H_

#include <cstdint>

#include "nkfoundation/core/date_types.h"
#include "nkfoundation/core/export.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/object_ids.h"

// The defaults are 1 January 2006, 00:00:00.000000; `Validate` falls back to
// them whenever a field leaves its range.
class NKF_API OTime : public nk::Framed<OTime> {
 public:
  // Fields are written from the year down to the microseconds, the reverse
  // of their declaration order.
  static constexpr nk::FrameRules kFrame{nk::object_id::kTime, 7 * 4};

  OTime() = default;

  // Sets the defaults. The flag belongs to the protocol's signature and does
  // not change what is reset.
  virtual void InitializeMembers(bool bInitialize);

  // Now, to the second (microseconds 0), then validated; a field that the
  // runtime library cannot convert becomes -1 and so yields the defaults.
  void SetToCurrentTime();
  // Now, to the microsecond, from the system clock.
  void SetToCurrentTimePrecisely();

  // From the platform date objects: each field is taken when the object
  // converts, otherwise -1; then validated. Microseconds become 0.
  void SetTime(const CTime& time);
  void SetOleTime(const COleDateTime& time);
  // The platform date objects of the fields, to the second.
  CTime GetTime() const;
  COleDateTime GetOleTime() const;

  // Resets every field to the defaults when any of them (the month aside)
  // lies outside its range.
  void Validate();

  // Microseconds since 1 January of year 0 (proleptic Gregorian), the fields
  // read as local time.
  std::int64_t ToMicroseconds() const;

  void CopyTo(OTime* target) const;

  std::int32_t m_iMicroSeconds = 0;  // 0 to 1,000,000 inclusive
  std::int32_t m_iSeconds = 0;       // 0 to 59
  std::int32_t m_iMinutes = 0;       // 0 to 59
  std::int32_t m_iHours = 0;         // 0 to 23
  std::int32_t m_iDayOfMonth = 1;    // 1 to 31
  std::int32_t m_iMonth = 1;         // 1 = January; not checked
  std::int32_t m_iYear = 2006;       // 1970 to 2037

  using Fields = nk::FieldList<&OTime::m_iYear, &OTime::m_iMonth, &OTime::m_iDayOfMonth,
                               &OTime::m_iHours, &OTime::m_iMinutes, &OTime::m_iSeconds,
                               &OTime::m_iMicroSeconds>;

 protected:
  // Time stamps ignore bInitialize, but an older, shorter stamp always reads
  // as the defaults.
  void OnShortPayload() override { InitializeMembers(true); }

 private:
  // The fields of `seconds` since 1970 in local time (microseconds left
  // alone), or -1 in each when the runtime library cannot convert them.
  void SetLocalFields(std::int64_t seconds);
};

#endif  // NKFOUNDATION_CORE_TIME_STAMP_H_
