#include "nkfoundation/core/object_array.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

#include "tests/support/bytes.h"
#include "tests/support/framed_test_objects.h"

namespace nk::testing {
namespace {

TEST(ObjectArrayTest, WritesCountAndElementFramesAndReadingAppends) {
  TestPointArray array;
  array.Add(std::make_shared<TestPoint>());
  array.GetAt(0)->m_oUserData.Add(5);
  array.Add(nullptr);  // an empty slot travels as a default element
  const Bytes bytes = Serialize(array);
  EXPECT_EQ(bytes, Concat(Concat(Hex("49000000 00F2D0FE 02000000"), Serialize(*array.GetAt(0))),
                          Serialize(TestPoint())));

  ASSERT_TRUE(Deserialize(array, bytes));
  EXPECT_EQ(array.GetCount(), 4);
  EXPECT_EQ(array.GetData()[1], nullptr);
}

// Reading stops at the first element that does not read and the rest of the
// frame becomes the tail; the read fails unless it still ended at the frame's
// end. Either way the stream ends up just past the array.
TEST(ObjectArrayTest, DamagedArrayReadsWhatItCanAndEndsAtTheFrame) {
  struct Damage {
    const char* name;
    std::function<void(Bytes&)> apply;
    bool result;
    int elements, tail;
    bool written_back_unchanged = false;
  };
  // Two default points, 32 bytes each: the count lies at 8, the elements at
  // 12 and 44.
  TestPointArray two;
  two.SetSize(2);
  for (const Damage& damage : std::vector<Damage>{
           {"second element of another class", [](Bytes& b) { b[50] = 0x77; }, false, 1, 32},
           // The element fails only after its header, so reading ends at the end.
           {"second element's label damaged", [](Bytes& b) { b[74] = 0x77; }, true, 1, 0},
           {"count promises more", [](Bytes& b) { b[8] = 3; }, true, 2, 0},
           {"count promises less", [](Bytes& b) { b[8] = 1; }, true, 1, 32, true},
           // Below 8 payload bytes not even the count is read.
           {"empty array", [](Bytes& b) { b = Hex("08000000 00F2D0FE 00000000"); }, true, 0, 4},
       }) {
    SCOPED_TRACE(damage.name);
    Bytes bytes = Serialize(two);
    damage.apply(bytes);
    auto stream = StreamOf(Concat(bytes, {0xEE}));
    TestPointArray array;
    EXPECT_EQ(array.GetObjectData(stream, true), damage.result);
    EXPECT_EQ(array.GetCount(), damage.elements);
    EXPECT_EQ(array.m_oUserData.GetCount(), damage.tail);
    EXPECT_EQ(stream.GetPosition(), bytes.size());
    if (damage.written_back_unchanged) {
      EXPECT_EQ(Serialize(array), bytes);
    }
  }
}

}  // namespace
}  // namespace nk::testing
