#include "nkfoundation/geometry/vector_solver.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

constexpr std::int64_t kOne = 65536;

struct Crossing {
  bool meet = false;
  bool parallel = false;
  std::int64_t xs = 0;
  std::int64_t ys = 0;
};

Crossing Intersect(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2, std::int64_t x3,
                   std::int64_t y3, std::int64_t x4, std::int64_t y4) {
  Crossing c;
  OVector_Solver::IntersectPoints(x1, y1, x2, y2, x3, y3, x4, y4, c.meet, c.parallel, c.xs, c.ys);
  return c;
}

TEST(VectorSolverTest, IntersectPoints) {
  // The x axis and the vertical line x = 2 meet at (2, 0).
  Crossing c = Intersect(0, 0, kOne, 0, 2 * kOne, -kOne, 2 * kOne, kOne);
  EXPECT_TRUE(c.meet);
  EXPECT_FALSE(c.parallel);
  EXPECT_EQ(c.xs, 2 * kOne);
  EXPECT_EQ(c.ys, 0);

  c = Intersect(0, 0, kOne, kOne, 2 * kOne, 2 * kOne, 3 * kOne, 3 * kOne);  // the same line
  EXPECT_TRUE(c.meet && c.parallel);
  EXPECT_EQ(c.xs, -1);
  EXPECT_EQ(c.ys, -1);
  c = Intersect(0, 0, kOne, 0, 0, kOne, kOne, kOne);  // distinct parallels
  EXPECT_TRUE(c.parallel);
  EXPECT_FALSE(c.meet);

  // Line A is one raw unit long. A cross product of +1 counts as parallel,
  // one of -1 does not.
  c = Intersect(0, 0, 1, 0, 5, 7, 5, 6);
  EXPECT_TRUE(c.parallel);
  EXPECT_FALSE(c.meet);
  c = Intersect(0, 0, 1, 0, 5, 7, 5, 8);
  EXPECT_TRUE(c.meet);
  EXPECT_FALSE(c.parallel);
  EXPECT_EQ(c.xs, 5);
  EXPECT_EQ(c.ys, 6);
}

TEST(VectorSolverTest, IntersectionPointOfLinesStepsWholeDirections) {
  const OVector x_axis(1, 0);
  const OVector up(0, 1);
  OVector out(7, 7);
  ASSERT_TRUE(OVector_Solver::IntersectionPointOfLines(x_axis, OVector(), up, OVector(3, -5), out));
  EXPECT_EQ(out, OVector(3, 0));
  // From -5.5 the crossing lies 5.5 steps away; only 5 whole steps are taken.
  const OVector below(std::int64_t{3 * kOne}, std::int64_t{-5 * kOne - kOne / 2});
  ASSERT_TRUE(OVector_Solver::IntersectionPointOfLines(x_axis, OVector(), up, below, out));
  EXPECT_EQ(out, OVector(std::int64_t{3 * kOne}, std::int64_t{-kOne / 2}));

  out = OVector(7, 7);
  EXPECT_FALSE(OVector_Solver::IntersectionPointOfLines(OVector(), OVector(), up, OVector(), out));
  EXPECT_FALSE(OVector_Solver::IntersectionPointOfLines(x_axis, OVector(), x_axis * 2, up, out));
  EXPECT_EQ(out, OVector(7, 7));
}

TEST(VectorSolverTest, LineAndCircle) {
  const OVector d(1, 0);
  OVector first;
  OVector second;
  EXPECT_EQ(OVector_Solver::IntersectionPointsOfLineAndCircle(d, OVector(), OVector(), 2.0, first, second), 2);
  EXPECT_EQ(first, OVector(2, 0));
  // -2.0 pixels scale to -131072 + 0.5, which truncates toward zero.
  EXPECT_EQ(second, OVector(std::int64_t{-2 * kOne + 1}, std::int64_t{0}));

  // A tangent at the top of the circle, then lines that miss.
  EXPECT_EQ(OVector_Solver::IntersectionPointsOfLineAndCircle(d, OVector(0, 2), OVector(), 2.0, first, second),
            1);
  EXPECT_EQ(second, OVector(0, 2));
  for (const auto& [direction, through, radius] :
       {std::tuple{d, OVector(0, 3), 2.0}, std::tuple{d, OVector(), 0.0}, std::tuple{OVector(), OVector(), 2.0}}) {
    EXPECT_EQ(OVector_Solver::IntersectionPointsOfLineAndCircle(direction, through, OVector(), radius, first,
                                                                second),
              0);
  }
}

TEST(VectorSolverTest, DistancePointToLine) {
  double dist = -1;
  ASSERT_TRUE(OVector_Solver::DistancePointToLine(OVector(0, 5), OVector(2, 0), OVector(7, 1), dist));
  EXPECT_EQ(dist, 4.0);
  dist = -1;
  EXPECT_FALSE(OVector_Solver::DistancePointToLine(OVector(0, 5), OVector(), OVector(7, 1), dist));
  EXPECT_EQ(dist, -1);
}

}  // namespace
