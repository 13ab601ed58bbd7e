#include "nkfoundation/geometry/vector_solver.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>

namespace {

constexpr std::int64_t kOne = 65536;

OVector Raw(std::int64_t x, std::int64_t y) { return OVector(x, y); }

TEST(VectorSolverTest, IntersectPoints) {
  using Crossing = std::tuple<bool, bool, std::int64_t, std::int64_t>;  // meet, parallel, xs, ys
  const std::tuple<std::array<std::int64_t, 8>, Crossing> cases[] = {
      {{0, 0, kOne, 0, 2 * kOne, -kOne, 2 * kOne, kOne}, {true, false, 2 * kOne, 0}},  // x axis, x = 2
      {{0, 0, kOne, kOne, 2 * kOne, 2 * kOne, 3 * kOne, 3 * kOne}, {true, true, -1, -1}},  // one line
      {{0, 0, kOne, 0, 0, kOne, kOne, kOne}, {false, true, -1, -1}},  // distinct parallels
      // Line A is one raw unit long. A cross product of +1 counts as
      // parallel, one of -1 does not.
      {{0, 0, 1, 0, 5, 7, 5, 6}, {false, true, -1, -1}},
      {{0, 0, 1, 0, 5, 7, 5, 8}, {true, false, 5, 6}},
  };
  for (const auto& [p, expected] : cases) {
    Crossing got;
    auto& [meet, parallel, xs, ys] = got;
    OVector_Solver::IntersectPoints(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], meet, parallel, xs, ys);
    EXPECT_EQ(got, expected) << ::testing::PrintToString(p);
  }
}

TEST(VectorSolverTest, IntersectionPointOfLinesStepsWholeDirections) {
  const OVector x_axis(1, 0);
  const OVector up(0, 1);
  // A zero direction and parallel lines leave the output alone.
  OVector out(7, 7);
  EXPECT_FALSE(OVector_Solver::IntersectionPointOfLines(OVector(), OVector(), up, OVector(), out));
  EXPECT_FALSE(OVector_Solver::IntersectionPointOfLines(x_axis, OVector(), x_axis * 2, up, out));
  EXPECT_EQ(out, OVector(7, 7));

  // The line y = 1 lies 6.5 steps up from (3, -5.5); only 6 whole steps are taken.
  const OVector below = Raw(3 * kOne, -11 * kOne / 2);
  ASSERT_TRUE(OVector_Solver::IntersectionPointOfLines(x_axis, OVector(0, 1), up, below, out));
  EXPECT_EQ(out, Raw(3 * kOne, kOne / 2));
}

TEST(VectorSolverTest, LineAndCircle) {
  // The line through p along d against the circle of radius r about the origin.
  OVector first;
  OVector second;
  auto count = [&](const OVector& d, const OVector& p, double r) {
    return OVector_Solver::IntersectionPointsOfLineAndCircle(d, p, OVector(), r, first, second);
  };
  const OVector x_axis(1, 0);
  EXPECT_EQ(count(x_axis, OVector(), 2.0), 2);
  EXPECT_EQ(first, OVector(2, 0));
  // -2.0 pixels scale to -131072 + 0.5, which truncates toward zero.
  EXPECT_EQ(second, Raw(-2 * kOne + 1, 0));

  // A tangent at the top of the circle gives its point twice; lines that miss give none.
  EXPECT_EQ(count(x_axis, OVector(0, 2), 2.0), 1);
  EXPECT_EQ(second, OVector(0, 2));
  EXPECT_EQ(count(x_axis, OVector(0, 3), 2.0), 0);
  EXPECT_EQ(count(x_axis, OVector(), 0.0), 0);
  EXPECT_EQ(count(OVector(), OVector(), 2.0), 0);
}

TEST(VectorSolverTest, DistancePointToLine) {
  double dist = -1;
  EXPECT_FALSE(OVector_Solver::DistancePointToLine(OVector(0, 5), OVector(), OVector(7, 1), dist));
  EXPECT_EQ(dist, -1);
  ASSERT_TRUE(OVector_Solver::DistancePointToLine(OVector(0, 5), OVector(2, 0), OVector(7, 1), dist));
  EXPECT_EQ(dist, 4.0);
}

}  // namespace
