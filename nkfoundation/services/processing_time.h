// OType_ProcessingTime: how long one stage of an inspection cycle took.
#ifndef NKFOUNDATION_SERVICES_PROCESSING_TIME_H_
#define NKFOUNDATION_SERVICES_PROCESSING_TIME_H_

#include <cstdint>
#include <string>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/object_ids.h"

// The stages of a cycle, named as the managed side names them. The prefix
// also keeps short names such as DEBUG clear of common macros.
enum ProcessingTimeType : int {
  PROCESSINGTIME_TYPE_UNKNOWN = 0,
  PROCESSINGTIME_TYPE_TRIGGERIMAGE = 1,
  PROCESSINGTIME_TYPE_EXPOSE_AND_TRANSFER_IMAGE = 2,
  PROCESSINGTIME_TYPE_PRE_INIT = 3,
  PROCESSINGTIME_TYPE_PREPROCESSING = 4,
  PROCESSINGTIME_TYPE_TOOL = 5,
  PROCESSINGTIME_TYPE_CLASSIFICATION = 6,
  PROCESSINGTIME_TYPE_DDIO_STREAMING = 7,
  PROCESSINGTIME_TYPE_DDIO = 8,
  PROCESSINGTIME_TYPE_PART_RECORDING = 9,
  PROCESSINGTIME_TYPE_PART_TRANSFER = 10,
  PROCESSINGTIME_TYPE_CLEANUP = 11,
  PROCESSINGTIME_TYPE_EA = 12,
  PROCESSINGTIME_TYPE_WAIT_TRIGGERRELEASE = 13,
  PROCESSINGTIME_TYPE_DEBUG = 255,
};

// One timing item. It is open while its duration is 0 and closed once a
// duration has been recorded.
//
// Wire form: type (i32), start (u64), duration (u32), info (string), start
// and stop reference ids (i32 each), tail. Fields are read from a payload of
// 16 bytes on.
class NKF_API OType_ProcessingTime : public nk::Framed<OType_ProcessingTime> {
 public:
  static constexpr nk::FrameRules kFrame{nk::object_id::kProcessingTime, 16};

  OType_ProcessingTime() = default;
  OType_ProcessingTime(int type, std::uint64_t start_us);
  OType_ProcessingTime(int type, std::uint64_t start_us, const std::u16string& info);

  virtual void InitializeMembers(bool bInitialize);
  void CopyTo(OType_ProcessingTime* target) const;
  // A new copy, owned by the caller.
  OType_ProcessingTime* opCreateCopy() const;

  // The display name of the type ("WAIT_EA" for type 13, "UNKNOWN" for any
  // value outside the table), the duration in milliseconds and the info.
  void GetProcessingTimeData(std::u16string& name, double& duration_ms, std::u16string& info) const;

  int m_iProcessingTime_Type = PROCESSINGTIME_TYPE_UNKNOWN;
  int m_iProcessingTime_ReferenceID_Start = -1;
  int m_iProcessingTime_ReferenceID_Stop = -1;
  // Microseconds since 1970-01-01 00:00 UTC.
  std::uint64_t m_ullStartTimeMicroSec = 0;
  // 0 while the item is open.
  std::uint32_t m_uiDuractionMicroSec = 0;
  std::u16string m_oProcessingTime_Info;

  using Fields = nk::FieldList<&OType_ProcessingTime::m_iProcessingTime_Type,
                               &OType_ProcessingTime::m_ullStartTimeMicroSec,
                               &OType_ProcessingTime::m_uiDuractionMicroSec,
                               &OType_ProcessingTime::m_oProcessingTime_Info,
                               &OType_ProcessingTime::m_iProcessingTime_ReferenceID_Start,
                               &OType_ProcessingTime::m_iProcessingTime_ReferenceID_Stop>;

 protected:
  void BeginGetFields(bool bInitialize) override;
};

#endif  // NKFOUNDATION_SERVICES_PROCESSING_TIME_H_
