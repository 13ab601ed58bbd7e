#include "field_views.h"

#include <charconv>
#include <cstdint>
#include <string>

#include "nkfoundation/geometry/vector.h"

namespace nkf::tools {
namespace {

// "1.5 (raw 98304)": pixels in the shortest text that reads back exactly,
// then the stored fixed-point value.
std::string PixelsAndRaw(double pixels, std::int64_t raw) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, pixels).ptr;
  return std::string(text, end) + " (raw " + std::to_string(raw) + ")";
}

}  // namespace

std::optional<nk::ObjectDescription> DescribeVector(OByteStream& frame) {
  OVector vector;
  if (!vector.GetObjectData(frame, true)) return std::nullopt;
  return nk::ObjectDescription{{{"x", PixelsAndRaw(vector.dX(), vector.m_llx)},
                                {"y", PixelsAndRaw(vector.dY(), vector.m_lly)}},
                               static_cast<std::uint64_t>(vector.m_oUserData.GetCount())};
}

}  // namespace nkf::tools
