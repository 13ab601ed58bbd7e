// Exercises the library from the managed side through the generated proxies:
// frames compared byte for byte with the native writer's (reference_frames),
// the argument-null messages, the dispatcher director, enumeration and text
// outside the Basic Multilingual Plane. Ends with "N passed, N failed".
//
//   mono nkfoundation_binding_test.exe <file written by reference_frames>
using System;
using System.Collections;
using System.Collections.Generic;
using System.Globalization;
using System.IO;
using System.Linq;
using System.Reflection;
using NativeInterface.NkKernel.Foundation.Base;
using static NativeInterface.NkKernel.Foundation.Base.NativeInterfaceNkKernelFoundationBase;

class ManagedDispatcher : OMessageDispatcher {
  public readonly List<string> Received = new List<string>();

  public override int DispatchMessageData_Sync(uint msg, int data, bool both) {
    Received.Add(msg + "/" + data + "/" + both);
    return 7;
  }

  public override int GetDispatcherType() => (int)MessageDispatcherType.kManaged;
}

static partial class BindingTest {
  static int passed;
  static int failed;
  static Dictionary<string, string> reference;  // object name -> the native frame in hex

  static void Check(string name, bool ok, string detail = "") {
    if (ok) {
      ++passed;
    } else {
      ++failed;
      Console.WriteLine("FAILED: " + name + (detail.Length > 0 ? ": " + detail : ""));
    }
  }

  static string Text(object value) => string.Format(CultureInfo.InvariantCulture, "{0}", value);

  // Compares the texts of two values, so that a failure shows both.
  static void Same(string name, object actual, object expected) {
    Check(name, Text(actual) == Text(expected), "\"" + Text(actual) + "\", expected \"" + Text(expected) + "\"");
  }

  static void Run(string name, Action test) {
    try {
      test();
    } catch (Exception e) {
      Check(name, false, e.GetType().Name + ": " + e.Message);
    }
  }

  static OByteList Bytes(params byte[] values) {
    var list = new OByteList();
    foreach (byte b in values) list.Add(b);
    return list;
  }

  static string Hex(OByteList bytes) =>
      string.Concat(Enumerable.Range(0, bytes.GetCount()).Select(i => bytes.GetAt(i).ToString("x2")));

  static byte[] ParseHex(string hex) =>
      Enumerable.Range(0, hex.Length / 2).Select(i => Convert.ToByte(hex.Substring(2 * i, 2), 16)).ToArray();

  // What a foreach over a proxy list yields, comma-separated.
  static string Joined<T>(IEnumerable items, Func<T, object> text) =>
      string.Join(",", items.Cast<T>().Select(item => Text(text(item))));

  static string Frame(Func<OByteStream, bool> write) {
    using (var stream = new OByteStream_Memory()) {
      Check("AddObjectData result", write(stream));
      return Hex(stream.GetBuffer());
    }
  }

  // Writes an object and compares its frame with the native one of `name`,
  // then reads the native frame into a fresh object that must write it back.
  // The delegates let objects that are not AFactorable (the device record) in.
  static void RoundTrip(string name, Func<OByteStream, bool> write, Func<OByteStream, bool, bool> read,
                        Func<OByteStream, bool> writeBack) {
    Same(name + " frame equals the native one", Frame(write), reference[name]);
    using (var source = new OByteStream_Memory(Bytes(ParseHex(reference[name])))) {
      Check(name + " reads back", read(source, true));
    }
    Same(name + " read back writes the same frame", Frame(writeBack), reference[name]);
  }

  static void RoundTrip(string name, AFactorable written, AFactorable fresh) {
    RoundTrip(name, written.AddObjectData, fresh.GetObjectData, fresh.AddObjectData);
  }

  // Every call must throw ArgumentNullException with exactly `message`; calls
  // through reflection count by the exception they wrap.
  static void ExpectNull(string message, params Action[] calls) {
    for (int i = 0; i < calls.Length; ++i) {
      try {
        calls[i]();
        Check(message + " #" + i, false, "no exception");
      } catch (Exception e) {
        Exception thrown = e is TargetInvocationException ? e.InnerException : e;
        Same(message + " #" + i, thrown.GetType().Name + ": " + thrown.Message, "ArgumentNullException: " + message);
      }
    }
  }

