// Checks the image coder on arbitrary bytes: the coder and the plain
// reference encoder write the same stream, the stream decodes to the input
// (a single byte keeps its padding trailer, and an even input ending in the
// trailer loses it), and the input itself, taken as a damaged stream, decodes
// as the reference decoder says without leaving the decoder's buffers.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <vector>

#include "nkfoundation/services/compress.h"
#include "tests/support/lz77_reference.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

void Check(bool promise) {
  if (!promise) std::abort();
}

Bytes Run(int (OCompress::*coder)(OCompress::Bytes&, OCompress::Bytes&), const Bytes& input) {
  OCompress::Bytes source;
  source.Copy(input.data(), static_cast<int>(input.size()));
  OCompress::Bytes target;
  (OCompress().*coder)(source, target);
  Check(source.GetCount() == static_cast<int>(input.size()) &&
        std::equal(input.begin(), input.end(), source.GetData()));
  return {target.GetData(), target.GetData() + target.GetCount()};
}

bool EndsInTrailer(const Bytes& bytes) {
  return bytes.size() >= 9 &&
         std::equal(std::begin(nk::testing::kLz77Trailer), std::end(nk::testing::kLz77Trailer), bytes.end() - 7);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const Bytes input(data, data + size);

  const Bytes compressed = Run(&OCompress::iCompress_LZ77_Fast, input);
  Check(compressed == nk::testing::ReferenceCompress(input));

  Bytes expected = input;
  if (size == 1) expected.insert(expected.end(), std::begin(nk::testing::kLz77Trailer), std::end(nk::testing::kLz77Trailer));
  if (size % 2 == 0 && EndsInTrailer(expected)) expected.resize(size - 7);
  Check(Run(&OCompress::iDeCompress_LZ77_Fast, compressed) == expected);

  Check(Run(&OCompress::iDeCompress_LZ77_Fast, input) == nk::testing::ReferenceDecompress(input));
  return 0;
}
