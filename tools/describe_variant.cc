#include "field_views.h"

#include <charconv>
#include <cstdint>
#include <iterator>
#include <string>

#include "nkfoundation/core/byte_stream.h"
#include "nkfoundation/core/text.h"
#include "nkfoundation/core/variant.h"

namespace nkf::tools {

std::optional<nk::ObjectDescription> DescribeVariant(OByteStream& frame) {
  OType_Variant variant;
  if (!variant.GetObjectData(frame, true)) return std::nullopt;
  // Enough digits to tell apart every double the text rounds together, with
  // a decimal point whatever the host's locale.
  char digits[32];
  const std::string value(digits, std::to_chars(std::begin(digits), std::end(digits), variant.dGetValue(),
                                                std::chars_format::general, 17)
                                      .ptr);
  // The variant keeps no tail but skips what follows its fields; those
  // bytes are shown as the tail. The stream now stands at the frame's end.
  const std::uint64_t payload = frame.GetPosition() - OByteStream::kFrameHeaderSize;
  const std::uint64_t fields =
      payload >= OType_Variant::kFrame.min_payload ? OType_Variant::kFrame.min_payload : 0;
  return nk::ObjectDescription{{{"m_iType", std::to_string(variant.iGetType())},
                                {"m_dValue", value},
                                {"text", "\"" + nk::ToUtf8(variant.oStrGetValue()) + "\""}},
                               payload - fields};
}

}  // namespace nkf::tools
