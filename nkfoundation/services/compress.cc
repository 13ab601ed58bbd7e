#include "nkfoundation/services/compress.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cstring>
#include <exception>
#include <limits>
#include <memory>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <vector>

#include "nkfoundation/services/wait_cursor.h"

namespace {

constexpr int kRingWords = 8192;
constexpr int kRingMask = kRingWords - 1;
constexpr int kRingBytes = 2 * kRingWords;
constexpr int kStagingBytes = 1024;
constexpr int kTableEntries = 32768;
constexpr int kMinLength = 2;
constexpr int kMaxLength = 15;
constexpr int kMatchTableCount = kMaxLength - kMinLength + 1;  // one per length
// Positions whose strings are hashed, entered and looked up together.
constexpr int kBatch = 64;

// A match source lies less than this many words back.
constexpr int kWindowWords = 4096;
// The encoder reads the next block while fewer words than this lie ahead.
constexpr int kReloadBelowWords = 2048;
constexpr int kReloadBytes = 4096;
// The decoder hands words on in blocks once this many are held back.
constexpr int kHeldBackWords = 6144;
constexpr int kFlushWords = 2048;
constexpr int kOutputGrowth = 40000;
constexpr int kTokenBits = 17;

// Appended to a source of odd length so that it splits into words; the
// decoder strips it again from any result of at least kTrailerMinResult bytes.
constexpr unsigned char kTrailer[] = {0x00, 0xFA, 0xEB, 0xDC, 0xCD, 0xBE, 0xAF};
constexpr int kTrailerBytes = static_cast<int>(sizeof kTrailer);
constexpr int kTrailerMinResult = 9;

constexpr std::uint16_t kHashTable[256] = {
    0xEB, 0x2E, 0x90, 0x19, 0x3A, 0x9B, 0xFA, 0x77, 0xAB, 0x5D, 0x55, 0xA2, 0x8A, 0x68, 0x4F, 0x1E,
    0xA0, 0x63, 0xE5, 0x93, 0xC4, 0x34, 0xF4, 0xD4, 0x47, 0x5A, 0x79, 0x04, 0xBC, 0x85, 0x9E, 0xD9,
    0xA6, 0x12, 0x8D, 0xC1, 0x02, 0xD0, 0x2B, 0x74, 0x49, 0xE7, 0xB3, 0x61, 0x17, 0x6C, 0xBF, 0x6E,
    0x27, 0xD7, 0x66, 0x0B, 0x58, 0xAE, 0xDF, 0x06, 0x32, 0xF9, 0x52, 0xD2, 0x95, 0x42, 0x7C, 0x50,
    0xC3, 0x88, 0x26, 0xA8, 0xFD, 0x8E, 0x40, 0xF7, 0x71, 0x2D, 0x15, 0x6A, 0xCF, 0x99, 0x7A, 0x20,
    0xA5, 0x09, 0x5F, 0xDA, 0xF2, 0x97, 0x82, 0xC7, 0x11, 0x3D, 0x76, 0xB6, 0x29, 0x4D, 0xF1, 0xB1,
    0x31, 0x9D, 0xEE, 0x5B, 0x22, 0x81, 0x24, 0xB8, 0xCC, 0x7D, 0x01, 0x54, 0xDC, 0x84, 0x0D, 0x7F,
    0xA9, 0x70, 0xE2, 0xB4, 0xE9, 0xBA, 0xFF, 0x1C, 0xC9, 0x92, 0x4B, 0xC6, 0xDE, 0x08, 0x3E, 0xD5,
    0x8C, 0xCE, 0x5E, 0xE4, 0x10, 0xA3, 0xE6, 0x33, 0xC2, 0x73, 0xE1, 0x36, 0x94, 0xF6, 0x28, 0x62,
    0xAD, 0x0E, 0xEC, 0x44, 0xFB, 0x65, 0x87, 0x98, 0x3C, 0x9C, 0x1D, 0xC8, 0x56, 0xD9, 0x00, 0xEF,
    0x51, 0xAF, 0x3B, 0xF3, 0x7E, 0x35, 0x75, 0xC0, 0x0C, 0xD6, 0x41, 0x9F, 0x1F, 0xBE, 0x39, 0xDB,
    0x05, 0x86, 0x4E, 0xF8, 0xDD, 0x1B, 0x83, 0x59, 0x2A, 0xB7, 0xEA, 0xA4, 0x5D, 0xBB, 0x46, 0xCB,
    0x0A, 0x6D, 0x48, 0xF5, 0x38, 0xB0, 0x18, 0xD3, 0x30, 0xB2, 0x07, 0xFE, 0x78, 0x21, 0xA1, 0x37,
    0x69, 0xD1, 0x16, 0x80, 0xB5, 0x0F, 0x9A, 0x45, 0xE8, 0x2C, 0x5C, 0x4C, 0x91, 0x13, 0xE0, 0x64,
    0x8B, 0xD8, 0x03, 0xFC, 0x53, 0xCD, 0xBD, 0x23, 0xAA, 0x1A, 0x6F, 0x67, 0x43, 0x96, 0xA7, 0x4A,
    0x89, 0xF0, 0x2F, 0x7B, 0x3F, 0xED, 0xAC, 0x57, 0x72, 0x25, 0x14, 0xCA, 0xC5, 0x8F, 0xB9, 0x00,
};

// The string hash takes a byte b into its 15-bit state h by
//   g(h, b) = ((h << 4) ^ T[(h >> 7) ^ b]) & 0x7FFF,
// the low byte of a word first. This table makes the two byte steps of a word
// one lookup. Writing t1 = T[(h >> 7) ^ lo], the word step is
//   ((h << 8) ^ (t1 << 4) ^ T[((h >> 3) & 0xFF) ^ hi ^ (t1 >> 7)]) & 0x7FFF,
// in which everything but h << 8 depends only on the two 8-bit indices
// (h >> 7) ^ lo and ((h >> 3) & 0xFF) ^ hi. This table holds that part for
// both indices at once (128 KB, filled while the library loads).
class WordHashTable {
 public:
  WordHashTable() {
    for (unsigned a = 0; a < 256; ++a) {
      for (unsigned c = 0; c < 256; ++c) {
        const unsigned t1 = kHashTable[a];
        entries_[a << 8 | c] = static_cast<std::uint16_t>((t1 << 4) ^ kHashTable[c ^ (t1 >> 7)]);
      }
    }
  }

