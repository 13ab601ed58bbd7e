// Rect: an axis-aligned rectangle by its corner and extent, the bounding box
// that vector arrays report and the region that referenced items describe.
#ifndef NKFOUNDATION_CORE_RECT_H_
#define NKFOUNDATION_CORE_RECT_H_

#include <limits>

// x and y name the corner with the smallest coordinates. A bounding box
// around no point at all is 0, 0, -1, -1, which is why a negative extent is
// representable (and invalid).
template <class T>
struct Rect {
  T GetX() const { return x; }
  T GetY() const { return y; }
  T GetWidth() const { return width; }
  T GetHeight() const { return height; }

  // No extent in either direction: a single point.
  bool IsEmpty() const { return width == 0 && height == 0; }

  // Extents from 0 up and a corner that is a finite number. For whole
  // pixels only the extents can be out of range; for units any NaN or
  // infinity fails as well, since every comparison with NaN is false.
  bool IsValid() const {
    constexpr T kMax = std::numeric_limits<T>::max();
    constexpr T kLowest = std::numeric_limits<T>::lowest();
    return width >= 0 && width <= kMax && height >= 0 && height <= kMax &&  //
           x >= kLowest && x <= kMax && y >= kLowest && y <= kMax;
  }

  bool operator==(const Rect&) const = default;

  T x{};
  T y{};
  T width{};
  T height{};
};

// The names the managed binding knows them by.
using I32Rect = Rect<int>;
using DoubleRect = Rect<double>;

#endif  // NKFOUNDATION_CORE_RECT_H_
