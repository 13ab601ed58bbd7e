// OPointRotator and OVectorRotator: a rotation about a centre, prepared once
// in fixed point and then applied to many points.
//
// Positive angles turn counter-clockwise in a y-up frame, which is
// clockwise on screen, where y grows downward.
#ifndef NKFOUNDATION_GEOMETRY_ROTATORS_H_
#define NKFOUNDATION_GEOMETRY_ROTATORS_H_

#include <cstdint>

#include "nkfoundation/core/export.h"
#include "nkfoundation/geometry/vector.h"

namespace nk {

// The prepared rotation: the matrix (cos, sin, -sin, cos) in 16.16 and the
// translation (tx, ty) in 32.32 that makes it turn about the centre. Only the
// rotators below build and use it, inside the library: it is not exported.
class FixedRotation {
 public:
  // `c` and `s` are cos and sin of the angle in 16.16, the centre raw.
  FixedRotation(std::int64_t c, std::int64_t s, std::int64_t cx, std::int64_t cy);

  // Turns the raw point (x, y) and drops `shift` fractional bits from the
  // 32.32 result, rounding half up: 16 gives raw fixed point, 32 whole
  // pixels.
  void Turn(std::int64_t x, std::int64_t y, int shift, std::int64_t& xr, std::int64_t& yr) const;

 private:
  std::int64_t m0_;  // cos
  std::int64_t m1_;  // sin
  std::int64_t m2_;  // -sin
  std::int64_t m3_;  // cos
  std::int64_t tx_;
  std::int64_t ty_;
};

}  // namespace nk

// Truncates cos and sin toward zero when it prepares the rotation, while
// OVectorRotator rounds them: for some angles the two differ in the last
// bit, and each keeps its own rule so that positions computed before come
// out the same.
class NKF_API OPointRotator {
 public:
  // `angle` in radians; the centre in whole pixels, in pixels (truncated
  // to fixed point) or raw.
  OPointRotator(double angle, int cx, int cy);
  OPointRotator(double angle, double cx, double cy);
  OPointRotator(double angle, std::int64_t cx, std::int64_t cy);

  // Turns a whole-pixel point in place, rounding half up to whole pixels.
  void RotatePoint(int& x, int& y) const;
  // Turns a raw point.
  void RotatePoint(const std::int64_t& x, const std::int64_t& y, std::int64_t& xr, std::int64_t& yr) const;

 private:
  nk::FixedRotation m_oRotation;
};

// Rounds cos and sin half up when it prepares the rotation; the float form
// does so in single precision.
class NKF_API OVectorRotator {
 public:
  OVectorRotator(double angle, const OVector& centre);
  OVectorRotator(float angle, const OVector& centre);

  void RotateVector(OVector& v) const;

 private:
  nk::FixedRotation m_oRotation;
};

#endif  // NKFOUNDATION_GEOMETRY_ROTATORS_H_
