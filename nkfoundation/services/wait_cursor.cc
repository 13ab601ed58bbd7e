// Builds without Windows have no cursor to change; win32/wait_cursor.cc
// supplies the Windows behaviour.
#ifndef _WIN32

#include "nkfoundation/services/wait_cursor.h"

namespace nk {

ScopedWaitCursor::ScopedWaitCursor() = default;
ScopedWaitCursor::~ScopedWaitCursor() = default;

}  // namespace nk

#endif  // _WIN32
