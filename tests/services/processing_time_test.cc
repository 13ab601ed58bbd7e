#include "nkfoundation/services/processing_time.h"

#include <gtest/gtest.h>

#include <memory>

#include "nkfoundation/services/process_timer.h"
#include "nkfoundation/services/processing_time_array.h"
#include "tests/support/bytes.h"
#include "tests/support/counting_progress.h"

namespace nk::testing {
namespace {

using Item = OType_ProcessingTimeArray::Item;

TEST(ProcessingTimeTest, DisplayNamesAndMilliseconds) {
  const struct {
    int type;
    const char16_t* name;
    std::uint32_t duration;
    double ms;
  } kCases[] = {{0, u"UNKNOWN", 1500, 1.5},  {1, u"IMAGEACQUISITION", 1500, 1.5}, {2, u"IMAGETRANSFER", 1500, 1.5},
                {5, u"TOOL", 1500, 1.5},     {13, u"WAIT_EA", 1500, 1.5},         {255, u"DEBUG", 1500, 1.5},
                {99, u"UNKNOWN", 1500, 1.5}, {-1, u"UNKNOWN", 1500, 1.5},
                {0, u"UNKNOWN", 0xFFFFFFFF, 4294967.295}};
  for (const auto& c : kCases) {
    OType_ProcessingTime item(c.type, 0, u"info");
    item.m_uiDuractionMicroSec = c.duration;
    std::u16string name, info;
    double ms = 0;
    item.GetProcessingTimeData(name, ms, info);
    EXPECT_EQ(name, c.name) << c.type;
    EXPECT_EQ(ms, c.ms);
    EXPECT_EQ(info, u"info");
  }
}

TEST(ProcessingTimeTest, FrameIsByteExactAndRoundTripsWithTail) {
  OType_ProcessingTime item(4, 0x0102030405060708, u"A");
  item.m_uiDuractionMicroSec = 700;
  item.m_iProcessingTime_ReferenceID_Start = 3;
  item.m_oUserData.Add(0xEE);
  const Bytes frame = Hex("27000000 0028D0FE 04000000 0807060504030201 BC020000 06000000 0001CBFE 4100"
                          "03000000 FFFFFFFF EE");
  EXPECT_EQ(Serialize(item), frame);
  EXPECT_EQ(item.GetObjectSize(), frame.size());

  OType_ProcessingTime read;
  ASSERT_TRUE(Deserialize(read, frame));
  EXPECT_EQ(Serialize(read), frame);
}

// An older, shorter item keeps its values, or the defaults when asked to
// initialize; the bytes it has become the tail.
TEST(ProcessingTimeTest, ShortPayloadReadsNoField) {
  const Bytes short_frame = Hex("10000000 0028D0FE 05000000 0000000000000000");
  for (const bool initialize : {true, false}) {
    OType_ProcessingTime item(7, 99);
    ASSERT_TRUE(Deserialize(item, short_frame, initialize));
    EXPECT_EQ(item.m_iProcessingTime_Type, initialize ? 0 : 7);
    EXPECT_EQ(item.m_ullStartTimeMicroSec, initialize ? 0u : 99u);
    EXPECT_EQ(item.m_oUserData.GetCount(), 12);
  }
}

Item Closed(int type, std::uint64_t start, std::uint32_t duration) {
  auto item = std::make_shared<OType_ProcessingTime>(type, start);
  item->m_uiDuractionMicroSec = duration;
  return item;
}

TEST(ProcessingTimeArrayTest, ItemsStartNowInWholeMilliseconds) {
  OType_ProcessingTimeArray array;
  const Item tool = array.StartNewProcessingTime_Tool(u"Contour", 42);
  const Item exposure = array.StartNewProcessingTime_CameraExposeAndTransferImage(7);
  EXPECT_EQ(tool->m_iProcessingTime_Type, 5);
  EXPECT_EQ(tool->m_oProcessingTime_Info, u"Contour");
  EXPECT_EQ(tool->m_iProcessingTime_ReferenceID_Start, 42);
  EXPECT_EQ(tool->m_iProcessingTime_ReferenceID_Stop, -1);
  EXPECT_EQ(exposure->m_iProcessingTime_ReferenceID_Start, 7);
  EXPECT_EQ(exposure->m_iProcessingTime_ReferenceID_Stop, 7);
  EXPECT_GT(tool->m_ullStartTimeMicroSec, 1'600'000'000'000'000u);  // after 2020
  EXPECT_EQ(tool->m_ullStartTimeMicroSec % 1000, 0u);
  ASSERT_EQ(array.GetCount(), 2);
  EXPECT_EQ(array.GetAt(1), exposure);
  EXPECT_EQ(OType_ProcessingTimeArray::CreateProcessingTime(1)->m_uiDuractionMicroSec, 0u);
  EXPECT_EQ(array.GetCount(), 2);
}

TEST(ProcessingTimeArrayTest, ClosingSaturatesAndLeavesClosedItemsAlone) {
  const Item closed = Closed(5, 1000, 123);
  OType_ProcessingTimeArray::FinishProcessingTime(closed);
  EXPECT_EQ(closed->m_uiDuractionMicroSec, 123u);

  const Item ancient = Closed(5, 1000, 0);  // started in 1970
  const Item future = Closed(5, UINT64_MAX - 5, 0);
  OType_ProcessingTimeArray::FinishProcessingTime(ancient);
  OType_ProcessingTimeArray::FinishProcessingTime(future);
  EXPECT_EQ(ancient->m_uiDuractionMicroSec, 0xFFFFFFFFu);
  EXPECT_EQ(future->m_uiDuractionMicroSec, 0xFFFFFFFFu);
  OType_ProcessingTimeArray::FinishProcessingTime(nullptr);

  const Item preprocessing = Closed(4, 1000, 0);
  OType_ProcessingTimeArray::FinishProcessingTime_Tool(preprocessing, 9);
  EXPECT_EQ(preprocessing->m_iProcessingTime_ReferenceID_Stop, -1);
  EXPECT_EQ(preprocessing->m_uiDuractionMicroSec, 0u);
  const Item tool = Closed(5, 1000, 0);
  OType_ProcessingTimeArray::FinishProcessingTime_Tool(tool, 9);
  EXPECT_EQ(tool->m_iProcessingTime_ReferenceID_Stop, 9);
  EXPECT_NE(tool->m_uiDuractionMicroSec, 0u);
}

TEST(ProcessingTimeArrayTest, TriggerSearchRunsForwardTheOthersBackward) {
  OType_ProcessingTimeArray array;
  array.Add(nullptr);
  const Item trigger1 = array.StartNewProcessingTime(1);
  const Item trigger2 = array.StartNewProcessingTime(1);
  const Item wait1 = array.StartNewProcessingTime(13);
  const Item wait2 = array.StartNewProcessingTime(13);
  const Item exposure_match = array.StartNewProcessingTime_CameraExposeAndTransferImage(3);
  const Item exposure_other = array.StartNewProcessingTime_CameraExposeAndTransferImage(4);
  exposure_other->m_iProcessingTime_ReferenceID_Start = 3;  // only one id matches
  for (const Item& item : {trigger1, trigger2, wait1, wait2}) item->m_ullStartTimeMicroSec = 1000;
  exposure_match->m_ullStartTimeMicroSec = 1000;

  EXPECT_EQ(array.SearchFinishProcessingTime_TriggerImage(), trigger1);
  EXPECT_EQ(array.SearchFinishProcessingTime_WaitTriggerRelease(), wait2);
  EXPECT_EQ(array.SearchFinishProcessingTime_CameraExposeAndTransferImage(3), exposure_match);
  EXPECT_EQ(array.SearchFinishProcessingTime_CameraExposeAndTransferImage(5), nullptr);
  EXPECT_NE(trigger1->m_uiDuractionMicroSec, 0u);
  EXPECT_EQ(trigger2->m_uiDuractionMicroSec, 0u);
  EXPECT_EQ(wait1->m_uiDuractionMicroSec, 0u);
  EXPECT_NE(exposure_match->m_uiDuractionMicroSec, 0u);
  EXPECT_EQ(OType_ProcessingTimeArray().SearchFinishProcessingTime_TriggerImage(), nullptr);
}

TEST(ProcessingTimeArrayTest, TimeSpanKeepsItsWrappedEmptyValue) {
  OType_ProcessingTimeArray array;
  EXPECT_EQ(array.GetProcessingTime_TimeSpan(), 1u);
  array.Add(Closed(4, 1000, 500));
  array.Add(Closed(6, 1200, 100));
  array.Add(nullptr);
  EXPECT_EQ(array.GetProcessingTime_TimeSpan(), 500u);
  EXPECT_EQ(array.GetProcessingTime_TimeSpan_Type(6), 100u);
  EXPECT_EQ(array.GetProcessingTime_TimeSpan_Type(9), 1u);

  OType_ProcessingTimeArray added;
  const Item item = added.AddProcessingTime(8, 700, u"io");
  EXPECT_EQ(item->m_ullStartTimeMicroSec, 0u);
  EXPECT_EQ(item->m_iProcessingTime_ReferenceID_Start, -1);
  EXPECT_EQ(added.GetProcessingTime_TimeSpan(), 700u);
}

// Part number, count, items, tail; the target sees one progress step for
// the whole array, since the items are assembled apart.
TEST(ProcessingTimeArrayTest, FrameCarriesThePartNumberAndOneProgressStep) {
  OType_ProcessingTimeArray array;
  array.m_uiAcquisition_Part_Number_Ref = 5;
  array.AddProcessingTime(1, 2);
  array.m_oUserData.Add(0xAB);
  const Bytes item = Hex("24000000 0028D0FE 01000000 0000000000000000 02000000 04000000 0001CBFE"
                         "FFFFFFFF FFFFFFFF");
  const Bytes frame = Concat(Concat(Hex("35000000 0027D0FE 05000000 01000000"), item), Hex("AB"));
  OByteStream_Memory stream;
  CountingProgress progress;
  stream.SetProgressCtrl(&progress);
  ASSERT_TRUE(array.AddObjectData(stream));
  EXPECT_EQ(BytesOf(stream), frame);
  EXPECT_EQ(array.GetObjectSize(), frame.size());
  EXPECT_EQ(progress.steps, 1);

  OType_ProcessingTimeArray read;
  read.AddProcessingTime(3, 1);  // reading appends
  ASSERT_TRUE(Deserialize(read, frame));
  ASSERT_EQ(read.GetCount(), 2);
  EXPECT_EQ(read.m_uiAcquisition_Part_Number_Ref, 5u);
  EXPECT_EQ(read.GetAt(1)->m_uiDuractionMicroSec, 2u);
  EXPECT_EQ(read.m_oUserData.GetCount(), 1);
}

// A damaged item (its string claims a wrong identifier) is left out, the
// next one is still read, and the array reports the loss.
TEST(ProcessingTimeArrayTest, BadItemIsSkippedAndReadFails) {
  const Bytes good = Hex("24000000 0028D0FE 06000000 0000000000000000 00000000 04000000 0001CBFE"
                         "FFFFFFFF FFFFFFFF");
  Bytes bad = good;
  bad[31] = 0x00;  // string identifier 0xFECB0100 -> 0x00CB0100
  const Bytes frame = Frame(0xFED02700, Concat(Concat(Hex("02000000 03000000"), bad), good));

  OType_ProcessingTimeArray array;
  OByteStream_Memory stream = StreamOf(frame);
  EXPECT_FALSE(array.GetObjectData(stream, true));
  ASSERT_EQ(array.GetCount(), 1);
  EXPECT_EQ(array.GetAt(0)->m_iProcessingTime_Type, 6);
  EXPECT_EQ(stream.GetRemaining(), 0u);

  // A count beyond the items present ends at a place where no frame opens.
  OType_ProcessingTimeArray truncated;
  const Bytes cut = Concat(Hex("34000000 0027D0FE 02000000 09000000"), good);
  EXPECT_FALSE(Deserialize(truncated, cut));
  EXPECT_EQ(truncated.GetCount(), 1);
}

TEST(ProcessingTimeArrayTest, CopyToCopiesItemsNotShares) {
  OType_ProcessingTimeArray array;
  array.m_uiAcquisition_Part_Number_Ref = 8;
  array.AddProcessingTime(2, 10);
  array.Add(nullptr);
  OType_ProcessingTimeArray copy;
  copy.AddProcessingTime(1, 1);
  array.CopyTo(&copy);
  ASSERT_EQ(copy.GetCount(), 2);
  EXPECT_NE(copy.GetAt(0), array.GetAt(0));
  EXPECT_EQ(copy.GetAt(0)->m_uiDuractionMicroSec, 10u);
  EXPECT_EQ(copy.m_uiAcquisition_Part_Number_Ref, 8u);
  EXPECT_EQ(Serialize(copy), Serialize(array));
}

TEST(ProcessTimerTest, CounterConversionDoesNotOverflow) {
  EXPECT_EQ(process_timer::CounterToNanoseconds(3'579'545, 3'579'545), 1'000'000'000);
  // Ten years of a 10 MHz counter: counter · 1e9 alone would overflow.
  const std::int64_t ten_years = 10LL * 365 * 86400 * 10'000'000 + 5;
  EXPECT_EQ(process_timer::CounterToNanoseconds(ten_years, 10'000'000), 10LL * 365 * 86400 * 1'000'000'000 + 500);
  EXPECT_EQ(process_timer::CounterToNanoseconds(5, 0), 0);
}

TEST(ProcessTimerTest, ExpiryAndRemainingDuration) {
  process_timer::Timer fresh;
  EXPECT_TRUE(fresh.HasTimerExpired());

  process_timer::Timer zero;
  EXPECT_TRUE(zero.SetMaxDuration(0));
  EXPECT_TRUE(zero.StartTimer());
  EXPECT_EQ(zero.RemainingDuration(), 0);
  EXPECT_TRUE(zero.HasTimerExpired());

  process_timer::Timer long_wait;
  long_wait.SetMaxDuration(60'000);
  EXPECT_TRUE(long_wait.HasTimerExpired());  // not started yet
  long_wait.StartTimer();
  EXPECT_GT(long_wait.RemainingDuration(), 59'000);
  EXPECT_FALSE(long_wait.HasTimerExpired());
  EXPECT_LT(long_wait.GetDurationSinceStart_us(), 1'000'000u);
  const process_timer::Timer copy = long_wait;
  EXPECT_FALSE(process_timer::Timer(copy).HasTimerExpired());

  // HasTimerExpired asks RemainingDuration through the virtual call.
  struct NeverExpires : process_timer::Timer {
    int RemainingDuration() override { return 1; }
  } never;
  EXPECT_FALSE(never.HasTimerExpired());
}

}  // namespace
}  // namespace nk::testing
