// OVector: the 2-D point and direction of the geometry, in signed 64-bit
// 16.16 fixed point (see fixed_point.h), so that image positions can be
// added, scaled and rotated without drift and compared exactly.
#ifndef NKFOUNDATION_GEOMETRY_VECTOR_H_
#define NKFOUNDATION_GEOMETRY_VECTOR_H_

#include <cstdint>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/object_ids.h"

// Wire form: x and y as i64 raw fixed point, then the tail. An older frame
// with less than both coordinates reads as the zero vector.
//
// Results that round do so by adding one half and truncating toward zero.
// Where an operation is made in single precision it stays there, also where
// a raw value beyond 2^24 (256 pixels) loses its low bits on the way: the
// device computes the same way.
class NKF_API OVector : public nk::Framed<OVector> {
 public:
  static constexpr nk::FrameRules kFrame{nk::object_id::kVector, 2 * 8};

  OVector() = default;
  // Whole pixels, shifted into place in 32 bits: beyond -32768..32767 the
  // value wraps instead of widening, as on the device.
  OVector(int x, int y);
  // Raw fixed point.
  OVector(std::int64_t x, std::int64_t y);
  // Pixels.
  OVector(float x, float y);
  OVector(double x, double y);
  // The unit vector (length 65536 raw) pointing at `angle` radians.
  explicit OVector(double angle);
  explicit OVector(float angle);
  // Copying takes the coordinates only; the tail stays with its object
  // unless `CopyTo` or `opCreateCopy` is asked for it.
  OVector(const OVector& other);
  OVector& operator=(const OVector& other);

  // Whole pixels, rounded half up; the low 32 bits of the result.
  int iX() const;
  int iY() const;
  // Pixels.
  float fX() const;
  float fY() const;
  double dX() const;
  double dY() const;

  // In pixels. The float length sums in single precision and takes the root
  // in double.
  float fLength() const;
  double dLength() const;
  float fLengthSquare() const;
  double dLengthSquare() const;

  // The direction, in radians in [-pi/2, 3pi/2) or [0, 2pi), in degrees in
  // (-90, 270] or [0, 360). Straight down (x 0, y negative) is -pi/2 in
  // radians but 270 in degrees. The zero vector answers 0.
  float fAngleRad() const;
  double dAngleRad() const;
  float fAngleRad_0_2PI() const;
  double dAngleRad_0_2PI() const;
  float fAngleDeg() const;
  double dAngleDeg() const;
  float fAngleDeg_0_360() const;
  double dAngleDeg_0_360() const;

  // Scales to length 1.0 (65536 raw); the zero vector stays as it is.
  void Normalize();
  OVector Normalized() const;
  OVector Rotate_90_Pos() const;  // (-y, x)
  OVector Rotate_90_Neg() const;  // (y, -x)
  OVector Rotate_180() const;     // (-x, -y)

  OVector operator-() const { return Rotate_180(); }
  const OVector& operator+() const { return *this; }
  OVector operator+(const OVector& other) const;
  OVector operator-(const OVector& other) const;
  // By a plain factor, not a fixed-point one; division truncates.
  OVector operator*(int n) const;
  OVector operator/(int n) const;
  OVector operator*(float f) const;
  OVector operator/(float f) const;
  OVector operator*(double d) const;
  OVector operator/(double d) const;
  // Arithmetic shifts of both raw coordinates.
  OVector operator>>(int n) const;
  OVector operator<<(int n) const;

  OVector& operator+=(const OVector& other) { return *this = *this + other; }
  OVector& operator-=(const OVector& other) { return *this = *this - other; }
  OVector& operator*=(int n) { return *this = *this * n; }
  OVector& operator/=(int n) { return *this = *this / n; }
  OVector& operator*=(float f) { return *this = *this * f; }
  OVector& operator/=(float f) { return *this = *this / f; }
  OVector& operator*=(double d) { return *this = *this * d; }
  OVector& operator/=(double d) { return *this = *this / d; }
  OVector& operator>>=(int n) { return *this = *this >> n; }
  OVector& operator<<=(int n) { return *this = *this << n; }

  // Compares the coordinates only.
  bool operator==(const OVector& other) const { return m_llx == other.m_llx && m_lly == other.m_lly; }

  // Coordinates and tail.
  void CopyTo(OVector* target) const;
  // A new copy, owned by the caller.
  OVector* opCreateCopy() const;

  std::int64_t m_llx = 0;
  std::int64_t m_lly = 0;

  using Fields = nk::FieldList<&OVector::m_llx, &OVector::m_lly>;

 protected:
  void OnShortPayload() override;
};

#endif  // NKFOUNDATION_GEOMETRY_VECTOR_H_
