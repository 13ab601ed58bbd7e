// `nkfoundation image import` and `nkfoundation image export`: pictures in,
// image frames out, and back, so that a person can look at what the sensor
// and the PC software exchanged.
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "commands.h"
#include "nkfoundation/core/file.h"
#include "nkfoundation/core/file_stream.h"
#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/core/object_ids.h"
#include "nkfoundation/core/text.h"
#include "nkfoundation/image/image_array.h"
#include "nkfoundation/image/picture.h"
#include "nkfoundation/services/progress_ctrl.h"
#include "terminal_progress.h"
#include "whole_file.h"

namespace nkf::tools {
namespace {

int Fail(const std::string& message) {
  std::fprintf(stderr, "error: %s\n", message.c_str());
  return 2;
}


// The picture of `image` into a file of the format its name says.
bool Export(const OType_Image& image, const std::filesystem::path& out, std::string& error) {
  OType_Image raw(image);
  nk::Picture picture;
  if (raw.iConvertData(OType_Image::kFormatRaw) == 0 || !raw.ToPicture(picture)) {
    error = "the image holds no picture (geometry " + std::to_string(image.GetImage_Width()) + " x " +
            std::to_string(image.GetImage_Height()) + " x " + std::to_string(image.GetImage_BytesPerPixel()) +
            ", " + std::to_string(image.GetImageDataSize()) + " bytes)";
    return false;
  }
  const nk::PictureStatus status = nk::WritePictureFile(out, picture);
  if (status != nk::PictureStatus::kOk) error = out.string() + ": " + nk::PictureStatusText(status);
  return status == nk::PictureStatus::kOk;
}

// "shots.png" with index 3 gives "shots-3.png".
std::filesystem::path Numbered(const std::filesystem::path& out, int index) {
  std::filesystem::path name = out;
  name.replace_filename(out.stem().string() + "-" + std::to_string(index) + out.extension().string());
  return name;
}

}  // namespace

int RunImageImport(const std::vector<std::string>& pictures, const std::string& out, bool grey, bool compress) {
  TerminalProgress bar;
  OProgressCtrl progress(&bar);
  const bool series = pictures.size() > 1;
  if (series) progress.Length(static_cast<std::int64_t>(pictures.size()) * (compress ? 2 : 1));

  OType_Image_Array images;
  for (const std::string& path : pictures) {
    nk::Picture picture;
    const nk::PictureStatus status = nk::ReadPictureFile(path, picture);
    if (status != nk::PictureStatus::kOk) return progress.End(), Fail(path + ": " + nk::PictureStatusText(status));
    auto image = std::make_shared<OType_Image>();
    image->CreateDataFromPicture(picture, grey);
    image->m_name = nk::ToUtf16(std::filesystem::path(path).filename().string());
    images.Add(image);
    if (series) progress.Increase(1, true);
  }
  if (compress && images.iCompressImageData(series ? &progress : nullptr) == 0) {
    return progress.End(), Fail("out of memory while compressing");
  }
  progress.End();

  const bool saved = series ? nk::SaveObjectToFile(out, images) : nk::SaveObjectToFile(out, *images[0]);
  if (!saved) return Fail("cannot write " + out);
  std::uint64_t raw = 0;
  for (const auto& image : images) {
    raw += static_cast<std::uint64_t>(image->GetRawDataSize());
  }
  std::printf("%s: %zu image%s, %llu bytes of pixels%s\n", out.c_str(), pictures.size(), series ? "s" : "",
              static_cast<unsigned long long>(raw), compress ? ", compressed" : "");
  return 0;
}

int RunImageExport(const std::string& in, const std::string& out, int index) {
  nk::File file;
  std::uint64_t size = 0;
  if (!OpenWholeFile(in, file, size)) return 2;
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
  if (file.Read(bytes.data(), size) != size) return Fail("cannot read " + in);
  OByteStream_Memory stream(bytes.data(), bytes.size());
  if (!nk::IsPictureFormatSupported(nk::PictureFormatOfPath(out))) {
    return Fail(out + ": " + nk::PictureStatusText(nk::PictureFormatOfPath(out) == nk::PictureFormat::kUnknown
                                                        ? nk::PictureStatus::kUnknownFormat
                                                        : nk::PictureStatus::kUnsupported));
  }

  std::string error;
  std::uint32_t id = 0;
  for (int i = 7; i >= 4 && bytes.size() >= 8; --i) id = id << 8 | bytes[static_cast<std::size_t>(i)];
  if (id == nk::object_id::kImage) {
    OType_Image image;
    if (!image.GetObjectData(stream, true)) return Fail(in + ": damaged image frame");
    if (!Export(image, out, error)) return Fail(error);
    std::printf("%s: %d x %d, %d bytes per pixel\n", out.c_str(), image.GetImage_Width(), image.GetImage_Height(),
                image.GetImage_BytesPerPixel());
    return 0;
  }
  if (id != nk::object_id::kImageArray) return Fail(in + ": neither an image nor an image array");

  OType_Image_Array images;
  if (!images.GetObjectData(stream, true)) return Fail(in + ": damaged image array frame");
  if (index >= images.GetCount()) {
    return Fail(in + ": no image " + std::to_string(index) + " among " + std::to_string(images.GetCount()));
  }
  const int first = index >= 0 ? index : 0;
  const int last = index >= 0 ? index : images.GetCount() - 1;
  TerminalProgress bar;
  OProgressCtrl progress(&bar);
  progress.Length(last - first + 1);
  for (int i = first; i <= last; ++i) {
    const std::filesystem::path target = index >= 0 ? std::filesystem::path(out) : Numbered(out, i);
    if (!Export(*images[i], target, error)) return progress.End(), Fail("image " + std::to_string(i) + ": " + error);
    progress.Increase(1, true);
  }
  progress.End();
  std::printf("%s: %d image%s written\n", out.c_str(), last - first + 1, last > first ? "s" : "");
  return 0;
}

}  // namespace nkf::tools
