// The device and image cases of the managed binding test: device records,
// images and their arrays built through the proxies and compared byte for
// byte with the native frames, their enumerators, the lists' move
// constructors, grey-line packages, colour conversion, picture files under a
// non-ASCII name, and the argument-null messages of these classes.
using System;
using System.Collections.Generic;
using System.IO;
using NativeInterface.NkKernel.Foundation.Base;

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

  static string DeviceFrame(OType_DeviceInfo device) {
    using (var stream = new OByteStream_Memory()) {
      Check("device AddObjectData result", device.AddObjectData(stream));
      return Hex(stream.GetBuffer());
    }
  }

  static OByteList Bytes(params byte[] values) {
    var list = new OByteList();
    foreach (byte b in values) list.Add(b);
    return list;
  }

  static void RunDeviceAndImageCases() {
    Run("device record", () => {
      OType_DeviceInfo device = Device(7);
      string frame = DeviceFrame(device);
      Check("device frame equals the native one", frame == reference["device"], frame);
      var fresh = new OType_DeviceInfo();
      using (var source = new OByteStream_Memory(Bytes(ParseHex(frame)))) {
        Check("device reads back", fresh.GetObjectData(source, true));
      }
      Check("device read back writes the same frame", DeviceFrame(fresh) == reference["device"]);
      Check("device firmware text", fresh.GetFirmwareVersion() == "2.1.0.7", fresh.GetFirmwareVersion());
      Check("non-BMP text through UTF-8 and back", fresh.GetProductType_NOCCode() == "NOC \U0001F600",
            fresh.GetProductType_NOCCode());
    });

    Run("device array", () => {
      var devices = new OType_DeviceInfoArray();
      devices.Add(Device(1));
      devices.Add(Device(2));
      RoundTrip("devices", devices, new OType_DeviceInfoArray());
      var versions = new List<string>();
      foreach (OType_DeviceInfo d in devices) versions.Add(d.GetFirmwareVersion());
      Check("device records enumerate", string.Join(",", versions) == "2.1.0.1,2.1.0.2", string.Join(",", versions));
      var moved = new OType_DeviceInfoArray(devices);
      Check("move takes the records", moved.GetCount() == 2 && devices.GetCount() == 0);
      Check("moved records write the same frame", Frame(moved) == reference["devices"]);
    });

    Run("image", () => {
      OType_Image image = GreyImage();
      RoundTrip("image", image, new OType_Image());
      Check("grey pixel", image.GetPixel_Grey(5) == 100, image.GetPixel_Grey(5).ToString());
      Check("copy constructor", Frame(new OType_Image(image)) == reference["image"]);
      Check("pixel bytes", Hex(image.CopyImageData()) == "0014283c5064788ca0b4c8dc", Hex(image.CopyImageData()));
      Check("short pixel buffer refused", !image.SetImage(0, 0, 4, 3, 1, Bytes(1, 2, 3)));
    });

    Run("image array", () => {
      var images = new OType_Image_Array();
      images.Add(GreyImage());
      images.Add(ColourImage());
      images.iCompressImageData(null);
      var fresh = new OType_Image_Array();
      RoundTrip("images", images, fresh);
      Check("enumerator name", images.GetEnumerator() is OImagePtrListEnumerator);
      var names = new List<string>();
      foreach (OType_Image image in fresh) names.Add(image.m_name + "/" + image.m_iImageFormat);
      Check("images enumerate, compressed", string.Join(",", names) == "/2,colour/2", string.Join(",", names));
      fresh.iDeCompressImageData(null);
      Check("colour pixel after decompression", fresh.GetAt(1).GetPixel(3) == 0x4080c0u,
            fresh.GetAt(1).GetPixel(3).ToString("x"));
      var moved = new OType_Image_Array(fresh);
      Check("move takes the images", moved.GetCount() == 2 && fresh.GetCount() == 0);
    });

    Run("grey lines", () => {
      var lines = new OType_GreyLine_Array();
      OType_GreyLine line = lines.AddGreyLine_ZE_Package(Bytes(0, 1, 2, 250));
      Check("ZE package line", line != null && Hex(line.GetData()) == "000102fa");
      Check("too short a Z2 package", lines.AddGreyLine_Z2_Package(Bytes(1, 2, 3)) == null);
      int count = 0;
      foreach (OType_GreyLine l in lines) count += l.GetData().GetCount();
      Check("lines enumerate", count == 4, count.ToString());
      var moved = new OType_GreyLine_Array(lines);
      Check("move takes the lines", moved.GetCount() == 1 && lines.GetCount() == 0 && moved.GetAt(0).Equals(line));
    });

    Run("colour conversion", () => {
      ushort hue;
      double saturation, value;
      NativeInterfaceNkKernelFoundationBase.ConvertRgbToHsv(0, 255, 0, out hue, out saturation, out value);
      Check("hue in degrees", hue == 120 && saturation == 1.0 && value == 1.0,
            string.Format("{0} {1} {2}", hue, saturation, value));
      ushort fastHue, fastSaturation, fastValue;
      NativeInterfaceNkKernelFoundationBase.FastConvertRgbToHsv(0, 0, 255, out fastHue, out fastSaturation, out fastValue);
      Check("hue on the device's circle", fastHue == 160 && fastSaturation == 256 && fastValue == 255,
            string.Format("{0} {1} {2}", fastHue, fastSaturation, fastValue));
    });

    Run("picture file", () => {
      string path = Path.Combine(Path.GetTempPath(), "nkf gr\u00FCn \U0001F600 " + Guid.NewGuid() + ".bmp");
      var picture = new Picture();
      Check("to picture", GreyImage().ToPicture(picture));
      Check("written", NativeInterfaceNkKernelFoundationBase.WritePictureFile(path, picture) == PictureStatus.kOk);
      try {
        Check("file under its UTF-16 name", File.Exists(path));
        var read = new OType_Image();
        Check("read back", read.Create(path));
        Check("pixels survive the file", Hex(read.CopyImageData()) == Hex(GreyImage().CopyImageData()),
              Hex(read.CopyImageData()));
      } finally {
        File.Delete(path);
      }
    });

    Run("device and image null arguments", () => {
      ExpectNull("image", "OType_Image const & reference is null", () => new OType_Image((OType_Image)null));
      ExpectNull("package", "OByteList const & reference is null",
                 () => new OType_GreyLine_Array().AddGreyLine_Z2_Package(null));
      ExpectNull("file name", "null u16string", () => new OType_Image().Create((string)null));
      var moves = new Dictionary<string, Action> {
        {"OType_DeviceDiagnostic", () => new OType_DeviceDiagnosticArray((OType_DeviceDiagnosticArray)null)},
        {"OType_CheckProgramInfoItem", () => new OType_CheckProgramInfoItemArray((OType_CheckProgramInfoItemArray)null)},
        {"OType_Image", () => new OType_Image_Array((OType_Image_Array)null)},
        {"OType_Device_Camera_InfoItem",
         () => new OType_Device_Camera_InfoItemArray((OType_Device_Camera_InfoItemArray)null)},
        {"OType_GreyLine", () => new OType_GreyLine_Array((OType_GreyLine_Array)null)},
        {"OType_DeviceInfo", () => new OType_DeviceInfoArray((OType_DeviceInfoArray)null)},
      };
      foreach (var move in moves) {
        ExpectNull("move of " + move.Key, MovedNullMessage("std::shared_ptr< " + move.Key + " >"), move.Value);
      }
    });
  }

  static byte[] ParseHex(string hex) {
    var bytes = new byte[hex.Length / 2];
    for (int i = 0; i < bytes.Length; ++i) bytes[i] = Convert.ToByte(hex.Substring(2 * i, 2), 16);
    return bytes;
  }
}
