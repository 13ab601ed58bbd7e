// OType_GreyLine: one line of grey values (one byte per pixel) that a sensor
// sends as a live profile, with the moment it arrived.
#ifndef NKFOUNDATION_IMAGE_GREY_LINE_H_
#define NKFOUNDATION_IMAGE_GREY_LINE_H_

#include <string>

#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"
#include "nkfoundation/core/time_stamp.h"

// Grey lines live only in memory, held by shared pointer in an
// OType_GreyLine_Array; they have no frame of their own.
class NKF_API OType_GreyLine {
 public:
  // The time stamp is set to the moment of construction, to the microsecond:
  // lines of a live profile arrive many per second.
  OType_GreyLine();

  // The grey values, in line order.
  WritableCollection<unsigned char, int>& GetData() { return m_oData; }
  const WritableCollection<unsigned char, int>& GetData() const { return m_oData; }

  // Empties the grey values; comment and time stamp stay.
  void RemoveAll() { m_oData.RemoveAll(); }

  std::u16string m_strComment;
  OTime m_oTimeDate;

 private:
  WritableCollection<unsigned char, int> m_oData;
};

#endif  // NKFOUNDATION_IMAGE_GREY_LINE_H_
