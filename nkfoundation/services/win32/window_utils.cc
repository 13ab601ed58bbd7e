#include "nkfoundation/services/win32/window_utils.h"

namespace utils {

namespace {

// What GetMenuItemID answers for a pop-up.
constexpr UINT kPopupItemId = 0xFFFFFFFF;

}  // namespace

void EnableAllDialogControls(CWnd* window, bool enable) {
  if (window == nullptr) return;
  for (CWnd* child = window->GetWindow(GW_CHILD); child != nullptr; child = child->GetWindow(GW_HWNDNEXT)) {
    child->EnableWindow(enable ? TRUE : FALSE);
  }
}

void CmdRouteMenu(CWnd* target, CMenu* menu) {
  if (target == nullptr || menu == nullptr) return;
  CCmdUI state;
  state.m_pMenu = menu;
  state.m_nIndexMax = menu->GetMenuItemCount();
  // A handle that is no menu counts (UINT)-1 items: nothing to route.
  if (state.m_nIndexMax == static_cast<UINT>(-1)) return;
  for (UINT index = 0; index < state.m_nIndexMax; ++index) {
    const UINT id = menu->GetMenuItemID(static_cast<int>(index));
    if (id == 0) continue;  // a separator
    if (id == kPopupItemId) {
      CmdRouteMenu(target, CMenu::FromHandle(::GetSubMenu(menu->m_hMenu, static_cast<int>(index))));
      continue;
    }
    state.m_nIndex = index;
    state.m_nID = id;
    state.m_pSubMenu = nullptr;
    state.DoUpdate(target, FALSE);
  }
}

}  // namespace utils
