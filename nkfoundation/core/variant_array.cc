#include "nkfoundation/core/variant_array.h"

void OType_VariantArray::CopyTo(OType_VariantArray* target) const {
  if (target == nullptr || target == this) return;
  target->RemoveAll();
  for (const std::shared_ptr<OType_Variant>& variant : *this) {
    target->Add(variant ? std::make_shared<OType_Variant>(*variant) : nullptr);
  }
  target->m_oUserData = m_oUserData;
}
