// The field view of OTime frames.
#ifndef NKFOUNDATION_TOOLS_DESCRIBE_TIME_H_
#define NKFOUNDATION_TOOLS_DESCRIBE_TIME_H_

#include <optional>

#include "nkfoundation/core/frame_walker.h"

class OByteStream;

namespace nkf::tools {

// The stamp as one date, "time = 2006-01-01 00:00:00.000000".
std::optional<nk::ObjectDescription> DescribeTime(OByteStream& frame);

}  // namespace nkf::tools

#endif  // NKFOUNDATION_TOOLS_DESCRIBE_TIME_H_
