#include "field_views.h"

#include <charconv>
#include <cstdint>
#include <string>

#include "nkfoundation/device/project_properties.h"

namespace nkf::tools {
namespace {

std::string Flag(bool value) { return value ? "true" : "false"; }

// The shortest text that reads back exactly.
std::string Number(double value) {
  char text[32];
  return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

}  // namespace

std::optional<nk::ObjectDescription> DescribeProjectProperties(OByteStream& frame) {
  OType_ProjectProperties p;
  if (!p.GetObjectData(frame, true)) return std::nullopt;
  return nk::ObjectDescription{
      {
          {"m_bProject_SaveFile_IncludeOldFormat", Flag(p.m_bProject_SaveFile_IncludeOldFormat)},
          {"m_bProject_Use_MultiPartSets", Flag(p.m_bProject_Use_MultiPartSets)},
          {"m_bProject_Use_Orientations", Flag(p.m_bProject_Use_Orientations)},
          {"m_bProject_Use_ManualOrientations", Flag(p.m_bProject_Use_ManualOrientations)},
          {"m_bProject_Use_SortTypes", Flag(p.m_bProject_Use_SortTypes)},
          {"m_bProject_Use_ManualTypes", Flag(p.m_bProject_Use_ManualTypes)},
          {"m_bProject_Use_Quality", Flag(p.m_bProject_Use_Quality)},
          {"m_bProject_Use_Alternative_Value", Flag(p.m_bProject_Use_Alternative_Value)},
          {"m_bProject_Use_NewToolsOnCameraImage", Flag(p.m_bProject_Use_NewToolsOnCameraImage)},
          {"m_bUpdate_ProjectDescription", Flag(p.m_bUpdate_ProjectDescription)},
          {"m_dCaliper_ImageScaling_x", Number(p.m_dCaliper_ImageScaling_x)},
          {"m_dCaliper_ImageScaling_y", Number(p.m_dCaliper_ImageScaling_y)},
          {"m_dCaliper_World_ZPos", Number(p.m_dCaliper_World_ZPos)},
      },
      static_cast<std::uint64_t>(p.m_oUserData.GetCount())};
}

}  // namespace nkf::tools
