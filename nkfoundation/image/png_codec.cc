// PNG through libpng's simplified interface, which catches libpng's errors
// itself and reports them as a zero result.
#include <png.h>

#include "nkfoundation/image/picture_codecs.h"

namespace nk {
namespace {

// Deflate packs at most about 1032 bytes into one; filter bytes and headers
// only lower the ratio.
constexpr std::uint64_t kMaxExpansion = 1100;

}  // namespace

PictureStatus DecodePng(const std::uint8_t* data, std::size_t size, Picture& picture) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_memory(&image, data, size)) return PictureStatus::kDamaged;
  const int channels = (image.format & PNG_FORMAT_FLAG_COLOR) != 0 ? 3 : 1;
  if (!PictureSizeFits(image.width, image.height, channels, size, kMaxExpansion)) {
    png_image_free(&image);
    return PictureStatus::kTooLarge;
  }
  // Transparency is dropped by composing over black.
  image.format = channels == 3 ? PNG_FORMAT_RGB : PNG_FORMAT_GRAY;
  Picture read{static_cast<int>(image.width), static_cast<int>(image.height), channels, {}};
  read.pixels.resize(PNG_IMAGE_SIZE(image));
  if (!png_image_finish_read(&image, nullptr, read.pixels.data(), 0, nullptr)) {
    png_image_free(&image);
    return PictureStatus::kDamaged;
  }
  picture = std::move(read);
  return PictureStatus::kOk;
}

PictureStatus EncodePng(const Picture& picture, std::vector<std::uint8_t>& bytes) {
  if (!picture.IsValid()) return PictureStatus::kInvalid;
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(picture.width);
  image.height = static_cast<png_uint_32>(picture.height);
  image.format = picture.channels == 3 ? PNG_FORMAT_RGB : PNG_FORMAT_GRAY;
  png_alloc_size_t length = 0;
  if (!png_image_write_to_memory(&image, nullptr, &length, 0, picture.pixels.data(), 0, nullptr)) {
    return PictureStatus::kTooLarge;
  }
  std::vector<std::uint8_t> out(length);
  if (!png_image_write_to_memory(&image, out.data(), &length, 0, picture.pixels.data(), 0, nullptr)) {
    return PictureStatus::kTooLarge;
  }
  out.resize(length);
  bytes = std::move(out);
  return PictureStatus::kOk;
}

}  // namespace nk
