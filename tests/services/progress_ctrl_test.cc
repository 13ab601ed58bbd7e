#include "nkfoundation/services/progress_ctrl.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "nkfoundation/services/message_dispatcher.h"

namespace nk::testing {
namespace {

// Records what the progress control asks of its status bar. It is called
// with the control's lock held, so it needs none of its own.
class RecordingStatusBar : public AStatusBar {
 public:
  bool has_window = true;
  int sent = 0;
  int posted = 0;
  int resets = 0;
  int pane = -1;
  std::u16string text;

  bool HasProgressWindow() const override { return has_window; }
  void StepProgress() override { ++sent; }
  void PostStepProgress() override { ++posted; }
  void ResetProgress() override { ++resets; }
  void SetText(int text_pane, const std::u16string& new_text) override {
    pane = text_pane;
    text = new_text;
  }
};

TEST(ProgressCtrlTest, PositionIsClampedIntoTheLength) {
  OProgressCtrl progress;
  progress.Length(100);
  const struct {
    std::int64_t position;
    std::int64_t expected;
  } kCases[] = {{-5, 0}, {0, 0}, {40, 40}, {100, 100}, {150, 100}, {INT64_MIN, 0}};
  for (const auto& c : kCases) {
    progress.SetPos(c.position);
    EXPECT_EQ(progress.GetPos(), c.expected) << c.position;
  }
  progress.SetPos(99);
  progress.Increase(INT64_MAX);  // saturates instead of wrapping
  EXPECT_EQ(progress.GetPos(), 100);
  progress.Increase(-30);
  progress.Increase(5u);
  progress.Increase();
  EXPECT_EQ(progress.GetPos(), 76);
}

TEST(ProgressCtrlTest, DisplayShowsTwentyFiveStepsOneMessageEach) {
  RecordingStatusBar bar;
  OProgressCtrl progress(&bar, 2);
  progress.Length(100);
  progress.SetPos(3, true);  // 75 / 100 = 0 steps
  EXPECT_EQ(bar.sent, 0);
  progress.SetPos(4, true);
  EXPECT_EQ(bar.sent, 1);
  progress.Increase(50, false);  // no update asked for
  EXPECT_EQ(bar.sent, 1);
  progress.ThreadSafeUpdateDisplay();
  EXPECT_EQ(bar.posted, 12);  // 54 · 25 / 100 = 13, one shown already
  progress.SetPos(150, true);
  EXPECT_EQ(bar.sent + bar.posted, 25);
  EXPECT_EQ(progress.GetDisplayStep(), 25);

  // Going back records the lower step without moving the window, which
  // therefore steps again from there.
  progress.SetPos(40, true);
  EXPECT_EQ(progress.GetDisplayStep(), 10);
  EXPECT_EQ(bar.sent + bar.posted, 25);
  progress.SetPos(48, true);
  EXPECT_EQ(bar.sent + bar.posted, 27);

  progress.End();
  EXPECT_EQ(bar.resets, 1);
  EXPECT_EQ(progress.GetLength(), 0);
  EXPECT_EQ(progress.GetPos(), 0);
  EXPECT_EQ(progress.GetDisplayStep(), 0);

  progress.SetText(u"Saving");
  EXPECT_EQ(bar.pane, 2);
  EXPECT_EQ(bar.text, u"Saving");
}

TEST(ProgressCtrlTest, StepIsRecordedWithoutAWindow) {
  RecordingStatusBar bar;
  bar.has_window = false;
  OProgressCtrl progress(&bar);
  progress.Length(10);
  progress.SetPos(10, true);
  EXPECT_EQ(progress.GetDisplayStep(), 25);
  EXPECT_EQ(bar.sent, 0);
  progress.End();
  EXPECT_EQ(bar.resets, 0);

  // Lengths beyond what position · 25 can hold still divide exactly.
  OProgressCtrl huge(&bar);
  huge.Length(INT64_MAX);
  huge.SetPos(INT64_MAX / 25 * 24 + INT64_MAX % 25, true);
  EXPECT_EQ(huge.GetDisplayStep(), 24);
  huge.SetPos(INT64_MAX / 5 * 4 + 1, true);
  EXPECT_EQ(huge.GetDisplayStep(), 19);
}

// A busy lock makes every operation give up after its short wait.
TEST(ProgressCtrlTest, OperationsSkipWhileTheLockIsHeld) {
  RecordingStatusBar bar;
  OProgressCtrl progress(&bar);
  progress.Length(100);
  progress.SetPos(50);
  {
    std::lock_guard hold(*progress.opGetThreadSyncMutex());
    std::thread worker([&] {
      progress.Increase();
      progress.SetPos(100, true);
      progress.Length(5);
      progress.SetText(u"lost");
      progress.End();
    });
    worker.join();
  }
  EXPECT_EQ(progress.GetPos(), 50);
  EXPECT_EQ(progress.GetLength(), 100);
  EXPECT_EQ(bar.sent, 0);
  EXPECT_EQ(bar.resets, 0);
  EXPECT_EQ(progress.GetText(), u"");
}

// Status bar of the stress test: checks, as the steps arrive, that they
// never exceed the 25 of the window.
class CheckingStatusBar : public AStatusBar {
 public:
  std::atomic<int> steps{0};
  std::atomic<bool> beyond{false};

