// The ways an image is made: from a geometry, from points, from picture
// files and pixel buffers, and the simple drawing that marks regions.
#include <algorithm>
#include <cstring>
#include <limits>

#include "nkfoundation/geometry/vector_array.h"
#include "nkfoundation/image/image.h"

namespace {

constexpr int kRaw = OType_Image::kFormatRaw;

// Releases the busy flag however creation ends.
class BusyGuard {
 public:
  explicit BusyGuard(std::atomic<bool>& flag) : flag_(flag) {}
  BusyGuard(const BusyGuard&) = delete;
  BusyGuard& operator=(const BusyGuard&) = delete;
  ~BusyGuard() { flag_ = false; }

 private:
  std::atomic<bool>& flag_;
};

}  // namespace

bool OType_Image::Create(int x, int y, int width, int height, int bytes_per_pixel) {
  if (m_bBusy.exchange(true)) return false;
  BusyGuard release(m_bBusy);
  const std::int64_t size = RawDataSize(width, height, bytes_per_pixel);
  if (size < 0) return false;
  m_oAcquisition_TimeDate.SetToCurrentTimePrecisely();
  m_iImage_BytesPerPixel = bytes_per_pixel;
  m_iImage_X = x;
  m_iImage_Y = y;
  m_iImage_Width = width;
  m_iImage_Height = height;
  UpdateDerived();
  m_iImageFormat = kRaw;
  m_iImage_ProcessStep = 0;
  m_oImageData.RemoveAll();
  m_oImageData.SetSize(static_cast<int>(size));
  return true;
}

bool OType_Image::Create(const OVector_Array& points) {
  const Rect<int> bounds = points.ToI32Rect();
  if (bounds.width < 0 || bounds.height < 0) return false;
  // The bounds are distances between extreme points; the image holds both.
  if (!Create(bounds.x, bounds.y, bounds.width + 1, bounds.height + 1, 1)) return false;
  for (const auto& point : points) {
    if (point) SetPixel(*point, 255u);
  }
  return true;
}

bool OType_Image::Create(const std::filesystem::path& picture_file) {
  if (!CreateDataFromPicture(picture_file)) return false;
  m_iImage_X = m_iImage_Y = 0;
  UpdateDerived();
  return true;
}

void OType_Image::CreateEmpty() {
  if (m_bBusy.exchange(true)) return;
  BusyGuard release(m_bBusy);
  m_iImage_BytesPerPixel = m_iImage_X = m_iImage_Y = m_iImage_Width = m_iImage_Height = 0;
  UpdateDerived();
  m_iImageFormat = kRaw;
  m_oImageData.RemoveAll();
}

bool OType_Image::CreateDataFromPicture(const std::filesystem::path& file, bool to_grey,
                                        nk::PictureStatus* status) {
  nk::Picture picture;
  const nk::PictureStatus read = nk::ReadPictureFile(file, picture);
  if (status != nullptr) *status = read;
  return read == nk::PictureStatus::kOk && CreateDataFromPicture(picture, to_grey);
}

bool OType_Image::CreateDataFromPicture(const nk::Picture& picture, bool to_grey) {
  if (!picture.IsValid()) return false;
  const int channels = to_grey ? 1 : picture.channels;
  if (!Create(m_iImage_X, m_iImage_Y, picture.width, picture.height, channels)) return false;
  const auto row_in = static_cast<std::size_t>(picture.width) * picture.channels;
  const auto row_out = static_cast<std::size_t>(picture.width) * channels;
  for (int row = 0; row < picture.height; ++row) {
    // The picture's top row is the image's first y, which is stored last.
    const std::uint8_t* in = picture.pixels.data() + row_in * static_cast<std::size_t>(row);
    unsigned char* out = GetImageData() + row_out * static_cast<std::size_t>(picture.height - 1 - row);
    if (channels == picture.channels) {
      std::memcpy(out, in, row_out);
      continue;
    }
    for (int x = 0; x < picture.width; ++x, in += 3) out[x] = static_cast<unsigned char>((in[0] + in[1] + in[2] + 1) / 3);
  }
  return true;
}

