// Colour conversion for colour inspection: red, green and blue to hue,
// saturation and value.
//
// Two families. The floating-point forms take 16-bit channels and give the
// hue in degrees; the fast forms take 8-bit channels and give the hue on a
// 192-step circle (red 32, green 96, blue 160) in integers only, which is
// what the device computes. Where two channels tie for the maximum, red wins
// over green and green over blue.
#ifndef NKFOUNDATION_IMAGE_COLOR_H_
#define NKFOUNDATION_IMAGE_COLOR_H_

#include <cstdint>

#include "nkfoundation/core/export.h"

namespace color {

// Hue in whole degrees, rounded half up and not wrapped: 359.5 degrees and
// more give 360. Value is max / 255 whatever the channel width.
NKF_API void ConvertRgbToHsv(std::uint16_t r, std::uint16_t g, std::uint16_t b, std::uint16_t& hue,
                             double& saturation, double& value);

// Hue unrounded. Alpha is scaled to 0..1 for chromatic colours only; for
// black and greys it is passed through as given, as callers have always
// received it.
NKF_API void ConvertRgbaToHsva(std::uint16_t r, std::uint16_t g, std::uint16_t b, std::uint16_t a,
                               double& hue, double& saturation, double& value, double& alpha);

// The hue alone, in degrees. Multiplies by 60 before dividing by the
// spread, unlike ConvertRgbToHsv, so the two may differ in the last bit.
NKF_API double ConvertRgbToHsvHue(std::uint16_t r, std::uint16_t g, std::uint16_t b);

// Integer only, every division truncating toward zero: hue 0..192,
// saturation 0..256 (256 when the smallest channel is 0), value 0..255.
NKF_API void FastConvertRgbToHsv(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint16_t& hue,
                                 std::uint16_t& saturation, std::uint16_t& value);

// The hue of FastConvertRgbToHsv.
NKF_API std::uint8_t FastConvertRgbToHsvHue(std::uint8_t r, std::uint8_t g, std::uint8_t b);

}  // namespace color

#endif  // NKFOUNDATION_IMAGE_COLOR_H_
