// What the PC knows of each camera a device works with: the manufacturer's
// description, how the device reaches it, how the user names it and a
// reference image taken with it. One OType_Device_Camera_InfoItem per
// camera, travelling together as an OType_Device_Camera_InfoItemArray.
#ifndef NKFOUNDATION_DEVICE_CAMERA_INFO_ITEM_H_
#define NKFOUNDATION_DEVICE_CAMERA_INFO_ITEM_H_

#include <cstdint>
#include <memory>
#include <string>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/object_array.h"
#include "nkfoundation/core/object_ids.h"
#include "nkfoundation/image/image.h"

// Wire form: the fourteen description members in declaration order
// (integers as 4 bytes, flags as 1, texts as nested strings), the reference
// image as a whole nested frame, then the tail. A frame with less than 16
// bytes of payload is an older record and reads none of them.
//
// An item is identified by its camera type and serial number alone; the
// user's comment and image are its user data, which a camera found again
// on a device takes over from the item the project remembered.
class NKF_API OType_Device_Camera_InfoItem : public nk::Framed<OType_Device_Camera_InfoItem> {
 public:
  static constexpr std::uint32_t TypeId = nk::object_id::kDeviceCameraInfoItem;
  static constexpr nk::FrameRules kFrame{TypeId, 16};
  // The camera type of an item that has none yet.
  static constexpr std::uint32_t kNoCameraType = 0xFED0A000;
  // A camera type whose short name never carries the generic marker.
  static constexpr std::uint32_t kCameraTypeWithoutGenericMarker = 0xFED0A0FF;

  // Supplied by the host: the display name of a camera type. The flag is
  // the library's hint which form of the name it wants (true beside a
  // comment and in short names, false for the plain full name); the host
  // decides what it means.
  using CameraTypeIdResolver = std::u16string (*)(std::uint32_t typeId, bool flag);
  // Null until the host sets it; every name is empty without it.
  static CameraTypeIdResolver m_cameraTypeIdResolver;

  OType_Device_Camera_InfoItem() = default;
  ~OType_Device_Camera_InfoItem() override;

  // Restores every member to its default and resets the image; the tail
  // stays. The flag belongs to the protocol's signature and changes nothing.
  virtual void InitializeMembers(bool bInitialize);
  // Every member, the image with its own tail, and the tail. Nothing for a
  // null target.
  virtual void CopyTo(OType_Device_Camera_InfoItem* target) const;
  // A new copy owned by the caller; null when memory runs out.
  virtual OType_Device_Camera_InfoItem* CreateCopy() const;
  // The comment and the image only; nothing for a null target.
  virtual void CopyUserDataTo(std::shared_ptr<OType_Device_Camera_InfoItem>& target) const;
  // Empties the comment and resets the image.
  virtual void ResetUserData();

  // Equal camera type and serial number, code unit for code unit; two nulls
  // are equal, a null and an item are not.
  static bool Equals(const OType_Device_Camera_InfoItem* a, const OType_Device_Camera_InfoItem* b);
  static bool Equals(const std::shared_ptr<const OType_Device_Camera_InfoItem>& a,
                     const std::shared_ptr<const OType_Device_Camera_InfoItem>& b);
  bool operator==(const OType_Device_Camera_InfoItem& other) const { return Equals(this, &other); }

  // The resolver's plain name of a type; empty without a resolver.
  static std::u16string GetCameraTypeName(unsigned int typeId);
  std::u16string GetCameraTypeName() const { return GetCameraTypeName(m_cameraTypeId); }
  // "Left camera (Type A S/N: 4711)", or without comment "Type A (S/N: 4711)";
  // a type name without serial keeps its trailing blank: "Type A ".
  std::u16string GetFullCameraName() const;
  // As the full name, but a camera without comment and serial is marked
  // generic: "Type A (generic)".
  std::u16string GetShortCameraName() const;

  std::uint32_t m_cameraTypeId = kNoCameraType;
  std::int32_t m_manufacturerID = -1;
  std::u16string m_manufacturerName;
  std::u16string m_manufacturerCameraSerialNumber;
  std::u16string m_manufacturerCameraName;
  std::int32_t m_cameraInterfaceType = -1;
  std::u16string m_cameraInterfaceVersion;
  bool m_cameraConnectionAddress_UseStr = false;
  std::uint32_t m_cameraConnectionAddressID = 0;
  std::u16string m_cameraConnectionAddressStr;
  bool m_cameraUserAssignedIdentification_UseStr = false;
  std::uint32_t m_cameraUserAssignedIdentificationID = 0;
  std::u16string m_cameraUserAssignedIdentificationStr;
  std::u16string m_cameraUserAssignedComment;
  OType_Image m_cameraImage;

  using Item = OType_Device_Camera_InfoItem;
  using Fields = nk::FieldList<
      &Item::m_cameraTypeId, &Item::m_manufacturerID, &Item::m_manufacturerName,
      &Item::m_manufacturerCameraSerialNumber, &Item::m_manufacturerCameraName, &Item::m_cameraInterfaceType,
      &Item::m_cameraInterfaceVersion, &Item::m_cameraConnectionAddress_UseStr, &Item::m_cameraConnectionAddressID,
      &Item::m_cameraConnectionAddressStr, &Item::m_cameraUserAssignedIdentification_UseStr,
      &Item::m_cameraUserAssignedIdentificationID, &Item::m_cameraUserAssignedIdentificationStr,
      &Item::m_cameraUserAssignedComment, &Item::m_cameraImage>;

 protected:
  void BeginGetFields(bool bInitialize) override {
    if (bInitialize) InitializeMembers(true);
  }

 private:
  // The comment form shared by both names: "C (type S/N: serial)".
  std::u16string CommentedName() const;
};

// Wire form: u32 count, each item's frame, the tail.
class NKF_API OType_Device_Camera_InfoItemArray
    : public nk::ObjectArray<OType_Device_Camera_InfoItemArray, std::shared_ptr<OType_Device_Camera_InfoItem>> {
 public:
  static constexpr std::uint32_t TypeId = nk::object_id::kDeviceCameraInfoItemArray;
  static constexpr nk::FrameRules kFrame{TypeId, 8};

  ~OType_Device_Camera_InfoItemArray() override;

  // Replaces the target's items by copies of these (an empty slot stays
  // empty) and its tail by this one's. Nothing for a null target.
  void CopyTo(OType_Device_Camera_InfoItemArray* target) const;

  // Same count and, index by index, equal items; two nulls are equal, a
  // null and an array are not.
  static bool Equals(const OType_Device_Camera_InfoItemArray* a, const OType_Device_Camera_InfoItemArray* b);
  static bool Equals(const std::shared_ptr<const OType_Device_Camera_InfoItemArray>& a,
                     const std::shared_ptr<const OType_Device_Camera_InfoItemArray>& b);
};

#endif  // NKFOUNDATION_DEVICE_CAMERA_INFO_ITEM_H_
