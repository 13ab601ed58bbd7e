// OType_RegistryValue: one typed registry value (DWORD, string, multi-string
// or binary block) as it travels between OType_Registry and its callers.
#ifndef NKFOUNDATION_SERVICES_WIN32_REGISTRY_VALUE_H_
#define NKFOUNDATION_SERVICES_WIN32_REGISTRY_VALUE_H_

#include <windows.h>

#include <string>

#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"

// The value's bytes live on a private heap that the value creates and
// destroys, so a block handed across module boundaries is always freed by
// the heap that made it. Every setter frees the old block first and then
// allocates one of the exact size; the type is the Win32 registry type code
// (REG_SZ, REG_DWORD, ...), 0 while the value is empty.
//
// Whatever the type, the block is followed by a few zero bytes that the size
// does not count: a text pointer handed out by GetValue(const wchar_t*&) is
// therefore terminated even when the registry held an unterminated string.
class NKF_API OType_RegistryValue {
 public:
  // REG_DWORD.
  explicit OType_RegistryValue(unsigned long value);
  // REG_SZ with the terminating zero byte; null is the empty string.
  explicit OType_RegistryValue(const char* text);
  // REG_BINARY, a copy of `size` bytes.
  OType_RegistryValue(unsigned char* const data, unsigned long size);
  // REG_MULTI_SZ of the collection's strings.
  explicit OType_RegistryValue(const WritableCollection<std::u16string>& strings);
  ~OType_RegistryValue();

  // One heap per value: a copy would have to make its own.
  OType_RegistryValue(const OType_RegistryValue&) = delete;
  OType_RegistryValue& operator=(const OType_RegistryValue&) = delete;

  // Type 4, four bytes.
  void SetValue(unsigned long value);
  // Type 1 (2 with `expand`): the string and its zero byte; null is "".
  void SetValue(const char* text, bool expand = false);
  // Type 3: a copy of `size` bytes.
  void SetValue(unsigned char* const data, unsigned long size);
  // Type 7: each string with its zero unit, then one more zero unit; no
  // strings gives two zero units. A null string pointer counts as "".
  void SetValue(const wchar_t* const* strings, unsigned long count);
  void SetValue(const WritableCollection<std::u16string>& strings);

  // Each getter accepts only the types named and otherwise returns false
  // with the output unchanged.
  //
  // REG_DWORD and REG_DWORD_BIG_ENDIAN: the first four bytes as stored, so
  // a big-endian value is not swapped. False for fewer than four bytes.
  bool GetValue(unsigned long& value) const;
  // REG_SZ, REG_EXPAND_SZ, REG_LINK, REG_MULTI_SZ: the stored bytes seen as
  // UTF-16, neither copied nor converted (an ANSI string written by the
  // setter above reads as garbage here). Valid until the value changes.
  bool GetValue(const wchar_t*& text) const;
  // REG_BINARY, REG_RESOURCE_LIST, REG_FULL_RESOURCE_DESCRIPTOR: copies the
  // bytes into `buffer`, only when `size` is exactly the stored size.
  bool GetValue(unsigned char*& buffer, unsigned long size) const;
  // REG_SZ, REG_EXPAND_SZ, REG_LINK: the bytes up to the first zero byte.
  bool GetValue(std::string& text) const;
  // REG_MULTI_SZ: the strings up to the first empty one (the double
  // terminator) or the end of the data; replaces the collection's contents.
  bool GetValue(WritableCollection<std::u16string>& strings) const;

  unsigned long GetType() const { return m_dwType; }
  unsigned long GetSize() const { return m_dwSize; }
  // Null while the value is empty.
  const unsigned char* GetData() const { return m_pData; }

 private:
  friend class OType_Registry;

  // An empty value, for the registry's loaders to fill.
  OType_RegistryValue();

  // Frees the old block and allocates `size` bytes (null for none); on
  // failure the value is left empty and false returned. The type is left to
  // the caller.
  bool AllocateDataBuffer(unsigned long size);
  // Releases the block; size and type become 0.
  void FreeDataBuffer();
  // Replaces the contents with a copy of `size` bytes typed `type`.
  void Assign(DWORD type, const void* data, DWORD size);

  HANDLE m_hHeap;
  BYTE* m_pData = nullptr;
  DWORD m_dwSize = 0;
  DWORD m_dwType = 0;
};

#endif  // NKFOUNDATION_SERVICES_WIN32_REGISTRY_VALUE_H_
