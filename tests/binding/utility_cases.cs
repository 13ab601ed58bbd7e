// Lists moved into new lists, their null checks, and the utilities that look
// at native memory or hand text back through an out parameter.
using System;
using System.Runtime.InteropServices;
using NativeInterface.NkKernel.Foundation.Base;

static partial class BindingTest {
  static string MovedNullMessage(string element) {
    return "WritableCollection< " + element + ",nk::ssize_t,std::allocator< " + element + " > > && type is null";
  }

  static void RunUtilityCases() {
    Run("move constructors", () => {
      var vectors = new OVector_Array();
      vectors.Add(new OVector(1, 2));
      vectors.Add(new OVector(3, 4));
      var moved = new OVector_Array(vectors);
      Check("moved list holds the elements", moved.GetCount() == 2 && moved.GetAt(1).iY() == 4);
      Check("source list left empty", vectors.GetCount() == 0, vectors.GetCount().ToString());

      var times = new OType_ProcessingTimeArray();
      times.Add(new OType_ProcessingTime(3, 1000));
      Check("processing times move", new OType_ProcessingTimeArray(times).GetCount() == 1 && times.GetCount() == 0);
      var variants = new OType_VariantArray();
      variants.Add(new OType_Variant());
      Check("variants move", new OType_VariantArray(variants).GetCount() == 1 && variants.GetCount() == 0);
      var references = new OReferencesList();
      references.Add(new OReferencedItemData());
      Check("references move", new OReferencesList(references).GetCount() == 1 && references.GetCount() == 0);
    });

    Run("moved null lists", () => {
      ExpectNull("vectors", MovedNullMessage("std::shared_ptr< OVector >"), () => new OVector_Array((OVector_Array)null));
      ExpectNull("processing times", MovedNullMessage("std::shared_ptr< OType_ProcessingTime >"),
                 () => new OType_ProcessingTimeArray((OType_ProcessingTimeArray)null));
      ExpectNull("variants", MovedNullMessage("std::shared_ptr< OType_Variant >"),
                 () => new OType_VariantArray((OType_VariantArray)null));
      ExpectNull("references", MovedNullMessage("std::shared_ptr< OReferencedItemData >"),
                 () => new OReferencesList((OReferencesList)null));
    });

    Run("native memory", () => {
      byte[] haystack = { 9, 1, 2, 3, 1, 2, 4 };
      byte[] needle = { 1, 2, 4 };
      var handles = new[] { GCHandle.Alloc(haystack, GCHandleType.Pinned), GCHandle.Alloc(needle, GCHandleType.Pinned) };
      try {
        IntPtr h = handles[0].AddrOfPinnedObject();
        IntPtr n = handles[1].AddrOfPinnedObject();
        IntPtr found = NativeInterfaceNkKernelFoundationBase.memmem(h, n, (uint)haystack.Length, (uint)needle.Length);
        Check("memmem finds the needle past a partial match", (long)found - (long)h == 4, ((long)found - (long)h).ToString());
        Check("memmem: needle longer than the haystack",
              NativeInterfaceNkKernelFoundationBase.memmem(h, n, 2, 3) == IntPtr.Zero);
        Check("memmem: null haystack", NativeInterfaceNkKernelFoundationBase.memmem(IntPtr.Zero, n, 7, 3) == IntPtr.Zero);
        Check("IsValidObject of an address", NativeInterfaceNkKernelFoundationBase.IsValidObject(h));
        Check("IsValidObject of null", !NativeInterfaceNkKernelFoundationBase.IsValidObject(IntPtr.Zero));
      } finally {
        foreach (var handle in handles) handle.Free();
      }
    });

    Run("ascii text out", () => {
      var bytes = new OByteList();
      foreach (byte b in new byte[] { 0x4E, 0x4B, 0xC3, 0x21, 0x00, 0x5A }) bytes.Add(b);
      string text;
      uint length = NativeInterfaceNkKernelFoundationBase.iByteArrayToAsciiString(bytes, out text);
      Check("stops at the zero byte, '?' above 0x7F", length == 4 && text == "NK?!", length + " \"" + text + "\"");
      ExpectNull("null bytes", "OByteList const & reference is null",
                 () => NativeInterfaceNkKernelFoundationBase.iByteArrayToAsciiString(null, out text));
    });
  }
}
