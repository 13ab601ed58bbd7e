#include "nkfoundation/geometry/vector_array.h"

#include <gtest/gtest.h>


#include "tests/support/bytes.h"

namespace {

using nk::testing::Bytes;
using nk::testing::Hex;
using nk::testing::Serialize;
using nk::testing::StreamOf;

// Count 2, then (1, 2) pixels and the zero vector that a null entry writes.
const Bytes kTwoVectors = Hex("38000000 0014D0FE 02000000"
                              "14000000 0015D0FE 0000010000000000 0000020000000000"
                              "14000000 0015D0FE 0000000000000000 0000000000000000");

OVector_Array Points(std::initializer_list<OVector> points) {
  OVector_Array array;
  for (const OVector& point : points) array.Add(std::make_shared<OVector>(point));
  return array;
}

TEST(VectorArrayTest, CountThenVectorFrames) {
  OVector_Array array = Points({OVector(1, 2)});
  array.Add(nullptr);
  EXPECT_EQ(Serialize(array), kTwoVectors);

  // Reading appends; a newer array's surplus becomes the tail.
  Bytes newer = nk::testing::Concat(kTwoVectors, Hex("EEFF"));
  newer[0] += 2;
  auto stream = StreamOf(newer);
  ASSERT_TRUE(array.GetObjectData(stream, true));
  ASSERT_EQ(array.GetCount(), 4);
  EXPECT_EQ(*array.At(2), OVector(1, 2));
  EXPECT_EQ(array.m_oUserData.GetCount(), 2);
}

TEST(VectorArrayTest, OlderLayoutsAndDamagedElementsStillSucceed) {
  // Payload 8, under the 9 the count needs: all of it becomes the tail.
  OVector_Array array;
  auto short_frame = StreamOf(Hex("0C000000 0014D0FE 00000000 01020304"));
  ASSERT_TRUE(array.GetObjectData(short_frame, true));
  EXPECT_EQ(array.GetCount(), 0);
  EXPECT_EQ(array.m_oUserData.GetCount(), 8);

  // The second element is not a vector: reading stops there, and the call
  // still succeeds with the rest of the frame as the tail.
  Bytes damaged = kTwoVectors;
  damaged[36 + 5] = 0x16;
  OVector_Array read;
  auto stream = StreamOf(damaged);
  EXPECT_TRUE(read.GetObjectData(stream, true));
  EXPECT_EQ(read.GetCount(), 1);
  EXPECT_EQ(read.m_oUserData.GetCount(), 24);
}

TEST(VectorArrayTest, BoundingRectanglesSkipNullEntries) {
  EXPECT_EQ(OVector_Array().ToI32Rect(), (Rect<int>{0, 0, -1, -1}));
  EXPECT_EQ(OVector_Array().ToDoubleRect(), (Rect<double>{0.0, 0.0, -1.0, -1.0}));

  // 3.4 is stored as 222822 raw, which reads back slightly below 3.4.
  OVector_Array one = Points({OVector(2.5, 3.4)});
  one.Add(nullptr);
  EXPECT_EQ(one.ToI32Rect(), (Rect<int>{3, 3, 0, 0}));
  EXPECT_EQ(*one.ToDoubleRectPtr(), (Rect<double>{2.5, 222822.0 / 65536, 0.0, 0.0}));

  // (-2.25, 5) given raw: the double constructor would round -2.25 toward zero.
  const OVector left(std::int64_t{-147456}, std::int64_t{5 << 16});
  const OVector_Array spread = Points({OVector(4, -1), left, OVector(1, 1)});
  EXPECT_EQ(*spread.ToI32RectPtr(), (Rect<int>{-2, -1, 6, 6}));
  EXPECT_EQ(spread.ToDoubleRect(), (Rect<double>{-2.25, -1.0, 6.25, 6.0}));
}

TEST(VectorArrayTest, CopyToCopiesEachVector) {
  OVector_Array source = Points({OVector(1, 2)});
  source.Add(nullptr);
  source.At(0)->m_oUserData.Add(7);
  OVector_Array target = Points({OVector(9, 9)});
  source.CopyTo(&target);
  ASSERT_EQ(target.GetCount(), 2);
  EXPECT_NE(target.GetAt(0), source.GetAt(0));
  EXPECT_EQ(target.GetAt(1), nullptr);
  EXPECT_EQ(Serialize(target), Serialize(source));
}

}  // namespace
