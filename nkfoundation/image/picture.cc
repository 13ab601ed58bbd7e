#include "nkfoundation/image/picture.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string>

#include "nkfoundation/core/file.h"
#include "nkfoundation/image/picture_codecs.h"

namespace nk {
namespace {

bool StartsWith(const std::uint8_t* data, std::size_t size, const char* prefix, std::size_t length) {
  return size >= length && std::memcmp(data, prefix, length) == 0;
}

}  // namespace

bool Picture::IsValid() const {
  return width > 0 && height > 0 && (channels == 1 || channels == 3) &&
         pixels.size() == static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
                              static_cast<std::size_t>(channels);
}

bool PictureSizeFits(std::int64_t width, std::int64_t height, int channels, std::uint64_t input_size,
                     std::uint64_t max_expansion) {
  if (width <= 0 || height <= 0 || channels <= 0) return false;
  if (width > 0xFFFFFF || height > 0xFFFFFF) return false;
  const std::uint64_t bytes = static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height) *
                              static_cast<std::uint64_t>(channels);
  return bytes <= kMaxPictureBytes && bytes / max_expansion <= input_size;
}

const char* PictureStatusText(PictureStatus status) {
  switch (status) {
    case PictureStatus::kOk:
      return "ok";
    case PictureStatus::kCannotOpen:
      return "cannot open the file";
    case PictureStatus::kUnknownFormat:
      return "unknown picture format";
    case PictureStatus::kUnsupported:
      return "format not supported";
    case PictureStatus::kDamaged:
      return "damaged picture";
    case PictureStatus::kTooLarge:
      return "picture too large";
    case PictureStatus::kInvalid:
      return "no picture to write";
  }
  return "unknown error";
}

PictureFormat SniffPictureFormat(const std::uint8_t* data, std::size_t size) {
  if (StartsWith(data, size, "BM", 2)) return PictureFormat::kBmp;
  if (StartsWith(data, size, "P5", 2) || StartsWith(data, size, "P6", 2)) return PictureFormat::kPnm;
  if (StartsWith(data, size, "\x89PNG\r\n\x1a\n", 8)) return PictureFormat::kPng;
  if (StartsWith(data, size, "\xFF\xD8\xFF", 3)) return PictureFormat::kJpeg;
  return PictureFormat::kUnknown;
}

PictureFormat PictureFormatOfPath(const std::filesystem::path& path) {
  std::string extension = path.extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  if (extension == ".bmp") return PictureFormat::kBmp;
  if (extension == ".pgm" || extension == ".ppm" || extension == ".pnm") return PictureFormat::kPnm;
  if (extension == ".png") return PictureFormat::kPng;
  if (extension == ".jpg" || extension == ".jpeg") return PictureFormat::kJpeg;
  return PictureFormat::kUnknown;
}

bool IsPictureFormatSupported(PictureFormat format) {
  switch (format) {
    case PictureFormat::kBmp:
    case PictureFormat::kPnm:
      return true;
    case PictureFormat::kPng:
    case PictureFormat::kJpeg:
      return IsJpegPngAvailable();
    case PictureFormat::kUnknown:
      break;
  }
  return false;
}

PictureStatus DecodePicture(const std::uint8_t* data, std::size_t size, Picture& picture) {
  switch (SniffPictureFormat(data, size)) {
    case PictureFormat::kBmp:
      return DecodeBmp(data, size, picture);
    case PictureFormat::kPnm:
      return DecodePnm(data, size, picture);
    case PictureFormat::kPng:
      return DecodePng(data, size, picture);
    case PictureFormat::kJpeg:
      return DecodeJpeg(data, size, picture);
    case PictureFormat::kUnknown:
      break;
  }
  return PictureStatus::kUnknownFormat;
}

PictureStatus EncodePicture(const Picture& picture, PictureFormat format, std::vector<std::uint8_t>& bytes,
                            int quality) {
  if (!picture.IsValid()) return PictureStatus::kInvalid;
  switch (format) {
    case PictureFormat::kBmp:
      return EncodeBmp(picture, bytes);
    case PictureFormat::kPnm:
      return EncodePnm(picture, bytes);
    case PictureFormat::kPng:
      return EncodePng(picture, bytes);
    case PictureFormat::kJpeg:
      return EncodeJpeg(picture, quality, bytes);
    case PictureFormat::kUnknown:
      break;
  }
  return PictureStatus::kUnknownFormat;
}

PictureStatus ReadPictureFile(const std::filesystem::path& path, Picture& picture) {
  File file;
  if (!file.Open(path, File::Mode::kRead)) return PictureStatus::kCannotOpen;
  const std::uint64_t length = file.Length();
  // No picture this library makes comes from a file anywhere near this big.
  if (file.IsFailed() || length > kMaxPictureBytes) return PictureStatus::kTooLarge;
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(length));
  if (file.Read(bytes.data(), length) != length) return PictureStatus::kCannotOpen;
  return DecodePicture(bytes.data(), bytes.size(), picture);
}

PictureStatus WritePictureFile(const std::filesystem::path& path, const Picture& picture, int quality) {
  std::vector<std::uint8_t> bytes;
  const PictureStatus status = EncodePicture(picture, PictureFormatOfPath(path), bytes, quality);
  if (status != PictureStatus::kOk) return status;
  File file;
  if (!file.Open(path, File::Mode::kWrite) || !file.Write(bytes.data(), bytes.size()) || !file.Close()) {
    return PictureStatus::kCannotOpen;
  }
  return PictureStatus::kOk;
}

}  // namespace nk
