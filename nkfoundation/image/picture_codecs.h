// The codecs behind picture.h, one per format, for callers that know what
// they hold. JPEG and PNG come from libjpeg-turbo and libpng; a build
// without those libraries answers kUnsupported for them.
#ifndef NKFOUNDATION_IMAGE_PICTURE_CODECS_H_
#define NKFOUNDATION_IMAGE_PICTURE_CODECS_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "nkfoundation/core/export.h"
#include "nkfoundation/image/picture.h"

namespace nk {

// Whether a reader may allocate `width` x `height` x `channels` bytes for a
// file of `input_size` bytes whose format packs at most `max_expansion`
// pixel bytes into one byte of file.
NKF_API bool PictureSizeFits(std::int64_t width, std::int64_t height, int channels,
                             std::uint64_t input_size, std::uint64_t max_expansion);

// Uncompressed 8-bit (palette; grey palettes give grey pictures), 24-bit
// and 32-bit, rows bottom-up or top-down. Writes 8-bit grey with a grey
// palette or 24-bit colour, bottom-up.
NKF_API PictureStatus DecodeBmp(const std::uint8_t* data, std::size_t size, Picture& picture);
NKF_API PictureStatus EncodeBmp(const Picture& picture, std::vector<std::uint8_t>& bytes);

// Binary PGM (P5) and PPM (P6) with a maximum value up to 255, scaled to
// 0..255.
NKF_API PictureStatus DecodePnm(const std::uint8_t* data, std::size_t size, Picture& picture);
NKF_API PictureStatus EncodePnm(const Picture& picture, std::vector<std::uint8_t>& bytes);

NKF_API bool IsJpegPngAvailable();
NKF_API PictureStatus DecodeJpeg(const std::uint8_t* data, std::size_t size, Picture& picture);
NKF_API PictureStatus EncodeJpeg(const Picture& picture, int quality, std::vector<std::uint8_t>& bytes);
NKF_API PictureStatus DecodePng(const std::uint8_t* data, std::size_t size, Picture& picture);
NKF_API PictureStatus EncodePng(const Picture& picture, std::vector<std::uint8_t>& bytes);

}  // namespace nk

#endif  // NKFOUNDATION_IMAGE_PICTURE_CODECS_H_