  // The word with its bytes exchanged (lo << 8 | hi), which lines both bytes
  // up with their index.
  static unsigned Swap(std::uint16_t word) { return (word & 0xFFu) << 8 | word >> 8; }

  unsigned Step(unsigned h, unsigned swapped) const {
    const unsigned index = (((h << 1) & 0xFF00) | ((h >> 3) & 0xFF)) ^ swapped;
    return ((h << 8) & 0x7FFF) ^ entries_[index];
  }

 private:
  std::uint16_t entries_[1 << 16];
};

const WordHashTable kWordHashes;

// Rings hold their words in little-endian byte order whatever the host, so
// that bytes move between them and the collections unchanged.
inline std::uint16_t LittleEndian(std::uint16_t word) {
  if constexpr (std::endian::native == std::endian::big) {
    return static_cast<std::uint16_t>(word << 8 | word >> 8);
  } else {
    return word;
  }
}

inline std::uint16_t LoadWord(const std::uint16_t* ring, std::int32_t index) {
  return LittleEndian(ring[index & kRingMask]);
}

inline void StoreWord(std::uint16_t* ring, std::int32_t index, std::uint16_t word) {
  ring[index & kRingMask] = LittleEndian(word);
}

// The 14 match tables of one compression (1.8 MB). Allocating and clearing
// them on every call would dominate small images, so the tables of a finished
// call are kept for the next. Rather than being cleared, each call stores
// positions offset by a base that lies above every offset position of earlier
// calls by more than the window: old entries then fail the distance test just
// as the "never seen" value -4096 does, and the output stays the same.
struct MatchTables {
  std::int32_t rows[kMatchTableCount * kTableEntries];
  std::int32_t base;
  // Per length: what the table held for each position of the current batch,
  // and the hashes of the strings that start in the 15 words before it.
  std::int32_t candidates[kMatchTableCount * kBatch];
  std::uint16_t recent_hashes[kMatchTableCount * 15];

  void Clear() {
    std::fill(std::begin(rows), std::end(rows), 0);
    base = kWindowWords;  // so that a zero entry reads as -4096
  }
};

// Keeps one set of tables between calls. Threads that compress at the same
// time each get their own; only one set is kept.
class MatchTablePool {
 public:
  ~MatchTablePool() { delete spare_.exchange(nullptr); }

  std::unique_ptr<MatchTables> Take(std::int32_t words) {
    std::unique_ptr<MatchTables> tables(spare_.exchange(nullptr));
    if (!tables) {
      tables = std::make_unique<MatchTables>();
      tables->Clear();
    } else if (tables->base > std::numeric_limits<std::int32_t>::max() - words) {
      tables->Clear();
    }
    return tables;
  }

  void Return(std::unique_ptr<MatchTables> tables, std::int32_t words) {
    const std::int64_t next = std::int64_t{tables->base} + words + kWindowWords;
    tables->base = static_cast<std::int32_t>(
        std::min<std::int64_t>(next, std::numeric_limits<std::int32_t>::max()));
    MatchTables* empty = nullptr;
    if (spare_.compare_exchange_strong(empty, tables.get())) tables.release();
  }

 private:
  std::atomic<MatchTables*> spare_{nullptr};
};

MatchTablePool g_match_tables;

// --- Block search ---------------------------------------------------------
//
// The tokens depend on the input alone, not on where the parse stands. Every
// word is passed exactly once, in order, and passing it enters every string
// that ends there and starts at word 0 or later (once the window start is
// above 0 all 14 are entered; before, the window start is 0). So a look-up at
// a position always finds the latest earlier string of its length and hash,
// whatever tokens came before, and the longest verified match at every
// position is fixed by the input. Only the greedy walk that picks the tokens
// is sequential.
//
// A block is searched with its own tables, warmed on the window's worth of
// strings that start before it: an earlier start lies 4096 or more words back
// from every position of the block and fails the distance test, as would
// whatever it overwrote. Blocks therefore go to threads independently.

// A match as the walk reads it: the length in the low 4 bits, the distance
// above; 0 where no match starts.
using FoundMatch = std::uint16_t;

// Table entries count from just before the first word a block's tables see,
// so 0 means "never seen" and a block with its window fits 16 bits.
constexpr std::int32_t kMaxBlockWords = 65535 - kWindowWords;
// Smaller sources go the fixed-memory way: threads and fresh tables cost more
// than they save there.
constexpr std::int32_t kBlockSearchMinWords = 32768;

// The longest stream that `words` words can give: every word a literal, after
// up to 7 bits carried in from the object's previous call, and the pending
// byte.
std::int64_t MostCompressedBytes(std::int32_t words) { return (7 + std::int64_t{kTokenBits} * words) / 8 + 1; }

class BlockSearch {
 public:
  // `bytes` holds `words` little-endian words.
  BlockSearch(const std::uint8_t* bytes, std::int32_t words)
      : bytes_(bytes), words_(words), tables_(new std::uint16_t[kMatchTableCount * kTableEntries]) {}

  // Sets found[p - begin] for every position p of [begin, end) at which the
  // walk may start a token. The walk enters a block at one of its first 15
  // positions (the token that crosses into it is at most 15 words long), so
  // those are searched, and from each searched position the one its token
  // leads to; the walks from the 15 entries soon meet, and then a block costs
  // one search per token. The first block is entered at its start.
  void Run(std::int32_t begin, std::int32_t end, FoundMatch* found) {
    entries_ = begin == 0 ? 1u : (1u << kMaxLength) - 1;
    warm_ = std::max(0, begin - (kWindowWords - 1));
    base_ = warm_ - 1;
    std::fill_n(tables_.get(), kMatchTableCount * kTableEntries, std::uint16_t{0});
    for (std::int32_t first = warm_; first < end; first += kBatch) {
      Batch(first, static_cast<int>(std::min<std::int32_t>(kBatch, end - first)), begin, found);
    }
  }

