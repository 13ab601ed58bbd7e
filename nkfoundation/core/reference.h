// Reference codes: how an inspection tool names what it depends on, either
// another tool's result (a feature) or a fixed source such as a camera or a
// position.
//
//   code >= 0        a feature: the index of another tool's result
//   -57 .. -50       a position
//   -107 .. -100     a camera; camera index = -100 - code (0 to 7)
//   -1, -2, -140, -150, -200 and the two ranges above are the special values
#ifndef NKFOUNDATION_CORE_REFERENCE_H_
#define NKFOUNDATION_CORE_REFERENCE_H_

#include "nkfoundation/core/export.h"

namespace reference {

// A non-negative code that is not a special value.
NKF_API bool is_feature_reference(int code);
// Feature types 16 to 18, whose results are images.
NKF_API bool is_feature_type_image(int type);
NKF_API bool is_position_reference(int code);
NKF_API bool is_camera_reference(int code);
// One of the 21 codes reserved for fixed sources and markers.
NKF_API bool is_special_value(int code);

// The camera index 0 to 7 of a camera reference, otherwise -1.
NKF_API int to_camera_index(int code);
// The reference of camera `index` 0 to 7, otherwise -200. Unlike
// `to_camera_index`, a bad input yields a special value rather than -1, so
// the result is always a code that callers can store as a reference.
NKF_API int to_camera_reference(int index);

}  // namespace reference

#endif  // NKFOUNDATION_CORE_REFERENCE_H_
