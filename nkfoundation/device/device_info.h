// OType_DeviceInfo: what the PC knows about one connected vision device, and
// OType_DeviceInfoArray, the serializable list of such records.
//
// The record is a plain packed value, not a polymorphic object: its fields
// lie in one 1-byte-aligned block of 1228 bytes in exactly their wire order,
// so the block can be handed out raw (bpGetDeviceInfoDataPtr) and travels as
// one piece. Its operations carry the object protocol's names without
// virtual dispatch.
#ifndef NKFOUNDATION_DEVICE_DEVICE_INFO_H_
#define NKFOUNDATION_DEVICE_DEVICE_INFO_H_

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "nkfoundation/core/byte_stream.h"
#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/object_array.h"
#include "nkfoundation/core/object_ids.h"

namespace nk {

// Size of the field block, and of the record's raw view that callers of
// bpGetDeviceInfoDataPtr may address (the block plus the bytes the record
// reserves behind it).
inline constexpr std::uint32_t kDeviceInfoBlockSize = 1228;
inline constexpr std::uint32_t kDeviceInfoDataSize = 1256;

// The record's raw storage: the field block at offset 0, every member at its
// wire offset minus 8, then reserved bytes so that every offset the raw
// accessor accepts (0 to 1256 inclusive) addresses memory of the record.
// Multi-byte members hold little-endian values on the wire; in memory they
// are host values. Members named compatibilityEmpty... are retired; members
// ending in Empty and a number are spare slots of their group.
#pragma pack(push, 1)
struct DeviceInfoData {
  // Identity and versions.
  std::uint8_t m_MACAddress_EUI_64BitExtension[2];
  std::uint8_t m_MACAddress[6];
  std::uint16_t m_FirmwareVersion_0;
  std::uint16_t m_FirmwareVersion_1;
  std::uint16_t m_FirmwareVersion_2;
  std::uint16_t m_FirmwareVersion_3;
  std::uint16_t m_nkKernelCommunicationVersion;
  std::uint8_t m_ProductionCode[128];
  std::uint16_t m_Hardware_CPU_ID;
  std::uint16_t m_Hardware_IntegratedSensor_ID;
  std::uint16_t compatibilityEmptyP1;
  std::uint16_t m_ProductType_Group_ID;
  std::uint16_t compatibilityEmpty_OnceRequiredQTV_VersionID;
  std::uint16_t m_RS485_Support_Encoder;
  std::uint8_t m_ProductType_NOCCode[32];
  std::uint8_t m_DeviceInfoText[128];
  std::uint8_t m_DeviceCommentText[368];

