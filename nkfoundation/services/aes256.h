// AES-256 on single 16-byte blocks, for modules that need it.
#ifndef NKFOUNDATION_SERVICES_AES256_H_
#define NKFOUNDATION_SERVICES_AES256_H_

#include <cstdint>

#include "nkfoundation/core/export.h"

// Standard AES with a 256-bit key, electronic-codebook mode: each call
// transforms one block in place. The library keeps no key of its own.
//
// The rounds use lookup tables indexed by secret data, so their timing can
// leak the key to code sharing the processor's caches; that is acceptable for
// the obfuscation the PC software uses it for, not for guarding secrets
// against local attackers.
namespace aes256 {

struct context {
  unsigned char key[32];
  // The round keys of encryption and of the equivalent inverse cipher,
  // fifteen of four big-endian words each.
  std::uint32_t encrypt_keys[60];
  std::uint32_t decrypt_keys[60];
};

// Each ignores a null argument.
NKF_API void init(context* ctx, const unsigned char* key);
NKF_API void encrypt_ecb(context* ctx, unsigned char* block);
NKF_API void decrypt_ecb(context* ctx, unsigned char* block);
// Clears the key and its schedule.
NKF_API void done(context* ctx);

}  // namespace aes256

#endif  // NKFOUNDATION_SERVICES_AES256_H_
