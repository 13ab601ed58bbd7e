#include "nkfoundation/device/device_info.h"

#include <bit>
#include <cstdio>
#include <cstring>
#include <new>
#include <string_view>

#include <utf8.h>

#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/device/device_info_fields.h"

namespace {

using nk::DeviceFieldKind;
using nk::DeviceInfoField;
using nk::kDeviceInfoBlockSize;

// The retired tool byte: always written as 0 and never taken from a stream.
constexpr std::uint32_t kRetiredByteOffset = offsetof(nk::DeviceInfoData, compatibilityEmpty_m_ToolVersion_PMatch);
// Below this payload (count of bytes after the identifier) no field is read.
constexpr std::uint64_t kMinPayload = 12;
constexpr std::uint64_t kFrameSize = OByteStream::kFrameHeaderSize + kDeviceInfoBlockSize;

// On a little-endian host the block in memory already is its wire form, so
// it is copied whole; elsewhere every field is encoded through the table.
constexpr bool kBlockIsWireForm = std::endian::native == std::endian::little;

template <class T>
T Load(const std::uint8_t* at) {
  T value;
  std::memcpy(&value, at, sizeof(T));
  return value;
}

template <class T>
void Store(std::uint8_t* at, T value) {
  std::memcpy(at, &value, sizeof(T));
}

// Only a big-endian host writes field by field.
[[maybe_unused]] void AddField(OByteStream& stream, const DeviceInfoField& field, const std::uint8_t* at) {
  switch (field.kind) {
    case DeviceFieldKind::kU8:
      stream.AddUInt8(field.offset == kRetiredByteOffset ? 0 : *at);
      break;
    case DeviceFieldKind::kU16: stream.AddUInt16(Load<std::uint16_t>(at)); break;
    case DeviceFieldKind::kI16: stream.AddInt16(Load<std::int16_t>(at)); break;
    case DeviceFieldKind::kU64: stream.AddUInt64(Load<std::uint64_t>(at)); break;
    case DeviceFieldKind::kText:
    case DeviceFieldKind::kByteArray:
      for (std::uint16_t i = 0; i < field.width; ++i) stream.AddUInt8(at[i]);
      break;
    case DeviceFieldKind::kRawBytes: stream.AddBytes(at, field.width); break;
  }
}

// Reads one field the way the stream's typed reads behave when it runs dry:
// a value that does not fit reads as 0 and consumes nothing, so a later,
// narrower field may still take the remaining bytes.
void GetField(OByteStream& stream, const DeviceInfoField& field, std::uint8_t* at) {
  switch (field.kind) {
    case DeviceFieldKind::kU8: {
      const std::uint8_t value = stream.GetUInt8();
      if (field.offset != kRetiredByteOffset) *at = value;
      break;
    }
    case DeviceFieldKind::kU16: Store(at, stream.GetUInt16()); break;
    case DeviceFieldKind::kI16: Store(at, stream.GetInt16()); break;
    case DeviceFieldKind::kU64: Store(at, stream.GetUInt64()); break;
    case DeviceFieldKind::kText:
    case DeviceFieldKind::kByteArray:
      for (std::uint16_t i = 0; i < field.width; ++i) at[i] = stream.GetUInt8();
      break;
    case DeviceFieldKind::kRawBytes: stream.GetBytes(at, field.width); break;
  }
}

// Strict UTF-8 when the bytes are valid; otherwise the bytes one by one,
// with "?" for every byte above 127, so that a damaged field still shows.
std::u16string TextFromBytes(std::string_view bytes) {
  std::u16string text;
  if (utf8::is_valid(bytes.begin(), bytes.end())) {
    utf8::utf8to16(bytes.begin(), bytes.end(), std::back_inserter(text));
    return text;
  }
  text.reserve(bytes.size());
  for (char byte : bytes) {
    const auto unit = static_cast<unsigned char>(byte);
    text.push_back(unit > 127 ? u'?' : static_cast<char16_t>(unit));
  }
  return text;
}

}  // namespace

