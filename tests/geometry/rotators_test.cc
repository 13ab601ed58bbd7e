#include "nkfoundation/geometry/rotators.h"

#include <gtest/gtest.h>

#include <numbers>
#include <utility>

namespace {

constexpr double kPi = std::numbers::pi;
constexpr std::int64_t kOne = 65536;

std::pair<int, int> Turned(const OPointRotator& rotator, int x, int y) {
  rotator.RotatePoint(x, y);
  return {x, y};
}

TEST(RotatorsTest, PointRotatorTurnsWholePixelsAboutItsCentre) {
  // A quarter turn about (10, 10) takes the point to its right to the one above.
  EXPECT_EQ(Turned(OPointRotator(kPi / 2, 10, 10), 11, 10), std::pair(10, 11));
  // A half turn about x = 0.25 maps 0 to 0.5 and 1 to -0.5: half up.
  const OPointRotator half_turn(kPi, 0.25, 0.0);
  EXPECT_EQ(Turned(half_turn, 0, 0), std::pair(1, 0));
  EXPECT_EQ(Turned(half_turn, 1, 0), std::pair(0, 0));
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
  OVectorRotator(static_cast<float>(kPi / 2), OVector(1, 1)).RotateVector(p);
  EXPECT_EQ(p, OVector(1, 2));
}

}  // namespace
