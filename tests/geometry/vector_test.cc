#include "nkfoundation/geometry/vector.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <numbers>

#include "tests/support/bytes.h"

namespace {

using nk::testing::Bytes;
using nk::testing::Hex;
using nk::testing::Serialize;
using nk::testing::StreamOf;

constexpr double kPi = std::numbers::pi;

void ExpectRaw(const OVector& v, std::int64_t x, std::int64_t y) {
  EXPECT_EQ(v.m_llx, x);
  EXPECT_EQ(v.m_lly, y);
}

TEST(VectorFrameTest, CoordinatesThenTail) {
  const Bytes frame = Hex("14000000 0015D0FE 0000010000000000 0000FEFFFFFFFFFF");
  EXPECT_EQ(Serialize(OVector(1, -2)), frame);

  // A newer vector keeps its extra bytes and writes them back.
  Bytes newer = nk::testing::Concat(frame, Hex("0102"));
  newer[0] += 2;
  OVector v;
  auto stream = StreamOf(newer);
  ASSERT_TRUE(v.GetObjectData(stream, false));
  ExpectRaw(v, 65536, -131072);
  EXPECT_EQ(Serialize(v), newer);

  // A different class's frame is refused and changes nothing.
  auto other = StreamOf(Hex("0C000000 0014D0FE 00000000"));
  EXPECT_FALSE(v.GetObjectData(other, true));
  ExpectRaw(v, 65536, -131072);
}

TEST(VectorFrameTest, OlderFrameWithoutBothCoordinatesReadsAsZero) {
  // Only x: the vector becomes (0, 0) whatever the flag, x becomes the tail.
  OVector v(5, 6);
  auto stream = StreamOf(Hex("0C000000 0015D0FE 0000010000000000"));
  ASSERT_TRUE(v.GetObjectData(stream, false));
  ExpectRaw(v, 0, 0);
  EXPECT_EQ(v.m_oUserData.GetCount(), 8);
}

TEST(VectorTest, ConstructorsConvertAsTheDeviceDoes) {
  ExpectRaw(OVector(1, 2), 65536, 131072);
  // Whole pixels shift in 32 bits and wrap.
  ExpectRaw(OVector(40000, -40000), -1673527296, 1673527296);
  ExpectRaw(OVector(std::int64_t{3}, std::int64_t{-3}), 3, -3);
  // Half up, then toward zero: negative values round toward zero.
  ExpectRaw(OVector(-1.7, 2.5 / 65536), -111410, 3);
  // 2^23 + 1 raw: adding one half in single precision rounds to even.
  const float odd = 8388609.0f / 65536.0f;
  ExpectRaw(OVector(odd, -odd), 8388610, -8388608);
  ExpectRaw(OVector(static_cast<double>(odd), -static_cast<double>(odd)), 8388609, -8388608);
  // Unit vectors; cos(pi) = -1 gives -65535.5, which truncates to -65535.
  ExpectRaw(OVector(0.0), 65536, 0);
  ExpectRaw(OVector(kPi / 2), 0, 65536);
  ExpectRaw(OVector(kPi), -65535, 0);
  ExpectRaw(OVector(static_cast<float>(kPi)), -65535, 0);
}

TEST(VectorTest, ReadOuts) {
  EXPECT_EQ(OVector(std::int64_t{-32768}, std::int64_t{-32769}).iX(), 0);
  EXPECT_EQ(OVector(std::int64_t{-32768}, std::int64_t{-32769}).iY(), -1);
  EXPECT_EQ(OVector(std::int64_t{98303}, std::int64_t{98304}).iY(), 2);
  // Beyond 2^24 raw the float read-out loses the low bits.
  const OVector far(std::int64_t{(1 << 24) + 1}, std::int64_t{0});
  EXPECT_EQ(far.fX(), 256.0f);
  EXPECT_EQ(far.dX(), 256.0 + 1.0 / 65536);

  const OVector v(3, -4);
  EXPECT_EQ(v.dLength(), 5.0);
  EXPECT_EQ(v.fLength(), 5.0f);
  EXPECT_EQ(v.dLengthSquare(), 25.0);
  EXPECT_EQ(v.fLengthSquare(), 25.0f);
}

TEST(VectorTest, AnglesByQuadrant) {
  const OVector down(0, -1);
  EXPECT_EQ(down.dAngleDeg(), 270.0);  // not -90, unlike the radians
  EXPECT_EQ(down.dAngleDeg_0_360(), 270.0);
  EXPECT_EQ(down.dAngleRad(), -kPi / 2);
  EXPECT_EQ(down.dAngleRad_0_2PI(), 3 * kPi / 2);
  EXPECT_EQ(down.fAngleRad(), -1.5707964f);
  EXPECT_EQ(down.fAngleRad_0_2PI(), 4.712389f);

  const OVector below_right(1, -1);
  EXPECT_EQ(below_right.dAngleDeg(), -45.0);
  EXPECT_EQ(below_right.dAngleDeg_0_360(), 315.0);
  EXPECT_DOUBLE_EQ(below_right.dAngleRad_0_2PI(), 7 * kPi / 4);
  EXPECT_EQ(below_right.fAngleDeg(), -45.0f);
  EXPECT_EQ(below_right.fAngleDeg_0_360(), 315.0f);

  const OVector left(-1, 0);
  EXPECT_EQ(left.dAngleDeg(), 180.0);
  EXPECT_EQ(left.fAngleRad(), 3.1415927f);
  EXPECT_DOUBLE_EQ(OVector(-1, -1).dAngleDeg(), 225.0);
  EXPECT_EQ(OVector(0.0, 2.0).fAngleDeg(), 90.0f);

  const OVector zero;
  for (double angle : {zero.dAngleRad(), zero.dAngleRad_0_2PI(), zero.dAngleDeg(), zero.dAngleDeg_0_360(),
                       double{zero.fAngleRad()}, double{zero.fAngleDeg_0_360()}}) {
    EXPECT_EQ(angle, 0.0);
  }
}

TEST(VectorTest, NormalizeAndQuarterTurns) {
  OVector v(3.0, 4.0);
  EXPECT_EQ(v.Normalized(), OVector(std::int64_t{39322}, std::int64_t{52429}));
  ExpectRaw(v, 3 * 65536, 4 * 65536);
  v.Normalize();
  ExpectRaw(v, 39322, 52429);
  OVector zero;
  zero.Normalize();
  ExpectRaw(zero, 0, 0);

  const OVector p(1, 2);
  EXPECT_EQ(p.Rotate_90_Pos(), OVector(-2, 1));
  EXPECT_EQ(p.Rotate_90_Neg(), OVector(2, -1));
  EXPECT_EQ(p.Rotate_180(), OVector(-1, -2));
  EXPECT_EQ(-p, OVector(-1, -2));
  EXPECT_EQ(&+p, &p);
}

TEST(VectorTest, ArithmeticRoundsEachPrecisionItsOwnWay) {
  const OVector v(std::int64_t{10}, std::int64_t{-7});
  ExpectRaw(v + OVector(std::int64_t{1}, std::int64_t{1}), 11, -6);
  ExpectRaw(v - OVector(std::int64_t{1}, std::int64_t{1}), 9, -8);
  ExpectRaw(v * 3, 30, -21);
  ExpectRaw(v / 2, 5, -3);  // truncating division
  ExpectRaw(v >> 1, 5, -4);  // arithmetic shift
  ExpectRaw(v << 2, 40, -28);
  ExpectRaw(v * 0.5, 5, -3);
  ExpectRaw(v / 3.0, 3, -1);
  ExpectRaw(v * 0.5f, 5, -3);

  // Single precision drops the low bit of 2^24 + 1; double keeps it.
  const OVector far(std::int64_t{(1 << 24) + 1}, std::int64_t{0});
  ExpectRaw(far * 1.0f, 1 << 24, 0);
  ExpectRaw(far / 1.0f, 1 << 24, 0);
  ExpectRaw(far * 1.0, (1 << 24) + 1, 0);

  OVector w = v;
  w += v;
  w -= OVector(std::int64_t{0}, std::int64_t{1});
  w *= 2;
  w /= 4;
  w <<= 3;
  w >>= 1;
  w *= 1.5;
  w /= 2.0f;
  ExpectRaw(w, 30, -20);
}

TEST(VectorTest, CopiesTakeTheTailOnlyWhenAsked) {
  OVector source(1, 2);
  source.m_oUserData.Add(0xAB);
  OVector assigned(3, 4);
  assigned.m_oUserData.Add(0xCD);
  assigned = source;
  EXPECT_EQ(assigned, source);
  EXPECT_EQ(assigned.m_oUserData.GetAt(0), 0xCD);
  EXPECT_EQ(OVector(source).m_oUserData.GetCount(), 0);

  OVector copied;
  source.CopyTo(&copied);
  EXPECT_EQ(Serialize(copied), Serialize(source));
  const std::unique_ptr<OVector> created(source.opCreateCopy());
  EXPECT_EQ(Serialize(*created), Serialize(source));
}

}  // namespace
