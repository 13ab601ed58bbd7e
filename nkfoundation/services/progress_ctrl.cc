#include "nkfoundation/services/progress_ctrl.h"

#include <chrono>
#include <cstdint>

namespace {

// How long an operation waits for the lock before it gives up.
constexpr std::chrono::milliseconds kLockWait{10};

std::int64_t SaturatingAdd(std::int64_t a, std::int64_t b) {
  if (b > 0 && a > INT64_MAX - b) return INT64_MAX;
  if (b < 0 && a < INT64_MIN - b) return INT64_MIN;
  return a + b;
}

// position · 25 / length, truncated, for 0 < position <= length, exact for
// every 64-bit length: the product is formed directly while it fits and
// otherwise by adding the position 25 times modulo the length.
std::int64_t StepOf(std::int64_t position, std::int64_t length) {
  constexpr std::int64_t kSteps = OProgressCtrl::kDisplaySteps;
  if (position <= INT64_MAX / kSteps) return position * kSteps / length;
  std::int64_t step = position / length * kSteps;
  const std::int64_t remainder = position % length;
  std::int64_t accumulated = 0;  // (k · remainder) mod length, always < length
  for (std::int64_t k = 0; k < kSteps; ++k) {
    if (accumulated >= length - remainder) {
      accumulated -= length - remainder;
      ++step;
    } else {
      accumulated += remainder;
    }
  }
  return step;
}

}  // namespace

void OProgressCtrl::SyncMutex::lock() {
  std::unique_lock lock(guard_);
  released_.wait(lock, [this] { return !held_; });
  held_ = true;
}

bool OProgressCtrl::SyncMutex::try_lock_for(std::chrono::milliseconds timeout) {
  std::unique_lock lock(guard_);
  if (!released_.wait_for(lock, timeout, [this] { return !held_; })) return false;
  held_ = true;
  return true;
}

void OProgressCtrl::SyncMutex::unlock() {
  {
    std::lock_guard lock(guard_);
    held_ = false;
  }
  released_.notify_one();
}

OProgressCtrl::OProgressCtrl(AStatusBar* status_bar, int pane) : status_bar_(status_bar), pane_(pane) {}

void OProgressCtrl::End() {
  std::unique_lock lock(mutex_, kLockWait);
  if (!lock) return;
  length_ = 0;
  position_ = 0;
  last_step_ = 0;
  if (status_bar_ != nullptr && status_bar_->HasProgressWindow()) status_bar_->ResetProgress();
}

void OProgressCtrl::Increase() { Add(1, false); }
void OProgressCtrl::Increase(std::int64_t amount) { Add(amount, false); }
void OProgressCtrl::Increase(std::int64_t amount, bool update) { Add(amount, update); }
void OProgressCtrl::Increase(unsigned int amount) { Add(amount, false); }
void OProgressCtrl::Increase(unsigned int amount, bool update) { Add(amount, update); }
void OProgressCtrl::Increase(int amount) { Add(amount, false); }
void OProgressCtrl::Increase(int amount, bool update) { Add(amount, update); }

void OProgressCtrl::Add(std::int64_t amount, bool update) {
  {
    std::unique_lock lock(mutex_, kLockWait);
    if (!lock) return;
    StorePosition(SaturatingAdd(position_, amount));
  }
  if (update) UpdateDisplay();
}

void OProgressCtrl::Length(std::int64_t length) {
  std::unique_lock lock(mutex_, kLockWait);
  if (lock) length_ = length;
}

void OProgressCtrl::SetPos(std::int64_t position) { SetPos(position, false); }

void OProgressCtrl::SetPos(std::int64_t position, bool update) {
  {
    std::unique_lock lock(mutex_, kLockWait);
    if (!lock) return;
    StorePosition(position);
  }
  if (update) UpdateDisplay();
}

void OProgressCtrl::StorePosition(std::int64_t position) {
  if (position < 0) position = 0;
  if (position > length_) position = length_;
  position_ = position;
}

void OProgressCtrl::SetText(const std::u16string& text) {
  std::unique_lock lock(mutex_, kLockWait);
  if (!lock) return;
  text_ = text;
  if (status_bar_ != nullptr) status_bar_->SetText(pane_, text_);
}

void OProgressCtrl::UpdateDisplay() { Display(Delivery::kSent); }
void OProgressCtrl::ThreadSafeUpdateDisplay() { Display(Delivery::kPosted); }

// The window only ever steps forward. A step below the last one (the
// position went back) is recorded without moving it, so the window then runs
// ahead of the position by the difference; `End` puts both back to 0.
void OProgressCtrl::Display(Delivery delivery) {
  std::unique_lock lock(mutex_, kLockWait);
  if (!lock) return;
  if (length_ <= 0 || position_ > length_) return;
  std::int64_t step = StepOf(position_, length_);
  if (step > kDisplaySteps) step = kDisplaySteps;
  if (step == 0 || step == last_step_) return;
  if (status_bar_ != nullptr && status_bar_->HasProgressWindow()) {
    for (std::int64_t shown = last_step_; shown < step; ++shown) {
      if (delivery == Delivery::kSent) {
        status_bar_->StepProgress();
      } else {
        status_bar_->PostStepProgress();
      }
    }
  }
  last_step_ = step;
}

void OProgressCtrl::ReplaceStatusBarCtrl(AStatusBar* status_bar, int pane) {
  std::lock_guard lock(mutex_);
  status_bar_ = status_bar;
  pane_ = pane;
}

AStatusBar* OProgressCtrl::opGetStatusBarCtrl() const {
  std::lock_guard lock(mutex_);
  return status_bar_;
}

std::int64_t OProgressCtrl::GetLength() const {
  std::lock_guard lock(mutex_);
  return length_;
}

std::int64_t OProgressCtrl::GetPos() const {
  std::lock_guard lock(mutex_);
  return position_;
}

std::int64_t OProgressCtrl::GetDisplayStep() const {
  std::lock_guard lock(mutex_);
  return last_step_;
}

std::u16string OProgressCtrl::GetText() const {
  std::lock_guard lock(mutex_);
  return text_;
}
