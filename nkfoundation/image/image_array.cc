#include "nkfoundation/image/image_array.h"

#include "nkfoundation/core/progress_ctrl.h"

int OType_Image_Array::CountInFormat(int format) const {
  int count = 0;
  for (const auto& image : *this) count += image && image->m_iImageFormat == format ? 1 : 0;
  return count;
}

int OType_Image_Array::iGetCompressProgressSteps() const { return CountInFormat(OType_Image::kFormatRaw); }

int OType_Image_Array::iGetDeCompressProgressSteps() const {
  return CountInFormat(OType_Image::kFormatCompressed);
}

int OType_Image_Array::ConvertAll(int from_format, int to_format, AProgressCtrl* progress) {
  int result = 1;
  for (const auto& image : *this) {
    if (!image) continue;
    image->m_oUserData.FreeExtra();
    if (image->m_iImageFormat != from_format) continue;
    if (image->iConvertData(to_format) == 0) result = 0;
    if (progress != nullptr) progress->Increase();
  }
  return result;
}

int OType_Image_Array::iCompressImageData(AProgressCtrl* progress) {
  return ConvertAll(OType_Image::kFormatRaw, OType_Image::kFormatCompressed, progress);
}

int OType_Image_Array::iDeCompressImageData(AProgressCtrl* progress) {
  return ConvertAll(OType_Image::kFormatCompressed, OType_Image::kFormatRaw, progress);
}

void OType_Image_Array::CopyTo(OType_Image_Array* target) const {
  if (target == nullptr || target == this) return;
  target->RemoveAll();
  for (const auto& image : *this) {
    std::shared_ptr<OType_Image> copy;
    if (image) copy.reset(image->opCreateCopy());
    target->Add(copy);
  }
  target->m_iSelectedIndex = m_iSelectedIndex;
  target->m_iImage_ProcessStep = m_iImage_ProcessStep;
  target->m_sourceReference = m_sourceReference;
  target->m_isSelected = m_isSelected;
  target->m_oUserData = m_oUserData;
}
