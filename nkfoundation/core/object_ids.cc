#include "nkfoundation/core/object_ids.h"

#include <algorithm>
#include <array>

namespace nk {
namespace {

using namespace object_id;

constexpr std::array kClasses = {
    ObjectClassInfo{kStringArray, "OStringArray", FrameKind::kObjectArray, 0},
    // Selected index, process step, source reference (i32 each) and the
    // selection mark (bool) precede the count.
    ObjectClassInfo{kImageArray, "OType_Image_Array", FrameKind::kObjectArray, 13},
    ObjectClassInfo{kImage, "OType_Image", FrameKind::kObject, 0},
    ObjectClassInfo{kTime, "OTime", FrameKind::kObject, 0},
    ObjectClassInfo{kVectorArray, "OVector_Array", FrameKind::kObjectArray, 0},
    ObjectClassInfo{kVector, "OVector", FrameKind::kObject, 0},
    ObjectClassInfo{kProjectProperties, "OType_ProjectProperties", FrameKind::kObject, 0},
    ObjectClassInfo{kCompatibility, "OType_Compatibility", FrameKind::kObject, 0},
    ObjectClassInfo{kDeviceInfoArray, "OType_DeviceInfoArray", FrameKind::kObjectArray, 0},
    ObjectClassInfo{kDeviceInfo, "OType_DeviceInfo", FrameKind::kObject, 0},
    // The acquisition part number (u32) precedes the count.
    ObjectClassInfo{kProcessingTimeArray, "OType_ProcessingTimeArray", FrameKind::kObjectArray, 4},
    ObjectClassInfo{kProcessingTime, "OType_ProcessingTime", FrameKind::kObject, 0},
    ObjectClassInfo{kVariant, "OType_Variant", FrameKind::kObject, 0},
    ObjectClassInfo{kVariantArray, "OType_VariantArray", FrameKind::kObjectArray, 0},
    ObjectClassInfo{kApplicationSerializationData, "OType_ApplicationSerializationData",
                    FrameKind::kObject, 0},
    ObjectClassInfo{kProjectData, "OType_ProjectData", FrameKind::kObject, 0},
    ObjectClassInfo{kDeviceDiagnosticArray, "OType_DeviceDiagnosticArray", FrameKind::kObjectArray, 0},
    ObjectClassInfo{kDeviceDiagnostic, "OType_DeviceDiagnostic", FrameKind::kObject, 0},
    ObjectClassInfo{kPartSetProtection, "OType_PartSet_Protection", FrameKind::kObject, 0},
    ObjectClassInfo{kCheckProgramInfoItemArray, "OType_CheckProgramInfoItemArray",
                    FrameKind::kObjectArray, 0},
    ObjectClassInfo{kCheckProgramInfoItem, "OType_CheckProgramInfoItem", FrameKind::kObject, 0},
    ObjectClassInfo{kObjectSerializationSettings, "OType_ObjectSerializationSettings",
                    FrameKind::kObject, 0},
    ObjectClassInfo{kDeviceCameraInfoItemArray, "OType_Device_Camera_InfoItemArray",
                    FrameKind::kObjectArray, 0},
    ObjectClassInfo{kDeviceCameraInfoItem, "OType_Device_Camera_InfoItem", FrameKind::kObject, 0},
    ObjectClassInfo{kString, "string", FrameKind::kString, 0},
};

}  // namespace

const ObjectClassInfo* FindObjectClass(std::uint32_t id) {
  const auto* found = std::find_if(kClasses.begin(), kClasses.end(),
                                   [id](const ObjectClassInfo& info) { return info.id == id; });
  return found == kClasses.end() ? nullptr : &*found;
}

}  // namespace nk
