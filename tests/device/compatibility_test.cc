#include "nkfoundation/device/compatibility.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

#include "nkfoundation/device/device_info.h"
#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

using Version = std::array<int, 4>;

struct RangeCase {
  Version minimum, maximum, firmware;
  int expected;  // 1: outside the range
};

// Firmware components travel as u16; -1 here is 0xFFFF in the record.
const RangeCase kRangeCases[] = {
    // A minimum alone; no maximum.
    {{1, 1, 0, 0}, {0, 0, 0, 0}, {1, 0, 9, 9}, 1},
    {{1, 1, 0, 0}, {0, 0, 0, 0}, {1, 1, 0, 0}, 0},
    {{1, 1, 0, 0}, {0, 0, 0, 0}, {3, 0, 0, 0}, 0},
    // Negative components end the comparison in the device's favour.
    {{1, -1, 0, 0}, {1, 1, 5, -1}, {1, 0, 0, 0}, 0},
    {{1, -1, 0, 0}, {1, 1, 5, -1}, {1, 1, 5, 99}, 0},
    {{1, -1, 0, 0}, {1, 1, 5, -1}, {1, 1, 6, 0}, 1},
    {{1, -1, 0, 0}, {1, 1, 5, -1}, {2, 0, 0, 0}, 1},
    {{1, 2, 3, -1}, {0, 0, 0, 0}, {1, 2, 3, 0}, 0},
    {{0, 0, 0, 0}, {1, 2, -1, 0}, {1, 2, 99, 99}, 0},
    {{0, 0, 0, 0}, {1, 2, -1, 0}, {1, 3, 0, 0}, 1},
    // A negative first component switches a bound off.
    {{-1, 0, 0, 0}, {-1, 0, 0, 0}, {0, 0, 0, 0}, 0},
    {{-1, 0, 0, 0}, {-1, 0, 0, 0}, {9, 9, 9, 9}, 0},
    {{-1, 5, 5, 5}, {-1, 0, 0, 0}, {-1, -1, -1, -1}, 0},
    // All zeros switch a bound off; any other component switches it on.
    {{0, 0, 0, 0}, {0, 0, 0, 0}, {-1, 7, 7, 7}, 0},
    {{0, 0, 0, 5}, {0, 0, 0, 0}, {0, 0, 0, 4}, 1},
    {{0, 0, 0, 5}, {0, 0, 0, 0}, {0, 0, 0, 5}, 0},
    {{0, -1, 0, 0}, {0, 0, 0, 0}, {-1, 0, 0, 0}, 1},
    {{0, -1, 0, 0}, {0, 0, 0, 0}, {0, -5, 0, 0}, 0},
    {{0, 0, 0, 0}, {0, 1, 0, 0}, {0, 2, 0, 0}, 1},
    {{0, 0, 0, 0}, {0, 1, 0, 0}, {0, 1, 0, 0}, 0},
    // Both bounds inclusive, down to the build.
    {{1, 2, 3, 4}, {1, 2, 3, 4}, {1, 2, 3, 4}, 0},
    {{1, 2, 3, 4}, {1, 2, 3, 4}, {1, 2, 3, 5}, 1},
    {{1, 2, 3, 4}, {1, 2, 3, 4}, {1, 2, 3, 3}, 1},
    // Components compare as signed 16-bit values: 0xFFFF is below 1.
    {{0, 0, 0, 1}, {0, 0, 0, 0}, {-1, 0, 0, 0}, 1},
    {{0, 0, 0, 0}, {2, 0, 0, 0}, {-1, 0, 0, 0}, 0},
};

OType_DeviceInfo DeviceWithFirmware(const Version& firmware) {
  OType_DeviceInfo device;
  device.m_FirmwareVersion_0 = static_cast<std::uint16_t>(firmware[0]);
  device.m_FirmwareVersion_1 = static_cast<std::uint16_t>(firmware[1]);
  device.m_FirmwareVersion_2 = static_cast<std::uint16_t>(firmware[2]);
  device.m_FirmwareVersion_3 = static_cast<std::uint16_t>(firmware[3]);
  return device;
}

TEST(CompatibilityTest, FirmwareAgainstRanges) {
  for (const RangeCase& c : kRangeCases) {
    OType_Compatibility compatibility;
    compatibility.SetCompatibilityFirmwareVersion(c.minimum[0], c.minimum[1], c.minimum[2], c.minimum[3],
                                                  c.maximum[0], c.maximum[1], c.maximum[2], c.maximum[3]);
    OType_DeviceInfo device = DeviceWithFirmware(c.firmware);
    std::u16string message = u"kept";
    EXPECT_EQ(compatibility.iCheckPropertyCompatibility(&device, message), c.expected)
        << "min " << ::testing::PrintToString(c.minimum) << " max " << ::testing::PrintToString(c.maximum)
        << " firmware " << ::testing::PrintToString(c.firmware);
    EXPECT_EQ(message, u"kept");
  }
  std::u16string message;
  EXPECT_EQ(OType_Compatibility().iCheckPropertyCompatibility(nullptr, message), 1);
}