  std::int32_t verified() const { return verified_; }
  std::int32_t rejected() const { return rejected_; }

 private:
  unsigned Word(std::int32_t i) const { return bytes_[2 * i] | unsigned{bytes_[2 * i + 1]} << 8; }

  // The table traffic of the positions [first, first + n), one length at a
  // time as in the fixed-memory encoder (OCompress::calc_hash_backward), then
  // the matches of those at or after `begin`. Every batch but a block's last
  // is whole.
  void Batch(std::int32_t first, int n, std::int32_t begin, FoundMatch* found) {
    const int available = static_cast<int>(std::min<std::int32_t>(words_ - first, kBatch + kMaxLength - 1));
    const int looked_up_from = static_cast<int>(std::clamp<std::int32_t>(begin - first, 0, n));
    unsigned swapped[kBatch + kMaxLength - 1];
    for (int i = 0; i < available; ++i) swapped[i] = WordHashTable::Swap(static_cast<std::uint16_t>(Word(first + i)));
    unsigned hashes[kBatch];
    for (int j = 0; j < n; ++j) hashes[j] = kWordHashes.Step(0, swapped[j]);

    for (int len = kMinLength; len <= kMaxLength; ++len) {
      std::uint16_t* const table = tables_.get() + (len - kMinLength) * kTableEntries;
      std::uint16_t* const candidates = candidates_[len - kMinLength];
      const std::uint16_t* const recent = recent_[len - kMinLength];
      const int hashed = std::clamp(available - len + 1, 0, n);
      for (int j = 0; j < hashed; ++j) hashes[j] = kWordHashes.Step(hashes[j], swapped[j + len - 1]);
      // Before position first + j goes the string that ends just before it,
      // from first + j - len; for the first positions its hash is the
      // previous batch's. Where the string from first + j runs past the last
      // word, there is nothing to look up.
      const int from_previous = std::min(len, n);
      for (int j = 0; j < from_previous; ++j) {
        const std::int32_t start = first + j - len;
        if (start >= warm_) table[recent[j - len + kMaxLength]] = static_cast<std::uint16_t>(start - base_);
        candidates[j] = j < hashed ? table[hashes[j]] : 0;
      }
      int j = from_previous;
      for (; j < looked_up_from; ++j) table[hashes[j - len]] = static_cast<std::uint16_t>(first + j - len - base_);
      for (; j < hashed; ++j) {
        table[hashes[j - len]] = static_cast<std::uint16_t>(first + j - len - base_);
        candidates[j] = table[hashes[j]];
      }
      for (; j < n; ++j) {
        table[hashes[j - len]] = static_cast<std::uint16_t>(first + j - len - base_);
        candidates[j] = 0;
      }
      if (n == kBatch) std::copy(hashes + kBatch - kMaxLength, hashes + kBatch, recent_[len - kMinLength]);
    }
    MarkInWindow(first);
    for (int j = looked_up_from; j < n; ++j, entries_ >>= 1) {
      if ((entries_ & 1) == 0) continue;
      const FoundMatch match = MatchAt(first + j, j);
      found[first + j - begin] = match;
      entries_ |= 1u << (match != 0 ? match & 0xF : 1);
    }
  }

  // Sets bit `len` of in_window_[j] where the candidate of that length lies
  // less than a window back from first + j (whole lanes at a time).
  void MarkInWindow(std::int32_t first) {
    std::fill(std::begin(in_window_), std::end(in_window_), std::uint16_t{0});
    const auto origin = static_cast<std::uint16_t>(first - base_);
    for (int len = kMinLength; len <= kMaxLength; ++len) {
      const std::uint16_t* const candidates = candidates_[len - kMinLength];
      for (int j = 0; j < kBatch; ++j) {
        const std::uint16_t entry = candidates[j];
        const auto distance = static_cast<std::uint16_t>(origin + j - entry);
        const bool in_window = entry != 0 && distance < kWindowWords;
        in_window_[j] = static_cast<std::uint16_t>(in_window_[j] | (in_window ? 1u << len : 0u));
      }
    }
  }

  // The longest length whose candidate lies within the window and repeats the
  // words at the position, as OCompress::match finds it.
  FoundMatch MatchAt(std::int32_t position, int j) {
    const int longest = static_cast<int>(std::min<std::int32_t>(kMaxLength, words_ - position));
    std::int32_t compared = -1;
    int common = 0;
    // No two-word string within the window: no longer one either, since its
    // first two words would be one.
    if ((in_window_[j] & 1u << kMinLength) == 0) return 0;
    for (unsigned lengths = in_window_[j]; lengths != 0;) {
      const int len = std::bit_width(lengths) - 1;
      lengths &= ~(1u << len);
      const std::int32_t start = candidates_[len - kMinLength][j] + base_;
      if (start != compared) {
        common = CommonWords(start, position, longest);
        compared = start;
      }
      if (common >= len) {
        ++verified_;
        return static_cast<FoundMatch>(len | (position - start) << 4);
      }
      ++rejected_;
    }
    return 0;
  }

  // How many words, up to `limit`, repeat from `from` at `at`.
  int CommonWords(std::int32_t from, std::int32_t at, int limit) const {
    if (at + 16 <= words_) {
      for (int k = 0; k < 32; k += 8) {
        std::uint64_t a;
        std::uint64_t b;
        std::memcpy(&a, bytes_ + 2 * from + k, sizeof a);
        std::memcpy(&b, bytes_ + 2 * at + k, sizeof b);
        if (a != b) {
          const int byte = std::endian::native == std::endian::little ? std::countr_zero(a ^ b) / 8
                                                                       : std::countl_zero(a ^ b) / 8;
          return std::min(limit, (k + byte) / 2);
        }
      }
      return limit;
    }
    int common = 0;
    while (common < limit && Word(from + common) == Word(at + common)) ++common;
    return common;
  }

