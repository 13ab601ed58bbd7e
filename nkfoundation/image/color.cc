#include "nkfoundation/image/color.h"

#include <algorithm>

namespace color {
namespace {

enum class Dominant { kRed, kGreen, kBlue };

struct Spread {
  int max;
  int delta;
  Dominant dominant;
};

// Tests red first, then green, so ties go to the earlier channel.
Spread SpreadOf(int r, int g, int b) {
  const int max = std::max({r, g, b});
  const int min = std::min({r, g, b});
  const Dominant dominant = r == max ? Dominant::kRed : g == max ? Dominant::kGreen : Dominant::kBlue;
  return {max, max - min, dominant};
}

// Hue in sixths of the circle (0..6, possibly negative in the red sector),
// dividing first.
double Sextant(int r, int g, int b, const Spread& s) {
  const double delta = s.delta;
  switch (s.dominant) {
    case Dominant::kRed:
      return (g - b) / delta;
    case Dominant::kGreen:
      return (b - r) / delta + 2.0;
    case Dominant::kBlue:
      break;
  }
  return (r - g) / delta + 4.0;
}

double Degrees(int r, int g, int b, const Spread& s) {
  const double hue = Sextant(r, g, b, s) * 60.0;
  return hue < 0.0 ? hue + 360.0 : hue;
}

}  // namespace

void ConvertRgbToHsv(std::uint16_t r, std::uint16_t g, std::uint16_t b, std::uint16_t& hue,
                     double& saturation, double& value) {
  const Spread s = SpreadOf(r, g, b);
  hue = 0;
  saturation = 0.0;
  value = s.max / 255.0;
  if (s.delta == 0) return;
  hue = static_cast<std::uint16_t>(static_cast<int>(Degrees(r, g, b, s) + 0.5));
  saturation = static_cast<double>(s.delta) / s.max;
}

void ConvertRgbaToHsva(std::uint16_t r, std::uint16_t g, std::uint16_t b, std::uint16_t a,
                       double& hue, double& saturation, double& value, double& alpha) {
  const Spread s = SpreadOf(r, g, b);
  hue = 0.0;
  saturation = 0.0;
  value = s.max / 255.0;
  alpha = a;
  if (s.delta == 0) return;
  alpha = a / 255.0;
  hue = Degrees(r, g, b, s);
  saturation = static_cast<double>(s.delta) / s.max;
}

double ConvertRgbToHsvHue(std::uint16_t r, std::uint16_t g, std::uint16_t b) {
  const Spread s = SpreadOf(r, g, b);
  if (s.delta == 0) return 0.0;
  double hue = 0.0;
  switch (s.dominant) {
    case Dominant::kRed:
      hue = (g - b) * 60.0 / s.delta;
      break;
    case Dominant::kGreen:
      hue = (b - r) * 60.0 / s.delta + 120.0;
      break;
    case Dominant::kBlue:
      hue = (r - g) * 60.0 / s.delta + 240.0;
      break;
  }
  return hue < 0.0 ? hue + 360.0 : hue;
}

void FastConvertRgbToHsv(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint16_t& hue,
                         std::uint16_t& saturation, std::uint16_t& value) {
  const Spread s = SpreadOf(r, g, b);
  hue = FastConvertRgbToHsvHue(r, g, b);
  saturation = static_cast<std::uint16_t>(s.max == 0 ? 0 : s.delta * 256 / s.max);
  value = static_cast<std::uint16_t>(s.max);
}

std::uint8_t FastConvertRgbToHsvHue(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  const Spread s = SpreadOf(r, g, b);
  if (s.delta == 0) return 0;
  switch (s.dominant) {
    case Dominant::kRed:
      return static_cast<std::uint8_t>((g - b) * 32 / s.delta + 32);
    case Dominant::kGreen:
      return static_cast<std::uint8_t>((b - r) * 32 / s.delta + 96);
    case Dominant::kBlue:
      break;
  }
  return static_cast<std::uint8_t>((r - g) * 32 / s.delta + 160);
}

}  // namespace color
