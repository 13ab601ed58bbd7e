#include "field_views.h"

#include <cstdio>
#include <string>

#include "nkfoundation/core/application_serialization_data.h"
#include "nkfoundation/core/text.h"
#include "nkfoundation/core/types.h"

namespace nkf::tools {
namespace {

// Enough bytes to recognise the data by; the rest is left out.
constexpr nk::ssize_t kShownBytes = 32;

}  // namespace

std::string ByteSummary(const WritableCollection<std::uint8_t>& bytes) {
  std::string text = std::to_string(bytes.GetCount()) + " bytes";
  for (nk::ssize_t i = 0; i < bytes.GetCount() && i < kShownBytes; ++i) {
    char hex[4];
    std::snprintf(hex, sizeof hex, "%02X", static_cast<unsigned>(bytes[i]));
    text += (i == 0 ? ": " : " ");
    text += hex;
  }
  if (bytes.GetCount() > kShownBytes) text += " ...";
  return text;
}

std::optional<nk::ObjectDescription> DescribeApplicationSerializationData(OByteStream& frame) {
  OType_ApplicationSerializationData data;
  if (!data.GetObjectData(frame, true)) return std::nullopt;
  return nk::ObjectDescription{
      {
          {"m_iApplicationID", std::to_string(data.m_iApplicationID)},
          {"m_oApplication_Info", "\"" + nk::ToUtf8(data.m_oApplication_Info) + "\""},
          {"m_oApplication_Data", ByteSummary(data.m_oApplication_Data)},
      },
      static_cast<std::uint64_t>(data.m_oUserData.GetCount())};
}

}  // namespace nkf::tools
