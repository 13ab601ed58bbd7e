#include "nkfoundation/core/variant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <random>
#include <string>
#include <tuple>

#include "nkfoundation/core/culture.h"
#include "nkfoundation/core/text.h"
#include "tests/support/bytes.h"
#include "tests/support/counting_progress.h"

namespace nk::testing {
namespace {

OType_Variant Make(int type, double value) {
  OType_Variant variant;
  variant.m_iType = type;
  variant.m_dValue = value;
  return variant;
}

std::string TextOf(int type, double value) { return ToUtf8(Make(type, value).oStrGetValue()); }

// A type, a value and the text that shows it.
using Shown = std::tuple<int, double, const char*>;

TEST(VariantFrameTest, TypeAndValueWithoutTailOrProgress) {
  OType_Variant variant = Make(3, 123);  // 12.3 in tenths
  variant.m_oUserData.Add(0xEE);         // a variant never writes a tail
  EXPECT_EQ(variant.GetObjectSize(), 20u);
  EXPECT_EQ(Serialize(variant), Hex("10000000 002BD0FE 03000000 0000000000C05E40"));

  // A newer frame is read and its surplus skipped; an older one (8 of the 12
  // bytes) keeps the value or resets it by the flag.
  const Bytes newer = Hex("13000000 002BD0FE 03000000 0000000000C05E40 010203");
  const Bytes older = Hex("0C000000 002BD0FE 07000000 01020304");
  const std::tuple<const Bytes&, bool, OType_Variant> kCases[] = {
      {newer, false, variant}, {older, false, Make(1, 5)}, {older, true, OType_Variant()}};
  CountingProgress progress;
  for (const auto& [frame, initialize, result] : kCases) {
    OType_Variant read = Make(1, 5);
    auto stream = StreamOf(frame);
    stream.SetProgressCtrl(&progress);
    ASSERT_TRUE(read.GetObjectData(stream, initialize));
    EXPECT_EQ(stream.GetPosition(), frame.size());
    EXPECT_EQ(Serialize(read), Serialize(OType_Variant(result)));
  }
  EXPECT_EQ(progress.steps, 0);
}

TEST(VariantValueTest, RangesAndRounding) {
  // Value, type, and what is stored; {} when refused.
  const std::tuple<double, int, std::optional<double>> kCases[] = {
      {255.4, 0, 255}, {255.5, 0, {}}, {-0.4, 0, 0}, {-0.5, 0, 0}, {-0.6, 0, {}}, {-2.5, 1, -3},
      {2.5, 1, 3}, {-32768.5, 1, {}}, {65535.49, 2, 65535}, {-3276.84, 5, -3277},
      {2147483647.4, 7, 2147483647}, {4294967295.4, 8, 4294967295}, {4294967295.5, 19, {}},
      {NAN, 17, {}}, {0.1, 9, static_cast<float>(0.1)}, {1e300, 18, 1e300},
      {20211405, 10, 20211405}, {1, 20, {}}, {1, -1, {}}};
  for (const auto& [value, type, stored] : kCases) {
    OType_Variant variant = Make(4, 77);
    EXPECT_EQ(variant.iSetValueDirect(value, type), stored ? 1 : 0) << value << " " << type;
    EXPECT_EQ(variant.iGetType(), stored ? type : 4);
    EXPECT_EQ(variant.dGetValue(), stored.value_or(77));
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
  for (const auto& [type, value, text] : kCases) {
    EXPECT_EQ(TextOf(type, value), text) << type;
    OType_Variant read;
    ASSERT_TRUE(read.bSetValue(ToUtf16(text), type)) << text;
    EXPECT_EQ(read.iGetType(), type);
    EXPECT_EQ(read.dGetValue(), value) << text;
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
      const bool shown = text != u"Invalid DateTime";
      OType_Variant read;
      ASSERT_EQ(read.bSetValue(text, type), shown) << ToUtf8(text);
      if (!shown) continue;
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
  const Shown kCases[] = {{0, -7.9, "7"}, {0, 5e9, "-2147483648"}, {4, -123, "12.3"}, {12, 256, ""},
                          {13, 65536, ""}, {15, 300, "0x12c"}, {19, 1234, ""}, {25, 1, ""}};
  for (const auto& [type, value, text] : kCases) EXPECT_EQ(TextOf(type, value), text);
  for (double rejected : {0.0, 20230229.0, 20231301.0, 1e300, -20240101.0}) {
    EXPECT_EQ(TextOf(10, rejected), "Invalid DateTime") << rejected;
  }
  EXPECT_EQ(TextOf(11, 246000), "Invalid DateTime");
  for (auto culture : {culture::kKeyForm, culture::kGerman, culture::kEnglish}) {
    culture::SetCurrentCulture(culture);
    EXPECT_EQ(TextOf(10, 20060102.9), "@@02.01.2006");
  }
}

// Reading is the inverse of the text: what no value of the type shows is
// refused.
TEST(VariantTextTest, ReadingTakesOnlyWhatTheTypeShows) {
  OType_Variant variant = Make(1, 42);
  const std::pair<const char16_t*, int> kRefused[] = {
      {u"256", 0}, {u"-1", 0}, {u"12.5", 1}, {u"abc", 7}, {u"1 0000 0000", 12},
      {u"0x1ffffffff", 17}, {u"0x", 15}, {u"", 19}, {u"Invalid DateTime", 10},
      {u"30.02.2024", 10}, {u"24:00:00", 11}, {u"\u00B2", 1}, {u"1", 20}};
  for (const auto& [text, type] : kRefused) EXPECT_FALSE(variant.bSetValue(text, type)) << type;
  EXPECT_FALSE(variant.bSetValue(static_cast<OType_Variant*>(nullptr)));
  EXPECT_EQ(Serialize(variant), Serialize(Make(1, 42)));

  // Lenient where nothing is ambiguous: blanks, no key marker, no "0x".
  const std::tuple<const char16_t*, int, double> kRead[] = {
      {u" 12.34 ", 5, 1234}, {u"1.2.2003", 10, 20030201}, {u"ff", 15, 255}};
  for (const auto& [text, type, value] : kRead) {
    EXPECT_TRUE(variant.bSetValue(text, type)) << ToUtf8(text);
    EXPECT_EQ(variant.dGetValue(), value);
  }

  // A text that stands for many values keeps the one it came from, unless it
  // is read as another type.
  for (OType_Variant own : {Make(18, 1.23456789), Make(19, 4e9), Make(10, 20230229)}) {
    const double before = own.dGetValue();
    EXPECT_TRUE(own.bSetValue(own.oStrGetValue(), own.iGetType()));
    EXPECT_EQ(own.dGetValue(), before);
  }
  OType_Variant retyped = Make(18, 1.23456789);
  EXPECT_TRUE(retyped.bSetValue(retyped.oStrGetValue(), 9));
  EXPECT_EQ(retyped.dGetValue(), static_cast<float>(1.234568));
}

}  // namespace
}  // namespace nk::testing
