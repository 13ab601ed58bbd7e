#include "nkfoundation/services/win32/registry_strings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "nkfoundation/core/text.h"
#include "tests/support/bytes.h"
#include "tests/support/win32/scratch_registry_key.h"

namespace nk::testing {
namespace {

using utils::iGetRegBinary;
using utils::iGetRegString;
using utils::iSetRegBinary;
using utils::iSetRegString;

WritableCollection<std::uint8_t> Collect(const Bytes& bytes) { return WritableCollection<std::uint8_t>(bytes); }
Bytes BytesOf(const WritableCollection<std::uint8_t>& bytes) { return bytes; }

// The UTF-16 code units of `text`, low byte first.
Bytes UnitsOf(const std::u16string& text) {
  Bytes bytes;
  for (char16_t unit : text) {
    bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
  }
  return bytes;
}

class RegistryStringsTest : public ::testing::Test {
 protected:
  // Key names below the scratch key may hold any UTF-16 text.
  std::u16string Key(const std::u16string& below = u"") const {
    const std::u16string path = ToUtf16(scratch_.path());
    return below.empty() ? path : path + u"\\" + below;
  }

  ScratchRegistryKey scratch_{"registry-strings"};
};

TEST_F(RegistryStringsTest, StringsAndBlocksRoundTripUnderWideNames) {
  const std::u16string key = Key(u"Schl\u00FCssel \U0001F511");
  const std::u16string name = u"Wert \u00E4\U0001F600";
  for (const std::u16string text : {u"", u"plain", u"\u00C4rger \u20AC \U0001F600 \U00010348"}) {
    ASSERT_EQ(iSetRegString(HKEY_CURRENT_USER, key, name, Collect(UnitsOf(text))), utils::kRegistryOk);
    WritableCollection<std::uint8_t> read;
    ASSERT_EQ(iGetRegString(HKEY_CURRENT_USER, key, name, read), utils::kRegistryOk);
    EXPECT_EQ(BytesOf(read), UnitsOf(text));

    // Stored as REG_SZ with one terminating unit, as other programs expect.
    wchar_t stored[64] = {};
    DWORD type = 0, size = sizeof stored;
    ASSERT_EQ(RegGetValueW(HKEY_CURRENT_USER, reinterpret_cast<const wchar_t*>(key.c_str()),
                           reinterpret_cast<const wchar_t*>(name.c_str()), RRF_RT_ANY | RRF_NOEXPAND, &type,
                           stored, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(size, (text.size() + 1) * 2);
  }

  for (const Bytes& block : {Bytes{}, Hex("00FF0080 7F")}) {
    ASSERT_EQ(iSetRegBinary(HKEY_CURRENT_USER, key, u"block", Collect(block)), utils::kRegistryOk);
    WritableCollection<std::uint8_t> read = Collect(Hex("AA"));
    ASSERT_EQ(iGetRegBinary(HKEY_CURRENT_USER, key, u"block", read), utils::kRegistryOk);
    EXPECT_EQ(BytesOf(read), block);
  }
}

TEST_F(RegistryStringsTest, ReadingStopsAtTheFirstZeroUnitAndCopesWithoutOne) {
  HKEY key = nullptr;
  ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, reinterpret_cast<const wchar_t*>(Key().c_str()), 0, nullptr, 0,
                            KEY_WRITE, nullptr, &key, nullptr),
            ERROR_SUCCESS);
  const Bytes embedded = Hex("41004200 0000 4300 0000");
  const Bytes unterminated = Hex("41004200 43");  // an odd last byte too
  RegSetValueExW(key, L"embedded", 0, REG_SZ, embedded.data(), static_cast<DWORD>(embedded.size()));
  RegSetValueExW(key, L"unterminated", 0, REG_SZ, unterminated.data(), static_cast<DWORD>(unterminated.size()));
  RegCloseKey(key);

  WritableCollection<std::uint8_t> read;
  ASSERT_EQ(iGetRegString(HKEY_CURRENT_USER, Key(), u"embedded", read), utils::kRegistryOk);
  EXPECT_EQ(BytesOf(read), Hex("41004200"));
  ASSERT_EQ(iGetRegString(HKEY_CURRENT_USER, Key(), u"unterminated", read), utils::kRegistryOk);
  EXPECT_EQ(BytesOf(read), Hex("41004200"));
}

TEST_F(RegistryStringsTest, FailuresReportTheirCauseAndLeaveTheCollection) {
  ASSERT_EQ(iSetRegString(HKEY_CURRENT_USER, Key(), u"text", Collect(UnitsOf(u"t"))), utils::kRegistryOk);
  ASSERT_EQ(iSetRegBinary(HKEY_CURRENT_USER, Key(), u"block", Collect(Hex("01"))), utils::kRegistryOk);

  const Bytes kept = Hex("5A5A");
  const struct {
    int (*get)(HKEY, const std::u16string&, const std::u16string&, WritableCollection<std::uint8_t>&);
    std::u16string key;
    std::u16string name;
    int status;
  } kCases[] = {
      {iGetRegString, Key(u"missing"), u"text", utils::kRegistryNoKey},
      {iGetRegString, Key(), u"missing", utils::kRegistryNoValue},
      {iGetRegString, Key(), u"block", utils::kRegistryWrongType},
      {iGetRegBinary, Key(), u"text", utils::kRegistryWrongType},
      {iGetRegBinary, Key(u"missing"), u"block", utils::kRegistryNoKey},
  };
  for (const auto& expected : kCases) {
    WritableCollection<std::uint8_t> read = Collect(kept);
    EXPECT_EQ(expected.get(HKEY_CURRENT_USER, expected.key, expected.name, read), expected.status);
    EXPECT_EQ(BytesOf(read), kept);
  }

  EXPECT_EQ(iSetRegString(HKEY_CURRENT_USER, Key(), u"text", Collect(Hex("414243"))), utils::kRegistryBadText);
  // Without a root key nothing can be created.
  EXPECT_EQ(iSetRegBinary(nullptr, Key(), u"block", Collect(kept)), utils::kRegistryNoKey);
}

}  // namespace
}  // namespace nk::testing
