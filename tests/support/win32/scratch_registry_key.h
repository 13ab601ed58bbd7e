// A private key under HKEY_CURRENT_USER\Software\NkFoundationTests for tests
// of registry code, removed with its whole tree when the test ends.
#ifndef TESTS_SUPPORT_WIN32_SCRATCH_REGISTRY_KEY_H_
#define TESTS_SUPPORT_WIN32_SCRATCH_REGISTRY_KEY_H_

#include <windows.h>

#include <string>
#include <utility>

#include "tests/support/bytes.h"

namespace nk::testing {

// A value's type and bytes as the registry holds them.
using StoredValue = std::pair<DWORD, Bytes>;

inline StoredValue StoredDword(DWORD value) { return {REG_DWORD, U32(value)}; }

class ScratchRegistryKey {
 public:
  // `name` tells the suites apart; the process id keeps concurrent runs apart.
  explicit ScratchRegistryKey(const std::string& name)
      : name_(name + "-" + std::to_string(GetCurrentProcessId())), path_(std::string(kParent) + "\\" + name_) {
    RegDeleteTreeA(HKEY_CURRENT_USER, path_.c_str());
  }
  ScratchRegistryKey(const ScratchRegistryKey&) = delete;
  ScratchRegistryKey& operator=(const ScratchRegistryKey&) = delete;
  ~ScratchRegistryKey() {
    RegDeleteTreeA(HKEY_CURRENT_USER, path_.c_str());
    RegDeleteKeyA(HKEY_CURRENT_USER, kParent);  // fails while another suite keeps a key there
  }

  const std::string& name() const { return name_; }  // below kParent
  const std::string& path() const { return path_; }  // below HKEY_CURRENT_USER
  std::string operator/(const std::string& below) const { return path_ + "\\" + below; }

  bool Exists(const std::string& below = "") const {
    HKEY key = nullptr;
    const std::string path = below.empty() ? path_ : *this / below;
    return RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) == ERROR_SUCCESS &&
           RegCloseKey(key) == ERROR_SUCCESS;
  }

  // Raw access through the wide calls, past the code under test; `below`
  // may hold any UTF-16 text.
  bool Write(const std::u16string& below, const wchar_t* value, DWORD type, const Bytes& bytes) const {
    return RegSetKeyValueW(HKEY_CURRENT_USER, Wide(below).c_str(), value, type, bytes.data(),
                           static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS;
  }
  // {REG_NONE, {}} when missing; enough for the short values tests store.
  StoredValue Read(const std::u16string& below, const wchar_t* value) const {
    Bytes bytes(256);
    DWORD type = REG_NONE, size = static_cast<DWORD>(bytes.size());
    if (RegGetValueW(HKEY_CURRENT_USER, Wide(below).c_str(), value, RRF_RT_ANY | RRF_NOEXPAND, &type, bytes.data(),
                     &size) != ERROR_SUCCESS) {
      return {REG_NONE, {}};
    }
    bytes.resize(size);
    return {type, bytes};
  }

 private:
  static constexpr const char* kParent = "Software\\NkFoundationTests";

  std::wstring Wide(const std::u16string& below) const {
    std::wstring key(path_.begin(), path_.end());
    return below.empty() ? key : key + L"\\" + std::wstring(below.begin(), below.end());
  }

  std::string name_;
  std::string path_;
};

}  // namespace nk::testing

#endif  // TESTS_SUPPORT_WIN32_SCRATCH_REGISTRY_KEY_H_
