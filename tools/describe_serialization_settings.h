// The field view of OType_ObjectSerializationSettings frames.
#ifndef NKFOUNDATION_TOOLS_DESCRIBE_SERIALIZATION_SETTINGS_H_
#define NKFOUNDATION_TOOLS_DESCRIBE_SERIALIZATION_SETTINGS_H_

#include <optional>

#include "nkfoundation/core/frame_walker.h"

class OByteStream;

namespace nkf::tools {

// The twenty travelling switches by name ("m_serialize_... = true"); none
// when the frame is too short to hold them.
std::optional<nk::ObjectDescription> DescribeObjectSerializationSettings(OByteStream& frame);

}  // namespace nkf::tools

#endif  // NKFOUNDATION_TOOLS_DESCRIBE_SERIALIZATION_SETTINGS_H_
