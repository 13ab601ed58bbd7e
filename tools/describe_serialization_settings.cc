#include "field_views.h"

#include "nkfoundation/core/serialization_settings.h"

namespace nkf::tools {

std::optional<nk::ObjectDescription> DescribeObjectSerializationSettings(OByteStream& frame) {
  using Settings = OType_ObjectSerializationSettings;
  // The frame stream holds exactly this frame.
  const std::uint64_t payload = frame.GetLength() - OByteStream::kFrameHeaderSize;
  Settings settings;
  if (!settings.GetObjectData(frame, true)) return std::nullopt;
  nk::ObjectDescription description;
  description.tail = static_cast<std::uint64_t>(settings.m_oUserData.GetCount());
  if (payload < Settings::kMinimumPayload) return description;
  for (const Settings::Switch& entry : Settings::TravellingSwitches()) {
    description.fields.push_back({entry.name, settings.*entry.member ? "true" : "false"});
  }
  return description;
}

}  // namespace nkf::tools
