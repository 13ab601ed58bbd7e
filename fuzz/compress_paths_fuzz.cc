// Checks the image coder's block search, which only large sources reach,
// against the plain reference encoder. The input is a recipe rather than the
// source itself, so that short inputs make sources of 64 KiB and more with
// matches everywhere: a size, a thread count, and a pattern repeated with
// changes. The stream must decode back to the source, and the input itself,
// taken as a damaged stream, must decode alike by both methods.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <vector>

#include "nkfoundation/services/compress.h"
#include "tests/support/lz77_reference.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using Method = OCompress::Method;

void Check(bool promise) {
  if (!promise) std::abort();
}

Bytes Run(int (OCompress::*coder)(OCompress::Bytes&, OCompress::Bytes&), OCompress coder_object, const Bytes& input) {
  OCompress::Bytes source;
  source.Copy(input.data(), static_cast<int>(input.size()));
  OCompress::Bytes target;
  (coder_object.*coder)(source, target);
  return {target.GetData(), target.GetData() + target.GetCount()};
}

// data[0..1]: the source's size beyond 64 KiB (up to 128 KiB more, odd sizes
// included); data[2]: the threads (1 to 8); data[3]: one byte in how many is
// changed as the pattern repeats; the rest: the pattern.
Bytes SourceFrom(const std::uint8_t* data, std::size_t size) {
  const std::size_t length = 65536 + ((std::size_t{data[0]} | std::size_t{data[1]} << 8) * 2 + data[3] % 2);
  const std::size_t change_every = std::size_t{data[3]} + 1;
  const std::uint8_t* pattern = data + 4;
  const std::size_t period = size - 4;
  Bytes source(length);
  std::uint32_t noise = data[3];
  for (std::size_t i = 0; i < length; ++i) {
    source[i] = pattern[i % period];
    if (i % change_every == change_every - 1) {
      noise = noise * 1103515245u + 12345u;
      source[i] = static_cast<std::uint8_t>(source[i] + (noise >> 16));
    }
  }
  return source;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 5) return 0;
  const Bytes source = SourceFrom(data, size);
  const int threads = data[2] % 8 + 1;
  const Bytes compressed = Run(&OCompress::iCompress_LZ77_Fast, OCompress(Method::kFastest, threads), source);
  Check(compressed == nk::testing::ReferenceCompress(source));
  // An even source that happens to end in the padding trailer loses it.
  Bytes expected = source;
  if (source.size() % 2 == 0 &&
      std::equal(std::begin(nk::testing::kLz77Trailer), std::end(nk::testing::kLz77Trailer), source.end() - 7)) {
    expected.resize(source.size() - 7);
  }
  Check(Run(&OCompress::iDeCompress_LZ77_Fast, OCompress(Method::kFastest), compressed) == expected);

  const Bytes stream(data, data + size);
  Check(Run(&OCompress::iDeCompress_LZ77_Fast, OCompress(Method::kFastest), stream) ==
        Run(&OCompress::iDeCompress_LZ77_Fast, OCompress(Method::kFixedMemory), stream));
  return 0;
}
