// OStatusBar_HWND: the desktop application's status bar as the owner of a
// progress display.
#ifndef NKFOUNDATION_SERVICES_WIN32_STATUS_BAR_HWND_H_
#define NKFOUNDATION_SERVICES_WIN32_STATUS_BAR_HWND_H_

#include <windows.h>

#include <string>

#include "nkfoundation/core/export.h"
#include "nkfoundation/services/status_bar.h"

// Wraps the host's status bar window (a common-controls status bar) and owns
// a progress bar created as its child over one of its panes, with range
// 0..25 and step 1, so that `OProgressCtrl` can show its 25 steps:
//
//   OStatusBar_HWND bar(status_bar_hwnd, 1);   // progress bar over pane 1
//   OProgressCtrl progress(&bar, 0);           // texts into pane 0
//
// The host has initialised the common controls (it made the status bar).
// Construction, destruction and `FitProgressWindow` belong on the thread that
// owns the status bar; the steps may come from any thread (see
// `OProgressCtrl`), a sent step waiting until the owner thread takes it.
class NKF_API OStatusBar_HWND : public AStatusBar {
 public:
  // Without a status bar window, or if the progress bar cannot be created,
  // there is no progress window and steps are not shown.
  OStatusBar_HWND(HWND status_bar, int progress_pane);
  OStatusBar_HWND(const OStatusBar_HWND&) = delete;
  OStatusBar_HWND& operator=(const OStatusBar_HWND&) = delete;
  // Destroys the progress bar.
  ~OStatusBar_HWND() override;

  HWND GetStatusBarWnd() const { return status_bar_; }
  HWND GetProgressWnd() const { return progress_; }
  // Lays the progress bar over its pane again, for the host to call after the
  // status bar's size or panes changed.
  void FitProgressWindow();

  bool HasProgressWindow() const override;
  // PBM_STEPIT, sent.
  void StepProgress() override;
  // PBM_STEPIT, posted; then the calling thread's paint messages and its
  // first ten user messages (WM_USER + 1 to + 10, the progress bar's own
  // among them) are dispatched until none is left, and the thread sleeps
  // 4 ms so that the bar gets to be seen.
  void PostStepProgress() override;
  // PBM_SETPOS 0 if the progress bar is visible.
  void ResetProgress() override;
  // SB_SETTEXTW into pane `pane` (0..255; others are ignored).
  void SetText(int pane, const std::u16string& text) override;

 private:
  HWND status_bar_ = nullptr;
  HWND progress_ = nullptr;
  int progress_pane_ = 0;
};

#endif  // NKFOUNDATION_SERVICES_WIN32_STATUS_BAR_HWND_H_