bool OType_Image::ToPicture(nk::Picture& picture) const {
  const int bpp = m_iImage_BytesPerPixel;
  const std::int64_t row_bytes = std::int64_t{m_iImage_Width} * bpp;
  if (m_iImageFormat != kRaw || (bpp != 1 && bpp != 3) || m_iImage_Width <= 0 || m_iImage_Height <= 0 ||
      GetRawDataSize() != GetImageDataSize()) {
    return false;
  }
  nk::Picture out{m_iImage_Width, m_iImage_Height, bpp, {}};
  out.pixels.resize(static_cast<std::size_t>(GetImageDataSize()));
  const auto stride = static_cast<std::size_t>(row_bytes);
  for (int row = 0; row < m_iImage_Height; ++row) {
    std::memcpy(out.pixels.data() + stride * static_cast<std::size_t>(row),
                GetImageData() + stride * static_cast<std::size_t>(m_iImage_Height - 1 - row), stride);
  }
  picture = std::move(out);
  return true;
}

bool OType_Image::SetImage(int x, int y, int width, int height, int bytes_per_pixel, const unsigned char* data) {
  if (data == nullptr || !Create(x, y, width, height, bytes_per_pixel)) return false;
  if (GetImageDataSize() > 0) std::memcpy(GetImageData(), data, static_cast<std::size_t>(GetImageDataSize()));
  return true;
}

int OType_Image::iSetImage_FromRawRGBPlanes(const unsigned char* red, const unsigned char* green,
                                            const unsigned char* blue, int width, int height) {
  if (red == nullptr || green == nullptr || blue == nullptr) return 0;
  if (!Create(m_iImage_X, m_iImage_Y, width, height, 3)) return 0;
  const unsigned char* planes[3] = {red, green, blue};
  for (int row = 0; row < height; ++row) {
    unsigned char* out = GetImageData() + static_cast<std::size_t>(height - 1 - row) * width * 3;
    const std::size_t in = static_cast<std::size_t>(row) * width;
    for (int x = 0; x < width; ++x) {
      for (int c = 0; c < 3; ++c) *out++ = planes[c][in + static_cast<std::size_t>(x)];
    }
  }
  return 1;
}

bool OType_Image::CopyRGBToGrey(OType_Image* target) const {
  if (target == nullptr || target == this || m_iImageFormat != kRaw) return false;
  if (m_iImage_BytesPerPixel == 1) {
    CopyTo(target);
    return true;
  }
  if (m_iImage_BytesPerPixel != 3) return false;
  const int pixels = GetImageDataSize() / 3;
  OType_Image grey(*this);
  grey.m_oImageData.RemoveAll();
  grey.m_oImageData.SetSize(pixels);
  grey.m_iImage_BytesPerPixel = 1;
  grey.UpdateDerived();
  for (int i = 0; i < pixels; ++i) grey.m_oImageData.GetData()[i] = static_cast<unsigned char>(GetPixel_Grey(3 * i));
  grey.CopyTo(target);
  target->m_oUserData = m_oUserData;
  return true;
}

bool OType_Image::SetSolidRect(int x, int y, int width, int height, unsigned int value) {
  const int bpp = m_iImage_BytesPerPixel;
  // Only pixels that the geometry and the bytes agree on are drawn.
  if (m_iImageFormat != kRaw || (bpp != 1 && bpp != 3) || width <= 0 || height <= 0 ||
      GetRawDataSize() != GetImageDataSize()) {
    return false;
  }
  const std::int64_t left = std::max<std::int64_t>(x, m_iImage_X);
  const std::int64_t right = std::min<std::int64_t>(std::int64_t{x} + width, m_iImage_Right);
  const std::int64_t bottom = std::max<std::int64_t>(y, m_iImage_Y);
  const std::int64_t top = std::min<std::int64_t>(std::int64_t{y} + height, m_iImage_Top);
  if (left >= right || bottom >= top) return false;
  bool wrote = false;
  for (auto row = static_cast<int>(bottom); row < top; ++row) {
    for (auto column = static_cast<int>(left); column < right; ++column) wrote |= SetPixel(column, row, value);
  }
  return wrote;
}

bool OType_Image::SetSolidVerticalLine(int x, int y_from, int y_to, unsigned int value) {
  const int low = std::min(y_from, y_to);
  const std::int64_t length = std::int64_t{std::max(y_from, y_to)} - low + 1;
  return length <= std::numeric_limits<int>::max() && SetSolidRect(x, low, 1, static_cast<int>(length), value);
}
