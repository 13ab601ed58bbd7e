// BMP: the Windows device-independent bitmap in a file.
//
// File header (14 bytes): "BM", u32 file size, u32 reserved, u32 offset of
// the pixel rows. Info header: u32 its size (40 or one of the later, longer
// forms), i32 width, i32 height (negative: rows top-down), u16 planes, u16
// bits per pixel, u32 compression (0: none), u32 image size, two i32
// resolutions, u32 colours used, u32 colours important. An 8-bit file's
// palette follows the info header, four bytes per colour (blue, green, red,
// 0). Rows are padded to four bytes; colour pixels are blue, green, red.
#include <algorithm>
#include <cstring>

#include "nkfoundation/image/picture_codecs.h"

namespace nk {
namespace {

constexpr std::size_t kFileHeaderSize = 14;
constexpr std::size_t kInfoHeaderSize = 40;
constexpr std::uint32_t kNoCompression = 0;

std::uint32_t U32(const std::uint8_t* p) {
  return std::uint32_t{p[0]} | std::uint32_t{p[1]} << 8 | std::uint32_t{p[2]} << 16 |
         std::uint32_t{p[3]} << 24;
}
std::uint16_t U16(const std::uint8_t* p) { return static_cast<std::uint16_t>(p[0] | p[1] << 8); }

void PutU32(std::uint8_t* p, std::uint32_t v) {
  for (int i = 0; i < 4; ++i) p[i] = static_cast<std::uint8_t>(v >> (8 * i));
}
void PutU16(std::uint8_t* p, std::uint16_t v) {
  p[0] = static_cast<std::uint8_t>(v);
  p[1] = static_cast<std::uint8_t>(v >> 8);
}

std::uint64_t RowStride(std::uint64_t width, unsigned bits) { return (width * bits + 31) / 32 * 4; }

struct Palette {
  std::uint8_t rgb[256][3] = {};
  bool grey = true;
};

// Reads `count` entries; the entries a file leaves out stay black.
bool ReadPalette(const std::uint8_t* data, std::size_t size, std::size_t at, std::uint32_t count,
                 Palette& palette) {
  if (count == 0 || count > 256) count = 256;
  if (at > size || (size - at) / 4 < count) return false;
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint8_t* entry = data + at + 4 * i;
    palette.rgb[i][0] = entry[2];
    palette.rgb[i][1] = entry[1];
    palette.rgb[i][2] = entry[0];
    palette.grey = palette.grey && entry[0] == entry[1] && entry[1] == entry[2] && entry[0] == i;
  }
  // A palette shorter than 256 entries cannot map every byte to itself.
  palette.grey = palette.grey && count == 256;
  return true;
}

}  // namespace

PictureStatus DecodeBmp(const std::uint8_t* data, std::size_t size, Picture& picture) {
  if (size < kFileHeaderSize + kInfoHeaderSize || data[0] != 'B' || data[1] != 'M') {
    return PictureStatus::kDamaged;
  }
  const std::uint32_t offset = U32(data + 10);
  const std::uint8_t* info = data + kFileHeaderSize;
  const std::uint32_t info_size = U32(info);
  if (info_size < kInfoHeaderSize || info_size > size - kFileHeaderSize) return PictureStatus::kUnsupported;
  const auto width = static_cast<std::int32_t>(U32(info + 4));
  const auto stored_height = static_cast<std::int32_t>(U32(info + 8));
  const unsigned bits = U16(info + 14);
  if (U32(info + 16) != kNoCompression || (bits != 8 && bits != 24 && bits != 32)) {
    return PictureStatus::kUnsupported;
  }
  const bool top_down = stored_height < 0;
  const std::int64_t height = top_down ? -std::int64_t{stored_height} : stored_height;

  Palette palette;
  if (bits == 8 && !ReadPalette(data, size, kFileHeaderSize + info_size, U32(info + 32), palette)) {
    return PictureStatus::kDamaged;
  }
  const int channels = bits == 8 && palette.grey ? 1 : 3;
  // Every pixel byte of the picture is backed by at least a third of a file
  // byte (8-bit palette pictures expand to three bytes).
  if (!PictureSizeFits(width, height, channels, size, 3)) return PictureStatus::kTooLarge;
  const std::uint64_t stride = RowStride(static_cast<std::uint64_t>(width), bits);
  const std::uint64_t last_row = static_cast<std::uint64_t>(width) * bits / 8;
  if (offset > size) return PictureStatus::kDamaged;
  const std::uint64_t available = size - offset;
  if (available < last_row || (available - last_row) / stride < static_cast<std::uint64_t>(height - 1)) {
    return PictureStatus::kDamaged;
  }

  Picture read{width, static_cast<int>(height), channels, {}};
  read.pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * channels);
  const std::size_t bytes_per_pixel = bits / 8;
  for (std::int64_t row = 0; row < height; ++row) {
    const std::uint8_t* in = data + offset + (top_down ? row : height - 1 - row) * stride;
    std::uint8_t* out = read.pixels.data() + static_cast<std::size_t>(row) * width * channels;
    if (channels == 1) {
      std::memcpy(out, in, static_cast<std::size_t>(width));
      continue;
    }
    for (std::int32_t x = 0; x < width; ++x, in += bytes_per_pixel, out += 3) {
      if (bits == 8) {
        std::memcpy(out, palette.rgb[*in], 3);
      } else {
        out[0] = in[2];
        out[1] = in[1];
        out[2] = in[0];
      }
    }
  }
  picture = std::move(read);
  return PictureStatus::kOk;
}

