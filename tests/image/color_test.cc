#include "nkfoundation/image/color.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

struct RgbCase {
  std::uint16_t r, g, b;
  std::uint16_t hue;         // ConvertRgbToHsv
  double exact_hue;          // ConvertRgbaToHsva
  double saturation, value;  // both floating forms
  std::uint16_t fast_hue, fast_saturation, fast_value;
};

// Ties go to red, then green; a hue of 359.5 degrees or more stays 360; the
// fast forms truncate toward zero.
constexpr RgbCase kCases[] = {
    {0, 0, 0, 0, 0.0, 0.0, 0.0, 0, 0, 0},
    {128, 128, 128, 0, 0.0, 0.0, 128 / 255.0, 0, 0, 128},
    {255, 0, 0, 0, 0.0, 1.0, 1.0, 32, 256, 255},
    {0, 255, 0, 120, 120.0, 1.0, 1.0, 96, 256, 255},
    {0, 0, 255, 240, 240.0, 1.0, 1.0, 160, 256, 255},
    {255, 0, 1, 360, 360.0 - 60.0 / 255, 1.0, 1.0, 32, 256, 255},
    {255, 255, 0, 60, 60.0, 1.0, 1.0, 64, 256, 255},
    {0, 255, 255, 180, 180.0, 1.0, 1.0, 128, 256, 255},
    {255, 0, 255, 300, 300.0, 1.0, 1.0, 0, 256, 255},
    {200, 100, 50, 20, 20.0, 0.75, 200 / 255.0, 42, 192, 200},
    // Wide channels: value is still max / 255.
    {510, 0, 0, 0, 0.0, 1.0, 2.0, 32, 256, 254},
};

TEST(ColorTest, ConversionsOfTheTable) {
  for (const RgbCase& c : kCases) {
    SCOPED_TRACE(testing::Message() << c.r << "," << c.g << "," << c.b);
    std::uint16_t hue = 99;
    double s = -1, v = -1;
    color::ConvertRgbToHsv(c.r, c.g, c.b, hue, s, v);
    EXPECT_EQ(hue, c.hue);
    EXPECT_DOUBLE_EQ(s, c.saturation);
    EXPECT_DOUBLE_EQ(v, c.value);

    double h = -1, a = -1;
    color::ConvertRgbaToHsva(c.r, c.g, c.b, 51, h, s, v, a);
    EXPECT_DOUBLE_EQ(h, c.exact_hue);
    // Alpha is scaled only for chromatic colours.
    EXPECT_DOUBLE_EQ(a, c.saturation == 0.0 ? 51.0 : 0.2);
    EXPECT_DOUBLE_EQ(color::ConvertRgbToHsvHue(c.r, c.g, c.b), c.exact_hue);

    if (c.r > 255) continue;
    std::uint16_t fh = 999, fs = 999, fv = 999;
    const auto r = static_cast<std::uint8_t>(c.r), g = static_cast<std::uint8_t>(c.g),
               b = static_cast<std::uint8_t>(c.b);
    color::FastConvertRgbToHsv(r, g, b, fh, fs, fv);
    EXPECT_EQ(fh, c.fast_hue);
    EXPECT_EQ(fs, c.fast_saturation);
    EXPECT_EQ(fv, c.fast_value);
    EXPECT_EQ(color::FastConvertRgbToHsvHue(r, g, b), c.fast_hue);
  }
}

TEST(ColorTest, BlackAndGreyPassAlphaThroughUnscaled) {
  double h, s, v, a;
  color::ConvertRgbaToHsva(0, 0, 0, 255, h, s, v, a);
  EXPECT_EQ(a, 255.0);
  color::ConvertRgbaToHsva(7, 7, 7, 300, h, s, v, a);
  EXPECT_EQ(a, 300.0);
  color::ConvertRgbaToHsva(7, 7, 8, 255, h, s, v, a);
  EXPECT_EQ(a, 1.0);
}

TEST(ColorTest, SixtyBeforeOrAfterTheDivision) {
  // Over all spreads the two orders must agree to within rounding, and the
  // hue-only form must equal the multiply-first order bit for bit.
  int differing = 0;
  for (int g = 0; g < 256; ++g) {
    for (int b = 0; b < g; b += 3) {
      double h, s, v, a;
      color::ConvertRgbaToHsva(255, static_cast<std::uint16_t>(g), static_cast<std::uint16_t>(b), 0, h, s, v, a);
      const double hue = color::ConvertRgbToHsvHue(255, static_cast<std::uint16_t>(g), static_cast<std::uint16_t>(b));
      EXPECT_EQ(hue, (g - b) * 60.0 / (255 - b));
      EXPECT_EQ(h, (g - b) / static_cast<double>(255 - b) * 60.0);
      EXPECT_NEAR(h, hue, 1e-12);
      differing += h != hue;
    }
  }
  EXPECT_GT(differing, 0);
}

TEST(ColorTest, FastHueTruncatesTowardZero) {
  // (0 - 1) * 32 / 255 is 0, not -1: the hue stays 32 rather than 31.
  EXPECT_EQ(color::FastConvertRgbToHsvHue(255, 0, 1), 32);
  // (0 - 100) * 32 / 255 = -12.5 -> -12.
  EXPECT_EQ(color::FastConvertRgbToHsvHue(255, 0, 100), 20);
  // Blue maximum with red above green reaches the top of the circle.
  EXPECT_EQ(color::FastConvertRgbToHsvHue(254, 0, 255), 191);
}

}  // namespace
