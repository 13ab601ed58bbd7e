#include "nkfoundation/core/framed_object.h"

namespace nk {

std::uint64_t AFramedObject::GetObjectSize() const {
  const std::uint64_t tail = GetFrameRules().keeps_tail ? m_oUserData.GetCount() : 0;
  return OByteStream::kFrameHeaderSize + GetPayloadSize() + tail;
}

bool AFramedObject::AddObjectData(OByteStream& stream) {
  const FrameRules& rules = GetFrameRules();
  // The length field is derived from GetObjectSize(), not from the bytes
  // actually written, so a class that reports a larger size (a quirk some
  // stored layouts keep) gets the matching length field.
  const std::uint64_t size = GetObjectSize();
  stream.BeginAddObject(size);
  stream.AddUInt32(static_cast<std::uint32_t>(size - 4));
  stream.AddUInt32(rules.id);
  AddFields(stream);
  if (rules.keeps_tail) stream.AddByteArray(m_oUserData);
  if (rules.reports_progress) stream.UpdateProgressCtrl();
  return true;
}

bool AFramedObject::GetObjectData(OByteStream& stream, bool bInitialize) {
  const FrameRules& rules = GetFrameRules();
  std::uint64_t payload = 0;
  std::uint64_t end = 0;
  if (!stream.BeginGetObject(rules.id, payload, end)) return false;

  BeginGetFields(bInitialize);
  FieldsRead outcome = FieldsRead::kComplete;
  if (payload >= rules.min_payload) {
    frame_end_ = end;
    outcome = GetFields(stream);
    if (outcome == FieldsRead::kNestedFailed) {
      stream.AbortGetObject(end);
      return false;
    }
    if (outcome == FieldsRead::kElementFailed && !rules.reports_bad_element) {
      outcome = FieldsRead::kComplete;
    }
  } else {
    OnShortPayload();
  }

  const std::uint64_t position = stream.GetPosition();
  if (rules.reports_progress) stream.UpdateProgressCtrl();
  if (!rules.keeps_tail) return stream.SetPosition(end);

  if (rules.empties_tail) m_oUserData.RemoveAll();
  if (end > position) stream.GetByteArray(m_oUserData, end - position);
  // Fields that ran past the frame (a string longer than its object) are
  // answered by moving back to where the object ends.
  if (end < position) return stream.SetPosition(end);
  // An array that stopped early still succeeds when it stopped exactly at
  // its end: the count promised more elements than the frame holds.
  return outcome == FieldsRead::kComplete || position == end;
}

}  // namespace nk