  const std::uint8_t* bytes_;
  std::int32_t words_;
  std::unique_ptr<std::uint16_t[]> tables_;
  // Entries hold a start minus base_; strings from before warm_ stay out.
  std::int32_t warm_ = 0;
  // Bit i: the walk may start a token i positions after the next one searched.
  std::uint32_t entries_ = 0;
  std::int32_t base_ = 0;
  // Per position of the batch: what each length's table named there, and a
  // bit per length whose entry lies within the window.
  std::uint16_t candidates_[kMatchTableCount][kBatch];
  std::uint16_t in_window_[kBatch];
  std::uint16_t recent_[kMatchTableCount][kMaxLength];
  std::int32_t verified_ = 0;
  std::int32_t rejected_ = 0;
};

// Writes tokens of 17 bits, least significant bit first, 32 bits at a time
// into a buffer that has room for them all. It continues the bit state that
// the object's previous call left, as OUT_BITS does.
class TokenWriter {
 public:
  TokenWriter(std::uint8_t* out, std::uint8_t pending_byte, std::uint8_t bit_mask)
      : out_(out), bits_(pending_byte & (bit_mask - 1u)), count_(std::countr_zero(bit_mask)) {}

  void Put(std::uint32_t token) {
    bits_ |= std::uint64_t{token} << count_;
    count_ += kTokenBits;
    if (count_ >= 32) {
      for (int i = 0; i < 4; ++i) out_[i] = static_cast<std::uint8_t>(bits_ >> (8 * i));
      out_ += 4;
      bits_ >>= 32;
      count_ -= 32;
    }
  }

  // Writes the whole bytes left, then the pending byte, which always goes
  // out (OUT_LAST_CODE); its bits stay in the bit state for the next call.
  // Returns the end of the stream.
  std::uint8_t* Finish(std::uint8_t& pending_byte, std::uint8_t& bit_mask) {
    for (; count_ >= 8; count_ -= 8, bits_ >>= 8) *out_++ = static_cast<std::uint8_t>(bits_);
    pending_byte = static_cast<std::uint8_t>(bits_);
    bit_mask = static_cast<std::uint8_t>(1u << count_);
    *out_++ = pending_byte;
    return out_;
  }

 private:
  std::uint8_t* out_;
  std::uint64_t bits_;
  int count_;
};

// Reads token t of a stream: 17 bits from bit 17 t, the bits past the end
// read as zeros.
class TokenReader {
 public:
  TokenReader(const std::uint8_t* bytes, std::int32_t count) : bytes_(bytes), count_(count) {}

  // Tokens whose 17 bits start before the last byte: those the decoder reads.
  std::int64_t tokens() const { return (8 * (std::int64_t{count_} - 1) + kTokenBits - 1) / kTokenBits; }

  std::uint32_t operator[](std::int64_t t) const {
    const std::int64_t bit = t * kTokenBits;
    const std::int64_t byte = bit >> 3;
    std::uint64_t bits = 0;
    if (byte + 8 <= count_) {
      std::memcpy(&bits, bytes_ + byte, sizeof bits);
      if constexpr (std::endian::native == std::endian::big) bits = __builtin_bswap64(bits);
    } else {
      for (std::int64_t i = byte; i < count_; ++i) bits |= std::uint64_t{bytes_[i]} << (8 * (i - byte));
    }
    return static_cast<std::uint32_t>(bits >> (bit & 7)) & ((1u << kTokenBits) - 1);
  }

 private:
  const std::uint8_t* bytes_;
  std::int32_t count_;
};

}  // namespace

OCompress::OCompress() = default;
OCompress::OCompress(Method method, int threads) : m_eMethod(method), m_iThreads(threads) {}
OCompress::~OCompress() = default;

// --- Encoder --------------------------------------------------------------

int OCompress::iCompress_LZ77_Fast(Bytes& source, Bytes& target) {
  nk::ScopedWaitCursor wait_cursor;
  if (source.GetCount() <= 0) {
    target.SetSize(0);
    return 0;
  }
  // An odd source is read with the padding trailer after it.
  m_iInputPadding = source.GetCount() % 2 != 0 ? kTrailerBytes : 0;
  m_iInputCount = source.GetCount() + m_iInputPadding;
  m_pInputData = source.GetData();
  m_iInputReadPosition = 0;
  const std::int32_t words = m_iInputCount / 2;
  if (m_eMethod == Method::kFastest && words >= kBlockSearchMinWords &&
      MostCompressedBytes(words) <= std::numeric_limits<int>::max()) {
    // On one core the blocks cost about what the fixed-memory encoder does,
    // so that machine takes the same way as the others.
    const int threads =
        m_iThreads > 0 ? m_iThreads : std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    CompressInBlocks(target, threads);
    m_pInputData = nullptr;
    return 1;
  }

  const auto window = std::make_unique<std::uint16_t[]>(kRingWords);
  const auto staging = std::make_unique<std::uint8_t[]>(kStagingBytes);
  std::unique_ptr<MatchTables> tables = g_match_tables.Take(words);
  m_pWindow = window.get();
  m_pOutStagingStart = m_pOutStagingCursor = staging.get();
  for (int i = 0; i < kLengths; ++i) m_pMatchTables[i] = tables->rows + i * kTableEntries;
  m_iTableBase = tables->base;
  m_pCandidates = tables->candidates;
  m_pRecentHashes = tables->recent_hashes;
  m_iPosition = m_iLoadedWords = m_iBatchEnd = 0;
  BeginOutput(target, m_iInputCount);

  lz77();

  EndOutput();
  g_match_tables.Return(std::move(tables), words);
  m_pWindow = nullptr;
  m_pOutStagingStart = m_pOutStagingCursor = nullptr;
  std::fill(std::begin(m_pMatchTables), std::end(m_pMatchTables), nullptr);
  m_pCandidates = nullptr;
  m_pRecentHashes = nullptr;
  m_pInputData = nullptr;
  return 1;
}

