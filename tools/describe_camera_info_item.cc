#include "field_views.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "nkfoundation/core/text.h"
#include "nkfoundation/device/camera_info_item.h"

namespace nkf::tools {
namespace {

std::string Quoted(const std::u16string& text) { return "\"" + nk::ToUtf8(text) + "\""; }

std::string Flag(bool value) { return value ? "true" : "false"; }

// "0xFED0A000 (no type)": type identifiers are read as hex.
std::string CameraType(std::uint32_t type_id) {
  char hex[16];
  std::snprintf(hex, sizeof hex, "0x%08X", static_cast<unsigned>(type_id));
  return type_id == OType_Device_Camera_InfoItem::kNoCameraType ? std::string(hex) + " (no type)" : hex;
}

}  // namespace

std::optional<nk::ObjectDescription> DescribeCameraInfoItem(OByteStream& frame) {
  OType_Device_Camera_InfoItem item;
  if (!item.GetObjectData(frame, true)) return std::nullopt;
  std::vector<nk::FieldText> fields = {
      {"m_cameraTypeId", CameraType(item.m_cameraTypeId)},
      {"m_manufacturerID", std::to_string(item.m_manufacturerID)},
      {"m_manufacturerName", Quoted(item.m_manufacturerName)},
      {"m_manufacturerCameraSerialNumber", Quoted(item.m_manufacturerCameraSerialNumber)},
      {"m_manufacturerCameraName", Quoted(item.m_manufacturerCameraName)},
      {"m_cameraInterfaceType", std::to_string(item.m_cameraInterfaceType)},
      {"m_cameraInterfaceVersion", Quoted(item.m_cameraInterfaceVersion)},
      {"m_cameraConnectionAddress_UseStr", Flag(item.m_cameraConnectionAddress_UseStr)},
      {"m_cameraConnectionAddressID", std::to_string(item.m_cameraConnectionAddressID)},
      {"m_cameraConnectionAddressStr", Quoted(item.m_cameraConnectionAddressStr)},
      {"m_cameraUserAssignedIdentification_UseStr", Flag(item.m_cameraUserAssignedIdentification_UseStr)},
      {"m_cameraUserAssignedIdentificationID", std::to_string(item.m_cameraUserAssignedIdentificationID)},
      {"m_cameraUserAssignedIdentificationStr", Quoted(item.m_cameraUserAssignedIdentificationStr)},
      {"m_cameraUserAssignedComment", Quoted(item.m_cameraUserAssignedComment)},
  };
  AddNested("m_cameraImage", item.m_cameraImage, fields);
  return nk::ObjectDescription{std::move(fields), static_cast<std::uint64_t>(item.m_oUserData.GetCount())};
}

}  // namespace nkf::tools
