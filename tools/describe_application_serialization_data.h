// The field view of OType_ApplicationSerializationData frames.
#ifndef NKFOUNDATION_TOOLS_DESCRIBE_APPLICATION_SERIALIZATION_DATA_H_
#define NKFOUNDATION_TOOLS_DESCRIBE_APPLICATION_SERIALIZATION_DATA_H_

#include <optional>

#include "nkfoundation/core/frame_walker.h"

class OByteStream;

namespace nkf::tools {

// The application identifier, its text and the data as a byte count with
// the leading bytes in hexadecimal.
std::optional<nk::ObjectDescription> DescribeApplicationSerializationData(OByteStream& frame);

}  // namespace nkf::tools

#endif  // NKFOUNDATION_TOOLS_DESCRIBE_APPLICATION_SERIALIZATION_DATA_H_
