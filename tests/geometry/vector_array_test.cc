#include "nkfoundation/geometry/vector_array.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

// Count 2, then (1, 2) pixels and the zero vector that a null entry writes.
const Bytes kTwoVectors = Hex("38000000 0014D0FE 02000000"
                              "14000000 0015D0FE 0000010000000000 0000020000000000"
                              "14000000 0015D0FE 0000000000000000 0000000000000000");

// Empty entries become null entries.
OVector_Array Points(std::initializer_list<std::optional<OVector>> points) {
  OVector_Array array;
  for (const auto& point : points) array.Add(point ? std::make_shared<OVector>(*point) : nullptr);
  return array;
}

TEST(VectorArrayTest, NewerOlderAndDamagedFrames) {
  OVector_Array array = Points({OVector(1, 2), std::nullopt});
  EXPECT_EQ(Serialize(array), kTwoVectors);

  // Reading appends; a newer array's surplus becomes the tail.
  Bytes newer = Concat(kTwoVectors, Hex("EEFF"));
  newer[0] += 2;
  ASSERT_TRUE(Deserialize(array, newer));
  ASSERT_EQ(array.GetCount(), 4);
  EXPECT_EQ(*array.At(2), OVector(1, 2));
  EXPECT_EQ(array.m_oUserData.GetCount(), 2);

  // Payload 8, under the 9 the count needs: all of it becomes the tail.
  OVector_Array older;
  ASSERT_TRUE(Deserialize(older, Hex("0C000000 0014D0FE 00000000 01020304")));
  EXPECT_EQ(older.GetCount(), 0);
  EXPECT_EQ(older.m_oUserData.GetCount(), 8);

  // The second element is not a vector: reading stops there, and the call
  // still succeeds with the rest of the frame as the tail.
  Bytes damaged = kTwoVectors;
  damaged[36 + 5] = 0x16;
  OVector_Array read;
  EXPECT_TRUE(Deserialize(read, damaged));
  EXPECT_EQ(read.GetCount(), 1);
  EXPECT_EQ(read.m_oUserData.GetCount(), 24);
}

TEST(VectorArrayTest, BoundingRectanglesSkipNullEntries) {
  EXPECT_EQ(OVector_Array().ToI32Rect(), (Rect<int>{0, 0, -1, -1}));

  // (-2.25, 2) given raw, since the double constructor would round -2.25
  // toward zero. 4.5 rounds up to 5 in whole pixels, and 3.4 is stored as
  // 222822 raw, which reads back slightly below 3.4. A null entry counted
  // as (0, 0) would move the top.
  const OVector left(std::int64_t{-147456}, std::int64_t{2 << 16});
  const OVector_Array points = Points({OVector(4, 1), left, std::nullopt, OVector(4.5, 3.4)});
  EXPECT_EQ(*points.ToI32RectPtr(), (Rect<int>{-2, 1, 7, 2}));
  EXPECT_EQ(*points.ToDoubleRectPtr(), (Rect<double>{-2.25, 1.0, 6.75, 222822.0 / 65536 - 1}));
}

TEST(VectorArrayTest, CopyToCopiesEachVector) {
  OVector_Array source = Points({OVector(1, 2), std::nullopt});
  source.At(0)->m_oUserData.Add(7);
  OVector_Array target = Points({OVector(9, 9)});
  source.CopyTo(&target);
  // The frames match, element tails included, but a null entry writes the
  // zero vector, so it is checked apart.
  ASSERT_EQ(Serialize(target), Serialize(source));
  EXPECT_NE(target.GetAt(0), source.GetAt(0));
  EXPECT_EQ(target.GetAt(1), nullptr);
}

}  // namespace
}  // namespace nk::testing
