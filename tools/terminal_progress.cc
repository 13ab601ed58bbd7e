#include "terminal_progress.h"

#include <algorithm>

#ifdef _WIN32
#include <io.h>
#define NKF_ISATTY _isatty
#define NKF_FILENO _fileno
#else
#include <unistd.h>
#define NKF_ISATTY isatty
#define NKF_FILENO fileno
#endif

#include "nkfoundation/core/text.h"
#include "nkfoundation/services/progress_ctrl.h"

namespace nkf::tools {

TerminalProgress::TerminalProgress() : out_(stderr), drawing_(NKF_ISATTY(NKF_FILENO(stderr)) != 0) {}

TerminalProgress::~TerminalProgress() { ResetProgress(); }

void TerminalProgress::StepProgress() {
  // Like the window's bar, the line never runs past its last cell.
  if (cells_ < OProgressCtrl::kDisplaySteps) ++cells_;
  Draw();
}

// The terminal has no message queue: a step from any thread is drawn at once.
void TerminalProgress::PostStepProgress() { StepProgress(); }

void TerminalProgress::ResetProgress() {
  cells_ = 0;
  if (!drawing_ || drawn_ == 0) return;
  std::fprintf(out_, "\r%*s\r", drawn_, "");
  std::fflush(out_);
  drawn_ = 0;
}

void TerminalProgress::SetText(int /*pane*/, const std::u16string& text) {
  text_ = nk::ToUtf8(text);
  if (cells_ > 0) Draw();
}

void TerminalProgress::Draw() {
  if (!drawing_) return;
  const int steps = static_cast<int>(OProgressCtrl::kDisplaySteps);
  std::string line = "\r[";
  line.append(static_cast<std::size_t>(cells_), '#');
  line.append(static_cast<std::size_t>(steps - cells_), '.');
  line += "] ";
  line += text_;
  const int width = static_cast<int>(line.size()) - 1;
  // Blank out what a longer earlier text left behind.
  if (width < drawn_) line.append(static_cast<std::size_t>(drawn_ - width), ' ');
  drawn_ = std::max(drawn_, width);
  std::fputs(line.c_str(), out_);
  std::fflush(out_);
}

}  // namespace nkf::tools
