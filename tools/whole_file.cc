#include "whole_file.h"

#include <cinttypes>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace nkf::tools {

bool OpenWholeFile(const std::string& path, nk::File& file, std::uint64_t& size) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (error) {
    std::fprintf(stderr, "error: cannot read %s: %s\n", path.c_str(), error.message().c_str());
    return false;
  }
  if (!std::filesystem::is_regular_file(status)) {
    const char* kind = std::filesystem::is_directory(status) ? "a directory" : "not a regular file";
    std::fprintf(stderr, "error: cannot read %s: %s\n", path.c_str(), kind);
    return false;
  }
  size = std::filesystem::file_size(path, error);
  if (error || !file.Open(path, nk::File::Mode::kRead)) {
    std::fprintf(stderr, "error: cannot read %s\n", path.c_str());
    return false;
  }
  if (size > kMaxWholeFile) {
    std::fprintf(stderr, "error: cannot read %s: %" PRIu64 " bytes, more than the %" PRIu64 " this program reads\n",
                 path.c_str(), size, kMaxWholeFile);
    return false;
  }
  return true;
}

}  // namespace nkf::tools
