#include "nkfoundation/services/win32/registry.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "nkfoundation/services/win32/registry_value.h"
#include "tests/support/bytes.h"
#include "tests/support/win32/scratch_registry_key.h"

namespace nk::testing {
namespace {

using Strings = std::vector<std::u16string>;

Bytes BytesOf(const OType_RegistryValue& value) { return Bytes(value.GetData(), value.GetData() + value.GetSize()); }
WritableCollection<std::u16string> Collect(Strings strings) {
  return WritableCollection<std::u16string>(std::move(strings));
}

TEST(RegistryValueTest, SettersStoreTypeAndExactBytes) {
  unsigned char block[] = {0xDE, 0xAD, 0xBE};
  const wchar_t* wide[] = {L"ab", nullptr, L"c"};
  OType_RegistryValue dword(0x12345678ul), text("abc"), binary(block, 3), multi(Collect({u"ab", u"", u"c"})),
      expand(1ul), wide_multi(1ul), no_strings(1ul);
  expand.SetValue(nullptr, true);
  wide_multi.SetValue(wide, 3);
  no_strings.SetValue(wide, 0);
  // Every string of a multi-string with its zero unit, then one more.
  const Bytes ab_empty_c = Hex("61006200 0000 0000 6300 0000 0000");
  const struct {
    const OType_RegistryValue& value;
    unsigned long type;
    Bytes bytes;
  } kCases[] = {
      {dword, REG_DWORD, Hex("78563412")},      {text, REG_SZ, Hex("61626300")},
      {binary, REG_BINARY, Hex("DEADBE")},      {multi, REG_MULTI_SZ, ab_empty_c},
      {expand, REG_EXPAND_SZ, Hex("00")},       {wide_multi, REG_MULTI_SZ, ab_empty_c},
      {no_strings, REG_MULTI_SZ, Hex("00000000")},
  };
  for (const auto& expected : kCases) {
    EXPECT_EQ(expected.value.GetType(), expected.type);
    EXPECT_EQ(BytesOf(expected.value), expected.bytes);
  }
}

TEST(RegistryValueTest, GettersAcceptOnlyTheirTypesAndLeaveOutputsOtherwise) {
  unsigned char block[] = {1, 2, 3, 4};
  OType_RegistryValue dword(7ul), text("abc"), binary(block, 4);
  std::string string = "keep";
  unsigned long number = 99;
  unsigned char out[4] = {9, 9, 9, 9};
  unsigned char* out_pointer = out;
  WritableCollection<std::u16string> strings = Collect({u"keep"});
  EXPECT_FALSE(dword.GetValue(string));
  EXPECT_FALSE(text.GetValue(number));
  EXPECT_FALSE(text.GetValue(out_pointer, 4));
  EXPECT_FALSE(binary.GetValue(strings));
  EXPECT_FALSE(binary.GetValue(out_pointer, 3));  // not the stored size
  EXPECT_EQ(std::tie(string, number), std::make_tuple(std::string("keep"), 99ul));
  EXPECT_EQ(Bytes(out, out + 4), Hex("09090909"));
  EXPECT_EQ(Strings(strings), Strings{u"keep"});
  EXPECT_TRUE(binary.GetValue(out_pointer, 4));
  EXPECT_EQ(Bytes(out, out + 4), Hex("01020304"));

  // The multi-string splits at its double terminator; non-BMP text survives.
  OType_RegistryValue multi(Collect({u"one", u"\U0001F600x", u"", u"lost"}));
  ASSERT_TRUE(multi.GetValue(strings));
  EXPECT_EQ(Strings(strings), (Strings{u"one", u"\U0001F600x"}));
  const wchar_t* first = nullptr;
  ASSERT_TRUE(multi.GetValue(first));
  EXPECT_EQ(std::wstring(first), L"one");
}

class RegistryTest : public ::testing::Test {
 protected:
  const char* Key() const { return scratch_.path().c_str(); }
  std::string Key(const std::string& below) const { return scratch_ / below; }

