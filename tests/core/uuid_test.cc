#include "nkfoundation/core/uuid.h"

#include <gtest/gtest.h>

#include <locale>
#include <string>

namespace {

// The text reads every part back through its getter, so it also pins where
// each part lies in the bytes.
TEST(UuidTest, TextShowsHexNumbersThenRawCharacters) {
  // Negative parts print in their own width; D to K are characters.
  const Uuid uuid(-1, -2, 0xab, 'G', 'h', '0', ' ', 'x', 'y', 'z', '!');
  EXPECT_EQ(uuid.ToUtf8String(), "ffffffff-fffe-ab-Gh-0 xyz!");
  EXPECT_EQ(uuid.ToUtf16String(), u"ffffffff-fffe-ab-Gh-0 xyz!");

  const Uuid with_raw_bytes(0x1a2b3c, 0, 0, 0, -1, 0, 0, 0, 0, 0, 0);
  EXPECT_EQ(with_raw_bytes.ToUtf8String(), std::string("1a2b3c-0-0-\0\xff-\0\0\0\0\0\0", 20));
  EXPECT_EQ(with_raw_bytes.ToUtf16String()[12], u'\u00ff');
}

// A host that groups digits in its global locale must not change the text.
TEST(UuidTest, TextIgnoresTheGlobalLocale) {
  struct Grouping : std::numpunct<char> {
    char do_thousands_sep() const override { return ','; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale previous = std::locale::global(std::locale(std::locale::classic(), new Grouping));
  const std::string text = Uuid(-1, -2, 0x1234, 'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h').ToUtf8String();
  std::locale::global(previous);
  EXPECT_EQ(text, "ffffffff-fffe-1234-ab-cdefgh");
}

// Short byte input is padded with zeros; the empty identifier is one shared
// zero, and random ones differ.
TEST(UuidTest, ZeroPaddingEmptyAndRandom) {
  const Uuid uuid(-2, -3, 0x1234, 1, 2, 3, 4, 5, 6, 7, -8);
  EXPECT_EQ(Uuid(uuid.Data().data(), 16), uuid);
  EXPECT_EQ(Uuid(uuid.Data().data(), 4), Uuid(-2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_EQ(*Uuid::Empty(), Uuid(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_EQ(Uuid::Empty().get(), Uuid::Empty().get());
  EXPECT_FALSE(Uuid::Equals(*Uuid::Random(), *Uuid::Random()));
}

}  // namespace
