#include "nkfoundation/core/frame_walker.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>

#include "nkfoundation/core/memory_stream.h"

namespace nk {
namespace {

// Deep enough for any real object tree; a hostile file of nested arrays
// could otherwise exhaust the stack.
constexpr int kMaxDepth = 64;

std::uint32_t LoadU32(const std::uint8_t* p) {
  return static_cast<std::uint32_t>(p[0]) | static_cast<std::uint32_t>(p[1]) << 8 |
         static_cast<std::uint32_t>(p[2]) << 16 | static_cast<std::uint32_t>(p[3]) << 24;
}

std::string Hex(std::uint64_t value) {
  char text[24];
  std::snprintf(text, sizeof text, "0x%08llX", static_cast<unsigned long long>(value));
  return text;
}

// Where a frame may end when nothing encloses it: anywhere, since a frame
// that runs past the data is read as far as the data goes.
constexpr std::uint64_t kUnbounded = UINT64_MAX;

class Walker {
 public:
  Walker(const std::uint8_t* data, std::uint64_t size, const ObjectDescriber& describe)
      : data_(data), size_(size), describe_(describe) {}

  // Reads the frame at `offset` (before the data's end), which must end by
  // `limit`, the end its enclosing frame announces. `node.size` stays 0
  // unless the header was sound.
  bool Walk(std::uint64_t offset, std::uint64_t limit, int depth, FrameNode& node) {
    const std::uint64_t left = std::min(limit, size_) - offset;
    if (left < OByteStream::kFrameHeaderSize) {
      return Fail(offset, "truncated frame header: " + std::to_string(left) + " bytes left, 8 needed");
    }
    const std::uint32_t length = LoadU32(data_ + offset);
    if (length < 4) return Fail(offset, "length field " + std::to_string(length) + " is below 4");
    const std::uint64_t announced = 4 + std::uint64_t{length};
    if (limit != kUnbounded && announced > limit - offset) {
      return Fail(offset, "frame claims " + std::to_string(announced) + " bytes but its enclosing frame has " +
                              std::to_string(limit - offset) + " left");
    }
    if (depth > kMaxDepth) return Fail(offset, "frames nested deeper than " + std::to_string(kMaxDepth));

    // A frame that runs past the data (as settings written last do) is taken
    // up to the data's end, as the objects' readers take it.
    node.offset = offset;
    node.size = std::min(announced, size_ - offset);
    node.missing = announced - node.size;
    node.id = LoadU32(data_ + offset + 4);
    node.info = FindObjectClass(node.id);
    node.payload = node.size - OByteStream::kFrameHeaderSize;
    const FrameKind kind = node.info ? node.info->kind : FrameKind::kObject;
    if (kind == FrameKind::kObjectArray && node.info->leading_bytes >= 0) {
      return WalkArray(node, depth);
    }
    if (kind == FrameKind::kString) node.tail = 0;
    Describe(node);
    return true;
  }

  const std::optional<WalkError>& error() const { return error_; }

 private:
  bool WalkArray(FrameNode& node, int depth) {
    const std::uint64_t end = node.offset + node.size;
    std::uint64_t position = node.offset + OByteStream::kFrameHeaderSize;
    const auto leading = static_cast<std::uint64_t>(node.info->leading_bytes);
    if (node.payload < leading + 4) {
      node.tail = node.payload;
      node.payload = 0;
      return true;
    }
    position += leading;
    const std::uint32_t count = LoadU32(data_ + position);
    position += 4;
    // An array's own fields come from its class's view, if it has one.
    if (leading > 0 && describe_) {
      OByteStream_Memory frame(data_ + node.offset, node.size);
      if (auto description = describe_(node.id, frame)) node.fields = std::move(description->fields);
    }
    node.fields.push_back({"count", std::to_string(count)});
    // A count larger than the elements present is tolerated by readers
    // (they stop at the frame's end), so it is shown, not rejected.
    const std::uint64_t announced_end = end + node.missing;
    for (std::uint32_t i = 0; i < count && position < end; ++i) {
      FrameNode child;
      const bool ok = Walk(position, announced_end, depth + 1, child);
      position += child.size;
      if (child.size != 0) node.children.push_back(std::move(child));
      if (!ok) return false;
    }
    node.tail = end - position;
    node.payload = node.size - OByteStream::kFrameHeaderSize - *node.tail;
    return true;
  }

  void Describe(FrameNode& node) {
    if (!describe_) return;
    OByteStream_Memory frame(data_ + node.offset, node.size);
    std::optional<ObjectDescription> description = describe_(node.id, frame);
    if (!description) return;
    node.fields = std::move(description->fields);
    node.tail = description->tail;
    node.payload = node.size - OByteStream::kFrameHeaderSize - description->tail;
  }

  bool Fail(std::uint64_t offset, std::string message) {
    error_ = WalkError{offset, "damaged frame at offset " + Hex(offset) + ": " + std::move(message)};
    return false;
  }

  const std::uint8_t* data_;
  std::uint64_t size_;
  const ObjectDescriber& describe_;
  std::optional<WalkError> error_;
};

}  // namespace

WalkResult WalkFrames(const std::uint8_t* data, std::uint64_t size, const ObjectDescriber& describe) {
  WalkResult result;
  Walker walker(data, size, describe);
  for (std::uint64_t offset = 0; offset < size;) {
    FrameNode node;
    const bool ok = walker.Walk(offset, kUnbounded, 0, node);
    offset += node.size;
    // A frame whose header was sound is kept even when one of its elements
    // is damaged, so that everything readable is shown.
    if (node.size != 0) result.frames.push_back(std::move(node));
    if (!ok) break;
  }
  result.error = walker.error();
  return result;
}

}  // namespace nk
