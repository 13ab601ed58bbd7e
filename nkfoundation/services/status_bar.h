// AStatusBar: the window side of a progress display.
#ifndef NKFOUNDATION_SERVICES_STATUS_BAR_H_
#define NKFOUNDATION_SERVICES_STATUS_BAR_H_

#include <string>

#include "nkfoundation/core/export.h"

// What `OProgressCtrl` needs of the status bar that owns its progress
// window. On Windows it wraps the host's status bar and its progress control
// (range 0..25, step 1, advanced only by step messages); the command-line
// program implements it with a bar drawn on the terminal. `OProgressCtrl`
// calls it with its own lock held, from whichever thread drives the progress.
class NKF_API AStatusBar {
 public:
  // Defined in the library, so that the interface's virtual table and type
  // are exported from it rather than made anew by every implementer.
  virtual ~AStatusBar();

  // Whether the progress window exists, so that steps can be shown.
  virtual bool HasProgressWindow() const = 0;
  // Advances the progress window by one step and returns once it has taken
  // the step (a sent message).
  virtual void StepProgress() = 0;
  // Advances it by one step from the thread that owns the window while that
  // thread is busy: the step is queued and the window allowed to repaint (a
  // posted message and a short message pump).
  virtual void PostStepProgress() = 0;
  // Puts the progress window back to its start if it is visible.
  virtual void ResetProgress() = 0;
  // Shows `text` in the status bar's pane `pane`.
  virtual void SetText(int pane, const std::u16string& text) = 0;
};

#endif  // NKFOUNDATION_SERVICES_STATUS_BAR_H_
