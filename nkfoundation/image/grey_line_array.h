// OType_GreyLine_Array: the most recent grey lines of a live profile, built
// from the two kinds of packages a sensor sends.
//
// ZE package: a plain byte block; the whole block is one line.
//
// Z2 package (big-endian numbers): a 12-byte header, u16 line length L at 0,
// the left shift S at 9 and u16 record count R at 10; then R records, each a
// 7-byte head (encoding at 4, u16 data length D at 5) and D data bytes. The
// next head follows the previous head, not its data: devices send it so and
// the parser keeps it. Encodings: 0 raw bytes, 1 nibble-coded absolute
// values, 2 nibble-coded differences to the previous line. Every decoded
// line is exactly L bytes long.
#ifndef NKFOUNDATION_IMAGE_GREY_LINE_ARRAY_H_
#define NKFOUNDATION_IMAGE_GREY_LINE_ARRAY_H_

#include <cstdint>
#include <memory>

#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"
#include "nkfoundation/image/grey_line.h"

class NKF_API OType_GreyLine_Array : public WritableCollection<std::shared_ptr<OType_GreyLine>> {
 public:
  // A package is refused whole (null, nothing added) when the lines it would
  // leave in the array take more than this many bytes: a few bytes of
  // package can ask for a 64 KiB line, and many of them for gigabytes.
  static constexpr std::uint64_t kMaxPackageLineBytes = 64u << 20;

  // Builds one line from `size` bytes at `data`. Null when there is no data.
  std::shared_ptr<OType_GreyLine> AddGreyLine_ZE_Package(const char* data, int size);

  // Builds the lines of a Z2 package and returns the last one created. Null
  // when the package is shorter than 15 bytes, holds no record, creates no
  // line, or stops early: a record head cut short by the package's end, or
  // a difference-coded record with no line before it. An early stop keeps
  // the lines already added and skips the trimming.
  std::shared_ptr<OType_GreyLine> AddGreyLine_Z2_Package(
      const WritableCollection<unsigned char, int>& package);

  // The most lines kept; after each package the oldest go first. Zero or
  // less keeps none.
  std::int32_t m_iGreyLine_MaxNumber = 100;

 private:
  // Removes the oldest lines while more than `keep` remain.
  void TrimTo(std::int64_t keep);
};

#endif  // NKFOUNDATION_IMAGE_GREY_LINE_ARRAY_H_