  // Limits and hardware.
  std::uint8_t m_SysKonfSupportsHelpIDs;
  std::uint8_t compatibilityEmptyV1;
  std::uint16_t m_Hardware_IntegratedLineSensor_Length;
  std::int16_t m_MaxNumContourCoords;
  std::uint16_t m_MaxNumFeatures;  // 0xFFFF: not reported, shown as unlimited
  std::uint16_t m_MaxNumOrientations;
  std::uint16_t m_MaxNumJobs;
  std::uint16_t m_MaxNumSortTypes;
  std::uint16_t m_MaxNumCameras;
  std::uint16_t m_Hardware_IntegratedGPIO_Inputs;
  std::uint16_t m_Hardware_IntegratedGPIO_Outputs;
  std::uint16_t m_Hardware_TransportSystemSize;
  std::uint16_t m_Hardware_IntegratedPartFlowActuators;
  std::uint16_t m_Language;
  std::uint16_t m_SerializationVersion;
  std::uint16_t m_FPGAVersion;
  std::uint16_t m_Hardware_IntegratedUSB_NumPorts;
  std::uint16_t m_Hardware_IntegratedUSB_Type;
  std::uint8_t m_Hardware_IntegratedUSB_Empty1;
  std::uint8_t m_Hardware_IntegratedUSB_Empty2;
  std::uint8_t m_Hardware_IntegratedUSB_Empty3;
  std::uint8_t m_Hardware_IntegratedUSB_Empty4;
  std::uint16_t m_Hardware_IntegratedETH_NumPorts;
  std::uint16_t m_Hardware_IntegratedETH_Type;
  std::uint8_t m_Hardware_IntegratedETH_Empty1;
  std::uint8_t m_Hardware_IntegratedETH_Empty2;
  std::uint8_t m_Hardware_IntegratedETH_Empty3;
  std::uint8_t m_Hardware_IntegratedETH_Empty4;
  std::uint8_t m_Hardware_IntegratedETH_Empty5;
  std::uint8_t m_Hardware_IntegratedETH_Empty6;
  std::uint8_t m_Hardware_IntegratedConfigurableStateLED_NumLEDs;
  std::uint8_t m_Hardware_IntegratedConfigurableStateLED_Type;
  std::uint16_t m_Hardware_IntegratedSdCardSlots_NumSlots;
  std::uint16_t compatibilityEmptyC1;
  std::uint16_t compatibilityEmptyC2;
  std::uint16_t compatibilityEmptyC3;
  std::uint16_t compatibilityEmptyC4;
  std::uint16_t compatibilityEmpty_OnceSensorWidth;
  std::uint16_t compatibilityEmpty_OnceSensorHeight;
  std::uint8_t compatibilityEmpty_OnceSensorBitsPerPixel;
  std::uint8_t m_Hardware_IntegratedLighting_ID;

  // Supported fieldbus and Ethernet protocols (non-zero = supported).
  std::uint8_t m_CAN_Support_CPI_Master;
  std::uint8_t m_CAN_Support_CPI_Slave;
  std::uint8_t m_CAN_Support_CANopen_Master;
  std::uint8_t m_CAN_Support_CANopen_Slave;
  std::uint8_t m_ETH_Support_Modbus;
  std::uint8_t m_ETH_Support_EtherNetIP;
  std::uint8_t m_ETH_Support_Profinet;
  std::uint8_t m_ETH_Support_EtherCat;
  std::uint8_t m_ETH_Support_Empty1;
  std::uint8_t m_ETH_Support_Empty2;
  std::uint8_t m_ETH_Support_Empty3;

  // Kept verbatim; no meaning on this side yet.
  std::uint8_t m_ReservedBlock[192];

