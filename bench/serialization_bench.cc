// How fast object arrays travel through a memory stream, beside a plain
// memcpy of the same number of bytes in the same run: many small objects
// measure the per-object cost, a few objects with 1 MiB user-data tails the
// cost per byte, which should stay within a factor of two of memcpy.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <vector>

#include "nkfoundation/core/memory_stream.h"
#include "tests/support/framed_test_objects.h"

namespace {

using nk::testing::TestPoint;
using nk::testing::TestPointArray;

enum Payload { kSmallObjects, kLargeTails };

std::unique_ptr<TestPointArray> Make(Payload payload) {
  auto array = std::make_unique<TestPointArray>();
  const int count = payload == kSmallObjects ? 10000 : 100;
  for (int i = 0; i < count; ++i) {
    auto point = std::make_shared<TestPoint>();
    point->m_llX = i;
    point->m_oLabel = u"point";
    if (payload == kLargeTails) static_cast<std::vector<std::uint8_t>&>(point->m_oUserData).assign(1 << 20, 0x5A);
    array->Add(point);
  }
  return array;
}

void Write(benchmark::State& state, Payload payload) {
  const auto array = Make(payload);
  OByteStream_Memory stream;
  WritableCollection<std::uint8_t>& buffer = stream;
  // One untimed write maps the buffer's pages in; reusing its storage keeps
  // page faults out of the figure, as they are out of the memcpy's.
  array->AddObjectData(stream);
  for (auto _ : state) {
    buffer.ResetAll();
    array->AddObjectData(stream);
    benchmark::DoNotOptimize(buffer.GetData());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * array->GetObjectSize()));
}

void Read(benchmark::State& state, Payload payload) {
  OByteStream_Memory stream;
  Make(payload)->AddObjectData(stream);
  for (auto _ : state) {
    stream.SetPosition(0);
    TestPointArray array;
    if (!array.GetObjectData(stream, true)) state.SkipWithError("the array did not read");
    benchmark::DoNotOptimize(array.GetData());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * stream.GetLength()));
}

void Memcpy(benchmark::State& state, Payload payload) {
  const std::vector<std::uint8_t> source(Make(payload)->GetObjectSize(), 0x5A);
  std::vector<std::uint8_t> target(source.size());
  for (auto _ : state) {
    std::memcpy(target.data(), source.data(), source.size());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * source.size()));
}

// What any reader of the large tails pays at least: copying them into 1 MiB
// pieces of memory allocated for them, which the first touch maps in.
void MemcpyToNewPieces(benchmark::State& state) {
  const std::vector<std::uint8_t> piece(1 << 20, 0x5A);
  for (auto _ : state) {
    std::vector<std::vector<std::uint8_t>> pieces;
    for (int i = 0; i < 100; ++i) pieces.emplace_back(piece.begin(), piece.end());
    benchmark::DoNotOptimize(pieces.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * 100 * piece.size()));
}

BENCHMARK_CAPTURE(Write, small_objects, kSmallObjects)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Read, small_objects, kSmallObjects)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Memcpy, small_objects, kSmallObjects)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Write, large_tails, kLargeTails)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Read, large_tails, kLargeTails)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Memcpy, large_tails, kLargeTails)->Unit(benchmark::kMillisecond);
BENCHMARK(MemcpyToNewPieces)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
