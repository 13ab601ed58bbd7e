// How fast an array of 10,000 device records travels through a memory
// stream, beside a memcpy of the same number of bytes in the same run. The
// record's block goes out and comes in whole, so writing is bounded by the
// array's scratch stream (two copies) and reading by the allocation of one
// record per element.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <vector>

#include "nkfoundation/core/memory_stream.h"
#include "nkfoundation/device/device_info.h"

namespace {

constexpr int kRecords = 10000;

std::unique_ptr<OType_DeviceInfoArray> MakeRecords() {
  auto array = std::make_unique<OType_DeviceInfoArray>();
  for (int i = 0; i < kRecords; ++i) {
    auto info = std::make_shared<OType_DeviceInfo>();
    info->SetFirmwareVersion(u"1.1.7.300");
    info->m_MaxNumCameras = static_cast<std::uint16_t>(i);
    info->m_ToolVersion_ROI = 2;
    array->Add(info);
  }
  return array;
}

void BM_DeviceInfoArrayWrite(benchmark::State& state) {
  const auto array = MakeRecords();
  OByteStream_Memory stream;
  WritableCollection<std::uint8_t>& buffer = stream;
  // One untimed write maps the destination's pages in, as the memcpy's are.
  array->AddObjectData(stream);
  for (auto _ : state) {
    buffer.ResetAll();
    array->AddObjectData(stream);
    benchmark::DoNotOptimize(buffer.GetData());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * array->GetObjectSize()));
}

void BM_DeviceInfoArrayRead(benchmark::State& state) {
  OByteStream_Memory stream;
  MakeRecords()->AddObjectData(stream);
  for (auto _ : state) {
    stream.SetPosition(0);
    OType_DeviceInfoArray array;
    if (!array.GetObjectData(stream, true) || array.GetCount() != kRecords) {
      state.SkipWithError("the array did not read");
    }
    benchmark::DoNotOptimize(array.GetData());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * stream.GetLength()));
}

void BM_DeviceInfoArrayMemcpy(benchmark::State& state) {
  const std::vector<std::uint8_t> source(MakeRecords()->GetObjectSize(), 0x5A);
  std::vector<std::uint8_t> target(source.size());
  for (auto _ : state) {
    std::memcpy(target.data(), source.data(), source.size());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * source.size()));
}

BENCHMARK(BM_DeviceInfoArrayWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DeviceInfoArrayRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DeviceInfoArrayMemcpy)->Unit(benchmark::kMillisecond);

}  // namespace
