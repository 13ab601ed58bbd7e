// What every fuzz target demands of a framed class: whatever an object made
// of the bytes, its size is what it writes, and what it writes reads back
// to the same bytes.
#ifndef NKFOUNDATION_FUZZ_ROUND_TRIP_H_
#define NKFOUNDATION_FUZZ_ROUND_TRIP_H_

#include <cstdint>
#include <cstdlib>
#include <vector>

#include "nkfoundation/core/factorable.h"
#include "nkfoundation/core/memory_stream.h"

namespace nk::fuzz {

// Traps when a promise is broken, so that libFuzzer keeps the input.
inline void Check(bool promise) {
  if (!promise) std::abort();
}

inline std::vector<std::uint8_t> Serialize(AFactorable& object) {
  OByteStream_Memory stream;
  object.AddObjectData(stream);
  return {stream.GetBuffer().begin(), stream.GetBuffer().end()};
}

// Reads an `Object` at the stream's position and, if it read, checks its
// size and its round trip. A frame below the class's minimum payload reads
// as tail only (an empty array's count among it): that is the format's
// rule, not a loss, so such a frame is not read back.
template <class Object>
void ReadObject(OByteStream& stream) {
  Object object;
  if (!object.GetObjectData(stream, true)) return;
  const std::vector<std::uint8_t> written = Serialize(object);
  Check(written.size() == object.GetObjectSize());
  if (written.size() - 8 < Object::kFrame.min_payload) return;
  OByteStream_Memory again(written.data(), written.size());
  Object copy;
  Check(copy.GetObjectData(again, true) && again.GetRemaining() == 0);
  Check(Serialize(copy) == written);
}

}  // namespace nk::fuzz

#endif  // NKFOUNDATION_FUZZ_ROUND_TRIP_H_
