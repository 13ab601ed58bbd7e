// The 16.16 fixed point of the geometry: a raw value v stands for v / 65536
// pixels. Conversions from floating point add one half and truncate toward
// zero, so negative values round toward zero (-1.7 becomes -1, not -2); the
// device rounds this way and results must match its results bit for bit.
//
// Raw arithmetic wraps around in 64 bits instead of being undefined, and a
// conversion of a value beyond 64 bits (or NaN) gives the smallest value, as
// the device's processors do.
#ifndef NKFOUNDATION_GEOMETRY_FIXED_POINT_H_
#define NKFOUNDATION_GEOMETRY_FIXED_POINT_H_

#include <cstdint>
#include <limits>

namespace nk::fixed {

inline constexpr int kFractionBits = 16;
inline constexpr std::int64_t kOne = std::int64_t{1} << kFractionBits;
inline constexpr std::int64_t kHalf = kOne / 2;

// Truncation toward zero.
constexpr std::int64_t Truncate(double value) {
  constexpr double kLimit = 9223372036854775808.0;  // 2^63
  if (value >= -kLimit && value < kLimit) return static_cast<std::int64_t>(value);
  return std::numeric_limits<std::int64_t>::min();
}

// Adds one half in the value's own precision, then truncates.
constexpr std::int64_t RoundHalfUp(double value) { return Truncate(value + 0.5); }
constexpr std::int64_t RoundHalfUp(float value) { return Truncate(value + 0.5f); }

constexpr std::int64_t Add(std::int64_t a, std::int64_t b) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) + static_cast<std::uint64_t>(b));
}
constexpr std::int64_t Subtract(std::int64_t a, std::int64_t b) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) - static_cast<std::uint64_t>(b));
}
constexpr std::int64_t Multiply(std::int64_t a, std::int64_t b) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) * static_cast<std::uint64_t>(b));
}
constexpr std::int64_t Negate(std::int64_t a) { return Subtract(0, a); }

// Truncating division. The one quotient that does not fit, the smallest
// value divided by -1, wraps to itself; a zero divisor is the caller's
// concern.
constexpr std::int64_t Divide(std::int64_t a, std::int64_t b) { return b == -1 ? Negate(a) : a / b; }

}  // namespace nk::fixed

#endif  // NKFOUNDATION_GEOMETRY_FIXED_POINT_H_
