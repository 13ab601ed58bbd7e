#include "nkfoundation/core/application_serialization_data.h"

// The flag belongs to the protocol's signature; every member is reset.
void OType_ApplicationSerializationData::InitializeMembers(bool /*bInitialize*/) {
  m_iApplicationID = 0;
  m_oApplication_Info.clear();
  m_oApplication_Data.RemoveAll();
}

void OType_ApplicationSerializationData::CopyTo(OType_ApplicationSerializationData* target) const {
  if (target != nullptr) *target = *this;
}

OType_ApplicationSerializationData* OType_ApplicationSerializationData::opCreateCopy() const {
  return new OType_ApplicationSerializationData(*this);
}

void OType_ApplicationSerializationData::BeginGetFields(bool bInitialize) {
  if (bInitialize) InitializeMembers(true);
}