  bool HasProgressWindow() const override { return true; }
  void StepProgress() override { Step(); }
  void PostStepProgress() override { Step(); }
  void ResetProgress() override {}
  void SetText(int, const std::u16string&) override {}

 private:
  void Step() {
    if (++steps > OProgressCtrl::kDisplaySteps) beyond = true;
  }
};

TEST(ProgressCtrlTest, ManyThreadsKeepTheNumbersConsistent) {
  CheckingStatusBar bar;
  OProgressCtrl progress(&bar);
  constexpr std::int64_t kLength = 4000;
  progress.Length(kLength);
  std::atomic<bool> stop{false};
  std::atomic<bool> out_of_range{false};
  std::atomic<bool> backwards{false};
  std::thread watcher([&] {
    std::int64_t last_step = 0;
    while (!stop) {
      const std::int64_t position = progress.GetPos();
      const std::int64_t step = progress.GetDisplayStep();
      if (position < 0 || position > kLength) out_of_range = true;
      if (step < last_step || step > OProgressCtrl::kDisplaySteps) backwards = true;
      last_step = step;
    }
  });
  std::vector<std::thread> workers;
  for (int t = 0; t < 4; ++t) {
    workers.emplace_back([&, t] {
      for (int i = 0; i < 1500; ++i) {
        switch ((i + t) % 4) {
          case 0: progress.Increase(); break;
          case 1: progress.Increase(2, true); break;
          case 2: progress.Increase(1u, false); break;
          default: progress.ThreadSafeUpdateDisplay(); break;
        }
      }
    });
  }
  for (std::thread& worker : workers) worker.join();
  stop = true;
  watcher.join();
  progress.UpdateDisplay();

  EXPECT_FALSE(out_of_range);
  EXPECT_FALSE(backwards);
  EXPECT_FALSE(bar.beyond);
  // Skipped updates are allowed, but the steps shown match the last step.
  EXPECT_EQ(bar.steps, progress.GetDisplayStep());
  EXPECT_GT(progress.GetPos(), 0);
}

TEST(MessageDispatcherTest, BaseAnswersNoReceiverAndInstanceIsReplaceable) {
  OMessageDispatcher base;
  EXPECT_EQ(base.DispatchMessage_Sync(1), -1);
  EXPECT_EQ(base.DispatchMessage_Async(1), -1);
  EXPECT_EQ(base.DispatchMessageData_Sync(1, 2, true), -1);
  EXPECT_EQ(base.DispatchMessageData_Async(1, 2, false), -1);
  base.SetDefaultMessageData(7);
  EXPECT_EQ(base.GetDefaultMessageData(), -1);
  EXPECT_EQ(base.GetDispatcherType(), 2);
  const UserInteractionRequest request(u"title", u"message", interaction::kQuestion, true, u"ok", u"cancel",
                                       Uuid(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11), false, interaction::kDetailed);
  EXPECT_EQ(base.RequestUserInteraction(request), 2);
  EXPECT_EQ(request.GetMessageW(), u"message");
  EXPECT_EQ(request.GetConfirmButtonKey(), u"ok");
  EXPECT_EQ(request.GetCancelButtonKey(), u"cancel");
  EXPECT_TRUE(request.IsSingleButton());
  EXPECT_FALSE(request.GetIsPersistConfirmOnly());
  EXPECT_EQ(request.GetPersistenceUuid().A(), 1);
  EXPECT_EQ(request.GetVerbosityLevel(), interaction::kDetailed);

  struct Counting : OMessageDispatcher {
    int DispatchMessage_Sync(unsigned int msg) override { return static_cast<int>(msg) * 2; }
  };
  const std::shared_ptr<OMessageDispatcher> before = OMessageDispatcher::GetInstance();
  ASSERT_NE(before, nullptr);
  EXPECT_EQ(before->DispatchMessage_Sync(4), -1);
  OMessageDispatcher::SetInstance(std::make_shared<Counting>());
  EXPECT_EQ(OMessageDispatcher::GetInstance()->DispatchMessage_Sync(4), 8);
  OMessageDispatcher::SetInstance(nullptr);
  EXPECT_EQ(OMessageDispatcher::GetInstance()->DispatchMessage_Sync(4), -1);
}

}  // namespace
}  // namespace nk::testing
