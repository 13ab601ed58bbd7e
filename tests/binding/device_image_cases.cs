// The device and image cases of the managed binding test: device records,
// images and their arrays built through the proxies and compared byte for
// byte with the native frames, their enumerators and moves, grey-line
// packages, colour conversion and picture files under a non-ASCII name.
using System;
using System.IO;
using NativeInterface.NkKernel.Foundation.Base;
using static NativeInterface.NkKernel.Foundation.Base.NativeInterfaceNkKernelFoundationBase;

static partial class BindingTest {
  // The same objects as reference_frames.cc builds.
  static void FillTime(OTime time) {
    time.m_iYear = 2021;
    time.m_iMonth = 7;
    time.m_iDayOfMonth = 14;
    time.m_iHours = 9;
    time.m_iMinutes = 30;
    time.m_iSeconds = 5;
    time.m_iMicroSeconds = 250000;
  }

  static OType_DeviceInfo Device(int build) {
    var device = new OType_DeviceInfo();
    device.SetFirmwareVersion("2.1.0." + build);
    device.SetProductType_NOCCode("NOC \U0001F600");
    device.m_oUserData.Add(0xA5);
    return device;
  }

  static OType_Image GreyImage() {
    var image = new OType_Image();
    image.Create(0, 0, 4, 3, 1);
    for (int i = 0; i < 12; ++i) image.SetPixel_Grey(i, i * 20);
    image.m_strComment = "ramp \U0001D11E";
    image.m_iImage_ProcessStep = 3;
    FillTime(image.m_oAcquisition_TimeDate);
    return image;
  }

  static OType_Image ColourImage() {
    var image = new OType_Image();
    image.Create(5, 6, 2, 2, 3);
    for (int i = 0; i < 4; ++i) image.SetPixel(i, 0x102030u * (uint)(i + 1));
    image.m_name = "colour";
    FillTime(image.m_oAcquisition_TimeDate);
    return image;
  }

  const string GreyRampPixels = "0014283c5064788ca0b4c8dc";

  static void RunDeviceAndImageCases() {
    Run("devices", () => {
      OType_DeviceInfo device = Device(7), fresh = new OType_DeviceInfo();
      RoundTrip("device", device.AddObjectData, fresh.GetObjectData, fresh.AddObjectData);
      Same("device firmware text", fresh.GetFirmwareVersion(), "2.1.0.7");
      Same("non-BMP text through UTF-8 and back", fresh.GetProductType_NOCCode(), "NOC \U0001F600");
      var devices = new OType_DeviceInfoArray { Device(1), Device(2) };
      RoundTrip("devices", devices, new OType_DeviceInfoArray());
      Same("device records enumerate", Joined<OType_DeviceInfo>(devices, d => d.GetFirmwareVersion()), "2.1.0.1,2.1.0.2");
      Same("moved records write the same frame", Frame(new OType_DeviceInfoArray(devices).AddObjectData),
           reference["devices"]);
    });

    Run("images", () => {
      OType_Image image = GreyImage();
      RoundTrip("image", image, new OType_Image());
      Same("grey pixel", image.GetPixel_Grey(5), 100);
      Same("copy constructor", Frame(new OType_Image(image).AddObjectData), reference["image"]);
      Same("pixel bytes", Hex(image.CopyImageData()), GreyRampPixels);
      Check("short pixel buffer refused", !image.SetImage(0, 0, 4, 3, 1, Bytes(1, 2, 3)));
      var images = new OType_Image_Array { GreyImage(), ColourImage() };
      images.iCompressImageData(null);
      var fresh = new OType_Image_Array();
      RoundTrip("images", images, fresh);
      Check("enumerator name", images.GetEnumerator() is OImagePtrListEnumerator);
      Same("images enumerate, compressed", Joined<OType_Image>(fresh, i => i.m_name + "/" + i.m_iImageFormat),
           "/2,colour/2");
      fresh.iDeCompressImageData(null);
      Same("colour pixel after decompression", fresh.GetAt(1).GetPixel(3).ToString("x"), "4080c0");
    });

    Run("grey lines", () => {
      var lines = new OType_GreyLine_Array();
      OType_GreyLine line = lines.AddGreyLine_ZE_Package(Bytes(0, 1, 2, 250));
      Same("ZE package line", Hex(line.GetData()), "000102fa");
      Check("too short a Z2 package", lines.AddGreyLine_Z2_Package(Bytes(1, 2, 3)) == null);
      Same("lines enumerate", Joined<OType_GreyLine>(lines, l => Hex(l.GetData())), "000102fa");
      Check("the moved line is the one added", new OType_GreyLine_Array(lines).GetAt(0).Equals(line));
    });

    Run("colour conversion", () => {
      ConvertRgbToHsv(0, 255, 0, out ushort hue, out double saturation, out double value);
      Same("hue in degrees", string.Join(" ", hue, saturation, value), "120 1 1");
      FastConvertRgbToHsv(0, 0, 255, out ushort fastHue, out ushort fastSaturation, out ushort fastValue);
      Same("hue on the device's circle", string.Join(" ", fastHue, fastSaturation, fastValue), "160 256 255");
    });

    Run("picture file", () => {
      string path = Path.Combine(Path.GetTempPath(), "nkf gr\u00FCn \U0001F600 " + Guid.NewGuid() + ".bmp");
      var picture = new Picture();
      Check("to picture", GreyImage().ToPicture(picture));
      Same("written", WritePictureFile(path, picture), PictureStatus.kOk);
      try {
        Check("file under its UTF-16 name", File.Exists(path));
        var read = new OType_Image();
        Check("read back", read.Create(path));
        Same("pixels survive the file", Hex(read.CopyImageData()), GreyRampPixels);
      } finally {
        File.Delete(path);
      }
    });
  }
}
