// Registry strings and binary blocks under UTF-16 key and value names,
// through the wide forms of the Win32 registry interface.
#ifndef NKFOUNDATION_SERVICES_WIN32_REGISTRY_STRINGS_H_
#define NKFOUNDATION_SERVICES_WIN32_REGISTRY_STRINGS_H_

#include <windows.h>

#include <cstdint>
#include <string>

#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"

namespace utils {

// What the four helpers return: 0 on success, a negative status otherwise.
enum RegistryStatus : int {
  kRegistryOk = 0,
  // The key could not be opened (read) or created (write).
  kRegistryNoKey = -1,
  // The value is missing or could not be read or written.
  kRegistryNoValue = -2,
  // The value exists with another type than the helper reads.
  kRegistryWrongType = -3,
  // The bytes to store are not whole UTF-16 units.
  kRegistryBadText = -4,
};

// A string travels in the byte collection as its UTF-16 code units, low byte
// first, without a terminator: reading keeps the units before the first zero
// unit (and drops a stray odd last byte); writing appends the zero unit.
// Reads accept REG_SZ only and replace the collection's contents; on failure
// the collection is left as it was.
NKF_API int iGetRegString(HKEY root, const std::u16string& subKey, const std::u16string& valueName,
                          WritableCollection<std::uint8_t>& bytes);
NKF_API int iSetRegString(HKEY root, const std::u16string& subKey, const std::u16string& valueName,
                          const WritableCollection<std::uint8_t>& bytes);

// REG_BINARY values, the bytes as they are.
NKF_API int iGetRegBinary(HKEY root, const std::u16string& subKey, const std::u16string& valueName,
                          WritableCollection<std::uint8_t>& bytes);
NKF_API int iSetRegBinary(HKEY root, const std::u16string& subKey, const std::u16string& valueName,
                          const WritableCollection<std::uint8_t>& bytes);

}  // namespace utils

#endif  // NKFOUNDATION_SERVICES_WIN32_REGISTRY_STRINGS_H_
