// OType_ApplicationSerializationData: data tagged with the application that
// wrote it.
#ifndef NKFOUNDATION_CORE_APPLICATION_SERIALIZATION_DATA_H_
#define NKFOUNDATION_CORE_APPLICATION_SERIALIZATION_DATA_H_

#include <cstdint>
#include <string>

#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/object_ids.h"

class NKF_API OType_ApplicationSerializationData
    : public nk::Framed<OType_ApplicationSerializationData> {
 public:
  // The fixed fields: the identifier, an empty text and a zero byte count.
  static constexpr nk::FrameRules kFrame{nk::object_id::kApplicationSerializationData, 4 + 8 + 4};

  OType_ApplicationSerializationData() = default;

  virtual void InitializeMembers(bool bInitialize);
  void CopyTo(OType_ApplicationSerializationData* target) const;
  // A new copy, owned by the caller.
  OType_ApplicationSerializationData* opCreateCopy() const;

  std::int32_t m_iApplicationID = 0;
  std::u16string m_oApplication_Info;
  // Travels as a u32 byte count followed by the bytes.
  WritableCollection<std::uint8_t> m_oApplication_Data;

  using Fields = nk::FieldList<&OType_ApplicationSerializationData::m_iApplicationID,
                               &OType_ApplicationSerializationData::m_oApplication_Info,
                               &OType_ApplicationSerializationData::m_oApplication_Data>;

 protected:
  void BeginGetFields(bool bInitialize) override;
};

#endif  // NKFOUNDATION_CORE_APPLICATION_SERIALIZATION_DATA_H_
