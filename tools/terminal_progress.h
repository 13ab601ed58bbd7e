// A progress bar on the terminal, for the program's long operations.
#ifndef NKFOUNDATION_TOOLS_TERMINAL_PROGRESS_H_
#define NKFOUNDATION_TOOLS_TERMINAL_PROGRESS_H_

#include <cstdio>
#include <string>

#include "nkfoundation/services/status_bar.h"

namespace nkf::tools {

// The status bar of the command line: a line of 25 cells on standard error,
// redrawn in place, followed by the status text. It draws only when
// standard error is a terminal, so redirected output and logs stay clean; the
// results a command prints on standard output are not mixed into the bar.
//
//   TerminalProgress bar;
//   OProgressCtrl progress(&bar);
//   progress.Length(total); ... progress.Increase(n, true); ... progress.End();
class TerminalProgress : public AStatusBar {
 public:
  TerminalProgress();
  TerminalProgress(const TerminalProgress&) = delete;
  TerminalProgress& operator=(const TerminalProgress&) = delete;
  ~TerminalProgress() override;

  bool HasProgressWindow() const override { return drawing_; }
  void StepProgress() override;
  void PostStepProgress() override;
  // Clears the line, so that the next output starts on a clean line.
  void ResetProgress() override;
  void SetText(int pane, const std::u16string& text) override;

 private:
  void Draw();

  std::FILE* const out_;
  const bool drawing_;
  int cells_ = 0;
  std::string text_;
  // Characters of the last line drawn, to blank it out when clearing.
  int drawn_ = 0;
};

}  // namespace nkf::tools

#endif  // NKFOUNDATION_TOOLS_TERMINAL_PROGRESS_H_
