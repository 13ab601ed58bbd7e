// A private key under HKEY_CURRENT_USER\Software\NkFoundationTests for tests
// of registry code, removed with its whole tree when the test ends.
#ifndef TESTS_SUPPORT_WIN32_SCRATCH_REGISTRY_KEY_H_
#define TESTS_SUPPORT_WIN32_SCRATCH_REGISTRY_KEY_H_

#include <windows.h>

#include <string>

namespace nk::testing {

class ScratchRegistryKey {
 public:
  static constexpr const char* kParent = "Software\\NkFoundationTests";

  // `name` tells apart the suites; the process id keeps runs side by side
  // apart.
  explicit ScratchRegistryKey(const std::string& name)
      : name_(name + "-" + std::to_string(GetCurrentProcessId())), path_(std::string(kParent) + "\\" + name_) {
    RegDeleteTreeA(HKEY_CURRENT_USER, path_.c_str());
  }
  ScratchRegistryKey(const ScratchRegistryKey&) = delete;
  ScratchRegistryKey& operator=(const ScratchRegistryKey&) = delete;
  ~ScratchRegistryKey() {
    RegDeleteTreeA(HKEY_CURRENT_USER, path_.c_str());
    // Only succeeds once no other test keeps a key there.
    RegDeleteKeyA(HKEY_CURRENT_USER, kParent);
  }

  // The key's own name, below kParent.
  const std::string& name() const { return name_; }
  // Below HKEY_CURRENT_USER.
  const std::string& path() const { return path_; }
  std::string operator/(const std::string& below) const { return path_ + "\\" + below; }

  bool Exists(const std::string& below = "") const {
    HKEY key = nullptr;
    const std::string path = below.empty() ? path_ : *this / below;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
  }

 private:
  std::string name_;
  std::string path_;
};

}  // namespace nk::testing

#endif  // TESTS_SUPPORT_WIN32_SCRATCH_REGISTRY_KEY_H_
