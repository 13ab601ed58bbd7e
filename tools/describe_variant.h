// The field view of OType_Variant frames.
#ifndef NKFOUNDATION_TOOLS_DESCRIBE_VARIANT_H_
#define NKFOUNDATION_TOOLS_DESCRIBE_VARIANT_H_

#include <optional>

#include "nkfoundation/core/frame_walker.h"

class OByteStream;

namespace nkf::tools {

// The type code, the stored value to full precision and the display text:
// "m_iType = 3", "m_dValue = 123", "text = "12.3"".
std::optional<nk::ObjectDescription> DescribeVariant(OByteStream& frame);

}  // namespace nkf::tools

#endif  // NKFOUNDATION_TOOLS_DESCRIBE_VARIANT_H_
