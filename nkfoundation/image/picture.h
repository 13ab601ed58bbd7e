// Picture files: BMP, PNG, JPEG and binary PGM/PPM, read into and written
// from one plain pixel layout, so that images can be imported from and
// exported to files that people and other programs open.
//
// Readers survive any input: a damaged or hostile file gives a status, never
// a crash, and nothing is allocated beyond what the file's own size can
// justify (a header that claims 60000 x 60000 pixels in a few bytes is
// refused before any pixel buffer exists).
#ifndef NKFOUNDATION_IMAGE_PICTURE_H_
#define NKFOUNDATION_IMAGE_PICTURE_H_

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "nkfoundation/core/export.h"

namespace nk {

enum class PictureFormat { kUnknown, kBmp, kPnm, kPng, kJpeg };

enum class PictureStatus {
  kOk,
  kCannotOpen,    // the file cannot be read or written
  kUnknownFormat,  // neither the bytes nor the file name say what it is
  kUnsupported,   // a known format, but this kind of it (or this build) cannot
  kDamaged,       // the bytes are not a valid picture
  kTooLarge,      // the picture claims more pixels than allowed or plausible
  kInvalid,       // the picture to encode has no pixels or a bad geometry
};

// Pixels top-down, rows without padding, one byte (grey) or three bytes
// (red, green, blue) per pixel.
struct Picture {
  int width = 0;
  int height = 0;
  int channels = 0;
  std::vector<std::uint8_t> pixels;

  bool IsValid() const;
};

// The largest picture any reader makes, in bytes of pixels: well beyond a
// sensor image, and within the 32-bit index of the image's pixel data.
inline constexpr std::uint64_t kMaxPictureBytes = static_cast<std::uint64_t>(1) << 30;

// A short English text for the program's error messages.
NKF_API const char* PictureStatusText(PictureStatus status);

// By the leading bytes ("BM", "P5"/"P6", the PNG signature, the JPEG SOI).
NKF_API PictureFormat SniffPictureFormat(const std::uint8_t* data, std::size_t size);
// By the file name's extension (.bmp, .pgm, .ppm, .pnm, .png, .jpg, .jpeg),
// in any letter case.
NKF_API PictureFormat PictureFormatOfPath(const std::filesystem::path& path);
// Whether this build reads and writes the format (JPEG and PNG need their
// libraries, which not every platform build links).
NKF_API bool IsPictureFormatSupported(PictureFormat format);

// The format is taken from the bytes. `picture` changes only on success.
NKF_API PictureStatus DecodePicture(const std::uint8_t* data, std::size_t size, Picture& picture);
// `quality` (1..100) matters for JPEG only.
NKF_API PictureStatus EncodePicture(const Picture& picture, PictureFormat format,
                                    std::vector<std::uint8_t>& bytes, int quality = 90);

NKF_API PictureStatus ReadPictureFile(const std::filesystem::path& path, Picture& picture);
// The format is taken from the file name.
NKF_API PictureStatus WritePictureFile(const std::filesystem::path& path, const Picture& picture,
                                       int quality = 90);

}  // namespace nk

#endif  // NKFOUNDATION_IMAGE_PICTURE_H_
