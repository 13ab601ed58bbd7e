#include "field_views.h"

#include <cstdio>
#include <string>

#include "nkfoundation/core/time_stamp.h"

namespace nkf::tools {

std::optional<nk::ObjectDescription> DescribeTime(OByteStream& frame) {
  OTime time;
  if (!time.GetObjectData(frame, true)) return std::nullopt;
  char text[96];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", static_cast<int>(time.m_iYear),
                static_cast<int>(time.m_iMonth), static_cast<int>(time.m_iDayOfMonth),
                static_cast<int>(time.m_iHours), static_cast<int>(time.m_iMinutes),
                static_cast<int>(time.m_iSeconds));
  nk::ObjectDescription description{{{"time", text}}, static_cast<std::uint64_t>(time.m_oUserData.GetCount())};
  // A count beyond a second is not a fraction of it: shown apart, as it is.
  const auto micro = static_cast<long long>(time.m_iMicroSeconds);
  if (micro >= 0 && micro <= 999999) {
    std::snprintf(text, sizeof text, ".%06lld", micro);
    description.fields[0].value += text;
  } else {
    description.fields.push_back({"m_iMicroSeconds", std::to_string(micro) + " (not a fraction of a second)"});
  }
  return description;
}

}  // namespace nkf::tools
