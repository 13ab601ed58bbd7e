#include "nkfoundation/services/aes256.h"

#include <array>
#include <cstring>

namespace aes256 {
namespace {

constexpr int kRounds = 14;
using Table = std::array<std::uint32_t, 256>;

constexpr std::uint8_t Rotl8(std::uint8_t x, int n) {
  return static_cast<std::uint8_t>(x << n | x >> (8 - n));
}

// Multiplication in GF(2^8) modulo x^8 + x^4 + x^3 + x + 1.
constexpr std::uint8_t Mul(std::uint8_t a, std::uint8_t b) {
  std::uint8_t product = 0;
  for (; b != 0; b >>= 1) {
    if (b & 1) product ^= a;
    a = static_cast<std::uint8_t>(a << 1 ^ (a & 0x80 ? 0x1B : 0));
  }
  return product;
}

// The S-box from its definition: the multiplicative inverse followed by the
// affine map. Walking p through the powers of 3 and q through those of its
// inverse visits every non-zero element with its inverse.
constexpr std::array<std::uint8_t, 256> MakeSBox() {
  std::array<std::uint8_t, 256> box{};
  std::uint8_t p = 1;
  std::uint8_t q = 1;
  do {
    p = static_cast<std::uint8_t>(p ^ p << 1 ^ (p & 0x80 ? 0x1B : 0));
    q = static_cast<std::uint8_t>(q ^ q << 1);
    q = static_cast<std::uint8_t>(q ^ q << 2);
    q = static_cast<std::uint8_t>(q ^ q << 4);
    if (q & 0x80) q ^= 0x09;
    box[p] = static_cast<std::uint8_t>(q ^ Rotl8(q, 1) ^ Rotl8(q, 2) ^ Rotl8(q, 3) ^ Rotl8(q, 4) ^ 0x63);
  } while (p != 1);
  box[0] = 0x63;
  return box;
}

constexpr std::array<std::uint8_t, 256> kSBox = MakeSBox();

constexpr std::array<std::uint8_t, 256> MakeInverseSBox() {
  std::array<std::uint8_t, 256> box{};
  for (int i = 0; i < 256; ++i) box[kSBox[i]] = static_cast<std::uint8_t>(i);
  return box;
}

constexpr std::array<std::uint8_t, 256> kInverseSBox = MakeInverseSBox();

constexpr std::uint32_t Word(std::uint8_t b0, std::uint8_t b1, std::uint8_t b2, std::uint8_t b3) {
  return std::uint32_t{b0} << 24 | std::uint32_t{b1} << 16 | std::uint32_t{b2} << 8 | b3;
}

constexpr std::uint32_t Rotr(std::uint32_t x, int n) { return x >> n | x << (32 - n); }

// Round tables: substitution and one column of MixColumns (or of
// InvMixColumns after the inverse substitution) for each byte position; the
// tables of the later positions are the first rotated.
struct RoundTables {
  Table t[4];
};

constexpr RoundTables MakeTables(const std::array<std::uint8_t, 256>& box, std::uint8_t c0, std::uint8_t c1,
                                 std::uint8_t c2, std::uint8_t c3) {
  RoundTables tables{};
  for (int i = 0; i < 256; ++i) {
    const std::uint8_t s = box[i];
    const std::uint32_t column = Word(Mul(s, c0), Mul(s, c1), Mul(s, c2), Mul(s, c3));
    for (int k = 0; k < 4; ++k) tables.t[k][i] = k == 0 ? column : Rotr(column, 8 * k);
  }
  return tables;
}

constexpr RoundTables kEncrypt = MakeTables(kSBox, 2, 1, 1, 3);
constexpr RoundTables kDecrypt = MakeTables(kInverseSBox, 14, 9, 13, 11);

std::uint32_t Load(const unsigned char* p) { return Word(p[0], p[1], p[2], p[3]); }

void Store(std::uint32_t w, unsigned char* p) {
  p[0] = static_cast<unsigned char>(w >> 24);
  p[1] = static_cast<unsigned char>(w >> 16);
  p[2] = static_cast<unsigned char>(w >> 8);
  p[3] = static_cast<unsigned char>(w);
}

std::uint8_t Byte(std::uint32_t w, int index) { return static_cast<std::uint8_t>(w >> (24 - 8 * index)); }

std::uint32_t SubWord(std::uint32_t w) {
  return Word(kSBox[Byte(w, 0)], kSBox[Byte(w, 1)], kSBox[Byte(w, 2)], kSBox[Byte(w, 3)]);
}

// One round over the state. `kShift` names the column whose byte k feeds
// output column c: c + k for encryption (ShiftRows), c - k for decryption.
template <int kShift>
void Round(const RoundTables& tables, std::uint32_t (&s)[4], const std::uint32_t* round_key) {
  std::uint32_t t[4];
  for (int c = 0; c < 4; ++c) {
    t[c] = tables.t[0][Byte(s[c], 0)] ^ tables.t[1][Byte(s[(c + kShift) & 3], 1)] ^
           tables.t[2][Byte(s[(c + 2 * kShift) & 3], 2)] ^ tables.t[3][Byte(s[(c + 3 * kShift) & 3], 3)] ^
           round_key[c];
  }
  std::memcpy(s, t, sizeof t);
}

template <int kShift>
void LastRound(const std::array<std::uint8_t, 256>& box, const std::uint32_t (&s)[4],
               const std::uint32_t* round_key, unsigned char* out) {
  for (int c = 0; c < 4; ++c) {
    const std::uint32_t w = Word(box[Byte(s[c], 0)], box[Byte(s[(c + kShift) & 3], 1)],
                                 box[Byte(s[(c + 2 * kShift) & 3], 2)], box[Byte(s[(c + 3 * kShift) & 3], 3)]);
    Store(w ^ round_key[c], out + 4 * c);
  }
}

template <int kShift>
void Crypt(const RoundTables& tables, const std::array<std::uint8_t, 256>& box, const std::uint32_t* keys,
           unsigned char* block) {
  std::uint32_t s[4];
  for (int c = 0; c < 4; ++c) s[c] = Load(block + 4 * c) ^ keys[c];
  for (int round = 1; round < kRounds; ++round) Round<kShift>(tables, s, keys + 4 * round);
  LastRound<kShift>(box, s, keys + 4 * kRounds, block);
}

}  // namespace

void init(context* ctx, const unsigned char* key) {
  if (ctx == nullptr || key == nullptr) return;
  std::memcpy(ctx->key, key, sizeof ctx->key);
  std::uint32_t* w = ctx->encrypt_keys;
  for (int i = 0; i < 8; ++i) w[i] = Load(key + 4 * i);
  std::uint8_t rcon = 1;
  for (int i = 8; i < 60; ++i) {
    std::uint32_t temp = w[i - 1];
    if (i % 8 == 0) {
      temp = SubWord(Rotr(temp, 24)) ^ std::uint32_t{rcon} << 24;
      rcon = Mul(rcon, 2);
    } else if (i % 8 == 4) {
      temp = SubWord(temp);
    }
    w[i] = w[i - 8] ^ temp;
  }
  // The equivalent inverse cipher: round keys in reverse order, those of the
  // inner rounds passed through InvMixColumns (the decryption tables undo
  // the S-box first, so it is applied before them).
  std::uint32_t* d = ctx->decrypt_keys;
  for (int round = 0; round <= kRounds; ++round) {
    for (int c = 0; c < 4; ++c) {
      const std::uint32_t k = w[4 * (kRounds - round) + c];
      d[4 * round + c] = round == 0 || round == kRounds
                             ? k
                             : kDecrypt.t[0][kSBox[Byte(k, 0)]] ^ kDecrypt.t[1][kSBox[Byte(k, 1)]] ^
                                   kDecrypt.t[2][kSBox[Byte(k, 2)]] ^ kDecrypt.t[3][kSBox[Byte(k, 3)]];
    }
  }
}

void encrypt_ecb(context* ctx, unsigned char* block) {
  if (ctx == nullptr || block == nullptr) return;
  Crypt<1>(kEncrypt, kSBox, ctx->encrypt_keys, block);
}

void decrypt_ecb(context* ctx, unsigned char* block) {
  if (ctx == nullptr || block == nullptr) return;
  Crypt<3>(kDecrypt, kInverseSBox, ctx->decrypt_keys, block);
}

void done(context* ctx) {
  if (ctx == nullptr) return;
  // Through a volatile pointer, so the clearing of a context that is about
  // to die is not optimised away.
  volatile unsigned char* bytes = reinterpret_cast<volatile unsigned char*>(ctx);
  for (std::size_t i = 0; i < sizeof *ctx; ++i) bytes[i] = 0;
}

}  // namespace aes256
