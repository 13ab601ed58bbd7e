#include "describers.h"

#include <algorithm>
#include <array>
#include <string>

#include "field_views.h"
#include "nkfoundation/core/byte_stream.h"
#include "nkfoundation/core/object_ids.h"
#include "nkfoundation/core/text.h"

namespace nkf::tools {
namespace {

using nk::ObjectDescription;

std::optional<ObjectDescription> DescribeString(OByteStream& frame) {
  std::u16string text;
  if (!frame.GetString(text)) return std::nullopt;
  return ObjectDescription{{{"text", "\"" + nk::ToUtf8(text) + "\""}}, 0};
}

struct Describer {
  std::uint32_t id;
  std::optional<ObjectDescription> (*describe)(OByteStream& frame);
};

// One entry per class with a field view; classes add theirs here.
constexpr std::array kDescribers = {
    Describer{nk::object_id::kString, DescribeString},
    Describer{nk::object_id::kTime, DescribeTime},
    Describer{nk::object_id::kApplicationSerializationData, DescribeApplicationSerializationData},
    Describer{nk::object_id::kObjectSerializationSettings, DescribeObjectSerializationSettings},
    Describer{nk::object_id::kVariant, DescribeVariant},
    Describer{nk::object_id::kVector, DescribeVector},
    Describer{nk::object_id::kImage, DescribeImage},
    Describer{nk::object_id::kImageArray, DescribeImageArray},
    Describer{nk::object_id::kCompatibility, DescribeCompatibility},
    Describer{nk::object_id::kDeviceDiagnostic, DescribeDeviceDiagnostic},
    Describer{nk::object_id::kProjectProperties, DescribeProjectProperties},
    Describer{nk::object_id::kDeviceInfo, DescribeDeviceInfo},
    Describer{nk::object_id::kPartSetProtection, DescribePartSetProtection},
    Describer{nk::object_id::kCheckProgramInfoItem, DescribeCheckProgramInfoItem},
    Describer{nk::object_id::kDeviceCameraInfoItem, DescribeCameraInfoItem},
};

}  // namespace

std::optional<ObjectDescription> DescribeObject(std::uint32_t id, OByteStream& frame) {
  const auto* found = std::find_if(kDescribers.begin(), kDescribers.end(),
                                   [id](const Describer& entry) { return entry.id == id; });
  return found == kDescribers.end() ? std::nullopt : found->describe(frame);
}

}  // namespace nkf::tools
