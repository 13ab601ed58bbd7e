#include "nkfoundation/image/image.h"

#include <array>
#include <cstring>
#include <limits>
#include <new>
#include <utility>
#include <vector>

#include "nkfoundation/geometry/vector.h"
#include "nkfoundation/image/color.h"
#include "nkfoundation/services/compress.h"

namespace {

constexpr int kInvalid = OType_Image::kInvalidPixel;
constexpr unsigned int kInvalidUnsigned = 0x80000000u;

// The rounded mean of three bytes by their sum: (s + 1) / 3, so that a
// remainder of 2 rounds up and 1 rounds down.
constexpr std::array<std::uint8_t, 766> kGreyOfSum = [] {
  std::array<std::uint8_t, 766> table{};
  for (int sum = 0; sum < 766; ++sum) table[static_cast<std::size_t>(sum)] = static_cast<std::uint8_t>((sum + 1) / 3);
  return table;
}();

std::int32_t Wrap32(std::int64_t value) { return static_cast<std::int32_t>(static_cast<std::uint32_t>(value)); }

// The vector's coordinate in whole pixels, half up; false beyond an int.
bool ToWholePixel(std::int64_t raw, int& pixel) {
  if (raw > std::numeric_limits<std::int64_t>::max() - 32768) return false;
  const std::int64_t whole = (raw + 32768) >> 16;
  if (whole < std::numeric_limits<int>::min() || whole > std::numeric_limits<int>::max()) return false;
  pixel = static_cast<int>(whole);
  return true;
}

}  // namespace

OType_Image::OType_Image() { m_oAcquisition_TimeDate.SetToCurrentTimePrecisely(); }

OType_Image::OType_Image(const OType_Image& other) : Framed() { CopyFieldsFrom(other); }

OType_Image& OType_Image::operator=(const OType_Image& other) {
  if (this != &other && !IsBusy() && !other.IsBusy()) CopyFieldsFrom(other);
  return *this;
}

void OType_Image::CopyFieldsFrom(const OType_Image& other) {
  m_iImage_ProcessStep = other.m_iImage_ProcessStep;
  m_iImageFormat = other.m_iImageFormat;
  m_strComment = other.m_strComment;
  m_name = other.m_name;
  m_oAcquisition_TimeDate = other.m_oAcquisition_TimeDate;
  m_sourceReference = other.m_sourceReference;
  m_isSelected = other.m_isSelected;
  m_iImage_BytesPerPixel = other.m_iImage_BytesPerPixel;
  m_iImage_X = other.m_iImage_X;
  m_iImage_Y = other.m_iImage_Y;
  m_iImage_Width = other.m_iImage_Width;
  m_iImage_Height = other.m_iImage_Height;
  m_oImageData = other.m_oImageData;
  UpdateDerived();
}

// --- Geometry --------------------------------------------------------------

bool OType_Image::IsEmpty() const {
  return m_oImageData.GetCount() == 0 || m_iImage_Width == 0 || m_iImage_Height == 0;
}

void OType_Image::UpdateDerived() {
  // Wire values may be anything; the derived fields wrap in 32 bits rather
  // than overflow, and the accessors' checks then refuse every position.
  m_iImage_Right = Wrap32(std::int64_t{m_iImage_X} + m_iImage_Width);
  m_iImage_Top = Wrap32(std::int64_t{m_iImage_Y} + m_iImage_Height);
  m_iDataIndexOffset = Wrap32((std::int64_t{m_iImage_Top} - 1) * m_iImage_Width - m_iImage_X);
}

bool OType_Image::SetGeometryField(std::int32_t& field, int value) {
  if (value < 0) return false;
  field = value;
  UpdateDerived();
  return true;
}

bool OType_Image::SetImage_X(int x) { return SetGeometryField(m_iImage_X, x); }
bool OType_Image::SetImage_Y(int y) { return SetGeometryField(m_iImage_Y, y); }
bool OType_Image::SetImage_Width(int width) { return SetGeometryField(m_iImage_Width, width); }
bool OType_Image::SetImage_Height(int height) { return SetGeometryField(m_iImage_Height, height); }
bool OType_Image::SetImage_BytesPerPixel(int bytes_per_pixel) {
  return SetGeometryField(m_iImage_BytesPerPixel, bytes_per_pixel);
}

