// A byte stream over a file, and the safe way to save one.
#ifndef NKFOUNDATION_CORE_FILE_STREAM_H_
#define NKFOUNDATION_CORE_FILE_STREAM_H_

#include <cstdint>
#include <filesystem>
#include <functional>

#include "nkfoundation/core/byte_stream.h"
#include "nkfoundation/core/export.h"
#include "nkfoundation/core/file.h"

class AFactorable;

// Reads a file from its start, or writes a new one; which depends on how it
// was opened. A failed write puts the stream in the failed state.
class NKF_API OByteStream_File : public OByteStream {
 public:
  bool Open(const std::filesystem::path& path, nk::File::Mode mode);
  // Flushes and closes; false when anything written was lost.
  bool Close();

  void AddBytes(const void* data, std::uint64_t count) override;
  bool GetBytes(void* out, std::uint64_t count) override;

  std::uint64_t GetPosition() const override { return position_; }
  bool SetPosition(std::uint64_t position) override;
  std::uint64_t GetLength() const override { return length_; }

 private:
  nk::File file_;
  nk::File::Mode mode_ = nk::File::Mode::kRead;
  std::uint64_t position_ = 0;
  std::uint64_t length_ = 0;
};

namespace nk {

// Saves a file without ever destroying the previous good one: `write` fills
// a temporary file in the target's folder, which replaces the target only
// after everything was written and flushed. Returns false, leaving the target
// as it was, when `write` returns false or any write fails.
NKF_API bool SaveFileAtomically(const std::filesystem::path& target,
                                const std::function<bool(OByteStream&)>& write);

// Saves one object as the whole content of `target`, atomically.
NKF_API bool SaveObjectToFile(const std::filesystem::path& target, AFactorable& object);

}  // namespace nk

#endif  // NKFOUNDATION_CORE_FILE_STREAM_H_
