// OType_Image: the serializable image record. A rectangle of pixels placed
// at an offset in sensor coordinates, its pixel bytes (raw, or compressed by
// OCompress), a name, a comment, the acquisition time, the processing step
// it came from and a reference to its source.
#ifndef NKFOUNDATION_IMAGE_IMAGE_H_
#define NKFOUNDATION_IMAGE_IMAGE_H_

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"
#include "nkfoundation/core/field_list.h"
#include "nkfoundation/core/object_ids.h"
#include "nkfoundation/core/time_stamp.h"
#include "nkfoundation/image/picture.h"

class OVector;
class OVector_Array;

// Pixel layout: 1 byte per pixel (grey) or 3 (red, green, blue), rows
// bottom-up as in a Windows bitmap: the last row (y = Y + height - 1) comes
// first. The byte index of pixel (x, y) is
//   ((Y + height - 1 - y) * width + (x - X)) * bytes per pixel.
// Accessors answer kInvalidPixel (the most negative 32-bit integer) for a
// position outside the image or a pixel size other than 1 or 3.
//
// Wire form: process step, format, bytes per pixel, X, Y, width, height
// (i32 each), u32 pixel byte count and the bytes as stored, name, comment,
// the acquisition time as a nested OTime frame, source reference (i32), then
// the tail. A frame with less than 48 bytes of payload is an older record:
// nothing is read, the time becomes now and name and comment are cleared.
class NKF_API OType_Image : public nk::Framed<OType_Image> {
 public:
  static constexpr nk::FrameRules kFrame{nk::object_id::kImage, 48};
  static constexpr std::int32_t kInvalidPixel = INT32_MIN;
  static constexpr int kFormatRaw = 0;
  static constexpr int kFormatCompressed = 2;

  OType_Image();
  // Copies everything but the tail and the busy flag.
  OType_Image(const OType_Image& other);
  // Does nothing while either image is busy being created.
  OType_Image& operator=(const OType_Image& other);

  // --- Geometry ------------------------------------------------------------

  int GetImage_X() const { return m_iImage_X; }
  int GetImage_Y() const { return m_iImage_Y; }
  int GetImage_Width() const { return m_iImage_Width; }
  int GetImage_Height() const { return m_iImage_Height; }
  int GetImage_BytesPerPixel() const { return m_iImage_BytesPerPixel; }
  int GetImage_Right() const { return m_iImage_Right; }
  int GetImage_Top() const { return m_iImage_Top; }
  int GetDataIndexOffset() const { return m_iDataIndexOffset; }
  std::uint8_t GetBitsPerPixel() const { return static_cast<std::uint8_t>(m_iImage_BytesPerPixel * 8); }
  // No pixel bytes, or no width or height.
  bool IsEmpty() const;

  // Refuse negative values (false, nothing changed).
  bool SetImage_X(int x);
  bool SetImage_Y(int y);
  bool SetImage_Width(int width);
  bool SetImage_Height(int height);
  bool SetImage_BytesPerPixel(int bytes_per_pixel);

  // The index of the pixel's first byte, or kInvalidPixel. The vector form
  // rounds its 16.16 coordinates half up.
  int GetDataIndex(int x, int y) const;
  int GetDataIndex(const OVector& position) const;

  // --- Pixels --------------------------------------------------------------
  // Each by byte index, by (x, y) and by vector. The index forms check the
  // index against the pixel bytes; the others check the position first.

  // Grey g as g * 0x010101; colour as r + 256 g + 65536 b.
  unsigned int GetPixel(int index) const;
  unsigned int GetPixel(int x, int y) const;
  unsigned int GetPixel(const OVector& position) const;
  // Grey as is; colour as the rounded mean (r + g + b + 1) / 3.
  int GetPixel_Grey(int index) const;
  int GetPixel_Grey(int x, int y) const;
  int GetPixel_Grey(const OVector& position) const;
  // The fast hue (color::FastConvertRgbToHsvHue) of a colour pixel; 0 for grey.
  int GetPixel_CompH(int index) const;
  int GetPixel_CompH(int x, int y) const;
  int GetPixel_CompH(const OVector& position) const;
  // Writes the low byte (grey) or the three low bytes (colour). For another
  // pixel size it writes nothing and still answers true.
  bool SetPixel(int index, unsigned int value);
  bool SetPixel(int x, int y, unsigned int value);
  bool SetPixel(const OVector& position, unsigned int value);
  // Writes grey into all bytes of the pixel. On a grey image it writes and
  // answers false: callers must not take that false for a failure.
  bool SetPixel_Grey(int index, int grey);
  bool SetPixel_Grey(int x, int y, int grey);
  bool SetPixel_Grey(const OVector& position, int grey);
  // 1 when every byte of the pixel is 0 (black) or 255 (white), else 0.
  int IsPixelBlack(int index) const;
  int IsPixelBlack(int x, int y) const;
  int IsPixelBlack(const OVector& position) const;
  int IsPixelWhite(int index) const;
  int IsPixelWhite(int x, int y) const;
  int IsPixelWhite(const OVector& position) const;

  unsigned char* GetImageData() { return m_oImageData.GetData(); }
  const unsigned char* GetImageData() const { return m_oImageData.GetData(); }
  int GetImageDataSize() const { return m_oImageData.GetCount(); }
  void SetImageDataSize(int size) { m_oImageData.SetSize(size); }
  void FreeExtra() { m_oImageData.FreeExtra(); }
  void RemoveAll() { m_oImageData.RemoveAll(); }
  static void MemSet(void* buffer, int size, int value);
  // Width x height x bytes per pixel: the byte count of raw pixels of this
  // geometry, or -1 for a negative size or one beyond a 32-bit index.
  static std::int64_t RawDataSize(int width, int height, int bytes_per_pixel);
  std::int64_t GetRawDataSize() const { return RawDataSize(m_iImage_Width, m_iImage_Height, m_iImage_BytesPerPixel); }

