// Exercises the library from the managed side through the generated proxies:
// frames compared byte for byte with the native writer's (reference_frames),
// the argument-null messages, the dispatcher director, enumeration and text
// outside the Basic Multilingual Plane. Ends with "N passed, N failed".
//
//   mono nkfoundation_binding_test.exe <file written by reference_frames>
using System;
using System.Collections.Generic;
using System.IO;
using System.Text;
using NativeInterface.NkKernel.Foundation.Base;

class ManagedDispatcher : OMessageDispatcher {
  public readonly List<string> Received = new List<string>();

  public override int DispatchMessageData_Sync(uint msg, int data, bool both) {
    Received.Add(string.Format("{0}/{1}/{2}", msg, data, both));
    return 7;
  }

  public override int GetDispatcherType() {
    return (int)OMessageDispatcher.MessageDispatcherType.kManaged;
  }
}

static partial class BindingTest {
  static int passed;
  static int failed;
  static Dictionary<string, string> reference = new Dictionary<string, string>();

  static void Check(string name, bool ok, string detail = "") {
    if (ok) {
      ++passed;
    } else {
      ++failed;
      Console.WriteLine("FAILED: " + name + (detail.Length > 0 ? ": " + detail : ""));
    }
  }

  static void Run(string name, Action test) {
    try {
      test();
    } catch (Exception e) {
      Check(name, false, e.GetType().Name + ": " + e.Message);
    }
  }

  static string Hex(OByteList bytes) {
    var text = new StringBuilder();
    for (int i = 0; i < bytes.GetCount(); ++i) text.Append(bytes.GetAt(i).ToString("x2"));
    return text.ToString();
  }

  static string Frame(AFactorable obj) {
    using (var stream = new OByteStream_Memory()) {
      Check("AddObjectData result", obj.AddObjectData(stream));
      return Hex(stream.GetBuffer());
    }
  }

  // Writes `written`, compares with the native frame of `name`, reads the
  // bytes into `fresh`, and compares fresh's frame again.
  static void RoundTrip(string name, AFactorable written, AFactorable fresh) {
    string frame = Frame(written);
    Check(name + " frame equals the native one", frame == reference[name], frame + " vs " + reference[name]);
    using (var stream = new OByteStream_Memory()) {
      written.AddObjectData(stream);
      using (var source = new OByteStream_Memory(stream.GetBuffer())) {
        Check(name + " reads back", fresh.GetObjectData(source, true));
      }
    }
    Check(name + " read back writes the same frame", Frame(fresh) == reference[name]);
  }

  static void ExpectNull(string name, string message, Action call) {
    try {
      call();
      Check(name, false, "no exception");
    } catch (ArgumentNullException e) {
      Check(name, e.Message == message, "message \"" + e.Message + "\"");
    }
  }

  static int Main(string[] args) {
    foreach (string line in File.ReadAllLines(args[0])) {
      string[] parts = line.Split(' ');
      reference[parts[0]] = parts[1];
    }

    Run("vectors", () => {
      var vectors = new OVector_Array();
      vectors.Add(new OVector(1, 2));
      vectors.Add(new OVector(-3.5, 4.25));
      RoundTrip("vectors", vectors, new OVector_Array());
    });

    Run("enumeration", () => {
      var vectors = new OVector_Array();
      for (int i = 0; i < 5; ++i) vectors.Add(new OVector(i, 10 * i));
      var seen = new List<int>();
      foreach (OVector v in vectors) seen.Add(v.iY());
      Check("enumerates every element in order", string.Join(",", seen) == "0,10,20,30,40", string.Join(",", seen));
      var empty = new OStringArray();
      foreach (string s in empty) Check("an empty array yields nothing", false);
    });

    string nonBmp = "G-clef \U0001D11E, smile \U0001F600";
    Run("texts", () => {
      var texts = new OStringArray();
      texts.Add("plain");
      texts.Add(nonBmp);
      texts.Add("Gr\u00FC\u00DFe \u20AC");
      Check("non-BMP text comes back unchanged", texts.GetAt(1) == nonBmp, texts.GetAt(1));
      Check("surrogate pair kept", texts.GetAt(1).Length == nonBmp.Length);
      RoundTrip("texts", texts, new OStringArray());
      var read = new List<string>();
      foreach (string s in texts) read.Add(s);
      Check("strings enumerate", read.Count == 3 && read[1] == nonBmp);
    });

    Run("variant", () => {
      var variant = new OType_Variant();
      Check("iSetValueDirect", variant.iSetValueDirect(-1234, (int)OType_Variant.DataType.kInt32) == 1);
      RoundTrip("variant", variant, new OType_Variant());
      Check("text of the value", variant.oStrGetValue() == "-1234", variant.oStrGetValue());
      Check("bool result false", !variant.bSetValue("not a number", (int)OType_Variant.DataType.kInt32));
      Check("bool result true", variant.bSetValue("77", (int)OType_Variant.DataType.kInt32));
    });

    Run("time", () => {
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
      ExpectNull("stream", "OByteStream & reference is null", () => new OType_Variant().AddObjectData(null));
      ExpectNull("vector", "OVector const & reference is null",
                 () => new OVector(1, 1).Plus((OVector)null));
      ExpectNull("text", "null u16string", () => new OType_Variant().bSetValue(null, 0));
      ExpectNull("date", "Attempt to dereference null COleDateTime", () => new OTime().SetOleTime(null));
      ExpectNull("time", "Attempt to dereference null CTime", () => new OTime().SetTime(null));
      ExpectNull("request", "UserInteractionRequest const & type is null",
                 () => OMessageDispatcher.GetInstance().RequestUserInteraction(null));
      ExpectNull("bytes", "OByteList const & reference is null", () => new OByteStream_Memory((OByteList)null));
    });

    Run("director", () => {
      var dispatcher = new ManagedDispatcher();
      OMessageDispatcher.SetInstance(dispatcher);
      OMessageDispatcher installed = OMessageDispatcher.GetInstance();
      Check("native side calls the managed override", installed.DispatchMessageData_Sync(42, 5, true) == 7);
      Check("event received", dispatcher.Received.Count == 1 && dispatcher.Received[0] == "42/5/True",
            string.Join(";", dispatcher.Received));
      Check("dispatcher type", installed.GetDispatcherType() == 1);
      Check("not overridden: the library's answer", installed.DispatchMessage_Sync(1) == -1);
      OMessageDispatcher.SetInstance(null);
      Check("uninstalled", OMessageDispatcher.GetInstance().GetDispatcherType() == 2);
    });

    RunUtilityCases();
    RunDeviceAndImageCases();

    Console.WriteLine("{0} passed, {1} failed", passed, failed);
    return failed == 0 ? 0 : 1;
  }
}
