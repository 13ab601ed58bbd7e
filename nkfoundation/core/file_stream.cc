#include "nkfoundation/core/file_stream.h"

#include <atomic>
#include <cstring>
#include <string>
#include <system_error>

#include "nkfoundation/core/factorable.h"

bool OByteStream_File::Open(const std::filesystem::path& path, nk::File::Mode mode) {
  ClearFailure();
  mode_ = mode;
  position_ = 0;
  length_ = 0;
  if (!file_.Open(path, mode)) {
    SetFailed();
    return false;
  }
  if (mode == nk::File::Mode::kRead) length_ = file_.Length();
  return true;
}

bool OByteStream_File::Close() {
  if (!file_.Close()) SetFailed();
  return !IsFailed();
}

void OByteStream_File::AddBytes(const void* data, std::uint64_t count) {
  if (mode_ != nk::File::Mode::kWrite || !file_.Write(data, count)) {
    SetFailed();
    return;
  }
  length_ += count;
}

bool OByteStream_File::GetBytes(void* out, std::uint64_t count) {
  if (mode_ != nk::File::Mode::kRead || count > GetRemaining() ||
      file_.Read(out, count) != count) {
    std::memset(out, 0, static_cast<std::size_t>(count));
    SetFailed();
    return false;
  }
  position_ += count;
  return true;
}

bool OByteStream_File::SetPosition(std::uint64_t position) {
  if (mode_ != nk::File::Mode::kRead || position > length_ || !file_.Seek(position)) return false;
  position_ = position;
  return true;
}

namespace nk {
namespace {

// A name beside the target that no other save of this process uses.
std::filesystem::path TemporaryPathFor(const std::filesystem::path& target) {
  static std::atomic<unsigned> counter{0};
  std::filesystem::path temporary = target;
  temporary += ".tmp" + std::to_string(counter.fetch_add(1));
  return temporary;
}

}  // namespace

bool SaveFileAtomically(const std::filesystem::path& target,
                        const std::function<bool(OByteStream&)>& write) {
  const std::filesystem::path temporary = TemporaryPathFor(target);
  OByteStream_File stream;
  bool ok = stream.Open(temporary, File::Mode::kWrite) && write(stream);
  ok = stream.Close() && ok;  // Close also reports any write that failed on the way.
  std::error_code error;
  if (ok) std::filesystem::rename(temporary, target, error);
  if (!ok || error) {
    std::filesystem::remove(temporary, error);
    return false;
  }
  return true;
}

bool SaveObjectToFile(const std::filesystem::path& target, AFactorable& object) {
  return SaveFileAtomically(target,
                            [&object](OByteStream& stream) { return object.AddObjectData(stream); });
}

}  // namespace nk
