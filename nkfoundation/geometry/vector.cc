#include "nkfoundation/geometry/vector.h"

#include <cmath>

#include "nkfoundation/geometry/fixed_point.h"

namespace fixed = nk::fixed;

namespace {

// Whole pixels to raw, shifted in 32 bits.
std::int64_t FromWholePixels(int v) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(v) << fixed::kFractionBits);
}

// The constants of each precision, as the device's compiler rounds them.
template <class F>
struct AngleConstants;

template <>
struct AngleConstants<float> {
  static constexpr float kPi = 3.1415927f;
  static constexpr float kTwoPi = 6.2831855f;
  static constexpr float kHalfPi = 1.5707964f;
  static constexpr float kThreeHalvesPi = 4.712389f;
  static constexpr float kDegreesPerRadian = 57.295776f;
};

template <>
struct AngleConstants<double> {
  static constexpr double kPi = 3.14159265358979323846;
  static constexpr double kTwoPi = 2 * kPi;
  static constexpr double kHalfPi = kPi / 2;
  static constexpr double kThreeHalvesPi = 3 * kPi / 2;
  static constexpr double kDegreesPerRadian = 180 / kPi;
};

enum class AngleUnit { kRadians, kDegrees };
enum class AngleRange { kSigned, kPositive };  // from -90 degrees or from 0

// The angle of (x, y), computed in precision F: atan of the quotient, then
// corrected by quadrant.
template <class F>
F Angle(std::int64_t x, std::int64_t y, AngleUnit unit, AngleRange range) {
  using C = AngleConstants<F>;
  const bool degrees = unit == AngleUnit::kDegrees;
  const bool positive = range == AngleRange::kPositive;
  if (x == 0) {
    if (y > 0) return degrees ? F{90} : C::kHalfPi;
    // Straight down: both degree forms answer 270, the signed radian form -pi/2.
    if (y < 0) return degrees ? F{270} : positive ? C::kThreeHalvesPi : -C::kHalfPi;
    return F{0};
  }
  F angle = std::atan(static_cast<F>(y) / static_cast<F>(x));
  if (degrees) angle *= C::kDegreesPerRadian;
  if (x < 0) return angle + (degrees ? F{180} : C::kPi);
  if (positive && y < 0) return angle + (degrees ? F{360} : C::kTwoPi);
  return angle;
}

template <class F>
F ToPixels(std::int64_t v) {
  return static_cast<F>(v) * (F{1} / static_cast<F>(fixed::kOne));
}

}  // namespace

OVector::OVector(int x, int y) : m_llx(FromWholePixels(x)), m_lly(FromWholePixels(y)) {}

OVector::OVector(std::int64_t x, std::int64_t y) : m_llx(x), m_lly(y) {}

OVector::OVector(float x, float y)
    : m_llx(fixed::RoundHalfUp(x * 65536.0f)), m_lly(fixed::RoundHalfUp(y * 65536.0f)) {}

OVector::OVector(double x, double y)
    : m_llx(fixed::RoundHalfUp(x * 65536.0)), m_lly(fixed::RoundHalfUp(y * 65536.0)) {}

OVector::OVector(double angle) : OVector(std::cos(angle), std::sin(angle)) {}

OVector::OVector(float angle) : OVector(std::cos(angle), std::sin(angle)) {}

OVector::OVector(const OVector& other) : Framed(), m_llx(other.m_llx), m_lly(other.m_lly) {}

OVector& OVector::operator=(const OVector& other) {
  m_llx = other.m_llx;
  m_lly = other.m_lly;
  return *this;
}

int OVector::iX() const {
  return static_cast<int>(static_cast<std::int32_t>(fixed::Add(m_llx, fixed::kHalf) >> fixed::kFractionBits));
}

int OVector::iY() const {
  return static_cast<int>(static_cast<std::int32_t>(fixed::Add(m_lly, fixed::kHalf) >> fixed::kFractionBits));
}

float OVector::fX() const { return ToPixels<float>(m_llx); }
float OVector::fY() const { return ToPixels<float>(m_lly); }
double OVector::dX() const { return ToPixels<double>(m_llx); }
double OVector::dY() const { return ToPixels<double>(m_lly); }

