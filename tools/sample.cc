#include "sample.h"

#include <functional>
#include <string>

#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/core/object_ids.h"

namespace nkf::tools {
namespace {

namespace id = nk::object_id;

// Appends one frame whose payload `fields` writes.
void AddFrame(OByteStream& out, std::uint32_t object_id,
              const std::function<void(OByteStream&)>& fields) {
  OByteStream_Memory payload;
  fields(payload);
  const WritableCollection<std::uint8_t>& bytes = payload;
  out.AddUInt32(static_cast<std::uint32_t>(4 + bytes.GetCount()));
  out.AddUInt32(object_id);
  out.AddByteArray(bytes);
}

void AddVector(OByteStream& out, std::int64_t x, std::int64_t y) {
  AddFrame(out, id::kVector, [=](OByteStream& s) {
    s.AddInt64(x);
    s.AddInt64(y);
  });
}

}  // namespace

std::vector<std::uint8_t> BuildSample() {
  OByteStream_Memory sample;
  AddFrame(sample, id::kStringArray, [](OByteStream& s) {
    s.AddUInt32(2);
    s.AddString(u"Part set 1");
    s.AddString(u"Pr\u00fcfprogramm");
  });
  AddFrame(sample, id::kVectorArray, [](OByteStream& s) {
    s.AddUInt32(2);
    AddVector(s, 10 << 16, 20 << 16);
    AddVector(s, -(3 << 16), 1 << 15);
  });
  AddFrame(sample, 0xFED0FF00, [](OByteStream& s) { s.AddUInt32(0xC0FFEE); });
  // An array from a newer writer: two bytes after the elements that this
  // version keeps as the tail.
  AddFrame(sample, id::kVectorArray, [](OByteStream& s) {
    s.AddUInt32(1);
    AddVector(s, 0, 0);
    s.AddUInt16(0xBEEF);
  });
  const WritableCollection<std::uint8_t>& bytes = sample;
  return {bytes.begin(), bytes.end()};
}

}  // namespace nkf::tools
