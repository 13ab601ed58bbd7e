// Lists moved into new lists, and the utilities that look at native memory or
// hand text back through an out parameter.
using System;
using System.Reflection;
using System.Runtime.InteropServices;
using NativeInterface.NkKernel.Foundation.Base;
using static NativeInterface.NkKernel.Foundation.Base.NativeInterfaceNkKernelFoundationBase;

static partial class BindingTest {
  // The lists whose constructor from a list of their kind moves the elements.
  static readonly Type[] MovableLists = {
    typeof(OVector_Array), typeof(OType_ProcessingTimeArray), typeof(OType_VariantArray), typeof(OReferencesList),
    typeof(OType_DeviceDiagnosticArray), typeof(OType_CheckProgramInfoItemArray), typeof(OType_Image_Array),
    typeof(OType_Device_Camera_InfoItemArray), typeof(OType_GreyLine_Array), typeof(OType_DeviceInfoArray),
  };

  static int Count(object list) => (int)list.GetType().GetMethod("GetCount").Invoke(list, null);

  static void RunUtilityCases() {
    Run("move constructors", () => {
      foreach (Type list in MovableLists) {
        Type element = list.GetMethod("GetAt").ReturnType;
        ConstructorInfo move = list.GetConstructor(new[] { list });
        object source = Activator.CreateInstance(list);
        list.GetMethod("Add", new[] { element }).Invoke(source, new[] { Activator.CreateInstance(element) });
        object moved = move.Invoke(new[] { source });
        Same(list.Name + " move", Count(moved) + " moved, " + Count(source) + " left", "1 moved, 0 left");
        // Moved from null, the message names the collection's element type.
        string item = "std::shared_ptr< " + element.Name + " >";
        ExpectNull("WritableCollection< " + item + ",nk::ssize_t,std::allocator< " + item + " > > && type is null",
                   () => move.Invoke(new object[] { null }));
      }
      var vectors = new OVector_Array { new OVector(1, 2), new OVector(3, 4) };
      Same("moved list holds the elements", new OVector_Array(vectors).GetAt(1).iY(), 4);
    });

    Run("native memory", () => {
      GCHandle haystack = GCHandle.Alloc(new byte[] { 9, 1, 2, 3, 1, 2, 4 }, GCHandleType.Pinned);
      GCHandle needle = GCHandle.Alloc(new byte[] { 1, 2, 4 }, GCHandleType.Pinned);
      try {
        IntPtr h = haystack.AddrOfPinnedObject(), n = needle.AddrOfPinnedObject();
        Same("memmem finds the needle past a partial match", (long)memmem(h, n, 7, 3) - (long)h, 4);
        Check("memmem: needle longer than the haystack", memmem(h, n, 2, 3) == IntPtr.Zero);
        Check("memmem: null haystack", memmem(IntPtr.Zero, n, 7, 3) == IntPtr.Zero);
        Check("IsValidObject of an address", IsValidObject(h));
        Check("IsValidObject of null", !IsValidObject(IntPtr.Zero));
      } finally {
        haystack.Free();
        needle.Free();
      }
    });

    Run("ascii text out", () => {
      uint length = iByteArrayToAsciiString(Bytes(0x4E, 0x4B, 0xC3, 0x21, 0x00, 0x5A), out string text);
      Same("stops at the zero byte, '?' above 0x7F", length + " \"" + text + "\"", "4 \"NK?!\"");
    });
  }
}
