#include "nkfoundation/core/byte_stream.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <type_traits>

#include "nkfoundation/core/progress_ctrl.h"

namespace {

// Values travel little-endian; on a big-endian host the bytes are reversed.
template <class T>
T ToLittleEndian(T value) {
  static_assert(std::is_trivially_copyable_v<T>);
  if constexpr (std::endian::native == std::endian::little) {
    return value;
  } else {
    unsigned char bytes[sizeof(T)];
    std::memcpy(bytes, &value, sizeof(T));
    for (std::size_t i = 0; i < sizeof(T) / 2; ++i) std::swap(bytes[i], bytes[sizeof(T) - 1 - i]);
    std::memcpy(&value, bytes, sizeof(T));
    return value;
  }
}

}  // namespace

void OByteStream::BeginAddObject(std::uint64_t /*total_size*/) {}

template <class T>
void OByteStream::AddLittleEndian(T value) {
  const T wire = ToLittleEndian(value);
  AddBytes(&wire, sizeof(T));
}

template <class T>
bool OByteStream::GetLittleEndian(T& value) {
  T wire;
  if (!GetBytes(&wire, sizeof(T))) {
    value = T{};
    return false;
  }
  value = ToLittleEndian(wire);
  return true;
}

void OByteStream::AddUInt8(std::uint8_t value) { AddLittleEndian(value); }
void OByteStream::AddBool(bool value) { AddUInt8(value ? 1 : 0); }
void OByteStream::AddUInt16(std::uint16_t value) { AddLittleEndian(value); }
void OByteStream::AddInt16(std::int16_t value) { AddLittleEndian(value); }
void OByteStream::AddUInt32(std::uint32_t value) { AddLittleEndian(value); }
void OByteStream::AddInt32(std::int32_t value) { AddLittleEndian(value); }
void OByteStream::AddUInt64(std::uint64_t value) { AddLittleEndian(value); }
void OByteStream::AddInt64(std::int64_t value) { AddLittleEndian(value); }
void OByteStream::AddFloat(float value) { AddLittleEndian(std::bit_cast<std::uint32_t>(value)); }
void OByteStream::AddDouble(double value) { AddLittleEndian(std::bit_cast<std::uint64_t>(value)); }

void OByteStream::AddString(const std::u16string& text) {
  const std::uint64_t units = text.size();
  BeginAddObject(kFrameHeaderSize + 2 * units);
  AddUInt32(static_cast<std::uint32_t>(4 + 2 * units));
  AddUInt32(kStringObjectId);
  if constexpr (std::endian::native == std::endian::little) {
    AddBytes(text.data(), 2 * units);
  } else {
    for (char16_t unit : text) AddUInt16(unit);
  }
}

void OByteStream::AddByteArray(const WritableCollection<std::uint8_t>& bytes) {
  if (bytes.GetCount() > 0) AddBytes(bytes.GetData(), static_cast<std::uint64_t>(bytes.GetCount()));
}

bool OByteStream::GetFrameHeader(std::uint32_t expected_id, std::uint64_t& announced_payload) {
  const std::uint64_t start = GetPosition();
  if (GetRemaining() < kFrameHeaderSize) return false;
  std::uint32_t length = 0;
  std::uint32_t id = 0;
  GetUInt32(length);
  GetUInt32(id);
  // The length counts the identifier, so anything below 4 is not a frame.
  if (id != expected_id || length < 4) {
    SetPosition(start);
    return false;
  }
  announced_payload = length - 4;
  return true;
}

bool OByteStream::BeginGetObject(std::uint32_t expected_id, std::uint64_t& payload,
                                 std::uint64_t& end) {
  std::uint64_t announced = 0;
  if (!GetFrameHeader(expected_id, announced)) return false;
  // Serialization settings announce six bytes more than they write, so one
  // written last in its stream claims bytes that do not exist. The frame is
  // read as far as the stream goes; what the fields leave becomes the tail.
  payload = std::min(announced, GetRemaining());
  end = GetPosition() + payload;
  return true;
}

void OByteStream::AbortGetObject(std::uint64_t end) { SetPosition(end); }