float OVector::fLength() const { return static_cast<float>(std::sqrt(static_cast<double>(fLengthSquare()))); }
double OVector::dLength() const { return std::sqrt(dLengthSquare()); }
float OVector::fLengthSquare() const { return fX() * fX() + fY() * fY(); }
double OVector::dLengthSquare() const { return dX() * dX() + dY() * dY(); }

float OVector::fAngleRad() const {
  return Angle<float>(m_llx, m_lly, AngleUnit::kRadians, AngleRange::kSigned);
}
double OVector::dAngleRad() const {
  return Angle<double>(m_llx, m_lly, AngleUnit::kRadians, AngleRange::kSigned);
}
float OVector::fAngleRad_0_2PI() const {
  return Angle<float>(m_llx, m_lly, AngleUnit::kRadians, AngleRange::kPositive);
}
double OVector::dAngleRad_0_2PI() const {
  return Angle<double>(m_llx, m_lly, AngleUnit::kRadians, AngleRange::kPositive);
}
float OVector::fAngleDeg() const {
  return Angle<float>(m_llx, m_lly, AngleUnit::kDegrees, AngleRange::kSigned);
}
double OVector::dAngleDeg() const {
  return Angle<double>(m_llx, m_lly, AngleUnit::kDegrees, AngleRange::kSigned);
}
float OVector::fAngleDeg_0_360() const {
  return Angle<float>(m_llx, m_lly, AngleUnit::kDegrees, AngleRange::kPositive);
}
double OVector::dAngleDeg_0_360() const {
  return Angle<double>(m_llx, m_lly, AngleUnit::kDegrees, AngleRange::kPositive);
}

void OVector::Normalize() { *this = Normalized(); }

OVector OVector::Normalized() const {
  const double length = dLength();
  if (length == 0) return *this;
  return {fixed::RoundHalfUp(static_cast<double>(m_llx) / length),
          fixed::RoundHalfUp(static_cast<double>(m_lly) / length)};
}

OVector OVector::Rotate_90_Pos() const { return {fixed::Negate(m_lly), m_llx}; }
OVector OVector::Rotate_90_Neg() const { return {m_lly, fixed::Negate(m_llx)}; }
OVector OVector::Rotate_180() const { return {fixed::Negate(m_llx), fixed::Negate(m_lly)}; }

OVector OVector::operator+(const OVector& other) const {
  return {fixed::Add(m_llx, other.m_llx), fixed::Add(m_lly, other.m_lly)};
}

OVector OVector::operator-(const OVector& other) const {
  return {fixed::Subtract(m_llx, other.m_llx), fixed::Subtract(m_lly, other.m_lly)};
}

OVector OVector::operator*(int n) const { return {fixed::Multiply(m_llx, n), fixed::Multiply(m_lly, n)}; }
OVector OVector::operator/(int n) const { return {fixed::Divide(m_llx, n), fixed::Divide(m_lly, n)}; }

OVector OVector::operator*(float f) const {
  return {fixed::RoundHalfUp(static_cast<float>(m_llx) * f), fixed::RoundHalfUp(static_cast<float>(m_lly) * f)};
}

OVector OVector::operator/(float f) const {
  return {fixed::RoundHalfUp(static_cast<float>(m_llx) / f), fixed::RoundHalfUp(static_cast<float>(m_lly) / f)};
}

OVector OVector::operator*(double d) const {
  return {fixed::RoundHalfUp(static_cast<double>(m_llx) * d),
          fixed::RoundHalfUp(static_cast<double>(m_lly) * d)};
}

OVector OVector::operator/(double d) const {
  return {fixed::RoundHalfUp(static_cast<double>(m_llx) / d),
          fixed::RoundHalfUp(static_cast<double>(m_lly) / d)};
}

OVector OVector::operator>>(int n) const { return {m_llx >> n, m_lly >> n}; }
OVector OVector::operator<<(int n) const { return {m_llx << n, m_lly << n}; }

void OVector::CopyTo(OVector* target) const {
  if (target == nullptr) return;
  *target = *this;
  target->m_oUserData = m_oUserData;
}

OVector* OVector::opCreateCopy() const {
  auto* copy = new OVector;
  CopyTo(copy);
  return copy;
}

void OVector::OnShortPayload() { m_llx = m_lly = 0; }
