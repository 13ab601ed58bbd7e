#include <windows.h>

#include "nkfoundation/services/process_timer.h"

namespace process_timer {

// The performance counter's frequency is fixed at boot, so it is read once.
std::int64_t SteadyNowNanoseconds() {
  static const std::int64_t frequency = [] {
    LARGE_INTEGER value;
    QueryPerformanceFrequency(&value);
    return static_cast<std::int64_t>(value.QuadPart);
  }();
  LARGE_INTEGER counter;
  QueryPerformanceCounter(&counter);
  return CounterToNanoseconds(counter.QuadPart, frequency);
}

}  // namespace process_timer
