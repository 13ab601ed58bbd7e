// OProgressCtrl: the progress display that long operations and worker
// threads advance.
#ifndef NKFOUNDATION_SERVICES_PROGRESS_CTRL_H_
#define NKFOUNDATION_SERVICES_PROGRESS_CTRL_H_

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>

#include "nkfoundation/core/export.h"
#include "nkfoundation/core/progress_ctrl.h"
#include "nkfoundation/services/status_bar.h"

// Counts work done (the position, kept within 0..length) out of a total (the
// length) and shows it as 25 steps on the status bar's progress window.
//
// Any thread may call it. Every operation waits at most 10 ms for the lock
// and is skipped silently when it does not get it: a worker thread never
// stalls behind a busy user-interface thread, and a lost update is accepted.
// The lock is held while the status bar is told of steps.
class NKF_API OProgressCtrl : public AProgressCtrl {
 public:
  static constexpr std::int64_t kDisplaySteps = 25;

  // The lock of the numbers: a timed mutex (lock, unlock, try_lock_for) built
  // on a plain mutex and a condition variable, so that thread checkers see
  // its timed waits, which the standard timed mutex hides from them on some
  // runtimes.
  class NKF_API SyncMutex {
   public:
    void lock();
    bool try_lock_for(std::chrono::milliseconds timeout);
    void unlock();

   private:
    std::mutex guard_;
    std::condition_variable released_;
    bool held_ = false;
  };

  OProgressCtrl() = default;
  // `status_bar` (not owned, may be null) shows the steps and the text, the
  // text in pane `pane`.
  explicit OProgressCtrl(AStatusBar* status_bar, int pane = 0);
  OProgressCtrl(const OProgressCtrl&) = delete;
  OProgressCtrl& operator=(const OProgressCtrl&) = delete;
  ~OProgressCtrl() override = default;

  // Length, position and shown step become 0; a visible progress window is
  // put back to its start.
  void End() override;
  // Add to the position, clamped to 0..length. The forms with `update` true
  // then bring the display up to date.
  void Increase() override;
  void Increase(std::int64_t amount) override;
  void Increase(std::int64_t amount, bool update) override;
  void Increase(unsigned int amount) override;
  void Increase(unsigned int amount, bool update) override;
  void Increase(int amount) override;
  void Increase(int amount, bool update) override;
  // The total amount of work; 0 or less shows nothing.
  void Length(std::int64_t length) override;
  // Sets the position, clamped: below 0 becomes 0, above the length the
  // length. With `update` true the display follows once the lock is free.
  void SetPos(std::int64_t position) override;
  void SetPos(std::int64_t position, bool update);
  void SetText(const std::u16string& text) override;
  // Bring the progress window to the step position · 25 / length by as many
  // single steps as it lacks; sent, respectively posted, messages.
  void UpdateDisplay() override;
  void ThreadSafeUpdateDisplay() override;

  // The status bar that shows the progress and the pane of its text. These
  // wait for the lock however long it is held: a skipped exchange would leave
  // a status bar in use that its owner is about to destroy.
  void ReplaceStatusBarCtrl(AStatusBar* status_bar, int pane);
  AStatusBar* opGetStatusBarCtrl() const;
  // The lock that guards the numbers; holding it makes every operation skip.
  SyncMutex* opGetThreadSyncMutex() { return &mutex_; }

  // Snapshots, waiting for the lock as long as it takes.
  std::int64_t GetLength() const;
  std::int64_t GetPos() const;
  // The step (0..25) last shown.
  std::int64_t GetDisplayStep() const;
  std::u16string GetText() const;

 private:
  enum class Delivery { kSent, kPosted };

  void Add(std::int64_t amount, bool update);
  void Display(Delivery delivery);
  // Clamps `position` into the current length; the lock is held.
  void StorePosition(std::int64_t position);

  mutable SyncMutex mutex_;
  std::int64_t length_ = 0;
  std::int64_t position_ = 0;
  std::int64_t last_step_ = 0;
  AStatusBar* status_bar_ = nullptr;
  int pane_ = 0;
  std::u16string text_;
};

#endif  // NKFOUNDATION_SERVICES_PROGRESS_CTRL_H_
