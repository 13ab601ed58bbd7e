// Local time through the C runtime, the one place where the hosts' runtime
// libraries differ (64-bit time functions on Windows, the POSIX forms
// elsewhere). Used by the time stamp and by the platform date types; the
// library does not export it.
#ifndef NKFOUNDATION_CORE_LOCAL_TIME_H_
#define NKFOUNDATION_CORE_LOCAL_TIME_H_

#include <cstdint>
#include <ctime>

namespace nk::local_time {

// Seconds since 1 January 1970 UTC, now.
std::int64_t Now();

// Breaks `seconds` into local-time fields (tm conventions: year - 1900,
// month 0 to 11); false when the runtime library cannot convert them.
bool ToFields(std::int64_t seconds, std::tm* fields);

// The inverse: seconds of local-time `fields`, normalising fields out of
// their range as the runtime library does (month 12 is next January) and
// deciding daylight saving when tm_isdst is negative; -1 when the runtime
// library cannot represent the time.
std::int64_t FromFields(std::tm* fields);

}  // namespace nk::local_time

#endif  // NKFOUNDATION_CORE_LOCAL_TIME_H_
