#include "nkfoundation/device/check_program_info.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

OType_CheckProgramInfoItem BuildSampleItem() {
  OType_CheckProgramInfoItem item;
  item.m_partSet_Size = 0x0102030405060708;
  item.m_oStrPartSet_Name = u"AB";
  item.m_oStrPartSet_Comment = u"c";
  item.m_oCreation_TimeDate.m_iYear = 2024;
  item.m_oCompatibilityFirmwareVersion.SetCompatibilityFirmwareVersion(1, 2, 0, 0, 0, 0, 0, 0);
  item.m_oPartSet_Protection.m_oProtectionData.Add(0xEE);
  item.m_isActivePartSet = true;
  item.m_index = 5;
  return item;
}

// Copies of one item: a new preview image carries the moment it was made.
OType_CheckProgramInfoItem SampleItem() {
  static const OType_CheckProgramInfoItem sample = BuildSampleItem();
  return sample;
}

// The sample's members, each in its wire form.
std::vector<Bytes> SampleMembers() {
  OType_CheckProgramInfoItem item = SampleItem();
  return {Hex("0807060504030201"),
          Hex("0800000000 01CBFE 41004200"),
          Hex("0600000000 01CBFE 6300"),
          Serialize(item.m_oPartSet_Image),
          Serialize(item.m_oCreation_TimeDate),
          Serialize(item.m_oCompatibilityFirmwareVersion),
          Hex("09000000 003AD0FE 01000000 EE"),
          Hex("01")};
}

Bytes JoinedMembers(std::size_t count) {
  const std::vector<Bytes> members = SampleMembers();
  Bytes joined;
  for (std::size_t i = 0; i < count; ++i) joined = Concat(joined, members[i]);
  return joined;
}

TEST(CheckProgramInfoItem, FrameIsMembersInOrderWithoutIndex) {
  OType_CheckProgramInfoItem item = SampleItem();
  const Bytes expected = Frame(0xFED04A00, JoinedMembers(8));
  EXPECT_EQ(Serialize(item), expected);
  EXPECT_EQ(item.GetObjectSize(), expected.size());

  OType_CheckProgramInfoItem read;
  read.m_index = 9;
  ASSERT_TRUE(Deserialize(read, expected));
  EXPECT_EQ(read.m_index, 9);
  EXPECT_EQ(read.m_oStrPartSet_Name, u"AB");
  EXPECT_TRUE(read.m_isActivePartSet);
  EXPECT_EQ(Serialize(read), expected);
}

// An older writer stopped after `count` members: those read, the rest keep
// their defaults, and nothing falls into the tail.
TEST(CheckProgramInfoItem, OlderShortFramesReadWhatTheyHold) {
  const OType_CheckProgramInfoItem sample = SampleItem();
  for (std::size_t count = 0; count <= 8; ++count) {
    OType_CheckProgramInfoItem read = SampleItem();
    ASSERT_TRUE(Deserialize(read, Frame(0xFED04A00, JoinedMembers(count)))) << count;
    EXPECT_EQ(read.m_partSet_Size, count >= 1 ? sample.m_partSet_Size : 0) << count;
    EXPECT_EQ(read.m_oStrPartSet_Comment, count >= 3 ? u"c" : u"") << count;
    EXPECT_EQ(read.m_oCreation_TimeDate.m_iYear, count >= 5 ? 2024 : 2006) << count;
    EXPECT_EQ(read.m_oPartSet_Protection.m_oProtectionData.GetCount(), count >= 7 ? 1 : 0) << count;
    EXPECT_EQ(read.m_isActivePartSet, count >= 8) << count;
    EXPECT_EQ(read.m_oUserData.GetCount(), 0) << count;
  }
  // Without initializing, the members the frame lacks keep their values.
  OType_CheckProgramInfoItem read = SampleItem();
  ASSERT_TRUE(Deserialize(read, Frame(0xFED04A00, Hex("2A00000000000000")), false));
  EXPECT_EQ(read.m_partSet_Size, 42u);
  EXPECT_EQ(read.m_oStrPartSet_Name, u"AB");
  EXPECT_TRUE(read.m_isActivePartSet);
}

TEST(CheckProgramInfoItem, DamagedNestedMemberFailsTheItem) {
  std::vector<Bytes> members = SampleMembers();
  members[4][5] = 0x09;  // the time stamp's identifier no longer matches
  Bytes payload;
  for (const Bytes& member : members) payload = Concat(payload, member);
  const Bytes damaged = Concat(Frame(0xFED04A00, payload), Hex("AABB"));
  OByteStream_Memory stream = StreamOf(damaged);
  OType_CheckProgramInfoItem read;
  EXPECT_FALSE(read.GetObjectData(stream, true));
  // The stream stands after the damaged item, where the next object begins.
  EXPECT_EQ(stream.GetPosition(), damaged.size() - 2);
}

TEST(CheckProgramInfoItemArray, FramesAndAppends) {
  OType_CheckProgramInfoItemArray items;
  items.Add(std::make_shared<OType_CheckProgramInfoItem>(SampleItem()));
  const auto blank = std::make_shared<OType_CheckProgramInfoItem>();
  items.Add(blank);
  const Bytes expected = Frame(0xFED04900, Concat(Concat(U32(2), Serialize(SampleItem())), Serialize(*blank)));
  EXPECT_EQ(Serialize(items), expected);

  OType_CheckProgramInfoItemArray read;
  read.Add(std::make_shared<OType_CheckProgramInfoItem>());
  ASSERT_TRUE(Deserialize(read, expected));
  ASSERT_EQ(read.GetCount(), 3);
  EXPECT_EQ(read[1]->m_oStrPartSet_Name, u"AB");
}

TEST(CheckProgramInfoItemArray, StopsAtADamagedItem) {
  const Bytes foreign = Frame(0xFED04B00, Hex("00"));
  const Bytes written = Frame(0xFED04900, Concat(Concat(U32(2), Serialize(SampleItem())), foreign));
  OType_CheckProgramInfoItemArray read;
  EXPECT_FALSE(Deserialize(read, written));
  EXPECT_EQ(read.GetCount(), 1);
  EXPECT_EQ(read.m_oUserData.GetCount(), static_cast<int>(foreign.size()));
  // Written again, the count tells what was read; the foreign bytes follow.
  EXPECT_EQ(Serialize(read), Frame(0xFED04900, Concat(Concat(U32(1), Serialize(SampleItem())), foreign)));
}

}  // namespace
}  // namespace nk::testing
