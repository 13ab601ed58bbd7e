#include "nkfoundation/device/part_set_protection.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

OType_PartSet_Protection ProtectionOf(const Bytes& bytes) {
  OType_PartSet_Protection protection;
  protection.m_oProtectionData.Copy(bytes.data(), static_cast<int>(bytes.size()));
  return protection;
}

TEST(PartSetProtection, Frames) {
  EXPECT_EQ(Serialize(OType_PartSet_Protection()), Hex("08000000 003AD0FE 00000000"));
  EXPECT_EQ(Serialize(ProtectionOf({0xDE, 0xAD, 0x01})), Hex("0B000000 003AD0FE 03000000 DEAD01"));

  // Bytes of a newer writer survive as the tail; a count beyond the data fails.
  const Bytes newer = Hex("0E000000 003AD0FE 01000000 AB 1122334455");
  OType_PartSet_Protection read;
  ASSERT_TRUE(Deserialize(read, newer));
  EXPECT_EQ(read.m_oProtectionData.GetCount(), 1);
  EXPECT_EQ(read.m_oUserData.GetCount(), 5);
  EXPECT_EQ(Serialize(read), newer);
  EXPECT_FALSE(Deserialize(OType_PartSet_Protection(), Hex("0B000000 003AD0FE FFFFFF7F AB")));
}

TEST(PartSetProtection, ShortFrameKeepsOrResetsByRequest) {
  const Bytes no_count = Hex("04000000 003AD0FE");
  for (const bool initialize : {false, true}) {
    OType_PartSet_Protection protection = ProtectionOf({7, 7});
    ASSERT_TRUE(Deserialize(protection, no_count, initialize));
    EXPECT_EQ(protection.m_oProtectionData.GetCount(), initialize ? 0 : 2);
  }
}

TEST(PartSetProtection, CopiesCarryDataAndTail) {
  OType_PartSet_Protection original = ProtectionOf({1, 2});
  original.m_oUserData.Add(9);
  OType_PartSet_Protection target;
  original.CopyTo(&target);
  const std::unique_ptr<OType_PartSet_Protection> copy(original.opCreateCopy());
  EXPECT_EQ(Serialize(target), Serialize(original));
  EXPECT_EQ(Serialize(*copy), Serialize(original));
}

}  // namespace
}  // namespace nk::testing
