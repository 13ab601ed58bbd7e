// Small helpers that the library and the user-interface code share.
#ifndef NKFOUNDATION_SERVICES_UTILS_H_
#define NKFOUNDATION_SERVICES_UTILS_H_

#include <cstdint>
#include <string>

#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"

namespace utils {

// The first occurrence of `needle` in `haystack`, or null. Null pointers,
// empty ranges and a needle longer than the haystack find nothing.
NKF_API const void* memmem(const void* haystack, const void* needle, unsigned int haystack_length,
                           unsigned int needle_length);

// Rounds to nine decimal places, for values that travel as doubles. A
// remainder of exactly one half rounds down, toward minus infinity, for
// negative values too.
NKF_API double dCBRound(double value);

// 1 << n for n from 1 to 31; 1 for n <= 0; 0 from 32 on, where no bit of an
// unsigned int is left.
NKF_API unsigned int SetBit(int n);
// 1 when the bit `SetBit(n)` is set in `value`, else 0.
NKF_API int GetBit(unsigned int value, int n);

NKF_API bool IsValidObject(const void* object);

// Resource texts are looked up by the host; the library has none.
NKF_API std::u16string ResStr(unsigned long id);

// One language's part of a text that holds several, separated by '|' in
// the order of the culture indices: English first, then German. Language 1
// picks the first part, 2 the second. A text without '|' serves every
// language; the key form (0) and unknown languages get the text unchanged;
// a missing or empty part falls back to the English one.
NKF_API std::u16string oStrExtractLanguage(const std::u16string& text, int language);

// The bytes up to the first zero byte (a stored C string) as an ASCII string;
// bytes from 0x80 on, which ASCII lacks, become '?'. Returns the length of
// the result.
NKF_API unsigned int iByteArrayToAsciiString(const WritableCollection<std::uint8_t>& bytes, std::string& text);

}  // namespace utils

#endif  // NKFOUNDATION_SERVICES_UTILS_H_
