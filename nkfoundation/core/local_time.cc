#include "nkfoundation/core/local_time.h"

#include <limits>

namespace nk::local_time {

#if defined(_WIN32)

std::int64_t Now() { return _time64(nullptr); }

bool ToFields(std::int64_t seconds, std::tm* fields) {
  const __time64_t time = seconds;
  return _localtime64_s(fields, &time) == 0;
}

std::int64_t FromFields(std::tm* fields) { return _mktime64(fields); }

#else

std::int64_t Now() { return std::time(nullptr); }

bool ToFields(std::int64_t seconds, std::tm* fields) {
  if (seconds < std::numeric_limits<std::time_t>::min() ||
      seconds > std::numeric_limits<std::time_t>::max()) {
    return false;
  }
  const std::time_t time = static_cast<std::time_t>(seconds);
  return localtime_r(&time, fields) != nullptr;
}

std::int64_t FromFields(std::tm* fields) { return std::mktime(fields); }

#endif

}  // namespace nk::local_time
