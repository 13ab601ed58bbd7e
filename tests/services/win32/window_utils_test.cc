#include "nkfoundation/services/win32/window_utils.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

namespace nk::testing {
namespace {

TEST(EnableAllDialogControlsTest, ReachesDirectChildrenOnly) {
  const auto window = [](HWND parent, const wchar_t* window_class) {
    return CreateWindowExW(0, window_class, L"", parent ? WS_CHILD | WS_VISIBLE : WS_OVERLAPPEDWINDOW, 0, 0, 50, 20,
                           parent, nullptr, nullptr, nullptr);
  };
  const HWND dialog = window(nullptr, L"STATIC");
  ASSERT_NE(dialog, nullptr);
  const HWND controls[] = {window(dialog, L"BUTTON"), window(dialog, L"EDIT"), window(dialog, L"STATIC")};
  const HWND grandchild = window(controls[2], L"BUTTON");
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
    UINT id, index;
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
    state->Enable(std::find(disable.begin(), disable.end(), nID) == disable.end() ? TRUE : FALSE);
    return TRUE;
  }
};

// `menu` with the items appended, each as (flags, id or popup handle).
HMENU Filled(HMENU menu, std::initializer_list<std::pair<UINT, UINT_PTR>> items) {
  for (const auto& [flags, id] : items) AppendMenuW(menu, flags, id, L"item");
  return menu;
}

std::pair<UINT, UINT_PTR> Popup(HMENU menu) { return {MF_POPUP, reinterpret_cast<UINT_PTR>(menu)}; }

bool IsGrayed(HMENU menu, UINT id) { return (GetMenuState(menu, id, MF_BYCOMMAND) & MF_GRAYED) != 0; }

TEST(CmdRouteMenuTest, UpdatesEveryCommandItemDepthFirstAndSkipsSeparators) {
  const HMENU recent = Filled(CreatePopupMenu(), {{MF_STRING, 111}, {MF_STRING, 112}});
  const HMENU file = Filled(CreatePopupMenu(), {{MF_STRING, 101}, {MF_SEPARATOR, 0}, Popup(recent), {MF_STRING, 102}});
  const HMENU bar = Filled(CreateMenu(), {Popup(file), {MF_STRING, 0xFFFF}, {MF_STRING, 103}});
  RecordingTarget target;
  target.disable = {102, 111};
  utils::CmdRouteMenu(&target, CMenu::FromHandle(bar));

  const std::vector<RecordingTarget::Update> expected = {
      {101, 0, file, 4}, {111, 0, recent, 2}, {112, 1, recent, 2}, {102, 3, file, 4}, {103, 2, bar, 3}};
  EXPECT_EQ(target.updates, expected);
  EXPECT_TRUE(target.other_codes.empty());
  for (UINT id : {101, 102, 103, 111, 112}) EXPECT_EQ(IsGrayed(bar, id), id == 102 || id == 111) << id;

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
  const HMENU menu = Filled(CreatePopupMenu(), {{MF_STRING, 201}, {MF_STRING, 202}});
  CCmdUI state;
  state.m_pMenu = CMenu::FromHandle(menu);
  state.m_nIndexMax = 2;
  state.m_nIndex = 1;
  state.m_nID = 202;
  CCmdTarget no_handlers;
  state.DoUpdate(&no_handlers, TRUE);
  EXPECT_TRUE(IsGrayed(menu, 202));
  // A handler that sets the state decides.
  RecordingTarget target;
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
