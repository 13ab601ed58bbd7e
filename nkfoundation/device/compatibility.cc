#include "nkfoundation/device/compatibility.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "nkfoundation/core/byte_stream.h"
#include "nkfoundation/core/text.h"
#include "nkfoundation/device/device_info.h"

namespace {

using Version = std::int32_t[4];

// A bound is switched off by a negative first component or by being all
// zeros (never written by the tool that made the project).
bool IsSet(const Version& bound) {
  return bound[0] > 0 || (bound[0] == 0 && (bound[1] != 0 || bound[2] != 0 || bound[3] != 0));
}

// How the device's version compares with a bound, component by component
// from major to build. A negative component after the first ends the
// comparison as "inside the bound" (0).
int CompareWithBound(const Version& firmware, const Version& bound) {
  for (int i = 0; i < 4; ++i) {
    if (i > 0 && bound[i] < 0) return 0;
    if (firmware[i] != bound[i]) return firmware[i] < bound[i] ? -1 : 1;
  }
  return 0;
}

// One dotted part as the C runtime's strtol with base 0 reads it where long
// has 32 bits, which is where these texts come from: out-of-range values
// saturate instead of wrapping.
std::int32_t ParseComponent(const std::u16string& part) {
  const std::string text = nk::ToUtf8(part);
  const long long value = std::strtoll(text.c_str(), nullptr, 0);
  return static_cast<std::int32_t>(std::clamp<long long>(value, INT32_MIN, INT32_MAX));
}

// The first four parts of `text` split at "."; missing parts are 0.
void ParseVersion(const std::u16string& text, Version& version) {
  std::size_t start = 0;
  for (int i = 0; i < 4; ++i) {
    if (start > text.size()) {
      version[i] = 0;
      continue;
    }
    const std::size_t dot = std::min(text.find(u'.', start), text.size());
    version[i] = ParseComponent(text.substr(start, dot - start));
    start = dot + 1;
  }
}

}  // namespace

void OType_Compatibility::InitializeMembers(bool /*bInitialize*/) {
  std::fill(std::begin(m_iaMinimumCompatibilityFirmwareVersion),
            std::end(m_iaMinimumCompatibilityFirmwareVersion), 0);
  std::fill(std::begin(m_iaMaximumCompatibilityFirmwareVersion),
            std::end(m_iaMaximumCompatibilityFirmwareVersion), 0);
  m_qtvVersionCreatedWith = kDefaultVersionCreatedWith;
}

bool OType_Compatibility::SetCompatibilityFirmwareVersion(int min0, int min1, int min2, int min3,
                                                          int max0, int max1, int max2, int max3) {
  const Version minimum = {min0, min1, min2, min3};
  const Version maximum = {max0, max1, max2, max3};
  std::copy(std::begin(minimum), std::end(minimum), m_iaMinimumCompatibilityFirmwareVersion);
  std::copy(std::begin(maximum), std::end(maximum), m_iaMaximumCompatibilityFirmwareVersion);
  return true;
}

bool OType_Compatibility::SetCompatibilityFirmwareVersion(std::u16string minimum,
                                                          std::u16string maximum) {
  ParseVersion(minimum, m_iaMinimumCompatibilityFirmwareVersion);
  ParseVersion(maximum, m_iaMaximumCompatibilityFirmwareVersion);
  return true;
}

int OType_Compatibility::iCheckPropertyCompatibility(OType_DeviceInfo* device,
                                                     std::u16string& /*message*/) const {
  if (device == nullptr) return 1;
  // The record stores the components unsigned; they compare as signed
  // 16-bit values, so 0xFFFF is -1 and lies below every minimum of 0.
  const Version firmware = {static_cast<std::int16_t>(device->m_FirmwareVersion_0),
                           static_cast<std::int16_t>(device->m_FirmwareVersion_1),
                           static_cast<std::int16_t>(device->m_FirmwareVersion_2),
                           static_cast<std::int16_t>(device->m_FirmwareVersion_3)};
  if (bHasMinimum() && CompareWithBound(firmware, m_iaMinimumCompatibilityFirmwareVersion) < 0) {
    return 1;
  }
  if (bHasMaximum() && CompareWithBound(firmware, m_iaMaximumCompatibilityFirmwareVersion) > 0) {
    return 1;
  }
  return 0;
}

bool OType_Compatibility::bHasMinimum() const { return IsSet(m_iaMinimumCompatibilityFirmwareVersion); }

bool OType_Compatibility::bHasMaximum() const { return IsSet(m_iaMaximumCompatibilityFirmwareVersion); }

void OType_Compatibility::CopyTo(OType_Compatibility* target) const {
  if (target == nullptr) return;
  std::copy(std::begin(m_iaMinimumCompatibilityFirmwareVersion),
            std::end(m_iaMinimumCompatibilityFirmwareVersion),
            target->m_iaMinimumCompatibilityFirmwareVersion);
  std::copy(std::begin(m_iaMaximumCompatibilityFirmwareVersion),
            std::end(m_iaMaximumCompatibilityFirmwareVersion),
            target->m_iaMaximumCompatibilityFirmwareVersion);
  target->m_oUserData = m_oUserData;
}

OType_Compatibility* OType_Compatibility::opCreateCopy() const {
  auto* copy = new OType_Compatibility();
  CopyTo(copy);
  return copy;
}

void OType_Compatibility::BeginGetFields(bool bInitialize) {
  if (bInitialize) InitializeMembers(true);
}

nk::FieldsRead OType_Compatibility::GetFields(OByteStream& stream) {
  using Bounds = nk::FieldList<&OType_Compatibility::m_iaMinimumCompatibilityFirmwareVersion,
                               &OType_Compatibility::m_iaMaximumCompatibilityFirmwareVersion>;
  Bounds::Get(stream, *this);
  // Frames written before the creating version existed end after the bounds.
  if (GetFrameEnd() - stream.GetPosition() >= sizeof m_qtvVersionCreatedWith) {
    m_qtvVersionCreatedWith = stream.GetUInt64();
  }
  return nk::FieldsRead::kComplete;
}
