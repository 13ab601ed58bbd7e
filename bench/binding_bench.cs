// The managed side of the managed-call comparison (bench/binding_bench.cc is
// the native side): one getter call through the flat layer, and writing a
// 640 x 480 colour image into a memory stream from C#. Prints one line per
// figure, the median of seven timed runs after a warm-up.
//
//   mono nkfoundation_binding_bench.exe
using System;
using System.Diagnostics;
using NativeInterface.NkKernel.Foundation.Base;

static class BindingBench {
  const int Width = 640;
  const int Height = 480;
  const int Runs = 7;

  // Nanoseconds per repetition of `work`, median over the runs.
  static double Time(int repetitions, Action<int> work) {
    work(repetitions / 10);
    var samples = new double[Runs];
    for (int run = 0; run < Runs; ++run) {
      var watch = Stopwatch.StartNew();
      work(repetitions);
      samples[run] = watch.Elapsed.TotalMilliseconds * 1e6 / repetitions;
    }
    Array.Sort(samples);
    return samples[Runs / 2];
  }

  static int Main() {
    var vector = new OVector(3, 4);
    long sink = 0;
    double getter = Time(2000000, n => {
      for (int i = 0; i < n; ++i) sink += vector.m_llx;
    });
    Console.WriteLine("managed getter (OVector.m_llx)         {0,10:F1} ns/call", getter);

    var image = new OType_Image();
    image.Create(0, 0, Width, Height, 3);
    for (int y = 0; y < Height; ++y) {
      for (int x = 0; x < Width; ++x) image.SetPixel_Grey(x, y, (x + y) & 0xFF);
    }
    double write = Time(200, n => {
      for (int i = 0; i < n; ++i) {
        using (var stream = new OByteStream_Memory()) {
          if (!image.AddObjectData(stream)) throw new InvalidOperationException("image write failed");
        }
      }
    });
    Console.WriteLine("managed image write 640x480x3          {0,10:F1} us/image ({1:F0} MB/s)", write / 1000,
                      Width * Height * 3 / write * 1000);
    return sink == 0 ? 1 : 0;
  }
}
