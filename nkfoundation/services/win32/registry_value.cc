#include "nkfoundation/services/win32/registry_value.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <string_view>
#include <vector>

namespace {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "registry text is UTF-16");

// Zero bytes kept past every block: two whole UTF-16 units even when the
// stored size is odd, so that a text read through a wide pointer stops
// inside the block.
constexpr DWORD kZeroGuard = 4;

// One string of a multi-string: its units and their number, without the
// terminator.
struct Units {
  const void* data;
  std::size_t count;
};

// A multi-string block: every string with its zero unit, then one more; an
// empty list is two zero units, as the registry itself writes it.
std::vector<BYTE> MultiStringBlock(const std::vector<Units>& strings) {
  std::vector<BYTE> block;
  for (const Units& string : strings) {
    const auto* bytes = static_cast<const BYTE*>(string.data);
    block.insert(block.end(), bytes, bytes + string.count * sizeof(char16_t));
    block.insert(block.end(), sizeof(char16_t), 0);
  }
  block.insert(block.end(), strings.empty() ? 2 * sizeof(char16_t) : sizeof(char16_t), 0);
  return block;
}

std::vector<Units> UnitsOf(const WritableCollection<std::u16string>& strings) {
  std::vector<Units> units;
  for (const std::u16string& string : strings) units.push_back({string.data(), string.size()});
  return units;
}

}  // namespace

OType_RegistryValue::OType_RegistryValue() : m_hHeap(HeapCreate(0, 0, 0)) {}

OType_RegistryValue::OType_RegistryValue(unsigned long value) : OType_RegistryValue() { SetValue(value); }

OType_RegistryValue::OType_RegistryValue(const char* text) : OType_RegistryValue() { SetValue(text, false); }

OType_RegistryValue::OType_RegistryValue(unsigned char* const data, unsigned long size) : OType_RegistryValue() {
  SetValue(data, size);
}

OType_RegistryValue::OType_RegistryValue(const WritableCollection<std::u16string>& strings)
    : OType_RegistryValue() {
  SetValue(strings);
}

OType_RegistryValue::~OType_RegistryValue() {
  // Destroying the heap releases the block with it.
  if (m_hHeap != nullptr) HeapDestroy(m_hHeap);
}

bool OType_RegistryValue::AllocateDataBuffer(unsigned long size) {
  FreeDataBuffer();
  if (size == 0) return true;
  if (m_hHeap == nullptr || size > MAXDWORD - kZeroGuard) return false;
  m_pData = static_cast<BYTE*>(HeapAlloc(m_hHeap, HEAP_ZERO_MEMORY, size + kZeroGuard));
  if (m_pData == nullptr) return false;
  m_dwSize = size;
  return true;
}

void OType_RegistryValue::FreeDataBuffer() {
  if (m_pData != nullptr) HeapFree(m_hHeap, 0, m_pData);
  m_pData = nullptr;
  m_dwSize = 0;
  m_dwType = 0;
}

void OType_RegistryValue::Assign(DWORD type, const void* data, DWORD size) {
  if (!AllocateDataBuffer(size)) return;
  if (size != 0) std::memcpy(m_pData, data, size);
  m_dwType = type;
}

void OType_RegistryValue::SetValue(unsigned long value) {
  const DWORD dword = value;
  Assign(REG_DWORD, &dword, sizeof dword);
}

void OType_RegistryValue::SetValue(const char* text, bool expand) {
  if (text == nullptr) text = "";
  Assign(expand ? REG_EXPAND_SZ : REG_SZ, text, static_cast<DWORD>(std::strlen(text) + 1));
}

void OType_RegistryValue::SetValue(unsigned char* const data, unsigned long size) {
  if (data == nullptr && size != 0) {
    FreeDataBuffer();
    return;
  }
  Assign(REG_BINARY, data, size);
}

void OType_RegistryValue::SetValue(const wchar_t* const* strings, unsigned long count) {
  std::vector<Units> units;
  for (unsigned long i = 0; strings != nullptr && i < count; ++i) {
    const wchar_t* string = strings[i] != nullptr ? strings[i] : L"";
    units.push_back({string, std::wcslen(string)});
  }
  const std::vector<BYTE> block = MultiStringBlock(units);
  Assign(REG_MULTI_SZ, block.data(), static_cast<DWORD>(block.size()));
}

void OType_RegistryValue::SetValue(const WritableCollection<std::u16string>& strings) {
  const std::vector<BYTE> block = MultiStringBlock(UnitsOf(strings));
  Assign(REG_MULTI_SZ, block.data(), static_cast<DWORD>(block.size()));
}

bool OType_RegistryValue::GetValue(unsigned long& value) const {
  if ((m_dwType != REG_DWORD && m_dwType != REG_DWORD_BIG_ENDIAN) || m_dwSize < sizeof(DWORD)) return false;
  DWORD stored;
  std::memcpy(&stored, m_pData, sizeof stored);
  value = stored;
  return true;
}

bool OType_RegistryValue::GetValue(const wchar_t*& text) const {
  if (m_dwType != REG_SZ && m_dwType != REG_EXPAND_SZ && m_dwType != REG_LINK && m_dwType != REG_MULTI_SZ) {
    return false;
  }
  text = m_pData != nullptr ? reinterpret_cast<const wchar_t*>(m_pData) : L"";
  return true;
}

bool OType_RegistryValue::GetValue(unsigned char*& buffer, unsigned long size) const {
  if (m_dwType != REG_BINARY && m_dwType != REG_RESOURCE_LIST && m_dwType != REG_FULL_RESOURCE_DESCRIPTOR) {
    return false;
  }
  if (size != m_dwSize || (buffer == nullptr && size != 0)) return false;
  if (size != 0) std::memcpy(buffer, m_pData, size);
  return true;
}

bool OType_RegistryValue::GetValue(std::string& text) const {
  if (m_dwType != REG_SZ && m_dwType != REG_EXPAND_SZ && m_dwType != REG_LINK) return false;
  const auto* bytes = reinterpret_cast<const char*>(m_pData);
  text.assign(bytes, bytes == nullptr ? 0 : strnlen(bytes, m_dwSize));
  return true;
}

bool OType_RegistryValue::GetValue(WritableCollection<std::u16string>& strings) const {
  if (m_dwType != REG_MULTI_SZ) return false;
  std::vector<char16_t> units(m_dwSize / sizeof(char16_t));
  if (!units.empty()) std::memcpy(units.data(), m_pData, units.size() * sizeof(char16_t));
  strings.RemoveAll();
  std::u16string_view rest(units.data(), units.size());
  while (!rest.empty() && rest.front() != u'\0') {
    const std::size_t end = std::min(rest.find(u'\0'), rest.size());
    strings.Add(std::u16string(rest.substr(0, end)));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return true;
}
