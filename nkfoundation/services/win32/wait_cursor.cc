#include "nkfoundation/services/wait_cursor.h"

#include <windows.h>

namespace nk {

ScopedWaitCursor::ScopedWaitCursor()
    : previous_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}

ScopedWaitCursor::~ScopedWaitCursor() {
  if (previous_ != nullptr) SetCursor(static_cast<HCURSOR>(previous_));
}

}  // namespace nk
