// A private folder in the system's temporary directory, removed with all it
// holds when the test ends.
#ifndef TESTS_SUPPORT_TEMP_DIR_H_
#define TESTS_SUPPORT_TEMP_DIR_H_

#include <filesystem>
#include <random>
#include <string>
#include <system_error>

namespace nk::testing {

class TempDir {
 public:
  TempDir() { std::filesystem::create_directories(path_); }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  ~TempDir() { std::filesystem::remove_all(path_, ignored_); }

  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
  const std::filesystem::path& path() const { return path_; }

 private:
  // A random name keeps test processes that run side by side apart.
  std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                ("nkfoundation-test-" + std::to_string(std::random_device{}()));
  std::error_code ignored_;
};

}  // namespace nk::testing

#endif  // TESTS_SUPPORT_TEMP_DIR_H_
