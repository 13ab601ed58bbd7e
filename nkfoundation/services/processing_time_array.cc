#include "nkfoundation/services/processing_time_array.h"

#include <algorithm>
#include <chrono>

#include "nkfoundation/core/memory_stream.h"

namespace {

using Item = OType_ProcessingTimeArray::Item;

// Wall-clock now in microseconds since 1970, at the millisecond resolution
// that the device's items carry too.
std::uint64_t NowMicroseconds() {
  using namespace std::chrono;
  const auto ms = duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
  return static_cast<std::uint64_t>(ms) * 1000;
}

bool IsOpen(const OType_ProcessingTime& item) { return item.m_uiDuractionMicroSec == 0; }

}  // namespace

Item OType_ProcessingTimeArray::CreateProcessingTime(int type) {
  return std::make_shared<OType_ProcessingTime>(type, NowMicroseconds());
}

Item OType_ProcessingTimeArray::Append(Item item) {
  Add(item);
  return item;
}

Item OType_ProcessingTimeArray::StartNewProcessingTime(int type) { return Append(CreateProcessingTime(type)); }

Item OType_ProcessingTimeArray::StartNewProcessingTime(int type, const std::u16string& info) {
  Item item = CreateProcessingTime(type);
  item->m_oProcessingTime_Info = info;
  return Append(std::move(item));
}

Item OType_ProcessingTimeArray::StartNewProcessingTime_Tool(const std::u16string& info, int reference_id) {
  Item item = StartNewProcessingTime(PROCESSINGTIME_TYPE_TOOL, info);
  item->m_iProcessingTime_ReferenceID_Start = reference_id;
  return item;
}

Item OType_ProcessingTimeArray::StartNewProcessingTime_CameraExposeAndTransferImage(int reference_id) {
  Item item = CreateProcessingTime(PROCESSINGTIME_TYPE_EXPOSE_AND_TRANSFER_IMAGE);
  item->m_iProcessingTime_ReferenceID_Start = reference_id;
  item->m_iProcessingTime_ReferenceID_Stop = reference_id;
  return Append(std::move(item));
}

Item OType_ProcessingTimeArray::AddProcessingTime(int type, unsigned int duration_us) {
  return AddProcessingTime(type, duration_us, std::u16string());
}

Item OType_ProcessingTimeArray::AddProcessingTime(int type, unsigned int duration_us,
                                                  const std::u16string& info) {
  auto item = std::make_shared<OType_ProcessingTime>();
  item->m_iProcessingTime_Type = type;
  item->m_uiDuractionMicroSec = duration_us;
  item->m_oProcessingTime_Info = info;
  return Append(std::move(item));
}

void OType_ProcessingTimeArray::FinishProcessingTime(const Item& item) {
  if (!item || !IsOpen(*item)) return;
  // Unsigned, so a start in the future (a clock set backward) wraps to a
  // huge value and saturates like an overlong stage.
  const std::uint64_t elapsed = NowMicroseconds() - item->m_ullStartTimeMicroSec;
  item->m_uiDuractionMicroSec = static_cast<std::uint32_t>(std::min<std::uint64_t>(elapsed, 0xFFFFFFFFu));
}

void OType_ProcessingTimeArray::FinishProcessingTime_Tool(const Item& item, int reference_id) {
  if (!item || !IsOpen(*item) || item->m_iProcessingTime_Type != PROCESSINGTIME_TYPE_TOOL) return;
  item->m_iProcessingTime_ReferenceID_Stop = reference_id;
  FinishProcessingTime(item);
}

Item OType_ProcessingTimeArray::SearchFinishProcessingTime_TriggerImage() {
  for (const Item& item : *this) {
    if (item && item->m_iProcessingTime_Type == PROCESSINGTIME_TYPE_TRIGGERIMAGE) {
      FinishProcessingTime(item);
      return item;
    }
  }
  return nullptr;
}

template <class Matches>
Item OType_ProcessingTimeArray::SearchFinishBackward(Matches matches) {
  for (auto it = rbegin(); it != rend(); ++it) {
    if (*it && matches(**it)) {
      FinishProcessingTime(*it);
      return *it;
    }
  }
  return nullptr;
}

