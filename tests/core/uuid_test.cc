#include "nkfoundation/core/uuid.h"

#include <gtest/gtest.h>

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
