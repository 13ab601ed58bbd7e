// The native side of the managed-call comparison: the same getter and the
// same 640 x 480 image write that bench/binding_bench.cs times from C#; the
// target nkfoundation_binding_bench_run shows both in one run. The getter is
// read directly and, where the binding is built, through its flat export,
// which is what a managed call reaches after the runtime's transition.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>

#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/geometry/vector.h"
#include "nkfoundation/image/image.h"

#if defined(NKF_BENCH_FLAT_EXPORTS)
extern "C" long long CSharp_NativeInterfacefNkKernelfFoundationfBase_OVector_m_llx_get___(void* holder);
#endif

namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 480;

void BM_BindingGetterDirect(benchmark::State& state) {
  const auto vector = std::make_shared<OVector>(3, 4);
  for (auto _ : state) {
    benchmark::DoNotOptimize(vector.get());
    benchmark::DoNotOptimize(vector->m_llx);
  }
}
BENCHMARK(BM_BindingGetterDirect);

#if defined(NKF_BENCH_FLAT_EXPORTS)
// The managed proxy hands the export a pointer to the holder it owns.
void BM_BindingGetterFlatExport(benchmark::State& state) {
  auto holder = std::make_shared<OVector>(3, 4);
  for (auto _ : state) {
    benchmark::DoNotOptimize(CSharp_NativeInterfacefNkKernelfFoundationfBase_OVector_m_llx_get___(&holder));
  }
}
BENCHMARK(BM_BindingGetterFlatExport);
#endif

// Filled as the managed program fills its image, grey values by position.
void BM_BindingImageSerialize(benchmark::State& state) {
  OType_Image image;
  image.Create(0, 0, kWidth, kHeight, 3);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) image.SetPixel_Grey(x, y, (x + y) & 0xFF);
  }
  for (auto _ : state) {
    OByteStream_Memory stream;
    benchmark::DoNotOptimize(image.AddObjectData(stream));
  }
  state.SetBytesProcessed(state.iterations() * kWidth * kHeight * 3);
}
BENCHMARK(BM_BindingImageSerialize);

}  // namespace