void OCompress::lz77() {
  LoadWindow(kRingBytes);
  calc_hash_inpos();
  while (m_iLoadedWords > m_iPosition) {
    int distance = 0;
    int length = 0;
    if (match(distance, length)) {
      OUT_BIT(0);
      OUT_BITS(static_cast<std::uint32_t>(distance), 12);
      OUT_BITS(static_cast<std::uint32_t>(length), 4);
      adjust_window(length);
    } else {
      OUT_BIT(1);
      OUT_BITS(WordAt(m_iPosition), 16);
      adjust_window(1);
    }
  }
  OUT_LAST_CODE();
}

// Searches the source's blocks on `threads` threads, the calling one among
// them, and walks the matches they found into `target`: the calling thread
// walks each block as soon as it is searched and searches blocks itself while
// the walk waits for one.
void OCompress::CompressInBlocks(Bytes& target, int threads) {
  const std::int32_t words = m_iInputCount / 2;
  std::vector<std::uint8_t> padded;
  const std::uint8_t* bytes = m_pInputData;
  if (m_iInputPadding > 0) {
    padded.assign(m_pInputData, m_pInputData + (m_iInputCount - m_iInputPadding));
    padded.insert(padded.end(), std::begin(kTrailer), std::end(kTrailer));
    bytes = padded.data();
  }
  // Every block warms its tables on a window's worth of words before it;
  // blocks of two windows or more keep that below half of their work.
  threads = std::clamp(threads, 1, std::max(1, words / (2 * kWindowWords)));
  // Whole rounds of blocks, so that every thread warms up as often.
  const std::int64_t per_round = std::int64_t{threads} * kMaxBlockWords;
  const auto blocks = static_cast<std::int32_t>(threads * ((words + per_round - 1) / per_round));
  const std::int32_t block_words = (words + blocks - 1) / blocks;
  const std::unique_ptr<FoundMatch[]> found(new FoundMatch[static_cast<std::size_t>(words)]);
  const std::unique_ptr<std::atomic<bool>[]> searched(new std::atomic<bool>[static_cast<std::size_t>(blocks)]());
  // The most any walk writes: every word a literal, after up to 7 carried bits.
  target.SetSize(0);
  target.FreeExtra();
  target.SetSize(static_cast<int>(MostCompressedBytes(words)));

  std::atomic<std::int32_t> next_block{0};
  std::atomic<bool> failed{false};
  std::atomic<std::int32_t> verified{0};
  std::atomic<std::int32_t> rejected{0};
  // Searches the next block nobody has taken; false once none is left.
  auto search_next = [&](BlockSearch& search) {
    const std::int32_t block = next_block++;
    if (block >= blocks) return false;
    const std::int32_t begin = block * block_words;
    if (begin < words) search.Run(begin, std::min(words, begin + block_words), found.get() + begin);
    searched[block].store(true, std::memory_order_release);
    return true;
  };
  auto count = [&](const BlockSearch& search) {
    verified += search.verified();
    rejected += search.rejected();
  };

  std::vector<std::exception_ptr> failures(static_cast<std::size_t>(std::min(threads, blocks)));
  std::vector<std::thread> helpers;
  helpers.reserve(failures.size());  // no allocation while threads run
  for (std::size_t i = 1; i < failures.size(); ++i) {
    try {
      helpers.emplace_back([&, &failure = failures[i]] {
        try {
          BlockSearch search(bytes, words);
          while (search_next(search)) {
          }
          count(search);
        } catch (...) {
          failure = std::current_exception();
          failed = true;
        }
      });
    } catch (const std::system_error&) {
      break;  // the threads already started and this one share the blocks
    }
  }

  try {
    BlockSearch search(bytes, words);
    TokenWriter writer(target.GetData(), m_uiPendingByte, m_uiBitMask);
    for (std::int32_t position = 0; position < words && !failed;) {
      const std::int32_t block = position / block_words;
      if (!searched[block].load(std::memory_order_acquire)) {
        if (!search_next(search)) std::this_thread::yield();
        continue;
      }
      for (const std::int32_t end = std::min(words, (block + 1) * block_words); position < end;) {
        const unsigned match = found[static_cast<std::size_t>(position)];
        if (match != 0) {
          writer.Put((match & 0xF) << 13 | (match >> 4) << 1);
          position += static_cast<std::int32_t>(match & 0xF);
        } else {
          writer.Put(1u | unsigned{bytes[2 * position]} << 1 | unsigned{bytes[2 * position + 1]} << 9);
          ++position;
        }
      }
    }
    if (!failed) {
      target.SetSize(static_cast<int>(writer.Finish(m_uiPendingByte, m_uiBitMask) - target.GetData()));
      target.FreeExtra();
    }
    count(search);
  } catch (...) {
    failures[0] = std::current_exception();
    failed = true;
  }
  for (std::thread& helper : helpers) helper.join();
  for (const std::exception_ptr& failure : failures) {
    if (failure) std::rethrow_exception(failure);
  }
  m_iVerifiedCandidates += verified;
  m_iRejectedCandidates += rejected;
}

std::uint16_t OCompress::HASH_W(std::uint16_t h, std::uint16_t word) {
  return static_cast<std::uint16_t>(kWordHashes.Step(h, WordHashTable::Swap(word)));
}

std::uint16_t OCompress::HASH_STRING(std::int32_t pos, int len) const {
  std::uint16_t h = 0;
  for (int i = 0; i < len; ++i) h = HASH_W(h, WordAt(pos + i));
  return h;
}

std::uint16_t OCompress::WordAt(std::int32_t pos) const { return LoadWord(m_pWindow, pos); }

// Makes sure that the batch holding the position has been entered and looked
// up.
void OCompress::calc_hash_inpos() {
  while (m_iBatchEnd <= m_iPosition) calc_hash_backward(kBatch);
}

