// The field views of the classes the program knows.
#ifndef NKFOUNDATION_TOOLS_DESCRIBERS_H_
#define NKFOUNDATION_TOOLS_DESCRIBERS_H_

#include <cstdint>
#include <optional>

#include "nkfoundation/core/frame_walker.h"

namespace nkf::tools {

// Reads the frame in `frame` as the class of `id` and renders its fields;
// nothing for a class without a field view or a frame that does not read.
std::optional<nk::ObjectDescription> DescribeObject(std::uint32_t id, OByteStream& frame);

}  // namespace nkf::tools

#endif  // NKFOUNDATION_TOOLS_DESCRIBERS_H_
