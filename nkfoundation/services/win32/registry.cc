#include "nkfoundation/services/win32/registry.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

// KEY_READ together with KEY_WRITE: deleting enumerates and removes.
constexpr REGSAM kReadWrite = KEY_READ | KEY_WRITE;

bool Succeeded(LONG status) { return status == ERROR_SUCCESS; }

}  // namespace

OType_Registry::OType_Registry(HKEY root) : m_hKey(root) {}

OType_Registry::~OType_Registry() = default;

HKEY OType_Registry::SetKey(HKEY root) { return std::exchange(m_hKey, root); }

bool OType_Registry::Connect(const char* machine, HKEY predefinedKey) {
  HKEY connected = nullptr;
  if (!Succeeded(RegConnectRegistryA(machine, predefinedKey, &connected))) return false;
  m_hKey = connected;
  return true;
}

bool OType_Registry::LoadKey(const char* subKey, const char* valueName, OType_RegistryValue& value, HKEY root) {
  HKEY key = nullptr;
  if (!Succeeded(RegOpenKeyExA(root, subKey, 0, KEY_READ, &key))) return false;
  DWORD type = REG_NONE;
  DWORD size = 0;
  if (!Succeeded(RegQueryValueExA(key, valueName, nullptr, &type, nullptr, &size))) {
    RegCloseKey(key);
    return false;
  }
  const bool read = value.AllocateDataBuffer(size) &&
                    Succeeded(RegQueryValueExA(key, valueName, nullptr, &type, value.m_pData, &size));
  RegCloseKey(key);
  RegCloseKey(root);
  if (!read) {
    value.FreeDataBuffer();
    return false;
  }
  // The second read may deliver fewer bytes than the first announced (an
  // ANSI conversion, a value changed in between); more would have failed.
  value.m_dwSize = size;
  value.m_dwType = type;
  return true;
}

bool OType_Registry::LoadKey(const char* subKey, const char* valueName, unsigned long& value, HKEY root) {
  OType_RegistryValue loaded;
  return LoadKey(subKey, valueName, loaded, root) && loaded.GetValue(value);
}

bool OType_Registry::LoadKey(const char* subKey, const char* valueName, unsigned char* buffer, unsigned long size,
                             HKEY root) {
  OType_RegistryValue loaded;
  return LoadKey(subKey, valueName, loaded, root) && loaded.GetValue(buffer, size);
}

bool OType_Registry::LoadKey(const char* subKey, const char* valueName, std::string& text, HKEY root) {
  OType_RegistryValue loaded;
  return LoadKey(subKey, valueName, loaded, root) && loaded.GetValue(text);
}

bool OType_Registry::SaveKey(const char* subKey, const char* valueName, const OType_RegistryValue& value,
                             HKEY root) {
  HKEY key = nullptr;
  if (!Succeeded(RegCreateKeyExA(root, subKey, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr))) return false;
  const bool written = Succeeded(RegSetValueExA(key, valueName, 0, value.m_dwType, value.m_pData, value.m_dwSize));
  RegCloseKey(key);
  RegCloseKey(root);
  return written;
}

bool OType_Registry::SaveKey(const char* subKey, const char* valueName, const unsigned long& value, HKEY root) {
  return SaveKey(subKey, valueName, OType_RegistryValue(value), root);
}

bool OType_Registry::SaveKey(const char* subKey, const char* valueName, const char* text, HKEY root) {
  return SaveKey(subKey, valueName, OType_RegistryValue(text), root);
}

bool OType_Registry::SaveKey(const char* subKey, const char* valueName, unsigned char* const data,
                             unsigned long size, HKEY root) {
  return SaveKey(subKey, valueName, OType_RegistryValue(data, size), root);
}

bool OType_Registry::DeleteKey(const char* subKey, const char* valueName, HKEY root) {
  HKEY key = nullptr;
  if (!Succeeded(RegOpenKeyExA(root, subKey, 0, kReadWrite, &key))) return false;
  if (valueName != nullptr) {
    const bool deleted = Succeeded(RegDeleteValueA(key, valueName));
    RegCloseKey(key);
    RegCloseKey(root);
    return deleted;
  }
  // Subkeys first, always the one at index 0: each deletion moves the rest
  // down by one.
  bool emptied = true;
  for (;;) {
    DWORD subKeys = 0;
    DWORD longestName = 0;
    if (!Succeeded(RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, &subKeys, &longestName, nullptr, nullptr,
                                    nullptr, nullptr, nullptr, nullptr))) {
      emptied = false;
      break;
    }
    if (subKeys == 0) break;
    std::vector<char> name(longestName + 1);
    if (!Succeeded(RegEnumKeyA(key, 0, name.data(), static_cast<DWORD>(name.size()))) ||
        !DeleteKey(name.data(), nullptr, key)) {
      emptied = false;
      break;
    }
  }
  RegCloseKey(key);
  return emptied && Succeeded(RegDeleteKeyA(root, subKey));
}

