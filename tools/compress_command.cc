// `nkfoundation compress` and `nkfoundation decompress`: the image coder
// applied to whole files.
#include <cstdio>
#include <cstdint>
#include <string>

#include "commands.h"
#include "nkfoundation/core/file.h"
#include "nkfoundation/core/file_stream.h"
#include "nkfoundation/services/compress.h"
#include "whole_file.h"

namespace nkf::tools {
namespace {

using Coder = int (OCompress::*)(OCompress::Bytes&, OCompress::Bytes&);

bool ReadFile(const std::string& path, OCompress::Bytes& bytes) {
  nk::File file;
  std::uint64_t size = 0;
  if (!OpenWholeFile(path, file, size)) return false;
  bytes.SetSize(static_cast<int>(size));
  if (file.Read(bytes.GetData(), size) != size) {
    std::fprintf(stderr, "error: cannot read %s\n", path.c_str());
    return false;
  }
  return true;
}

int Convert(const std::string& in, const std::string& out, Coder coder) {
  OCompress::Bytes source;
  if (!ReadFile(in, source)) return 2;
  OCompress::Bytes target;
  // An empty file stays empty both ways.
  if (source.GetCount() > 0) (OCompress().*coder)(source, target);
  const bool saved = nk::SaveFileAtomically(out, [&](OByteStream& stream) {
    stream.AddBytes(target.GetData(), static_cast<std::uint64_t>(target.GetCount()));
    return true;
  });
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
