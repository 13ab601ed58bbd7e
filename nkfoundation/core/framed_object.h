// The object frame, written once for every serializable class.
//
// A frame is: u32 length of what follows, u32 object identifier, the class's
// fields, the user-data tail. A class states its identifier, the minimum
// payload below which none of its fields is read, and its fields; the frame
// logic here does the rest, including the compatibility rules between older
// (shorter) and newer (longer) layouts of the same object.
#ifndef NKFOUNDATION_CORE_FRAMED_OBJECT_H_
#define NKFOUNDATION_CORE_FRAMED_OBJECT_H_

#include <cstdint>

#include "nkfoundation/core/byte_stream.h"
#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"
#include "nkfoundation/core/factorable.h"

namespace nk {

// The frame rules of one class.
struct FrameRules {
  std::uint32_t id;
  // Fields are read only when the payload (bytes after the identifier) is at
  // least this long; a shorter object is an older layout and keeps defaults.
  std::uint64_t min_payload;
  // False for the one class without a tail: surplus bytes are skipped.
  bool keeps_tail = true;
  // Whether the stream's progress display advances once per frame.
  bool reports_progress = true;
  // Arrays: whether an element that fails to read makes the read fail.
  bool reports_bad_element = true;
  // Whether reading empties the tail before taking the surplus bytes. When
  // false, a frame without surplus leaves the old tail in place; only bytes
  // that are read replace it.
  bool empties_tail = true;
};

// What reading a frame's fields came to.
enum class FieldsRead {
  kComplete,
  kNestedFailed,  // a nested member did not read: the whole object fails
  kElementFailed,  // an array stopped at an element that did not read
};

// Base of every framed object: holds the user-data tail and runs the frame
// algorithm around the fields that the derived class supplies.
class NKF_API AFramedObject : public AFactorable {
 public:
  std::uint32_t GetObjectID() const override { return GetFrameRules().id; }
  std::uint64_t GetObjectSize() const override;
  bool AddObjectData(OByteStream& stream) override;
  bool GetObjectData(OByteStream& stream, bool bInitialize) override;

  // Bytes that followed the known fields when the object was read; written
  // back unchanged, so a newer writer's data survives a round trip here.
  WritableCollection<std::uint8_t> m_oUserData;

 protected:
  virtual const FrameRules& GetFrameRules() const = 0;
  virtual std::uint64_t GetPayloadSize() const = 0;
  virtual void AddFields(OByteStream& stream) = 0;
  virtual FieldsRead GetFields(OByteStream& stream) = 0;
  // Runs once the frame header is accepted, before any field is read.
  // Classes of plain values reset them here when asked to initialize.
  virtual void BeginGetFields(bool /*bInitialize*/) {}
  // Runs instead of `GetFields` when the payload is below the minimum.
  virtual void OnShortPayload() {}

  // While `GetFields` runs: where the frame being read ends, never beyond
  // the stream. Classes whose later fields are optional read them while the
  // frame still holds them.
  std::uint64_t GetFrameEnd() const { return frame_end_; }

 private:
  std::uint64_t frame_end_ = 0;
};

}  // namespace nk

#endif  // NKFOUNDATION_CORE_FRAMED_OBJECT_H_
