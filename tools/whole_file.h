// Opening the program's input files, which it reads whole into memory.
#ifndef NKFOUNDATION_TOOLS_WHOLE_FILE_H_
#define NKFOUNDATION_TOOLS_WHOLE_FILE_H_

#include <cstdint>
#include <string>

#include "nkfoundation/core/file.h"

namespace nkf::tools {

// The largest input read: what a byte collection can index (2 GiB - 1). The
// coder's buffers and the memory streams that inspect reads frames through
// are such collections.
inline constexpr std::uint64_t kMaxWholeFile = 0x7FFFFFFF;

// Opens `path` for reading it whole, checking before anything is allocated
// that it is a regular file of at most kMaxWholeFile bytes; `size` is its
// length. Otherwise prints a one-line error and returns false.
bool OpenWholeFile(const std::string& path, nk::File& file, std::uint64_t& size);

}  // namespace nkf::tools

#endif  // NKFOUNDATION_TOOLS_WHOLE_FILE_H_
