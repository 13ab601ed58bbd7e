// Basic scalar types shared by every subsystem.
#ifndef NKFOUNDATION_CORE_TYPES_H_
#define NKFOUNDATION_CORE_TYPES_H_

#include <cstdint>

namespace nk {

// The library's signed size and index type. It is 32 bits on every host so
// that counts mean the same on the 32-bit Windows build and everywhere else.
using ssize_t = std::int32_t;

}  // namespace nk

#endif  // NKFOUNDATION_CORE_TYPES_H_
