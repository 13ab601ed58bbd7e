#include "field_views.h"

#include <cstdio>

#include "nkfoundation/core/time_stamp.h"

namespace nkf::tools {

std::optional<nk::ObjectDescription> DescribeTime(OByteStream& frame) {
  OTime time;
  if (!time.GetObjectData(frame, true)) return std::nullopt;
  char text[96];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d.%06d",
                static_cast<int>(time.m_iYear), static_cast<int>(time.m_iMonth),
                static_cast<int>(time.m_iDayOfMonth), static_cast<int>(time.m_iHours),
                static_cast<int>(time.m_iMinutes), static_cast<int>(time.m_iSeconds),
                static_cast<int>(time.m_iMicroSeconds));
  return nk::ObjectDescription{{{"time", text}}, static_cast<std::uint64_t>(time.m_oUserData.GetCount())};
}

}  // namespace nkf::tools