// Enters into the tables the strings that end before each of the next `n`
// positions and records, for each position and length, the start that the
// table names when the encoder arrives there: the latest earlier string of
// that length and hash, its match candidate.
//
// This is the encoder's table traffic done ahead, for every position whether
// or not a token starts there, in an order that gives the same results: the
// tables of different lengths never meet, and within one length a position
// sees exactly the strings that ended before it, entered in order of their
// start. So each length gets one pass over the batch that hashes, enters and
// looks up; its table stays in the processor's cache and the hash chains of
// the batch's positions overlap.
//
// Strings that start before the window start are entered too: they lie so far
// back that any later look-up that finds them rejects them for distance, as it
// would reject the older entry they replace.
void OCompress::calc_hash_backward(int n) {
  const std::int32_t first = m_iBatchEnd;
  m_iBatchEnd += n;
  // While the source lasts, at least 2033 loaded words lie ahead of the
  // position; at its end only the loaded strings count.
  const int available = static_cast<int>(
      std::clamp<std::int32_t>(m_iLoadedWords - first, 0, kBatch + kMaxLength - 1));
  unsigned swapped[kBatch + kMaxLength - 1];
  for (int i = 0; i < available; ++i) swapped[i] = WordHashTable::Swap(WordAt(first + i));
  // hashes[j]: the hash of the string of the current length from first + j.
  unsigned hashes[kBatch];
  for (int j = 0; j < n; ++j) hashes[j] = j < available ? HASH_STRING(first + j, 1) : 0;

  const int positions = std::min(available + 1, n);
  for (int len = kMinLength; len <= kMaxLength; ++len) {
    std::int32_t* const table = m_pMatchTables[len - kMinLength];
    std::int32_t* const candidates = m_pCandidates + (len - kMinLength) * kBatch;
    std::uint16_t* const recent = m_pRecentHashes + (len - kMinLength) * kMaxLength;
    const int hashed = std::clamp(available - len + 1, 0, n);
    for (int j = 0; j < hashed; ++j) hashes[j] = kWordHashes.Step(hashes[j], swapped[j + len - 1]);
    // The string that ends just before first + j starts at first + j - len;
    // those of the first positions started in the previous batch.
    const int from_previous = std::min(len, positions);
    for (int j = 0; j < from_previous; ++j) {
      if (first + j - len >= 0) table[recent[j - len + kMaxLength]] = first + j - len + m_iTableBase;
      candidates[j] = table[hashes[j]];
    }
    for (int j = from_previous; j < positions; ++j) {
      table[hashes[j - len]] = first + j - len + m_iTableBase;
      candidates[j] = table[hashes[j]];
    }
    std::copy(hashes + kBatch - kMaxLength, hashes + kBatch, recent);
  }
}

// Compares the `length` words at `candidate` with those at the position; both
// spans may wrap around the ring's end.
bool OCompress::verify_hash(std::int32_t candidate, int length) {
  bool equal = true;
  for (int i = 0; i < length && equal; ++i) equal = WordAt(candidate + i) == WordAt(m_iPosition + i);
  ++(equal ? m_iVerifiedCandidates : m_iRejectedCandidates);
  return equal;
}

// The longest length whose remembered candidate lies within the window and
// really repeats the words at the position.
int OCompress::match(int& distance, int& length) {
  const std::int32_t ahead = m_iLoadedWords - m_iPosition;
  if (ahead < kMinLength) return 0;
  // Every string that ended before the position and starts within the window
  // is in its table, so when even the latest two-word string with this hash
  // lies outside the window, no longer string can match either: each would
  // begin with such a two-word string. Most positions of noisy images end here.
  const std::int32_t* const candidates = m_pCandidates + (m_iPosition & (kBatch - 1));
  if (!InWindow(candidates[0])) return 0;
  for (int len = static_cast<int>(std::min<std::int32_t>(ahead, kMaxLength)); len >= kMinLength; --len) {
    const std::int32_t entry = candidates[(len - kMinLength) * kBatch];
    if (InWindow(entry) && verify_hash(entry - m_iTableBase, len)) {
      distance = m_iPosition - (entry - m_iTableBase);
      length = len;
      return 1;
    }
  }
  return 0;
}

// Whether a table entry names a start less than a window's length back.
bool OCompress::InWindow(std::int32_t entry) const {
  return std::int64_t{m_iPosition} - (std::int64_t{entry} - m_iTableBase) < kWindowWords;
}

// The tables were worked ahead (calc_hash_backward), so advancing is moving
// the position, reading on when the ring runs low, and working the next batch
// when the position enters it.
void OCompress::adjust_window(int n) {
  m_iPosition += n;
  if (m_iLoadedWords - m_iPosition < kReloadBelowWords) LoadWindow(kReloadBytes);
  calc_hash_inpos();
}

// Copies up to `bytes` source bytes into the ring after the loaded words.
// Until the source runs out every block is whole, so the loaded words stay a
// multiple of the block and a block never wraps around the ring's end.
void OCompress::LoadWindow(int bytes) {
  const int read = iRead(reinterpret_cast<std::uint8_t*>(m_pWindow + (m_iLoadedWords & kRingMask)), bytes);
  m_iLoadedWords += read / 2;
}

void OCompress::OUT_BIT(unsigned bit) { OUT_BITS(bit, 1); }

// Bits fill the pending byte from the bit mask upwards; each completed byte
// goes out.
void OCompress::OUT_BITS(std::uint32_t value, int count) {
  const int filled = std::countr_zero(m_uiBitMask);
  std::uint32_t bits = (m_uiPendingByte & (m_uiBitMask - 1u)) |
                       ((value & ((1u << count) - 1u)) << filled);
  int pending = filled + count;
  for (; pending >= 8; pending -= 8, bits >>= 8) write_output_byte(static_cast<std::uint8_t>(bits));
  m_uiPendingByte = static_cast<std::uint8_t>(bits);
  m_uiBitMask = static_cast<std::uint8_t>(1u << pending);
}

void OCompress::write_output_byte(std::uint8_t b) {
  if (m_pOutStagingCursor - m_pOutStagingStart == kStagingBytes) {
    iWrite(m_pOutStagingStart, kStagingBytes);
    m_pOutStagingCursor = m_pOutStagingStart;
  }
  *m_pOutStagingCursor++ = b;
}

