#include "nkfoundation/services/win32/message_dispatcher_hwnd.h"

namespace {

// A window handle is stored only while it names a window.
bool StoreWindow(HWND wnd, HWND& slot) {
  slot = (wnd != nullptr && IsWindow(wnd)) ? wnd : nullptr;
  return slot != nullptr;
}

int Send(HWND wnd, unsigned int msg, int data) {
  return static_cast<int>(SendMessageW(wnd, WM_COMMAND, static_cast<WPARAM>(msg), static_cast<LPARAM>(data)));
}

int Post(HWND wnd, unsigned int msg, int data) {
  return PostMessageW(wnd, WM_COMMAND, static_cast<WPARAM>(msg), static_cast<LPARAM>(data));
}

}  // namespace

OMessageDispatcher_HWND::OMessageDispatcher_HWND() = default;

OMessageDispatcher_HWND::OMessageDispatcher_HWND(HWND message_wnd) { SetMessageWnd(message_wnd); }

OMessageDispatcher_HWND::~OMessageDispatcher_HWND() = default;

bool OMessageDispatcher_HWND::SetMessageWnd(HWND wnd) { return StoreWindow(wnd, message_wnd_); }

bool OMessageDispatcher_HWND::SetTempMessageWnd(HWND wnd) { return StoreWindow(wnd, temp_message_wnd_); }

int OMessageDispatcher_HWND::DispatchMessage_Sync(unsigned int msg) {
  return DispatchMessageData_Sync(msg, GetDefaultMessageData(), false);
}

int OMessageDispatcher_HWND::DispatchMessage_Async(unsigned int msg) {
  return DispatchMessageData_Async(msg, GetDefaultMessageData(), false);
}

int OMessageDispatcher_HWND::DispatchMessageData_Sync(unsigned int msg, int data, bool both) {
  int result = 0;
  if (temp_message_wnd_ != nullptr) {
    result = Send(temp_message_wnd_, msg, data);
    if (!both) return result;
  }
  if (message_wnd_ != nullptr) return Send(message_wnd_, msg, data);
  return result;
}

// Unlike the synchronous form, `both` answers 0 whatever the posts did:
// callers that post to both windows do not look at the result.
int OMessageDispatcher_HWND::DispatchMessageData_Async(unsigned int msg, int data, bool both) {
  if (temp_message_wnd_ != nullptr) {
    const int result = Post(temp_message_wnd_, msg, data);
    if (!both) return result;
  }
  if (message_wnd_ == nullptr) return 0;
  const int result = Post(message_wnd_, msg, data);
  return both ? 0 : result;
}

int OMessageDispatcher_HWND::GetDefaultMessageData() { return default_data_; }

void OMessageDispatcher_HWND::SetDefaultMessageData(int data) { default_data_ = data; }

void OMessageDispatcher_HWND::SetVerbosityLevel(interaction::RequestType level) { verbosity_ = level; }

int OMessageDispatcher_HWND::GetDispatcherType() { return kWindow; }

interaction::ResultType OMessageDispatcher_HWND::RequestUserInteraction(const UserInteractionRequest& /*request*/) {
  return interaction::kNotAsked;
}
