#include "nkfoundation/device/device_diagnostic.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

// 4096 bytes free, loads 10/20/30/40, category 0x8001, message 2, "Hello".
const Bytes kFrame = Hex("22000000 0039D0FE 00100000 0A141E28 0180 0200"
                         "0E000000 0001CBFE 4800 6500 6C00 6C00 6F00");

OType_DeviceDiagnostic MakeDiagnostic() {
  OType_DeviceDiagnostic diagnostic(0x8001, 2, u"Hello");
  diagnostic.m_uiSystemDiagnosticData_FreeMemory = 4096;
  diagnostic.m_ucSystemDiagnosticData_CPULoad_1 = 10;
  diagnostic.m_ucSystemDiagnosticData_CPULoad_2 = 20;
  diagnostic.m_ucSystemDiagnosticData_CPULoad_3 = 30;
  diagnostic.m_ucSystemDiagnosticData_CPULoad_4 = 40;
  return diagnostic;
}

TEST(DeviceDiagnosticTest, FrameIsExact) {
  EXPECT_EQ(MakeDiagnostic().GetObjectSize(), 38u);
  EXPECT_EQ(Serialize(MakeDiagnostic()), kFrame);
  EXPECT_EQ(Serialize(OType_DeviceDiagnostic(3, 4)),
            Hex("18000000 0039D0FE 00000000 00000000 0300 0400 04000000 0001CBFE"));

  OType_DeviceDiagnostic read;
  ASSERT_TRUE(Deserialize(read, kFrame));
  EXPECT_EQ(read.m_usiDiagnosticCategoryID, 0x8001);  // unsigned in memory
  EXPECT_EQ(Serialize(read), kFrame);

  const std::unique_ptr<OType_DeviceDiagnostic> copy(read.opCreateCopy());
  EXPECT_EQ(Serialize(*copy), kFrame);
}

TEST(DeviceDiagnosticTest, ShortAndDamagedFrames) {
  // Under the 12 bytes of numbers nothing is read: the object keeps its
  // values, or defaults when initializing, and the bytes become the tail.
  const Bytes older = Hex("0C000000 0039D0FE 01020304 05060708");
  for (bool initialize : {false, true}) {
    OType_DeviceDiagnostic read = MakeDiagnostic();
    auto stream = StreamOf(older);
    ASSERT_TRUE(read.GetObjectData(stream, initialize));
    EXPECT_EQ(read.m_oUserData.GetCount(), 8);
    EXPECT_EQ(read.m_oDiagnosticData_Text, initialize ? u"" : u"Hello");
    EXPECT_EQ(read.m_uiSystemDiagnosticData_FreeMemory, initialize ? 0u : 4096u);
  }

  // The numbers without the text that must follow them fail the read.
  const Bytes no_text(kFrame.begin(), kFrame.begin() + 20);
  Bytes truncated = no_text;
  truncated[0] = 16;
  OType_DeviceDiagnostic read;
  auto stream = StreamOf(truncated);
  EXPECT_FALSE(read.GetObjectData(stream, true));
  EXPECT_EQ(stream.GetPosition(), truncated.size());

  // A text that claims more than its frame holds ends the read at the frame.
  Bytes overrun = Concat(kFrame, Hex("0000"));
  overrun[0] = 0x20;
  overrun[20] = 0x10;
  auto overrun_stream = StreamOf(overrun);
  EXPECT_TRUE(read.GetObjectData(overrun_stream, true));
  EXPECT_EQ(overrun_stream.GetPosition(), 0x24u);
}

TEST(DeviceDiagnosticTest, ArrayAppendsAndCopiesDeeply) {
  OType_DeviceDiagnosticArray array;
  array.Add(std::make_shared<OType_DeviceDiagnostic>(MakeDiagnostic()));
  const Bytes frame = Serialize(array);
  EXPECT_EQ(frame, Concat(Hex("2E000000 0038D0FE 01000000"), kFrame));

  ASSERT_TRUE(Deserialize(array, frame));
  ASSERT_EQ(array.GetCount(), 2);
  EXPECT_EQ(array.At(1)->m_oDiagnosticData_Text, u"Hello");

  const std::unique_ptr<OType_DeviceDiagnosticArray> copy(array.opCreateCopy());
  ASSERT_EQ(copy->GetCount(), 2);
  EXPECT_NE(copy->At(0), array.At(0));
  EXPECT_EQ(Serialize(*copy), Serialize(array));
}

}  // namespace
}  // namespace nk::testing
