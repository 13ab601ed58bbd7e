#include "nkfoundation/core/byte_stream.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"
#include "tests/support/framed_test_objects.h"

namespace nk::testing {
namespace {

TEST(ByteStreamTest, ValuesAreLittleEndianAndStringsAreNestedObjects) {
  OByteStream_Memory stream;
  stream.AddUInt8(0xAB);
  stream.AddBool(true);
  stream.AddUInt16(0x1234);
  stream.AddInt16(-2);
  stream.AddInt32(-2);
  stream.AddUInt32(0x01020304);
  stream.AddInt64(-3);
  stream.AddUInt64(0x0102030405060708);
  stream.AddDouble(1.0);
  stream.AddString(u"ab");
  stream.AddString(u"");
  EXPECT_EQ(BytesOf(stream), Hex("AB 01 3412 FEFF FEFFFFFF 04030201 FDFFFFFFFFFFFFFF 0807060504030201"
                                 "000000000000F03F 08000000 0001CBFE 6100 6200 04000000 0001CBFE"));
  EXPECT_EQ(stream.GetUInt8(), 0xAB);
  EXPECT_TRUE(stream.GetBool());
  EXPECT_EQ(stream.GetUInt16(), 0x1234);
  EXPECT_EQ(stream.GetInt16(), -2);
  EXPECT_EQ(stream.GetInt32(), -2);
  EXPECT_EQ(stream.GetUInt32(), 0x01020304u);
  EXPECT_EQ(stream.GetInt64(), -3);
  EXPECT_EQ(stream.GetUInt64(), 0x0102030405060708u);
  EXPECT_EQ(stream.GetDouble(), 1.0);
  EXPECT_EQ(stream.GetString(), u"ab");
  EXPECT_EQ(stream.GetString(), u"");
  EXPECT_EQ(stream.GetRemaining(), 0u);
  EXPECT_FALSE(stream.IsFailed());
}

TEST(ByteStreamTest, BeginGetObjectAcceptsOnlyAWholeFrameOfTheExpectedClass) {
  std::uint64_t payload = 0, end = 0;
  // Cut short, another class, length below 4, longer than the stream.
  for (const char* refused : {"08000000 00F1D0", "04000000 00F2D0FE", "03000000 00F1D0FE 00",
                              "08000000 00F1D0FE 000000"}) {
    auto stream = StreamOf(Hex(refused));
    EXPECT_FALSE(stream.BeginGetObject(kPointId, payload, end)) << refused;
    EXPECT_EQ(stream.GetPosition(), 0u) << refused;
  }
  auto stream = StreamOf(Hex("08000000 00F1D0FE 01020304 FF"));
  ASSERT_TRUE(stream.BeginGetObject(kPointId, payload, end));
  EXPECT_EQ(payload, 4u);
  EXPECT_EQ(end, 12u);
  EXPECT_EQ(stream.GetPosition(), 8u);
}

// A read that does not fit consumes nothing; plain values then read as zero.
TEST(ByteStreamTest, ReadsRefuseCountsBeyondWhatRemains) {
  std::u16string text = u"old";
  EXPECT_FALSE(StreamOf(Hex("0A000000 0001CBFE 6100 6200")).GetString(text));
  EXPECT_EQ(text, u"");
  EXPECT_FALSE(StreamOf(Hex("04000000 00F1D0FE")).GetString(text));

  auto stream = StreamOf(Hex("01020304"));
  WritableCollection<std::uint8_t> bytes(Bytes{9});
  EXPECT_FALSE(stream.GetByteArray(bytes, 5));
  EXPECT_EQ(bytes.GetCount(), 1);
  EXPECT_EQ(stream.GetUInt64(), 0u);
  EXPECT_FALSE(stream.SetPosition(5));
  EXPECT_TRUE(stream.IsFailed());
  ASSERT_TRUE(stream.GetByteArray(bytes, 4));
  EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), Hex("01020304"));
}

}  // namespace
}  // namespace nk::testing
