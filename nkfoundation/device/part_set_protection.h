// OType_PartSet_Protection: the block with which a user locks a check
// program (part set) on the device. The device alone interprets it; the PC
// software stores and transports it as opaque bytes.
#ifndef NKFOUNDATION_DEVICE_PART_SET_PROTECTION_H_
#define NKFOUNDATION_DEVICE_PART_SET_PROTECTION_H_

#include <cstdint>

#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/object_ids.h"

// Wire form: u32 byte count, the bytes, then the tail. An empty block is
// the 12-byte frame with a count of 0.
class NKF_API OType_PartSet_Protection : public nk::Framed<OType_PartSet_Protection> {
 public:
  static constexpr nk::FrameRules kFrame{nk::object_id::kPartSetProtection, 4};

  // Empties the protection data. The flag belongs to the protocol's
  // signature and changes nothing.
  virtual void InitializeMembers(bool bInitialize);

  // Protection data and tail.
  void CopyTo(OType_PartSet_Protection* target) const;
  // A new copy, owned by the caller.
  OType_PartSet_Protection* opCreateCopy() const;

  WritableCollection<std::uint8_t> m_oProtectionData;

  using Fields = nk::FieldList<&OType_PartSet_Protection::m_oProtectionData>;

 protected:
  void BeginGetFields(bool bInitialize) override {
    if (bInitialize) InitializeMembers(true);
  }
};

#endif  // NKFOUNDATION_DEVICE_PART_SET_PROTECTION_H_
