// Files for the stream library and the picture codecs.
#ifndef NKFOUNDATION_CORE_FILE_H_
#define NKFOUNDATION_CORE_FILE_H_

#include <cstdint>
#include <filesystem>
#include <fstream>

#include "nkfoundation/core/export.h"

namespace nk {

// A binary file, opened for reading or for writing (created or truncated).
// Every failure is sticky: once an operation fails, `IsFailed()` stays true
// until the file is opened again, so a writer can check once at the end.
class NKF_API File {
 public:
  enum class Mode { kRead, kWrite };

  File() = default;
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() { Close(); }

  bool Open(const std::filesystem::path& path, Mode mode);
  bool IsOpen() const { return file_.is_open(); }

  // Reads up to `count` bytes and returns how many were read.
  std::uint64_t Read(void* out, std::uint64_t count);
  // Writes all `count` bytes or fails.
  bool Write(const void* data, std::uint64_t count);
  bool Seek(std::uint64_t position);
  std::uint64_t Length();
  // Pushes buffered bytes to the operating system.
  bool Flush();
  // Flushes and closes; false when a buffered write could not be completed.
  bool Close();

  bool IsEOF() const { return eof_; }
  bool IsFailed() const { return failed_; }

 private:
  std::filebuf file_;
  bool eof_ = false;
  bool failed_ = false;
};

}  // namespace nk

#endif  // NKFOUNDATION_CORE_FILE_H_
