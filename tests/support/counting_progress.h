// A progress display that only counts the single steps it is advanced by.
#ifndef TESTS_SUPPORT_COUNTING_PROGRESS_H_
#define TESTS_SUPPORT_COUNTING_PROGRESS_H_

#include <cstdint>
#include <string>

#include "nkfoundation/core/progress_ctrl.h"

namespace nk::testing {

class CountingProgress : public AProgressCtrl {
 public:
  int steps = 0;

  void Increase() override { ++steps; }
  void End() override {}
  void Increase(std::int64_t) override {}
  void Increase(std::int64_t, bool) override {}
  void Increase(unsigned int) override {}
  void Increase(unsigned int, bool) override {}
  void Increase(int) override {}
  void Increase(int, bool) override {}
  void Length(std::int64_t) override {}
  void SetPos(std::int64_t) override {}
  void SetText(const std::u16string&) override {}
  void ThreadSafeUpdateDisplay() override {}
  void UpdateDisplay() override {}
};

}  // namespace nk::testing

#endif  // TESTS_SUPPORT_COUNTING_PROGRESS_H_
