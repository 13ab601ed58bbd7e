// The progress interface that long operations report to.
#ifndef NKFOUNDATION_CORE_PROGRESS_CTRL_H_
#define NKFOUNDATION_CORE_PROGRESS_CTRL_H_

#include <cstdint>
#include <string>

#include "nkfoundation/core/export.h"

// A progress display that serialization and image work advance step by step.
// Implementations may be driven from worker threads. The flag of the
// `Increase` forms asks for the display to be brought up to date at once.
class NKF_API AProgressCtrl {
 public:
  // Defined in the library, so that the interface's vtable and type
  // information exist once, in the library, for every module that uses it.
  virtual ~AProgressCtrl();

  virtual void End() = 0;
  virtual void Increase() = 0;
  virtual void Increase(std::int64_t amount) = 0;
  virtual void Increase(std::int64_t amount, bool update) = 0;
  virtual void Increase(unsigned int amount) = 0;
  virtual void Increase(unsigned int amount, bool update) = 0;
  virtual void Increase(int amount) = 0;
  virtual void Increase(int amount, bool update) = 0;
  virtual void Length(std::int64_t length) = 0;
  virtual void SetPos(std::int64_t position) = 0;
  virtual void SetText(const std::u16string& text) = 0;
  virtual void ThreadSafeUpdateDisplay() = 0;
  virtual void UpdateDisplay() = 0;
};

#endif  // NKFOUNDATION_CORE_PROGRESS_CTRL_H_
