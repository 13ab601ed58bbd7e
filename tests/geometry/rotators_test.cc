#include "nkfoundation/geometry/rotators.h"

#include <gtest/gtest.h>

#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;
constexpr std::int64_t kOne = 65536;

TEST(RotatorsTest, PointRotatorTurnsAboutItsCentre) {
  // A quarter turn takes the x axis to the y axis.
  int x = 1;
  int y = 0;
  OPointRotator(kPi / 2, 0, 0).RotatePoint(x, y);
  EXPECT_EQ(x, 0);
  EXPECT_EQ(y, 1);

  x = 11;
  y = 10;
  OPointRotator(kPi, 10, 10).RotatePoint(x, y);
  EXPECT_EQ(x, 9);
  EXPECT_EQ(y, 10);

  // About (1.5, 0) in pixels, a raw point.
  std::int64_t xr = 0;
  std::int64_t yr = 0;
  OPointRotator(kPi, 1.5, 0.0).RotatePoint(2 * kOne, std::int64_t{0}, xr, yr);
  EXPECT_EQ(xr, kOne);
  EXPECT_EQ(yr, 0);
}

TEST(RotatorsTest, WholePixelsRoundHalfUp) {
  // A half turn about x = 0.25 maps 0 to 0.5 and 1 to -0.5.
  const OPointRotator half_turn(kPi, 0.25, 0.0);
  int x = 0;
  int y = 0;
  half_turn.RotatePoint(x, y);
  EXPECT_EQ(x, 1);
  x = 1;
  half_turn.RotatePoint(x, y);
  EXPECT_EQ(x, 0);
}

TEST(RotatorsTest, PointRotatorTruncatesWhereVectorRotatorRounds) {
  // sin(60 degrees) * 65536 = 56755.84: the point rotator keeps 56755, the
  // vector rotator 56756, and the turned unit vector shows it.
  std::int64_t xr = 0;
  std::int64_t yr = 0;
  OPointRotator(kPi / 3, std::int64_t{0}, std::int64_t{0}).RotatePoint(kOne, std::int64_t{0}, xr, yr);
  EXPECT_EQ(xr, 32768);
  EXPECT_EQ(yr, 56755);

  OVector v(std::int64_t{kOne}, std::int64_t{0});
  OVectorRotator(kPi / 3, OVector()).RotateVector(v);
  EXPECT_EQ(v, OVector(std::int64_t{32768}, std::int64_t{56756}));

  // The single-precision form about (1, 1).
  OVector p(2, 1);
  const OVectorRotator quarter(static_cast<float>(kPi / 2), OVector(1, 1));
  quarter.RotateVector(p);
  EXPECT_EQ(p, OVector(1, 2));
}

}  // namespace
