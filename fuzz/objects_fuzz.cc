// Feeds arbitrary bytes to the value objects as frames, and to the variant as
// text. Every class must read or refuse without harm, and what it read must
// survive its round trip; a variant that holds a value of its type must read
// its own text back.
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/round_trip.h"
#include "nkfoundation/core/application_serialization_data.h"
#include "nkfoundation/core/serialization_settings.h"
#include "nkfoundation/core/string_array.h"
#include "nkfoundation/core/time_stamp.h"
#include "nkfoundation/core/variant.h"
#include "nkfoundation/core/variant_array.h"
#include "nkfoundation/device/device_info.h"
#include "nkfoundation/device/camera_info_item.h"
#include "nkfoundation/device/check_program_info.h"
#include "nkfoundation/device/compatibility.h"
#include "nkfoundation/device/device_diagnostic.h"
#include "nkfoundation/device/part_set_protection.h"
#include "nkfoundation/device/project_properties.h"
#include "nkfoundation/geometry/vector.h"
#include "nkfoundation/geometry/vector_array.h"
#include "nkfoundation/image/image.h"
#include "nkfoundation/image/image_array.h"
#include "nkfoundation/services/processing_time.h"
#include "nkfoundation/services/processing_time_array.h"

namespace {

using nk::fuzz::Check;
using nk::fuzz::ReadObject;
using nk::fuzz::Serialize;

// The settings write six bytes fewer than they announce. Alone in a stream
// their frame still reads back, up to the stream's end, to the same bytes.
void ReadSettings(OByteStream& stream) {
  OType_ObjectSerializationSettings settings;
  if (!settings.GetObjectData(stream, true)) return;
  const std::vector<std::uint8_t> written = Serialize(settings);
  Check(written.size() + 6 == settings.GetObjectSize());
  OByteStream_Memory again(written.data(), written.size());
  OType_ObjectSerializationSettings copy;
  Check(copy.GetObjectData(again, true) && again.GetRemaining() == 0);
  Check(Serialize(copy) == written);
}

// The inverse of the display text, for every value a variant of the type
// can hold. Texts that name no single value are exempt.
void ReadOwnText(const OType_Variant& read) {
  OType_Variant variant;
  if (variant.iSetValueDirect(read.dGetValue(), read.iGetType()) == 0) return;
  const std::u16string text = variant.oStrGetValue();
  if (text.empty() || text == u"Invalid DateTime") return;
  OType_Variant back;
  Check(back.bSetValue(text, variant.iGetType()));
  Check(back.oStrGetValue() == text);
}

// The device record is a plain value outside the object protocol, with the
// same promises; its retired byte is written as 0 and skipped on reading,
// so a round trip of what it wrote is exact.
void ReadDeviceInfo(OByteStream& stream) {
  OType_DeviceInfo info;
  if (!info.GetObjectData(stream, true)) return;
  OByteStream_Memory written;
  info.AddObjectData(written);
  Check(written.GetLength() == info.GetObjectSize());
  OType_DeviceInfo copy;
  Check(copy.GetObjectData(written, true) && written.GetRemaining() == 0);
  OByteStream_Memory again;
  copy.AddObjectData(again);
  using Bytes = std::vector<std::uint8_t>;
  Check(static_cast<const Bytes&>(again.GetBuffer()) == static_cast<const Bytes&>(written.GetBuffer()));
}

void ReadVariantText(OByteStream& stream) {
  OType_Variant variant;
  if (variant.GetObjectData(stream, true)) ReadOwnText(variant);
}

// Whatever geometry and format an image claims, its accessors stay within
// its bytes and its compressed pixels decode without harm.
void ReadImagePixels(OByteStream& stream) {
  OType_Image image;
  if (!image.GetObjectData(stream, true)) return;
  image.iConvertData(OType_Image::kFormatRaw);
  // One before right and top, wrapping as the wire's 32-bit values do.
  const int last_x = static_cast<int>(std::int64_t{image.GetImage_Right()} - 1);
  const int last_y = static_cast<int>(std::int64_t{image.GetImage_Top()} - 1);
  const int corners[][2] = {{image.GetImage_X(), image.GetImage_Y()}, {last_x, last_y}, {image.GetImage_X(), last_y}};
  for (const auto& corner : corners) {
    image.GetPixel_Grey(corner[0], corner[1]);
    image.GetPixel_CompH(corner[0], corner[1]);
    image.SetPixel(corner[0], corner[1], 0x123456u);
  }
  for (int index : {0, image.GetImageDataSize() - 3, image.GetImageDataSize() - 1}) image.GetPixel(index);
  nk::Picture picture;
  if (image.ToPicture(picture)) Check(picture.IsValid());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (void (*read)(OByteStream&) :
       {&ReadObject<OType_ProcessingTime>, &ReadObject<OType_ProcessingTimeArray>,
        &ReadDeviceInfo, &ReadObject<OType_DeviceInfoArray>,
        &ReadObject<OType_Variant>, &ReadVariantText, &ReadObject<OType_VariantArray>, &ReadObject<OVector>, &ReadObject<OVector_Array>,
        &ReadObject<OStringArray>, &ReadObject<OTime>, &ReadObject<OType_Image>,
        &ReadObject<OType_Image_Array>, &ReadImagePixels, &ReadObject<OType_ApplicationSerializationData>,
        &ReadSettings, &ReadObject<OType_Compatibility>, &ReadObject<OType_DeviceDiagnostic>,
        &ReadObject<OType_DeviceDiagnosticArray>, &ReadObject<OType_ProjectProperties>,
        &ReadObject<OType_PartSet_Protection>, &ReadObject<OType_CheckProgramInfoItem>,
        &ReadObject<OType_CheckProgramInfoItemArray>, &ReadObject<OType_Device_Camera_InfoItem>,
        &ReadObject<OType_Device_Camera_InfoItemArray>}) {
    OByteStream_Memory frame(data, size);
    read(frame);
  }

  // The bytes as text, one character each, read as every type.
  const std::u16string text(data, data + size);
  for (int type = -1; type <= 21; ++type) {
    OType_Variant variant;
    if (variant.bSetValue(text, type)) ReadOwnText(variant);
  }
  return 0;
}
