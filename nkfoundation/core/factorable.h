// The contract of every serializable object of the library.
#ifndef NKFOUNDATION_CORE_FACTORABLE_H_
#define NKFOUNDATION_CORE_FACTORABLE_H_

#include <cstdint>

#include "nkfoundation/core/export.h"

class OByteStream;

// An object that writes itself to a byte stream as one frame (length,
// identifier, fields, user-data tail) and reads itself back from one. Reading
// tolerates older (shorter) and newer (longer) layouts of the same object.
class NKF_API AFactorable {
 public:
  // Defined in the library, so that the interface's vtable and type
  // information exist once, in the library, for every module that uses it.
  virtual ~AFactorable();

  // The object identifier of the class, of the form 0xFEDnnn00.
  virtual std::uint32_t GetObjectID() const = 0;
  // Total bytes of the frame: 8 + payload + tail.
  virtual std::uint64_t GetObjectSize() const = 0;
  // Appends the whole frame to `stream`.
  virtual bool AddObjectData(OByteStream& stream) = 0;
  // Reads one frame. False, with the object unchanged, when the stream does
  // not hold an object of this class at its position.
  virtual bool GetObjectData(OByteStream& stream, bool bInitialize) = 0;
};

#endif  // NKFOUNDATION_CORE_FACTORABLE_H_
