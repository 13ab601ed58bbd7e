#include "nkfoundation/core/file.h"

#include <ios>
#include <limits>

namespace nk {
namespace {

// filebuf counts in std::streamsize; larger requests go in pieces.
constexpr std::uint64_t kMaxChunk = static_cast<std::uint64_t>(std::numeric_limits<std::streamsize>::max());

}  // namespace

bool File::Open(const std::filesystem::path& path, Mode mode) {
  Close();
  eof_ = false;
  const std::ios::openmode flags =
      std::ios::binary | (mode == Mode::kRead ? std::ios::in : std::ios::out | std::ios::trunc);
  failed_ = file_.open(path, flags) == nullptr;
  return !failed_;
}

std::uint64_t File::Read(void* out, std::uint64_t count) {
  if (!IsOpen()) {
    failed_ = true;
    return 0;
  }
  auto* target = static_cast<char*>(out);
  std::uint64_t done = 0;
  while (done < count) {
    const std::uint64_t chunk = std::min(count - done, kMaxChunk);
    const std::streamsize got = file_.sgetn(target + done, static_cast<std::streamsize>(chunk));
    done += static_cast<std::uint64_t>(got);
    if (static_cast<std::uint64_t>(got) < chunk) {
      eof_ = true;
      break;
    }
  }
  return done;
}

bool File::Write(const void* data, std::uint64_t count) {
  if (!IsOpen()) failed_ = true;
  const auto* source = static_cast<const char*>(data);
  for (std::uint64_t done = 0; done < count && !failed_;) {
    const std::uint64_t chunk = std::min(count - done, kMaxChunk);
    const std::streamsize put = file_.sputn(source + done, static_cast<std::streamsize>(chunk));
    if (static_cast<std::uint64_t>(put) != chunk) failed_ = true;
    done += chunk;
  }
  return !failed_;
}

bool File::Seek(std::uint64_t position) {
  if (!IsOpen()) return false;
  eof_ = false;
  const auto result = file_.pubseekpos(static_cast<std::streamoff>(position));
  return result != std::streampos(std::streamoff(-1));
}

std::uint64_t File::Length() {
  if (!IsOpen()) return 0;
  const std::streampos here = file_.pubseekoff(0, std::ios::cur);
  const std::streampos end = file_.pubseekoff(0, std::ios::end);
  file_.pubseekpos(here);
  return end < 0 ? 0 : static_cast<std::uint64_t>(static_cast<std::streamoff>(end));
}

bool File::Flush() {
  if (!IsOpen() || file_.pubsync() != 0) failed_ = true;
  return !failed_;
}

bool File::Close() {
  if (!IsOpen()) return !failed_;
  if (file_.close() == nullptr) failed_ = true;
  return !failed_;
}

}  // namespace nk