OType_DeviceInfo::OType_DeviceInfo() : nk::DeviceInfoData{} { InitializeMembers(true); }

void OType_DeviceInfo::InitializeMembers(bool /*bInitialize*/) {
  // Two version bytes survive a reset: readers of older records relied on
  // them keeping whatever an earlier read put there.
  const std::uint8_t retired = compatibilityEmpty_m_ToolVersion_PMatch;
  const std::uint8_t pmatch_v2 = m_ToolVersion_PMatch_V2;
  std::memset(bpGetDeviceInfoDataPtr(), 0, kDeviceInfoBlockSize);
  compatibilityEmpty_m_ToolVersion_PMatch = retired;
  m_ToolVersion_PMatch_V2 = pmatch_v2;

  m_MaxNumFeatures = 0xFFFF;
  m_MaxNumOrientations = 8;
  m_MaxNumJobs = 255;
  m_MaxNumSortTypes = 16;
  m_Language = 49;
}

std::uint64_t OType_DeviceInfo::GetObjectSize() const {
  return kFrameSize + static_cast<std::uint64_t>(m_oUserData.GetCount());
}

bool OType_DeviceInfo::AddObjectData(OByteStream& stream) const {
  const std::uint64_t size = GetObjectSize();
  stream.BeginAddObject(size);
  stream.AddUInt32(static_cast<std::uint32_t>(size - 4));
  stream.AddUInt32(GetObjectID());

  const auto* block = reinterpret_cast<const std::uint8_t*>(static_cast<const nk::DeviceInfoData*>(this));
  if constexpr (kBlockIsWireForm) {
    if (block[kRetiredByteOffset] == 0) {
      stream.AddBytes(block, kDeviceInfoBlockSize);
    } else {
      stream.AddBytes(block, kRetiredByteOffset);
      stream.AddUInt8(0);
      stream.AddBytes(block + kRetiredByteOffset + 1, kDeviceInfoBlockSize - kRetiredByteOffset - 1);
    }
  } else {
    for (const DeviceInfoField& field : nk::kDeviceInfoFields) {
      AddField(stream, field, block + field.offset);
    }
  }

  stream.AddByteArray(m_oUserData);
  stream.UpdateProgressCtrl();
  return true;
}

bool OType_DeviceInfo::GetObjectData(OByteStream& stream, bool bInitialize) {
  std::uint64_t payload = 0;
  std::uint64_t end = 0;
  if (!stream.BeginGetObject(GetObjectID(), payload, end)) return false;
  if (bInitialize) InitializeMembers(true);

  // Past the gate the payload is trusted to hold the whole block; a shorter
  // one reads on into whatever follows and is put right below.
  if (payload >= kMinPayload) {
    std::uint8_t* block = bpGetDeviceInfoDataPtr();
    if (kBlockIsWireForm && stream.GetRemaining() >= kDeviceInfoBlockSize) {
      const std::uint8_t retired = block[kRetiredByteOffset];
      stream.GetBytes(block, kDeviceInfoBlockSize);
      block[kRetiredByteOffset] = retired;
    } else {
      for (const DeviceInfoField& field : nk::kDeviceInfoFields) {
        GetField(stream, field, block + field.offset);
      }
    }
  }
  stream.UpdateProgressCtrl();

  m_oUserData.RemoveAll();
  const std::uint64_t position = stream.GetPosition();
  if (end > position) {
    stream.GetByteArray(m_oUserData, end - position);
    return true;
  }
  if (end < position) return stream.SetPosition(end);
  return true;
}

void OType_DeviceInfo::CopyTo(OType_DeviceInfo* target) const {
  if (target == nullptr || target == this) return;
  std::memcpy(target->bpGetDeviceInfoDataPtr(),
              static_cast<const nk::DeviceInfoData*>(this), kDeviceInfoBlockSize);
  target->m_oUserData = m_oUserData;
}

OType_DeviceInfo* OType_DeviceInfo::opCreateCopy() const {
  auto* copy = new (std::nothrow) OType_DeviceInfo();
  if (copy != nullptr) CopyTo(copy);
  return copy;
}

