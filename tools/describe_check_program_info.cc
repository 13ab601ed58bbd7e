#include "field_views.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "describers.h"
#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/core/text.h"
#include "nkfoundation/device/check_program_info.h"
#include "nkfoundation/device/part_set_protection.h"

namespace nkf::tools {
void AddNested(const std::string& name, AFactorable& member, std::vector<nk::FieldText>& fields) {
  OByteStream_Memory frame;
  member.AddObjectData(frame);
  const std::optional<nk::ObjectDescription> view = DescribeObject(member.GetObjectID(), frame);
  if (!view) {
    fields.push_back({name, std::to_string(member.GetObjectSize()) + "-byte frame"});
    return;
  }
  for (const nk::FieldText& field : view->fields) fields.push_back({name + "." + field.name, field.value});
}

namespace {

std::string Quoted(const std::u16string& text) { return "\"" + nk::ToUtf8(text) + "\""; }

}  // namespace

std::optional<nk::ObjectDescription> DescribePartSetProtection(OByteStream& frame) {
  OType_PartSet_Protection protection;
  if (!protection.GetObjectData(frame, true)) return std::nullopt;
  return nk::ObjectDescription{{{"m_oProtectionData", ByteSummary(protection.m_oProtectionData)}},
                               static_cast<std::uint64_t>(protection.m_oUserData.GetCount())};
}

std::optional<nk::ObjectDescription> DescribeCheckProgramInfoItem(OByteStream& frame) {
  OType_CheckProgramInfoItem item;
  if (!item.GetObjectData(frame, true)) return std::nullopt;
  std::vector<nk::FieldText> fields = {
      {"m_partSet_Size", std::to_string(item.m_partSet_Size)},
      {"m_oStrPartSet_Name", Quoted(item.m_oStrPartSet_Name)},
      {"m_oStrPartSet_Comment", Quoted(item.m_oStrPartSet_Comment)},
  };
  AddNested("m_oPartSet_Image", item.m_oPartSet_Image, fields);
  AddNested("m_oCreation_TimeDate", item.m_oCreation_TimeDate, fields);
  AddNested("m_oCompatibilityFirmwareVersion", item.m_oCompatibilityFirmwareVersion, fields);
  AddNested("m_oPartSet_Protection", item.m_oPartSet_Protection, fields);
  fields.push_back({"m_isActivePartSet", item.m_isActivePartSet ? "true" : "false"});
  return nk::ObjectDescription{std::move(fields), static_cast<std::uint64_t>(item.m_oUserData.GetCount())};
}

}  // namespace nkf::tools
