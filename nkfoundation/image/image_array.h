// OType_Image_Array: a serializable list of shared images, such as the
// series a sensor recorded, that compresses and decompresses its images as
// one job with progress.
#ifndef NKFOUNDATION_IMAGE_IMAGE_ARRAY_H_
#define NKFOUNDATION_IMAGE_IMAGE_ARRAY_H_

#include <cstdint>
#include <memory>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/object_array.h"
#include "nkfoundation/core/object_ids.h"
#include "nkfoundation/image/image.h"

class AProgressCtrl;

// Wire form: selected index (i32), process step (i32), source reference
// (i32), selection mark (bool), u32 count, each image's frame, the tail.
// Nothing, not even the count, is read from a payload under 17 bytes, the
// size of those fields. Reading appends to the images already held; an
// image that does not read ends the list and fails the read unless it ended
// exactly at the array's end.
class NKF_API OType_Image_Array : public nk::ObjectArray<OType_Image_Array, std::shared_ptr<OType_Image>> {
 public:
  static constexpr nk::FrameRules kFrame{nk::object_id::kImageArray, 3 * 4 + 1 + 4};

  // The number of raw images, that is, the steps iCompressImageData reports.
  int iGetCompressProgressSteps() const;
  // The number of compressed images, the steps of iDeCompressImageData.
  int iGetDeCompressProgressSteps() const;

  // Compresses every raw image in index order (empty entries skipped) after
  // giving back the spare capacity of its tail, advancing `progress` (may be
  // null) one step per raw image. 1 when every image ends compressed, 0
  // when memory ran out for one of them (the others are still converted).
  int iCompressImageData(AProgressCtrl* progress);
  // The way back to raw pixels, one step per compressed image.
  int iDeCompressImageData(AProgressCtrl* progress);

  // Replaces the target's images with copies of these (empty entries stay
  // empty), its own fields and its tail with this one's.
  void CopyTo(OType_Image_Array* target) const;

  // The image shown or worked on, -1 for none.
  std::int32_t m_iSelectedIndex = -1;
  // The processing step at which the series was taken.
  std::int32_t m_iImage_ProcessStep = 0;
  // Where the series came from; -200 for no source, as for a single image.
  std::int32_t m_sourceReference = -200;
  bool m_isSelected = false;

  using LeadingFields =
      nk::FieldList<&OType_Image_Array::m_iSelectedIndex, &OType_Image_Array::m_iImage_ProcessStep,
                    &OType_Image_Array::m_sourceReference, &OType_Image_Array::m_isSelected>;

 private:
  int ConvertAll(int from_format, int to_format, AProgressCtrl* progress);
  int CountInFormat(int format) const;
};

#endif  // NKFOUNDATION_IMAGE_IMAGE_ARRAY_H_