unsigned char* OType_DeviceInfo::bpGetDeviceInfoDataPtr(unsigned int offset) {
  if (offset > nk::kDeviceInfoDataSize) return nullptr;
  return reinterpret_cast<unsigned char*>(static_cast<nk::DeviceInfoData*>(this)) + offset;
}

namespace {

// The text that starts at `offset` in the block: up to its first NUL, or up
// to `limit` bytes, and never beyond the block.
std::u16string BlockText(const OType_DeviceInfo& info, std::uint32_t offset, std::uint32_t limit) {
  const auto* block = reinterpret_cast<const char*>(static_cast<const nk::DeviceInfoData*>(&info));
  const std::uint32_t available = std::min(limit, kDeviceInfoBlockSize - offset);
  const std::string_view field(block + offset, available);
  return TextFromBytes(field.substr(0, field.find('\0')));
}

constexpr std::uint32_t kToBlockEnd = kDeviceInfoBlockSize;

}  // namespace

std::u16string OType_DeviceInfo::GetProductionCode() const {
  return BlockText(*this, offsetof(nk::DeviceInfoData, m_ProductionCode), kToBlockEnd);
}

std::u16string OType_DeviceInfo::GetDeviceInfoText() const {
  return BlockText(*this, offsetof(nk::DeviceInfoData, m_DeviceInfoText), kToBlockEnd);
}

std::u16string OType_DeviceInfo::GetDeviceCommentText() const {
  return BlockText(*this, offsetof(nk::DeviceInfoData, m_DeviceCommentText), kToBlockEnd);
}

std::u16string OType_DeviceInfo::GetProductType_NOCCode() const {
  return BlockText(*this, offsetof(nk::DeviceInfoData, m_ProductType_NOCCode), kToBlockEnd);
}

std::u16string OType_DeviceInfo::GetMacOfEth0() const {
  return BlockText(*this, offsetof(nk::DeviceInfoData, m_MAC_ETH0_Configuration),
                   sizeof(m_MAC_ETH0_Configuration));
}

std::u16string OType_DeviceInfo::GetMacAddress() const {
  // Each pair with its ":" and, for the last, room for snprintf's NUL.
  constexpr std::size_t kPairs = sizeof(m_MACAddress);
  char text[3 * kPairs + 1] = {};
  for (std::size_t i = 0; i < kPairs; ++i) {
    std::snprintf(text + 3 * i, 4, "%02hhX:", m_MACAddress[i]);
  }
  // The last pair's separator is dropped.
  return std::u16string(text, text + 3 * kPairs - 1);
}

bool OType_DeviceInfo::SetConfigMACAddress(char* mac) {
  std::memcpy(m_MAC_ETH0_Configuration, mac, sizeof(m_MAC_ETH0_Configuration));
  return true;
}

bool OType_DeviceInfoArray::AddObjectData(OByteStream& stream) {
  // The frame is assembled apart and handed over in one piece, so a stream
  // that sends as it is written never carries half an array. A memory stream
  // sends nothing, and the bytes it ends with are the same either way: there
  // the frame goes straight in, without a scratch copy of every record.
  if (dynamic_cast<OByteStream_Memory*>(&stream) != nullptr) return ObjectArray::AddObjectData(stream);
  // The scratch stream advances the caller's progress display as records go in.
  OByteStream_Memory scratch;
  scratch.SetProgressCtrl(stream.GetProgressCtrl());
  ObjectArray::AddObjectData(scratch);
  stream.AddByteArray(scratch);
  scratch.RemoveAll();
  return true;
}

void OType_DeviceInfoArray::CopyTo(OType_DeviceInfoArray* target) const {
  if (target == nullptr || target == this) return;
  target->RemoveAll();
  for (const std::shared_ptr<OType_DeviceInfo>& info : *this) {
    std::shared_ptr<OType_DeviceInfo> copy;
    if (info) {
      copy = std::make_shared<OType_DeviceInfo>();
      info->CopyTo(copy.get());
    }
    target->Add(copy);
  }
  target->m_oUserData = m_oUserData;
}
