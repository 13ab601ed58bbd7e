// The host's wait cursor around a long operation.
#ifndef NKFOUNDATION_SERVICES_WAIT_CURSOR_H_
#define NKFOUNDATION_SERVICES_WAIT_CURSOR_H_

#include "nkfoundation/core/export.h"

namespace nk {

// While it lives, the Windows build shows the stock wait cursor and afterwards
// makes the previous cursor current again, if there was one. Other builds have
// no cursor to change and do nothing.
class NKF_API ScopedWaitCursor {
 public:
  ScopedWaitCursor();
  ScopedWaitCursor(const ScopedWaitCursor&) = delete;
  ScopedWaitCursor& operator=(const ScopedWaitCursor&) = delete;
  ~ScopedWaitCursor();

 private:
  [[maybe_unused]] void* previous_ = nullptr;  // the cursor handle to restore (Windows)
};

}  // namespace nk

#endif  // NKFOUNDATION_SERVICES_WAIT_CURSOR_H_
