#include "nkfoundation/services/win32/registry_strings.h"

#include <gtest/gtest.h>

#include <string>

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

// The UTF-16 code units of `text`, low byte first.
Bytes UnitsOf(const std::u16string& text) {
  Bytes bytes;
  for (char16_t unit : text) bytes.insert(bytes.end(), {std::uint8_t(unit & 0xFF), std::uint8_t(unit >> 8)});
  return bytes;
}

class RegistryStringsTest : public ::testing::Test {
 protected:
  // Key names below the scratch key may hold any UTF-16 text.
  std::u16string Key(const std::u16string& below = u"") const {
    return ToUtf16(scratch_.path()) + (below.empty() ? u"" : u"\\" + below);
  }

  ScratchRegistryKey scratch_{"registry-strings"};
};

TEST_F(RegistryStringsTest, StringsAndBlocksRoundTripUnderWideNames) {
  const std::u16string below = u"Schl\u00FCssel \U0001F511";
  const std::u16string name = u"Wert \u00E4\U0001F600";
  for (const std::u16string text : {u"", u"plain", u"\u00C4rger \u20AC \U0001F600 \U00010348"}) {
    ASSERT_EQ(iSetRegString(HKEY_CURRENT_USER, Key(below), name, Collect(UnitsOf(text))), utils::kRegistryOk);
    WritableCollection<std::uint8_t> read;
    ASSERT_EQ(iGetRegString(HKEY_CURRENT_USER, Key(below), name, read), utils::kRegistryOk);
    EXPECT_EQ(Bytes(read), UnitsOf(text));
    // Stored as REG_SZ with one terminating unit, as other programs expect.
    EXPECT_EQ(scratch_.Read(below, reinterpret_cast<const wchar_t*>(name.c_str())),
              StoredValue(REG_SZ, UnitsOf(text + u'\0')));
  }
  for (const Bytes& block : {Bytes{}, Hex("00FF0080 7F")}) {
    ASSERT_EQ(iSetRegBinary(HKEY_CURRENT_USER, Key(below), u"block", Collect(block)), utils::kRegistryOk);
    WritableCollection<std::uint8_t> read = Collect(Hex("AA"));
    ASSERT_EQ(iGetRegBinary(HKEY_CURRENT_USER, Key(below), u"block", read), utils::kRegistryOk);
    EXPECT_EQ(Bytes(read), block);
  }
}

TEST_F(RegistryStringsTest, ReadingStopsAtTheFirstZeroUnitAndCopesWithoutOne) {
  // The second without a terminator, and with an odd last byte.
  for (const Bytes& stored : {Hex("41004200 0000 4300 0000"), Hex("41004200 43")}) {
    ASSERT_TRUE(scratch_.Write(u"", L"text", REG_SZ, stored));
    WritableCollection<std::uint8_t> read;
    ASSERT_EQ(iGetRegString(HKEY_CURRENT_USER, Key(), u"text", read), utils::kRegistryOk);
    EXPECT_EQ(Bytes(read), Hex("41004200"));
  }
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
    EXPECT_EQ(Bytes(read), kept);
  }
  EXPECT_EQ(iSetRegString(HKEY_CURRENT_USER, Key(), u"text", Collect(Hex("414243"))), utils::kRegistryBadText);
  // Without a root key nothing can be created.
  EXPECT_EQ(iSetRegBinary(nullptr, Key(), u"block", Collect(kept)), utils::kRegistryNoKey);
}

}  // namespace
}  // namespace nk::testing
