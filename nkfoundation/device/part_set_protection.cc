#include "nkfoundation/device/part_set_protection.h"

void OType_PartSet_Protection::InitializeMembers(bool /*bInitialize*/) { m_oProtectionData.RemoveAll(); }

void OType_PartSet_Protection::CopyTo(OType_PartSet_Protection* target) const {
  if (target != nullptr) *target = *this;
}

OType_PartSet_Protection* OType_PartSet_Protection::opCreateCopy() const {
  return new OType_PartSet_Protection(*this);
}
