#include "nkfoundation/device/project_properties.h"

#include <string_view>
#include <utility>

#include "nkfoundation/core/byte_stream.h"
#include "nkfoundation/services/application_profile.h"

namespace {

using Properties = OType_ProjectProperties;

// One field of the frame: a flag (travelling as i32) or a double.
struct WireField {
  bool Properties::*flag = nullptr;
  double Properties::*number = nullptr;
};

// Wire order, which differs from the declaration order; stored projects
// depend on it.
constexpr WireField kWireFields[] = {
    {&Properties::m_bProject_SaveFile_IncludeOldFormat},
    {&Properties::m_bProject_Use_MultiPartSets},
    {&Properties::m_bProject_Use_Orientations},
    {&Properties::m_bProject_Use_SortTypes},
    {&Properties::m_bProject_Use_ManualOrientations},
    {&Properties::m_bProject_Use_ManualTypes},
    {nullptr, &Properties::m_dCaliper_ImageScaling_x},
    {nullptr, &Properties::m_dCaliper_ImageScaling_y},
    {nullptr, &Properties::m_dCaliper_World_ZPos},
    {&Properties::m_bUpdate_ProjectDescription},
    {&Properties::m_bProject_Use_Quality},
    {&Properties::m_bProject_Use_Alternative_Value},
    {&Properties::m_bProject_Use_NewToolsOnCameraImage},
};

constexpr std::uint64_t WirePayloadSize() {
  std::uint64_t size = 0;
  for (const WireField& field : kWireFields) size += field.flag != nullptr ? 4 : 8;
  return size;
}
static_assert(WirePayloadSize() == Properties::kFrame.min_payload);

constexpr std::u16string_view kSection = u"Settings";

// One flag's entry in the host's profile.
struct ProfileEntry {
  std::u16string_view name;
  bool Properties::*flag;
  // Reading stores `value` under the entry instead of reading it, and the
  // flag becomes whether that store succeeded (so it is true even where the
  // value stored is 0).
  bool stored_on_read;
  // What reading passes: the default of the entry, or the value stored.
  int value;
  // The flag when the host's profile cannot be reached.
  bool fallback;
};

// Order of reading and writing.
constexpr ProfileEntry kProfileEntries[] = {
    {u"PROJECT_FILE_ADD_OLDFORMAT", &Properties::m_bProject_SaveFile_IncludeOldFormat, false, 0, false},
    {u"PROJECT_USE_MULTI_PARTSET", &Properties::m_bProject_Use_MultiPartSets, false, 1, true},
    {u"PROJECT_USE_ORIENTATION", &Properties::m_bProject_Use_Orientations, false, 0, false},
    {u"PROJECT_USE_TYPES", &Properties::m_bProject_Use_SortTypes, false, 0, false},
    {u"PROJECT_USE_MANUALORIENTATION", &Properties::m_bProject_Use_ManualOrientations, false, 0, false},
    {u"PROJECT_USE_MANUALTYPES", &Properties::m_bProject_Use_ManualTypes, false, 0, false},
    {u"PROJECT_USE_QUALITY", &Properties::m_bProject_Use_Quality, true, 1, true},
    {u"PROJECT_USE_ALTERNATIVE_VALUE", &Properties::m_bProject_Use_Alternative_Value, true, 0, true},
    {u"PROJECT_USE_NEWTOOLSONCAMERAIMAGE", &Properties::m_bProject_Use_NewToolsOnCameraImage, true, 0,
     false},
    {u"UPDATE_PROJECTDESCRIPTION", &Properties::m_bUpdate_ProjectDescription, false, 1, true},
};

}  // namespace

void OType_ProjectProperties::Default_ProjectProperties() {
  WritableCollection<std::uint8_t> tail = std::move(m_oUserData);
  *this = OType_ProjectProperties();
  m_oUserData = std::move(tail);
}

void OType_ProjectProperties::ReadRegistry_ProjectProperties() {
  AApplicationProfile* profile = profile::GetAvailableProfile();
  for (const ProfileEntry& entry : kProfileEntries) {
    bool& flag = this->*entry.flag;
    if (profile == nullptr) {
      flag = entry.fallback;
    } else if (entry.stored_on_read) {
      flag = profile->bWriteProfileInt(kSection, entry.name, entry.value);
    } else {
      flag = profile->iGetProfileInt(kSection, entry.name, entry.value) != 0;
    }
  }
}

void OType_ProjectProperties::WriteRegistry_ProjectProperties() const {
  AApplicationProfile* profile = profile::GetAvailableProfile();
  if (profile == nullptr) return;
  for (const ProfileEntry& entry : kProfileEntries) {
    profile->bWriteProfileInt(kSection, entry.name, this->*entry.flag ? 1 : 0);
  }
}

void OType_ProjectProperties::AddFields(OByteStream& stream) {
  for (const WireField& field : kWireFields) {
    if (field.flag != nullptr) {
      stream.AddInt32(this->*field.flag ? 1 : 0);
    } else {
      stream.AddDouble(this->*field.number);
    }
  }
}

nk::FieldsRead OType_ProjectProperties::GetFields(OByteStream& stream) {
  for (const WireField& field : kWireFields) {
    if (field.flag != nullptr) {
      this->*field.flag = stream.GetInt32() != 0;
    } else {
      this->*field.number = stream.GetDouble();
    }
  }
  return nk::FieldsRead::kComplete;
}

void OType_ProjectProperties::BeginGetFields(bool /*bInitialize*/) { Default_ProjectProperties(); }
