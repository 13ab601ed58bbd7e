#include "nkfoundation/core/serialization_settings.h"

#include <array>
#include <cstddef>

namespace {

using Settings = OType_ObjectSerializationSettings;

#define NK_SWITCH(member) Settings::Switch{#member, &Settings::member}

// Declaration order; the wire carries the last kTravelling of them.
constexpr std::array kSwitches = {
    NK_SWITCH(m_serialize_DeviceController_DeviceInfo),
    NK_SWITCH(m_serialize_DeviceController_PartSetArray),
    NK_SWITCH(m_serialize_DeviceController_SysConf),
    NK_SWITCH(m_serialize_DeviceController_GlobalDeviceParameters),
    NK_SWITCH(m_serialize_PartSet_LiveParts),
    NK_SWITCH(m_serialize_PartSet_TeachParts),
    NK_SWITCH(m_serialize_PartSet_TestParts),
    NK_SWITCH(m_serialize_PartSet_ProcessParts),
    NK_SWITCH(m_serialize_PartSet_AssignedCameras),
    NK_SWITCH(m_serialize_PartSet_DeviceMainParameters),
    NK_SWITCH(m_serialize_PartSet_DefRefFeatures),
    NK_SWITCH(m_serialize_PartSet_ConfigToolPosition_References),
    NK_SWITCH(m_serialize_PartSet_ConfigTools),
    NK_SWITCH(m_serialize_PartSet_SubTypes),
    NK_SWITCH(m_serialize_PartSet_DigitalDeviceDataIOs),
    NK_SWITCH(m_serialize_PartSet_EthernetDeviceDataIOs),
    NK_SWITCH(m_serialize_CoordTrans_CalibrationPart),
    NK_SWITCH(m_serialize_Part_Features),
    NK_SWITCH(m_serialize_Part_Contour),
    NK_SWITCH(m_serialize_Part_CameraImages),
    NK_SWITCH(m_serialize_Part_ProcessingTimes),
    NK_SWITCH(m_serialize_Part_DeviceDiagnostics),
    NK_SWITCH(m_serialize_Camera_CoordTransformer),
    NK_SWITCH(m_serialize_Camera_ReferenceImage),
};

#undef NK_SWITCH

constexpr std::size_t kTravelling = 20;
constexpr std::size_t kFirstTravelling = kSwitches.size() - kTravelling;

// The predefined sets switch whole groups of consecutive switches together.
struct SwitchGroup {
  std::size_t first;
  std::size_t end;
};

constexpr SwitchGroup kGroups[] = {
    {0, 4},    // the device controller
    {4, 5},    // live parts
    {5, 8},    // teach, test and process parts
    {8, 16},   // cameras to Ethernet IOs of the part set
    {16, 17},  // calibration part
    {17, 22},  // features to diagnostics of a part
    {22, 23},  // camera coordinate transformer
    {23, 24},  // camera reference image
};

// One row per PreDefinedSettings value, one column per group above.
constexpr bool kPredefined[][std::size(kGroups)] = {
    {1, 1, 1, 1, 1, 1, 1, 1},  // All
    {1, 0, 1, 1, 1, 1, 1, 1},  // FrontEndJobData
    {1, 0, 0, 1, 1, 0, 1, 1},  // UndoRedo
    {0, 0, 0, 0, 0, 1, 1, 0},  // PartialJobDataUpdate
    {0, 0, 0, 0, 0, 0, 1, 0},  // SendReceiveCameraSettings
    {0, 0, 0, 1, 0, 0, 1, 0},  // DeviceJobData
    {0, 0, 0, 0, 0, 1, 1, 0},  // PartFileLogger
    {0, 0, 0, 0, 0, 0, 0, 0},  // None
    {0, 0, 0, 1, 0, 0, 1, 0},  // SyncJobWithoutDataLoss
};

constexpr nk::FrameRules kFrame{
    .id = nk::object_id::kObjectSerializationSettings,
    .min_payload = Settings::kMinimumPayload,
    .reports_progress = false,
    .empties_tail = false,
};

// Bytes that the announced size counts beyond those written.
constexpr std::uint64_t kAnnouncedSurplus = 6;

const Settings& Predefined(Settings::PreDefinedSettings which) {
  // Built together on first use, shared so that ThisPtr() works on them.
  static const auto instances = [] {
    std::array<std::shared_ptr<const Settings>, std::size(kPredefined)> built;
    for (std::size_t i = 0; i < built.size(); ++i) {
      built[i] = std::make_shared<const Settings>(static_cast<Settings::PreDefinedSettings>(i));
    }
    return built;
  }();
  return *instances[static_cast<std::size_t>(which)];
}

}  // namespace

