#include "nkfoundation/device/camera_info_item.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

#include "nkfoundation/core/culture.h"
#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

using Item = OType_Device_Camera_InfoItem;
using ItemArray = OType_Device_Camera_InfoItemArray;

// The payload of a frame, without its 8-byte header.
Bytes PayloadOf(const Bytes& frame) { return Bytes(frame.begin() + 8, frame.end()); }

Item SampleItem() {
  Item item;
  item.m_cameraTypeId = 0xFED0A001;
  item.m_manufacturerID = 7;
  item.m_manufacturerName = u"M";
  item.m_manufacturerCameraSerialNumber = u"4711";
  item.m_manufacturerCameraName = u"K";
  item.m_cameraInterfaceType = 2;
  item.m_cameraInterfaceVersion = u"v";
  item.m_cameraConnectionAddress_UseStr = true;
  item.m_cameraConnectionAddressID = 0x01020304;
  item.m_cameraConnectionAddressStr = u"ip";
  item.m_cameraUserAssignedIdentification_UseStr = true;
  item.m_cameraUserAssignedIdentificationID = 9;
  item.m_cameraUserAssignedIdentificationStr = u"id";
  item.m_cameraUserAssignedComment = u"Left";
  item.m_cameraImage.Create(0, 0, 2, 1, 1);
  item.m_cameraImage.SetPixel(1, 0, 0x55);
  return item;
}

TEST(CameraInfoItem, DefaultFrameIsByteExact) {
  Item item;
  const Bytes empty_string = Hex("04000000 0001CBFE");
  Bytes payload = Hex("00A0D0FE FFFFFFFF");
  for (int i = 0; i < 3; ++i) payload = Concat(payload, empty_string);
  payload = Concat(Concat(payload, Hex("FFFFFFFF")), empty_string);
  payload = Concat(Concat(payload, Hex("00 00000000")), empty_string);
  payload = Concat(Concat(payload, Hex("00 00000000")), empty_string);
  payload = Concat(Concat(payload, empty_string), Serialize(item.m_cameraImage));
  const Bytes expected = Frame(0xFED05700, payload);
  EXPECT_EQ(Serialize(item), expected);
  EXPECT_EQ(item.GetObjectSize(), expected.size());
}

TEST(CameraInfoItem, RoundTripKeepsEveryMemberAndNewerTail) {
  const Bytes newer = Frame(0xFED05700, Concat(PayloadOf(Serialize(SampleItem())), Hex("C0FFEE")));
  Item read;
  OByteStream_Memory stream = StreamOf(newer);
  ASSERT_TRUE(read.GetObjectData(stream, true));
  EXPECT_EQ(stream.GetPosition(), newer.size());
  EXPECT_EQ(read.m_cameraConnectionAddressID, 0x01020304u);
  EXPECT_EQ(read.m_cameraUserAssignedIdentificationStr, u"id");
  EXPECT_EQ(read.m_cameraImage.GetPixel(1, 0), 0x555555u);
  EXPECT_EQ(read.m_oUserData.GetCount(), 3);
  EXPECT_EQ(Serialize(read), newer);
}

TEST(CameraInfoItem, OlderShortFrameKeepsDefaults) {
  const Bytes older = Frame(0xFED05700, Hex("01A0D0FE 07000000 AABBCCDD"));
  Item read = SampleItem();
  ASSERT_TRUE(Deserialize(read, older));
  EXPECT_EQ(read.m_cameraTypeId, Item::kNoCameraType);
  EXPECT_EQ(read.m_manufacturerID, -1);
  EXPECT_TRUE(read.m_cameraUserAssignedComment.empty());
  EXPECT_TRUE(read.m_cameraImage.IsEmpty());
  EXPECT_EQ(read.m_oUserData.GetCount(), 12);

  Item kept = SampleItem();
  ASSERT_TRUE(Deserialize(kept, older, false));
  EXPECT_EQ(kept.m_cameraTypeId, 0xFED0A001u);
  EXPECT_EQ(kept.m_cameraUserAssignedComment, u"Left");
}

