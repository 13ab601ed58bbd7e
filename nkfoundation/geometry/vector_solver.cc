#include "nkfoundation/geometry/vector_solver.h"

#include <cmath>
#include <cstdlib>

#include "nkfoundation/geometry/fixed_point.h"

namespace fixed = nk::fixed;
using fixed::Multiply;
using fixed::Subtract;

namespace {

bool IsZero(const OVector& v) { return v.m_llx == 0 && v.m_lly == 0; }

// a.x * b.y - a.y * b.x on raw values.
std::int64_t Cross(std::int64_t ax, std::int64_t ay, std::int64_t bx, std::int64_t by) {
  return Subtract(Multiply(ax, by), Multiply(ay, bx));
}

}  // namespace

void OVector_Solver::IntersectPoints(const std::int64_t& x1, const std::int64_t& y1, const std::int64_t& x2,
                                     const std::int64_t& y2, const std::int64_t& x3, const std::int64_t& y3,
                                     const std::int64_t& x4, const std::int64_t& y4, bool& meet,
                                     bool& parallel, std::int64_t& xs, std::int64_t& ys) {
  meet = false;
  parallel = false;
  xs = -1;
  ys = -1;
  const std::int64_t dxa = Subtract(x2, x1);
  const std::int64_t dya = Subtract(y2, y1);
  const std::int64_t dxb = Subtract(x4, x3);
  const std::int64_t dyb = Subtract(y4, y3);
  const std::int64_t n1 = Multiply(Subtract(y3, y1), dxa);
  const std::int64_t n2 = Multiply(Subtract(x3, x1), dya);
  const std::int64_t denominator = Cross(dxb, dyb, dxa, dya) >> fixed::kFractionBits;
  if (denominator == 0) {
    parallel = true;
    meet = n1 == n2;
    return;
  }
  meet = true;
  // The position along line B, in 16.16.
  const std::int64_t t = fixed::Divide(Subtract(n1, n2), denominator);
  xs = fixed::Add(Multiply(dxb, t) >> fixed::kFractionBits, x3);
  ys = fixed::Add(Multiply(dyb, t) >> fixed::kFractionBits, y3);
}

bool OVector_Solver::IntersectionPointOfLines(const OVector& d1, const OVector& p1, const OVector& d2,
                                              const OVector& p2, OVector& out) {
  if (IsZero(d1) || IsZero(d2)) return false;
  const std::int64_t k1 = Multiply(d2.m_llx, d1.m_lly);
  const std::int64_t k2 = Multiply(d2.m_lly, d1.m_llx);
  if (k1 == k2) return false;
  const std::int64_t numerator = fixed::Add(Multiply(Subtract(p1.m_llx, p2.m_llx), d1.m_lly),
                                            Multiply(Subtract(p2.m_lly, p1.m_lly), d1.m_llx));
  const std::int64_t t = fixed::Divide(numerator, Subtract(k1, k2));
  out = p2 + d2 * static_cast<double>(t);
  return true;
}

int OVector_Solver::IntersectionPointsOfLineAndCircle(const OVector& d, const OVector& p, const OVector& c,
                                                      double r, OVector& out1, OVector& out2) {
  if (IsZero(d) || r <= 0) return 0;
  const double ex = p.dX() - c.dX();
  const double ey = p.dY() - c.dY();
  const double length_square = d.dX() * d.dX() + d.dY() * d.dY();
  // The points p + d*s on the circle solve s*s + q*s + (|e|^2 - r^2) / |d|^2 = 0.
  const double q = 2 * (d.dX() * ex + d.dY() * ey) / length_square;
  const double discriminant = q * q * 0.25 - (ex * ex + ey * ey - r * r) / length_square;
  if (discriminant < 0) return 0;
  const double w = std::sqrt(discriminant);
  out1 = p + d * (w - q * 0.5);
  // Nearly touching lines count as tangents.
  if (discriminant > 0.0001) {
    out2 = p + d * (-q * 0.5 - w);
    return 2;
  }
  out2 = out1;
  return 1;
}

bool OVector_Solver::DistancePointToLine(const OVector& a, const OVector& d, const OVector& b, double& dist) {
  if (IsZero(d)) return false;
  const std::int64_t cross = Cross(Subtract(a.m_llx, b.m_llx), Subtract(a.m_lly, b.m_lly), d.m_llx, d.m_lly);
  const double length = std::sqrt(static_cast<double>(
      fixed::Add(Multiply(d.m_lly, d.m_lly), Multiply(d.m_llx, d.m_llx))));
  dist = std::abs(static_cast<double>(cross)) / length * (1.0 / static_cast<double>(fixed::kOne));
  return true;
}
