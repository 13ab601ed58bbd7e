#include <cstdio>
#include <cstring>
#include <string>

#include "field_views.h"
#include "nkfoundation/core/text.h"
#include "nkfoundation/device/device_info.h"
#include "nkfoundation/device/device_info_fields.h"

namespace nkf::tools {
namespace {

using nk::DeviceFieldGroup;
using nk::DeviceFieldKind;
using nk::DeviceInfoField;

std::string Quoted(const std::u16string& text) { return "\"" + nk::ToUtf8(text) + "\""; }

// Retired fields and spare slots carry nothing a person looks for.
bool IsUnused(const DeviceInfoField& field) {
  return field.name.starts_with("compatibilityEmpty") || field.name.find("Empty") != std::string_view::npos;
}

std::string ValueText(OType_DeviceInfo& info, const DeviceInfoField& field) {
  const std::uint8_t* at = info.bpGetDeviceInfoDataPtr(field.offset);
  switch (field.kind) {
    case DeviceFieldKind::kU16: {
      std::uint16_t value;
      std::memcpy(&value, at, sizeof(value));
      return std::to_string(value);
    }
    case DeviceFieldKind::kI16: {
      std::int16_t value;
      std::memcpy(&value, at, sizeof(value));
      return std::to_string(value);
    }
    default:
      return std::to_string(*at);
  }
}

}  // namespace

std::optional<nk::ObjectDescription> DescribeDeviceInfo(OByteStream& frame) {
  OType_DeviceInfo info;
  if (!info.GetObjectData(frame, true)) return std::nullopt;

  char group[8];
  std::snprintf(group, sizeof(group), "0x%04X", info.m_ProductType_Group_ID);
  std::vector<nk::FieldText> fields = {
      {"mac", nk::ToUtf8(info.GetMacAddress())},
      {"production_code", Quoted(info.GetProductionCode())},
      {"order_code", Quoted(info.GetProductType_NOCCode())},
      {"info_text", Quoted(info.GetDeviceInfoText())},
      {"product_group", group},
      {"firmware", info.GetFirmwareVersion() + " (" + nk::ToUtf8(OType_DeviceInfo::oGetSWString(
                                                          info.GetFirmwareVersionID())) + ")"},
      {"kernel_communication", std::to_string(info.m_nkKernelCommunicationVersion)},
      {"pc_software_required", std::to_string(info.m_qtvVersionRequired)},
      {"pc_software_recommended", std::to_string(info.m_qtvVersionRecommended)},
  };
  // Limits and hardware in full; protocols and module versions only where
  // the device has them.
  for (const DeviceInfoField& field : nk::kDeviceInfoFields) {
    if (IsUnused(field)) continue;
    const bool listed = field.group == DeviceFieldGroup::kLimits;
    const bool present = (field.group == DeviceFieldGroup::kProtocols ||
                          field.group == DeviceFieldGroup::kModuleVersions) &&
                         *info.bpGetDeviceInfoDataPtr(field.offset) != 0;
    if (listed || present) fields.push_back({std::string(field.name), ValueText(info, field)});
  }
  return nk::ObjectDescription{std::move(fields), static_cast<std::uint64_t>(info.m_oUserData.GetCount())};
}

}  // namespace nkf::tools
