#include "nkfoundation/geometry/vector.h"

#include <gtest/gtest.h>

#include <memory>
#include <numbers>

#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

constexpr double kPi = std::numbers::pi;

OVector Raw(std::int64_t x, std::int64_t y) { return OVector(x, y); }

TEST(VectorFrameTest, NewerAndOlderFrames) {
  EXPECT_EQ(Serialize(OVector(1, -2)), Hex("14000000 0015D0FE 0000010000000000 0000FEFFFFFFFFFF"));

  // A newer vector keeps its extra bytes and writes them back.
  const Bytes newer = Hex("16000000 0015D0FE 0000010000000000 0000FEFFFFFFFFFF 0102");
  OVector v;
  ASSERT_TRUE(Deserialize(v, newer, false));
  EXPECT_EQ(Serialize(v), newer);

  // An older one with x only reads as (0, 0); x becomes the tail.
  ASSERT_TRUE(Deserialize(v, Hex("0C000000 0015D0FE 0000010000000000"), false));
  EXPECT_EQ(v, Raw(0, 0));
  EXPECT_EQ(v.m_oUserData.GetCount(), 8);
}

TEST(VectorTest, ConversionsInAndOutAsTheDeviceMakesThem) {
  // Whole pixels shift in 32 bits and wrap.
  EXPECT_EQ(OVector(40000, -40000), Raw(-1673527296, 1673527296));
  // Half up, then toward zero: negative values round toward zero.
  EXPECT_EQ(OVector(-1.7, 2.5 / 65536), Raw(-111410, 3));
  // 2^23 + 1 raw: adding one half in single precision rounds to even.
  const float odd = 8388609.0f / 65536.0f;
  EXPECT_EQ(OVector(odd, -odd), Raw(8388610, -8388608));
  EXPECT_EQ(OVector(double{odd}, -double{odd}), Raw(8388609, -8388608));
  // A unit vector: cos(pi) * 65536 + 0.5 = -65535.5 truncates to -65535.
  EXPECT_EQ(OVector(kPi), Raw(-65535, 0));

  // Read-outs: whole pixels round half up.
  EXPECT_EQ(Raw(-32768, -32769).iX(), 0);
  EXPECT_EQ(Raw(-32768, -32769).iY(), -1);
  // Beyond 2^24 raw the float read-out loses the low bits, and the float
  // length sums what is left: in double the square would be 65536.0078125.
  const OVector far = Raw((1 << 24) + 1, 0);
  EXPECT_EQ(far.fX(), 256.0f);
  EXPECT_EQ(far.dX(), 256.0 + 1.0 / 65536);
  EXPECT_EQ(far.fLengthSquare(), 65536.0f);
}

// Each product is rounded before the sum: a fused multiply-add, in either
// order, gives another result for every value here, which the x86-64-v3
// build, where the compiler may fuse, would show.
TEST(VectorTest, ProductsRoundBeforeTheyAreAdded) {
  const OVector small = Raw(-671372, -609335);
  EXPECT_EQ(small.fLengthSquare(), 0x1.7ec98cp+7f);
  EXPECT_EQ(small.fLength(), 0x1.bab44cp+3f);

  const OVector large = Raw(1856813573950, 4345156068081);
  EXPECT_EQ(large.dLengthSquare(), 0x1.2782ac7fb0e76p+52);

  // Scaling rounds the product, then adds one half.
  EXPECT_EQ(Raw(163727, 0) * 0x1.35fe76p+6f, Raw(12688596, 0));
  EXPECT_EQ(Raw(875723404301281, 0) * 0x1.4d3fd0d0678cp+2, Raw(4559909280664856, 0));
}

TEST(VectorTest, AnglesByQuadrant) {
  const OVector down(0, -1);
  EXPECT_EQ(down.dAngleDeg(), 270.0);  // not -90, unlike the radians
  EXPECT_EQ(down.dAngleRad(), -kPi / 2);
  EXPECT_EQ(down.fAngleRad_0_2PI(), 4.712389f);
  EXPECT_EQ(OVector(1, -1).dAngleDeg(), -45.0);
  EXPECT_EQ(OVector(1, -1).fAngleDeg_0_360(), 315.0f);
  EXPECT_DOUBLE_EQ(OVector(-1, -1).dAngleDeg(), 225.0);
  EXPECT_EQ(OVector(-1, 0).fAngleRad(), 3.1415927f);
  EXPECT_EQ(OVector().fAngleDeg_0_360(), 0.0f);
}

TEST(VectorTest, NormalizeAndArithmetic) {
  EXPECT_EQ(OVector(3.0, 4.0).Normalized(), Raw(39322, 52429));
  EXPECT_EQ(OVector().Normalized(), Raw(0, 0));
  EXPECT_EQ(OVector(1, 2).Rotate_90_Pos(), OVector(-2, 1));

  const OVector w = Raw(10, -7);
  EXPECT_EQ(w / 2, Raw(5, -3));    // truncating division
  EXPECT_EQ(w >> 1, Raw(5, -4));   // arithmetic shift
  EXPECT_EQ(w / 3.0, Raw(3, -1));  // -2.33 + 0.5 truncates to -1
  // Single precision drops the low bit of 2^24 + 1; double keeps it.
  EXPECT_EQ(Raw((1 << 24) + 1, 0) * 1.0f, Raw(1 << 24, 0));
  EXPECT_EQ(Raw((1 << 24) + 1, 0) * 1.0, Raw((1 << 24) + 1, 0));
}

TEST(VectorTest, CopiesTakeTheTailOnlyWhenAsked) {
  OVector source(1, 2);
  source.m_oUserData.Add(0xAB);
  OVector assigned(3, 4);
  assigned.m_oUserData.Add(0xCD);
  assigned = source;
  EXPECT_EQ(assigned.m_oUserData.GetAt(0), 0xCD);
  EXPECT_EQ(OVector(source).m_oUserData.GetCount(), 0);
  EXPECT_EQ(Serialize(*std::unique_ptr<OVector>(source.opCreateCopy())), Serialize(source));
}

}  // namespace
}  // namespace nk::testing
