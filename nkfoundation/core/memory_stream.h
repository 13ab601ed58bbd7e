// A byte stream held in memory.
#ifndef NKFOUNDATION_CORE_MEMORY_STREAM_H_
#define NKFOUNDATION_CORE_MEMORY_STREAM_H_

#include <cstdint>

#include "nkfoundation/core/byte_stream.h"
#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"

// The stream that objects are assembled in before they travel to the device,
// a file or the managed side. Writes append to the buffer; reads start at the
// beginning of whatever the buffer holds.
class NKF_API OByteStream_Memory : public OByteStream {
 public:
  OByteStream_Memory() = default;
  // A stream over a copy of `bytes`, ready to be read from the start.
  explicit OByteStream_Memory(const WritableCollection<std::uint8_t>& bytes);
  OByteStream_Memory(const void* data, std::uint64_t count);

  void BeginAddObject(std::uint64_t total_size) override;
  void AddBytes(const void* data, std::uint64_t count) override;

  bool GetBytes(void* out, std::uint64_t count) override;
  bool GetByteArray(WritableCollection<std::uint8_t>& bytes, std::uint64_t count) override;

  std::uint64_t GetPosition() const override { return read_position_; }
  bool SetPosition(std::uint64_t position) override;
  std::uint64_t GetLength() const override;

  // Empties the buffer and rewinds the read position.
  void RemoveAll();

  operator WritableCollection<std::uint8_t>&() { return buffer_; }
  operator const WritableCollection<std::uint8_t>&() const { return buffer_; }
  const WritableCollection<std::uint8_t>& GetBuffer() const { return buffer_; }

 private:
  WritableCollection<std::uint8_t> buffer_;
  std::uint64_t read_position_ = 0;
};

#endif  // NKFOUNDATION_CORE_MEMORY_STREAM_H_
