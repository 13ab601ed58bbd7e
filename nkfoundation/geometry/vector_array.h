// OVector_Array: a serializable list of vectors, such as the pixels of a
// contour, that can report its bounding rectangle.
#ifndef NKFOUNDATION_GEOMETRY_VECTOR_ARRAY_H_
#define NKFOUNDATION_GEOMETRY_VECTOR_ARRAY_H_

#include <memory>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/object_array.h"
#include "nkfoundation/core/object_ids.h"
#include "nkfoundation/core/rect.h"
#include "nkfoundation/geometry/vector.h"

// Wire form: u32 count, each vector's frame, the tail. Reading appends to
// the vectors already held. The count is read only from a payload of 9
// bytes on, and the read succeeds even when an element does not read (the
// rest of the frame then becomes the tail): callers of vector arrays have
// always been told of success, and some rely on it.
class NKF_API OVector_Array : public nk::ObjectArray<OVector_Array, std::shared_ptr<OVector>> {
 public:
  static constexpr nk::FrameRules kFrame{.id = nk::object_id::kVectorArray,
                                         .min_payload = 9,
                                         .reports_bad_element = false};

  // The bounding rectangle of the non-null points, in whole pixels (iX,
  // iY) or in pixels (dX, dY). Width and height are the distances between
  // the extreme points, without the +1 of a pixel count; with no point at
  // all the result is 0, 0, -1, -1.
  Rect<int> ToI32Rect() const;
  Rect<double> ToDoubleRect() const;
  std::unique_ptr<Rect<int>> ToI32RectPtr() const;
  std::unique_ptr<Rect<double>> ToDoubleRectPtr() const;

  // Replaces the target's vectors with copies of these (null entries stay
  // null) and its tail with this one's.
  void CopyTo(OVector_Array* target) const;
};

#endif  // NKFOUNDATION_GEOMETRY_VECTOR_ARRAY_H_
