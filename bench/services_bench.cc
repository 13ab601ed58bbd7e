// AES-256 on a 64 MiB buffer, block by block in both directions, and the
// progress control's Increase path driven from one and from two threads at
// once (the lock contended as worker threads contend it).
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "nkfoundation/services/aes256.h"
#include "nkfoundation/services/progress_ctrl.h"
#include "nkfoundation/services/status_bar.h"

namespace {

constexpr std::size_t kAesBytes = 64u << 20;

struct AesFixture {
  aes256::context ctx{};
  std::vector<unsigned char> data = std::vector<unsigned char>(kAesBytes);

  AesFixture() {
    unsigned char key[32];
    for (int i = 0; i < 32; ++i) key[i] = static_cast<unsigned char>(i * 7 + 1);
    aes256::init(&ctx, key);
    for (std::size_t i = 0; i < data.size(); ++i) data[i] = static_cast<unsigned char>(i * 31 + (i >> 9));
  }
};

template <void (*kCrypt)(aes256::context*, unsigned char*)>
void BM_Aes256(benchmark::State& state) {
  AesFixture fixture;
  for (auto _ : state) {
    for (std::size_t at = 0; at < fixture.data.size(); at += 16) kCrypt(&fixture.ctx, fixture.data.data() + at);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(kAesBytes));
}
BENCHMARK(BM_Aes256<aes256::encrypt_ecb>)->Name("Aes256/encrypt_64MiB")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Aes256<aes256::decrypt_ecb>)->Name("Aes256/decrypt_64MiB")->Unit(benchmark::kMillisecond);

// A window that takes its steps at no cost, so the figure is the control's.
class NullStatusBar : public AStatusBar {
 public:
  bool HasProgressWindow() const override { return true; }
  void StepProgress() override {}
  void PostStepProgress() override {}
  void ResetProgress() override {}
  void SetText(int, const std::u16string&) override {}
};

NullStatusBar null_bar;
OProgressCtrl shared_progress(&null_bar);

// Every step asks for a display update as well, the costlier form.
void BM_ProgressIncrease(benchmark::State& state) {
  if (state.thread_index() == 0) {
    shared_progress.End();
    shared_progress.Length(INT64_MAX);
  }
  for (auto _ : state) shared_progress.Increase(1, true);
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ProgressIncrease)->Name("OProgressCtrl/Increase_update")->Threads(1)->Threads(2)->UseRealTime();

}  // namespace
