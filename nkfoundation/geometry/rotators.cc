#include "nkfoundation/geometry/rotators.h"

#include <cmath>

#include "nkfoundation/geometry/fixed_point.h"

namespace fixed = nk::fixed;
using fixed::Add;
using fixed::Multiply;

namespace nk {

FixedRotation::FixedRotation(std::int64_t c, std::int64_t s, std::int64_t cx, std::int64_t cy)
    : m0_(c),
      m1_(s),
      m2_(fixed::Negate(s)),
      m3_(c),
      tx_(Add(Multiply(fixed::Subtract(fixed::kOne, c), cx), Multiply(s, cy))),
      ty_(fixed::Subtract(Multiply(fixed::Subtract(fixed::kOne, c), cy), Multiply(s, cx))) {}

void FixedRotation::Turn(std::int64_t x, std::int64_t y, int shift, std::int64_t& xr,
                         std::int64_t& yr) const {
  const std::int64_t half = std::int64_t{1} << (shift - 1);
  xr = Add(Add(Add(Multiply(m2_, y), Multiply(m0_, x)), tx_), half) >> shift;
  yr = Add(Add(Add(Multiply(m1_, x), Multiply(m3_, y)), ty_), half) >> shift;
}

}  // namespace nk

namespace {

constexpr int kWholePixelShift = 2 * fixed::kFractionBits;

// The point rotator's preparation: cos and sin truncated, not rounded.
nk::FixedRotation TruncatedRotation(double angle, std::int64_t cx, std::int64_t cy) {
  return {fixed::Truncate(std::cos(angle) * 65536.0), fixed::Truncate(std::sin(angle) * 65536.0), cx, cy};
}

std::int64_t FromWholePixels(int v) { return static_cast<std::int64_t>(v) << fixed::kFractionBits; }

}  // namespace

OPointRotator::OPointRotator(double angle, int cx, int cy)
    : m_oRotation(TruncatedRotation(angle, FromWholePixels(cx), FromWholePixels(cy))) {}

OPointRotator::OPointRotator(double angle, double cx, double cy)
    : m_oRotation(TruncatedRotation(angle, fixed::Truncate(cx * 65536.0), fixed::Truncate(cy * 65536.0))) {}

OPointRotator::OPointRotator(double angle, std::int64_t cx, std::int64_t cy)
    : m_oRotation(TruncatedRotation(angle, cx, cy)) {}

void OPointRotator::RotatePoint(int& x, int& y) const {
  std::int64_t xr = 0;
  std::int64_t yr = 0;
  m_oRotation.Turn(FromWholePixels(x), FromWholePixels(y), kWholePixelShift, xr, yr);
  x = static_cast<std::int32_t>(xr);
  y = static_cast<std::int32_t>(yr);
}

void OPointRotator::RotatePoint(const std::int64_t& x, const std::int64_t& y, std::int64_t& xr,
                                std::int64_t& yr) const {
  m_oRotation.Turn(x, y, fixed::kFractionBits, xr, yr);
}

OVectorRotator::OVectorRotator(double angle, const OVector& centre)
    : m_oRotation(fixed::RoundHalfUp(std::cos(angle) * 65536.0), fixed::RoundHalfUp(std::sin(angle) * 65536.0),
                  centre.m_llx, centre.m_lly) {}

OVectorRotator::OVectorRotator(float angle, const OVector& centre)
    : m_oRotation(fixed::RoundHalfUp(std::cos(angle) * 65536.0f), fixed::RoundHalfUp(std::sin(angle) * 65536.0f),
                  centre.m_llx, centre.m_lly) {}

void OVectorRotator::RotateVector(OVector& v) const {
  m_oRotation.Turn(v.m_llx, v.m_lly, fixed::kFractionBits, v.m_llx, v.m_lly);
}
