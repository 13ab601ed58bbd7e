#include "nkfoundation/services/win32/status_bar_hwnd.h"

#include <gtest/gtest.h>
#include <windows.h>
// After windows.h, which it builds on.
#include <commctrl.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include "nkfoundation/services/progress_ctrl.h"

namespace nk::testing {
namespace {

// The tests are not linked with comctl32, so its initialisation is looked up
// at run time, as a host that loads the common controls late would.
bool InitCommonControls() {
  using InitFunction = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
  const HMODULE comctl32 = LoadLibraryW(L"comctl32.dll");
  if (comctl32 == nullptr) return false;
  const auto init =
      reinterpret_cast<InitFunction>(reinterpret_cast<void*>(GetProcAddress(comctl32, "InitCommonControlsEx")));
  const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
  return init != nullptr && init(&controls);
}

// A shown top-level window with a two-pane status bar, as the desktop
// application has: texts in pane 0, the progress bar over pane 1.
class StatusBarWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(InitCommonControls());
    frame_ = CreateWindowExW(0, L"STATIC", L"frame", WS_OVERLAPPEDWINDOW, 0, 0, 400, 200, nullptr, nullptr, nullptr,
                             nullptr);
    status_ = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, frame_, nullptr, nullptr,
                              nullptr);
    ASSERT_NE(status_, nullptr);
    int right_edges[] = {200, -1};
    SendMessageW(status_, SB_SETPARTS, 2, reinterpret_cast<LPARAM>(right_edges));
    ShowWindow(frame_, SW_SHOWNOACTIVATE);
  }
  void TearDown() override { DestroyWindow(frame_); }

  static LRESULT Ask(const OStatusBar_HWND& bar, UINT message, WPARAM wparam = 0) {
    return SendMessageW(bar.GetProgressWnd(), message, wparam, 0);
  }

  HWND frame_ = nullptr;
  HWND status_ = nullptr;
};

TEST_F(StatusBarWindowTest, ProgressBarSitsOverItsPaneWithTwentyFiveSteps) {
  OStatusBar_HWND bar(status_, 1);
  ASSERT_TRUE(bar.HasProgressWindow());
  EXPECT_FALSE(OStatusBar_HWND(nullptr, 0).HasProgressWindow());
  EXPECT_EQ(GetParent(bar.GetProgressWnd()), status_);
  EXPECT_EQ(Ask(bar, PBM_GETRANGE, TRUE), 0);
  EXPECT_EQ(Ask(bar, PBM_GETRANGE, FALSE), 25);
  bar.StepProgress();
  EXPECT_EQ(Ask(bar, PBM_GETPOS), 1);  // step 1, not the control's default of 10

  // Each owns its own progress bar and destroys only that one.
  auto second = std::make_unique<OStatusBar_HWND>(status_, 1);
  const HWND second_wnd = second->GetProgressWnd();
  ASSERT_TRUE(IsWindow(second_wnd));
  second.reset();
  EXPECT_FALSE(IsWindow(second_wnd));
  EXPECT_TRUE(bar.HasProgressWindow());
}

TEST_F(StatusBarWindowTest, WorkerStepsBySentMessagesWhileTheOwnerPumps) {
  OStatusBar_HWND bar(status_, 1);
  OProgressCtrl progress(&bar, 0);
  progress.Length(1000);
  std::atomic<bool> done{false};
  std::thread worker([&] {
    for (int position = 0; position <= 1000; position += 10) progress.SetPos(position, true);
    done = true;
  });
  for (MSG msg; !done;) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&msg);
  }
  worker.join();
  EXPECT_EQ(Ask(bar, PBM_GETPOS), 25);
  EXPECT_EQ(progress.GetDisplayStep(), 25);
  progress.End();
  EXPECT_EQ(Ask(bar, PBM_GETPOS), 0);
}

TEST_F(StatusBarWindowTest, PostedStepsAreTakenByTheirOwnPump) {
  OStatusBar_HWND bar(status_, 1);
  OProgressCtrl progress(&bar, 0);
  progress.Length(100);
  progress.SetPos(40);
  progress.ThreadSafeUpdateDisplay();
  EXPECT_EQ(Ask(bar, PBM_GETPOS), 10);  // taken before the call returned
  MSG left;
  EXPECT_FALSE(PeekMessageW(&left, bar.GetProgressWnd(), PBM_STEPIT, PBM_STEPIT, PM_NOREMOVE));

  // Only a visible bar is put back by End.
  ShowWindow(frame_, SW_HIDE);
  progress.End();
  EXPECT_EQ(Ask(bar, PBM_GETPOS), 10);
  ShowWindow(frame_, SW_SHOWNOACTIVATE);
  progress.End();
  EXPECT_EQ(Ask(bar, PBM_GETPOS), 0);
}

TEST_F(StatusBarWindowTest, TextGoesIntoItsPane) {
  OStatusBar_HWND bar(status_, 1);
  OProgressCtrl(&bar, 0).SetText(u"Lade Prüfprogramm");
  bar.SetText(1, u"second");
  bar.SetText(256, u"ignored");  // no such pane: would otherwise set drawing flags of pane 0
  for (const auto& [pane, text] : {std::pair{0, L"Lade Prüfprogramm"}, {1, L"second"}}) {
    wchar_t shown[64] = {};
    SendMessageW(status_, SB_GETTEXTW, pane, reinterpret_cast<LPARAM>(shown));
    EXPECT_EQ(std::wstring(shown), text);
  }
}

}  // namespace
}  // namespace nk::testing