  // Module versions: 0 = not on the device, otherwise its version.
  std::uint8_t m_RuntimeSystem_VersionID;
  std::uint8_t m_RuntimeSystem_TypeID;
  std::uint8_t m_IntegratedSensor_ImagePreProcessingVersion;
  std::uint8_t m_CameraVersion_IDS_USB;
  std::uint8_t m_CameraVersion_IDS_ETH;
  std::uint8_t m_CameraVersion_Sentech;
  std::uint8_t m_CameraVersion_GigEVision;
  std::uint8_t m_CameraVersion_Empty1;
  std::uint8_t m_CameraVersion_Empty2;
  std::uint8_t m_CameraVersion_Empty3;
  std::uint8_t m_CameraVersion_Empty4;
  std::uint8_t m_CameraVersion_Empty5;
  std::uint8_t m_CameraVersion_Empty6;
  std::uint8_t m_CameraVersion_Empty7;
  std::uint8_t m_CameraVersion_Empty8;
  std::uint8_t m_ToolVersion_IMG_MORPH;
  std::uint8_t m_ToolVersion_IMG_FILTER;
  std::uint8_t m_ToolVersion_IMG_ADJUST;
  std::uint8_t m_ToolVersion_IMG_COMBINATION;
  std::uint8_t m_ToolVersion_IMG_TEMPLATE;
  std::uint8_t m_ToolVersion_IMG_Empty1;
  std::uint8_t m_ToolVersion_IMG_Empty2;
  std::uint8_t m_ToolVersion_IMG_Empty3;
  std::uint8_t m_ToolVersion_IMG_Empty4;
  std::uint8_t m_ToolVersion_IMG_Empty5;
  std::uint8_t m_ToolVersion_IMG_Empty6;
  std::uint8_t m_ToolVersion_IMG_Empty7;
  std::uint8_t m_ToolVersion_IMG_Empty8;
  std::uint8_t m_ToolVersion_ROI;
  std::uint8_t m_ToolVersion_CTool;
  std::uint8_t m_ToolVersion_Measure;
  std::uint8_t m_ToolVersion_BlobTool;
  std::uint8_t m_ToolVersion_Combination;
  // Retired: always written as 0, skipped on reading, never initialised.
  std::uint8_t compatibilityEmpty_m_ToolVersion_PMatch;
  std::uint8_t m_ToolVersion_Color;
  std::uint8_t m_ToolVersion_CodeReader;
  std::uint8_t m_ToolVersion_OCR;
  std::uint8_t m_ToolVersion_RayTool;
  std::uint8_t m_ToolVersion_RoundnessTool;
  std::uint8_t m_ToolVersion_CoordTrans;
  std::uint8_t m_ToolVersion_ImageCompare;
  std::uint8_t m_ToolVersion_Bar_CodeReader;
  std::uint8_t m_ToolVersion_DataAccess;
  std::uint8_t m_ToolVersion_CTool_V2;
  std::uint8_t m_ToolVersion_IOAccess;
  std::uint8_t m_ToolVersion_BlobTool_V2;
  std::uint8_t m_ToolVersion_PMatch_V2;  // not initialised, like the retired byte
  std::uint8_t m_ToolVersion_OCV;
  std::uint8_t m_ToolVersion_BlobTool_V3;
  std::uint8_t m_ToolVersion_Text;
  std::uint8_t m_ToolVersion_Halcon_Script;
  std::uint8_t m_ToolVersion_AI_Execute_Network;
  std::uint8_t m_ToolVersion_Empty3;
  std::uint8_t m_ToolVersion_Empty4;
  std::uint8_t m_ToolVersion_Empty5;
  std::uint8_t m_ToolVersion_Empty6;
  std::uint8_t m_ToolVersion_Empty7;
  std::uint8_t m_ToolVersion_Empty8;
  std::uint8_t m_ToolVersion_TOOL_OEM1;
  std::uint8_t m_ToolVersion_TOOL_OEM2;
  std::uint8_t m_ToolVersion_TOOL_OEM3;
  std::uint8_t m_ToolVersion_TOOL_OEM4;
  std::uint8_t m_ToolVersion_TOOL_IMG_OEM1;
  std::uint8_t m_ToolVersion_TOOL_IMG_OEM2;
  std::uint8_t m_DDIOVersion_PartDetector;
  std::uint8_t m_DDIOVersion_EtherNetIP;
  std::uint8_t m_DDIOVersion_DataCollection;
  std::uint8_t m_DDIOVersion_XML;
  std::uint8_t m_DDIOVersion_WebViewer;
  std::uint8_t m_DDIOVersion_CSTViewer;
  std::uint8_t m_DDIOVersion_DigitalInputs;
  std::uint8_t m_DDIOVersion_DigitalOutputs;
  std::uint8_t m_DDIOVersion_ResultFlagword;
  std::uint8_t m_DDIOVersion_Profinet;
  std::uint8_t m_DDIOVersion_ResultOutput;
  std::uint8_t m_DDIOVersion_Empty3;
  std::uint8_t m_DDIOVersion_Empty4;
  std::uint8_t m_DDIOVersion_Empty5;
  std::uint8_t m_DDIOVersion_Empty6;
  std::uint8_t m_DDIOVersion_Empty7;
  std::uint8_t m_DDIOVersion_Empty8;

