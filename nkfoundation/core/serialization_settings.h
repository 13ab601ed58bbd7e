// OType_ObjectSerializationSettings: the switches that tell a serializer
// which optional groups of a larger configuration to include, and the nine
// predefined combinations for the typical jobs.
#ifndef NKFOUNDATION_CORE_SERIALIZATION_SETTINGS_H_
#define NKFOUNDATION_CORE_SERIALIZATION_SETTINGS_H_

#include <cstdint>
#include <memory>
#include <span>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/framed_object.h"
#include "nkfoundation/core/object_ids.h"

// Only the switches from m_serialize_PartSet_LiveParts to
// m_serialize_Camera_ReferenceImage travel and are copied; the device
// controller switches and the precalculation setting stay with the object.
class NKF_API OType_ObjectSerializationSettings
    : public nk::AFramedObject,
      public std::enable_shared_from_this<OType_ObjectSerializationSettings> {
 public:
  enum class PreDefinedSettings : std::int32_t {
    All = 0,
    FrontEndJobData = 1,
    UndoRedo = 2,
    PartialJobDataUpdate = 3,
    SendReceiveCameraSettings = 4,
    DeviceJobData = 5,
    PartFileLogger = 6,
    None = 7,
    SyncJobWithoutDataLoss = 8,
  };

  // How callers precompute object sizes. The library stores the value only;
  // values other than the default pass through unchanged.
  enum ObjectSize_Precalculation : std::int32_t {
    ObjectSize_Precalculation_Default = 0,
  };

  // The payload from which the travelling switches are read: two short of
  // the 20 bytes they take, kept as it stands.
  static constexpr std::uint64_t kMinimumPayload = 18;

  // One switch, for code that treats the switches alike.
  struct Switch {
    const char* name;
    bool OType_ObjectSerializationSettings::*member;
  };

  // Every switch off, precalculation 0: the same as None().
  OType_ObjectSerializationSettings() = default;
  // A value outside the nine sets gives the default object.
  explicit OType_ObjectSerializationSettings(PreDefinedSettings settings);

  // The process-wide instances of the predefined sets.
  static const OType_ObjectSerializationSettings& All();
  static const OType_ObjectSerializationSettings& FrontEndJobData();
  static const OType_ObjectSerializationSettings& UndoRedo();
  static const OType_ObjectSerializationSettings& PartialJobDataUpdate();
  static const OType_ObjectSerializationSettings& SendReceiveCameraSettings();
  static const OType_ObjectSerializationSettings& DeviceJobData();
  static const OType_ObjectSerializationSettings& PartFileLogger();
  static const OType_ObjectSerializationSettings& None();
  static const OType_ObjectSerializationSettings& SyncJobWithoutDataLoss();

  // All 24 switches in declaration order, and the 20 that travel (in wire
  // order) as the last 20 of them.
  static std::span<const Switch> Switches();
  static std::span<const Switch> TravellingSwitches();

  ObjectSize_Precalculation GetObjectSize_Precalculation() const {
    return m_eObjectSize_PrecalculationSettings;
  }
  void SetObjectSize_Precalculation(ObjectSize_Precalculation value) {
    m_eObjectSize_PrecalculationSettings = value;
  }

  // Replaces the tail with the source's and copies the travelling switches.
  void CopyFrom(const OType_ObjectSerializationSettings& source);
  // The same into `target`; nothing when it is empty.
  void CopyTo(std::shared_ptr<OType_ObjectSerializationSettings> target) const;
  std::shared_ptr<OType_ObjectSerializationSettings> CreateCopy() const;
  // Shares ownership with the existing owner; empty when there is none.
  std::shared_ptr<OType_ObjectSerializationSettings> ThisPtr();
  std::shared_ptr<const OType_ObjectSerializationSettings> ThisPtr() const;

  // The announced size is six bytes more than is written (34 + tail against
  // 28 + tail), and the length field follows the announced size. Stored
  // settings carry that length, so it stays as it is.
  std::uint64_t GetObjectSize() const override;

  bool m_serialize_DeviceController_DeviceInfo = false;
  bool m_serialize_DeviceController_PartSetArray = false;
  bool m_serialize_DeviceController_SysConf = false;
  bool m_serialize_DeviceController_GlobalDeviceParameters = false;
  bool m_serialize_PartSet_LiveParts = false;
  bool m_serialize_PartSet_TeachParts = false;
  bool m_serialize_PartSet_TestParts = false;
  bool m_serialize_PartSet_ProcessParts = false;
  bool m_serialize_PartSet_AssignedCameras = false;
  bool m_serialize_PartSet_DeviceMainParameters = false;
  bool m_serialize_PartSet_DefRefFeatures = false;
  bool m_serialize_PartSet_ConfigToolPosition_References = false;
  bool m_serialize_PartSet_ConfigTools = false;
  bool m_serialize_PartSet_SubTypes = false;
  bool m_serialize_PartSet_DigitalDeviceDataIOs = false;
  bool m_serialize_PartSet_EthernetDeviceDataIOs = false;
  bool m_serialize_CoordTrans_CalibrationPart = false;
  bool m_serialize_Part_Features = false;
  bool m_serialize_Part_Contour = false;
  bool m_serialize_Part_CameraImages = false;
  bool m_serialize_Part_ProcessingTimes = false;
  bool m_serialize_Part_DeviceDiagnostics = false;
  bool m_serialize_Camera_CoordTransformer = false;
  bool m_serialize_Camera_ReferenceImage = false;
  ObjectSize_Precalculation m_eObjectSize_PrecalculationSettings = ObjectSize_Precalculation_Default;

 protected:
  // Every switch off, precalculation 0. The flag belongs to the protocol's
  // signature and does not change what is reset.
  virtual void InitializeMembers(bool bInitialize);

  // The travelling switches, one byte each. A frame of 18 or 19 bytes reads
  // past its end and then returns to it. No progress step is reported.
  const nk::FrameRules& GetFrameRules() const override;
  std::uint64_t GetPayloadSize() const override;
  void AddFields(OByteStream& stream) override;
  nk::FieldsRead GetFields(OByteStream& stream) override;
  void BeginGetFields(bool bInitialize) override;
};

#endif  // NKFOUNDATION_CORE_SERIALIZATION_SETTINGS_H_
