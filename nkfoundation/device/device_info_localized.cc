// The device information list that the user interface shows: one resource
// key and one value text per line. The host's resource layer turns the keys
// into the labels of its language.
#include <cstdio>
#include <cstring>
#include <string_view>

#include "nkfoundation/core/culture.h"
#include "nkfoundation/device/device_info.h"
#include "nkfoundation/device/device_info_fields.h"

namespace {

using nk::DeviceInfoData;

struct InfoLine {
  std::string_view key;
  std::uint16_t offset;
  std::uint16_t width;  // 0 when the field is not an 8- or 16-bit number
};

// The width of the number at `offset`, from the record's field table.
constexpr std::uint16_t NumberWidth(std::size_t offset) {
  for (const nk::DeviceInfoField& field : nk::kDeviceInfoFields) {
    const bool number = field.kind == nk::DeviceFieldKind::kU8 || field.kind == nk::DeviceFieldKind::kU16;
    if (field.offset == offset) return number ? field.width : 0;
  }
  return 0;
}

#define NK_LINE(key, member) \
  InfoLine { key, offsetof(DeviceInfoData, member), NumberWidth(offsetof(DeviceInfoData, member)) }

// The keys are kept exactly as the resource files know them, including the
// one key shared by three tool versions and the EtherNet/IP module shown
// twice under two keys.
constexpr InfoLine kLines[] = {
    NK_LINE("InfrastructureDvinfoStr51_Text", m_MaxNumJobs),
    NK_LINE("InfrastructureDvinfoStr7_Text", m_MaxNumSortTypes),
    NK_LINE("InfrastructureDvinfoStr5_Text", m_MaxNumOrientations),
    NK_LINE("InfrastructureDvinfoStr3_Text", m_MaxNumFeatures),
    NK_LINE("InfrastructureDvinfoStr54_Text", m_IntegratedSensor_ImagePreProcessingVersion),
    NK_LINE("InfrastructureDvinfoStr18_Text", m_ToolVersion_ROI),
    NK_LINE("InfrastructureDvinfoStr20_Text", m_ToolVersion_CTool),
    NK_LINE("InfrastructureDvinfoStr21_Text", m_ToolVersion_Measure),
    NK_LINE("InfrastructureDvinfoStr45_Text", m_ToolVersion_BlobTool),
    NK_LINE("InfrastructureDvinfoStr23_Text", m_ToolVersion_Combination),
    NK_LINE("InfrastructureDvinfoStr77_Text", m_ToolVersion_PMatch_V2),
    NK_LINE("InfrastructureDvinfoStr48_Text", m_ToolVersion_Color),
    NK_LINE("InfrastructureDvinfoStr49_Text", m_ToolVersion_CodeReader),
    NK_LINE("InfrastructureDvinfoStr59_Text", m_ToolVersion_Bar_CodeReader),
    NK_LINE("InfrastructureDvinfoStr50_Text", m_ToolVersion_OCR),
    NK_LINE("InfrastructureDvinfoStr55_Text", m_ToolVersion_RayTool),
    NK_LINE("InfrastructureDvinfoStr56_Text", m_ToolVersion_RoundnessTool),
    NK_LINE("InfrastructureDvinfoStr57_Text", m_ToolVersion_CoordTrans),
    NK_LINE("InfrastructureDvinfoStr58_Text", m_ToolVersion_ImageCompare),
    NK_LINE("InfrastructureDvinfoStr64_Text", m_ToolVersion_DataAccess),
    NK_LINE("InfrastructureDvinfoStr65_Text", m_ToolVersion_CTool_V2),
    NK_LINE("InfrastructureDvinfoStr67_Text", m_ToolVersion_IOAccess),
    NK_LINE("InfrastructureDvinfoStr78_Text", m_ToolVersion_OCV),
    NK_LINE("InfrastructureDvinfoStr78_Text", m_ToolVersion_Halcon_Script),
    NK_LINE("InfrastructureDvinfoStr78_Text", m_ToolVersion_AI_Execute_Network),
    NK_LINE("InfrastructureDvinfoStr80_Text", m_ToolVersion_Text),
    NK_LINE("InfrastructureDvinfoStr81_Text", m_ToolVersion_TOOL_OEM1),
    NK_LINE("InfrastructureDvinfoStr82_Text", m_ToolVersion_TOOL_OEM2),
    NK_LINE("InfrastructureDvinfoStr83_Text", m_ToolVersion_TOOL_OEM3),
    NK_LINE("InfrastructureDvinfoStr84_Text", m_ToolVersion_TOOL_OEM4),
    NK_LINE("InfrastructureDvinfoStr85_Text", m_ToolVersion_TOOL_IMG_OEM1),
    NK_LINE("InfrastructureDvinfoStr86_Text", m_ToolVersion_TOOL_IMG_OEM2),
    NK_LINE("InfrastructureDvinfoStr87_Text", m_ToolVersion_IMG_TEMPLATE),
    NK_LINE("InfrastructureDvinfoStr88_Text", m_ToolVersion_IMG_MORPH),
    NK_LINE("InfrastructureDvinfoStr89_Text", m_ToolVersion_IMG_FILTER),
    NK_LINE("InfrastructureDvinfoStr90_Text", m_ToolVersion_IMG_ADJUST),
    NK_LINE("InfrastructureDvinfoStr91_Text", m_ToolVersion_IMG_COMBINATION),
    NK_LINE("InfrastructureDvinfoStr68_Text", m_DDIOVersion_PartDetector),
    NK_LINE("InfrastructureDvinfoStr69_Text", m_DDIOVersion_EtherNetIP),
    NK_LINE("InfrastructureDvinfoStr70_Text", m_DDIOVersion_DataCollection),
    NK_LINE("InfrastructureDvinfoStr71_Text", m_DDIOVersion_XML),
    NK_LINE("InfrastructureDvinfoStr72_Text", m_DDIOVersion_WebViewer),
    NK_LINE("InfrastructureDvinfoStr73_Text", m_DDIOVersion_CSTViewer),
    NK_LINE("InfrastructureDvinfoStr92_Text", m_DDIOVersion_Profinet),
    NK_LINE("InfrastructureDvinfoStr93_Text", m_DDIOVersion_ResultOutput),
    NK_LINE("InfrastructureDvinfoStr74_Text", m_DDIOVersion_DigitalOutputs),
    NK_LINE("InfrastructureDvinfoStr75_Text", m_DDIOVersion_ResultFlagword),
    NK_LINE("InfrastructureDvinfoStr9_Text", m_Hardware_CPU_ID),
    NK_LINE("InfrastructureDvinfoStr13_Text", m_Hardware_TransportSystemSize),
    NK_LINE("InfrastructureDvinfoStr14_Text", m_Hardware_IntegratedPartFlowActuators),
    NK_LINE("InfrastructureDvinfoStr16_Text", m_Hardware_IntegratedGPIO_Inputs),
    NK_LINE("InfrastructureDvinfoStr17_Text", m_Hardware_IntegratedGPIO_Outputs),
    NK_LINE("InfrastructureDvinfoStr36_Text", compatibilityEmpty_OnceSensorWidth),
    NK_LINE("InfrastructureDvinfoStr37_Text", compatibilityEmpty_OnceSensorHeight),
    NK_LINE("InfrastructureDvinfoStr52_Text", compatibilityEmpty_OnceSensorBitsPerPixel),
    NK_LINE("InfrastructureDvinfoStr53_Text", m_Hardware_IntegratedLighting_ID),
    NK_LINE("InfrastructureDvinfoStr8_Text", m_Language),
    NK_LINE("InfrastructureDvinfoStr35_Text", m_SysKonfSupportsHelpIDs),
    NK_LINE("InfrastructureDvinfoStr38_Text", m_CAN_Support_CPI_Master),
    NK_LINE("InfrastructureDvinfoStr39_Text", m_CAN_Support_CPI_Slave),
    NK_LINE("InfrastructureDvinfoStr42_Text", m_CAN_Support_CANopen_Master),
    NK_LINE("InfrastructureDvinfoStr43_Text", m_CAN_Support_CANopen_Slave),
    NK_LINE("InfrastructureDvinfoStr44_Text", m_RuntimeSystem_TypeID),
    NK_LINE("InfrastructureDvinfoStr41_Text", m_RuntimeSystem_VersionID),
    NK_LINE("InfrastructureDvinfoStr66_Text", m_ETH_Support_Modbus),
    NK_LINE("InfrastructureDvinfoStr76_Text", m_DDIOVersion_EtherNetIP),
};

#undef NK_LINE

constexpr bool EveryLineNamesAField() {
  for (const InfoLine& line : kLines) {
    if (line.width == 0) return false;
  }
  return true;
}
static_assert(std::size(kLines) == 66);
static_assert(EveryLineNamesAField(), "every line shows an 8- or 16-bit field");

constexpr std::uint16_t kUnlimitedFeatures = 0xFFFF;
constexpr std::u16string_view kUnlimited[] = {u"@@Unlimited", u"Unlimited", u"Unbegrenzt"};

std::u16string UnlimitedWord() {
  const int culture = culture::GetCurrentCulture();
  return std::u16string(kUnlimited[culture >= 0 && culture < 3 ? culture : culture::kEnglish]);
}

// 16-bit fields read as signed numbers, 8-bit fields as unsigned ones.
int FieldValue(const OType_DeviceInfo& info, const InfoLine& line) {
  const auto* at = reinterpret_cast<const std::uint8_t*>(static_cast<const DeviceInfoData*>(&info)) +
                   line.offset;
  if (line.width == 1) return *at;
  std::int16_t value;
  std::memcpy(&value, at, sizeof(value));
  return value;
}

std::u16string Decimal(int value) {
  char text[16];
  const int length = std::snprintf(text, sizeof(text), "%d", value);
  return std::u16string(text, text + length);
}

}  // namespace

bool OType_DeviceInfo::GetLocalizedInformation(
    std::shared_ptr<OType_DeviceInfo> info, std::shared_ptr<WritableCollection<std::u16string>> labels,
    std::shared_ptr<WritableCollection<std::u16string>> values) {
  if (!info || !labels || !values) return false;
  for (const InfoLine& line : kLines) {
    labels->Add(std::u16string(line.key.begin(), line.key.end()));
    if (line.offset == offsetof(DeviceInfoData, m_MaxNumFeatures) &&
        info->m_MaxNumFeatures == kUnlimitedFeatures) {
      values->Add(UnlimitedWord());
    } else {
      values->Add(Decimal(FieldValue(*info, line)));
    }
  }
  return true;
}