  // Further network identity and PC-software versions.
  std::uint8_t m_MAC_ETH0_Configuration[6];
  std::uint8_t m_MAC_ETH1[6];
  std::uint8_t m_MAC_ETH2[6];
  std::uint8_t m_MAC_ETH3[6];
  std::uint64_t m_qtvVersionRequired;
  std::uint64_t m_qtvVersionRecommended;
  std::uint8_t filler[152];

  // Not part of the block: room behind it for the raw accessor's range.
  std::uint8_t m_BehindBlock[kDeviceInfoDataSize - kDeviceInfoBlockSize + 1];
};
#pragma pack(pop)

}  // namespace nk

class NKF_API OType_DeviceInfo : public nk::DeviceInfoData {
 public:
  // Zero-filled, then InitializeMembers.
  OType_DeviceInfo();

  // --- Object protocol (no virtual dispatch) -------------------------------

  // Sets every field to its default. The flag is accepted and ignored. The
  // retired tool byte (block offset 988) and m_ToolVersion_PMatch_V2 keep
  // their values, and the tail is not touched.
  void InitializeMembers(bool bInitialize = true);
  unsigned int GetObjectID() const { return nk::object_id::kDeviceInfo; }
  // 1236 plus the tail.
  std::uint64_t GetObjectSize() const;
  bool AddObjectData(OByteStream& stream) const;
  // Any payload of 12 bytes or more is read as if it held the whole block;
  // bytes behind the block become the tail.
  bool GetObjectData(OByteStream& stream, bool bInitialize);
  // Copies the whole block (retired bytes and filler included) and the tail.
  void CopyTo(OType_DeviceInfo* target) const;
  // A new copy owned by the caller; null when memory is exhausted.
  OType_DeviceInfo* opCreateCopy() const;

  // --- Raw access -----------------------------------------------------------

  // Byte `offset` of the field block; null above GetDeviceInfoDataSize().
  unsigned char* bpGetDeviceInfoDataPtr(unsigned int offset = 0);
  static unsigned int GetDeviceInfoDataSize() { return nk::kDeviceInfoDataSize; }

  // --- Texts and addresses --------------------------------------------------

  // UTF-8 up to the first NUL, which may lie in a following field but never
  // beyond the block. Bytes that are not strict UTF-8 are shown one by one,
  // every byte above 127 as "?".
  std::u16string GetProductionCode() const;
  std::u16string GetDeviceInfoText() const;
  std::u16string GetDeviceCommentText() const;
  std::u16string GetProductType_NOCCode() const;
  // Stores the code as UTF-8 with its NUL, cut to 32 bytes (then without NUL).
  void SetProductType_NOCCode(std::u16string code);

  // "00:0E:F0:12:34:56": m_MACAddress in upper-case hexadecimal.
  std::u16string GetMacAddress() const;
  // m_MAC_ETH0_Configuration read as up to 6 characters, not as hexadecimal.
  std::u16string GetMacOfEth0() const;
  bool SetConfigMACAddress(char* mac);

  // --- Identity and capabilities --------------------------------------------

  // The hardware type of a designation: 8192 (VRKB), 4096 (VRKA), 16 (Tarn
  // net) or -1. Case-sensitive substring tests.
  static int ParseDeviceType(std::u16string designation);
  static std::u16string oGetHWString(int hardwareType);
  static std::u16string oGetSWString(int firmwareId);
  static bool DeviceIsGeneration1OrLater(int hardwareType, int firmwareId);
  // No second generation exists yet: always false.
  static bool DeviceIsGeneration2(int hardwareType, int firmwareId);
  static bool DeviceIsPXD_N_Type(int hardwareType);
  static bool DeviceSupportsCounting(int hardwareType);
  static bool DeviceIsVRKAType(int hardwareType);
  static bool DeviceIsVRKBType(int hardwareType);
  static int iDeviceSupportsLineImage(int hardwareType);
  // -1: unlimited features; 0: the hardware type fixes no number.
  static int iGetNum_Features(int hardwareType, int firmwareId);
  // A copy of the firmware IDs supported on a hardware type (empty when the
  // type is unknown); null only when memory is exhausted.
  static std::unique_ptr<WritableCollection<unsigned int>> GetSupportedFirmwareVersions(
      unsigned int hardwareType);
  static bool IsSupportedHwFw(unsigned int hardwareType, unsigned int firmwareId);

