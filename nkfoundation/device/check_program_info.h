// The PC software's summary of the check programs (part sets) stored on a
// device: one OType_CheckProgramInfoItem per program, travelling together
// as an OType_CheckProgramInfoItemArray.
#ifndef NKFOUNDATION_DEVICE_CHECK_PROGRAM_INFO_H_
#define NKFOUNDATION_DEVICE_CHECK_PROGRAM_INFO_H_

#include <cstdint>
#include <memory>
#include <string>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/object_array.h"
#include "nkfoundation/core/object_ids.h"
#include "nkfoundation/core/time_stamp.h"
#include "nkfoundation/device/compatibility.h"
#include "nkfoundation/device/part_set_protection.h"
#include "nkfoundation/image/image.h"

// Wire form: size as u64, name and comment as strings, then the preview
// image, creation time, firmware compatibility and protection as whole
// nested frames, the active flag as one byte, then the tail.
//
// Older writers stopped after fewer members. The size is read from a
// payload of 8 bytes on; after it each member is read only when the frame
// still holds its start (8 bytes of a string's or nested object's header,
// the flag's byte), and the members from the first missing one on keep
// their defaults.
class NKF_API OType_CheckProgramInfoItem : public nk::Framed<OType_CheckProgramInfoItem> {
 public:
  static constexpr nk::FrameRules kFrame{nk::object_id::kCheckProgramInfoItem, 8};

  // Restores every serialized member to its default; `m_index` stays. The
  // flag belongs to the protocol's signature and changes nothing.
  virtual void InitializeMembers(bool bInitialize);

  std::uint64_t m_partSet_Size = 0;
  std::u16string m_oStrPartSet_Name;
  std::u16string m_oStrPartSet_Comment;
  OType_Image m_oPartSet_Image;
  OTime m_oCreation_TimeDate;
  OType_Compatibility m_oCompatibilityFirmwareVersion;
  OType_PartSet_Protection m_oPartSet_Protection;
  bool m_isActivePartSet = false;
  // The program's position on the device; known to the PC only, never
  // written.
  int m_index = 0;

  using Fields = nk::FieldList<&OType_CheckProgramInfoItem::m_partSet_Size,
                               &OType_CheckProgramInfoItem::m_oStrPartSet_Name,
                               &OType_CheckProgramInfoItem::m_oStrPartSet_Comment,
                               &OType_CheckProgramInfoItem::m_oPartSet_Image,
                               &OType_CheckProgramInfoItem::m_oCreation_TimeDate,
                               &OType_CheckProgramInfoItem::m_oCompatibilityFirmwareVersion,
                               &OType_CheckProgramInfoItem::m_oPartSet_Protection,
                               &OType_CheckProgramInfoItem::m_isActivePartSet>;

 protected:
  void BeginGetFields(bool bInitialize) override {
    if (bInitialize) InitializeMembers(true);
  }
  nk::FieldsRead GetFields(OByteStream& stream) override;
};

// Wire form: u32 count, each item's frame, the tail.
class NKF_API OType_CheckProgramInfoItemArray
    : public nk::ObjectArray<OType_CheckProgramInfoItemArray, std::shared_ptr<OType_CheckProgramInfoItem>> {
 public:
  static constexpr nk::FrameRules kFrame{nk::object_id::kCheckProgramInfoItemArray, 8};
  // Defined in the library, so that the class and its virtual table are
  // exported from it rather than made anew by every user.
  ~OType_CheckProgramInfoItemArray() override;
};

#endif  // NKFOUNDATION_DEVICE_CHECK_PROGRAM_INFO_H_
