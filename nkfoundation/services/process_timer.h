// process_timer::Timer: a monotonic stopwatch with a time-out, for waiting
// loops.
#ifndef NKFOUNDATION_SERVICES_PROCESS_TIMER_H_
#define NKFOUNDATION_SERVICES_PROCESS_TIMER_H_

#include <cstdint>

#include "nkfoundation/core/export.h"

namespace process_timer {

// Nanoseconds of the steady clock: the platform's high-resolution
// performance counter on Windows, the standard steady clock elsewhere.
NKF_API std::int64_t SteadyNowNanoseconds();

// `counter` ticks of a clock running at `frequency` ticks per second, in
// nanoseconds. Whole seconds and the remainder are converted apart, so no
// intermediate product overflows while the result fits. A frequency of 0 or
// less gives 0.
NKF_API std::int64_t CounterToNanoseconds(std::int64_t counter, std::int64_t frequency);

// A new timer has start, expiry and maximum duration 0, so it counts as
// expired. Copies are independent timers.
class NKF_API Timer {
 public:
  Timer() = default;
  virtual ~Timer() = default;

  // Stores the time-out in milliseconds; takes effect at the next start.
  // Returns true.
  virtual bool SetMaxDuration(unsigned int ms);
  // Starts now and expires after the maximum duration. Returns true.
  virtual bool StartTimer();
  // True once `RemainingDuration()` is 0; an override of that changes this.
  virtual bool HasTimerExpired();
  // Whole milliseconds until expiry, truncated; 0 once expired.
  virtual int RemainingDuration();
  // The steady clock in microseconds.
  virtual std::uint64_t GetCurrentTimerTicks_us();
  // Microseconds since the last start.
  virtual std::uint64_t GetDurationSinceStart_us();

 private:
  std::int64_t expiry_ns_ = 0;
  std::uint64_t max_duration_ms_ = 0;
  std::int64_t start_ns_ = 0;
};

}  // namespace process_timer

#endif  // NKFOUNDATION_SERVICES_PROCESS_TIMER_H_
