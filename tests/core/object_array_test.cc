#include "nkfoundation/core/object_array.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "tests/support/bytes.h"
#include "tests/support/framed_test_objects.h"

namespace nk::testing {
namespace {

// Points labelled "a" and "b", 34 bytes each: the count lies at 8, the
// elements at 12 and 46.
Bytes TwoPoints() {
  TestPointArray array;
  for (const char16_t* label : {u"a", u"b"}) {
    array.Add(std::make_shared<TestPoint>());
    array.GetAt(array.GetUpperBound())->m_oLabel = label;
  }
  return Serialize(array);
}

TEST(ObjectArrayTest, WritesCountAndElementFramesAndReadingAppends) {
  TestPointArray array;
  array.Add(std::make_shared<TestPoint>());
  array.GetAt(0)->m_oUserData.Add(5);
  array.Add(nullptr);  // an empty slot travels as a default element
  const Bytes bytes = Serialize(array);
  EXPECT_EQ(bytes, Concat(Concat(Hex("49000000 00F2D0FE 02000000"), Serialize(*array.GetAt(0))),
                          Serialize(TestPoint())));
  EXPECT_EQ(array.GetObjectSize(), bytes.size());

  auto stream = StreamOf(bytes);
  ASSERT_TRUE(array.GetObjectData(stream, true));
  ASSERT_EQ(array.GetCount(), 4);
  EXPECT_EQ(array.GetData()[1], nullptr);
  EXPECT_EQ(array.GetAt(2)->m_oUserData.GetCount(), 1);
  EXPECT_NE(array.GetData()[3], nullptr);
}

struct Damage {
  const char* name;
  std::function<void(Bytes&)> apply;
  bool result;
  int elements;
  int tail;
  bool written_back_unchanged = false;
};
void PrintTo(const Damage& damage, std::ostream* out) { *out << damage.name; }

// Reading stops at the first element that does not read and the rest of the
// frame becomes the tail; the read fails unless it still ended at the frame's
// end. Either way the stream ends up just past the array.
class ObjectArrayDamageTest : public ::testing::TestWithParam<Damage> {};

TEST_P(ObjectArrayDamageTest, ReadsWhatItCanAndEndsAtTheFrame) {
  Bytes bytes = TwoPoints();
  GetParam().apply(bytes);
  auto stream = StreamOf(Concat(bytes, {0xEE}));
  TestPointArray array;
  EXPECT_EQ(array.GetObjectData(stream, true), GetParam().result);
  EXPECT_EQ(array.GetCount(), GetParam().elements);
  EXPECT_EQ(array.m_oUserData.GetCount(), GetParam().tail);
  EXPECT_EQ(stream.GetPosition(), bytes.size());
  if (GetParam().written_back_unchanged) {
    EXPECT_EQ(Serialize(array), bytes);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Frames, ObjectArrayDamageTest,
    ::testing::Values(
        Damage{"SecondElementOfAnotherClass", [](Bytes& b) { b[50] = 0x77; }, false, 1, 34},
        // The element fails only after its header, so reading ends at the end.
        Damage{"SecondElementLabelDamaged", [](Bytes& b) { b[74] = 0x77; }, true, 1, 0},
        Damage{"CountPromisesMore", [](Bytes& b) { b[8] = 3; }, true, 2, 0},
        Damage{"CountPromisesLess", [](Bytes& b) { b[8] = 1; }, true, 1, 34, true},
        // Below 8 payload bytes not even the count is read.
        Damage{"EmptyArray", [](Bytes& b) { b = Hex("08000000 00F2D0FE 00000000"); }, true, 0, 4}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace nk::testing
