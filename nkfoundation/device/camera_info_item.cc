#include "nkfoundation/device/camera_info_item.h"

#include <memory>
#include <new>

#include "nkfoundation/core/culture.h"

namespace {

// Serial-number labels in rows of three per culture: the short label first,
// then two longer ones that the names do not use but that stay in the table
// for the cultures' translators.
constexpr const char16_t* kSerialNumberLabels[] = {
    u"@@S/N", u"Camera serial number", u"Serial number", u"S/N", u"Kamera-Seriennummer", u"Seriennummer", u"S/N",
};
constexpr const char16_t* kGenericMarkers[] = {u"@@generic", u"generic", u"generisch"};

// The host may set any value as its culture; one outside the tables reads
// as English rather than past their end.
int CultureIndex() {
  const int culture = culture::GetCurrentCulture();
  return culture >= culture::kKeyForm && culture <= culture::kGerman ? culture : culture::kEnglish;
}

std::u16string SerialNumberLabel() { return kSerialNumberLabels[CultureIndex() * 3]; }

// "(S/N: 4711)".
std::u16string SerialNumberInParentheses(const std::u16string& serial) {
  return u"(" + SerialNumberLabel() + u": " + serial + u")";
}

// A type name followed by its separating blank, when there is a name.
std::u16string WithBlank(std::u16string name) {
  if (!name.empty()) name += u' ';
  return name;
}

// Back to an empty image stamped now. Assignment leaves an image alone
// while it is being rebuilt, so a reset never cuts into a running Create.
void ResetImage(OType_Image& image) { image = OType_Image(); }

}  // namespace

OType_Device_Camera_InfoItem::CameraTypeIdResolver OType_Device_Camera_InfoItem::m_cameraTypeIdResolver = nullptr;

OType_Device_Camera_InfoItem::~OType_Device_Camera_InfoItem() = default;

void OType_Device_Camera_InfoItem::InitializeMembers(bool /*bInitialize*/) {
  m_cameraTypeId = kNoCameraType;
  m_manufacturerID = -1;
  m_manufacturerName.clear();
  m_manufacturerCameraSerialNumber.clear();
  m_manufacturerCameraName.clear();
  m_cameraInterfaceType = -1;
  m_cameraInterfaceVersion.clear();
  m_cameraConnectionAddress_UseStr = false;
  m_cameraConnectionAddressID = 0;
  m_cameraConnectionAddressStr.clear();
  m_cameraUserAssignedIdentification_UseStr = false;
  m_cameraUserAssignedIdentificationID = 0;
  m_cameraUserAssignedIdentificationStr.clear();
  m_cameraUserAssignedComment.clear();
  ResetImage(m_cameraImage);
}

void OType_Device_Camera_InfoItem::CopyTo(OType_Device_Camera_InfoItem* target) const {
  if (target == nullptr || target == this) return;
  // Member-wise assignment copies the item's tail and the image without its
  // tail; the image's tail completes its full copy.
  *target = *this;
  target->m_cameraImage.m_oUserData = m_cameraImage.m_oUserData;
}