int OType_Image::GetDataIndex(int x, int y) const {
  const int bpp = m_iImage_BytesPerPixel;
  if (bpp != 1 && bpp != 3) return kInvalid;
  if (x < m_iImage_X || x >= m_iImage_Right || y < m_iImage_Y || y >= m_iImage_Top) return kInvalid;
  // A wire geometry may put the pixel anywhere in 64 bits; only an index
  // that fits an int is one.
  const std::int64_t pixel = std::int64_t{m_iDataIndexOffset} - std::int64_t{m_iImage_Width} * y + x;
  if (pixel < std::numeric_limits<int>::min() || pixel > std::numeric_limits<int>::max()) return kInvalid;
  const std::int64_t index = pixel * bpp;
  if (index < std::numeric_limits<int>::min() || index > std::numeric_limits<int>::max()) return kInvalid;
  return static_cast<int>(index);
}

int OType_Image::GetDataIndex(const OVector& position) const {
  int x = 0;
  int y = 0;
  if (!ToWholePixel(position.m_llx, x) || !ToWholePixel(position.m_lly, y)) return kInvalid;
  return GetDataIndex(x, y);
}

int OType_Image::IndexOf(int x, int y) const {
  const int index = GetDataIndex(x, y);
  return index < 0 ? -1 : index;
}

int OType_Image::IndexOf(const OVector& position) const {
  const int index = GetDataIndex(position);
  return index < 0 ? -1 : index;
}

// --- Pixels ----------------------------------------------------------------

unsigned int OType_Image::GetPixel(int index) const {
  const unsigned char* data = m_oImageData.GetData();
  const int size = m_oImageData.GetCount();
  if (index < 0) return kInvalidUnsigned;
  if (m_iImage_BytesPerPixel == 1 && index < size) return data[index] * 0x010101u;
  if (m_iImage_BytesPerPixel == 3 && index < size - 2) {
    return data[index] | static_cast<unsigned int>(data[index + 1]) << 8 |
           static_cast<unsigned int>(data[index + 2]) << 16;
  }
  return kInvalidUnsigned;
}

int OType_Image::GetPixel_Grey(int index) const {
  const unsigned char* data = m_oImageData.GetData();
  const int size = m_oImageData.GetCount();
  if (index < 0) return kInvalid;
  if (m_iImage_BytesPerPixel == 1 && index < size) return data[index];
  if (m_iImage_BytesPerPixel == 3 && index < size - 2) {
    return kGreyOfSum[static_cast<std::size_t>(data[index] + data[index + 1] + data[index + 2])];
  }
  return kInvalid;
}

int OType_Image::GetPixel_CompH(int index) const {
  if (m_iImage_BytesPerPixel == 1) return 0;
  const unsigned char* data = m_oImageData.GetData();
  if (m_iImage_BytesPerPixel == 3 && index >= 0 && index < m_oImageData.GetCount() - 2) {
    return color::FastConvertRgbToHsvHue(data[index], data[index + 1], data[index + 2]);
  }
  return kInvalid;
}

bool OType_Image::SetPixel(int index, unsigned int value) {
  unsigned char* data = m_oImageData.GetData();
  const int size = m_oImageData.GetCount();
  switch (m_iImage_BytesPerPixel) {
    case 1:
      if (index < 0 || index >= size) return false;
      data[index] = static_cast<unsigned char>(value);
      return true;
    case 3:
      if (index < 0 || index >= size - 2) return false;
      data[index] = static_cast<unsigned char>(value);
      data[index + 1] = static_cast<unsigned char>(value >> 8);
      data[index + 2] = static_cast<unsigned char>(value >> 16);
      return true;
    default:
      return true;
  }
}

bool OType_Image::SetPixel_Grey(int index, int grey) {
  unsigned char* data = m_oImageData.GetData();
  const int size = m_oImageData.GetCount();
  const auto byte = static_cast<unsigned char>(grey);
  if (m_iImage_BytesPerPixel == 3 && index >= 0 && index < size - 2) {
    data[index] = data[index + 1] = data[index + 2] = byte;
    return true;
  }
  if (m_iImage_BytesPerPixel == 1 && index >= 0 && index < size) data[index] = byte;
  return false;
}

namespace {

int AllBytesAre(const WritableCollection<unsigned char, int>& pixels, int bytes_per_pixel, int index,
                unsigned char value) {
  const unsigned char* data = pixels.GetData();
  const int size = pixels.GetCount();
  if (bytes_per_pixel == 1) return index >= 0 && index < size && data[index] == value ? 1 : 0;
  if (bytes_per_pixel == 3 && index >= 0 && index < size - 2) {
    return data[index] == value && data[index + 1] == value && data[index + 2] == value ? 1 : 0;
  }
  return 0;
}

}  // namespace

int OType_Image::IsPixelBlack(int index) const { return AllBytesAre(m_oImageData, m_iImage_BytesPerPixel, index, 0); }
int OType_Image::IsPixelWhite(int index) const { return AllBytesAre(m_oImageData, m_iImage_BytesPerPixel, index, 255); }

