// Pixel access and image-array storage. Grey value and hue run over a VGA
// colour image through the index accessors (items are pixels). Arrays of 20
// VGA colour images are written to and read from a memory stream, raw and
// compressed, beside a memcpy of the same pixel bytes in the same run; every
// figure counts raw pixel bytes per second.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <vector>

#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/image/image_array.h"
#include "tests/support/sensor_images.h"

namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 480;
constexpr int kImages = 20;

OType_Image VgaColour() {
  const std::vector<std::uint8_t> pixels = nk::testing::GradientWithNoise(kWidth, kHeight, 3);
  OType_Image image;
  image.SetImage(0, 0, kWidth, kHeight, 3, pixels.data());
  return image;
}

void BM_GreyByIndex(benchmark::State& state) {
  const OType_Image image = VgaColour();
  for (auto _ : state) {
    int sum = 0;
    for (int i = 0; i < image.GetImageDataSize(); i += 3) sum += image.GetPixel_Grey(i);
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kWidth * kHeight);
}
BENCHMARK(BM_GreyByIndex);

void BM_HueByIndex(benchmark::State& state) {
  const OType_Image image = VgaColour();
  for (auto _ : state) {
    int sum = 0;
    for (int i = 0; i < image.GetImageDataSize(); i += 3) sum += image.GetPixel_CompH(i);
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kWidth * kHeight);
}
BENCHMARK(BM_HueByIndex);

void BM_GreyByPosition(benchmark::State& state) {
  const OType_Image image = VgaColour();
  for (auto _ : state) {
    int sum = 0;
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) sum += image.GetPixel_Grey(x, y);
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kWidth * kHeight);
}
BENCHMARK(BM_GreyByPosition);

OType_Image_Array Series(bool compressed) {
  const OType_Image image = VgaColour();
  OType_Image_Array array;
  for (int i = 0; i < kImages; ++i) array.Add(std::make_shared<OType_Image>(image));
  if (compressed) array.iCompressImageData(nullptr);
  return array;
}

constexpr std::int64_t kRawBytes = std::int64_t{kImages} * kWidth * kHeight * 3;

void BM_ArrayWrite(benchmark::State& state) {
  OType_Image_Array array = Series(state.range(0) != 0);
  OByteStream_Memory stream;
  for (auto _ : state) {
    stream.RemoveAll();
    array.AddObjectData(stream);
    benchmark::DoNotOptimize(stream.GetLength());
  }
  state.SetBytesProcessed(state.iterations() * kRawBytes);
}
BENCHMARK(BM_ArrayWrite)->ArgName("compressed")->Arg(0)->Arg(1);

void BM_ArrayRead(benchmark::State& state) {
  OType_Image_Array array = Series(state.range(0) != 0);
  OByteStream_Memory written;
  array.AddObjectData(written);
  for (auto _ : state) {
    written.SetPosition(0);
    OType_Image_Array read;
    read.GetObjectData(written, true);
    benchmark::DoNotOptimize(read.GetCount());
  }
  state.SetBytesProcessed(state.iterations() * kRawBytes);
}
BENCHMARK(BM_ArrayRead)->ArgName("compressed")->Arg(0)->Arg(1);

// Compression itself, both ways, as a compressed array is made and used.
void BM_ArrayCompress(benchmark::State& state) {
  const OType_Image_Array raw = Series(false);
  for (auto _ : state) {
    state.PauseTiming();
    OType_Image_Array array;
    raw.CopyTo(&array);
    state.ResumeTiming();
    array.iCompressImageData(nullptr);
  }
  state.SetBytesProcessed(state.iterations() * kRawBytes);
}
BENCHMARK(BM_ArrayCompress)->Unit(benchmark::kMillisecond);

void BM_ArrayDecompress(benchmark::State& state) {
  const OType_Image_Array packed = Series(true);
  for (auto _ : state) {
    state.PauseTiming();
    OType_Image_Array array;
    packed.CopyTo(&array);
    state.ResumeTiming();
    array.iDeCompressImageData(nullptr);
  }
  state.SetBytesProcessed(state.iterations() * kRawBytes);
}
BENCHMARK(BM_ArrayDecompress)->Unit(benchmark::kMillisecond);

void BM_MemcpyOfThePixels(benchmark::State& state) {
  std::vector<std::uint8_t> from(static_cast<std::size_t>(kRawBytes), 7);
  std::vector<std::uint8_t> to(from.size());
  for (auto _ : state) {
    std::memcpy(to.data(), from.data(), from.size());
    benchmark::DoNotOptimize(to.data());
  }
  state.SetBytesProcessed(state.iterations() * kRawBytes);
}
BENCHMARK(BM_MemcpyOfThePixels);

}  // namespace
