#include "nkfoundation/services/processing_time.h"

namespace {

// Three types show names other than their constants' (the trigger stage is
// what the user knows as image acquisition); the user interface expects them.
const char16_t* DisplayName(int type) {
  switch (type) {
    case PROCESSINGTIME_TYPE_TRIGGERIMAGE: return u"IMAGEACQUISITION";
    case PROCESSINGTIME_TYPE_EXPOSE_AND_TRANSFER_IMAGE: return u"IMAGETRANSFER";
    case PROCESSINGTIME_TYPE_PRE_INIT: return u"PRE_INIT";
    case PROCESSINGTIME_TYPE_PREPROCESSING: return u"PREPROCESSING";
    case PROCESSINGTIME_TYPE_TOOL: return u"TOOL";
    case PROCESSINGTIME_TYPE_CLASSIFICATION: return u"CLASSIFICATION";
    case PROCESSINGTIME_TYPE_DDIO_STREAMING: return u"DDIO_STREAMING";
    case PROCESSINGTIME_TYPE_DDIO: return u"DDIO";
    case PROCESSINGTIME_TYPE_PART_RECORDING: return u"PART_RECORDING";
    case PROCESSINGTIME_TYPE_PART_TRANSFER: return u"PART_TRANSFER";
    case PROCESSINGTIME_TYPE_CLEANUP: return u"CLEANUP";
    case PROCESSINGTIME_TYPE_EA: return u"EA";
    case PROCESSINGTIME_TYPE_WAIT_TRIGGERRELEASE: return u"WAIT_EA";
    case PROCESSINGTIME_TYPE_DEBUG: return u"DEBUG";
    default: return u"UNKNOWN";
  }
}

}  // namespace

OType_ProcessingTime::OType_ProcessingTime(int type, std::uint64_t start_us)
    : m_iProcessingTime_Type(type), m_ullStartTimeMicroSec(start_us) {}

OType_ProcessingTime::OType_ProcessingTime(int type, std::uint64_t start_us, const std::u16string& info)
    : m_iProcessingTime_Type(type), m_ullStartTimeMicroSec(start_us), m_oProcessingTime_Info(info) {}

// The flag belongs to the protocol's signature; every member is reset.
void OType_ProcessingTime::InitializeMembers(bool /*bInitialize*/) {
  m_iProcessingTime_Type = PROCESSINGTIME_TYPE_UNKNOWN;
  m_iProcessingTime_ReferenceID_Start = -1;
  m_iProcessingTime_ReferenceID_Stop = -1;
  m_ullStartTimeMicroSec = 0;
  m_uiDuractionMicroSec = 0;
  m_oProcessingTime_Info.clear();
}

void OType_ProcessingTime::CopyTo(OType_ProcessingTime* target) const {
  if (target != nullptr) *target = *this;
}

OType_ProcessingTime* OType_ProcessingTime::opCreateCopy() const { return new OType_ProcessingTime(*this); }

void OType_ProcessingTime::GetProcessingTimeData(std::u16string& name, double& duration_ms,
                                                 std::u16string& info) const {
  name = DisplayName(m_iProcessingTime_Type);
  duration_ms = static_cast<double>(m_uiDuractionMicroSec) / 1000.0;
  info = m_oProcessingTime_Info;
}

void OType_ProcessingTime::BeginGetFields(bool bInitialize) {
  if (bInitialize) InitializeMembers(true);
}
