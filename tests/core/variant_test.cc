#include "nkfoundation/core/variant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <tuple>

#include "nkfoundation/core/culture.h"
#include "nkfoundation/core/text.h"
#include "tests/support/bytes.h"
#include "tests/support/counting_progress.h"

namespace {

using nk::testing::Bytes;
using nk::testing::Hex;
using nk::testing::Serialize;

OType_Variant Make(int type, double value) {
  OType_Variant variant;
  variant.m_iType = type;
  variant.m_dValue = value;
  return variant;
}

std::string TextOf(int type, double value) { return nk::ToUtf8(Make(type, value).oStrGetValue()); }

struct Shown {
  int type;
  double value;
  const char* text;
};

TEST(VariantFrameTest, TypeAndValueWithoutTailOrProgress) {
  const Bytes tenths = Hex("10000000 002BD0FE 03000000 0000000000C05E40");  // 12.3 as 123
  OType_Variant variant = Make(3, 123);
  variant.m_oUserData.Add(0xEE);  // a variant never writes a tail
  EXPECT_EQ(variant.GetObjectSize(), 20u);
  EXPECT_EQ(Serialize(variant), tenths);

  // A newer frame is read and its surplus skipped; an older one (8 of the 12
  // bytes) keeps the value or resets it by the flag; another class is refused.
  const Bytes newer = Hex("13000000 002BD0FE 03000000 0000000000C05E40 010203");
  const Bytes older = Hex("0C000000 002BD0FE 07000000 01020304");
  const Bytes other = Hex("10000000 002CD0FE 00000000 0000000000000000");
  const Bytes kept = Serialize(Make(1, 5));
  const Bytes reset = Serialize(OType_Variant());
  const std::tuple<const Bytes&, bool, bool, const Bytes&> kCases[] = {
      {newer, false, true, tenths}, {older, false, true, kept},
      {older, true, true, reset},   {other, true, false, kept}};
  nk::testing::CountingProgress progress;
  for (const auto& [frame, initialize, reads, result] : kCases) {
    OType_Variant read = Make(1, 5);
    auto stream = nk::testing::StreamOf(frame);
    stream.SetProgressCtrl(&progress);
    EXPECT_EQ(read.GetObjectData(stream, initialize), reads);
    EXPECT_TRUE(!reads || stream.GetPosition() == frame.size());
    EXPECT_EQ(Serialize(read), result);
  }
  EXPECT_EQ(progress.steps, 0);
}

TEST(VariantValueTest, RangesAndRounding) {
  struct Case {
    double value;
    int type;
    bool stored;
    double result;
  };
  const Case kCases[] = {
      {255.4, 0, true, 255},  {255.5, 0, false, 0},  {-0.4, 0, true, 0},  {-0.5, 0, true, 0},
      {-0.6, 0, false, 0},    {-2.5, 1, true, -3},   {2.5, 1, true, 3},    {-32768.5, 1, false, 0},
      {65535.49, 2, true, 65535}, {-3276.84, 5, true, -3277}, {2147483647.4, 7, true, 2147483647},
      {4294967295.4, 8, true, 4294967295}, {4294967295.5, 19, false, 0}, {NAN, 17, false, 0},
      {0.1, 9, true, static_cast<float>(0.1)}, {1e300, 18, true, 1e300},
      {20211405, 10, true, 20211405}, {1, 20, false, 0}, {1, -1, false, 0},
  };
  for (const Case& c : kCases) {
    OType_Variant variant = Make(4, 77);
    EXPECT_EQ(variant.iSetValueDirect(c.value, c.type), c.stored ? 1 : 0)
        << c.value << " " << c.type;
    EXPECT_EQ(variant.iGetType(), c.stored ? c.type : 4);
    EXPECT_EQ(variant.dGetValue(), c.stored ? c.result : 77);
  }
  OType_Variant bits = Make(12, 0);  // the one-argument form keeps the type
  EXPECT_EQ(bits.iSetValueDirect(300), 0);
  EXPECT_EQ(bits.iSetValueDirect(200.2), 1);

  const int kSizes[] = {1, 2, 2, 2, 2, 2, 2, 4, 4, 4, 4, 4, 1, 2, 4, 1, 2, 4, 8, 4, 0};
  for (int type = 0; type <= 20; ++type) EXPECT_EQ(OType_Variant::iSizeOfData(type), kSizes[type]);
}

// Every type's text, and its reading back to the same value and text.
TEST(VariantTextTest, EveryTypeReadsBackItsOwnText) {
  const Shown kCases[] = {
      {0, 200, "200"}, {1, -1234, "-1234"}, {2, 65535, "65535"}, {3, -123, "-12.3"},
      {3, 5, "0.5"}, {3, -0.0, "-0.0"}, {4, 65535, "6553.5"}, {5, -5, "-0.05"},
      {6, 12345, "123.45"}, {7, -2147483648.0, "-2147483648"}, {8, 3e9, "-1294967296"},
      {9, static_cast<float>(1.5e-3), "0.001500"}, {9, -16777216, "-16777216.000000"},
      {10, 20240229, "@@29.02.2024"}, {10, 1010101, "@@01.01.0101"}, {11, 235959, "@@23:59:59"},
      {11, 0, "@@00:00:00"}, {12, 165, "1010 0101"}, {13, 42255, "1010 0101  0000 1111"},
      {14, 4042322160.0, "1111 0000  1111 0000   1111 0000  1111 0000"}, {15, 10, "0x0a"},
      {16, 0xBEEF, "0xbeef"}, {17, 255, "0x000000ff"}, {18, -0.25, "-0.250000"},
      {18, INFINITY, "inf"},
  };
  for (const Shown& c : kCases) {
    EXPECT_EQ(TextOf(c.type, c.value), c.text) << c.type;
    OType_Variant read;
    ASSERT_TRUE(read.bSetValue(nk::ToUtf16(c.text), c.type)) << c.text;
    EXPECT_EQ(read.iGetType(), c.type);
    EXPECT_EQ(read.dGetValue(), c.value) << c.text;
  }
}

// Across each type's range, the text reads back to a value with the same text.
TEST(VariantTextTest, RandomValuesRoundTrip) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> spread(-5e9, 5e9);
  for (int type = 0; type <= 18; ++type) {
    for (int i = 0; i < 500; ++i) {
      OType_Variant variant;
      double value = spread(random) / std::pow(10.0, i % 10);
      if (type == 10) value = 19000101 + std::fmod(std::fabs(value), 1e6);
      if (type == 11) value = std::fmod(std::fabs(value), 240000);
      if (variant.iSetValueDirect(value, type) == 0) continue;
      const std::u16string text = variant.oStrGetValue();
      OType_Variant read;
      if (text == u"Invalid DateTime") {
        EXPECT_FALSE(read.bSetValue(text, type));
        continue;
      }
      ASSERT_TRUE(read.bSetValue(text, type)) << nk::ToUtf8(text);
      EXPECT_EQ(read.oStrGetValue(), text);
      // Only the rounded types store what their text shows.
      if (type < 9 || (type > 11 && type < 18)) {
        EXPECT_EQ(read.dGetValue(), variant.dGetValue());
      }
    }
  }
}