  ScratchRegistryKey scratch_{"registry"};
  OType_Registry registry_{HKEY_CURRENT_USER};
};

TEST_F(RegistryTest, SavesAndLoadsEveryKindOfValue) {
  unsigned char block[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
  // A connected root is good for one access: the save closes it.
  OType_Registry connected(nullptr);
  EXPECT_FALSE(connected.Connect("\\\\no-such-machine.invalid", HKEY_CURRENT_USER));
  EXPECT_EQ(connected.GetKey(), nullptr);
  ASSERT_TRUE(connected.Connect(nullptr, HKEY_CURRENT_USER));
  ASSERT_TRUE(connected.SaveKey(Key(), "dword", 0xCAFEul));
  ASSERT_TRUE(registry_.SaveKey(Key(), "text", "hello"));
  ASSERT_TRUE(OType_Registry::SaveKey(Key(), "binary", block, 16, HKEY_CURRENT_USER));
  ASSERT_TRUE(registry_.SaveKey(Key(), "multi", OType_RegistryValue(Collect({u"a", u"bc"}))));

  // Written with their types, as other programs see them. Through the ANSI
  // calls every byte of the UTF-16 multi-string is widened on the way in and
  // narrowed on the way out: it round-trips through this class, while wide
  // readers see twice the bytes.
  EXPECT_EQ(scratch_.Read(u"", L"dword"), StoredDword(0xCAFE));
  EXPECT_EQ(scratch_.Read(u"", L"multi"),
            StoredValue(REG_MULTI_SZ, Hex("6100 0000 0000 0000 6200 0000 6300 0000 0000 0000 0000 0000")));

  unsigned long number = 0;
  std::string text;
  unsigned char read[16] = {};
  WritableCollection<std::u16string> strings;
  OType_RegistryValue multi(0ul);
  EXPECT_TRUE(registry_.LoadKey(Key(), "dword", number));
  EXPECT_TRUE(OType_Registry::LoadKey(Key(), "text", text, HKEY_CURRENT_USER));
  EXPECT_TRUE(registry_.LoadKey(Key(), "binary", read, 16));
  ASSERT_TRUE(registry_.LoadKey(Key(), "multi", multi));
  EXPECT_EQ(std::tie(number, text), std::make_tuple(0xCAFEul, std::string("hello")));
  EXPECT_EQ(Bytes(read, read + 16), Bytes(block, block + 16));
  ASSERT_TRUE(multi.GetValue(strings));
  EXPECT_EQ(Strings(strings), (Strings{u"a", u"bc"}));
}

TEST_F(RegistryTest, LoadsKeepStoredBytesAndRefuseWhatDoesNotFit) {
  ASSERT_TRUE(scratch_.Write(u"", L"big", REG_DWORD_BIG_ENDIAN, Hex("12345678")));
  ASSERT_TRUE(scratch_.Write(u"", L"sixteen", REG_BINARY, Bytes(16)));
  unsigned long number = 0;
  EXPECT_TRUE(registry_.LoadKey(Key(), "big", number));
  EXPECT_EQ(number, 0x78563412ul);  // not swapped: the bytes as stored

  unsigned char eight[8] = {5, 5, 5, 5, 5, 5, 5, 5};
  std::string text = "keep";
  number = 1;
  EXPECT_FALSE(registry_.LoadKey(Key(), "sixteen", eight, 8));
  EXPECT_FALSE(registry_.LoadKey(Key(), "sixteen", text));
  EXPECT_FALSE(registry_.LoadKey(Key(), "missing", number));
  EXPECT_EQ(Bytes(eight, eight + 8), Hex("0505050505050505"));
  EXPECT_EQ(std::tie(text, number), std::make_tuple(std::string("keep"), 1ul));
}

TEST_F(RegistryTest, DeletesValuesAndWholeTreesAndCountsEntries) {
  for (const char* below : {"a\\b\\c", "a\\b\\d", "a\\e"}) ASSERT_TRUE(registry_.SaveKey(Key(below).c_str(), "v", 1ul));
  ASSERT_TRUE(registry_.SaveKey(Key("a").c_str(), "w", "x"));
  unsigned long keys = 9, values = 9;
  EXPECT_TRUE(registry_.HasEntries(Key("a").c_str(), &keys, &values));
  EXPECT_EQ(std::tie(keys, values), std::make_tuple(2ul, 1ul));

  EXPECT_TRUE(registry_.DeleteKey(Key("a").c_str(), "w"));
  EXPECT_FALSE(registry_.DeleteKey(Key("a").c_str(), "w"));
  EXPECT_TRUE(registry_.HasEntries(Key("a").c_str(), &keys, nullptr));
  EXPECT_EQ(keys, 2ul);

  EXPECT_TRUE(registry_.DeleteKey(Key("a").c_str(), nullptr));
  EXPECT_FALSE(scratch_.Exists("a"));
  EXPECT_FALSE(registry_.HasEntries(Key(), &keys, &values));
  EXPECT_EQ(std::tie(keys, values), std::make_tuple(0ul, 0ul));
  EXPECT_TRUE(scratch_.Exists());
}

// Collects what a walk meets, and stops after `limit` hits.
class CollectingRegistry : public OType_Registry {
 public:
  explicit CollectingRegistry(std::size_t limit = SIZE_MAX) : OType_Registry(HKEY_CURRENT_USER), limit_(limit) {}

  bool OnValueHit(const char* keyPath, const char* valueName, const OType_RegistryValue& value,
                  unsigned short depth) override {
    unsigned long number = 0;
    value.GetValue(number);
    return Hit(std::string(keyPath) + "|" + valueName + "=" + std::to_string(number), depth);
  }
  bool OnKeyHit(const char* subKeyName, unsigned short depth) override {
    return Hit(std::string("key ") + subKeyName, depth);
  }

  std::vector<std::string> hits;

 private:
  bool Hit(const std::string& what, unsigned short depth) {
    hits.push_back(what + "@" + std::to_string(depth));
    return hits.size() < limit_;
  }
  std::size_t limit_;
};

TEST_F(RegistryTest, WalkVisitsTheTreeDepthFirstAndStopsOnFalse) {
  ASSERT_TRUE(registry_.SaveKey(Key(), "top", 1ul));
  ASSERT_TRUE(registry_.SaveKey(Key("b\\c").c_str(), "deep", 3ul));
  ASSERT_TRUE(registry_.SaveKey(Key("b").c_str(), "mid", 2ul));
  const std::string top = scratch_.path() + "|top=1@0", mid = Key("b") + "|mid=2@1", deep = Key("b\\c") + "|deep=3@2";
  const unsigned int both = OType_Registry::kWalkValues | OType_Registry::kWalkKeys;
  const struct {
    unsigned int flags;
    std::vector<std::string> hits;
  } kCases[] = {
      {both, {top, "key b@0", mid, "key c@1", deep}},
      {OType_Registry::kWalkValues, {top, mid, deep}},
      {OType_Registry::kWalkKeys, {"key b@0", "key c@1"}},
      {0, {}},
  };
  for (const auto& expected : kCases) {
    CollectingRegistry walker;
    EXPECT_TRUE(walker.RegistryTreeWalk(Key(), expected.flags));
    EXPECT_EQ(walker.hits, expected.hits) << "flags " << expected.flags;
  }

  CollectingRegistry stopping(2);
  EXPECT_FALSE(stopping.RegistryTreeWalk(Key(), both));
  EXPECT_EQ(stopping.hits.size(), 2u);
  // The base class stops at its first hit; an empty key has none.
  EXPECT_FALSE(registry_.RegistryTreeWalk(Key(), OType_Registry::kWalkValues));
  EXPECT_TRUE(registry_.RegistryTreeWalk(Key("b\\c").c_str(), OType_Registry::kWalkKeys));
  EXPECT_FALSE(registry_.RegistryTreeWalk(Key("missing").c_str(), OType_Registry::kWalkKeys));
}

}  // namespace
}  // namespace nk::testing
