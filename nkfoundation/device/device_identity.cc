// What kind of device a record or a type designation names, which firmware
// it pairs with, and which commands it understands.
#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

#include "nkfoundation/core/text.h"
#include "nkfoundation/device/device_info.h"

namespace {

// Hardware types produced by ParseDeviceType.
constexpr int kTarnNet = 16;
constexpr int kControllerWithVision = 768;
constexpr int kVrka = 4096;
constexpr int kVrkb = 8192;

// Firmware IDs (major x 256 + minor x 10).
constexpr int kFirmware10 = 256;
constexpr int kFirmware11 = 266;

bool Contains(std::u16string_view text, std::u16string_view part) {
  return text.find(part) != std::u16string_view::npos;
}

// The runtime's string-to-long with automatic base, as on the library's
// 32-bit home platform: a long of 32 bits, saturating on overflow.
long ParseAutomaticBase(const std::string& text) {
  const long long value = std::strtoll(text.c_str(), nullptr, 0);
  return static_cast<long>(std::clamp<long long>(value, INT32_MIN, INT32_MAX));
}

}  // namespace

const std::unordered_map<std::uint32_t, std::vector<unsigned int>>
    OType_DeviceInfo::m_supportedFirmware = {
        {kTarnNet, {}},
        {kControllerWithVision, {}},
        {kVrka, {kFirmware10, kFirmware11}},
        {kVrkb, {kFirmware11}},
};

int OType_DeviceInfo::ParseDeviceType(std::u16string designation) {
  // VRKB is tested first: a designation may mention both families.
  if (Contains(designation, u"VRKB-T")) return kVrkb;
  if (Contains(designation, u"VRKA-T")) return kVrka;
  const bool tarn = Contains(designation, u"Tarn") || Contains(designation, u"TARN") ||
                    Contains(designation, u"PXU-D-");
  const bool net = Contains(designation, u"Net") || Contains(designation, u"NET") ||
                   Contains(designation, u"PXU-D-N");
  return tarn && net ? kTarnNet : -1;
}

std::u16string OType_DeviceInfo::oGetHWString(int hardwareType) {
  switch (hardwareType) {
    case kTarnNet: return u"PXU-D-N (Tarn Net)";
    case kControllerWithVision: return u"LQMM-Z-..-NK";
    case kVrka: return u"VRKA-T-..";
    case kVrkb: return u"VRKB-T-..";
    default: return u"unknown";
  }
}

std::u16string OType_DeviceInfo::oGetSWString(int firmwareId) {
  switch (firmwareId) {
    case kFirmware10: return u"v1.0";
    case kFirmware11: return u"v1.1";
    default: return u"unknown";
  }
}

bool OType_DeviceInfo::DeviceIsGeneration1OrLater(int hardwareType, int /*firmwareId*/) {
  return hardwareType == kTarnNet || hardwareType == kVrkb || hardwareType == kVrka;
}

bool OType_DeviceInfo::DeviceIsGeneration2(int /*hardwareType*/, int /*firmwareId*/) {
  return false;
}

bool OType_DeviceInfo::DeviceIsPXD_N_Type(int hardwareType) { return hardwareType == kTarnNet; }
bool OType_DeviceInfo::DeviceSupportsCounting(int hardwareType) { return hardwareType == kTarnNet; }
bool OType_DeviceInfo::DeviceIsVRKAType(int hardwareType) { return hardwareType == kVrka; }
bool OType_DeviceInfo::DeviceIsVRKBType(int hardwareType) { return hardwareType == kVrkb; }

int OType_DeviceInfo::iDeviceSupportsLineImage(int hardwareType) {
  return hardwareType == kTarnNet ? 1 : 0;
}

int OType_DeviceInfo::iGetNum_Features(int hardwareType, int firmwareId) {
  const bool sensor = hardwareType == kVrka || hardwareType == kVrkb;
  const bool known_firmware = firmwareId == kFirmware10 || firmwareId == kFirmware11;
  return sensor && known_firmware ? -1 : 0;
}

