#include "nkfoundation/core/application_serialization_data.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

// Identifier 7, the text "ab", three bytes of data with their count.
const Bytes kFrame = Hex("1B000000 0032D0FE 07000000 08000000 0001CBFE 6100 6200 03000000 010203");
const Bytes kEmptyFrame = Hex("14000000 0032D0FE 00000000 04000000 0001CBFE 00000000");

OType_ApplicationSerializationData MakeData() {
  OType_ApplicationSerializationData data;
  data.m_iApplicationID = 7;
  data.m_oApplication_Info = u"ab";
  for (std::uint8_t byte : {1, 2, 3}) data.m_oApplication_Data.Add(byte);
  return data;
}

TEST(ApplicationSerializationDataTest, DataTravelsAsCountAndBytes) {
  EXPECT_EQ(MakeData().GetObjectSize(), kFrame.size());
  EXPECT_EQ(Serialize(MakeData()), kFrame);
  EXPECT_EQ(Serialize(OType_ApplicationSerializationData()), kEmptyFrame);
  OType_ApplicationSerializationData read;
  ASSERT_TRUE(Deserialize(read, kFrame));
  EXPECT_EQ(Serialize(read), kFrame);
}

TEST(ApplicationSerializationDataTest, OlderAndDamagedFrames) {
  // A short payload resets the fields only when initializing.
  const Bytes older = Hex("0C000000 0032D0FE 09000000 04000000");
  for (bool initialize : {false, true}) {
    OType_ApplicationSerializationData data = MakeData();
    ASSERT_TRUE(Deserialize(data, older, initialize));
    EXPECT_EQ(data.m_oUserData.GetCount(), 8);
    data.m_oUserData.RemoveAll();
    EXPECT_EQ(Serialize(data), initialize ? kEmptyFrame : kFrame);
  }

  // A byte count beyond the stream fails the read, which still ends at the frame.
  const Bytes damaged = Hex("14000000 0032D0FE 07000000 04000000 0001CBFE FF000000");
  auto stream = StreamOf(damaged);
  EXPECT_FALSE(OType_ApplicationSerializationData().GetObjectData(stream, true));
  EXPECT_EQ(stream.GetPosition(), damaged.size());
}

}  // namespace
}  // namespace nk::testing
