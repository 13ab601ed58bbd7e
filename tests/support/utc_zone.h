// A fixture that runs its tests with the process's local time zone set to
// UTC, so conversions through local time give fixed results on every host.
#ifndef TESTS_SUPPORT_UTC_ZONE_H_
#define TESTS_SUPPORT_UTC_ZONE_H_

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace nk::testing {

class UtcZoneTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (const char* zone = std::getenv("TZ")) saved_ = zone;
    SetZone("UTC");
  }
  void TearDown() override { SetZone(saved_ ? saved_->c_str() : nullptr); }

 private:
  // A null zone removes the variable, giving the host's own zone back.
  static void SetZone(const char* zone) {
#if defined(_WIN32)
    _putenv_s("TZ", zone ? zone : "");
    _tzset();
#else
    zone ? setenv("TZ", zone, 1) : unsetenv("TZ");
    tzset();
#endif
  }

  std::optional<std::string> saved_;
};

}  // namespace nk::testing

#endif  // TESTS_SUPPORT_UTC_ZONE_H_