std::unique_ptr<WritableCollection<unsigned int>> OType_DeviceInfo::GetSupportedFirmwareVersions(
    unsigned int hardwareType) {
  std::unique_ptr<WritableCollection<unsigned int>> versions(
      new (std::nothrow) WritableCollection<unsigned int>());
  if (!versions) return nullptr;
  const auto entry = m_supportedFirmware.find(hardwareType);
  if (entry != m_supportedFirmware.end()) {
    for (unsigned int id : entry->second) versions->Add(id);
  }
  return versions;
}

bool OType_DeviceInfo::IsSupportedHwFw(unsigned int hardwareType, unsigned int firmwareId) {
  const auto entry = m_supportedFirmware.find(hardwareType);
  if (entry == m_supportedFirmware.end()) return false;
  const std::vector<unsigned int>& ids = entry->second;
  return std::find(ids.begin(), ids.end(), firmwareId) != ids.end();
}

std::string OType_DeviceInfo::GetFirmwareVersion() const {
  const std::uint16_t parts[] = {m_FirmwareVersion_0, m_FirmwareVersion_1, m_FirmwareVersion_2,
                                 m_FirmwareVersion_3};
  std::string text;
  for (std::uint16_t part : parts) {
    if (!text.empty()) text += '.';
    text += std::to_string(static_cast<std::int16_t>(part));
  }
  return text;
}

int OType_DeviceInfo::GetFirmwareVersionID() const {
  return static_cast<std::int16_t>(m_FirmwareVersion_0) * 256 +
         static_cast<std::int16_t>(m_FirmwareVersion_1) * 10;
}

bool OType_DeviceInfo::SetFirmwareVersion(std::u16string text) {
  std::uint16_t* const components[] = {&m_FirmwareVersion_0, &m_FirmwareVersion_1,
                                       &m_FirmwareVersion_2, &m_FirmwareVersion_3};
  std::u16string_view rest = text;
  for (std::uint16_t* component : components) {
    const std::size_t dot = rest.find(u'.');
    const std::u16string_view part = rest.substr(0, dot);
    rest = dot == std::u16string_view::npos ? std::u16string_view() : rest.substr(dot + 1);
    // Automatic base is kept on purpose: "08" reads 0 and "010" reads 8,
    // as devices and project files have always been read.
    *component = static_cast<std::uint16_t>(ParseAutomaticBase(nk::ToUtf8(part)));
  }
  return true;
}

void OType_DeviceInfo::SetProductType_NOCCode(std::u16string code) {
  const std::string bytes = nk::ToUtf8(code);
  // With its NUL, cut to the field: a code of 32 bytes or more is stored
  // without a terminator.
  const std::size_t count = std::min(bytes.size() + 1, sizeof(m_ProductType_NOCCode));
  std::memcpy(m_ProductType_NOCCode, bytes.c_str(), count);
}

bool OType_DeviceInfo::bIsVRKAProductType() const { return m_ProductType_Group_ID == 0x1000; }
bool OType_DeviceInfo::bIsVRKBProductType() const { return m_ProductType_Group_ID == 0x2000; }

bool OType_DeviceInfo::bIsVRXProductType() const {
  return m_ProductType_Group_ID == 0x0201 || m_ProductType_Group_ID == 0x0202;
}

bool OType_DeviceInfo::bIsVRKDProductType() const {
  return m_ProductType_Group_ID == 0x0301 || m_ProductType_Group_ID == 0x0302;
}

bool OType_DeviceInfo::bIsPXD_N_ProductType() const {
  return m_ProductType_Group_ID == 0x0401 || m_ProductType_Group_ID == 0x0402;
}

bool OType_DeviceInfo::bIsLQMM_Z_M1_NKTypeProductType() const {
  return m_ProductType_Group_ID == 0x0501;
}

// The communication version and the slot count are signed on the device.
bool OType_DeviceInfo::SupportsCmdForceDrawConfigTools() const {
  return static_cast<std::int16_t>(m_nkKernelCommunicationVersion) >= 1;
}

bool OType_DeviceInfo::SupportsCmdDeviceReboot() const {
  return static_cast<std::int16_t>(m_nkKernelCommunicationVersion) >= 2;
}

bool OType_DeviceInfo::SupportsCmdJobStorage() const {
  return static_cast<std::int16_t>(m_Hardware_IntegratedSdCardSlots_NumSlots) > 0 &&
         static_cast<std::int16_t>(m_nkKernelCommunicationVersion) >= 2;
}
