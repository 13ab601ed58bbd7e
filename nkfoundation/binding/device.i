// The device and project model: the device information record with its
// identity and localized information, firmware compatibility, diagnostics,
// camera info items, check-program items with their protection, and the
// project properties.

%{
#include "nkfoundation/device/camera_info_item.h"
#include "nkfoundation/device/check_program_info.h"
#include "nkfoundation/device/compatibility.h"
#include "nkfoundation/device/device_diagnostic.h"
#include "nkfoundation/device/device_info.h"
#include "nkfoundation/device/part_set_protection.h"
#include "nkfoundation/device/project_properties.h"
%}

%include <std_unique_ptr.i>

// --- Device information record ----------------------------------------------

// The packed block is the record's base: both are held by shared pointer,
// as the records of a device-info array are.
NKF_SHARED(nk::DeviceInfoData)
NKF_SHARED(OType_DeviceInfo)
%newobject OType_DeviceInfo::opCreateCopy;

// The supported firmware IDs: a list the caller owns.
%unique_ptr(WritableCollection<unsigned int>)
%template(OUIntList) WritableCollection<unsigned int>;

// The label and value lists of the localized information are shared with
// the caller, who reads them after the call.
NKF_SHARED(WritableCollection<std::u16string>)
%template(OU16StringList) WritableCollection<std::u16string>;

// How the record travels inside other frames is the native writer's concern.
%ignore nk::FieldCodec;
namespace nk { template <class T> struct FieldCodec; }
NKF_OBJECT_ARRAY(OType_DeviceInfoArray, std::shared_ptr<OType_DeviceInfo>)
NKF_MOVABLE_ARRAY(OType_DeviceInfoArray, std::shared_ptr<OType_DeviceInfo>)
%ignore OType_DeviceInfoArray::kFrame;
%include "nkfoundation/device/device_info.h"

// --- Compatibility and diagnostics --------------------------------------------

NKF_FRAMED(OType_Compatibility)
%ignore OType_Compatibility::kFrame;
%ignore OType_Compatibility::Fields;
%newobject OType_Compatibility::opCreateCopy;
// The message is never written; the managed form does without it.
%ignore OType_Compatibility::iCheckPropertyCompatibility(OType_DeviceInfo*, std::u16string&) const;
%extend OType_Compatibility {
  int iCheckPropertyCompatibility(OType_DeviceInfo* device) const {
    std::u16string message;
    return $self->iCheckPropertyCompatibility(device, message);
  }
}
%include "nkfoundation/device/compatibility.h"

NKF_FRAMED(OType_DeviceDiagnostic)
%ignore OType_DeviceDiagnostic::kFrame;
%ignore OType_DeviceDiagnostic::Fields;
%newobject OType_DeviceDiagnostic::opCreateCopy;
NKF_OBJECT_ARRAY(OType_DeviceDiagnosticArray, std::shared_ptr<OType_DeviceDiagnostic>)
NKF_MOVABLE_ARRAY(OType_DeviceDiagnosticArray, std::shared_ptr<OType_DeviceDiagnostic>)
%ignore OType_DeviceDiagnosticArray::kFrame;
%newobject OType_DeviceDiagnosticArray::opCreateCopy;
%include "nkfoundation/device/device_diagnostic.h"

// --- Camera info items ----------------------------------------------------------

NKF_FRAMED(OType_Device_Camera_InfoItem)
%ignore OType_Device_Camera_InfoItem::kFrame;
%ignore OType_Device_Camera_InfoItem::Fields;
// The name resolver is a native function the host installs.
%ignore OType_Device_Camera_InfoItem::m_cameraTypeIdResolver;
%newobject OType_Device_Camera_InfoItem::CreateCopy;
// Items and arrays cross as shared holders: the raw-pointer comparison
// would be a second method of the same managed signature.
%ignore OType_Device_Camera_InfoItem::Equals(const OType_Device_Camera_InfoItem*,
                                             const OType_Device_Camera_InfoItem*);
%ignore OType_Device_Camera_InfoItemArray::Equals(const OType_Device_Camera_InfoItemArray*,
                                                  const OType_Device_Camera_InfoItemArray*);
NKF_OBJECT_ARRAY(OType_Device_Camera_InfoItemArray, std::shared_ptr<OType_Device_Camera_InfoItem>)
NKF_MOVABLE_ARRAY(OType_Device_Camera_InfoItemArray, std::shared_ptr<OType_Device_Camera_InfoItem>)
%ignore OType_Device_Camera_InfoItemArray::kFrame;
%include "nkfoundation/device/camera_info_item.h"

// --- Check programs ------------------------------------------------------------

NKF_FRAMED(OType_PartSet_Protection)
%ignore OType_PartSet_Protection::kFrame;
%ignore OType_PartSet_Protection::Fields;
%newobject OType_PartSet_Protection::opCreateCopy;
%include "nkfoundation/device/part_set_protection.h"

NKF_FRAMED(OType_CheckProgramInfoItem)
%ignore OType_CheckProgramInfoItem::kFrame;
%ignore OType_CheckProgramInfoItem::Fields;
NKF_OBJECT_ARRAY(OType_CheckProgramInfoItemArray, std::shared_ptr<OType_CheckProgramInfoItem>)
NKF_MOVABLE_ARRAY(OType_CheckProgramInfoItemArray, std::shared_ptr<OType_CheckProgramInfoItem>)
%ignore OType_CheckProgramInfoItemArray::kFrame;
%include "nkfoundation/device/check_program_info.h"

// --- Project properties ----------------------------------------------------------

NKF_SHARED(OType_ProjectProperties)
%ignore OType_ProjectProperties::kFrame;
%include "nkfoundation/device/project_properties.h"
