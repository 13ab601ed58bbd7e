#include "nkfoundation/core/uuid.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <random>

namespace {

// Lowercase hexadecimal without leading zeros.
template <class Unsigned>
void AppendHex(std::string& text, Unsigned value) {
  char digits[2 * sizeof(Unsigned)];
  char* end = std::to_chars(std::begin(digits), std::end(digits), value, 16).ptr;
  text.append(std::begin(digits), end);
}

}  // namespace

Uuid::Uuid(std::int32_t a, std::int16_t b, std::int16_t c, signed char d, signed char e,
           signed char f, signed char g, signed char h, signed char i, signed char j,
           signed char k)
    : m_oData{0, 0, 0, 0, 0, 0, 0, 0, d, e, f, g, h, i, j, k} {
  std::memcpy(m_oData.data(), &a, 4);
  std::memcpy(m_oData.data() + 4, &b, 2);
  std::memcpy(m_oData.data() + 6, &c, 2);
}

Uuid::Uuid(const signed char* bytes, std::size_t length) {
  std::copy_n(bytes, std::min(length, m_oData.size()), m_oData.begin());
}

std::int32_t Uuid::A() const {
  std::int32_t value;
  std::memcpy(&value, m_oData.data(), 4);
  return value;
}

std::int16_t Uuid::B() const {
  std::int16_t value;
  std::memcpy(&value, m_oData.data() + 4, 2);
  return value;
}

std::int16_t Uuid::C() const {
  std::int16_t value;
  std::memcpy(&value, m_oData.data() + 6, 2);
  return value;
}

std::shared_ptr<const Uuid> Uuid::Empty() {
  static const auto empty = std::make_shared<const Uuid>();
  return empty;
}

std::unique_ptr<Uuid> Uuid::Random() {
  std::random_device source;
  std::mt19937 generator(source());
  std::uniform_int_distribution<int> byte(-128, 127);
  auto uuid = std::make_unique<Uuid>();
  for (signed char& value : uuid->m_oData) value = static_cast<signed char>(byte(generator));
  return uuid;
}

std::string Uuid::ToUtf8String() const {
  // Negative parts print as the unsigned number of their own width. No
  // stream is involved, so the host's locale cannot group the digits.
  std::string text;
  AppendHex(text, static_cast<std::uint32_t>(A()));
  text += '-';
  AppendHex(text, static_cast<std::uint16_t>(B()));
  text += '-';
  AppendHex(text, static_cast<std::uint16_t>(C()));
  text += '-';
  text += {static_cast<char>(D()), static_cast<char>(E()), '-', static_cast<char>(F()), static_cast<char>(G()),
           static_cast<char>(H()), static_cast<char>(I()), static_cast<char>(J()), static_cast<char>(K())};
  return text;
}

std::u16string Uuid::ToUtf16String() const {
  const std::string narrow = ToUtf8String();
  std::u16string wide(narrow.size(), u'\0');
  std::transform(narrow.begin(), narrow.end(), wide.begin(),
                 [](char c) { return static_cast<char16_t>(static_cast<unsigned char>(c)); });
  return wide;
}