TEST(VariantTextTest, TextsKeptAsTheyAre) {
  // Magnitudes, 0x80000000 beyond int, bits too wide to show, hidden values.
  const Shown kCases[] = {{0, -7.9, "7"},    {0, 5e9, "-2147483648"}, {4, -123, "12.3"},
                          {12, 256, ""},     {13, 65536, ""},         {15, 300, "0x12c"},
                          {19, 1234, ""},    {25, 1, ""}};
  for (const Shown& c : kCases) EXPECT_EQ(TextOf(c.type, c.value), c.text);
  for (double rejected : {0.0, 20230229.0, 20231301.0, 1e300, -20240101.0}) {
    EXPECT_EQ(TextOf(10, rejected), "Invalid DateTime") << rejected;
  }
  EXPECT_EQ(TextOf(11, 246000), "Invalid DateTime");
  for (auto culture : {culture::kKeyForm, culture::kGerman, culture::kEnglish}) {
    culture::SetCurrentCulture(culture);
    EXPECT_EQ(TextOf(10, 20060102.9), "@@02.01.2006");
  }
}

TEST(VariantTextTest, ReadingRefusesWhatNoValueOfTheTypeShows) {
  OType_Variant variant = Make(1, 42);
  const std::pair<const char16_t*, int> kRefused[] = {
      {u"256", 0}, {u"-1", 0}, {u"12.5", 1}, {u"abc", 7}, {u"1 0000 0000", 12},
      {u"0x1ffffffff", 17}, {u"0x", 15}, {u"", 19}, {u"Invalid DateTime", 10},
      {u"30.02.2024", 10}, {u"24:00:00", 11}, {u"\u00B2", 1}, {u"1", 20}};
  for (const auto& [text, type] : kRefused) {
    EXPECT_FALSE(variant.bSetValue(text, type)) << nk::ToUtf8(text);
  }
  EXPECT_EQ(Serialize(variant), Serialize(Make(1, 42)));

  // Lenient where nothing is ambiguous: blanks, no key marker, no "0x".
  EXPECT_TRUE(variant.bSetValue(u" 12.34 ", 5));
  EXPECT_EQ(variant.dGetValue(), 1234);
  EXPECT_TRUE(variant.bSetValue(u"1.2.2003", 10));
  EXPECT_EQ(variant.dGetValue(), 20030201);
  EXPECT_TRUE(variant.bSetValue(u"ff", 15));
  EXPECT_EQ(variant.dGetValue(), 255);
}

TEST(VariantTextTest, OwnTextKeepsTheValue) {
  // Texts that stand for many values leave the value alone.
  for (OType_Variant variant : {Make(18, 1.23456789), Make(19, 4e9), Make(10, 20230229)}) {
    const OType_Variant before = variant;
    EXPECT_TRUE(variant.bSetValue(variant.oStrGetValue(), variant.iGetType()));
    EXPECT_EQ(variant.dGetValue(), before.dGetValue());
  }
  OType_Variant variant = Make(18, 1.23456789);
  EXPECT_TRUE(variant.bSetValue(u"1.234568", 9));
  EXPECT_EQ(variant.dGetValue(), static_cast<float>(1.234568));

  OType_Variant copy;
  EXPECT_TRUE(copy.bSetValue(std::make_shared<OType_Variant>(variant)));
  EXPECT_EQ(Serialize(copy), Serialize(variant));
  EXPECT_FALSE(copy.bSetValue(static_cast<OType_Variant*>(nullptr)));
}

}  // namespace
