// CWnd, CMenu, CCmdUI and CCmdTarget: the class framework's window, menu and
// command-update types, as far as the dialog and menu helpers use them.
//
// A build with the host's class framework (NK_HAVE_MFC) uses the framework's
// own classes. The mingw build has no framework, so this header supplies
// small types of the same names over HWND and HMENU: code written against
// them builds unchanged with the framework.
#ifndef NKFOUNDATION_SERVICES_WIN32_MFC_COMPAT_H_
#define NKFOUNDATION_SERVICES_WIN32_MFC_COMPAT_H_

#if defined(NK_HAVE_MFC)

#include <afxwin.h>

#else  // !NK_HAVE_MFC

#include <windows.h>

#include "nkfoundation/core/export.h"

// Only ever passed on, as null: this build routes no command handlers.
struct AFX_CMDHANDLERINFO;

// The notification code under which a target receives update-command
// handling, its `pExtra` being the `CCmdUI*` to update.
inline constexpr int CN_UPDATE_COMMAND_UI = -1;

class CCmdUI;

// Something that handles commands. The framework finds handlers in message
// maps and reaches them through `OnCmdMsg`; here a target overrides
// `OnCmdMsg` itself, which the framework allows as well:
//
//   BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override {
//     if (code != CN_UPDATE_COMMAND_UI || id != ID_SAVE) return CWnd::OnCmdMsg(id, code, extra, info);
//     static_cast<CCmdUI*>(extra)->Enable(document_dirty_);
//     return TRUE;
//   }
class NKF_API CCmdTarget {
 public:
  CCmdTarget() = default;
  virtual ~CCmdTarget();
  // Hands command `nID` with notification `nCode` to its handler and returns
  // TRUE if there was one. This base has none.
  virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);
};

// A view of a window handle; it never destroys the window, which belongs to
// whoever created it.
class NKF_API CWnd : public CCmdTarget {
 public:
  // A wrapper of `hWnd` (null for null) that stays valid until
  // `DeleteTempMap` on this thread; one per handle.
  static CWnd* FromHandle(HWND hWnd);
  // Drops this thread's wrappers made by `FromHandle`; the framework does
  // this when the application is idle, here the host decides.
  static void DeleteTempMap();

  // The window in relation `nCmd` (GW_CHILD, GW_HWNDNEXT, ...), or null.
  CWnd* GetWindow(UINT nCmd) const;
  // Returns whether the window was disabled before.
  BOOL EnableWindow(BOOL bEnable = TRUE);

  HWND m_hWnd = nullptr;
};

// A view of a menu handle; like `CWnd` it never destroys the menu.
class NKF_API CMenu {
 public:
  // As `CWnd::FromHandle` and `CWnd::DeleteTempMap`.
  static CMenu* FromHandle(HMENU hMenu);
  static void DeleteTempMap();

  // The number of items; (UINT)-1 if the handle is not a menu.
  UINT GetMenuItemCount() const;
  // The command id of the item at `nPos`: 0 for a separator, (UINT)-1 for a
  // pop-up or a missing item.
  UINT GetMenuItemID(int nPos) const;
  // The pop-up at `nPos`, or null.
  CMenu* GetSubMenu(int nPos) const;
  // MF_BYCOMMAND or MF_BYPOSITION with MF_ENABLED, MF_DISABLED or MF_GRAYED;
  // returns the previous state, (UINT)-1 if there is no such item.
  UINT EnableMenuItem(UINT nIDEnableItem, UINT nEnable);

  HMENU m_hMenu = nullptr;
};

// The state of one user-interface item while its update handler runs: which
// command it is and where it sits. Only menu items are updated here.
class NKF_API CCmdUI {
 public:
  CCmdUI() = default;
  virtual ~CCmdUI();

  // Enables or disables (greys) the item `m_nIndex` of `m_pMenu`; a pop-up
  // (`m_pSubMenu` set) is left alone.
  virtual void Enable(BOOL bOn = TRUE);
  // Lets `pTarget` update the item with id `m_nID` (ids 0 and those whose low
  // word is 0xFFFF are skipped). With `bDisableIfNoHndler` an item whose
  // state no handler set is disabled; this build knows no command handlers
  // to look for beyond the update handlers.
  void DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);

  UINT m_nID = 0;
  UINT m_nIndex = 0;
  CMenu* m_pMenu = nullptr;
  CMenu* m_pSubMenu = nullptr;
  UINT m_nIndexMax = 0;
  // Set by `Enable`, so that `DoUpdate` sees whether a handler acted.
  BOOL m_bEnableChanged = FALSE;
};

#endif  // NK_HAVE_MFC

#endif  // NKFOUNDATION_SERVICES_WIN32_MFC_COMPAT_H_
