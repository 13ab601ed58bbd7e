// OType_Registry: loads and stores settings under one root key of the
// Windows registry, deletes key trees and walks a tree with overridable
// callbacks. Key and value names are ANSI strings; every call is the ANSI
// form of the Win32 registry interface.
#ifndef NKFOUNDATION_SERVICES_WIN32_REGISTRY_H_
#define NKFOUNDATION_SERVICES_WIN32_REGISTRY_H_

#include <windows.h>

#include <string>

#include "nkfoundation/core/export.h"
#include "nkfoundation/services/win32/registry_value.h"

// Every operation reports failure as false only; no Win32 error code is kept.
// A failed load leaves the caller's output untouched (a value loaded whole is
// emptied when its second read fails).
//
// Loads and saves close the root key after the access although the object
// keeps the handle. For a predefined key (HKEY_CURRENT_USER, ...) that has
// no lasting effect; a root obtained by Connect is good for one load or save.
// The object never owns its root key otherwise.
class NKF_API OType_Registry {
 public:
  // Tree-walk flags: call OnValueHit for values, OnKeyHit for subkeys.
  static constexpr unsigned int kWalkValues = 1;
  static constexpr unsigned int kWalkKeys = 2;

  explicit OType_Registry(HKEY root);
  virtual ~OType_Registry();

  // Stores a new root key and returns the previous one.
  HKEY SetKey(HKEY root);
  HKEY GetKey() const { return m_hKey; }
  // The predefined key of `machine`'s registry (null: this machine) becomes
  // the root; on failure the previous root is kept.
  bool Connect(const char* machine, HKEY predefinedKey);

  // A value of any type, with its type.
  bool LoadKey(const char* subKey, const char* valueName, OType_RegistryValue& value);
  // REG_DWORD or REG_DWORD_BIG_ENDIAN, not swapped.
  bool LoadKey(const char* subKey, const char* valueName, unsigned long& value);
  // REG_BINARY, REG_RESOURCE_LIST or REG_FULL_RESOURCE_DESCRIPTOR of exactly
  // `size` bytes.
  bool LoadKey(const char* subKey, const char* valueName, unsigned char* buffer, unsigned long size);
  // REG_SZ, REG_EXPAND_SZ or REG_LINK, up to the first zero byte.
  bool LoadKey(const char* subKey, const char* valueName, std::string& text);

  // Creates the subkey when missing and writes the value with its type.
  bool SaveKey(const char* subKey, const char* valueName, const OType_RegistryValue& value);
  bool SaveKey(const char* subKey, const char* valueName, const unsigned long& value);
  bool SaveKey(const char* subKey, const char* valueName, const char* text);
  bool SaveKey(const char* subKey, const char* valueName, unsigned char* const data, unsigned long size);

  // With a value name, deletes that value; with null, the key and its whole
  // subtree.
  bool DeleteKey(const char* subKey, const char* valueName);
  // Stores the numbers of subkeys and values (each pointer may be null; 0
  // when the key cannot be read) and tells whether there is any.
  bool HasEntries(const char* subKey, unsigned long* subKeyCount, unsigned long* valueCount);

  // The same with the root key given last.
  static bool LoadKey(const char* subKey, const char* valueName, OType_RegistryValue& value, HKEY root);
  static bool LoadKey(const char* subKey, const char* valueName, unsigned long& value, HKEY root);
  static bool LoadKey(const char* subKey, const char* valueName, unsigned char* buffer, unsigned long size,
                      HKEY root);
  static bool LoadKey(const char* subKey, const char* valueName, std::string& text, HKEY root);
  static bool SaveKey(const char* subKey, const char* valueName, const OType_RegistryValue& value, HKEY root);
  static bool SaveKey(const char* subKey, const char* valueName, const unsigned long& value, HKEY root);
  static bool SaveKey(const char* subKey, const char* valueName, const char* text, HKEY root);
  static bool SaveKey(const char* subKey, const char* valueName, unsigned char* const data, unsigned long size,
                      HKEY root);
  static bool DeleteKey(const char* subKey, const char* valueName, HKEY root);
  static bool HasEntries(const char* subKey, unsigned long* subKeyCount, unsigned long* valueCount, HKEY root);

  // Walks `subKey` (null: the root itself, which is then closed at the end
  // like every key the walk visits) depth first: with kWalkValues each value
  // goes to OnValueHit, then each subkey, with kWalkKeys, to OnKeyHit before
  // the walk descends into it. The first callback that returns false stops
  // the walk, which then returns false; true when everything was visited.
  bool RegistryTreeWalk(const char* subKey, unsigned int flags);

  // `keyPath` is the walked subkey's path below the root, joined by '\';
  // `depth` is 0 for the key the walk started at. The defaults return false,
  // so a walk of the base class stops at its first hit; subclasses override
  // them to collect.
  virtual bool OnValueHit(const char* keyPath, const char* valueName, const OType_RegistryValue& value,
                          unsigned short depth);
  // `subKeyName` is the name of a subkey of the key at `depth`.
  virtual bool OnKeyHit(const char* subKeyName, unsigned short depth);

 private:
  // Visits `key` (which it closes) as described at RegistryTreeWalk.
  bool WalkKey(const std::string& path, HKEY key, unsigned int flags, unsigned short depth);

  HKEY m_hKey;
};

#endif  // NKFOUNDATION_SERVICES_WIN32_REGISTRY_H_
