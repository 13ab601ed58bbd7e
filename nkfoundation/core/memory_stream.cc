#include "nkfoundation/core/memory_stream.h"

#include <algorithm>
#include <cstring>
#include <vector>

OByteStream_Memory::OByteStream_Memory(const WritableCollection<std::uint8_t>& bytes)
    : buffer_(bytes) {}

OByteStream_Memory::OByteStream_Memory(const void* data, std::uint64_t count) {
  AddBytes(data, count);
}

void OByteStream_Memory::BeginAddObject(std::uint64_t total_size) {
  std::vector<std::uint8_t>& bytes = buffer_;
  const std::uint64_t needed = bytes.size() + total_size;
  if (needed <= bytes.capacity() || needed > bytes.max_size()) return;
  // Grow geometrically: every nested object announces itself too, and an
  // exact reservation for each would copy the buffer once per object.
  bytes.reserve(static_cast<std::size_t>(std::max<std::uint64_t>(needed, 2 * bytes.capacity())));
}

void OByteStream_Memory::AddBytes(const void* data, std::uint64_t count) {
  if (count == 0) return;
  std::vector<std::uint8_t>& bytes = buffer_;
  const auto* first = static_cast<const std::uint8_t*>(data);
  bytes.insert(bytes.end(), first, first + count);
}

bool OByteStream_Memory::GetBytes(void* out, std::uint64_t count) {
  if (count > GetRemaining()) {
    std::memset(out, 0, static_cast<std::size_t>(count));
    SetFailed();
    return false;
  }
  if (count > 0) std::memcpy(out, buffer_.GetData() + read_position_, static_cast<std::size_t>(count));
  read_position_ += count;
  return true;
}

bool OByteStream_Memory::GetByteArray(WritableCollection<std::uint8_t>& bytes,
                                      std::uint64_t count) {
  if (count > GetRemaining()) {
    SetFailed();
    return false;
  }
  // Copies straight from the buffer: no zero-filling pass before the copy.
  const std::uint8_t* first = buffer_.GetData() + read_position_;
  std::vector<std::uint8_t>& target = bytes;
  target.assign(first, first + count);
  read_position_ += count;
  return true;
}

bool OByteStream_Memory::SetPosition(std::uint64_t position) {
  if (position > GetLength()) return false;
  read_position_ = position;
  return true;
}

std::uint64_t OByteStream_Memory::GetLength() const {
  return static_cast<std::uint64_t>(buffer_.GetCount());
}

void OByteStream_Memory::RemoveAll() {
  buffer_.RemoveAll();
  read_position_ = 0;
}
