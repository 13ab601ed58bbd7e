#include <string>

#include "field_views.h"
#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/core/text.h"
#include "nkfoundation/image/image.h"
#include "nkfoundation/image/image_array.h"

namespace nkf::tools {
namespace {

std::string FormatName(int format) {
  switch (format) {
    case OType_Image::kFormatRaw:
      return "0 (raw)";
    case OType_Image::kFormatCompressed:
      return "2 (compressed)";
    default:
      return std::to_string(format) + " (unknown)";
  }
}

// The stamp as the time view shows it.
std::string TimeText(const OTime& time) {
  OByteStream_Memory frame;
  const_cast<OTime&>(time).AddObjectData(frame);
  const auto description = DescribeTime(frame);
  return description && !description->fields.empty() ? description->fields[0].value : "?";
}

}  // namespace

std::optional<nk::ObjectDescription> DescribeImage(OByteStream& frame) {
  OType_Image image;
  if (!image.GetObjectData(frame, true)) return std::nullopt;
  const long long raw = image.GetRawDataSize();
  return nk::ObjectDescription{
      {{"geometry", std::to_string(image.GetImage_Width()) + " x " + std::to_string(image.GetImage_Height()) +
                        " at " + std::to_string(image.GetImage_X()) + ", " + std::to_string(image.GetImage_Y()) +
                        ", " + std::to_string(image.GetImage_BytesPerPixel()) + " bytes per pixel"},
       {"m_iImageFormat", FormatName(image.m_iImageFormat)},
       {"stored bytes", std::to_string(image.GetImageDataSize())},
       {"raw bytes", raw < 0 ? "beyond a 32-bit index" : std::to_string(raw)},
       {"m_iImage_ProcessStep", std::to_string(image.m_iImage_ProcessStep)},
       {"m_name", "\"" + nk::ToUtf8(image.m_name) + "\""},
       {"m_strComment", "\"" + nk::ToUtf8(image.m_strComment) + "\""},
       {"m_oAcquisition_TimeDate", TimeText(image.m_oAcquisition_TimeDate)},
       {"m_sourceReference", std::to_string(image.m_sourceReference)}},
      static_cast<std::uint64_t>(image.m_oUserData.GetCount())};
}

// Only the array's own fields: the walker shows the images as elements.
std::optional<nk::ObjectDescription> DescribeImageArray(OByteStream& frame) {
  std::uint64_t payload = 0;
  std::uint64_t end = 0;
  if (!frame.BeginGetObject(nk::object_id::kImageArray, payload, end) ||
      payload < OType_Image_Array::kFrame.min_payload) {
    return std::nullopt;
  }
  OType_Image_Array array;
  if (!OType_Image_Array::LeadingFields::Get(frame, array)) return std::nullopt;
  return nk::ObjectDescription{{{"m_iSelectedIndex", std::to_string(array.m_iSelectedIndex)},
                                {"m_iImage_ProcessStep", std::to_string(array.m_iImage_ProcessStep)},
                                {"m_sourceReference", std::to_string(array.m_sourceReference)},
                                {"m_isSelected", array.m_isSelected ? "true" : "false"}},
                               0};
}

}  // namespace nkf::tools