  // "1.1.0.23": the four components as signed decimal numbers.
  std::string GetFirmwareVersion() const;
  // First component x 256 + second x 10, both signed 16-bit.
  int GetFirmwareVersionID() const;
  // Four parts split at ".", each parsed with automatic base (so "08" reads
  // 0 and "010" reads 8), truncated to 16 bits. Always true.
  bool SetFirmwareVersion(std::u16string text);

  // Product groups (m_ProductType_Group_ID), compared as whole values.
  bool bIsVRKAProductType() const;
  bool bIsVRKBProductType() const;
  bool bIsVRXProductType() const;
  bool bIsVRKDProductType() const;
  bool bIsPXD_N_ProductType() const;
  bool bIsLQMM_Z_M1_NKTypeProductType() const;

  // Commands the device understands, by its communication version.
  bool SupportsCmdForceDrawConfigTools() const;
  bool SupportsCmdDeviceReboot() const;
  bool SupportsCmdJobStorage() const;

  // --- Localized information ------------------------------------------------

  // Appends the 66 label keys and value texts of the device information
  // list; false, appending nothing, when any pointer is null.
  static bool GetLocalizedInformation(std::shared_ptr<OType_DeviceInfo> info,
                                      std::shared_ptr<WritableCollection<std::u16string>> labels,
                                      std::shared_ptr<WritableCollection<std::u16string>> values);

  // Bytes that followed the block when the record was read; written back.
  WritableCollection<std::uint8_t> m_oUserData;

 private:
  // Hardware type -> supported firmware IDs; filled when the library loads.
  static const std::unordered_map<std::uint32_t, std::vector<unsigned int>> m_supportedFirmware;
};

static_assert(sizeof(nk::DeviceInfoData) == nk::kDeviceInfoDataSize + 1);

// The record travels as a whole frame even though it is not an AFactorable.
namespace nk {
template <>
struct FieldCodec<std::shared_ptr<OType_DeviceInfo>> {
  static std::uint64_t Size(const std::shared_ptr<OType_DeviceInfo>& info) {
    return info ? info->GetObjectSize() : OType_DeviceInfo().GetObjectSize();
  }
  static void Add(OByteStream& stream, const std::shared_ptr<OType_DeviceInfo>& info) {
    if (info) {
      info->AddObjectData(stream);
    } else {
      OType_DeviceInfo().AddObjectData(stream);
    }
  }
  static bool Get(OByteStream& stream, std::shared_ptr<OType_DeviceInfo>& info) {
    auto fresh = std::make_shared<OType_DeviceInfo>();
    if (!fresh->GetObjectData(stream, true)) return false;
    info = std::move(fresh);
    return true;
  }
};
}  // namespace nk

// Wire form: u32 count, each record's frame, the tail. The frame is built
// in a scratch stream and handed to the destination in one piece. Reading
// stops at the first record that does not read; the rest of the frame is
// kept as the tail and the read succeeds.
class NKF_API OType_DeviceInfoArray
    : public nk::ObjectArray<OType_DeviceInfoArray, std::shared_ptr<OType_DeviceInfo>> {
 public:
  static constexpr nk::FrameRules kFrame{.id = nk::object_id::kDeviceInfoArray,
                                         .min_payload = 8,
                                         .reports_bad_element = false};

  bool AddObjectData(OByteStream& stream) override;
  // Replaces the target's records with copies of these and its tail with
  // this one's.
  void CopyTo(OType_DeviceInfoArray* target) const;
};

#endif  // NKFOUNDATION_DEVICE_DEVICE_INFO_H_