bool OByteStream::GetByteArray(WritableCollection<std::uint8_t>& bytes, std::uint64_t count) {
  if (count > GetRemaining() || count > static_cast<std::uint64_t>(INT32_MAX)) {
    SetFailed();
    return false;
  }
  std::vector<std::uint8_t>& buffer = bytes;
  buffer.resize(static_cast<std::size_t>(count));
  return GetBytes(buffer.data(), count);
}

bool OByteStream::GetString(std::u16string& text) {
  text.clear();
  const std::uint64_t start = GetPosition();
  std::uint64_t payload = 0;
  if (!GetFrameHeader(kStringObjectId, payload)) return false;
  if (payload > GetRemaining()) {
    SetPosition(start);
    return false;
  }
  const std::uint64_t end = GetPosition() + payload;
  // An odd payload cannot come from a writer of this format; its last byte
  // is skipped so that the reader still lands on the frame's end.
  text.resize(static_cast<std::size_t>(payload / 2));
  for (char16_t& unit : text) GetLittleEndian(unit);
  return SetPosition(end);
}

bool OByteStream::GetUInt8(std::uint8_t& value) { return GetLittleEndian(value); }
bool OByteStream::GetUInt16(std::uint16_t& value) { return GetLittleEndian(value); }
bool OByteStream::GetInt16(std::int16_t& value) { return GetLittleEndian(value); }
bool OByteStream::GetUInt32(std::uint32_t& value) { return GetLittleEndian(value); }
bool OByteStream::GetInt32(std::int32_t& value) { return GetLittleEndian(value); }
bool OByteStream::GetUInt64(std::uint64_t& value) { return GetLittleEndian(value); }
bool OByteStream::GetInt64(std::int64_t& value) { return GetLittleEndian(value); }

bool OByteStream::GetBool(bool& value) {
  std::uint8_t byte = 0;
  const bool ok = GetUInt8(byte);
  value = byte != 0;
  return ok;
}

bool OByteStream::GetFloat(float& value) {
  std::uint32_t bits = 0;
  const bool ok = GetLittleEndian(bits);
  value = std::bit_cast<float>(bits);
  return ok;
}

bool OByteStream::GetDouble(double& value) {
  std::uint64_t bits = 0;
  const bool ok = GetLittleEndian(bits);
  value = std::bit_cast<double>(bits);
  return ok;
}

namespace {

template <class T>
T ReadValue(OByteStream& stream, bool (OByteStream::*get)(T&)) {
  T value{};
  (stream.*get)(value);
  return value;
}

}  // namespace

std::uint8_t OByteStream::GetUInt8() { return ReadValue(*this, &OByteStream::GetUInt8); }
bool OByteStream::GetBool() { return ReadValue(*this, &OByteStream::GetBool); }
std::uint16_t OByteStream::GetUInt16() { return ReadValue(*this, &OByteStream::GetUInt16); }
std::int16_t OByteStream::GetInt16() { return ReadValue(*this, &OByteStream::GetInt16); }
std::uint32_t OByteStream::GetUInt32() { return ReadValue(*this, &OByteStream::GetUInt32); }
std::int32_t OByteStream::GetInt32() { return ReadValue(*this, &OByteStream::GetInt32); }
std::uint64_t OByteStream::GetUInt64() { return ReadValue(*this, &OByteStream::GetUInt64); }
std::int64_t OByteStream::GetInt64() { return ReadValue(*this, &OByteStream::GetInt64); }
float OByteStream::GetFloat() { return ReadValue(*this, &OByteStream::GetFloat); }
double OByteStream::GetDouble() { return ReadValue(*this, &OByteStream::GetDouble); }
std::u16string OByteStream::GetString() { return ReadValue(*this, &OByteStream::GetString); }

std::uint64_t OByteStream::GetRemaining() const {
  const std::uint64_t position = GetPosition();
  const std::uint64_t length = GetLength();
  return position < length ? length - position : 0;
}

void OByteStream::UpdateProgressCtrl() {
  if (progress_ != nullptr) progress_->Increase();
}
