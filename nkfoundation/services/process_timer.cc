#include "nkfoundation/services/process_timer.h"

#include <cstdint>

#ifndef _WIN32
#include <chrono>
#endif

namespace process_timer {

std::int64_t CounterToNanoseconds(std::int64_t counter, std::int64_t frequency) {
  if (frequency <= 0) return 0;
  constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
  // The remainder is below the frequency, so its product stays in range for
  // any clock slower than 9.2 GHz.
  return counter / frequency * kNanosecondsPerSecond + counter % frequency * kNanosecondsPerSecond / frequency;
}

#ifndef _WIN32
// win32/steady_clock.cc reads the performance counter instead.
std::int64_t SteadyNowNanoseconds() {
  using Clock = std::chrono::steady_clock;
  const std::int64_t ticks = Clock::now().time_since_epoch().count();
  return CounterToNanoseconds(ticks * Clock::period::num, Clock::period::den);
}
#endif

bool Timer::SetMaxDuration(unsigned int ms) {
  max_duration_ms_ = ms;
  return true;
}

bool Timer::StartTimer() {
  start_ns_ = SteadyNowNanoseconds();
  expiry_ns_ = start_ns_ + static_cast<std::int64_t>(max_duration_ms_) * 1'000'000;
  return true;
}

bool Timer::HasTimerExpired() { return RemainingDuration() <= 0; }

int Timer::RemainingDuration() {
  const std::int64_t remaining_ms = (expiry_ns_ - SteadyNowNanoseconds()) / 1'000'000;
  if (remaining_ms < 0) return 0;
  // A time-out near 2^32 ms exceeds an int; it reads as the largest one.
  return remaining_ms > INT32_MAX ? INT32_MAX : static_cast<int>(remaining_ms);
}

std::uint64_t Timer::GetCurrentTimerTicks_us() { return static_cast<std::uint64_t>(SteadyNowNanoseconds() / 1000); }

std::uint64_t Timer::GetDurationSinceStart_us() {
  return static_cast<std::uint64_t>((SteadyNowNanoseconds() - start_ns_) / 1000);
}

}  // namespace process_timer
