#include "nkfoundation/geometry/vector.h"

#include <gtest/gtest.h>

#include <memory>
#include <numbers>

#include "tests/support/bytes.h"

namespace {

using nk::testing::Bytes;
using nk::testing::Hex;
using nk::testing::Serialize;
using nk::testing::StreamOf;

constexpr double kPi = std::numbers::pi;

OVector Raw(std::int64_t x, std::int64_t y) { return OVector(x, y); }

TEST(VectorFrameTest, NewerAndOlderFrames) {
  const Bytes frame = Hex("14000000 0015D0FE 0000010000000000 0000FEFFFFFFFFFF");
  EXPECT_EQ(Serialize(OVector(1, -2)), frame);

  // A newer vector keeps its extra bytes and writes them back.
  Bytes newer = nk::testing::Concat(frame, Hex("0102"));
  newer[0] += 2;
  OVector v;
  auto stream = StreamOf(newer);
  ASSERT_TRUE(v.GetObjectData(stream, false));
  EXPECT_EQ(v, Raw(65536, -131072));
  EXPECT_EQ(Serialize(v), newer);

  // An older one with x only reads as (0, 0) whatever the flag; x becomes the tail.
  auto older = StreamOf(Hex("0C000000 0015D0FE 0000010000000000"));
  ASSERT_TRUE(v.GetObjectData(older, false));
  EXPECT_EQ(v, Raw(0, 0));
  EXPECT_EQ(v.m_oUserData.GetCount(), 8);
}

TEST(VectorTest, ConstructorsConvertAsTheDeviceDoes) {
  // Whole pixels shift in 32 bits and wrap.
  EXPECT_EQ(OVector(40000, -40000), Raw(-1673527296, 1673527296));
  // Half up, then toward zero: negative values round toward zero.
  EXPECT_EQ(OVector(-1.7, 2.5 / 65536), Raw(-111410, 3));
  // 2^23 + 1 raw: adding one half in single precision rounds to even.
  const float odd = 8388609.0f / 65536.0f;
  EXPECT_EQ(OVector(odd, -odd), Raw(8388610, -8388608));
  EXPECT_EQ(OVector(double{odd}, -double{odd}), Raw(8388609, -8388608));
  // Unit vectors; cos(pi) * 65536 + 0.5 = -65535.5 truncates to -65535.
  EXPECT_EQ(OVector(kPi / 2), Raw(0, 65536));
  EXPECT_EQ(OVector(kPi), Raw(-65535, 0));
  EXPECT_EQ(OVector(static_cast<float>(kPi)), Raw(-65535, 0));
}

TEST(VectorTest, ReadOuts) {
  EXPECT_EQ(Raw(-32768, -32769).iX(), 0);
  EXPECT_EQ(Raw(-32768, -32769).iY(), -1);
  // Beyond 2^24 raw the float read-out loses the low bits.
  const OVector far = Raw((1 << 24) + 1, 0);
  EXPECT_EQ(far.fX(), 256.0f);
  EXPECT_EQ(far.dX(), 256.0 + 1.0 / 65536);
  EXPECT_EQ(OVector(3, -4).dLength(), 5.0);
  EXPECT_EQ(OVector(3, -4).fLengthSquare(), 25.0f);
}

TEST(VectorTest, AnglesByQuadrant) {
  const OVector down(0, -1);
  EXPECT_EQ(down.dAngleDeg(), 270.0);  // not -90, unlike the radians
  EXPECT_EQ(down.dAngleRad(), -kPi / 2);
  EXPECT_EQ(down.dAngleRad_0_2PI(), 3 * kPi / 2);
  EXPECT_EQ(down.fAngleRad_0_2PI(), 4.712389f);

  const OVector below_right(1, -1);
  EXPECT_EQ(below_right.dAngleDeg(), -45.0);
  EXPECT_EQ(below_right.dAngleDeg_0_360(), 315.0);
  EXPECT_EQ(below_right.fAngleDeg_0_360(), 315.0f);
  EXPECT_DOUBLE_EQ(OVector(-1, -1).dAngleDeg(), 225.0);
  EXPECT_EQ(OVector(-1, 0).fAngleRad(), 3.1415927f);

  const OVector zero;
  for (double angle : {zero.dAngleRad(), zero.dAngleDeg(), double{zero.fAngleRad_0_2PI()},
                       double{zero.fAngleDeg_0_360()}}) {
    EXPECT_EQ(angle, 0.0);
  }
}

TEST(VectorTest, NormalizeAndArithmetic) {
  OVector v(3.0, 4.0);
  EXPECT_EQ(v.Normalized(), Raw(39322, 52429));
  v.Normalize();
  EXPECT_EQ(v, Raw(39322, 52429));
  OVector zero;
  zero.Normalize();
  EXPECT_EQ(zero, Raw(0, 0));
  EXPECT_EQ(OVector(1, 2).Rotate_90_Pos(), OVector(-2, 1));
  EXPECT_EQ(OVector(1, 2).Rotate_90_Neg(), OVector(2, -1));

  const OVector w = Raw(10, -7);
  EXPECT_EQ(w / 2, Raw(5, -3));   // truncating division
  EXPECT_EQ(w >> 1, Raw(5, -4));  // arithmetic shift
  EXPECT_EQ(w / 3.0, Raw(3, -1));
  EXPECT_EQ(w * 0.5f, Raw(5, -3));
  // Single precision drops the low bit of 2^24 + 1; double keeps it.
  EXPECT_EQ(Raw((1 << 24) + 1, 0) * 1.0f, Raw(1 << 24, 0));
  EXPECT_EQ(Raw((1 << 24) + 1, 0) * 1.0, Raw((1 << 24) + 1, 0));

  OVector u = w;
  u -= Raw(0, 1);
  u *= 3;
  u <<= 1;
  u /= 2.0f;
  EXPECT_EQ(u, Raw(30, -23));  // -24 + 0.5 truncates toward zero
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

  const std::unique_ptr<OVector> created(source.opCreateCopy());
  EXPECT_EQ(Serialize(*created), Serialize(source));
}

}  // namespace