PictureStatus EncodeBmp(const Picture& picture, std::vector<std::uint8_t>& bytes) {
  if (!picture.IsValid()) return PictureStatus::kInvalid;
  const unsigned bits = picture.channels == 1 ? 8 : 24;
  const std::size_t palette_size = picture.channels == 1 ? 4 * 256 : 0;
  const auto stride = static_cast<std::size_t>(RowStride(static_cast<std::uint64_t>(picture.width), bits));
  const std::size_t offset = kFileHeaderSize + kInfoHeaderSize + palette_size;
  const std::size_t total = offset + stride * static_cast<std::size_t>(picture.height);
  if (total > 0xFFFFFFFFu) return PictureStatus::kTooLarge;

  std::vector<std::uint8_t> out(total, 0);
  out[0] = 'B';
  out[1] = 'M';
  PutU32(&out[2], static_cast<std::uint32_t>(total));
  PutU32(&out[10], static_cast<std::uint32_t>(offset));
  std::uint8_t* info = &out[kFileHeaderSize];
  PutU32(info, kInfoHeaderSize);
  PutU32(info + 4, static_cast<std::uint32_t>(picture.width));
  PutU32(info + 8, static_cast<std::uint32_t>(picture.height));
  PutU16(info + 12, 1);
  PutU16(info + 14, static_cast<std::uint16_t>(bits));
  PutU32(info + 20, static_cast<std::uint32_t>(stride * static_cast<std::size_t>(picture.height)));
  PutU32(info + 24, 2835);  // 72 dpi, in pixels per metre
  PutU32(info + 28, 2835);
  if (picture.channels == 1) {
    PutU32(info + 32, 256);
    for (int i = 0; i < 256; ++i) {
      std::uint8_t* entry = &out[kFileHeaderSize + kInfoHeaderSize + 4 * static_cast<std::size_t>(i)];
      entry[0] = entry[1] = entry[2] = static_cast<std::uint8_t>(i);
    }
  }
  const std::size_t row_bytes = static_cast<std::size_t>(picture.width) * picture.channels;
  for (int row = 0; row < picture.height; ++row) {
    const std::uint8_t* in = picture.pixels.data() + static_cast<std::size_t>(picture.height - 1 - row) * row_bytes;
    std::uint8_t* at = out.data() + offset + static_cast<std::size_t>(row) * stride;
    if (picture.channels == 1) {
      std::memcpy(at, in, row_bytes);
      continue;
    }
    for (int x = 0; x < picture.width; ++x, in += 3, at += 3) {
      at[0] = in[2];
      at[1] = in[1];
      at[2] = in[0];
    }
  }
  bytes = std::move(out);
  return PictureStatus::kOk;
}

}  // namespace nk
