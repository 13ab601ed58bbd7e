// Images: the image record with its pixel access and storage, image arrays,
// grey lines of a live profile, picture files and colour conversion.

%{
#include "nkfoundation/core/text.h"
#include "nkfoundation/image/color.h"
#include "nkfoundation/image/grey_line.h"
#include "nkfoundation/image/grey_line_array.h"
#include "nkfoundation/image/image.h"
#include "nkfoundation/image/image_array.h"
#include "nkfoundation/image/picture.h"
#include "nkfoundation/image/picture_codecs.h"

// A file name from the managed side, through UTF-8. A path built straight
// from UTF-16 would instantiate the standard library's converter class, and
// its type information would leave the library as a public symbol; from
// char8_t the path only copies on POSIX and converts to UTF-16 on Windows.
static std::filesystem::path NkfPathFromUtf16(const char16_t* text) {
  const std::string utf8 = nk::ToUtf8(text);
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}
%}

%include <std_vector.i>

// File names cross as text, UTF-16 like every other text of the library.
%apply const std::u16string& { const std::filesystem::path& };
%typemap(in, canthrow=1) const std::filesystem::path& (std::filesystem::path temp)
%{ if (!$input) {
    SWIG_CSharpSetPendingExceptionArgument(SWIG_CSharpArgumentNullException, "null u16string", 0);
    return $null;
  }
  temp = NkfPathFromUtf16($input);
  $1 = &temp; %}

// Encoded picture files and plain pixel buffers.
%template(OByteVector) std::vector<std::uint8_t>;

// --- Colour conversion ------------------------------------------------------

// The results come back through C# out parameters.
%apply unsigned short& OUTPUT { std::uint16_t& hue, std::uint16_t& saturation, std::uint16_t& value };
%apply double& OUTPUT { double& hue, double& saturation, double& value, double& alpha };
%include "nkfoundation/image/color.h"
%clear std::uint16_t& hue, std::uint16_t& saturation, std::uint16_t& value;
%clear double& hue, double& saturation, double& value, double& alpha;

// --- Picture files ----------------------------------------------------------

// The managed side holds file bytes in a vector, not behind a raw pointer:
// each reader of bytes has a twin of the same name that takes one.
%ignore nk::SniffPictureFormat(const std::uint8_t*, std::size_t);
%ignore nk::DecodePicture(const std::uint8_t*, std::size_t, Picture&);
%ignore nk::DecodeBmp(const std::uint8_t*, std::size_t, Picture&);
%ignore nk::DecodePnm(const std::uint8_t*, std::size_t, Picture&);
%ignore nk::DecodeJpeg(const std::uint8_t*, std::size_t, Picture&);
%ignore nk::DecodePng(const std::uint8_t*, std::size_t, Picture&);
%include "nkfoundation/image/picture.h"
%include "nkfoundation/image/picture_codecs.h"

%define NKF_PICTURE_DECODER(NAME)
%inline %{
namespace nk {
inline PictureStatus NAME(const std::vector<std::uint8_t>& bytes, Picture& picture) {
  return NAME(bytes.data(), bytes.size(), picture);
}
}  // namespace nk
%}
%enddef
NKF_PICTURE_DECODER(DecodePicture)
NKF_PICTURE_DECODER(DecodeBmp)
NKF_PICTURE_DECODER(DecodePnm)
NKF_PICTURE_DECODER(DecodeJpeg)
NKF_PICTURE_DECODER(DecodePng)
%inline %{
namespace nk {
inline PictureFormat SniffPictureFormat(const std::vector<std::uint8_t>& bytes) {
  return SniffPictureFormat(bytes.data(), bytes.size());
}
}  // namespace nk
%}

// --- Image ------------------------------------------------------------------

NKF_FRAMED(OType_Image)
%ignore OType_Image::kFrame;
%ignore OType_Image::Fields;
%newobject OType_Image::opCreateCopy;
// The pixel bytes cross as byte lists; pointers into the image stay native.
%ignore OType_Image::GetImageData;
%ignore OType_Image::MemSet;
%ignore OType_Image::SetImage(int, int, int, int, int, const unsigned char*);
%ignore OType_Image::iSetImage_FromRawRGBPlanes(const unsigned char*, const unsigned char*, const unsigned char*,
                                                int, int);
