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

// What a newer writer appended to the fields is kept as the tail and written
// back unchanged, the length field grown to match; the next read replaces it.
TEST(FramedObjectTest, WritesFieldsByteExactAndKeepsANewerLayoutsTail) {
  TestPoint point;
  point.m_llX = 1;
  point.m_llY = -2;
  point.m_oLabel = u"ab";
  EXPECT_EQ(Serialize(point), kPoint);

  Bytes newer = Concat(kPoint, Hex("0102030405"));
  newer[0] += 5;
  TestPoint read;
  ASSERT_TRUE(Deserialize(read, newer));
  EXPECT_EQ(TailOf(read), Hex("0102030405"));
  EXPECT_EQ(Serialize(read), newer);
  // A frame without surplus leaves no tail behind from an earlier read.
  ASSERT_TRUE(Deserialize(read, kPoint, false));
  EXPECT_EQ(Serialize(read), kPoint);
}

// A member is a whole frame of its own, tail included, and a display attached
// to the stream advances once for each frame written or read.
TEST(FramedObjectTest, NestedObjectsSurviveARoundTripFrameByFrame) {
  TestShape shape;
  shape.m_iColor = -5;
  shape.m_bFilled = false;
  shape.m_oOrigin.m_oLabel = u"\u00e9\U0001F600";
  shape.m_oOrigin.m_oUserData.Add(1);
  shape.m_oUserData.Add(2);
  CountingProgress progress;
  OByteStream_Memory stream;
  stream.SetProgressCtrl(&progress);
  shape.AddObjectData(stream);
  EXPECT_EQ(progress.steps, 2);

  TestShape read;
  ASSERT_TRUE(read.GetObjectData(stream, true));
  EXPECT_EQ(progress.steps, 4);
  EXPECT_EQ(stream.GetPosition(), stream.GetLength());
  EXPECT_EQ(Serialize(read), BytesOf(stream));
}

// An older, shorter layout: no field is read and its bytes become the tail;
// plain values are reset only when the caller asks for it. A frame of another
// class is refused before anything of the object changes.
TEST(FramedObjectTest, ShortPayloadReadsNoFieldAndOtherClassNothing) {
  for (const bool initialize : {true, false}) {
    TestShape shape;
    shape.m_iColor = 1;
    auto stream = StreamOf(Concat(Hex("0C000000 00F3D0FE 02000000 01 000000"), kPoint));
    EXPECT_TRUE(shape.GetObjectData(stream, initialize));
    EXPECT_FALSE(shape.GetObjectData(stream, true));
    EXPECT_EQ(shape.m_iColor, initialize ? 7 : 1);
    EXPECT_EQ(TailOf(shape), Hex("02000000 01 000000"));
  }
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

}  // namespace
}  // namespace nk::testing
