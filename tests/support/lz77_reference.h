// A reference of the image coder, written plainly from its description: whole
// arrays instead of rings, every hash computed from scratch, one bit at a
// time. Slow and obviously right; the library's coder must match it byte for
// byte.
#ifndef TESTS_SUPPORT_LZ77_REFERENCE_H_
#define TESTS_SUPPORT_LZ77_REFERENCE_H_

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace nk::testing {

using Bytes = std::vector<std::uint8_t>;

inline constexpr std::uint8_t kLz77Trailer[7] = {0x00, 0xFA, 0xEB, 0xDC, 0xCD, 0xBE, 0xAF};

// hash[s][len]: the hash of the `len` words from s, wherever they fit. The
// reference keeps its own copy of the format's byte table rather than the
// library's, so that an entry changed in either breaks the comparison.
inline std::vector<std::array<int, 16>> ReferenceHashes(const std::vector<std::uint16_t>& words) {
  static constexpr std::uint8_t kT[256] = {
      0xEB, 0x2E, 0x90, 0x19, 0x3A, 0x9B, 0xFA, 0x77, 0xAB, 0x5D, 0x55, 0xA2, 0x8A, 0x68, 0x4F, 0x1E,
      0xA0, 0x63, 0xE5, 0x93, 0xC4, 0x34, 0xF4, 0xD4, 0x47, 0x5A, 0x79, 0x04, 0xBC, 0x85, 0x9E, 0xD9,
      0xA6, 0x12, 0x8D, 0xC1, 0x02, 0xD0, 0x2B, 0x74, 0x49, 0xE7, 0xB3, 0x61, 0x17, 0x6C, 0xBF, 0x6E,
      0x27, 0xD7, 0x66, 0x0B, 0x58, 0xAE, 0xDF, 0x06, 0x32, 0xF9, 0x52, 0xD2, 0x95, 0x42, 0x7C, 0x50,
      0xC3, 0x88, 0x26, 0xA8, 0xFD, 0x8E, 0x40, 0xF7, 0x71, 0x2D, 0x15, 0x6A, 0xCF, 0x99, 0x7A, 0x20,
      0xA5, 0x09, 0x5F, 0xDA, 0xF2, 0x97, 0x82, 0xC7, 0x11, 0x3D, 0x76, 0xB6, 0x29, 0x4D, 0xF1, 0xB1,
      0x31, 0x9D, 0xEE, 0x5B, 0x22, 0x81, 0x24, 0xB8, 0xCC, 0x7D, 0x01, 0x54, 0xDC, 0x84, 0x0D, 0x7F,
      0xA9, 0x70, 0xE2, 0xB4, 0xE9, 0xBA, 0xFF, 0x1C, 0xC9, 0x92, 0x4B, 0xC6, 0xDE, 0x08, 0x3E, 0xD5,
      0x8C, 0xCE, 0x5E, 0xE4, 0x10, 0xA3, 0xE6, 0x33, 0xC2, 0x73, 0xE1, 0x36, 0x94, 0xF6, 0x28, 0x62,
      0xAD, 0x0E, 0xEC, 0x44, 0xFB, 0x65, 0x87, 0x98, 0x3C, 0x9C, 0x1D, 0xC8, 0x56, 0xD9, 0x00, 0xEF,
      0x51, 0xAF, 0x3B, 0xF3, 0x7E, 0x35, 0x75, 0xC0, 0x0C, 0xD6, 0x41, 0x9F, 0x1F, 0xBE, 0x39, 0xDB,
      0x05, 0x86, 0x4E, 0xF8, 0xDD, 0x1B, 0x83, 0x59, 0x2A, 0xB7, 0xEA, 0xA4, 0x5D, 0xBB, 0x46, 0xCB,
      0x0A, 0x6D, 0x48, 0xF5, 0x38, 0xB0, 0x18, 0xD3, 0x30, 0xB2, 0x07, 0xFE, 0x78, 0x21, 0xA1, 0x37,
      0x69, 0xD1, 0x16, 0x80, 0xB5, 0x0F, 0x9A, 0x45, 0xE8, 0x2C, 0x5C, 0x4C, 0x91, 0x13, 0xE0, 0x64,
      0x8B, 0xD8, 0x03, 0xFC, 0x53, 0xCD, 0xBD, 0x23, 0xAA, 0x1A, 0x6F, 0x67, 0x43, 0x96, 0xA7, 0x4A,
      0x89, 0xF0, 0x2F, 0x7B, 0x3F, 0xED, 0xAC, 0x57, 0x72, 0x25, 0x14, 0xCA, 0xC5, 0x8F, 0xB9, 0x00};
  auto step = [](int h, int b) { return ((h << 4) ^ kT[(h >> 7) ^ b]) & 0x7FFF; };
  std::vector<std::array<int, 16>> hashes(words.size());
  for (std::size_t s = 0; s < words.size(); ++s) {
    int h = 0;
    for (std::size_t len = 1; len <= 15 && s + len <= words.size(); ++len) {
      h = step(step(h, words[s + len - 1] & 0xFF), words[s + len - 1] >> 8);
      hashes[s][len] = h;
    }
  }
  return hashes;
}

// The stream as a list of bits, packed least significant bit first.
struct ReferenceBits {
  Bytes bytes;
  std::int64_t count = 0;

  void Put(std::uint32_t value, int n) {
    for (int i = 0; i < n; ++i, ++count) {
      if (count % 8 == 0) bytes.push_back(0);
      bytes.back() |= static_cast<std::uint8_t>(((value >> i) & 1) << (count % 8));
    }
  }
  std::uint32_t Get(int n) {  // bits past the end read as zeros
    std::uint32_t value = 0;
    for (int i = 0; i < n; ++i, ++count) {
      const bool inside = count / 8 < static_cast<std::int64_t>(bytes.size());
      if (inside && (bytes[count / 8] >> (count % 8) & 1)) value |= 1u << i;
    }
    return value;
  }
};

inline Bytes ReferenceCompress(Bytes source) {
  if (source.size() % 2 != 0) source.insert(source.end(), std::begin(kLz77Trailer), std::end(kLz77Trailer));
  const std::int64_t total = static_cast<std::int64_t>(source.size() / 2);
  std::vector<std::uint16_t> w(total);
  for (std::int64_t i = 0; i < total; ++i) w[i] = static_cast<std::uint16_t>(source[2 * i] | source[2 * i + 1] << 8);
  const auto hash = ReferenceHashes(w);

  // table[len * 32768 + hash]: where a string of that length and hash last
  // started. One table serves every call; each call puts back what it touched.
  static std::vector<std::int64_t> table(16 * 32768, -4096);
  std::vector<std::size_t> touched;
  std::int64_t position = 0;
  std::int64_t window_start = 0;
  std::int64_t loaded = std::min<std::int64_t>(total, 8192);
  ReferenceBits out;
  while (loaded > position) {
    const std::int64_t r = loaded - position;
    int length = 0;
    std::int64_t distance = 0;
    for (int len = static_cast<int>(std::min<std::int64_t>(r, 15)); r >= 2 && len >= 2 && length == 0; --len) {
      const std::int64_t candidate = table[len * 32768 + hash[position][len]];
      if (position - candidate < 4096 &&
          std::equal(w.begin() + candidate, w.begin() + candidate + len, w.begin() + position)) {
        length = len;
        distance = position - candidate;
      }
    }
    int n = 1;
    if (length > 0) {
      out.Put(0, 1);
      out.Put(static_cast<std::uint32_t>(distance), 12);
      out.Put(static_cast<std::uint32_t>(length), 4);
      n = length;
    } else {
      out.Put(1, 1);
      out.Put(w[position], 16);
    }
    // Strings enter their tables when the encoder passes their last word.
    for (std::int64_t e = position; e < position + n; ++e) {
      const std::int64_t k = e - window_start + 1;
      for (int len = 2; len <= std::min<std::int64_t>(k, 15); ++len) {
        touched.push_back(static_cast<std::size_t>(len * 32768 + hash[e - len + 1][len]));
        table[touched.back()] = e - len + 1;
      }
    }
    position += n;
    if (position - window_start >= 4096) window_start = position - 4096;
    if (loaded - position < 2048) loaded = std::min(total, loaded + 2048);
  }
  out.Put(0, static_cast<int>(8 - out.count % 8));  // the pending byte, always
  for (std::size_t entry : touched) table[entry] = -4096;
  return out.bytes;
}

// Produces what the decoder's ring holds: a word `distance` back, where the
// words before the first read as zeros and distance 0 reaches 8192 back.
inline Bytes ReferenceDecompress(const Bytes& stream) {
  if (stream.empty()) return {};
  ReferenceBits in{stream, 0};
  std::vector<std::uint16_t> words;
  auto back = [&](std::int64_t distance) -> std::uint16_t {
    const std::int64_t from = static_cast<std::int64_t>(words.size()) - (distance == 0 ? 8192 : distance);
    return from >= 0 ? words[from] : 0;
  };
  // The last byte is taken up once the bits before it are spent; decoding
  // stops after that token.
  while (in.count < 8 * (static_cast<std::int64_t>(stream.size()) - 1)) {
    if (in.Get(1)) {
      words.push_back(static_cast<std::uint16_t>(in.Get(16)));
    } else {
      const std::uint32_t distance = in.Get(12);
      const std::uint32_t length = in.Get(4);
      for (std::uint32_t i = 0; i < length; ++i) words.push_back(back(distance));
    }
  }
  Bytes result;
  for (std::uint16_t word : words) {
    result.push_back(static_cast<std::uint8_t>(word));
    result.push_back(static_cast<std::uint8_t>(word >> 8));
  }
  if (result.size() >= 9 && std::equal(std::begin(kLz77Trailer), std::end(kLz77Trailer), result.end() - 7)) {
    result.resize(result.size() - 7);
  }
  return result;
}

}  // namespace nk::testing

#endif  // TESTS_SUPPORT_LZ77_REFERENCE_H_
