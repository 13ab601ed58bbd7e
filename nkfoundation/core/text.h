// Conversions between the object model's UTF-16 text and UTF-8.
#ifndef NKFOUNDATION_CORE_TEXT_H_
#define NKFOUNDATION_CORE_TEXT_H_

#include <string>
#include <string_view>

#include "nkfoundation/core/export.h"

namespace nk {

// Both conversions accept any input: an unpaired surrogate or an invalid
// UTF-8 sequence becomes U+FFFD, so text from a damaged file or device can
// always be shown.
NKF_API std::string ToUtf8(std::u16string_view text);
NKF_API std::u16string ToUtf16(std::string_view text);

}  // namespace nk

#endif  // NKFOUNDATION_CORE_TEXT_H_