// The status of a refused picture has no managed form; the managed side
// reads the file with ReadPictureFile when it needs the reason.
%ignore OType_Image::CreateDataFromPicture(const std::filesystem::path&, bool, nk::PictureStatus*);
%extend OType_Image {
  // A copy of the pixel bytes as stored (raw or compressed).
  WritableCollection<std::uint8_t> CopyImageData() const {
    WritableCollection<std::uint8_t> bytes;
    bytes.Copy($self->GetImageData(), $self->GetImageDataSize());
    return bytes;
  }
  // False, as for a short buffer, when `data` holds fewer bytes than the
  // geometry needs.
  bool SetImage(int x, int y, int width, int height, int bytes_per_pixel,
                const WritableCollection<std::uint8_t>& data) {
    std::int64_t needed = OType_Image::RawDataSize(width, height, bytes_per_pixel);
    if (needed < 0 || data.GetCount() < needed) return false;
    return $self->SetImage(x, y, width, height, bytes_per_pixel, data.GetData());
  }
  // 0, as for any refused plane set, when a plane is shorter than
  // width x height.
  int iSetImage_FromRawRGBPlanes(const WritableCollection<std::uint8_t>& red,
                                 const WritableCollection<std::uint8_t>& green,
                                 const WritableCollection<std::uint8_t>& blue, int width, int height) {
    std::int64_t needed = OType_Image::RawDataSize(width, height, 1);
    if (needed < 0 || red.GetCount() < needed || green.GetCount() < needed || blue.GetCount() < needed) {
      return 0;
    }
    return $self->iSetImage_FromRawRGBPlanes(red.GetData(), green.GetData(), blue.GetData(), width, height);
  }
}
%include "nkfoundation/image/image.h"

// The image list of the managed front end is known as OImagePtrList; its
// enumerator keeps that name.
NKF_OBJECT_ARRAY_AS(OType_Image_Array, std::shared_ptr<OType_Image>, OImagePtrListEnumerator)
NKF_MOVABLE_ARRAY(OType_Image_Array, std::shared_ptr<OType_Image>)
%ignore OType_Image_Array::kFrame;
%ignore OType_Image_Array::LeadingFields;
%include "nkfoundation/image/image_array.h"

// --- Grey lines ---------------------------------------------------------------

// The grey-line headers spell the byte list with its index type: the same
// list as OByteList, which SWIG does not see through on its own.
%typemap(cstype) WritableCollection<unsigned char, int>&, const WritableCollection<unsigned char, int>& "OByteList"
%typemap(csin) WritableCollection<unsigned char, int>&, const WritableCollection<unsigned char, int>&
  "OByteList.getCPtr($csinput)"
%typemap(csout, excode=SWIGEXCODE) WritableCollection<unsigned char, int>& {
    OByteList ret = new OByteList($imcall, $owner);$excode
    return ret;
  }
%apply const WritableCollection<std::uint8_t>& { const WritableCollection<unsigned char, int>& };

NKF_SHARED(OType_GreyLine)
// The const twin of GetData is the same list on the managed side.
%ignore OType_GreyLine::GetData() const;
%include "nkfoundation/image/grey_line.h"

NKF_SHARED(WritableCollection<std::shared_ptr<OType_GreyLine> >)
NKF_ENUMERABLE(OType_GreyLine_Array, std::shared_ptr<OType_GreyLine>)
NKF_MOVABLE_ARRAY(OType_GreyLine_Array, std::shared_ptr<OType_GreyLine>)
%template(OType_GreyLine_ArrayBase) WritableCollection<std::shared_ptr<OType_GreyLine> >;
%ignore OType_GreyLine_Array::AddGreyLine_ZE_Package(const char*, int);
%extend OType_GreyLine_Array {
  // A ZE package is binary: it arrives as a byte list, not as text.
  std::shared_ptr<OType_GreyLine> AddGreyLine_ZE_Package(const WritableCollection<std::uint8_t>& package) {
    return $self->AddGreyLine_ZE_Package(reinterpret_cast<const char*>(package.GetData()), package.GetCount());
  }
}
%include "nkfoundation/image/grey_line_array.h"
