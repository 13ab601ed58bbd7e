#include "nkfoundation/core/variant_array.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

// Count 2, then a byte 7 and the double -1 as whole variant frames.
const Bytes kTwoVariants = Hex("30000000 002CD0FE 02000000"
                               "10000000 002BD0FE 00000000 0000000000001C40"
                               "10000000 002BD0FE 12000000 000000000000F0BF");

OType_VariantArray TwoVariants() {
  OType_VariantArray array;
  array.Add(std::make_shared<OType_Variant>());
  array.At(0)->iSetValueDirect(7, OType_Variant::kUInt8);
  array.Add(nullptr);  // At() fills the empty slot with a default variant
  array.At(1)->iSetValueDirect(-1, OType_Variant::kDouble);
  return array;
}

TEST(VariantArrayTest, CountThenVariantFramesReadByAppending) {
  EXPECT_EQ(Serialize(TwoVariants()), kTwoVariants);

  // Reading appends; a newer array's surplus becomes the tail.
  Bytes newer = Concat(kTwoVariants, Hex("ABCD"));
  newer[0] += 2;
  OType_VariantArray array = TwoVariants();
  ASSERT_TRUE(Deserialize(array, newer));
  ASSERT_EQ(array.GetCount(), 4);
  EXPECT_EQ(array.At(3)->oStrGetValue(), u"-1.000000");
  EXPECT_EQ(array.m_oUserData.GetCount(), 2);

  // Copying replaces the variants, with copies, and the tail.
  const OType_VariantArray source = TwoVariants();
  source.CopyTo(&array);
  ASSERT_EQ(array.GetCount(), 2);
  EXPECT_NE(array.At(0), source.At(0));
  EXPECT_EQ(Serialize(array), kTwoVariants);
}

// An empty array's payload is 4 bytes, under the 8 that the count needs:
// reading it back keeps the count as the tail.
TEST(VariantArrayTest, EmptyArrayReadsBackItsCountAsTheTail) {
  OType_VariantArray array;
  ASSERT_TRUE(Deserialize(array, Serialize(OType_VariantArray())));
  EXPECT_EQ(Serialize(array), Hex("0C000000 002CD0FE 00000000 00000000"));
}

}  // namespace
}  // namespace nk::testing
