// Feeds arbitrary bytes to everything that reads frames: a memory stream
// driven by a sequence of reads taken from the input, the framed classes of
// the tests, and the frame walker. Besides the sanitizers' findings, it traps
// when a read breaks what the stream and the frames promise.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/round_trip.h"
#include "nkfoundation/core/frame_walker.h"
#include "nkfoundation/core/memory_stream.h"
#include "tests/support/framed_test_objects.h"

namespace {

using nk::fuzz::Check;
using nk::fuzz::ReadObject;
using nk::testing::TestPoint;
using nk::testing::TestPointArray;
using nk::testing::TestShape;

template <class T>
void ReadValue(OByteStream& stream, bool (OByteStream::*get)(T&)) {
  const std::uint64_t before = stream.GetPosition();
  T value{};
  const bool ok = (stream.*get)(value);
  Check(ok ? stream.GetPosition() == before + sizeof(T) : stream.GetPosition() == before && value == T{});
}

// One read chosen by the input at the stream's current position.
void ReadOnce(OByteStream_Memory& stream, FuzzedDataProvider& input) {
  const std::uint64_t before = stream.GetPosition();
  switch (input.ConsumeIntegralInRange(0, 11)) {
    case 0: return ReadValue(stream, &OByteStream::GetUInt8);
    case 1: return ReadValue(stream, &OByteStream::GetUInt16);
    case 2: return ReadValue(stream, &OByteStream::GetUInt32);
    case 3: return ReadValue(stream, &OByteStream::GetUInt64);
    case 4: return ReadValue(stream, &OByteStream::GetInt64);
    case 5: {
      std::u16string text = u"x";
      if (!stream.GetString(text)) Check(text.empty() && stream.GetPosition() == before);
      return;
    }
    case 6: {
      const auto count = input.ConsumeIntegral<std::uint32_t>() >> input.ConsumeIntegralInRange(0, 31);
      WritableCollection<std::uint8_t> bytes(std::vector<std::uint8_t>{1});
      if (stream.GetByteArray(bytes, count)) {
        Check(static_cast<std::uint64_t>(bytes.GetCount()) == count && stream.GetPosition() == before + count);
        Check(count == 0 || std::memcmp(bytes.GetData(), stream.GetBuffer().GetData() + before, count) == 0);
      } else {
        Check(bytes.GetCount() == 1 && count > stream.GetLength() - before && stream.GetPosition() == before);
      }
      return;
    }
    case 7: {
      std::uint64_t payload = 0, end = 0;
      const std::uint32_t id = input.ConsumeBool() ? nk::testing::kPointId : input.ConsumeIntegral<std::uint32_t>();
      if (stream.BeginGetObject(id, payload, end)) {
        Check(end == before + 8 + payload && end <= stream.GetLength() && stream.GetPosition() == before + 8);
      } else {
        Check(stream.GetPosition() == before);
      }
      return;
    }
    case 8: {
      const auto position = input.ConsumeIntegralInRange<std::uint64_t>(0, stream.GetLength() + 2);
      Check(stream.SetPosition(position) == (position <= stream.GetLength()));
      Check(stream.GetPosition() == (position <= stream.GetLength() ? position : before));
      return;
    }
    case 9: return ReadObject<TestPoint>(stream);
    case 10: return ReadObject<TestShape>(stream);
    default: return ReadObject<TestPointArray>(stream);
  }
}

// The walker's frames tile what they cover, each inside its parent.
void CheckTiling(const std::vector<nk::FrameNode>& frames, std::uint64_t begin, std::uint64_t end) {
  for (const nk::FrameNode& frame : frames) {
    Check(frame.offset == begin && frame.size >= 8 && frame.offset + frame.size <= end);
    Check(frame.payload + frame.tail.value_or(0) <= frame.size - 8);
    // Elements follow the array's own fields and its count.
    if (frame.info && frame.info->kind == nk::FrameKind::kObjectArray && !frame.children.empty()) {
      CheckTiling(frame.children, frame.offset + 12 + frame.info->leading_bytes, frame.offset + frame.size);
    }
    begin += frame.size;
  }
}

std::optional<nk::ObjectDescription> DescribePoint(std::uint32_t id, OByteStream& frame) {
  TestPoint point;
  if (id != nk::testing::kPointId || !point.GetObjectData(frame, true)) return std::nullopt;
  return nk::ObjectDescription{{{"x", std::to_string(point.m_llX)}},
                               static_cast<std::uint64_t>(point.m_oUserData.GetCount())};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  {
    OByteStream_Memory whole(data, size);
    ReadObject<TestPointArray>(whole);
  }
  {
    FuzzedDataProvider input(data, size);
    const std::vector<std::uint8_t> content = input.ConsumeBytes<std::uint8_t>(input.ConsumeIntegral<std::uint16_t>());
    OByteStream_Memory stream(content.data(), content.size());
    for (int reads = 0; reads < 64 && input.remaining_bytes() > 0; ++reads) ReadOnce(stream, input);
  }
  const nk::WalkResult walk = nk::WalkFrames(data, size, DescribePoint);
  CheckTiling(walk.frames, 0, size);
  std::uint64_t covered = 0;
  for (const nk::FrameNode& frame : walk.frames) covered += frame.size;
  Check(walk.error ? walk.error->offset <= size : covered == size);
  return 0;
}
