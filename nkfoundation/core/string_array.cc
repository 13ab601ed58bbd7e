#include "nkfoundation/core/string_array.h"

bool OStringArray::GetObjectData(OByteStream& stream, bool bInitialize) {
  string_failed_ = false;
  const bool read = ObjectArray::GetObjectData(stream, bInitialize);
  return read && !string_failed_;
}

void OStringArray::BeginGetFields(bool /*bInitialize*/) { RemoveAll(); }

nk::FieldsRead OStringArray::GetFields(OByteStream& stream) {
  const nk::FieldsRead outcome = ObjectArray::GetFields(stream);
  string_failed_ = outcome == nk::FieldsRead::kElementFailed;
  return outcome;
}
