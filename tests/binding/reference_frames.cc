// Writes the frames of the objects that the managed binding test builds, as
// the native library writes them: one "name hex" line each. The managed test
// builds the same objects through the binding and must produce these bytes.
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/core/string_array.h"
#include "nkfoundation/core/time_stamp.h"
#include "nkfoundation/core/variant.h"
#include "nkfoundation/device/device_info.h"
#include "nkfoundation/geometry/vector_array.h"
#include "nkfoundation/image/image.h"
#include "nkfoundation/image/image_array.h"

namespace {

// Any object with the protocol's writer: the device record has one without
// being an AFactorable.
template <class Object>
void PrintFrame(const char* name, Object& object) {
  OByteStream_Memory stream;
  object.AddObjectData(stream);
  std::printf("%s ", name);
  for (std::uint8_t byte : stream.GetBuffer()) std::printf("%02x", byte);
  std::printf("\n");
}

void FillTime(OTime& time) {
  time.m_iYear = 2021;
  time.m_iMonth = 7;
  time.m_iDayOfMonth = 14;
  time.m_iHours = 9;
  time.m_iMinutes = 30;
  time.m_iSeconds = 5;
  time.m_iMicroSeconds = 250000;
}

std::shared_ptr<OType_DeviceInfo> Device(int build) {
  auto device = std::make_shared<OType_DeviceInfo>();
  device->SetFirmwareVersion(u"2.1.0." + std::u16string(1, static_cast<char16_t>(u'0' + build)));
  device->SetProductType_NOCCode(u"NOC \U0001F600");
  device->m_oUserData.Add(0xA5);
  return device;
}

// A grey 4 x 3 ramp and a colour 2 x 2 image; pixels are written through the
// accessors, as the managed side does.
std::shared_ptr<OType_Image> GreyImage() {
  auto image = std::make_shared<OType_Image>();
  image->Create(0, 0, 4, 3, 1);
  for (int i = 0; i < 12; ++i) image->SetPixel_Grey(i, i * 20);
  image->m_strComment = u"ramp \U0001D11E";
  image->m_iImage_ProcessStep = 3;
  FillTime(image->m_oAcquisition_TimeDate);
  return image;
}

std::shared_ptr<OType_Image> ColourImage() {
  auto image = std::make_shared<OType_Image>();
  image->Create(5, 6, 2, 2, 3);
  for (int i = 0; i < 4; ++i) image->SetPixel(i, 0x102030u * static_cast<unsigned>(i + 1));
  image->m_name = u"colour";
  FillTime(image->m_oAcquisition_TimeDate);
  return image;
}

}  // namespace

int main() {
  OVector_Array vectors;
  vectors.Add(std::make_shared<OVector>(1, 2));
  vectors.Add(std::make_shared<OVector>(-3.5, 4.25));
  PrintFrame("vectors", vectors);

  OStringArray texts;
  texts.Add(u"plain");
  texts.Add(u"G-clef \U0001D11E, smile \U0001F600");
  texts.Add(u"Gr\u00FC\u00DFe \u20AC");
  PrintFrame("texts", texts);

  OType_Variant variant;
  variant.iSetValueDirect(-1234, OType_Variant::kInt32);
  PrintFrame("variant", variant);

  OTime time;
  FillTime(time);
  PrintFrame("time", time);

  PrintFrame("device", *Device(7));
  OType_DeviceInfoArray devices;
  devices.Add(Device(1));
  devices.Add(Device(2));
  PrintFrame("devices", devices);

  PrintFrame("image", *GreyImage());
  OType_Image_Array images;
  images.Add(GreyImage());
  images.Add(ColourImage());
  images.iCompressImageData(nullptr);
  PrintFrame("images", images);
  return 0;
}
