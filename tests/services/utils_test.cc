#include "nkfoundation/services/utils.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "nkfoundation/services/aes256.h"
#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

TEST(UtilsTest, MemmemFindsTheFirstOccurrenceWithinTheGivenLength) {
  const char hay[] = "xxabcab";
  EXPECT_EQ(utils::memmem(hay, "abc", 5, 3), hay + 2);
  EXPECT_EQ(utils::memmem(hay, "abc", 4, 3), nullptr);
  EXPECT_EQ(utils::memmem(hay, "ab", 7, 2), hay + 2);
  EXPECT_EQ(utils::memmem(hay, "cab", 7, 3), hay + 4);  // ends on the last byte
  EXPECT_EQ(utils::memmem(hay, "abcd", 7, 4), nullptr);
  EXPECT_EQ(utils::memmem(hay, "x", 7, 1), hay);
  EXPECT_EQ(utils::memmem(hay, "abc", 7, 0), nullptr);
  EXPECT_EQ(utils::memmem(nullptr, "abc", 7, 3), nullptr);
  EXPECT_EQ(utils::memmem(hay, "xxabcabx", 7, 8), nullptr);
}

TEST(UtilsTest, RoundingToNineDecimalsBreaksTiesDownward) {
  const struct {
    double value;
    double rounded;
  } kCases[] = {{0.0000000015, 0.000000001}, {0.0000000016, 0.000000002}, {1.25e-9, 1e-9},
                {-2.5e-9, -3e-9},           {-2.6e-9, -3e-9},           {-2.4e-9, -2e-9},
                {3.0, 3.0},                 {0.0, 0.0}};
  for (const auto& c : kCases) EXPECT_DOUBLE_EQ(utils::dCBRound(c.value), c.rounded) << c.value;
}

TEST(UtilsTest, BitsBelowOneMeanBitZero) {
  EXPECT_EQ(utils::SetBit(0), 1u);
  EXPECT_EQ(utils::SetBit(-4), 1u);
  EXPECT_EQ(utils::SetBit(3), 8u);
  EXPECT_EQ(utils::SetBit(31), 0x80000000u);
  EXPECT_EQ(utils::SetBit(32), 0u);
  EXPECT_EQ(utils::GetBit(1, 0), 1);
  EXPECT_EQ(utils::GetBit(1, -4), 1);
  EXPECT_EQ(utils::GetBit(0x80000000u, 31), 1);
  EXPECT_EQ(utils::GetBit(0x7FFFFFFFu, 31), 0);
  EXPECT_EQ(utils::GetBit(0xFFFFFFFFu, 40), 0);
  const int object = 0;
  EXPECT_TRUE(utils::IsValidObject(&object));
  EXPECT_FALSE(utils::IsValidObject(nullptr));
  EXPECT_EQ(utils::ResStr(101), u"");
}

TEST(UtilsTest, LanguagePartsFallBackToEnglish) {
  const struct {
    const char16_t* text;
    int language;
    const char16_t* part;
  } kCases[] = {{u"Yes|Ja", 1, u"Yes"},   {u"Yes|Ja", 2, u"Ja"},       {u"Yes|Ja", 0, u"Yes|Ja"},
                {u"Yes|Ja", 7, u"Yes|Ja"}, {u"Yes", 2, u"Yes"},         {u"Yes|", 2, u"Yes"},
                {u"Yes", 1, u"Yes"},       {u"A|B|C", 2, u"B"},         {u"|Ja", 1, u""}};
  for (const auto& c : kCases) EXPECT_EQ(utils::oStrExtractLanguage(c.text, c.language), c.part) << c.language;
}

TEST(UtilsTest, BytesBecomeAsciiUpToTheTerminator) {
  WritableCollection<std::uint8_t> bytes;
  for (const std::uint8_t b : Hex("43616DE9 3100 78")) bytes.Add(b);  // "Cam", 0xE9, "1", 0, "x"
  std::string text = "old";
  EXPECT_EQ(utils::iByteArrayToAsciiString(bytes, text), 5u);
  EXPECT_EQ(text, "Cam?1");
  EXPECT_EQ(utils::iByteArrayToAsciiString(WritableCollection<std::uint8_t>(), text), 0u);
  EXPECT_EQ(text, "");
}

// The AES-256 example of the standard's appendix C.3.
TEST(Aes256Test, StandardExampleEncryptsAndDecrypts) {
  const Bytes key = Hex("000102030405060708090a0b0c0d0e0f101112131415161718191a1b1c1d1e1f");
  const Bytes plain = Hex("00112233445566778899aabbccddeeff");
  const Bytes cipher = Hex("8ea2b7ca516745bfeafc49904b496089");
  aes256::context ctx;
  aes256::init(&ctx, key.data());
  Bytes block = plain;
  aes256::encrypt_ecb(&ctx, block.data());
  EXPECT_EQ(block, cipher);
  aes256::decrypt_ecb(&ctx, block.data());
  EXPECT_EQ(block, plain);

  aes256::done(&ctx);
  const std::array<unsigned char, sizeof ctx> zero{};
  EXPECT_EQ(std::memcmp(&ctx, zero.data(), sizeof ctx), 0);
  aes256::encrypt_ecb(nullptr, block.data());
}

}  // namespace
}  // namespace nk::testing
