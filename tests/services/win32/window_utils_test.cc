#include "nkfoundation/services/win32/window_utils.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <map>
#include <utility>
#include <vector>

namespace nk::testing {
namespace {

TEST(EnableAllDialogControlsTest, ReachesDirectChildrenOnly) {
  HWND dialog = CreateWindowExW(0, L"STATIC", L"dialog", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, nullptr, nullptr,
                                nullptr, nullptr);
  ASSERT_NE(dialog, nullptr);
  const auto child_of = [](HWND parent, const wchar_t* window_class) {
    return CreateWindowExW(0, window_class, L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, parent, nullptr, nullptr,
                           nullptr);
  };
  const HWND controls[] = {child_of(dialog, L"BUTTON"), child_of(dialog, L"EDIT"), child_of(dialog, L"STATIC")};
  const HWND grandchild = child_of(controls[2], L"BUTTON");
  ASSERT_NE(grandchild, nullptr);
  EnableWindow(controls[1], FALSE);  // mixed states become one

  utils::EnableAllDialogControls(CWnd::FromHandle(dialog), false);
  for (HWND control : controls) EXPECT_FALSE(IsWindowEnabled(control));
  EXPECT_TRUE(IsWindowEnabled(grandchild));
  EXPECT_TRUE(IsWindowEnabled(dialog));

  EnableWindow(grandchild, FALSE);
  utils::EnableAllDialogControls(CWnd::FromHandle(dialog), true);
  for (HWND control : controls) EXPECT_TRUE(IsWindowEnabled(control));
  EXPECT_FALSE(IsWindowEnabled(grandchild));

  // Without children, or without a window, nothing happens.
  utils::EnableAllDialogControls(CWnd::FromHandle(grandchild), true);
  EXPECT_FALSE(IsWindowEnabled(grandchild));
  utils::EnableAllDialogControls(nullptr, false);

  DestroyWindow(dialog);
  CWnd::DeleteTempMap();
}

// A window whose update handlers record the ids they saw, with the item's
// place, and enable every item but those listed in `disable`.
class RecordingTarget : public CWnd {
 public:
  struct Update {
    UINT id;
    UINT index;
    HMENU menu;
    UINT index_max;
    bool operator==(const Update&) const = default;
  };
  std::vector<Update> updates;
  std::vector<UINT> disable;
  std::vector<UINT> other_codes;

  BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override {
    if (nCode != CN_UPDATE_COMMAND_UI) {
      other_codes.push_back(nID);
      return CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
    }
    auto* state = static_cast<CCmdUI*>(pExtra);
    updates.push_back({nID, state->m_nIndex, state->m_pMenu->m_hMenu, state->m_nIndexMax});
    EXPECT_EQ(state->m_pSubMenu, nullptr);
    bool enable = true;
    for (UINT id : disable) enable = enable && id != nID;
    state->Enable(enable ? TRUE : FALSE);
    return TRUE;
  }
};

bool IsGrayed(HMENU menu, UINT id) { return (GetMenuState(menu, id, MF_BYCOMMAND) & MF_GRAYED) != 0; }

TEST(CmdRouteMenuTest, UpdatesEveryCommandItemDepthFirstAndSkipsSeparators) {
  // File(101, separator, Recent(111, 112), 102), 0xFFFF, 103
  HMENU recent = CreatePopupMenu();
  AppendMenuW(recent, MF_STRING, 111, L"one");
  AppendMenuW(recent, MF_STRING, 112, L"two");
  HMENU file = CreatePopupMenu();
  AppendMenuW(file, MF_STRING, 101, L"open");
  AppendMenuW(file, MF_SEPARATOR, 0, nullptr);
  AppendMenuW(file, MF_POPUP, reinterpret_cast<UINT_PTR>(recent), L"recent");
  AppendMenuW(file, MF_STRING, 102, L"save");
  HMENU bar = CreateMenu();
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"file");
  AppendMenuW(bar, MF_STRING, 0xFFFF, L"no command");
  AppendMenuW(bar, MF_STRING, 103, L"help");

  RecordingTarget target;
  target.disable = {102, 111};
  utils::CmdRouteMenu(&target, CMenu::FromHandle(bar));

  const std::vector<RecordingTarget::Update> expected = {
      {101, 0, file, 4}, {111, 0, recent, 2}, {112, 1, recent, 2}, {102, 3, file, 4}, {103, 2, bar, 3}};
  EXPECT_EQ(target.updates, expected);
  EXPECT_TRUE(target.other_codes.empty());
  EXPECT_TRUE(IsGrayed(bar, 102));
  EXPECT_TRUE(IsGrayed(bar, 111));
  EXPECT_FALSE(IsGrayed(bar, 101));
  EXPECT_FALSE(IsGrayed(bar, 112));
  EXPECT_FALSE(IsGrayed(bar, 103));

  // No target, no menu, or a handle that is no menu: nothing is routed.
  target.updates.clear();
  utils::CmdRouteMenu(nullptr, CMenu::FromHandle(bar));
  utils::CmdRouteMenu(&target, nullptr);
  DestroyMenu(bar);
  utils::CmdRouteMenu(&target, CMenu::FromHandle(bar));
  EXPECT_TRUE(target.updates.empty());
  CMenu::DeleteTempMap();
}

TEST(CmdUiTest, DoUpdateDisablesItemsThatNoHandlerServedWhenAsked) {
  HMENU menu = CreatePopupMenu();
  AppendMenuW(menu, MF_STRING, 201, L"served");
  AppendMenuW(menu, MF_STRING, 202, L"unserved");
  RecordingTarget target;
  CCmdUI state;
  state.m_pMenu = CMenu::FromHandle(menu);
  state.m_nIndexMax = 2;
  state.m_nIndex = 1;
  state.m_nID = 202;
  CCmdTarget no_handlers;
  state.DoUpdate(&no_handlers, TRUE);
  EXPECT_TRUE(IsGrayed(menu, 202));
  // A handler that sets the state decides.
  EnableMenuItem(menu, 201, MF_BYCOMMAND | MF_GRAYED);
  state.m_nIndex = 0;
  state.m_nID = 201;
  state.DoUpdate(&target, TRUE);
  EXPECT_FALSE(IsGrayed(menu, 201));
  EXPECT_EQ(target.updates.size(), 1u);
  DestroyMenu(menu);
  CMenu::DeleteTempMap();
}

}  // namespace
}  // namespace nk::testing
