// OType_VariantArray: the serializable list of variants.
#ifndef NKFOUNDATION_CORE_VARIANT_ARRAY_H_
#define NKFOUNDATION_CORE_VARIANT_ARRAY_H_

#include <memory>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/object_array.h"
#include "nkfoundation/core/object_ids.h"
#include "nkfoundation/core/variant.h"

// Wire form: u32 count, each variant's frame, the tail. Reading appends to
// the variants already held.
class NKF_API OType_VariantArray
    : public nk::ObjectArray<OType_VariantArray, std::shared_ptr<OType_Variant>> {
 public:
  static constexpr nk::FrameRules kFrame{nk::object_id::kVariantArray, 8};

  // Replaces the target's variants with copies of these (not shared with
  // this array) and its tail with this one's.
  void CopyTo(OType_VariantArray* target) const;
};

#endif  // NKFOUNDATION_CORE_VARIANT_ARRAY_H_