OType_ObjectSerializationSettings::OType_ObjectSerializationSettings(PreDefinedSettings settings) {
  const auto row = static_cast<std::size_t>(settings);
  if (row >= std::size(kPredefined)) return;
  for (std::size_t group = 0; group < std::size(kGroups); ++group) {
    for (std::size_t i = kGroups[group].first; i < kGroups[group].end; ++i) {
      this->*kSwitches[i].member = kPredefined[row][group];
    }
  }
}

const Settings& Settings::All() { return Predefined(PreDefinedSettings::All); }
const Settings& Settings::FrontEndJobData() {
  return Predefined(PreDefinedSettings::FrontEndJobData);
}
const Settings& Settings::UndoRedo() { return Predefined(PreDefinedSettings::UndoRedo); }
const Settings& Settings::PartialJobDataUpdate() {
  return Predefined(PreDefinedSettings::PartialJobDataUpdate);
}
const Settings& Settings::SendReceiveCameraSettings() {
  return Predefined(PreDefinedSettings::SendReceiveCameraSettings);
}
const Settings& Settings::DeviceJobData() { return Predefined(PreDefinedSettings::DeviceJobData); }
const Settings& Settings::PartFileLogger() {
  return Predefined(PreDefinedSettings::PartFileLogger);
}
const Settings& Settings::None() { return Predefined(PreDefinedSettings::None); }
const Settings& Settings::SyncJobWithoutDataLoss() {
  return Predefined(PreDefinedSettings::SyncJobWithoutDataLoss);
}

std::span<const Settings::Switch> Settings::Switches() { return kSwitches; }

std::span<const Settings::Switch> Settings::TravellingSwitches() {
  return Switches().subspan(kFirstTravelling);
}

void Settings::CopyFrom(const Settings& source) {
  m_oUserData = source.m_oUserData;
  for (const Switch& entry : TravellingSwitches()) this->*entry.member = source.*entry.member;
}

void Settings::CopyTo(std::shared_ptr<Settings> target) const {
  if (target) target->CopyFrom(*this);
}

std::shared_ptr<Settings> Settings::CreateCopy() const {
  auto copy = std::make_shared<Settings>();
  copy->CopyFrom(*this);
  return copy;
}

std::shared_ptr<Settings> Settings::ThisPtr() { return weak_from_this().lock(); }
std::shared_ptr<const Settings> Settings::ThisPtr() const { return weak_from_this().lock(); }

std::uint64_t Settings::GetObjectSize() const {
  return AFramedObject::GetObjectSize() + kAnnouncedSurplus;
}

void Settings::InitializeMembers(bool /*bInitialize*/) {
  for (const Switch& entry : Switches()) this->*entry.member = false;
  m_eObjectSize_PrecalculationSettings = ObjectSize_Precalculation_Default;
}

const nk::FrameRules& Settings::GetFrameRules() const { return kFrame; }

std::uint64_t Settings::GetPayloadSize() const { return kTravelling; }

void Settings::AddFields(OByteStream& stream) {
  for (const Switch& entry : TravellingSwitches()) stream.AddBool(this->*entry.member);
}

nk::FieldsRead Settings::GetFields(OByteStream& stream) {
  for (const Switch& entry : TravellingSwitches()) this->*entry.member = stream.GetBool();
  return nk::FieldsRead::kComplete;
}

void Settings::BeginGetFields(bool bInitialize) {
  if (bInitialize) InitializeMembers(true);
}
