// `nkfoundation compress` and `nkfoundation decompress`: the image coder
// applied to whole files.
#include <algorithm>
#include <cstdio>
#include <cstdint>
#include <string>

#include "commands.h"
#include "nkfoundation/core/file.h"
#include "nkfoundation/core/file_stream.h"
#include "nkfoundation/core/text.h"
#include "nkfoundation/services/compress.h"
#include "nkfoundation/services/progress_ctrl.h"
#include "terminal_progress.h"
#include "whole_file.h"

namespace nkf::tools {
namespace {

using Coder = int (OCompress::*)(OCompress::Bytes&, OCompress::Bytes&);

// Files are read and written in pieces of this size, one progress update
// each.
constexpr std::uint64_t kChunk = 1 << 20;

// Progress counts the input three times: once read, once coded (the coder
// reports nothing while it runs, so that is one jump) and once written, the
// output scaled to the input's size.
bool ReadFile(const std::string& path, OCompress::Bytes& bytes, OProgressCtrl& progress) {
  nk::File file;
  std::uint64_t size = 0;
  if (!OpenWholeFile(path, file, size)) return false;
  bytes.SetSize(static_cast<int>(size));
  progress.Length(3 * static_cast<std::int64_t>(size));
  for (std::uint64_t done = 0; done < size;) {
    const std::uint64_t piece = std::min(kChunk, size - done);
    if (file.Read(bytes.GetData() + done, piece) != piece) {
      progress.End();
      std::fprintf(stderr, "error: cannot read %s\n", path.c_str());
      return false;
    }
    done += piece;
    progress.Increase(static_cast<std::int64_t>(piece), true);
  }
  return true;
}

bool WriteFile(const std::string& path, const OCompress::Bytes& bytes, std::int64_t in_size,
               OProgressCtrl& progress) {
  const std::uint64_t size = static_cast<std::uint64_t>(bytes.GetCount());
  return nk::SaveFileAtomically(path, [&](OByteStream& stream) {
    for (std::uint64_t done = 0; done < size;) {
      const std::uint64_t piece = std::min(kChunk, size - done);
      stream.AddBytes(bytes.GetData() + done, piece);
      done += piece;
      const std::int64_t written = static_cast<std::int64_t>(done) * in_size / static_cast<std::int64_t>(size);
      progress.SetPos(2 * in_size + written, true);
    }
    return true;
  });
}

int Convert(const std::string& in, const std::string& out, Coder coder) {
  TerminalProgress bar;
  OProgressCtrl progress(&bar);
  progress.SetText(nk::ToUtf16(in));
  OCompress::Bytes source;
  if (!ReadFile(in, source, progress)) return 2;
  OCompress::Bytes target;
  // An empty file stays empty both ways.
  if (source.GetCount() > 0) (OCompress().*coder)(source, target);
  progress.SetPos(2 * static_cast<std::int64_t>(source.GetCount()), true);
  const bool saved = WriteFile(out, target, source.GetCount(), progress);
  // Clears the bar before the result line.
  progress.End();
  if (!saved) {
    std::fprintf(stderr, "error: cannot write %s\n", out.c_str());
    return 2;
  }
  std::printf("%s: %d bytes -> %s: %d bytes\n", in.c_str(), source.GetCount(), out.c_str(),
              target.GetCount());
  return 0;
}

}  // namespace

int RunCompress(const std::string& in, const std::string& out) {
  return Convert(in, out, &OCompress::iCompress_LZ77_Fast);
}

int RunDecompress(const std::string& in, const std::string& out) {
  return Convert(in, out, &OCompress::iDeCompress_LZ77_Fast);
}

}  // namespace nkf::tools