// The pending byte always goes out, even with no bit pending: the stream ends
// with it.
void OCompress::OUT_LAST_CODE() {
  write_output_byte(m_uiPendingByte);
  iWrite(m_pOutStagingStart, static_cast<int>(m_pOutStagingCursor - m_pOutStagingStart));
  m_pOutStagingCursor = m_pOutStagingStart;
}

// --- Collection access ----------------------------------------------------

// The source's bytes, then its padding trailer, if any.
int OCompress::iRead(std::uint8_t* buf, int n) {
  const int count = std::min(n, m_iInputCount - m_iInputReadPosition);
  if (count <= 0) return 0;
  const int source_bytes = m_iInputCount - m_iInputPadding;
  const int from_source = std::clamp(source_bytes - m_iInputReadPosition, 0, count);
  if (from_source > 0) std::memcpy(buf, m_pInputData + m_iInputReadPosition, static_cast<std::size_t>(from_source));
  if (count > from_source) {
    std::memcpy(buf + from_source, kTrailer + (m_iInputReadPosition + from_source - source_bytes),
                static_cast<std::size_t>(count - from_source));
  }
  m_iInputReadPosition += count;
  return count;
}

int OCompress::iWrite(const std::uint8_t* buf, int n) {
  while (m_iOutputSize - m_iOutputWritePosition < n) {
    if (m_iOutputSize > std::numeric_limits<int>::max() - kOutputGrowth) {
      throw std::length_error("OCompress: the result does not fit a byte collection");
    }
    m_iOutputSize += kOutputGrowth;
    m_pOutputCollection->SetSize(m_iOutputSize);
    m_pOutputData = m_pOutputCollection->GetData();
  }
  std::memcpy(m_pOutputData + m_iOutputWritePosition, buf, static_cast<std::size_t>(n));
  m_iOutputWritePosition += n;
  return n;
}

void OCompress::BeginOutput(Bytes& target, int initial_size) {
  m_pOutputCollection = &target;
  target.SetSize(initial_size);
  m_pOutputData = target.GetData();
  m_iOutputSize = initial_size;
  m_iOutputWritePosition = 0;
}

void OCompress::EndOutput() {
  m_pOutputCollection->SetSize(m_iOutputWritePosition);
  m_pOutputCollection->FreeExtra();
  m_pOutputCollection = nullptr;
  m_pOutputData = nullptr;
}

// --- Decoder --------------------------------------------------------------

int OCompress::iDeCompress_LZ77_Fast(Bytes& source, Bytes& target) {
  nk::ScopedWaitCursor wait_cursor;
  if (source.GetCount() <= 0) {
    target.SetSize(0);
    return 0;
  }
  m_pInputData = source.GetData();
  m_iInputCount = source.GetCount();
  m_iInputPadding = 0;
  m_iInputReadPosition = 0;
  if (m_eMethod == Method::kFastest) {
    DecompressDirect(target);
  } else {
    const auto staging = std::make_unique<std::uint8_t[]>(kStagingBytes);
    // Zeroed: a distance that reaches before the first word reads zeros.
    const auto ring = std::make_unique<std::uint16_t[]>(kRingWords);
    m_pInStagingStart = m_pInStagingCursor = staging.get();
    m_pOutputRing = ring.get();
    m_iWindowStart = m_iOutputWords = 0;
    BeginOutput(target, static_cast<int>(std::min<std::int64_t>(
                            std::int64_t{4} * source.GetCount(), std::numeric_limits<int>::max())));

    un77();

    EndOutput();
    m_pInStagingStart = m_pInStagingCursor = nullptr;
    m_pOutputRing = nullptr;
  }
  m_pInputData = nullptr;

  const int count = target.GetCount();
  if (count >= kTrailerMinResult &&
      std::equal(std::begin(kTrailer), std::end(kTrailer), target.GetData() + count - kTrailerBytes)) {
    target.RemoveAt(count - kTrailerBytes, kTrailerBytes);
  }
  return 1;
}

// Decodes the tokens that un77() reads straight into the target: no ring and
// no hand-over. The target starts at four times the source, as the ring
// decoder's does, doubles while a token might not fit, and is cut back at the
// end. A match copies from the target as from the ring: a distance of 0
// reaches 8192 words back, and one before the first word reads zeros.
void OCompress::DecompressDirect(Bytes& target) {
  constexpr std::int64_t kMostWords = std::numeric_limits<int>::max() / 2;
  // A match may copy 16 words in one piece, so the target keeps that much
  // room ahead of the next word.
  constexpr std::int64_t kCopyWords = kMaxLength + 1;
  const TokenReader tokens(m_pInputData, m_iInputCount);
  const std::int64_t count = tokens.tokens();
  std::int64_t capacity = std::min(kMostWords, 2 * std::int64_t{m_iInputCount});
  target.SetSize(0);
  target.FreeExtra();
  target.SetSize(static_cast<int>(2 * capacity));
  std::uint8_t* out = target.GetData();

  std::int64_t at = 0;  // the next word to produce
  for (std::int64_t t = 0; t < count; ++t) {
    const std::uint32_t token = tokens[t];
    if (at + kCopyWords > capacity && capacity < kMostWords) {
      capacity = std::min(kMostWords, std::max(2 * capacity, at + kCopyWords));
      target.SetSize(static_cast<int>(2 * capacity));
      out = target.GetData();
    }
    if ((token & 1) != 0) {
      if (at + 1 > capacity) throw std::length_error("OCompress: the result does not fit a byte collection");
      out[2 * at] = static_cast<std::uint8_t>(token >> 1);
      out[2 * at + 1] = static_cast<std::uint8_t>(token >> 9);
      ++at;
      continue;
    }
    const std::int64_t length = token >> 13;
    const std::int64_t distance = (token >> 1 & 0xFFF) != 0 ? (token >> 1 & 0xFFF) : kRingWords;
    if (at + length > capacity) throw std::length_error("OCompress: the result does not fit a byte collection");
    if (at >= distance && distance >= kCopyWords && at + kCopyWords <= capacity) {
      // Sixteen words in one piece; those past the match are written again
      // by the tokens that follow before anything reads them, or cut off.
      std::memcpy(out + 2 * at, out + 2 * (at - distance), 2 * kCopyWords);
    } else if (at >= distance && distance >= length) {
      std::memcpy(out + 2 * at, out + 2 * (at - distance), static_cast<std::size_t>(2 * length));
    } else if (at >= distance) {
      // Overlapping: the words repeat with the distance as their period.
      for (std::int64_t i = 2 * at; i < 2 * (at + length); ++i) out[i] = out[i - 2 * distance];
    } else {
      // Reaching before the first word, which reads zeros.
      for (std::int64_t i = at; i < at + length; ++i) {
        const bool before_first = i < distance;
        out[2 * i] = before_first ? 0 : out[2 * (i - distance)];
        out[2 * i + 1] = before_first ? 0 : out[2 * (i - distance) + 1];
      }
    }
    at += length;
  }
  target.SetSize(static_cast<int>(2 * at));
  target.FreeExtra();
}

