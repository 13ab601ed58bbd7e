#include "nkfoundation/device/device_info.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>

#include "nkfoundation/core/file_stream.h"
#include "nkfoundation/core/memory_stream.h"
#include "tests/support/bytes.h"
#include "tests/support/temp_dir.h"

namespace nk::testing {
namespace {

constexpr std::size_t kRetired = 988;  // block offset of the retired tool byte
constexpr std::size_t kWire = 8;       // block offset + kWire = wire offset

Bytes Block(OType_DeviceInfo& info) {
  const std::uint8_t* block = info.bpGetDeviceInfoDataPtr();
  return Bytes(block, block + 1228);
}

TEST(DeviceInfoTest, DefaultRecordFrameIsExact) {
  OType_DeviceInfo info;
  const Bytes frame = Serialize(info);
  ASSERT_EQ(frame.size(), 1236u);
  EXPECT_EQ(Bytes(frame.begin(), frame.begin() + 8), Hex("D0040000 0026D0FE"));
  // The defaults, little-endian at their wire offsets; everything else 0.
  Bytes expected(1228, 0);
  for (auto [offset, value] : {std::pair{692, 0xFFFF}, {694, 8}, {696, 255}, {698, 16}, {710, 49}}) {
    expected[offset] = value & 0xFF;
    expected[offset + 1] = value >> 8;
  }
  EXPECT_EQ(Bytes(frame.begin() + kWire, frame.end()), expected);
  EXPECT_EQ(info.GetObjectSize(), 1236u);
}

TEST(DeviceInfoTest, RoundTripsEveryByteExceptTheRetiredOne) {
  OType_DeviceInfo info;
  std::uint8_t* block = info.bpGetDeviceInfoDataPtr();
  for (std::size_t i = 0; i < 1228; ++i) block[i] = static_cast<std::uint8_t>(i * 7 + 1);
  info.m_FirmwareVersion_0 = 0x0102;
  info.m_qtvVersionRecommended = 0x0807060504030201;

  Bytes frame = Serialize(info);
  EXPECT_EQ(frame[kWire + kRetired], 0);  // written as 0 whatever it holds
  EXPECT_EQ(frame[kWire + 8], 0x02);      // little-endian on the wire
  EXPECT_EQ(frame[kWire + 1068], 0x01);

  OType_DeviceInfo read;
  read.compatibilityEmpty_m_ToolVersion_PMatch = 7;
  auto stream = StreamOf(frame);
  ASSERT_TRUE(read.GetObjectData(stream, true));
  EXPECT_EQ(read.compatibilityEmpty_m_ToolVersion_PMatch, 7);  // skipped on reading
  read.compatibilityEmpty_m_ToolVersion_PMatch = info.compatibilityEmpty_m_ToolVersion_PMatch;
  EXPECT_EQ(Block(read), Block(info));
  EXPECT_EQ(stream.GetPosition(), frame.size());
}

TEST(DeviceInfoTest, InitializeKeepsTwoVersionBytesAndTheTail) {
  OType_DeviceInfo info;
  info.compatibilityEmpty_m_ToolVersion_PMatch = 5;
  info.m_ToolVersion_PMatch_V2 = 6;
  info.m_ToolVersion_OCV = 9;
  info.m_MaxNumJobs = 3;
  info.m_oUserData.Add(1);
  info.InitializeMembers(false);
  EXPECT_EQ(info.compatibilityEmpty_m_ToolVersion_PMatch, 5);
  EXPECT_EQ(info.m_ToolVersion_PMatch_V2, 6);
  EXPECT_EQ(info.m_ToolVersion_OCV, 0);
  EXPECT_EQ(info.m_MaxNumJobs, 255);
  EXPECT_EQ(info.m_oUserData.GetCount(), 1);
}

TEST(DeviceInfoTest, TailShortFramesAndForeignFrames) {
  OType_DeviceInfo info;
  info.m_MaxNumCameras = 4;
  const Bytes frame = Serialize(info);

  // A newer record with 10 bytes behind the block keeps them.
  Bytes newer = Concat(frame, Hex("00112233445566778899"));
  newer[0] += 10;
  OType_DeviceInfo read;
  ASSERT_TRUE(Deserialize(read, newer));
  EXPECT_EQ(read.m_MaxNumCameras, 4);
  EXPECT_EQ(read.m_oUserData.GetCount(), 10);
  EXPECT_EQ(read.GetObjectSize(), 1246u);
  EXPECT_EQ(Serialize(read), newer);

  // Under the 12-byte gate nothing is read: the payload becomes the tail.
  OType_DeviceInfo older;
  ASSERT_TRUE(Deserialize(older, Hex("0F000000 0026D0FE 0102030405060708 090A0B")));
  EXPECT_EQ(older.m_MACAddress_EUI_64BitExtension[0], 0);
  EXPECT_EQ(older.m_oUserData.GetCount(), 11);

  // Past the gate the block is read on into what follows the frame, as far
  // as the stream goes, and the reader is put back at the frame's end.
  Bytes short_frame = Hex("10000000 0026D0FE 0A0B0C0D0E0F1011 1213 1415");
  short_frame.push_back(0x77);
  auto short_stream = StreamOf(short_frame);
  OType_DeviceInfo partial;
  EXPECT_TRUE(partial.GetObjectData(short_stream, true));
  EXPECT_EQ(partial.m_MACAddress[0], 0x0C);
  EXPECT_EQ(partial.m_FirmwareVersion_1, 0x1514);
  EXPECT_EQ(partial.m_FirmwareVersion_2, 0);  // one byte left: a u16 reads 0
  EXPECT_EQ(partial.m_ProductionCode[0], 0x77);  // ...which a u8 still takes
  EXPECT_EQ(partial.m_MaxNumJobs, 0);
  EXPECT_EQ(short_stream.GetPosition(), 20u);
  EXPECT_TRUE(partial.m_oUserData.GetCount() == 0);

  // Not a record frame: false, record untouched.
  Bytes foreign = frame;
  foreign[4] = 0x01;
  EXPECT_FALSE(Deserialize(read, foreign));
  EXPECT_EQ(read.m_MaxNumCameras, 4);
}

TEST(DeviceInfoTest, CopiesAndRawAccess) {
  OType_DeviceInfo info;
  info.compatibilityEmpty_m_ToolVersion_PMatch = 3;
  info.filler[151] = 0xAB;
  info.m_oUserData.Add(0x42);
  std::unique_ptr<OType_DeviceInfo> copy(info.opCreateCopy());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(Block(*copy), Block(info));
  EXPECT_EQ(copy->m_oUserData.GetCount(), 1);

  EXPECT_EQ(info.GetDeviceInfoDataSize(), 1256u);
  EXPECT_EQ(info.bpGetDeviceInfoDataPtr(8), reinterpret_cast<std::uint8_t*>(&info.m_FirmwareVersion_0));
  EXPECT_NE(info.bpGetDeviceInfoDataPtr(1256), nullptr);
  *info.bpGetDeviceInfoDataPtr(1256) = 1;  // inside the record's own memory
  EXPECT_EQ(info.bpGetDeviceInfoDataPtr(1257), nullptr);
}

TEST(DeviceInfoTest, TextsAndAddresses) {
  OType_DeviceInfo info;
  std::memcpy(info.m_ProductionCode, "PC-\xC3\xA4", 6);
  EXPECT_EQ(info.GetProductionCode(), u"PC-\u00E4");
  // Not UTF-8: byte by byte, "?" above 127.
  std::memcpy(info.m_DeviceInfoText, "ab\xE4x", 5);
  EXPECT_EQ(info.GetDeviceInfoText(), u"ab?x");
  // A field without NUL runs on into the next one...
  std::memset(info.m_DeviceInfoText, 'i', sizeof(info.m_DeviceInfoText));
  std::memcpy(info.m_DeviceCommentText, "c", 2);
  EXPECT_EQ(info.GetDeviceInfoText(), std::u16string(128, u'i') + u"c");
  // ...but never beyond the block.
  std::memset(info.m_DeviceCommentText, 'c', sizeof(info.m_DeviceCommentText));
  std::memset(info.bpGetDeviceInfoDataPtr(686), 'x', 1228 - 686);
  info.m_BehindBlock[0] = 'z';
  EXPECT_EQ(info.GetDeviceCommentText().size(), 1228u - 318);

  const std::uint8_t mac[] = {0x0A, 0x0B, 0x0C, 0x0D, 0x0E, 0x0F};
  std::memcpy(info.m_MACAddress, mac, 6);
  EXPECT_EQ(info.GetMacAddress(), u"0A:0B:0C:0D:0E:0F");

  char config[] = "MAC123456";
  EXPECT_TRUE(info.SetConfigMACAddress(config));
  EXPECT_EQ(info.GetMacOfEth0(), u"MAC123");  // characters, limited to 6
}

TEST(DeviceInfoArrayTest, FramesAndDamagedElement) {
  OType_DeviceInfoArray array;
  for (int jobs : {1, 2, 3}) {
    auto info = std::make_shared<OType_DeviceInfo>();
    info->m_MaxNumJobs = jobs;
    array.Add(info);
  }
  const Bytes frame = Serialize(array);
  ASSERT_EQ(frame.size(), 12u + 3 * 1236);
  EXPECT_EQ(Bytes(frame.begin(), frame.begin() + 12), Hex("840E0000 0025D0FE 03000000"));
  EXPECT_EQ(array.GetObjectSize(), frame.size());

  // A stream that is not in memory gets the frame assembled apart first:
  // the same bytes.
  TempDir dir;
  OByteStream_File file;
  ASSERT_TRUE(file.Open(dir / "array", nk::File::Mode::kWrite));
  ASSERT_TRUE(array.AddObjectData(file));
  ASSERT_TRUE(file.Close());
  std::ifstream written(dir / "array", std::ios::binary);
  EXPECT_EQ(Bytes(std::istreambuf_iterator<char>(written), {}), frame);

  // The second element's identifier is damaged: one record, the rest of the
  // frame is the tail and goes back out with the array.
  Bytes damaged = frame;
  damaged[12 + 1236 + 5] = 0x27;
  OType_DeviceInfoArray read;
  ASSERT_TRUE(Deserialize(read, damaged));
  ASSERT_EQ(read.GetCount(), 1);
  EXPECT_EQ(read.At(0)->m_MaxNumJobs, 1);
  EXPECT_EQ(read.m_oUserData.GetCount(), 2 * 1236);
  EXPECT_EQ(Serialize(read), [&] {
    Bytes expected = damaged;
    expected[8] = 1;  // the count now says one record
    return expected;
  }());

  OType_DeviceInfoArray copy;
  read.CopyTo(&copy);
  EXPECT_EQ(Serialize(copy), Serialize(read));
  EXPECT_NE(copy.At(0), read.At(0));
}

}  // namespace
}  // namespace nk::testing