bool OType_Registry::HasEntries(const char* subKey, unsigned long* subKeyCount, unsigned long* valueCount,
                                HKEY root) {
  if (subKeyCount != nullptr) *subKeyCount = 0;
  if (valueCount != nullptr) *valueCount = 0;
  HKEY key = nullptr;
  if (!Succeeded(RegOpenKeyExA(root, subKey, 0, KEY_READ, &key))) return false;
  DWORD subKeys = 0;
  DWORD values = 0;
  const bool counted = Succeeded(RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, &subKeys, nullptr, nullptr,
                                                  &values, nullptr, nullptr, nullptr, nullptr));
  RegCloseKey(key);
  if (!counted) return false;
  if (subKeyCount != nullptr) *subKeyCount = subKeys;
  if (valueCount != nullptr) *valueCount = values;
  return subKeys != 0 || values != 0;
}

bool OType_Registry::LoadKey(const char* subKey, const char* valueName, OType_RegistryValue& value) {
  return LoadKey(subKey, valueName, value, m_hKey);
}

bool OType_Registry::LoadKey(const char* subKey, const char* valueName, unsigned long& value) {
  return LoadKey(subKey, valueName, value, m_hKey);
}

bool OType_Registry::LoadKey(const char* subKey, const char* valueName, unsigned char* buffer, unsigned long size) {
  return LoadKey(subKey, valueName, buffer, size, m_hKey);
}

bool OType_Registry::LoadKey(const char* subKey, const char* valueName, std::string& text) {
  return LoadKey(subKey, valueName, text, m_hKey);
}

bool OType_Registry::SaveKey(const char* subKey, const char* valueName, const OType_RegistryValue& value) {
  return SaveKey(subKey, valueName, value, m_hKey);
}

bool OType_Registry::SaveKey(const char* subKey, const char* valueName, const unsigned long& value) {
  return SaveKey(subKey, valueName, value, m_hKey);
}

bool OType_Registry::SaveKey(const char* subKey, const char* valueName, const char* text) {
  return SaveKey(subKey, valueName, text, m_hKey);
}

bool OType_Registry::SaveKey(const char* subKey, const char* valueName, unsigned char* const data,
                             unsigned long size) {
  return SaveKey(subKey, valueName, data, size, m_hKey);
}

bool OType_Registry::DeleteKey(const char* subKey, const char* valueName) {
  return DeleteKey(subKey, valueName, m_hKey);
}

bool OType_Registry::HasEntries(const char* subKey, unsigned long* subKeyCount, unsigned long* valueCount) {
  return HasEntries(subKey, subKeyCount, valueCount, m_hKey);
}

bool OType_Registry::RegistryTreeWalk(const char* subKey, unsigned int flags) {
  HKEY key = m_hKey;
  if (subKey != nullptr && !Succeeded(RegOpenKeyExA(m_hKey, subKey, 0, KEY_READ, &key))) return false;
  return WalkKey(subKey != nullptr ? subKey : "", key, flags, 0);
}

bool OType_Registry::WalkKey(const std::string& path, HKEY key, unsigned int flags, unsigned short depth) {
  DWORD subKeys = 0;
  DWORD longestSubKey = 0;
  DWORD values = 0;
  DWORD longestValueName = 0;
  DWORD longestData = 0;
  if (!Succeeded(RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, &subKeys, &longestSubKey, nullptr, &values,
                                  &longestValueName, &longestData, nullptr, nullptr))) {
    RegCloseKey(key);
    return false;
  }
  auto stop = [key] {
    RegCloseKey(key);
    return false;
  };

  if ((flags & kWalkValues) != 0) {
    std::vector<char> name(longestValueName + 1);
    // Never empty: with no buffer the call would report a size without
    // delivering the bytes.
    std::vector<BYTE> data(std::max<DWORD>(longestData, 1));
    OType_RegistryValue value;
    for (DWORD index = 0;; ++index) {
      DWORD nameSize = static_cast<DWORD>(name.size());
      DWORD dataSize = static_cast<DWORD>(data.size());
      DWORD type = REG_NONE;
      const LONG status = RegEnumValueA(key, index, name.data(), &nameSize, nullptr, &type, data.data(), &dataSize);
      if (status == ERROR_NO_MORE_ITEMS) break;
      if (!Succeeded(status)) return stop();
      value.Assign(type, data.data(), dataSize);
      if (!OnValueHit(path.c_str(), name.data(), value, depth)) return stop();
    }
  }

  std::vector<char> name(longestSubKey + 1);
  for (DWORD index = 0;; ++index) {
    const LONG status = RegEnumKeyA(key, index, name.data(), static_cast<DWORD>(name.size()));
    if (status == ERROR_NO_MORE_ITEMS) break;
    if (!Succeeded(status)) return stop();
    if ((flags & kWalkKeys) != 0 && !OnKeyHit(name.data(), depth)) return stop();
    HKEY child = nullptr;
    if (!Succeeded(RegOpenKeyExA(key, name.data(), 0, KEY_READ, &child))) return stop();
    const std::string child_path = path.empty() ? std::string(name.data()) : path + "\\" + name.data();
    if (!WalkKey(child_path, child, flags, static_cast<unsigned short>(depth + 1))) return stop();
  }
  RegCloseKey(key);
  return true;
}

bool OType_Registry::OnValueHit(const char* /*keyPath*/, const char* /*valueName*/,
                                const OType_RegistryValue& /*value*/, unsigned short /*depth*/) {
  return false;
}

bool OType_Registry::OnKeyHit(const char* /*subKeyName*/, unsigned short /*depth*/) { return false; }
