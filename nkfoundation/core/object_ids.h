// The object identifiers of every serializable class, and what a frame
// reader needs to know about each.
#ifndef NKFOUNDATION_CORE_OBJECT_IDS_H_
#define NKFOUNDATION_CORE_OBJECT_IDS_H_

#include <cstdint>

#include "nkfoundation/core/export.h"

namespace nk::object_id {

inline constexpr std::uint32_t kStringArray = 0xFED00000;
inline constexpr std::uint32_t kImageArray = 0xFED00600;
inline constexpr std::uint32_t kImage = 0xFED00700;
inline constexpr std::uint32_t kTime = 0xFED00800;
inline constexpr std::uint32_t kVectorArray = 0xFED01400;
inline constexpr std::uint32_t kVector = 0xFED01500;
inline constexpr std::uint32_t kProjectProperties = 0xFED01800;
inline constexpr std::uint32_t kCompatibility = 0xFED01D00;
inline constexpr std::uint32_t kDeviceInfoArray = 0xFED02500;
inline constexpr std::uint32_t kDeviceInfo = 0xFED02600;
inline constexpr std::uint32_t kProcessingTimeArray = 0xFED02700;
inline constexpr std::uint32_t kProcessingTime = 0xFED02800;
inline constexpr std::uint32_t kVariant = 0xFED02B00;
inline constexpr std::uint32_t kVariantArray = 0xFED02C00;
inline constexpr std::uint32_t kApplicationSerializationData = 0xFED03200;
inline constexpr std::uint32_t kProjectData = 0xFED03400;
inline constexpr std::uint32_t kDeviceDiagnosticArray = 0xFED03800;
inline constexpr std::uint32_t kDeviceDiagnostic = 0xFED03900;
inline constexpr std::uint32_t kPartSetProtection = 0xFED03A00;
inline constexpr std::uint32_t kCheckProgramInfoItemArray = 0xFED04900;
inline constexpr std::uint32_t kCheckProgramInfoItem = 0xFED04A00;
inline constexpr std::uint32_t kObjectSerializationSettings = 0xFED05400;
inline constexpr std::uint32_t kDeviceCameraInfoItemArray = 0xFED05600;
inline constexpr std::uint32_t kDeviceCameraInfoItem = 0xFED05700;
// Strings travel as nested objects of their own but have no class.
inline constexpr std::uint32_t kString = 0xFECB0100;

}  // namespace nk::object_id

namespace nk {

// How the frames of a class are laid out, as far as a reader that does not
// know the class's fields can tell.
enum class FrameKind {
  kObject,       // fields, then the tail
  kObjectArray,  // leading fields, u32 count, element frames, then the tail
  kString,       // UTF-16 code units, no tail
};

struct ObjectClassInfo {
  std::uint32_t id;
  const char* name;
  FrameKind kind;
  // For arrays: bytes of the array's own fields before the count, or -1 when
  // they are not fixed and the elements cannot be located.
  int leading_bytes;
};

// The entry of `id`, or nullptr for an identifier this library does not know.
NKF_API const ObjectClassInfo* FindObjectClass(std::uint32_t id);

}  // namespace nk

#endif  // NKFOUNDATION_CORE_OBJECT_IDS_H_
