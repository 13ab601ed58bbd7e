#include "nkfoundation/device/device_diagnostic.h"

#include <utility>

OType_DeviceDiagnostic::OType_DeviceDiagnostic(std::uint16_t category, std::uint16_t message_id)
    : m_usiDiagnosticCategoryID(category), m_usiDiagnosticData_ID(message_id) {}

OType_DeviceDiagnostic::OType_DeviceDiagnostic(std::uint16_t category, std::uint16_t message_id,
                                               std::u16string text)
    : m_usiDiagnosticCategoryID(category),
      m_usiDiagnosticData_ID(message_id),
      m_oDiagnosticData_Text(std::move(text)) {}

void OType_DeviceDiagnostic::InitializeMembers(bool /*bInitialize*/) {
  m_uiSystemDiagnosticData_FreeMemory = 0;
  m_ucSystemDiagnosticData_CPULoad_1 = 0;
  m_ucSystemDiagnosticData_CPULoad_2 = 0;
  m_ucSystemDiagnosticData_CPULoad_3 = 0;
  m_ucSystemDiagnosticData_CPULoad_4 = 0;
  m_usiDiagnosticCategoryID = 0;
  m_usiDiagnosticData_ID = 0;
  m_oDiagnosticData_Text.clear();
}

void OType_DeviceDiagnostic::CopyTo(OType_DeviceDiagnostic* target) const {
  if (target != nullptr) *target = *this;
}

OType_DeviceDiagnostic* OType_DeviceDiagnostic::opCreateCopy() const {
  return new OType_DeviceDiagnostic(*this);
}

void OType_DeviceDiagnostic::BeginGetFields(bool bInitialize) {
  if (bInitialize) InitializeMembers(true);
}

void OType_DeviceDiagnosticArray::CopyTo(OType_DeviceDiagnosticArray* target) const {
  if (target == nullptr || target == this) return;
  target->RemoveAll();
  for (const std::shared_ptr<OType_DeviceDiagnostic>& diagnostic : *this) {
    target->Add(diagnostic ? std::make_shared<OType_DeviceDiagnostic>(*diagnostic) : nullptr);
  }
  target->m_oUserData = m_oUserData;
}

OType_DeviceDiagnosticArray* OType_DeviceDiagnosticArray::opCreateCopy() const {
  auto* copy = new OType_DeviceDiagnosticArray();
  CopyTo(copy);
  return copy;
}