TEST(CameraInfoItem, DamagedImageFailsTheItemAndStopsTheArray) {
  Bytes damaged_item = Serialize(SampleItem());
  const Bytes image = Serialize(SampleItem().m_cameraImage);
  damaged_item[damaged_item.size() - image.size() + 5] = 0x08;  // the image's identifier now says OTime
  {
    const Bytes stream_bytes = Concat(damaged_item, Hex("AABB"));
    OByteStream_Memory stream = StreamOf(stream_bytes);
    Item read;
    EXPECT_FALSE(read.GetObjectData(stream, true));
    EXPECT_EQ(stream.GetPosition(), damaged_item.size());
  }
  // Reading stops at the damaged item and the array fails, the items after
  // it falling into the tail; when the damaged item is the last, the reader
  // stands at the array's end and the array succeeds.
  const Bytes good = Serialize(SampleItem());
  struct Case {
    Bytes items;
    bool read;
    int tail;
  };
  const Case cases[] = {
      {Concat(Concat(Concat(U32(3), good), damaged_item), good), false, static_cast<int>(good.size())},
      {Concat(Concat(U32(2), good), damaged_item), true, 0},
  };
  for (const Case& c : cases) {
    const Bytes written = Frame(0xFED05600, c.items);
    ItemArray read;
    OByteStream_Memory stream = StreamOf(written);
    EXPECT_EQ(read.GetObjectData(stream, true), c.read);
    EXPECT_EQ(stream.GetPosition(), written.size());
    ASSERT_EQ(read.GetCount(), 1);
    EXPECT_EQ(read[0]->m_manufacturerCameraSerialNumber, u"4711");
    EXPECT_EQ(read.m_oUserData.GetCount(), c.tail);
  }
}

TEST(CameraInfoItemArray, FramesAppendsCopiesAndCompares) {
  ItemArray items;
  items.Add(std::make_shared<Item>(SampleItem()));
  items.Add(std::make_shared<Item>());
  const Bytes expected =
      Frame(0xFED05600, Concat(Concat(U32(2), Serialize(*items[0])), Serialize(*items[1])));
  EXPECT_EQ(Serialize(items), expected);

  ItemArray read;
  read.Add(std::make_shared<Item>());
  ASSERT_TRUE(Deserialize(read, expected));
  ASSERT_EQ(read.GetCount(), 3);
  EXPECT_FALSE(ItemArray::Equals(&read, &items));
  read.RemoveAt(0);
  EXPECT_TRUE(ItemArray::Equals(&read, &items));

  ItemArray copy;
  items.CopyTo(&copy);
  EXPECT_NE(copy[0], items[0]);  // a deep copy, not shared items
  EXPECT_EQ(Serialize(copy), expected);
  EXPECT_TRUE(ItemArray::Equals(std::make_shared<ItemArray>(copy), std::make_shared<ItemArray>(items)));
  EXPECT_TRUE(ItemArray::Equals(nullptr, nullptr));
  EXPECT_FALSE(ItemArray::Equals(&items, nullptr));
}

TEST(CameraInfoItem, EqualityIsTypeAndSerialNumber) {
  const Item sample = SampleItem();
  Item other_user_data = sample;
  other_user_data.m_cameraUserAssignedComment = u"Right";
  other_user_data.m_manufacturerName = u"Other";
  other_user_data.m_cameraImage = OType_Image();
  EXPECT_TRUE(sample == other_user_data);

  Item other_type = sample;
  other_type.m_cameraTypeId = 0xFED0A002;
  EXPECT_FALSE(sample == other_type);
  Item other_serial = sample;
  other_serial.m_manufacturerCameraSerialNumber = u"4712";
  EXPECT_FALSE(Item::Equals(&sample, &other_serial));

  EXPECT_TRUE(Item::Equals(nullptr, nullptr));
  EXPECT_FALSE(Item::Equals(&sample, nullptr));
  EXPECT_TRUE(Item::Equals(std::make_shared<Item>(sample), std::make_shared<const Item>(other_user_data)));
}