  // --- Creation ------------------------------------------------------------

  // A zeroed raw image of that geometry, stamped now, process step 0. False
  // at once while another Create runs on this image, and for a negative
  // size or one beyond the 32-bit index.
  bool Create(int x, int y, int width, int height, int bytes_per_pixel);
  // The smallest grey image that holds every point, each point white on
  // black. False without points.
  bool Create(const OVector_Array& points);
  // A picture file (BMP, JPEG, PNG, PGM, PPM), placed at 0, 0.
  bool Create(const std::filesystem::path& picture_file);
  // Back to no geometry and no pixels, raw; name, comment and time stay.
  void CreateEmpty();
  // Replaces the pixels with a picture's, keeping X and Y; with `to_grey`
  // colour becomes grey by the GetPixel_Grey rule. `status`, when given,
  // says why a picture was refused.
  bool CreateDataFromPicture(const std::filesystem::path& file, bool to_grey = false,
                             nk::PictureStatus* status = nullptr);
  bool CreateDataFromPicture(const nk::Picture& picture, bool to_grey = false);
  // Pixels in this image's own bottom-up layout, width x height x bytes per
  // pixel of them.
  bool SetImage(int x, int y, int width, int height, int bytes_per_pixel, const unsigned char* data);
  // A colour image from three planes of width x height bytes each, rows
  // top-down as a sensor reads them out. 1 on success, 0 otherwise.
  int iSetImage_FromRawRGBPlanes(const unsigned char* red, const unsigned char* green,
                                 const unsigned char* blue, int width, int height);
  // A grey copy of this raw image into `target` (same place, name, time);
  // a grey image is copied as it is.
  bool CopyRGBToGrey(OType_Image* target) const;
  // Fills the part of the rectangle that lies in the image with `value` (as
  // SetPixel writes it). False when nothing lies inside, or the image is not
  // raw with 1 or 3 bytes per pixel and as many bytes as its geometry needs.
  bool SetSolidRect(int x, int y, int width, int height, unsigned int value);
  // Column x from y_from to y_to, both included, in either order.
  bool SetSolidVerticalLine(int x, int y_from, int y_to, unsigned int value);

  // The picture of a raw image, rows top-down; nothing for an empty or
  // compressed one.
  bool ToPicture(nk::Picture& picture) const;

  // --- Storage -------------------------------------------------------------

  // 0 raw, 2 compressed by OCompress. Returns 1 when the image is in
  // `target_format` afterwards; 0 for any other conversion than raw to
  // compressed or back, and when memory runs out (data and format then
  // stay as they were).
  int iConvertData(int target_format);

  // Everything but the busy flag, including the tail. With `with_data`
  // false the target gets zeroed raw pixels of the same geometry instead.
  void CopyTo(OType_Image* target, bool with_data = true) const;
  OType_Image* opCreateCopy() const;

  // Set while Create rebuilds the image.
  bool IsBusy() const { return m_bBusy.load(); }

  std::int32_t m_iImage_ProcessStep = 0;
  std::int32_t m_iImageFormat = kFormatRaw;
  std::u16string m_strComment;
  std::u16string m_name;
  OTime m_oAcquisition_TimeDate;
  std::int32_t m_sourceReference = -200;
  bool m_isSelected = false;

 protected:
  nk::FieldsRead GetFields(OByteStream& stream) override;
  void OnShortPayload() override;
  // For tests and callers that build an image in several steps.
  void SetBusy(bool busy) { m_bBusy = busy; }

 private:
  void UpdateDerived();
  // Stores a non-negative value and recomputes the derived fields.
  bool SetGeometryField(std::int32_t& field, int value);
  void CopyFieldsFrom(const OType_Image& other);
  // Creates the geometry of `picture` and fills it, under the busy flag.
  bool FillFromPicture(const nk::Picture& picture, bool to_grey);
  // The (x, y) index, or -1 outside.
  int IndexOf(int x, int y) const;
  int IndexOf(const OVector& position) const;

  std::int32_t m_iImage_Right = 0;
  std::int32_t m_iImage_Top = 0;
  std::int32_t m_iDataIndexOffset = 0;
  std::int32_t m_iImage_BytesPerPixel = 0;
  std::int32_t m_iImage_X = 0;
  std::int32_t m_iImage_Y = 0;
  std::int32_t m_iImage_Width = 0;
  std::int32_t m_iImage_Height = 0;
  WritableCollection<unsigned char, int> m_oImageData;
  std::atomic<bool> m_bBusy{false};

 public:
  using Fields =
      nk::FieldList<&OType_Image::m_iImage_ProcessStep, &OType_Image::m_iImageFormat,
                    &OType_Image::m_iImage_BytesPerPixel, &OType_Image::m_iImage_X, &OType_Image::m_iImage_Y,
                    &OType_Image::m_iImage_Width, &OType_Image::m_iImage_Height, &OType_Image::m_oImageData,
                    &OType_Image::m_name, &OType_Image::m_strComment, &OType_Image::m_oAcquisition_TimeDate,
                    &OType_Image::m_sourceReference>;
};

#endif  // NKFOUNDATION_IMAGE_IMAGE_H_
