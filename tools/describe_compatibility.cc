#include "field_views.h"

#include <cstdint>
#include <string>

#include "nkfoundation/core/text.h"
#include "nkfoundation/device/compatibility.h"
#include "nkfoundation/device/device_diagnostic.h"

namespace nkf::tools {
namespace {

// "1.-1.0.0", with a note when the bound takes no part in the check.
std::string Bound(const std::int32_t (&version)[4], bool set) {
  std::string text;
  for (int i = 0; i < 4; ++i) text += (i ? "." : "") + std::to_string(version[i]);
  return set ? text : text + " (not set)";
}

// "1.0.18159.0": four 16-bit components from the most significant word down.
std::string CreatingVersion(std::uint64_t version) {
  std::string text;
  for (int shift = 48; shift >= 0; shift -= 16) {
    text += (shift < 48 ? "." : "") + std::to_string((version >> shift) & 0xFFFF);
  }
  return text;
}

}  // namespace

std::optional<nk::ObjectDescription> DescribeCompatibility(OByteStream& frame) {
  OType_Compatibility compatibility;
  if (!compatibility.GetObjectData(frame, true)) return std::nullopt;
  return nk::ObjectDescription{
      {
          {"minimum", Bound(compatibility.m_iaMinimumCompatibilityFirmwareVersion, compatibility.bHasMinimum())},
          {"maximum", Bound(compatibility.m_iaMaximumCompatibilityFirmwareVersion, compatibility.bHasMaximum())},
          {"created with", CreatingVersion(compatibility.m_qtvVersionCreatedWith)},
      },
      static_cast<std::uint64_t>(compatibility.m_oUserData.GetCount())};
}

std::optional<nk::ObjectDescription> DescribeDeviceDiagnostic(OByteStream& frame) {
  OType_DeviceDiagnostic diagnostic;
  if (!diagnostic.GetObjectData(frame, true)) return std::nullopt;
  const auto load = [](std::uint8_t value) { return std::to_string(value); };
  return nk::ObjectDescription{
      {
          {"m_usiDiagnosticCategoryID", std::to_string(diagnostic.m_usiDiagnosticCategoryID)},
          {"m_usiDiagnosticData_ID", std::to_string(diagnostic.m_usiDiagnosticData_ID)},
          {"m_oDiagnosticData_Text", "\"" + nk::ToUtf8(diagnostic.m_oDiagnosticData_Text) + "\""},
          {"m_uiSystemDiagnosticData_FreeMemory", std::to_string(diagnostic.m_uiSystemDiagnosticData_FreeMemory)},
          {"CPU loads", load(diagnostic.m_ucSystemDiagnosticData_CPULoad_1) + " " +
                            load(diagnostic.m_ucSystemDiagnosticData_CPULoad_2) + " " +
                            load(diagnostic.m_ucSystemDiagnosticData_CPULoad_3) + " " +
                            load(diagnostic.m_ucSystemDiagnosticData_CPULoad_4)},
      },
      static_cast<std::uint64_t>(diagnostic.m_oUserData.GetCount())};
}

}  // namespace nkf::tools
