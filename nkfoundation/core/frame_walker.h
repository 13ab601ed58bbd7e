// Walks a byte sequence of object frames without knowing in advance what it
// holds: the structural view that engineers use to debug what travels
// between the PC, the device and project files.
#ifndef NKFOUNDATION_CORE_FRAME_WALKER_H_
#define NKFOUNDATION_CORE_FRAME_WALKER_H_

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/object_ids.h"

class OByteStream;

namespace nk {

// One field of a frame, as text for a person to read.
struct FieldText {
  std::string name;
  std::string value;
};

// What a class that knows its own fields makes of one of its frames.
struct ObjectDescription {
  std::vector<FieldText> fields;
  std::uint64_t tail = 0;
};

// Reads the frame at the start of `frame` (a stream holding exactly that
// frame) as the class of `id`; nothing when it does not know the class or
// the frame does not read. Of an array with fields before its count, only
// the described fields are used: the walker finds the elements itself.
using ObjectDescriber =
    std::function<std::optional<ObjectDescription>(std::uint32_t id, OByteStream& frame)>;

struct FrameNode {
  std::uint64_t offset = 0;
  std::uint64_t size = 0;  // the whole frame, header included, as far as the data goes
  std::uint64_t missing = 0;  // bytes the length field announces beyond the data's end
  std::uint32_t id = 0;
  const ObjectClassInfo* info = nullptr;  // null for an unknown identifier
  std::uint64_t payload = 0;              // bytes of known fields
  std::optional<std::uint64_t> tail;      // unknown when the layout is
  std::vector<FieldText> fields;
  std::vector<FrameNode> children;  // elements of an array
};

struct WalkError {
  std::uint64_t offset = 0;
  std::string message;
};

struct WalkResult {
  std::vector<FrameNode> frames;  // everything readable before any error
  std::optional<WalkError> error;
};

// Splits `data` into consecutive frames, descending into the elements of
// arrays. A frame that announces more than the data holds is taken up to the
// data's end, as the objects' readers take it. Stops at the first damaged
// frame (a header cut short, a length below 4, or an element that runs past
// the end its array announces).
NKF_API WalkResult WalkFrames(const std::uint8_t* data, std::uint64_t size,
                              const ObjectDescriber& describe = {});

}  // namespace nk

#endif  // NKFOUNDATION_CORE_FRAME_WALKER_H_