Item OType_ProcessingTimeArray::SearchFinishProcessingTime_CameraExposeAndTransferImage(int reference_id) {
  return SearchFinishBackward([reference_id](const OType_ProcessingTime& item) {
    return item.m_iProcessingTime_Type == PROCESSINGTIME_TYPE_EXPOSE_AND_TRANSFER_IMAGE &&
           item.m_iProcessingTime_ReferenceID_Start == reference_id &&
           item.m_iProcessingTime_ReferenceID_Stop == reference_id;
  });
}

Item OType_ProcessingTimeArray::SearchFinishProcessingTime_WaitTriggerRelease() {
  return SearchFinishBackward([](const OType_ProcessingTime& item) {
    return item.m_iProcessingTime_Type == PROCESSINGTIME_TYPE_WAIT_TRIGGERRELEASE;
  });
}

template <class Counts>
std::uint32_t OType_ProcessingTimeArray::TimeSpan(Counts counts) const {
  std::uint64_t min_start = UINT64_MAX;
  std::uint64_t max_end = 0;
  for (const Item& item : *this) {
    if (!item || !counts(*item)) continue;
    min_start = std::min(min_start, item->m_ullStartTimeMicroSec);
    max_end = std::max(max_end, item->m_ullStartTimeMicroSec + item->m_uiDuractionMicroSec);
  }
  return static_cast<std::uint32_t>(max_end - min_start);
}

std::uint32_t OType_ProcessingTimeArray::GetProcessingTime_TimeSpan() const {
  return TimeSpan([](const OType_ProcessingTime&) { return true; });
}

std::uint32_t OType_ProcessingTimeArray::GetProcessingTime_TimeSpan_Type(int type) const {
  return TimeSpan([type](const OType_ProcessingTime& item) { return item.m_iProcessingTime_Type == type; });
}

void OType_ProcessingTimeArray::FinishAllRemainingProcessingTimes() {
  for (const Item& item : *this) FinishProcessingTime(item);
}

void OType_ProcessingTimeArray::CopyTo(OType_ProcessingTimeArray* target) const {
  if (target == nullptr || target == this) return;
  target->RemoveAll();
  for (const Item& item : *this) {
    target->Add(item ? std::make_shared<OType_ProcessingTime>(*item) : nullptr);
  }
  target->m_uiAcquisition_Part_Number_Ref = m_uiAcquisition_Part_Number_Ref;
  target->m_oUserData = m_oUserData;
}

// The items and the tail are assembled apart and handed over in one piece,
// so the target sees one block and its progress display one step for the
// whole array.
bool OType_ProcessingTimeArray::AddObjectData(OByteStream& stream) {
  const std::uint64_t size = GetObjectSize();
  stream.BeginAddObject(size);
  stream.AddUInt32(static_cast<std::uint32_t>(size - 4));
  stream.AddUInt32(kFrame.id);
  LeadingFields::Add(stream, *this);
  stream.AddUInt32(static_cast<std::uint32_t>(GetCount()));
  OByteStream_Memory body;
  body.BeginAddObject(size);
  for (const Item& item : *this) nk::FieldCodec<Item>::Add(body, item);
  body.AddByteArray(m_oUserData);
  stream.AddByteArray(body);
  stream.UpdateProgressCtrl();
  return true;
}

bool OType_ProcessingTimeArray::GetObjectData(OByteStream& stream, bool bInitialize) {
  item_failed_ = false;
  const bool read = ObjectArray::GetObjectData(stream, bInitialize);
  return read && !item_failed_;
}

// Unlike the other arrays, a bad item does not end the list: each item has
// its own frame, so the ones after it can still be found. An item whose
// frame cannot even be opened leaves the stream where it was; every later
// item would fail at the same place, so reading stops there.
nk::FieldsRead OType_ProcessingTimeArray::GetFields(OByteStream& stream) {
  LeadingFields::Get(stream, *this);
  const std::uint32_t count = stream.GetUInt32();
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint64_t start = stream.GetPosition();
    auto item = std::make_shared<OType_ProcessingTime>();
    if (item->GetObjectData(stream, true)) {
      Add(item);
      continue;
    }
    item_failed_ = true;
    if (stream.GetPosition() == start) break;
  }
  return item_failed_ ? nk::FieldsRead::kElementFailed : nk::FieldsRead::kComplete;
}
