#include "nkfoundation/services/win32/message_dispatcher_hwnd.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <utility>
#include <vector>

namespace nk::testing {
namespace {

// (wParam, lParam read back as int) of each WM_COMMAND, in order.
using Received = std::vector<std::pair<WPARAM, int>>;

// A message-only window, its procedure replaced, that records the WM_COMMAND
// messages it receives and answers each with a fixed result.
class CommandRecorder {
 public:
  explicit CommandRecorder(LRESULT answer)
      : hwnd_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)),
        answer_(answer) {
    SetWindowLongPtrW(hwnd_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(hwnd_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
  }
  CommandRecorder(const CommandRecorder&) = delete;
  CommandRecorder& operator=(const CommandRecorder&) = delete;
  ~CommandRecorder() { DestroyWindow(hwnd_); }

  HWND hwnd() const { return hwnd_; }
  Received received;

 private:
  static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message != WM_COMMAND) return DefWindowProcW(hwnd, message, wparam, lparam);
    auto* self = reinterpret_cast<CommandRecorder*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    self->received.emplace_back(wparam, static_cast<int>(lparam));
    return self->answer_;
  }

  HWND hwnd_;
  LRESULT answer_;
};

// Delivers what was posted to this thread's windows.
void PumpMessages() {
  MSG msg;
  while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&msg);
}

TEST(MessageDispatcherHwndTest, WindowsAreKeptOnlyWhileTheyExist) {
  CommandRecorder window(0);
  const HWND destroyed = CommandRecorder(0).hwnd();  // gone with its recorder
  OMessageDispatcher_HWND dispatcher(window.hwnd());
  EXPECT_EQ(dispatcher.GetMessageWnd(), window.hwnd());
  EXPECT_FALSE(dispatcher.SetMessageWnd(destroyed));
  EXPECT_EQ(dispatcher.GetMessageWnd(), nullptr);
  EXPECT_TRUE(dispatcher.SetTempMessageWnd(window.hwnd()));
  EXPECT_FALSE(dispatcher.SetTempMessageWnd(nullptr));
  EXPECT_EQ(dispatcher.GetTempMessageWnd(), nullptr);
  EXPECT_EQ(OMessageDispatcher_HWND(destroyed).GetMessageWnd(), nullptr);
}

// Which windows receive an event and what the dispatch answers, for every
// combination of set windows and `both`. The temporary window answers 11, the
// message window 22; a successful post answers 1.
TEST(MessageDispatcherHwndTest, SyncAndAsyncReachTheWindowsByTheReturnRules) {
  const struct {
    bool temp, main, both;
    int sync_result, async_result;
    bool temp_receives, main_receives;
  } kCases[] = {
      {false, false, false, 0, 0, false, false}, {false, false, true, 0, 0, false, false},
      {false, true, false, 22, 1, false, true},  {false, true, true, 22, 0, false, true},
      {true, false, false, 11, 1, true, false},  {true, false, true, 11, 0, true, false},
      {true, true, false, 11, 1, true, false},   {true, true, true, 22, 0, true, true},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(::testing::Message() << "temp " << c.temp << " main " << c.main << " both " << c.both);
    CommandRecorder temp(11), main(22);
    OMessageDispatcher_HWND dispatcher;
    if (c.temp) dispatcher.SetTempMessageWnd(temp.hwnd());
    if (c.main) dispatcher.SetMessageWnd(main.hwnd());
    const Received once = {{0x8001, -3}}, twice = {{0x8001, -3}, {0x8002, 70000}};

    EXPECT_EQ(dispatcher.DispatchMessageData_Sync(0x8001, -3, c.both), c.sync_result);
    EXPECT_EQ(dispatcher.DispatchMessageData_Async(0x8002, 70000, c.both), c.async_result);
    // Posted: nothing more arrives before the queue is pumped.
    EXPECT_EQ(temp.received, c.temp_receives ? once : Received{});
    EXPECT_EQ(main.received, c.main_receives ? once : Received{});
    PumpMessages();
    EXPECT_EQ(temp.received, c.temp_receives ? twice : Received{});
    EXPECT_EQ(main.received, c.main_receives ? twice : Received{});
  }
}

TEST(MessageDispatcherHwndTest, OneArgumentFormsCarryTheDefaultDataToOneWindow) {
  CommandRecorder temp(11), main(22);
  OMessageDispatcher_HWND dispatcher(main.hwnd());
  dispatcher.SetDefaultMessageData(7);
  EXPECT_EQ(dispatcher.DispatchMessage_Sync(5), 22);
  EXPECT_EQ(dispatcher.DispatchMessage_Async(6), 1);
  dispatcher.SetTempMessageWnd(temp.hwnd());
  EXPECT_EQ(dispatcher.DispatchMessage_Sync(8), 11);  // not both: the temporary window only
  PumpMessages();
  EXPECT_EQ(main.received, (Received{{5, 7}, {6, 7}}));
  EXPECT_EQ(temp.received, (Received{{8, 7}}));
}

TEST(MessageDispatcherHwndTest, IsAWindowDispatcherThatAsksNothing) {
  OMessageDispatcher_HWND dispatcher;
  EXPECT_EQ(dispatcher.GetDispatcherType(), OMessageDispatcher::kWindow);
  const UserInteractionRequest request(u"title", u"message", interaction::kQuestion, false, u"yes", u"no", Uuid(),
                                       false, interaction::kEssential);
  EXPECT_EQ(dispatcher.RequestUserInteraction(request), interaction::kNotAsked);
}

}  // namespace
}  // namespace nk::testing
