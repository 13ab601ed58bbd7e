#include "nkfoundation/services/win32/status_bar_hwnd.h"

#include <commctrl.h>

#include <cstdint>

#include "nkfoundation/services/progress_ctrl.h"

static_assert(sizeof(wchar_t) == sizeof(char16_t), "Windows text is UTF-16");

namespace {

// The pump of a posted step lets through paint messages and the first ten
// user messages, nothing else: the caller is busy and must not find itself
// handling input or commands in the middle of its work.
constexpr UINT kFirstPumpedUserMessage = WM_USER + 1;
constexpr UINT kLastPumpedUserMessage = WM_USER + 10;
constexpr DWORD kStepPause = 4;  // ms

static_assert(PBM_STEPIT >= kFirstPumpedUserMessage && PBM_STEPIT <= kLastPumpedUserMessage,
              "a posted step is taken by the pump that follows it");

// Dispatches one waiting message of the calling thread in first..last.
bool DispatchOne(UINT first, UINT last) {
  MSG msg;
  if (!PeekMessageW(&msg, nullptr, first, last, PM_REMOVE)) return false;
  TranslateMessage(&msg);
  DispatchMessageW(&msg);
  return true;
}

}  // namespace

OStatusBar_HWND::OStatusBar_HWND(HWND status_bar, int progress_pane) : progress_pane_(progress_pane) {
  if (status_bar == nullptr || !IsWindow(status_bar)) return;
  status_bar_ = status_bar;
  progress_ = CreateWindowExW(0, PROGRESS_CLASSW, nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, status_bar_, nullptr,
                              nullptr, nullptr);
  if (progress_ == nullptr) return;
  SendMessageW(progress_, PBM_SETRANGE32, 0, OProgressCtrl::kDisplaySteps);
  SendMessageW(progress_, PBM_SETSTEP, 1, 0);
  FitProgressWindow();
}

OStatusBar_HWND::~OStatusBar_HWND() {
  if (progress_ != nullptr && IsWindow(progress_)) DestroyWindow(progress_);
}

void OStatusBar_HWND::FitProgressWindow() {
  if (!HasProgressWindow()) return;
  RECT pane{};
  if (!SendMessageW(status_bar_, SB_GETRECT, static_cast<WPARAM>(progress_pane_), reinterpret_cast<LPARAM>(&pane))) {
    return;
  }
  MoveWindow(progress_, pane.left, pane.top, pane.right - pane.left, pane.bottom - pane.top, TRUE);
}

bool OStatusBar_HWND::HasProgressWindow() const { return progress_ != nullptr && IsWindow(progress_); }

void OStatusBar_HWND::StepProgress() {
  if (progress_ != nullptr) SendMessageW(progress_, PBM_STEPIT, 0, 0);
}

void OStatusBar_HWND::PostStepProgress() {
  if (progress_ == nullptr) return;
  PostMessageW(progress_, PBM_STEPIT, 0, 0);
  for (;;) {
    const bool painted = DispatchOne(WM_PAINT, WM_PAINT);
    const bool handled = DispatchOne(kFirstPumpedUserMessage, kLastPumpedUserMessage);
    if (!painted && !handled) break;
  }
  Sleep(kStepPause);
}

void OStatusBar_HWND::ResetProgress() {
  if (progress_ != nullptr && IsWindowVisible(progress_)) SendMessageW(progress_, PBM_SETPOS, 0, 0);
}

void OStatusBar_HWND::SetText(int pane, const std::u16string& text) {
  if (status_bar_ == nullptr || pane < 0 || pane > 255) return;
  SendMessageW(status_bar_, SB_SETTEXTW, static_cast<WPARAM>(pane), reinterpret_cast<LPARAM>(text.c_str()));
}