TEST(CompatibilityTest, VersionTextsParseWithAutomaticBase) {
  const struct {
    std::u16string minimum, maximum;
    Version expected_minimum, expected_maximum;
  } cases[] = {
      {u"1.0x10", u"2", {1, 16, 0, 0}, {2, 0, 0, 0}},
      {u"010.08.-3.7.9", u"", {8, 0, -3, 7}, {0, 0, 0, 0}},
      {u"x.5..", u" 4.0X1f", {0, 5, 0, 0}, {4, 31, 0, 0}},
      {u"99999999999.-99999999999.0xFFFFFFFF", u"1", {INT32_MAX, INT32_MIN, INT32_MAX, 0}, {1, 0, 0, 0}},
  };
  for (const auto& c : cases) {
    OType_Compatibility compatibility;
    EXPECT_TRUE(compatibility.SetCompatibilityFirmwareVersion(c.minimum, c.maximum));
    const auto& min = compatibility.m_iaMinimumCompatibilityFirmwareVersion;
    const auto& max = compatibility.m_iaMaximumCompatibilityFirmwareVersion;
    EXPECT_EQ((Version{min[0], min[1], min[2], min[3]}), c.expected_minimum);
    EXPECT_EQ((Version{max[0], max[1], max[2], max[3]}), c.expected_maximum);
  }
}

// Minimum 1.-1.0.0, maximum 1.1.5.-1, creating version 2.0.0.0.
const Bytes kFrame = Hex("2C000000 001DD0FE"
                         "01000000 FFFFFFFF 00000000 00000000"
                         "01000000 01000000 05000000 FFFFFFFF"
                         "00000000 00000200");

OType_Compatibility MakeCompatibility() {
  OType_Compatibility compatibility;
  compatibility.SetCompatibilityFirmwareVersion(1, -1, 0, 0, 1, 1, 5, -1);
  compatibility.m_qtvVersionCreatedWith = 0x0002000000000000;
  return compatibility;
}

TEST(CompatibilityTest, FrameIsExact) {
  EXPECT_EQ(Serialize(OType_Compatibility()),
            Concat(Concat(Hex("2C000000 001DD0FE"), Bytes(32, 0)), Hex("0000EF46 00000100")));
  EXPECT_EQ(MakeCompatibility().GetObjectSize(), 48u);
  EXPECT_EQ(Serialize(MakeCompatibility()), kFrame);

  Bytes newer = Concat(kFrame, Hex("ABCD"));
  newer[0] += 2;
  OType_Compatibility read;
  ASSERT_TRUE(Deserialize(read, newer));
  EXPECT_EQ(read.m_qtvVersionCreatedWith, 0x0002000000000000u);
  EXPECT_EQ(Serialize(read), newer);
}

// The creating version is read only when 8 bytes remain after the bounds;
// fewer become the tail. Below the bounds nothing is read. Read into an
// object holding 7s and creating version 42, without and with initializing.
TEST(CompatibilityTest, CreatingVersionOnlyFromFramesThatHoldIt) {
  constexpr std::uint64_t kDefault = OType_Compatibility::kDefaultVersionCreatedWith;
  const Bytes bounds(kFrame.begin() + 8, kFrame.begin() + 40);
  const struct {
    Bytes payload;
    int min1[2];  // by bInitialize false, true
    std::uint64_t created[2];
    int tail;
  } cases[] = {
      {bounds, {-1, -1}, {42, kDefault}, 0},
      {Concat(bounds, Hex("01020304 050607")), {-1, -1}, {42, kDefault}, 7},
      {Concat(bounds, Hex("01020304 05060708 09")), {-1, -1}, {0x0807060504030201, 0x0807060504030201}, 1},
      {Bytes(bounds.begin(), bounds.end() - 1), {7, 0}, {42, kDefault}, 31},
  };
  for (const auto& c : cases) {
    const Bytes frame = Frame(0xFED01D00, c.payload);
    for (int initialize : {0, 1}) {
      OType_Compatibility read;
      read.SetCompatibilityFirmwareVersion(7, 7, 7, 7, 7, 7, 7, 7);
      read.m_qtvVersionCreatedWith = 42;
      auto stream = StreamOf(frame);
      ASSERT_TRUE(read.GetObjectData(stream, initialize == 1));
      EXPECT_EQ(stream.GetPosition(), frame.size());
      EXPECT_EQ(read.m_iaMinimumCompatibilityFirmwareVersion[1], c.min1[initialize]) << c.payload.size();
      EXPECT_EQ(read.m_qtvVersionCreatedWith, c.created[initialize]) << c.payload.size();
      EXPECT_EQ(read.m_oUserData.GetCount(), c.tail);
    }
  }
  OType_Compatibility untouched = MakeCompatibility();
  EXPECT_FALSE(Deserialize(untouched, Hex("0C000000 002BD0FE 00000000")));
  EXPECT_EQ(Serialize(untouched), kFrame);
}

TEST(CompatibilityTest, CopiesKeepTheirOwnCreatingVersion) {
  OType_Compatibility source = MakeCompatibility();
  source.m_oUserData.Add(0xAB);

  OType_Compatibility target;
  target.m_qtvVersionCreatedWith = 5;
  source.CopyTo(&target);
  EXPECT_EQ(target.m_qtvVersionCreatedWith, 5u);
  EXPECT_EQ(target.m_iaMaximumCompatibilityFirmwareVersion[3], -1);
  EXPECT_EQ(target.m_oUserData.GetCount(), 1);

  const std::unique_ptr<OType_Compatibility> copy(source.opCreateCopy());
  EXPECT_EQ(copy->m_qtvVersionCreatedWith, OType_Compatibility::kDefaultVersionCreatedWith);
  copy->m_qtvVersionCreatedWith = source.m_qtvVersionCreatedWith;
  EXPECT_EQ(Serialize(*copy), Serialize(source));
  source.CopyTo(nullptr);
}

}  // namespace
}  // namespace nk::testing
