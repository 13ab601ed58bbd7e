#include "nkfoundation/services/win32/registry_strings.h"

#include <vector>

namespace utils {
namespace {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "Windows names are UTF-16");

const wchar_t* Wide(const std::u16string& name) { return reinterpret_cast<const wchar_t*>(name.c_str()); }

// The bytes of a value of type `accepted` into `out`.
int ReadValue(HKEY root, const std::u16string& subKey, const std::u16string& valueName, DWORD accepted,
              std::vector<BYTE>& out) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, Wide(subKey), 0, KEY_READ, &key) != ERROR_SUCCESS) return kRegistryNoKey;
  DWORD type = REG_NONE;
  DWORD size = 0;
  int status = kRegistryOk;
  if (RegQueryValueExW(key, Wide(valueName), nullptr, &type, nullptr, &size) != ERROR_SUCCESS) {
    status = kRegistryNoValue;
  } else if (type != accepted) {
    status = kRegistryWrongType;
  } else {
    // One spare byte so that an empty value still has a buffer to name.
    out.resize(size + 1);
    if (RegQueryValueExW(key, Wide(valueName), nullptr, &type, out.data(), &size) != ERROR_SUCCESS) {
      status = kRegistryNoValue;
    } else if (type != accepted) {
      status = kRegistryWrongType;
    }
    out.resize(size);
  }
  RegCloseKey(key);
  return status;
}

int WriteValue(HKEY root, const std::u16string& subKey, const std::u16string& valueName, DWORD type,
               const BYTE* data, DWORD size) {
  HKEY key = nullptr;
  if (RegCreateKeyExW(root, Wide(subKey), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr) != ERROR_SUCCESS) {
    return kRegistryNoKey;
  }
  const LONG written = RegSetValueExW(key, Wide(valueName), 0, type, data, size);
  RegCloseKey(key);
  return written == ERROR_SUCCESS ? kRegistryOk : kRegistryNoValue;
}

void Replace(WritableCollection<std::uint8_t>& bytes, const BYTE* data, std::size_t size) {
  std::vector<std::uint8_t>& elements = bytes;
  elements.assign(data, data + size);
}

}  // namespace

int iGetRegString(HKEY root, const std::u16string& subKey, const std::u16string& valueName,
                  WritableCollection<std::uint8_t>& bytes) {
  std::vector<BYTE> stored;
  const int status = ReadValue(root, subKey, valueName, REG_SZ, stored);
  if (status != kRegistryOk) return status;
  std::size_t length = 0;
  while (length + 1 < stored.size() && (stored[length] != 0 || stored[length + 1] != 0)) length += 2;
  Replace(bytes, stored.data(), length);
  return kRegistryOk;
}

int iSetRegString(HKEY root, const std::u16string& subKey, const std::u16string& valueName,
                  const WritableCollection<std::uint8_t>& bytes) {
  // A collection holds fewer than 2^31 bytes, so the terminated text fits a
  // DWORD size.
  const std::vector<std::uint8_t>& text = bytes;
  if (text.size() % 2 != 0) return kRegistryBadText;
  std::vector<BYTE> terminated(text.begin(), text.end());
  terminated.insert(terminated.end(), 2, 0);
  return WriteValue(root, subKey, valueName, REG_SZ, terminated.data(), static_cast<DWORD>(terminated.size()));
}

int iGetRegBinary(HKEY root, const std::u16string& subKey, const std::u16string& valueName,
                  WritableCollection<std::uint8_t>& bytes) {
  std::vector<BYTE> stored;
  const int status = ReadValue(root, subKey, valueName, REG_BINARY, stored);
  if (status == kRegistryOk) Replace(bytes, stored.data(), stored.size());
  return status;
}

int iSetRegBinary(HKEY root, const std::u16string& subKey, const std::u16string& valueName,
                  const WritableCollection<std::uint8_t>& bytes) {
  const std::vector<std::uint8_t>& data = bytes;
  return WriteValue(root, subKey, valueName, REG_BINARY, data.data(), static_cast<DWORD>(data.size()));
}

}  // namespace utils
