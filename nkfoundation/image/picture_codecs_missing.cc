// JPEG and PNG on builds without libjpeg-turbo and libpng (the Windows cross
// build): the formats are known but not supported.
#include "nkfoundation/image/picture_codecs.h"

namespace nk {

bool IsJpegPngAvailable() { return false; }

PictureStatus DecodeJpeg(const std::uint8_t*, std::size_t, Picture&) { return PictureStatus::kUnsupported; }
PictureStatus EncodeJpeg(const Picture&, int, std::vector<std::uint8_t>&) { return PictureStatus::kUnsupported; }
PictureStatus DecodePng(const std::uint8_t*, std::size_t, Picture&) { return PictureStatus::kUnsupported; }
PictureStatus EncodePng(const Picture&, std::vector<std::uint8_t>&) { return PictureStatus::kUnsupported; }

}  // namespace nk
