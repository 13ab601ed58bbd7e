// OType_ProcessingTimeArray: the timing items of one inspection cycle.
#ifndef NKFOUNDATION_SERVICES_PROCESSING_TIME_ARRAY_H_
#define NKFOUNDATION_SERVICES_PROCESSING_TIME_ARRAY_H_

#include <cstdint>
#include <memory>
#include <string>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/object_array.h"
#include "nkfoundation/core/object_ids.h"
#include "nkfoundation/services/processing_time.h"

// Items are opened when a stage starts (start time = wall-clock now, in
// microseconds with millisecond resolution) and closed when it ends. Starting,
// closing and searching belong to one thread per array; items are shared, so
// a stage may keep its item while the list is written.
//
// Wire form: part number (u32), count (u32), each item's frame, tail. The
// items and the tail reach the target stream as one block. Reading appends;
// an item that does not read is left out, the following ones are still read,
// and the read then reports false.
class NKF_API OType_ProcessingTimeArray
    : public nk::ObjectArray<OType_ProcessingTimeArray, std::shared_ptr<OType_ProcessingTime>> {
 public:
  using Item = std::shared_ptr<OType_ProcessingTime>;

  static constexpr nk::FrameRules kFrame{nk::object_id::kProcessingTimeArray, 8};

  // A new open item of `type`, started now; not added to any list.
  static Item CreateProcessingTime(int type);
  // These create an open item, append it and return it.
  Item StartNewProcessingTime(int type);
  Item StartNewProcessingTime(int type, const std::u16string& info);
  // A tool stage; `reference_id` becomes the start reference.
  Item StartNewProcessingTime_Tool(const std::u16string& info, int reference_id);
  // An exposure stage; `reference_id` becomes both references, which is what
  // the matching search looks for.
  Item StartNewProcessingTime_CameraExposeAndTransferImage(int reference_id);
  // Appends an item already closed with `duration_us`. Its start time is 0:
  // no clock is read.
  Item AddProcessingTime(int type, unsigned int duration_us);
  Item AddProcessingTime(int type, unsigned int duration_us, const std::u16string& info);

  // Closes an open item: its duration becomes the time since its start,
  // saturated at 0xFFFFFFFF (also for a start in the future). Closed and
  // empty items are left alone. An item closed within the millisecond it
  // was opened keeps duration 0 and so stays open.
  static void FinishProcessingTime(const Item& item);
  // Only for an open tool item: records the stop reference, then closes it.
  static void FinishProcessingTime_Tool(const Item& item, int reference_id);

  // Close and return the matching item, or an empty pointer. There is one
  // trigger item per cycle, at the front, so its search runs forward; the
  // exposure and wait items repeat and the newest one is meant, so theirs
  // run backward.
  Item SearchFinishProcessingTime_TriggerImage();
  Item SearchFinishProcessingTime_CameraExposeAndTransferImage(int reference_id);
  Item SearchFinishProcessingTime_WaitTriggerRelease();

  // Microseconds from the earliest start to the latest end of the items (of
  // `type`), in 32 bits. Without any such item the result is 1, the wrapped
  // difference of the empty extremes; callers know that value.
  std::uint32_t GetProcessingTime_TimeSpan() const;
  std::uint32_t GetProcessingTime_TimeSpan_Type(int type) const;

  // Replaces the target's items with copies (null entries stay null), its
  // part number and its tail with this array's.
  void CopyTo(OType_ProcessingTimeArray* target) const;

  bool AddObjectData(OByteStream& stream) override;
  bool GetObjectData(OByteStream& stream, bool bInitialize) override;

  // The number of the acquired part that the cycle belongs to.
  std::uint32_t m_uiAcquisition_Part_Number_Ref = 0;

  using LeadingFields = nk::FieldList<&OType_ProcessingTimeArray::m_uiAcquisition_Part_Number_Ref>;

 protected:
  nk::FieldsRead GetFields(OByteStream& stream) override;

 private:
  void FinishAllRemainingProcessingTimes();
  Item Append(Item item);
  template <class Matches>
  Item SearchFinishBackward(Matches matches);
  template <class Counts>
  std::uint32_t TimeSpan(Counts counts) const;

  bool item_failed_ = false;
};

#endif  // NKFOUNDATION_SERVICES_PROCESSING_TIME_ARRAY_H_