  static int Main(string[] args) {
    reference = File.ReadLines(args[0]).Select(line => line.Split(' ')).ToDictionary(p => p[0], p => p[1]);

    Run("vectors", () => {
      RoundTrip("vectors", new OVector_Array { new OVector(1, 2), new OVector(-3.5, 4.25) }, new OVector_Array());
      var vectors = new OVector_Array();
      for (int i = 0; i < 5; ++i) vectors.Add(new OVector(i, 10 * i));
      Same("enumerates every element in order", Joined<OVector>(vectors, v => v.iY()), "0,10,20,30,40");
      Same("an empty array yields nothing", Joined<string>(new OStringArray(), s => s), "");
    });

    Run("texts", () => {
      string[] values = { "plain", "G-clef \U0001D11E, smile \U0001F600", "Gr\u00FC\u00DFe \u20AC" };
      var texts = new OStringArray { values[0], values[1], values[2] };
      Same("non-BMP text comes back unchanged", texts.GetAt(1), values[1]);
      RoundTrip("texts", texts, new OStringArray());
      Same("strings enumerate", Joined<string>(texts, s => s), string.Join(",", values));
    });

    Run("variant and time", () => {
      var variant = new OType_Variant();
      Same("iSetValueDirect", variant.iSetValueDirect(-1234, (int)OType_Variant.DataType.kInt32), 1);
      RoundTrip("variant", variant, new OType_Variant());
      Same("text of the value", variant.oStrGetValue(), "-1234");
      Check("bool result false", !variant.bSetValue("not a number", (int)OType_Variant.DataType.kInt32));
      Check("bool result true", variant.bSetValue("77", (int)OType_Variant.DataType.kInt32));
      var time = new OTime();
      FillTime(time);
      RoundTrip("time", time, new OTime());
    });

    Run("settings", () => {
      OType_ObjectSerializationSettings all = OType_ObjectSerializationSettings.All();
      Check("predefined set", all.m_serialize_Part_CameraImages);
      all.Dispose();  // deletes the holder only: the set itself lives on
      Check("predefined set survives its holder", OType_ObjectSerializationSettings.All().m_serialize_Part_CameraImages);
    });

    Run("null arguments", () => {
      ExpectNull("OByteStream & reference is null", () => new OType_Variant().AddObjectData(null));
      ExpectNull("OVector const & reference is null", () => new OVector(1, 1).Plus((OVector)null));
      ExpectNull("OType_Image const & reference is null", () => new OType_Image((OType_Image)null));
      ExpectNull("null u16string", () => new OType_Variant().bSetValue(null, 0),
                 () => new OType_Image().Create((string)null));
      ExpectNull("OByteList const & reference is null", () => new OByteStream_Memory((OByteList)null),
                 () => new OType_GreyLine_Array().AddGreyLine_Z2_Package(null),
                 () => iByteArrayToAsciiString(null, out _));
      ExpectNull("Attempt to dereference null COleDateTime", () => new OTime().SetOleTime(null));
      ExpectNull("Attempt to dereference null CTime", () => new OTime().SetTime(null));
      ExpectNull("UserInteractionRequest const & type is null",
                 () => OMessageDispatcher.GetInstance().RequestUserInteraction(null));
    });

    Run("director", () => {
      var dispatcher = new ManagedDispatcher();
      OMessageDispatcher.SetInstance(dispatcher);
      OMessageDispatcher installed = OMessageDispatcher.GetInstance();
      Same("native side calls the managed override", installed.DispatchMessageData_Sync(42, 5, true), 7);
      Same("event received", string.Join(";", dispatcher.Received), "42/5/True");
      Same("dispatcher type", installed.GetDispatcherType(), 1);
      Same("not overridden: the library's answer", installed.DispatchMessage_Sync(1), -1);
      OMessageDispatcher.SetInstance(null);
      Same("uninstalled", OMessageDispatcher.GetInstance().GetDispatcherType(), 2);
    });

    RunUtilityCases();
    RunDeviceAndImageCases();

    Console.WriteLine("{0} passed, {1} failed", passed, failed);
    return failed == 0 ? 0 : 1;
  }
}