// Every token is 17 bits, so none can begin in the last byte: decoding stops
// after the token during which the last byte was taken up, that is once the
// bits before the last byte are spent. Bits past the end read as zeros.
void OCompress::un77() {
  read_input_buffer();
  m_iUnreadInputBytes = m_iInputCount;
  m_ullBitBuffer = 0;
  m_iBufferedBits = 0;
  const std::int64_t bits_before_last_byte = 8 * (std::int64_t{m_iInputCount} - 1);
  for (std::int64_t spent = 0; spent < bits_before_last_byte; spent += kTokenBits) {
    if (IN_BIT()) {
      OUT_WORD(static_cast<std::uint16_t>(IN_BITS(16)));
    } else {
      const int distance = static_cast<int>(IN_BITS(12));
      const int length = static_cast<int>(IN_BITS(4));
      OUT_STRING(distance, length);
    }
  }
  write_output(m_iWindowStart, m_iOutputWords - m_iWindowStart);
}

void OCompress::read_input_buffer() {
  iRead(m_pInStagingStart, kStagingBytes);
  m_pInStagingCursor = m_pInStagingStart;
}

// Takes the next compressed byte into the bit buffer, above the bits already
// there; past the end the byte is 0.
void OCompress::read_next_byte() {
  std::uint64_t byte = 0;
  if (m_iUnreadInputBytes > 0) {
    if (m_pInStagingCursor - m_pInStagingStart == kStagingBytes) read_input_buffer();
    byte = *m_pInStagingCursor++;
    --m_iUnreadInputBytes;
  }
  m_ullBitBuffer |= byte << m_iBufferedBits;
  m_iBufferedBits += 8;
}

// Tops the bit buffer up to at least 57 bits: eight bytes at once while the
// staging buffer holds them, else byte by byte.
inline void OCompress::FillBitBuffer() {
  const std::int64_t staged = m_pInStagingStart + kStagingBytes - m_pInStagingCursor;
  if (std::min<std::int64_t>(staged, m_iUnreadInputBytes) < 8) {
    while (m_iBufferedBits <= 56) read_next_byte();
    return;
  }
  std::uint64_t next;
  std::memcpy(&next, m_pInStagingCursor, sizeof next);
  if constexpr (std::endian::native == std::endian::big) next = __builtin_bswap64(next);
  m_ullBitBuffer |= next << m_iBufferedBits;
  const int taken = (63 - m_iBufferedBits) >> 3;
  m_pInStagingCursor += taken;
  m_iUnreadInputBytes -= taken;
  m_iBufferedBits += 8 * taken;
}

unsigned OCompress::IN_BIT() { return IN_BITS(1); }

// `count` bits, least significant first.
std::uint32_t OCompress::IN_BITS(int count) {
  if (m_iBufferedBits < count) FillBitBuffer();
  const auto value = static_cast<std::uint32_t>(m_ullBitBuffer & ((1u << count) - 1u));
  m_ullBitBuffer >>= count;
  m_iBufferedBits -= count;
  return value;
}

// Produced words wait in the ring so that matches can copy from them, and go
// to the target 2048 at a time.
void OCompress::OUT_WORD(std::uint16_t word) {
  StoreWord(m_pOutputRing, m_iOutputWords++, word);
  if (m_iOutputWords - m_iWindowStart > kHeldBackWords) {
    write_output(m_iWindowStart, kFlushWords);
    m_iWindowStart += kFlushWords;
  }
}

// Word by word, so that a copy overlapping the words it produces repeats
// them. Distances are not checked: 0 reads the ring slot about to be written,
// and a distance before the first word reads the ring's zeros.
void OCompress::OUT_STRING(int distance, int length) {
  if (m_iOutputWords + length - m_iWindowStart <= kHeldBackWords) {
    // No hand-over falls inside: copy without checking for one, in one piece
    // when the copy neither overlaps itself nor wraps around the ring.
    const std::int32_t to = m_iOutputWords & kRingMask;
    const std::int32_t from = (m_iOutputWords - distance) & kRingMask;
    if (distance >= length && to + length <= kRingWords && from + length <= kRingWords) {
      std::memcpy(m_pOutputRing + to, m_pOutputRing + from, 2 * static_cast<std::size_t>(length));
      m_iOutputWords += length;
      return;
    }
    for (int i = 0; i < length; ++i, ++m_iOutputWords) {
      m_pOutputRing[m_iOutputWords & kRingMask] = m_pOutputRing[(m_iOutputWords - distance) & kRingMask];
    }
    return;
  }
  for (int i = 0; i < length; ++i) OUT_WORD(LoadWord(m_pOutputRing, m_iOutputWords - distance));
}

void OCompress::write_output(std::int32_t from, std::int32_t count) {
  while (count > 0) {
    const std::int32_t slot = from & kRingMask;
    const std::int32_t piece = std::min(count, kRingWords - slot);
    iWrite(reinterpret_cast<const std::uint8_t*>(m_pOutputRing + slot), 2 * piece);
    from += piece;
    count -= piece;
  }
}