OType_Device_Camera_InfoItem* OType_Device_Camera_InfoItem::CreateCopy() const {
  try {
    auto copy = std::make_unique<OType_Device_Camera_InfoItem>();
    CopyTo(copy.get());
    return copy.release();
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void OType_Device_Camera_InfoItem::CopyUserDataTo(std::shared_ptr<OType_Device_Camera_InfoItem>& target) const {
  if (!target || target.get() == this) return;
  target->m_cameraUserAssignedComment = m_cameraUserAssignedComment;
  m_cameraImage.CopyTo(&target->m_cameraImage);
}

void OType_Device_Camera_InfoItem::ResetUserData() {
  m_cameraUserAssignedComment.clear();
  ResetImage(m_cameraImage);
}

bool OType_Device_Camera_InfoItem::Equals(const OType_Device_Camera_InfoItem* a,
                                          const OType_Device_Camera_InfoItem* b) {
  if (a == nullptr || b == nullptr) return a == b;
  return a->m_cameraTypeId == b->m_cameraTypeId &&
         a->m_manufacturerCameraSerialNumber == b->m_manufacturerCameraSerialNumber;
}

bool OType_Device_Camera_InfoItem::Equals(const std::shared_ptr<const OType_Device_Camera_InfoItem>& a,
                                          const std::shared_ptr<const OType_Device_Camera_InfoItem>& b) {
  return Equals(a.get(), b.get());
}

std::u16string OType_Device_Camera_InfoItem::GetCameraTypeName(unsigned int typeId) {
  return m_cameraTypeIdResolver ? m_cameraTypeIdResolver(typeId, false) : std::u16string();
}

std::u16string OType_Device_Camera_InfoItem::CommentedName() const {
  std::u16string name = m_cameraUserAssignedComment + u" (" + m_cameraTypeIdResolver(m_cameraTypeId, true);
  if (!m_manufacturerCameraSerialNumber.empty()) {
    name += u" " + SerialNumberLabel() + u": " + m_manufacturerCameraSerialNumber;
  }
  return name + u")";
}

std::u16string OType_Device_Camera_InfoItem::GetFullCameraName() const {
  if (m_cameraTypeIdResolver == nullptr) return {};
  if (!m_cameraUserAssignedComment.empty()) return CommentedName();
  std::u16string name = WithBlank(m_cameraTypeIdResolver(m_cameraTypeId, false));
  if (!m_manufacturerCameraSerialNumber.empty()) name += SerialNumberInParentheses(m_manufacturerCameraSerialNumber);
  return name;
}

std::u16string OType_Device_Camera_InfoItem::GetShortCameraName() const {
  if (m_cameraTypeIdResolver == nullptr) return {};
  if (!m_cameraUserAssignedComment.empty()) return CommentedName();
  std::u16string name = WithBlank(m_cameraTypeIdResolver(m_cameraTypeId, true));
  if (!m_manufacturerCameraSerialNumber.empty()) {
    name += SerialNumberInParentheses(m_manufacturerCameraSerialNumber);
  } else if (m_cameraTypeId != kCameraTypeWithoutGenericMarker) {
    name += u"(" + std::u16string(kGenericMarkers[CultureIndex()]) + u")";
  }
  return name;
}

OType_Device_Camera_InfoItemArray::~OType_Device_Camera_InfoItemArray() = default;

void OType_Device_Camera_InfoItemArray::CopyTo(OType_Device_Camera_InfoItemArray* target) const {
  if (target == nullptr || target == this) return;
  target->RemoveAll();
  for (const std::shared_ptr<OType_Device_Camera_InfoItem>& item : *this) {
    std::shared_ptr<OType_Device_Camera_InfoItem> copy;
    if (item) {
      copy = std::make_shared<OType_Device_Camera_InfoItem>();
      item->CopyTo(copy.get());
    }
    target->Add(copy);
  }
  target->m_oUserData = m_oUserData;
}

bool OType_Device_Camera_InfoItemArray::Equals(const OType_Device_Camera_InfoItemArray* a,
                                               const OType_Device_Camera_InfoItemArray* b) {
  if (a == nullptr || b == nullptr) return a == b;
  if (a->GetCount() != b->GetCount()) return false;
  for (int i = 0; i < a->GetCount(); ++i) {
    if (!OType_Device_Camera_InfoItem::Equals((*a)[i].get(), (*b)[i].get())) return false;
  }
  return true;
}

bool OType_Device_Camera_InfoItemArray::Equals(const std::shared_ptr<const OType_Device_Camera_InfoItemArray>& a,
                                               const std::shared_ptr<const OType_Device_Camera_InfoItemArray>& b) {
  return Equals(a.get(), b.get());
}
