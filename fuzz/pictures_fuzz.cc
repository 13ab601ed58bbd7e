// Feeds arbitrary bytes to the picture readers. Every reader must refuse or
// read without harm and without allocating beyond what the input backs; a
// picture that reads must survive the lossless formats and the image's
// bottom-up layout unchanged.
#include <cstdint>
#include <vector>

#include "fuzz/round_trip.h"
#include "nkfoundation/image/image.h"
#include "nkfoundation/image/picture.h"
#include "nkfoundation/image/picture_codecs.h"

namespace {

using nk::fuzz::Check;

void CheckLossless(const nk::Picture& picture, nk::PictureFormat format) {
  std::vector<std::uint8_t> bytes;
  const nk::PictureStatus written = nk::EncodePicture(picture, format, bytes);
  if (written == nk::PictureStatus::kUnsupported) return;
  Check(written == nk::PictureStatus::kOk);
  nk::Picture back;
  Check(nk::DecodePicture(bytes.data(), bytes.size(), back) == nk::PictureStatus::kOk);
  Check(back.width == picture.width && back.height == picture.height && back.pixels == picture.pixels);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  nk::Picture picture;
  if (nk::DecodePicture(data, size, picture) != nk::PictureStatus::kOk) return 0;
  Check(picture.IsValid());
  // Lossless re-encoding of large pictures only repeats what small ones test.
  if (picture.pixels.size() > (1u << 20)) return 0;
  for (nk::PictureFormat format : {nk::PictureFormat::kBmp, nk::PictureFormat::kPnm, nk::PictureFormat::kPng}) {
    CheckLossless(picture, format);
  }
  OType_Image image;
  Check(image.CreateDataFromPicture(picture));
  nk::Picture back;
  Check(image.ToPicture(back) && back.pixels == picture.pixels);
  return 0;
}
