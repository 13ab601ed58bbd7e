#include "nkfoundation/services/utils.h"

#include <cmath>
#include <cstring>

namespace utils {

const void* memmem(const void* haystack, const void* needle, unsigned int haystack_length,
                   unsigned int needle_length) {
  if (haystack == nullptr || needle == nullptr || haystack_length == 0 || needle_length == 0 ||
      needle_length > haystack_length) {
    return nullptr;
  }
  const auto* hay = static_cast<const unsigned char*>(haystack);
  const auto* pattern = static_cast<const unsigned char*>(needle);
  const unsigned char* const last = hay + (haystack_length - needle_length);
  for (const unsigned char* at = hay; at <= last; ++at) {
    at = static_cast<const unsigned char*>(std::memchr(at, pattern[0], static_cast<std::size_t>(last - at) + 1));
    if (at == nullptr) return nullptr;
    if (std::memcmp(at + 1, pattern + 1, needle_length - 1) == 0) return at;
  }
  return nullptr;
}

double dCBRound(double value) {
  const double scaled = value * 1e9;
  const double floor = std::floor(scaled);
  return (scaled - floor > 0.5 ? std::ceil(scaled) : floor) / 1e9;
}

unsigned int SetBit(int n) {
  if (n <= 0) return 1;
  if (n >= 32) return 0;
  return 1u << n;
}

int GetBit(unsigned int value, int n) { return (value & SetBit(n)) != 0 ? 1 : 0; }

bool IsValidObject(const void* object) { return object != nullptr; }

std::u16string ResStr(unsigned long /*id*/) { return std::u16string(); }

std::u16string oStrExtractLanguage(const std::u16string& text, int language) {
  constexpr char16_t kSeparator = u'|';
  if (language < 1 || language > 2 || text.find(kSeparator) == std::u16string::npos) return text;
  const std::size_t english_end = text.find(kSeparator);
  const std::u16string english = text.substr(0, english_end);
  if (language == 1) return english;
  const std::size_t start = english_end + 1;
  const std::u16string part = text.substr(start, text.find(kSeparator, start) - start);
  return part.empty() ? english : part;
}

unsigned int iByteArrayToAsciiString(const WritableCollection<std::uint8_t>& bytes, std::string& text) {
  text.clear();
  for (const std::uint8_t byte : bytes) {
    if (byte == 0) break;
    text.push_back(byte < 0x80 ? static_cast<char>(byte) : '?');
  }
  return static_cast<unsigned int>(text.size());
}

}  // namespace utils
