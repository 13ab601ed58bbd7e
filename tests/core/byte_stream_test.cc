#include "nkfoundation/core/byte_stream.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/support/bytes.h"
#include "tests/support/framed_test_objects.h"

namespace nk::testing {
namespace {

// Writes `value` alone, compares the bytes with `hex` and reads it back.
template <class Value, class Added, class Got>
void ExpectValue(void (OByteStream::*add)(Added), Got (OByteStream::*get)(), Value value,
                 std::string_view hex) {
  OByteStream_Memory stream;
  (stream.*add)(value);
  EXPECT_EQ(BytesOf(stream), Hex(hex)) << hex;
  EXPECT_EQ((stream.*get)(), value) << hex;
}

TEST(ByteStreamTest, ValuesAreLittleEndianAndStringsAreNestedObjects) {
  using S = OByteStream;
  ExpectValue(&S::AddBool, &S::GetBool, true, "01");
  ExpectValue(&S::AddUInt16, &S::GetUInt16, 0x1234, "3412");
  ExpectValue(&S::AddInt16, &S::GetInt16, -2, "FEFF");
  ExpectValue(&S::AddInt32, &S::GetInt32, -2, "FEFFFFFF");
  ExpectValue(&S::AddUInt32, &S::GetUInt32, 0x01020304u, "04030201");
  ExpectValue(&S::AddInt64, &S::GetInt64, -3, "FDFFFFFFFFFFFFFF");
  ExpectValue(&S::AddUInt64, &S::GetUInt64, 0x0102030405060708u, "0807060504030201");
  ExpectValue(&S::AddDouble, &S::GetDouble, 1.0, "000000000000F03F");
  ExpectValue(&S::AddString, &S::GetString, std::u16string(u"ab"), "08000000 0001CBFE 6100 6200");
  ExpectValue(&S::AddString, &S::GetString, std::u16string(), "04000000 0001CBFE");
}

TEST(ByteStreamTest, BeginGetObjectAcceptsAFrameHeaderOfTheExpectedClass) {
  std::uint64_t payload = 0, end = 0;
  // Cut short, another class, length below 4.
  for (const char* refused : {"08000000 00F1D0", "04000000 00F2D0FE", "03000000 00F1D0FE 00"}) {
    auto stream = StreamOf(Hex(refused));
    EXPECT_FALSE(stream.BeginGetObject(kPointId, payload, end)) << refused;
    EXPECT_EQ(stream.GetPosition(), 0u) << refused;
  }
  auto stream = StreamOf(Hex("08000000 00F1D0FE 01020304 FF"));
  ASSERT_TRUE(stream.BeginGetObject(kPointId, payload, end));
  EXPECT_EQ(payload, 4u);
  EXPECT_EQ(end, 12u);

  // A frame that announces more than the stream holds ends with the stream.
  auto longer = StreamOf(Hex("0A000000 00F1D0FE 010203"));
  ASSERT_TRUE(longer.BeginGetObject(kPointId, payload, end));
  EXPECT_EQ(payload, 3u);
  EXPECT_EQ(end, 11u);
}

TEST(ByteStreamTest, AFrameRunningPastTheStreamKeepsWhatIsThereAsTail) {
  // A point of 24 announced bytes with 17 present reads as an older layout.
  TestPoint point;
  point.m_llX = 5;
  auto stream = StreamOf(Hex("1C000000 00F1D0FE 0100000000000000 020000000000000000"));
  ASSERT_TRUE(point.GetObjectData(stream, true));
  EXPECT_EQ(point.m_llX, 5);
  EXPECT_EQ(point.m_oUserData.GetCount(), 17);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

// A read that does not fit consumes nothing; plain values then read as zero.
TEST(ByteStreamTest, ReadsRefuseCountsBeyondWhatRemains) {
  std::u16string text = u"old";
  auto cut = StreamOf(Hex("0A000000 0001CBFE 6100 6200"));
  EXPECT_FALSE(cut.GetString(text));
  EXPECT_EQ(text, u"");
  EXPECT_EQ(cut.GetPosition(), 0u);

  auto stream = StreamOf(Hex("01020304"));
  WritableCollection<std::uint8_t> bytes(Bytes{9});
  EXPECT_FALSE(stream.GetByteArray(bytes, 5));
  EXPECT_TRUE(stream.IsFailed());
  EXPECT_EQ(bytes.GetCount(), 1);
  EXPECT_EQ(stream.GetUInt64(), 0u);
  EXPECT_FALSE(stream.SetPosition(5));
  ASSERT_TRUE(stream.GetByteArray(bytes, 4));
  EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), Hex("01020304"));
}

}  // namespace
}  // namespace nk::testing
