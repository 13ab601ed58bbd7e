// OType_ProjectProperties: the project-wide switches of the PC software, which
// travel inside project files and are also kept in the host application's
// settings under the section "Settings".
#ifndef NKFOUNDATION_DEVICE_PROJECT_PROPERTIES_H_
#define NKFOUNDATION_DEVICE_PROJECT_PROPERTIES_H_

#include <cstdint>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/framed_object.h"
#include "nkfoundation/core/object_ids.h"

// Wire form: 64 bytes of fields, each flag as an i32 (1 or 0) and the caliper
// values as doubles, in an order of their own (see docs/formats.md), then the
// tail. Reading always starts from the defaults, whatever bInitialize says,
// so a shorter, older frame reads as the defaults; any non-zero i32 reads as
// true.
class NKF_API OType_ProjectProperties : public nk::AFramedObject {
 public:
  static constexpr nk::FrameRules kFrame{nk::object_id::kProjectProperties, 64};

  OType_ProjectProperties() = default;

  // Every member back to its default; the tail is left alone.
  void Default_ProjectProperties();

  bool bUseMultiPartSets() const { return m_bProject_Use_MultiPartSets; }
  bool bUseOrientations() const { return m_bProject_Use_Orientations; }
  bool bUseManualOrientations() const { return m_bProject_Use_ManualOrientations; }
  bool bUseSortTypes() const { return m_bProject_Use_SortTypes; }
  bool bUseManualSortTypes() const { return m_bProject_Use_ManualTypes; }
  bool bUseQuality() const { return m_bProject_Use_Quality; }
  bool bUseAlternativeValue() const { return m_bProject_Use_Alternative_Value; }
  bool bUseNewToolsOnCameraImage() const { return m_bProject_Use_NewToolsOnCameraImage; }

  // Takes the ten flags from the host's profile (profile::GetAvailableProfile).
  // Quality, alternative values and new tools are not read: reading stores
  // 1, 0 and 0 under their entries and sets each of those flags when its
  // value was stored. Without a profile the flags take fixed fallback values,
  // which differ from the defaults for orientations and sort types. The
  // caliper values and the tail are never touched.
  void ReadRegistry_ProjectProperties();
  // Stores the ten flags as 1 or 0 in the host's profile; without a profile
  // it does nothing.
  void WriteRegistry_ProjectProperties() const;

  bool m_bProject_SaveFile_IncludeOldFormat = false;
  bool m_bProject_Use_MultiPartSets = true;
  bool m_bProject_Use_Orientations = true;
  bool m_bProject_Use_ManualOrientations = true;
  bool m_bProject_Use_SortTypes = true;
  bool m_bProject_Use_ManualTypes = true;
  bool m_bProject_Use_Quality = true;
  bool m_bProject_Use_Alternative_Value = true;
  bool m_bProject_Use_NewToolsOnCameraImage = false;
  bool m_bUpdate_ProjectDescription = true;
  double m_dCaliper_ImageScaling_x = 1.0;
  double m_dCaliper_ImageScaling_y = 1.0;
  double m_dCaliper_World_ZPos = 0.0;

 protected:
  const nk::FrameRules& GetFrameRules() const override { return kFrame; }
  std::uint64_t GetPayloadSize() const override { return kFrame.min_payload; }
  void AddFields(OByteStream& stream) override;
  nk::FieldsRead GetFields(OByteStream& stream) override;
  void BeginGetFields(bool bInitialize) override;
};

#endif  // NKFOUNDATION_DEVICE_PROJECT_PROPERTIES_H_