// The position forms: the index form at the computed index, or the marker
// outside. The bool forms cannot carry the marker and answer false.
#define NKF_IMAGE_AT_POSITION(Result, Name, Const, outside)                                         \
  Result OType_Image::Name(int x, int y) Const {                                                   \
    const int index = IndexOf(x, y);                                                                \
    return index < 0 ? outside : Name(index);                                                       \
  }                                                                                                 \
  Result OType_Image::Name(const OVector& position) Const {                                        \
    const int index = IndexOf(position);                                                            \
    return index < 0 ? outside : Name(index);                                                       \
  }
NKF_IMAGE_AT_POSITION(unsigned int, GetPixel, const, kInvalidUnsigned)
NKF_IMAGE_AT_POSITION(int, GetPixel_Grey, const, kInvalid)
NKF_IMAGE_AT_POSITION(int, GetPixel_CompH, const, kInvalid)
NKF_IMAGE_AT_POSITION(int, IsPixelBlack, const, kInvalid)
NKF_IMAGE_AT_POSITION(int, IsPixelWhite, const, kInvalid)
#undef NKF_IMAGE_AT_POSITION

bool OType_Image::SetPixel(int x, int y, unsigned int value) {
  const int index = IndexOf(x, y);
  return index >= 0 && SetPixel(index, value);
}
bool OType_Image::SetPixel(const OVector& position, unsigned int value) {
  const int index = IndexOf(position);
  return index >= 0 && SetPixel(index, value);
}
bool OType_Image::SetPixel_Grey(int x, int y, int grey) {
  const int index = IndexOf(x, y);
  return index >= 0 && SetPixel_Grey(index, grey);
}
bool OType_Image::SetPixel_Grey(const OVector& position, int grey) {
  const int index = IndexOf(position);
  return index >= 0 && SetPixel_Grey(index, grey);
}

void OType_Image::MemSet(void* buffer, int size, int value) {
  if (buffer != nullptr && size > 0) std::memset(buffer, value, static_cast<std::size_t>(size));
}

std::int64_t OType_Image::RawDataSize(int width, int height, int bytes_per_pixel) {
  constexpr std::int64_t kMax = std::numeric_limits<int>::max();
  if (width < 0 || height < 0 || bytes_per_pixel < 0) return -1;
  // Each product of two 31-bit values fits 64 bits; checking the first keeps
  // the second in range too.
  const std::int64_t pixels = std::int64_t{width} * height;
  if (pixels > kMax) return -1;
  const std::int64_t size = pixels * bytes_per_pixel;
  return size > kMax ? -1 : size;
}

// --- Storage ---------------------------------------------------------------

int OType_Image::iConvertData(int target_format) {
  if (target_format == m_iImageFormat) return 1;
  using Coder = int (OCompress::*)(OCompress::Bytes&, OCompress::Bytes&);
  Coder coder = nullptr;
  if (m_iImageFormat == kFormatRaw && target_format == kFormatCompressed) {
    coder = &OCompress::iCompress_LZ77_Fast;
  } else if (m_iImageFormat == kFormatCompressed && target_format == kFormatRaw) {
    coder = &OCompress::iDeCompress_LZ77_Fast;
  } else {
    return 0;
  }
  try {
    OCompress::Bytes converted;
    (OCompress().*coder)(m_oImageData, converted);
    static_cast<std::vector<unsigned char>&>(m_oImageData).swap(converted);
    m_oImageData.FreeExtra();
  } catch (const std::bad_alloc&) {
    return 0;
  }
  m_iImageFormat = target_format;
  return 1;
}

void OType_Image::CopyTo(OType_Image* target, bool with_data) const {
  if (target == nullptr || target == this) return;
  target->CopyFieldsFrom(*this);
  target->m_oUserData = m_oUserData;
  if (with_data) return;
  target->m_iImageFormat = kFormatRaw;
  target->m_oImageData.RemoveAll();
  const std::int64_t size = GetRawDataSize();
  if (size > 0) target->m_oImageData.SetSize(static_cast<int>(size));
}

OType_Image* OType_Image::opCreateCopy() const {
  auto* copy = new OType_Image(*this);
  copy->m_oUserData = m_oUserData;
  return copy;
}

nk::FieldsRead OType_Image::GetFields(OByteStream& stream) {
  const nk::FieldsRead result = Framed::GetFields(stream);
  UpdateDerived();
  return result;
}

void OType_Image::OnShortPayload() {
  m_oAcquisition_TimeDate.SetToCurrentTimePrecisely();
  m_name.clear();
  m_strComment.clear();
}
