#include <gtest/gtest.h>

#include <array>

#include "nkfoundation/device/device_info.h"

namespace {

TEST(DeviceIdentityTest, DesignationsAndHardwareTypes) {
  const struct {
    const char16_t* designation;
    int type;
  } kCases[] = {
      {u"VRKA-T-11-VRKB-T", 8192},  // the VRKB family is tested first
      {u"VRKA-T-11", 4096},
      {u"PXU-D-N", 16},  // holds both the line's word and the network word
      {u"Tarn NET 2", 16},
      {u"tarn net", -1},   // case matters
      {u"PXU-D-400", -1},  // the Tarn line without the network word
      {u"LQMM-Z-12-NK", -1},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(OType_DeviceInfo::ParseDeviceType(c.designation), c.type) << c.type;
  }
  EXPECT_EQ(OType_DeviceInfo::oGetHWString(768), u"LQMM-Z-..-NK");
  EXPECT_EQ(OType_DeviceInfo::oGetHWString(-1), u"unknown");
  EXPECT_EQ(OType_DeviceInfo::oGetSWString(266), u"v1.1");
  EXPECT_EQ(OType_DeviceInfo::oGetSWString(267), u"unknown");
}

TEST(DeviceIdentityTest, FirmwareTableAndFeatures) {
  EXPECT_FALSE(OType_DeviceInfo::IsSupportedHwFw(8192, 256));
  EXPECT_TRUE(OType_DeviceInfo::IsSupportedHwFw(4096, 256));
  EXPECT_FALSE(OType_DeviceInfo::IsSupportedHwFw(16, 256));
  EXPECT_FALSE(OType_DeviceInfo::IsSupportedHwFw(5, 266));
  auto none = OType_DeviceInfo::GetSupportedFirmwareVersions(768);
  ASSERT_NE(none, nullptr);
  EXPECT_EQ(none->GetCount(), 0);
  auto vrka = OType_DeviceInfo::GetSupportedFirmwareVersions(4096);
  ASSERT_EQ(vrka->GetCount(), 2);
  EXPECT_EQ(vrka->At(1), 266u);

  EXPECT_EQ(OType_DeviceInfo::iGetNum_Features(4096, 266), -1);
  EXPECT_EQ(OType_DeviceInfo::iGetNum_Features(16, 266), 0);
  EXPECT_EQ(OType_DeviceInfo::iGetNum_Features(4096, 267), 0);
  EXPECT_FALSE(OType_DeviceInfo::DeviceIsGeneration2(8192, 266));
  EXPECT_TRUE(OType_DeviceInfo::DeviceIsGeneration1OrLater(16, 0));
  EXPECT_FALSE(OType_DeviceInfo::DeviceIsGeneration1OrLater(768, 266));
}

TEST(DeviceIdentityTest, FirmwareVersionTextsParseWithAutomaticBase) {
  const struct {
    const char16_t* text;
    std::array<std::uint16_t, 4> parts;
  } kCases[] = {
      {u"1.1.7.300", {1, 1, 7, 300}},
      {u"1.08.0.0", {1, 0, 0, 0}},  // octal parse stops at the 8
      {u"1.010.0.0", {1, 8, 0, 0}},
      {u"0x10.0X1f.7", {16, 31, 7, 0}},  // a missing part reads 0
      {u"2.x.-1.65537", {2, 0, 0xFFFF, 1}},  // truncated to 16 bits
      {u"1.2.3.4.5", {1, 2, 3, 4}},
  };
  for (const auto& c : kCases) {
    OType_DeviceInfo info;
    EXPECT_TRUE(info.SetFirmwareVersion(c.text));
    EXPECT_EQ((std::array{info.m_FirmwareVersion_0, info.m_FirmwareVersion_1, info.m_FirmwareVersion_2,
                          info.m_FirmwareVersion_3}),
              c.parts);
  }

  OType_DeviceInfo info;
  info.SetFirmwareVersion(u"1.1.7.300");
  EXPECT_EQ(info.GetFirmwareVersionID(), 266);
  EXPECT_EQ(info.GetFirmwareVersion(), "1.1.7.300");
  info.m_FirmwareVersion_0 = 0xFFFF;
  info.m_FirmwareVersion_1 = 3;
  EXPECT_EQ(info.GetFirmwareVersionID(), -256 + 30);
  EXPECT_EQ(info.GetFirmwareVersion(), "-1.3.7.300");
}

TEST(DeviceIdentityTest, OrderCodeIsCutTo32Bytes) {
  OType_DeviceInfo info;
  info.SetProductType_NOCCode(u"VRKA-\u00E4");
  EXPECT_EQ(info.m_ProductType_NOCCode[7], 0);
  EXPECT_EQ(info.GetProductType_NOCCode(), u"VRKA-\u00E4");
  // 32 bytes leave no room for the NUL: reading runs on into the next field.
  info.SetProductType_NOCCode(std::u16string(40, u'N'));
  info.m_DeviceInfoText[0] = 'T';
  EXPECT_EQ(info.GetProductType_NOCCode(), std::u16string(32, u'N') + u"T");
}

TEST(DeviceIdentityTest, ProductGroupsAndCommands) {
  OType_DeviceInfo info;
  const struct {
    std::uint16_t group;
    bool vrx, vrkd, pxd, lqmm;
  } kGroups[] = {
      {0x0201, true, false, false, false}, {0x0200, false, false, false, false},
      {0x0203, false, false, false, false}, {0x0302, false, true, false, false},
      {0x0402, false, false, true, false},  {0x0501, false, false, false, true},
      {0x0502, false, false, false, false},
  };
  for (const auto& g : kGroups) {
    info.m_ProductType_Group_ID = g.group;
    EXPECT_EQ(info.bIsVRXProductType(), g.vrx) << g.group;
    EXPECT_EQ(info.bIsVRKDProductType(), g.vrkd) << g.group;
    EXPECT_EQ(info.bIsPXD_N_ProductType(), g.pxd) << g.group;
    EXPECT_EQ(info.bIsLQMM_Z_M1_NKTypeProductType(), g.lqmm) << g.group;
  }

  info.m_Hardware_IntegratedSdCardSlots_NumSlots = 2;
  info.m_nkKernelCommunicationVersion = 1;
  EXPECT_TRUE(info.SupportsCmdForceDrawConfigTools());
  EXPECT_FALSE(info.SupportsCmdJobStorage());
  info.m_nkKernelCommunicationVersion = 2;
  EXPECT_TRUE(info.SupportsCmdJobStorage());
  info.m_nkKernelCommunicationVersion = 0x8000;  // negative on the device
  EXPECT_FALSE(info.SupportsCmdDeviceReboot());
}

}  // namespace
