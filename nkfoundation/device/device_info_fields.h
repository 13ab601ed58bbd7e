// The field table of the device information record: every field of the
// 1228-byte block with its name, block offset, width and kind, in block
// (and wire) order. Serialization on hosts that cannot copy the block
// whole, `inspect` and the localized information list all walk this table,
// so the block's layout is stated exactly once.
#ifndef NKFOUNDATION_DEVICE_DEVICE_INFO_FIELDS_H_
#define NKFOUNDATION_DEVICE_DEVICE_INFO_FIELDS_H_

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "nkfoundation/device/device_info.h"

namespace nk {

// How a field travels. Byte arrays and texts go byte by byte, so a stream
// that runs dry fills them partly; raw fields (port MACs, filler) go as one
// piece and are either read whole or zeroed.
enum class DeviceFieldKind : std::uint8_t {
  kU8,
  kU16,
  kI16,
  kU64,
  kText,       // UTF-8, NUL-terminated when shorter than the field
  kByteArray,  // bytes without text meaning
  kRawBytes,
};

// Which part of the record a field belongs to; `inspect` shows it by group.
enum class DeviceFieldGroup : std::uint8_t {
  kIdentity,
  kLimits,
  kProtocols,
  kModuleVersions,  // one version byte per tool, camera driver or module
  kNetwork,
  kReserved,
};

struct DeviceInfoField {
  std::string_view name;
  std::uint16_t offset;  // in the block; the wire offset is 8 more
  std::uint16_t width;
  DeviceFieldKind kind;
  DeviceFieldGroup group;
};

// X(block offset, member, kind, group) for every field, in block order.
#define NK_DEVICE_INFO_FIELDS(X) \
  X(0, m_MACAddress_EUI_64BitExtension, kByteArray, kIdentity) \
  X(2, m_MACAddress, kByteArray, kIdentity) \
  X(8, m_FirmwareVersion_0, kU16, kIdentity) \
  X(10, m_FirmwareVersion_1, kU16, kIdentity) \
  X(12, m_FirmwareVersion_2, kU16, kIdentity) \
  X(14, m_FirmwareVersion_3, kU16, kIdentity) \
  X(16, m_nkKernelCommunicationVersion, kU16, kIdentity) \
  X(18, m_ProductionCode, kText, kIdentity) \
  X(146, m_Hardware_CPU_ID, kU16, kIdentity) \
  X(148, m_Hardware_IntegratedSensor_ID, kU16, kIdentity) \
  X(150, compatibilityEmptyP1, kU16, kIdentity) \
  X(152, m_ProductType_Group_ID, kU16, kIdentity) \
  X(154, compatibilityEmpty_OnceRequiredQTV_VersionID, kU16, kIdentity) \
  X(156, m_RS485_Support_Encoder, kU16, kIdentity) \
  X(158, m_ProductType_NOCCode, kText, kIdentity) \
  X(190, m_DeviceInfoText, kText, kIdentity) \
  X(318, m_DeviceCommentText, kText, kIdentity) \
  X(686, m_SysKonfSupportsHelpIDs, kU8, kLimits) \
  X(687, compatibilityEmptyV1, kU8, kLimits) \
  X(688, m_Hardware_IntegratedLineSensor_Length, kU16, kLimits) \
  X(690, m_MaxNumContourCoords, kI16, kLimits) \
  X(692, m_MaxNumFeatures, kU16, kLimits) \
  X(694, m_MaxNumOrientations, kU16, kLimits) \
  X(696, m_MaxNumJobs, kU16, kLimits) \
  X(698, m_MaxNumSortTypes, kU16, kLimits) \
  X(700, m_MaxNumCameras, kU16, kLimits) \
  X(702, m_Hardware_IntegratedGPIO_Inputs, kU16, kLimits) \
  X(704, m_Hardware_IntegratedGPIO_Outputs, kU16, kLimits) \
  X(706, m_Hardware_TransportSystemSize, kU16, kLimits) \
  X(708, m_Hardware_IntegratedPartFlowActuators, kU16, kLimits) \
  X(710, m_Language, kU16, kLimits) \
  X(712, m_SerializationVersion, kU16, kLimits) \
  X(714, m_FPGAVersion, kU16, kLimits) \
  X(716, m_Hardware_IntegratedUSB_NumPorts, kU16, kLimits) \
  X(718, m_Hardware_IntegratedUSB_Type, kU16, kLimits) \
  X(720, m_Hardware_IntegratedUSB_Empty1, kU8, kLimits) \
  X(721, m_Hardware_IntegratedUSB_Empty2, kU8, kLimits) \
  X(722, m_Hardware_IntegratedUSB_Empty3, kU8, kLimits) \
  X(723, m_Hardware_IntegratedUSB_Empty4, kU8, kLimits) \
  X(724, m_Hardware_IntegratedETH_NumPorts, kU16, kLimits) \
  X(726, m_Hardware_IntegratedETH_Type, kU16, kLimits) \
  X(728, m_Hardware_IntegratedETH_Empty1, kU8, kLimits) \
  X(729, m_Hardware_IntegratedETH_Empty2, kU8, kLimits) \
  X(730, m_Hardware_IntegratedETH_Empty3, kU8, kLimits) \
  X(731, m_Hardware_IntegratedETH_Empty4, kU8, kLimits) \
  X(732, m_Hardware_IntegratedETH_Empty5, kU8, kLimits) \
  X(733, m_Hardware_IntegratedETH_Empty6, kU8, kLimits) \
  X(734, m_Hardware_IntegratedConfigurableStateLED_NumLEDs, kU8, kLimits) \
  X(735, m_Hardware_IntegratedConfigurableStateLED_Type, kU8, kLimits) \
  X(736, m_Hardware_IntegratedSdCardSlots_NumSlots, kU16, kLimits) \
  X(738, compatibilityEmptyC1, kU16, kLimits) \
  X(740, compatibilityEmptyC2, kU16, kLimits) \
  X(742, compatibilityEmptyC3, kU16, kLimits) \
  X(744, compatibilityEmptyC4, kU16, kLimits) \
  X(746, compatibilityEmpty_OnceSensorWidth, kU16, kLimits) \
  X(748, compatibilityEmpty_OnceSensorHeight, kU16, kLimits) \
  X(750, compatibilityEmpty_OnceSensorBitsPerPixel, kU8, kLimits) \
  X(751, m_Hardware_IntegratedLighting_ID, kU8, kLimits) \
  X(752, m_CAN_Support_CPI_Master, kU8, kProtocols) \
  X(753, m_CAN_Support_CPI_Slave, kU8, kProtocols) \
  X(754, m_CAN_Support_CANopen_Master, kU8, kProtocols) \
  X(755, m_CAN_Support_CANopen_Slave, kU8, kProtocols) \
  X(756, m_ETH_Support_Modbus, kU8, kProtocols) \
  X(757, m_ETH_Support_EtherNetIP, kU8, kProtocols) \
  X(758, m_ETH_Support_Profinet, kU8, kProtocols) \
  X(759, m_ETH_Support_EtherCat, kU8, kProtocols) \
  X(760, m_ETH_Support_Empty1, kU8, kProtocols) \
  X(761, m_ETH_Support_Empty2, kU8, kProtocols) \
  X(762, m_ETH_Support_Empty3, kU8, kProtocols) \
  X(763, m_ReservedBlock, kByteArray, kReserved) \
  X(955, m_RuntimeSystem_VersionID, kU8, kModuleVersions) \
  X(956, m_RuntimeSystem_TypeID, kU8, kModuleVersions) \
  X(957, m_IntegratedSensor_ImagePreProcessingVersion, kU8, kModuleVersions) \
  X(958, m_CameraVersion_IDS_USB, kU8, kModuleVersions) \
  X(959, m_CameraVersion_IDS_ETH, kU8, kModuleVersions) \
  X(960, m_CameraVersion_Sentech, kU8, kModuleVersions) \
  X(961, m_CameraVersion_GigEVision, kU8, kModuleVersions) \
  X(962, m_CameraVersion_Empty1, kU8, kModuleVersions) \
  X(963, m_CameraVersion_Empty2, kU8, kModuleVersions) \
  X(964, m_CameraVersion_Empty3, kU8, kModuleVersions) \
  X(965, m_CameraVersion_Empty4, kU8, kModuleVersions) \
  X(966, m_CameraVersion_Empty5, kU8, kModuleVersions) \
  X(967, m_CameraVersion_Empty6, kU8, kModuleVersions) \
  X(968, m_CameraVersion_Empty7, kU8, kModuleVersions) \
  X(969, m_CameraVersion_Empty8, kU8, kModuleVersions) \
  X(970, m_ToolVersion_IMG_MORPH, kU8, kModuleVersions) \
  X(971, m_ToolVersion_IMG_FILTER, kU8, kModuleVersions) \
  X(972, m_ToolVersion_IMG_ADJUST, kU8, kModuleVersions) \
  X(973, m_ToolVersion_IMG_COMBINATION, kU8, kModuleVersions) \
  X(974, m_ToolVersion_IMG_TEMPLATE, kU8, kModuleVersions) \
  X(975, m_ToolVersion_IMG_Empty1, kU8, kModuleVersions) \
  X(976, m_ToolVersion_IMG_Empty2, kU8, kModuleVersions) \
  X(977, m_ToolVersion_IMG_Empty3, kU8, kModuleVersions) \
  X(978, m_ToolVersion_IMG_Empty4, kU8, kModuleVersions) \
  X(979, m_ToolVersion_IMG_Empty5, kU8, kModuleVersions) \
  X(980, m_ToolVersion_IMG_Empty6, kU8, kModuleVersions) \
  X(981, m_ToolVersion_IMG_Empty7, kU8, kModuleVersions) \
  X(982, m_ToolVersion_IMG_Empty8, kU8, kModuleVersions) \
  X(983, m_ToolVersion_ROI, kU8, kModuleVersions) \
  X(984, m_ToolVersion_CTool, kU8, kModuleVersions) \
  X(985, m_ToolVersion_Measure, kU8, kModuleVersions) \
  X(986, m_ToolVersion_BlobTool, kU8, kModuleVersions) \
  X(987, m_ToolVersion_Combination, kU8, kModuleVersions) \
  X(988, compatibilityEmpty_m_ToolVersion_PMatch, kU8, kModuleVersions) \
  X(989, m_ToolVersion_Color, kU8, kModuleVersions) \
  X(990, m_ToolVersion_CodeReader, kU8, kModuleVersions) \
  X(991, m_ToolVersion_OCR, kU8, kModuleVersions) \
  X(992, m_ToolVersion_RayTool, kU8, kModuleVersions) \
  X(993, m_ToolVersion_RoundnessTool, kU8, kModuleVersions) \
  X(994, m_ToolVersion_CoordTrans, kU8, kModuleVersions) \
  X(995, m_ToolVersion_ImageCompare, kU8, kModuleVersions) \
  X(996, m_ToolVersion_Bar_CodeReader, kU8, kModuleVersions) \
  X(997, m_ToolVersion_DataAccess, kU8, kModuleVersions) \
  X(998, m_ToolVersion_CTool_V2, kU8, kModuleVersions) \
  X(999, m_ToolVersion_IOAccess, kU8, kModuleVersions) \
  X(1000, m_ToolVersion_BlobTool_V2, kU8, kModuleVersions) \
  X(1001, m_ToolVersion_PMatch_V2, kU8, kModuleVersions) \
  X(1002, m_ToolVersion_OCV, kU8, kModuleVersions) \
  X(1003, m_ToolVersion_BlobTool_V3, kU8, kModuleVersions) \
  X(1004, m_ToolVersion_Text, kU8, kModuleVersions) \
  X(1005, m_ToolVersion_Halcon_Script, kU8, kModuleVersions) \
  X(1006, m_ToolVersion_AI_Execute_Network, kU8, kModuleVersions) \
  X(1007, m_ToolVersion_Empty3, kU8, kModuleVersions) \
  X(1008, m_ToolVersion_Empty4, kU8, kModuleVersions) \
  X(1009, m_ToolVersion_Empty5, kU8, kModuleVersions) \
  X(1010, m_ToolVersion_Empty6, kU8, kModuleVersions) \
  X(1011, m_ToolVersion_Empty7, kU8, kModuleVersions) \
  X(1012, m_ToolVersion_Empty8, kU8, kModuleVersions) \
  X(1013, m_ToolVersion_TOOL_OEM1, kU8, kModuleVersions) \
  X(1014, m_ToolVersion_TOOL_OEM2, kU8, kModuleVersions) \
  X(1015, m_ToolVersion_TOOL_OEM3, kU8, kModuleVersions) \
  X(1016, m_ToolVersion_TOOL_OEM4, kU8, kModuleVersions) \
  X(1017, m_ToolVersion_TOOL_IMG_OEM1, kU8, kModuleVersions) \
  X(1018, m_ToolVersion_TOOL_IMG_OEM2, kU8, kModuleVersions) \
  X(1019, m_DDIOVersion_PartDetector, kU8, kModuleVersions) \
  X(1020, m_DDIOVersion_EtherNetIP, kU8, kModuleVersions) \
  X(1021, m_DDIOVersion_DataCollection, kU8, kModuleVersions) \
  X(1022, m_DDIOVersion_XML, kU8, kModuleVersions) \
  X(1023, m_DDIOVersion_WebViewer, kU8, kModuleVersions) \
  X(1024, m_DDIOVersion_CSTViewer, kU8, kModuleVersions) \
  X(1025, m_DDIOVersion_DigitalInputs, kU8, kModuleVersions) \
  X(1026, m_DDIOVersion_DigitalOutputs, kU8, kModuleVersions) \
  X(1027, m_DDIOVersion_ResultFlagword, kU8, kModuleVersions) \
  X(1028, m_DDIOVersion_Profinet, kU8, kModuleVersions) \
  X(1029, m_DDIOVersion_ResultOutput, kU8, kModuleVersions) \
  X(1030, m_DDIOVersion_Empty3, kU8, kModuleVersions) \
  X(1031, m_DDIOVersion_Empty4, kU8, kModuleVersions) \
  X(1032, m_DDIOVersion_Empty5, kU8, kModuleVersions) \
  X(1033, m_DDIOVersion_Empty6, kU8, kModuleVersions) \
  X(1034, m_DDIOVersion_Empty7, kU8, kModuleVersions) \
  X(1035, m_DDIOVersion_Empty8, kU8, kModuleVersions) \
  X(1036, m_MAC_ETH0_Configuration, kRawBytes, kNetwork) \
  X(1042, m_MAC_ETH1, kRawBytes, kNetwork) \
  X(1048, m_MAC_ETH2, kRawBytes, kNetwork) \
  X(1054, m_MAC_ETH3, kRawBytes, kNetwork) \
  X(1060, m_qtvVersionRequired, kU64, kNetwork) \
  X(1068, m_qtvVersionRecommended, kU64, kNetwork) \
  X(1076, filler, kRawBytes, kReserved)

#define NK_DEVICE_INFO_FIELD_DESCRIPTOR(offset, member, kind, group)                      \
  DeviceInfoField{#member, offset, static_cast<std::uint16_t>(sizeof(DeviceInfoData::member)), \
                  DeviceFieldKind::kind, DeviceFieldGroup::group},

inline constexpr DeviceInfoField kDeviceInfoFields[] = {
    NK_DEVICE_INFO_FIELDS(NK_DEVICE_INFO_FIELD_DESCRIPTOR)};

#undef NK_DEVICE_INFO_FIELD_DESCRIPTOR

// Every member lies at its stated offset, in this build and in the 32-bit
// Windows build alike: the block is exchanged raw with the device.
#define NK_DEVICE_INFO_FIELD_OFFSET_CHECK(offset, member, kind, group) \
  static_assert(offsetof(DeviceInfoData, member) == (offset), #member " has moved");
NK_DEVICE_INFO_FIELDS(NK_DEVICE_INFO_FIELD_OFFSET_CHECK)
#undef NK_DEVICE_INFO_FIELD_OFFSET_CHECK

namespace internal {

constexpr std::uint16_t KindWidth(DeviceFieldKind kind, std::uint16_t array_width) {
  switch (kind) {
    case DeviceFieldKind::kU8: return 1;
    case DeviceFieldKind::kU16:
    case DeviceFieldKind::kI16: return 2;
    case DeviceFieldKind::kU64: return 8;
    default: return array_width;
  }
}

// The table covers the block without gap or overlap, and each field's kind
// agrees with its member's width.
constexpr bool TableCoversBlock() {
  std::uint32_t next = 0;
  for (const DeviceInfoField& field : kDeviceInfoFields) {
    if (field.offset != next || field.width != KindWidth(field.kind, field.width)) return false;
    next += field.width;
  }
  return next == kDeviceInfoBlockSize;
}

}  // namespace internal

static_assert(internal::TableCoversBlock(), "the field table must tile the block");
static_assert(offsetof(DeviceInfoData, m_BehindBlock) == kDeviceInfoBlockSize);

}  // namespace nk

#endif  // NKFOUNDATION_DEVICE_DEVICE_INFO_FIELDS_H_
