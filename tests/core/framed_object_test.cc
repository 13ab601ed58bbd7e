#include "nkfoundation/core/framed_object.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"
#include "tests/support/counting_progress.h"
#include "tests/support/framed_test_objects.h"

namespace nk::testing {
namespace {

// Point (1, -2) labelled "ab": header, two coordinates, a 12-byte string.
const Bytes kPoint = Hex("20000000 00F1D0FE 0100000000000000 FEFFFFFFFFFFFFFF 08000000 0001CBFE 6100 6200");

Bytes TailOf(const AFramedObject& object) { return {object.m_oUserData.begin(), object.m_oUserData.end()}; }

// `bytes` with `more` appended and the length field grown to match.
Bytes Longer(Bytes bytes, const Bytes& more) {
  bytes[0] += static_cast<std::uint8_t>(more.size());
  return Concat(bytes, more);
}

TEST(FramedObjectTest, WritesLengthIdentifierFieldsAndTailByteExact) {
  TestPoint point;
  point.m_llX = 1;
  point.m_llY = -2;
  point.m_oLabel = u"ab";
  EXPECT_EQ(Serialize(point), kPoint);
  EXPECT_EQ(point.GetObjectSize(), kPoint.size());
  point.m_oUserData.Add(0xAA);
  EXPECT_EQ(Serialize(point), Longer(kPoint, {0xAA}));
}

TEST(FramedObjectTest, NestedObjectsAndTailsSurviveARoundTrip) {
  TestShape shape;
  shape.m_iColor = -5;
  shape.m_bFilled = false;
  shape.m_oOrigin.m_llX = INT64_MIN;
  shape.m_oOrigin.m_oLabel = u"\u00e9\U0001F600";
  shape.m_oOrigin.m_oUserData.Add(1);
  shape.m_oUserData.Add(2);
  const Bytes bytes = Serialize(shape);
  ASSERT_EQ(bytes.size(), shape.GetObjectSize());

  auto stream = StreamOf(bytes);
  TestShape read;
  ASSERT_TRUE(read.GetObjectData(stream, true));
  EXPECT_EQ(stream.GetPosition(), bytes.size());
  EXPECT_EQ(read.m_oOrigin.m_oLabel, shape.m_oOrigin.m_oLabel);
  EXPECT_EQ(Serialize(read), bytes);
}

// What a newer writer added is kept and written back unchanged.
TEST(FramedObjectTest, LongerNewerLayoutIsKeptAsTail) {
  const Bytes newer = Longer(kPoint, Hex("0102030405"));
  auto stream = StreamOf(newer);
  TestPoint point;
  ASSERT_TRUE(point.GetObjectData(stream, true));
  EXPECT_EQ(point.m_oLabel, u"ab");
  EXPECT_EQ(TailOf(point), Hex("0102030405"));
  EXPECT_EQ(Serialize(point), newer);
}

// An older, shorter layout: no field is read and its bytes become the tail;
// plain values are reset only when the caller asks for it.
TEST(FramedObjectTest, PayloadBelowTheMinimumReadsNoField) {
  for (const bool initialize : {true, false}) {
    TestShape shape;
    shape.m_iColor = 1;
    auto stream = StreamOf(Hex("0C000000 00F3D0FE 02000000 01 000000"));
    EXPECT_TRUE(shape.GetObjectData(stream, initialize));
    EXPECT_EQ(shape.m_iColor, initialize ? 7 : 1);
    EXPECT_EQ(TailOf(shape), Hex("02000000 01 000000"));
  }
}

TEST(FramedObjectTest, MismatchedIdentifierFailsAndChangesNothing) {
  Bytes other = kPoint;
  other[5] = 0xF3;
  auto stream = StreamOf(other);
  TestPoint point;
  point.m_llX = 9;
  point.m_oUserData.Add(7);
  EXPECT_FALSE(point.GetObjectData(stream, true));
  EXPECT_EQ(point.m_llX, 9);
  EXPECT_EQ(TailOf(point), Bytes{7});
  EXPECT_EQ(stream.GetPosition(), 0u);
}

// Whatever goes wrong inside a frame, the stream moves on to what follows it.
TEST(FramedObjectTest, ReadingEndsAtTheFrameEvenWhenFieldsDoNot) {
  Bytes shape = Serialize(TestShape());
  shape[8 + 5 + 4] = 0x55;  // the origin's identifier: the nested read fails
  auto stream = StreamOf(Concat(shape, kPoint));
  EXPECT_FALSE(TestShape().GetObjectData(stream, true));
  EXPECT_EQ(stream.GetPosition(), shape.size());

  Bytes point = Concat(kPoint, kPoint);
  point[0] -= 4;  // the label runs past the point's end
  auto overrun = StreamOf(point);
  EXPECT_TRUE(TestPoint().GetObjectData(overrun, true));
  EXPECT_EQ(overrun.GetPosition(), kPoint.size() - 4);
}

// A display attached to the stream advances once per frame, nested ones too.
TEST(FramedObjectTest, ProgressAdvancesOncePerFrameWrittenOrRead) {
  CountingProgress progress;
  OByteStream_Memory stream;
  stream.SetProgressCtrl(&progress);
  TestShape().AddObjectData(stream);
  EXPECT_EQ(progress.steps, 2);
  EXPECT_TRUE(TestShape().GetObjectData(stream, true));
  EXPECT_EQ(progress.steps, 4);
}

}  // namespace
}  // namespace nk::testing
