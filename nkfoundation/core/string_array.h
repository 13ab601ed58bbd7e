// OStringArray: a serializable list of UTF-16 strings.
#ifndef NKFOUNDATION_CORE_STRING_ARRAY_H_
#define NKFOUNDATION_CORE_STRING_ARRAY_H_

#include <string>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/object_array.h"
#include "nkfoundation/core/object_ids.h"

// Wire form: u32 count, each string as a nested string object, the tail.
// Unlike the object arrays, reading replaces the contents rather than
// appending to them.
class NKF_API OStringArray : public nk::ObjectArray<OStringArray, std::u16string> {
 public:
  static constexpr nk::FrameRules kFrame{nk::object_id::kStringArray, 8};

  // False when a string of the frame does not read, even when the stream
  // then stands at the frame's end.
  bool GetObjectData(OByteStream& stream, bool bInitialize) override;

 protected:
  void BeginGetFields(bool bInitialize) override;
  nk::FieldsRead GetFields(OByteStream& stream) override;

 private:
  bool string_failed_ = false;
};

#endif  // NKFOUNDATION_CORE_STRING_ARRAY_H_