TEST(CameraInfoItem, CopiesAndUserData) {
  Item sample = SampleItem();
  sample.m_oUserData.Add(0x11);
  sample.m_cameraImage.m_oUserData.Add(0x22);

  std::unique_ptr<Item> copy(sample.CreateCopy());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(Serialize(*copy), Serialize(sample));

  auto target = std::make_shared<Item>();
  sample.CopyUserDataTo(target);
  EXPECT_EQ(target->m_cameraUserAssignedComment, u"Left");
  EXPECT_EQ(Serialize(target->m_cameraImage), Serialize(sample.m_cameraImage));
  EXPECT_EQ(target->m_cameraTypeId, Item::kNoCameraType);
  EXPECT_TRUE(target->m_manufacturerCameraSerialNumber.empty());
  std::shared_ptr<Item> none;
  sample.CopyUserDataTo(none);
  EXPECT_EQ(none, nullptr);

  sample.ResetUserData();
  EXPECT_TRUE(sample.m_cameraUserAssignedComment.empty());
  EXPECT_TRUE(sample.m_cameraImage.IsEmpty());
  EXPECT_EQ(sample.m_cameraUserAssignedIdentificationStr, u"id");  // identification is not user data

  sample.InitializeMembers(true);
  EXPECT_EQ(sample.m_cameraTypeId, Item::kNoCameraType);
  EXPECT_EQ(sample.m_cameraInterfaceType, -1);
  EXPECT_EQ(sample.m_oUserData.GetCount(), 1);  // the tail survives
}

// Names as the host's resolver gives them; the flag picks the short form.
std::u16string ResolveType(std::uint32_t type_id, bool flag) {
  if (type_id == 0xFED0A001) return flag ? u"A" : u"Type A";
  if (type_id == Item::kCameraTypeWithoutGenericMarker) return u"Fixed";
  return u"";
}

class CameraNames : public ::testing::Test {
 protected:
  void SetUp() override { Item::m_cameraTypeIdResolver = &ResolveType; }
  void TearDown() override {
    Item::m_cameraTypeIdResolver = nullptr;
    culture::SetCurrentCulture(culture::kEnglish);
  }
};

TEST_F(CameraNames, FollowCultureAndResolver) {
  struct Case {
    culture::Language culture;
    std::uint32_t type;
    const char16_t* comment;
    const char16_t* serial;
    const char16_t* full;
    const char16_t* short_name;
  };
  constexpr std::uint32_t kTypeA = 0xFED0A001;
  constexpr std::uint32_t kFixed = Item::kCameraTypeWithoutGenericMarker;
  const Case cases[] = {
      {culture::kEnglish, kTypeA, u"", u"4711", u"Type A (S/N: 4711)", u"A (S/N: 4711)"},
      {culture::kEnglish, kTypeA, u"", u"", u"Type A ", u"A (generic)"},
      {culture::kEnglish, kTypeA, u"Left", u"", u"Left (A)", u"Left (A)"},
      {culture::kEnglish, kTypeA, u"Left", u"4711", u"Left (A S/N: 4711)", u"Left (A S/N: 4711)"},
      {culture::kEnglish, kFixed, u"", u"", u"Fixed ", u"Fixed "},
      {culture::kEnglish, 0xFED0A002, u"", u"", u"", u"(generic)"},
      {culture::kGerman, kTypeA, u"", u"", u"Type A ", u"A (generisch)"},
      {culture::kGerman, kTypeA, u"", u"4711", u"Type A (S/N: 4711)", u"A (S/N: 4711)"},
      {culture::kKeyForm, kTypeA, u"", u"4711", u"Type A (@@S/N: 4711)", u"A (@@S/N: 4711)"},
      {culture::kKeyForm, kTypeA, u"", u"", u"Type A ", u"A (@@generic)"},
  };
  for (const Case& c : cases) {
    culture::SetCurrentCulture(c.culture);
    Item item;
    item.m_cameraTypeId = c.type;
    item.m_cameraUserAssignedComment = c.comment;
    item.m_manufacturerCameraSerialNumber = c.serial;
    const std::string label = std::to_string(static_cast<int>(c.culture)) + " " + std::to_string(c.type);
    EXPECT_EQ(item.GetFullCameraName(), c.full) << label;
    EXPECT_EQ(item.GetShortCameraName(), c.short_name) << label;
  }
  EXPECT_EQ(Item::GetCameraTypeName(0xFED0A001), u"Type A");
}

TEST_F(CameraNames, AreEmptyWithoutResolver) {
  Item::m_cameraTypeIdResolver = nullptr;
  Item item = SampleItem();
  EXPECT_TRUE(item.GetFullCameraName().empty());
  EXPECT_TRUE(item.GetShortCameraName().empty());
  EXPECT_TRUE(item.GetCameraTypeName().empty());
}

}  // namespace
}  // namespace nk::testing
