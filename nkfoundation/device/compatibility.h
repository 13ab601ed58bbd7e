// OType_Compatibility: the firmware range that a project or check program
// works with, and the version of the PC software that created it.
#ifndef NKFOUNDATION_DEVICE_COMPATIBILITY_H_
#define NKFOUNDATION_DEVICE_COMPATIBILITY_H_

#include <cstdint>
#include <string>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/object_ids.h"

class OType_DeviceInfo;

// Versions have four components, major to build. A bound takes no part in
// the check when its components are all 0 or its first one is negative; in a
// bound that does, a component below 0 accepts any value from that
// component on.
//
// Wire form: the minimum and the maximum as four i32 each, the creating
// version as u64, then the tail. A frame written before the creating version
// existed ends after the bounds and reads with the default creating version.
class NKF_API OType_Compatibility : public nk::Framed<OType_Compatibility> {
 public:
  static constexpr nk::FrameRules kFrame{nk::object_id::kCompatibility, 2 * 4 * 4};
  // 1.0.18159.0: four 16-bit components from the most significant word down.
  static constexpr std::uint64_t kDefaultVersionCreatedWith = 0x0001000046EF0000;

  OType_Compatibility() = default;

  // Clears both bounds and restores the default creating version. The flag
  // belongs to the protocol's signature and changes nothing.
  void InitializeMembers(bool bInitialize);

  // Stores the eight components as given. Always true.
  bool SetCompatibilityFirmwareVersion(int min0, int min1, int min2, int min3, int max0, int max1,
                                       int max2, int max3);
  // Each text is split at "." and its first four parts are parsed as the C
  // runtime parses integers with automatic base: "0x10" is 16, "010" is 8
  // and "08" is 0. A missing or non-numeric part is 0; a part beyond the
  // 32-bit range saturates. Always true.
  bool SetCompatibilityFirmwareVersion(std::u16string minimum, std::u16string maximum);

  // 1 when the device's firmware lies outside the range, 0 when inside.
  // Both bounds are inclusive. A null device has no firmware to check and
  // answers 1. The message is accepted for callers that expect one and is
  // left unchanged.
  int iCheckPropertyCompatibility(OType_DeviceInfo* device, std::u16string& message) const;

  // Whether each bound takes part in the check.
  bool bHasMinimum() const;
  bool bHasMaximum() const;

  // Copies both bounds and the tail. The target keeps its own creating
  // version: a copy records who made the copy, not who made the original.
  void CopyTo(OType_Compatibility* target) const;
  // A new copy owned by the caller, with the default creating version.
  OType_Compatibility* opCreateCopy() const;

  std::int32_t m_iaMinimumCompatibilityFirmwareVersion[4] = {0, 0, 0, 0};
  std::int32_t m_iaMaximumCompatibilityFirmwareVersion[4] = {0, 0, 0, 0};
  std::uint64_t m_qtvVersionCreatedWith = kDefaultVersionCreatedWith;

  using Fields = nk::FieldList<&OType_Compatibility::m_iaMinimumCompatibilityFirmwareVersion,
                               &OType_Compatibility::m_iaMaximumCompatibilityFirmwareVersion,
                               &OType_Compatibility::m_qtvVersionCreatedWith>;

 protected:
  void BeginGetFields(bool bInitialize) override;
  nk::FieldsRead GetFields(OByteStream& stream) override;
};

#endif  // NKFOUNDATION_DEVICE_COMPATIBILITY_H_
