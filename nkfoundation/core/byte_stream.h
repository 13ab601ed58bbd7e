// Byte streams: the medium every serializable object is written to and read
// from. All values are little-endian whatever the host.
//
// A stream appends everything it is given at its end and reads from a read
// position. Reads never go past the end: a read that does not fit yields zero
// (or nothing), consumes nothing and puts the stream in a failed state that
// callers can test with `IsFailed()`.
#ifndef NKFOUNDATION_CORE_BYTE_STREAM_H_
#define NKFOUNDATION_CORE_BYTE_STREAM_H_

#include <cstdint>
#include <string>

#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"

class AProgressCtrl;

class NKF_API OByteStream {
 public:
  // Identifier of the string object that carries every text field.
  static constexpr std::uint32_t kStringObjectId = 0xFECB0100;
  // Length and identifier that open every object frame.
  static constexpr std::uint64_t kFrameHeaderSize = 8;

  OByteStream() = default;
  OByteStream(const OByteStream&) = delete;
  OByteStream& operator=(const OByteStream&) = delete;
  virtual ~OByteStream() = default;

  // --- Writing -------------------------------------------------------------

  // Announces an object of `total_size` bytes so the stream can reserve
  // space. Writes nothing.
  virtual void BeginAddObject(std::uint64_t total_size);
  // Appends `count` raw bytes.
  virtual void AddBytes(const void* data, std::uint64_t count) = 0;

  void AddUInt8(std::uint8_t value);
  void AddBool(bool value);
  void AddUInt16(std::uint16_t value);
  void AddInt16(std::int16_t value);
  void AddUInt32(std::uint32_t value);
  void AddInt32(std::int32_t value);
  void AddUInt64(std::uint64_t value);
  void AddInt64(std::int64_t value);
  void AddFloat(float value);
  void AddDouble(double value);
  // A nested string object: length 4 + 2n, identifier, n UTF-16 code units.
  void AddString(const std::u16string& text);
  // All bytes of the buffer, raw, without a count.
  void AddByteArray(const WritableCollection<std::uint8_t>& bytes);

  // --- Reading -------------------------------------------------------------

  // Reads the length and identifier of the frame at the read position. On
  // success `payload` is the number of bytes after the identifier and `end`
  // the position just past the frame. A frame that announces more than the
  // stream holds is taken up to the stream's end: payload and end count only
  // the bytes present. Fails, leaving the read position where it was, when
  // fewer than 8 bytes remain, the identifier differs or the length field is
  // below 4.
  bool BeginGetObject(std::uint32_t expected_id, std::uint64_t& payload, std::uint64_t& end);
  // Positions the stream at the end of an object whose nested part failed.
  void AbortGetObject(std::uint64_t end);

  // Reads exactly `count` bytes. When fewer remain, the output is zeroed,
  // nothing is consumed, the stream fails and the result is false.
  virtual bool GetBytes(void* out, std::uint64_t count) = 0;
  // Replaces the buffer's contents with the next `count` bytes. A count
  // beyond what remains is refused before anything is allocated.
  virtual bool GetByteArray(WritableCollection<std::uint8_t>& bytes, std::uint64_t count);
  // Reads a nested string object. Refuses (false, text empty, position
  // unchanged) a string that is not a string object or claims more than the
  // stream holds: cutting it short would change the text.
  bool GetString(std::u16string& text);

  bool GetUInt8(std::uint8_t& value);
  bool GetBool(bool& value);
  bool GetUInt16(std::uint16_t& value);
  bool GetInt16(std::int16_t& value);
  bool GetUInt32(std::uint32_t& value);
  bool GetInt32(std::int32_t& value);
  bool GetUInt64(std::uint64_t& value);
  bool GetInt64(std::int64_t& value);
  bool GetFloat(float& value);
  bool GetDouble(double& value);

  std::uint8_t GetUInt8();
  bool GetBool();
  std::uint16_t GetUInt16();
  std::int16_t GetInt16();
  std::uint32_t GetUInt32();
  std::int32_t GetInt32();
  std::uint64_t GetUInt64();
  std::int64_t GetInt64();
  float GetFloat();
  double GetDouble();
  std::u16string GetString();

  virtual std::uint64_t GetPosition() const = 0;
  // Moves the read position; false (position unchanged) beyond the end.
  virtual bool SetPosition(std::uint64_t position) = 0;
  // Bytes in the stream, that is, the position just past the last byte.
  virtual std::uint64_t GetLength() const = 0;
  std::uint64_t GetRemaining() const;

  // --- State and progress --------------------------------------------------

  bool IsFailed() const { return failed_; }
  void ClearFailure() { failed_ = false; }

  // Attaches a progress display (not owned; may be null) that advances one
  // step per object written or read.
  void SetProgressCtrl(AProgressCtrl* progress) { progress_ = progress; }
  AProgressCtrl* GetProgressCtrl() const { return progress_; }
  void UpdateProgressCtrl();

 protected:
  void SetFailed() { failed_ = true; }

 private:
  // Reads a frame header of `expected_id` and returns the announced payload,
  // or, restoring the position, false.
  bool GetFrameHeader(std::uint32_t expected_id, std::uint64_t& announced_payload);
  template <class T>
  void AddLittleEndian(T value);
  template <class T>
  bool GetLittleEndian(T& value);

  AProgressCtrl* progress_ = nullptr;
  bool failed_ = false;
};

#endif  // NKFOUNDATION_CORE_BYTE_STREAM_H_
