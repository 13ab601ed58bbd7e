// A 16-byte identifier with random generation and the text form that stored
// texts depend on.
#ifndef NKFOUNDATION_CORE_UUID_H_
#define NKFOUNDATION_CORE_UUID_H_

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "nkfoundation/core/export.h"

class NKF_API Uuid {
 public:
  using Bytes = std::array<signed char, 16>;

  Uuid() = default;
  // The parts are stored in the machine's byte order, as `A()` to `K()`
  // read them back.
  Uuid(std::int32_t a, std::int16_t b, std::int16_t c, signed char d, signed char e,
       signed char f, signed char g, signed char h, signed char i, signed char j, signed char k);
  explicit Uuid(const Bytes& bytes) : m_oData(bytes) {}
  explicit Uuid(Bytes&& bytes) : m_oData(std::move(bytes)) {}
  // Copies at most 16 bytes; missing ones are zero.
  Uuid(const signed char* bytes, std::size_t length);

  const Bytes& Data() const { return m_oData; }

  std::int32_t A() const;  // bytes 0 to 3
  std::int16_t B() const;  // bytes 4 and 5
  std::int16_t C() const;  // bytes 6 and 7
  signed char D() const { return m_oData[8]; }
  signed char E() const { return m_oData[9]; }
  signed char F() const { return m_oData[10]; }
  signed char G() const { return m_oData[11]; }
  signed char H() const { return m_oData[12]; }
  signed char I() const { return m_oData[13]; }
  signed char J() const { return m_oData[14]; }
  signed char K() const { return m_oData[15]; }

  bool Equals(const Uuid& other) const { return m_oData == other.m_oData; }
  static bool Equals(const Uuid& a, const Uuid& b) { return a.Equals(b); }
  friend bool operator==(const Uuid& a, const Uuid& b) { return a.Equals(b); }

  // The all-zero identifier, one instance shared by every caller.
  static std::shared_ptr<const Uuid> Empty();
  // Sixteen random bytes from a generator seeded once per call; no version
  // or variant bits are set.
  static std::unique_ptr<Uuid> Random();

  // "a-b-c-DE-FGHIJK": A, B and C as lowercase hexadecimal numbers (negative
  // ones in their two's complement width), D to K as raw characters. Stored
  // texts use this form, so it stays as it is.
  std::string ToUtf8String() const;
  // The same text widened byte by byte, so the raw bytes survive unchanged.
  std::u16string ToUtf16String() const;

 private:
  Bytes m_oData{};
};

#endif  // NKFOUNDATION_CORE_UUID_H_
