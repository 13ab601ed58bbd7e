// OMessageDispatcher_HWND: events for the desktop application as window
// messages.
#ifndef NKFOUNDATION_SERVICES_WIN32_MESSAGE_DISPATCHER_HWND_H_
#define NKFOUNDATION_SERVICES_WIN32_MESSAGE_DISPATCHER_HWND_H_

#include <windows.h>

#include "nkfoundation/core/export.h"
#include "nkfoundation/services/message_dispatcher.h"
#include "nkfoundation/services/user_interaction.h"

// Delivers event `msg` with `data` as WM_COMMAND (wParam = msg, lParam =
// data, sign-extended) to the host's message window, or, while one is set,
// to a temporary message window instead (a modal dialog that wants the
// events for itself); `both` reaches the message window as well.
//
//   Sync:  the temporary window's result unless `both`; with `both` (or no
//          temporary window) the message window's result, 0 if neither is set.
//   Async: the temporary window's PostMessageW success unless `both`; with no
//          temporary window the message window's; with `both` always 0.
//
// The windows are checked with IsWindow when they are set, not at dispatch:
// a window destroyed later simply receives nothing (result 0).
class NKF_API OMessageDispatcher_HWND : public OMessageDispatcher {
 public:
  OMessageDispatcher_HWND();
  // Sets the message window as `SetMessageWnd` does.
  explicit OMessageDispatcher_HWND(HWND message_wnd);
  ~OMessageDispatcher_HWND() override;

  // Stores `wnd` if it is a window and returns true; otherwise stores null
  // and returns false.
  bool SetMessageWnd(HWND wnd);
  bool SetTempMessageWnd(HWND wnd);
  HWND GetMessageWnd() const { return message_wnd_; }
  HWND GetTempMessageWnd() const { return temp_message_wnd_; }

  // With the default message data and without `both`.
  int DispatchMessage_Sync(unsigned int msg) override;
  int DispatchMessage_Async(unsigned int msg) override;
  int DispatchMessageData_Sync(unsigned int msg, int data, bool both) override;
  int DispatchMessageData_Async(unsigned int msg, int data, bool both) override;
  // The data of the one-argument dispatches; 0 until set.
  int GetDefaultMessageData() override;
  void SetDefaultMessageData(int data) override;

  // Kept for the host, which decides what to show; the window dispatcher
  // itself asks nothing.
  void SetVerbosityLevel(interaction::RequestType level) override;
  interaction::RequestType GetVerbosityLevel() const { return verbosity_; }
  // kWindow.
  int GetDispatcherType() override;
  // Always kNotAsked: a request carries resource keys that only the host can
  // turn into texts, so questions are the business of a host's own
  // dispatcher, not of window messages.
  interaction::ResultType RequestUserInteraction(const UserInteractionRequest& request) override;

 private:
  HWND message_wnd_ = nullptr;
  HWND temp_message_wnd_ = nullptr;
  int default_data_ = 0;
  interaction::RequestType verbosity_ = interaction::kInformation;
};

#endif  // NKFOUNDATION_SERVICES_WIN32_MESSAGE_DISPATCHER_HWND_H_
