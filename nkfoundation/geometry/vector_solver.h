// OVector_Solver: intersections of lines and circles and the distance of a
// point from a line, in the fixed point of OVector.
#ifndef NKFOUNDATION_GEOMETRY_VECTOR_SOLVER_H_
#define NKFOUNDATION_GEOMETRY_VECTOR_SOLVER_H_

#include <cstdint>

#include "nkfoundation/core/export.h"
#include "nkfoundation/geometry/vector.h"

// Outputs are left untouched when a function reports that there is no
// result, unless it says otherwise.
class NKF_API OVector_Solver {
 public:
  // The intersection of line A through (x1, y1), (x2, y2) with line B
  // through (x3, y3), (x4, y4), all raw fixed point. Lines are unbounded.
  // When they cross: meet true, parallel false, (xs, ys) the point. When
  // they are parallel: parallel true, meet true only when they coincide,
  // xs = ys = -1. The parallel test is made after dropping the cross
  // product's fractional bits, so a cross product in 0..65535 counts as
  // parallel while one in -65536..-1 does not.
  static void IntersectPoints(const std::int64_t& x1, const std::int64_t& y1, const std::int64_t& x2,
                              const std::int64_t& y2, const std::int64_t& x3, const std::int64_t& y3,
                              const std::int64_t& x4, const std::int64_t& y4, bool& meet, bool& parallel,
                              std::int64_t& xs, std::int64_t& ys);

  // Line 1 through p1 along d1, line 2 through p2 along d2. The result is
  // p2 plus a whole multiple of d2 (the multiple truncated toward zero);
  // callers that need it finer pass a longer d2. False for a zero direction
  // or parallel lines.
  static bool IntersectionPointOfLines(const OVector& d1, const OVector& p1, const OVector& d2,
                                       const OVector& p2, OVector& out);

  // The line through p along d against the circle about c of radius r
  // pixels. Returns the number of points: 0 (also for a zero direction or
  // r <= 0), 1 for a tangent (both outputs the same point), or 2.
  static int IntersectionPointsOfLineAndCircle(const OVector& d, const OVector& p, const OVector& c,
                                               double r, OVector& out1, OVector& out2);

  // The distance in pixels between point a and the line through b along d.
  // False for a zero direction.
  static bool DistancePointToLine(const OVector& a, const OVector& d, const OVector& b, double& dist);
};

#endif  // NKFOUNDATION_GEOMETRY_VECTOR_SOLVER_H_
