#include "nkfoundation/services/win32/application_profile_registry.h"

#include <windows.h>

#include <utility>

namespace {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "Windows names are UTF-16");

const wchar_t* Wide(const std::u16string& name) { return reinterpret_cast<const wchar_t*>(name.c_str()); }

}  // namespace

OApplicationProfile_Registry::OApplicationProfile_Registry(std::u16string company, std::u16string application)
    : company_(std::move(company)), application_(std::move(application)) {}

bool OApplicationProfile_Registry::bIsAvailable() const { return !company_.empty() && !application_.empty(); }

std::u16string OApplicationProfile_Registry::oStrSectionKey(std::u16string_view section) const {
  std::u16string key = u"Software\\";
  key.append(company_).append(u"\\").append(application_).append(u"\\").append(section);
  return key;
}

int OApplicationProfile_Registry::iGetProfileInt(std::u16string_view section, std::u16string_view entry,
                                                 int default_value) {
  if (!bIsAvailable()) return default_value;
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, Wide(oStrSectionKey(section)), 0, KEY_READ, &key) != ERROR_SUCCESS) {
    return default_value;
  }
  DWORD type = REG_NONE;
  DWORD stored = 0;
  DWORD size = sizeof stored;
  const LONG status = RegQueryValueExW(key, Wide(std::u16string(entry)), nullptr, &type,
                                       reinterpret_cast<BYTE*>(&stored), &size);
  RegCloseKey(key);
  if (status != ERROR_SUCCESS || type != REG_DWORD || size != sizeof stored) return default_value;
  return static_cast<int>(stored);
}

bool OApplicationProfile_Registry::bWriteProfileInt(std::u16string_view section, std::u16string_view entry,
                                                    int value) {
  if (!bIsAvailable()) return false;
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, Wide(oStrSectionKey(section)), 0, nullptr, REG_OPTION_NON_VOLATILE,
                      KEY_WRITE, nullptr, &key, nullptr) != ERROR_SUCCESS) {
    return false;
  }
  const DWORD stored = static_cast<DWORD>(value);
  const LONG status = RegSetValueExW(key, Wide(std::u16string(entry)), 0, REG_DWORD,
                                     reinterpret_cast<const BYTE*>(&stored), sizeof stored);
  RegCloseKey(key);
  return status == ERROR_SUCCESS;
}
