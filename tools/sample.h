// The sample that `nkfoundation inspect` shows when given no file.
#ifndef NKFOUNDATION_TOOLS_SAMPLE_H_
#define NKFOUNDATION_TOOLS_SAMPLE_H_

#include <cstdint>
#include <vector>

namespace nkf::tools {

// A small file of frames: a string array, an array of vectors, an object of
// a class this library does not know, one that was written by a newer
// version with a user-data tail and, last, serialization settings.
std::vector<std::uint8_t> BuildSample();

}  // namespace nkf::tools

#endif  // NKFOUNDATION_TOOLS_SAMPLE_H_
