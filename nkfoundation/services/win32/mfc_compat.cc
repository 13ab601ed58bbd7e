#include "nkfoundation/services/win32/mfc_compat.h"

#if !defined(NK_HAVE_MFC)

#include <memory>
#include <unordered_map>

namespace {

// One wrapper per handle and thread, as the framework keeps its temporary
// objects; a wrapper holds nothing but the handle.
template <typename Wrapper, typename Handle, Handle Wrapper::*kHandle>
class TempMap {
 public:
  static Wrapper* FromHandle(Handle handle) {
    if (handle == nullptr) return nullptr;
    std::unique_ptr<Wrapper>& wrapper = Wrappers()[handle];
    if (!wrapper) {
      wrapper = std::make_unique<Wrapper>();
      (*wrapper).*kHandle = handle;
    }
    return wrapper.get();
  }
  static void Clear() { Wrappers().clear(); }

 private:
  static std::unordered_map<Handle, std::unique_ptr<Wrapper>>& Wrappers() {
    thread_local std::unordered_map<Handle, std::unique_ptr<Wrapper>> wrappers;
    return wrappers;
  }
};

using WindowMap = TempMap<CWnd, HWND, &CWnd::m_hWnd>;
using MenuMap = TempMap<CMenu, HMENU, &CMenu::m_hMenu>;

}  // namespace

CCmdTarget::~CCmdTarget() = default;

BOOL CCmdTarget::OnCmdMsg(UINT /*nID*/, int /*nCode*/, void* /*pExtra*/, AFX_CMDHANDLERINFO* /*pHandlerInfo*/) {
  return FALSE;
}

CWnd* CWnd::FromHandle(HWND hWnd) { return WindowMap::FromHandle(hWnd); }

void CWnd::DeleteTempMap() { WindowMap::Clear(); }

CWnd* CWnd::GetWindow(UINT nCmd) const { return FromHandle(::GetWindow(m_hWnd, nCmd)); }

BOOL CWnd::EnableWindow(BOOL bEnable) { return ::EnableWindow(m_hWnd, bEnable); }

CMenu* CMenu::FromHandle(HMENU hMenu) { return MenuMap::FromHandle(hMenu); }

void CMenu::DeleteTempMap() { MenuMap::Clear(); }

UINT CMenu::GetMenuItemCount() const { return static_cast<UINT>(::GetMenuItemCount(m_hMenu)); }

UINT CMenu::GetMenuItemID(int nPos) const { return ::GetMenuItemID(m_hMenu, nPos); }

CMenu* CMenu::GetSubMenu(int nPos) const { return FromHandle(::GetSubMenu(m_hMenu, nPos)); }

UINT CMenu::EnableMenuItem(UINT nIDEnableItem, UINT nEnable) {
  return static_cast<UINT>(::EnableMenuItem(m_hMenu, nIDEnableItem, nEnable));
}

CCmdUI::~CCmdUI() = default;

void CCmdUI::Enable(BOOL bOn) {
  m_bEnableChanged = TRUE;
  if (m_pMenu == nullptr || m_pSubMenu != nullptr) return;
  m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (bOn ? MF_ENABLED : (MF_DISABLED | MF_GRAYED)));
}

void CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler) {
  if (pTarget == nullptr || m_nID == 0 || LOWORD(m_nID) == 0xFFFF) return;
  m_bEnableChanged = FALSE;
  pTarget->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
  if (bDisableIfNoHndler && !m_bEnableChanged) Enable(FALSE);
}

#endif  // !NK_HAVE_MFC
