#include "nkfoundation/geometry/vector_array.h"

#include <algorithm>
#include <cstdint>
#include <type_traits>

namespace {

// high - low; for whole pixels it wraps in 32 bits like the device's
// arithmetic when the points lie further apart than an int reaches.
template <class T>
T Extent(T low, T high) {
  if constexpr (std::is_integral_v<T>) {
    return static_cast<T>(static_cast<std::int64_t>(high) - low);
  } else {
    return high - low;
  }
}

// The bounds of the points as `x_of` and `y_of` read them.
template <class T>
Rect<T> Bounds(const OVector_Array& points, T (OVector::*x_of)() const, T (OVector::*y_of)() const) {
  bool any = false;
  T left{}, top{}, right{}, bottom{};
  for (const std::shared_ptr<OVector>& point : points) {
    if (!point) continue;
    const T x = ((*point).*x_of)();
    const T y = ((*point).*y_of)();
    left = any ? std::min(left, x) : x;
    right = any ? std::max(right, x) : x;
    top = any ? std::min(top, y) : y;
    bottom = any ? std::max(bottom, y) : y;
    any = true;
  }
  if (!any) return {T{0}, T{0}, T{-1}, T{-1}};
  return {left, top, Extent(left, right), Extent(top, bottom)};
}

}  // namespace

Rect<int> OVector_Array::ToI32Rect() const { return Bounds(*this, &OVector::iX, &OVector::iY); }

Rect<double> OVector_Array::ToDoubleRect() const { return Bounds(*this, &OVector::dX, &OVector::dY); }

std::unique_ptr<Rect<int>> OVector_Array::ToI32RectPtr() const {
  return std::make_unique<Rect<int>>(ToI32Rect());
}

std::unique_ptr<Rect<double>> OVector_Array::ToDoubleRectPtr() const {
  return std::make_unique<Rect<double>>(ToDoubleRect());
}

void OVector_Array::CopyTo(OVector_Array* target) const {
  if (target == nullptr || target == this) return;
  target->RemoveAll();
  for (const std::shared_ptr<OVector>& point : *this) {
    std::shared_ptr<OVector> copy;
    if (point) {
      copy = std::make_shared<OVector>();
      point->CopyTo(copy.get());
    }
    target->Add(copy);
  }
  target->m_oUserData = m_oUserData;
}
