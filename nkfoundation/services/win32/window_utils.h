// Helpers over the host's dialogs and menus.
#ifndef NKFOUNDATION_SERVICES_WIN32_WINDOW_UTILS_H_
#define NKFOUNDATION_SERVICES_WIN32_WINDOW_UTILS_H_

#include "nkfoundation/core/export.h"
#include "nkfoundation/services/win32/mfc_compat.h"

namespace utils {

// Enables or disables every direct child of `window` (its controls, when it
// is a dialog); the children's own children are left as they are. A null
// window or one without children is left alone.
NKF_API void EnableAllDialogControls(CWnd* window, bool enable);

// Runs `target`'s update-command handlers for every command item of `menu`
// and of its pop-ups, depth first, as a frame window does before it shows its
// own menu: for menus that no frame owns, such as context menus. Separators
// are skipped.
NKF_API void CmdRouteMenu(CWnd* target, CMenu* menu);

}  // namespace utils

#endif  // NKFOUNDATION_SERVICES_WIN32_WINDOW_UTILS_H_
