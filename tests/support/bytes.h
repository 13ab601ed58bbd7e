// Byte sequences for tests: written as hex text, taken from streams.
#ifndef TESTS_SUPPORT_BYTES_H_
#define TESTS_SUPPORT_BYTES_H_

#include <cstdint>
#include <string_view>
#include <vector>

#include "nkfoundation/core/memory_stream.h"

namespace nk::testing {

using Bytes = std::vector<std::uint8_t>;

// "0C000000 0001CBFE": pairs of hex digits; spaces only group them.
inline Bytes Hex(std::string_view text) {
  auto digit = [](char c) { return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10; };
  Bytes bytes;
  for (std::size_t i = 0; i + 1 < text.size(); i += text[i] == ' ' ? 1 : 2) {
    if (text[i] != ' ') bytes.push_back(static_cast<std::uint8_t>(digit(text[i]) << 4 | digit(text[i + 1])));
  }
  return bytes;
}

inline Bytes Concat(Bytes first, const Bytes& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

// A u32 in its little-endian bytes.
inline Bytes U32(std::uint32_t value) {
  return {static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8),
          static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 24)};
}

// A frame of `id` around `payload`.
inline Bytes Frame(std::uint32_t id, const Bytes& payload) {
  return Concat(Concat(U32(static_cast<std::uint32_t>(payload.size() + 4)), U32(id)), payload);
}

inline Bytes BytesOf(const OByteStream_Memory& stream) { return {stream.GetBuffer().begin(), stream.GetBuffer().end()}; }

// Takes temporaries too: writing leaves an object as it was.
template <class Object>
Bytes Serialize(Object&& object) {
  OByteStream_Memory stream;
  object.AddObjectData(stream);
  return BytesOf(stream);
}

inline OByteStream_Memory StreamOf(const Bytes& bytes) { return OByteStream_Memory(bytes.data(), bytes.size()); }

// Reads `object` from the start of `bytes`; the reader's own answer.
// Takes temporaries too, for reads that only have to fail.
template <class Object>
bool Deserialize(Object&& object, const Bytes& bytes, bool initialize = true) {
  OByteStream_Memory stream = StreamOf(bytes);
  return object.GetObjectData(stream, initialize);
}

}  // namespace nk::testing

#endif  // TESTS_SUPPORT_BYTES_H_
