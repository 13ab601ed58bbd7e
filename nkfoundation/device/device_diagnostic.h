// OType_DeviceDiagnostic: one diagnostic message reported by a device, with a
// snapshot of the device's system load; OType_DeviceDiagnosticArray, the list
// of such messages.
#ifndef NKFOUNDATION_DEVICE_DEVICE_DIAGNOSTIC_H_
#define NKFOUNDATION_DEVICE_DEVICE_DIAGNOSTIC_H_

#include <cstdint>
#include <memory>
#include <string>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/object_array.h"
#include "nkfoundation/core/object_ids.h"

// Wire form: free memory (u32), the four core loads (u8 each), category and
// message identifier (16 bits each), the text as a string object, then the
// tail. The categories and identifiers are the device's; the library carries
// them as numbers only.
class NKF_API OType_DeviceDiagnostic : public nk::Framed<OType_DeviceDiagnostic> {
 public:
  // The numbers; the text is not required for them to be read.
  static constexpr nk::FrameRules kFrame{nk::object_id::kDeviceDiagnostic, 4 + 4 * 1 + 2 + 2};

  OType_DeviceDiagnostic() = default;
  OType_DeviceDiagnostic(std::uint16_t category, std::uint16_t message_id);
  OType_DeviceDiagnostic(std::uint16_t category, std::uint16_t message_id, std::u16string text);

  // Zeroes the numbers and empties the text; the flag changes nothing.
  virtual void InitializeMembers(bool bInitialize);
  // The system load is filled in by the device, not here; the hook stays for
  // callers that invoke it after creating a message.
  void InitializeSystemDiagnosticData() {}

  // Every member, the tail included.
  void CopyTo(OType_DeviceDiagnostic* target) const;
  // A new copy owned by the caller.
  OType_DeviceDiagnostic* opCreateCopy() const;

  std::uint32_t m_uiSystemDiagnosticData_FreeMemory = 0;
  std::uint8_t m_ucSystemDiagnosticData_CPULoad_1 = 0;
  std::uint8_t m_ucSystemDiagnosticData_CPULoad_2 = 0;
  std::uint8_t m_ucSystemDiagnosticData_CPULoad_3 = 0;
  std::uint8_t m_ucSystemDiagnosticData_CPULoad_4 = 0;
  std::uint16_t m_usiDiagnosticCategoryID = 0;
  std::uint16_t m_usiDiagnosticData_ID = 0;
  std::u16string m_oDiagnosticData_Text;

  using Fields = nk::FieldList<&OType_DeviceDiagnostic::m_uiSystemDiagnosticData_FreeMemory,
                               &OType_DeviceDiagnostic::m_ucSystemDiagnosticData_CPULoad_1,
                               &OType_DeviceDiagnostic::m_ucSystemDiagnosticData_CPULoad_2,
                               &OType_DeviceDiagnostic::m_ucSystemDiagnosticData_CPULoad_3,
                               &OType_DeviceDiagnostic::m_ucSystemDiagnosticData_CPULoad_4,
                               &OType_DeviceDiagnostic::m_usiDiagnosticCategoryID,
                               &OType_DeviceDiagnostic::m_usiDiagnosticData_ID,
                               &OType_DeviceDiagnostic::m_oDiagnosticData_Text>;

 protected:
  void BeginGetFields(bool bInitialize) override;
};

// Wire form: u32 count, each diagnostic's frame, the tail. Reading appends
// to the diagnostics already held.
class NKF_API OType_DeviceDiagnosticArray
    : public nk::ObjectArray<OType_DeviceDiagnosticArray, std::shared_ptr<OType_DeviceDiagnostic>> {
 public:
  static constexpr nk::FrameRules kFrame{nk::object_id::kDeviceDiagnosticArray, 8};

  // Replaces the target's diagnostics with copies of these (not shared with
  // this array) and its tail with this one's.
  void CopyTo(OType_DeviceDiagnosticArray* target) const;
  // A new copy owned by the caller.
  OType_DeviceDiagnosticArray* opCreateCopy() const;
};

#endif  // NKFOUNDATION_DEVICE_DEVICE_DIAGNOSTIC_H_
