// OCompress: the word-oriented LZ77 coder that stores image pixel data.
#ifndef NKFOUNDATION_SERVICES_COMPRESS_H_
#define NKFOUNDATION_SERVICES_COMPRESS_H_

#include <cstdint>

#include "nkfoundation/core/collection.h"
#include "nkfoundation/core/export.h"

// Matches and literals are 16-bit little-endian words, since grey-value and
// colour rows repeat in pairs of bytes. The stream is a bare sequence of
// 17-bit tokens, least significant bit first, with no header, length or
// checksum:
//   literal: 1, the word (16 bits)
//   match:   0, distance in words (12 bits, 1..4095), length in words (4 bits, 2..15)
// followed by the pending byte, always, even when no bit is pending. A source
// of odd length is compressed with a 7-byte padding trailer that the decoder
// strips again; docs/formats.md describes the stream byte for byte.
//
// Every output byte is fixed by the algorithm, not just the decoded data:
// stored project files are compared byte for byte.
//
// A compressor serves one call: the bit state of one call carries into the
// next on the same object, so construct a fresh object for every call.
//
// A caller picks how the work is done when constructing the object; every
// method writes and reads the same bytes, so a stream written one way is read
// any way.
class NKF_API OCompress {
 public:
  using Bytes = WritableCollection<unsigned char, int>;

  enum class Method {
    // The default: the fastest way this machine offers. Compressing a source
    // of 64 KiB or more searches blocks of it on several threads (one per
    // core unless the constructor says otherwise), each with 896 KiB of match
    // tables, keeps two bytes per source word of search results (plus a copy
    // of an odd source with its padding trailer) and writes into a target
    // sized for the longest possible stream, then cut back; the threads end
    // before the call returns. Smaller sources go the fixed-memory way.
    // Decompressing works inside the target, which starts at four times the
    // source, doubles as needed and is cut back; it needs no other memory.
    kFastest,
    // The calling thread alone, with the format's fixed memory: 1.8 MB of
    // match tables (kept for the next call), a 16 KiB ring and a 1 KiB
    // staging buffer to compress; a 16 KiB ring and a 1 KiB staging buffer to
    // decompress.
    kFixedMemory,
  };

  OCompress();
  // `threads` bounds the threads that kFastest compresses on; 0 means one per
  // core. A caller that already runs one compression per core passes 1.
  explicit OCompress(Method method, int threads = 0);
  // Memberwise: the work buffers are owned only during a call, so a copy made
  // between calls owns nothing.
  OCompress(const OCompress&) = default;
  OCompress& operator=(const OCompress&) = default;
  virtual ~OCompress();

  // Replaces `target` with the compressed form of `source`, which stays
  // untouched: the padding trailer of an odd length is read after its bytes
  // rather than appended to them. Returns 1; an empty source returns 0 and
  // leaves `target` empty. Throws std::bad_alloc when memory runs out.
  int iCompress_LZ77_Fast(Bytes& source, Bytes& target);

  // Replaces `target` with the data that `source` decodes to, without the
  // padding trailer. Damaged streams decode to some data, never outside the
  // buffers. Returns 1; an empty source returns 0 and leaves `target` empty.
  // Throws std::bad_alloc when memory runs out.
  int iDeCompress_LZ77_Fast(Bytes& source, Bytes& target);

 private:
  // The fastest method's coders; the tokens are those of lz77() and un77().
  // Both write the whole of `target`.
  void CompressInBlocks(Bytes& target, int threads);
  void DecompressDirect(Bytes& target);

  static constexpr int kMinLength = 2;
  static constexpr int kMaxLength = 15;
  static constexpr int kLengths = kMaxLength - kMinLength + 1;

  // Encoder.
  static std::uint16_t HASH_W(std::uint16_t h, std::uint16_t word);
  std::uint16_t HASH_STRING(std::int32_t pos, int len) const;
  std::uint16_t WordAt(std::int32_t pos) const;
  void calc_hash_inpos();
  void calc_hash_backward(int n);
  bool verify_hash(std::int32_t candidate, int length);
  void adjust_window(int n);
  int match(int& distance, int& length);
  bool InWindow(std::int32_t entry) const;
  void lz77();
  void LoadWindow(int bytes);
  void OUT_BIT(unsigned bit);
  void OUT_BITS(std::uint32_t value, int count);
  void write_output_byte(std::uint8_t b);
  void OUT_LAST_CODE();

  // Collection access.
  int iRead(std::uint8_t* buf, int n);
  int iWrite(const std::uint8_t* buf, int n);

  // Decoder.
  void un77();
  void read_input_buffer();
  void read_next_byte();
  void FillBitBuffer();
  unsigned IN_BIT();
  std::uint32_t IN_BITS(int count);
  void OUT_WORD(std::uint16_t word);
  void OUT_STRING(int distance, int length);
  void write_output(std::int32_t from, std::int32_t count);

  void BeginOutput(Bytes& target, int initial_size);
  void EndOutput();

  // Encoder state. Word indices are absolute; a ring holds word i, in
  // little-endian byte order, at i mod its size.
  std::uint16_t* m_pWindow = nullptr;
  std::int32_t m_iPosition = 0;
  std::int32_t m_iWindowStart = 0;
  std::int32_t m_iLoadedWords = 0;
  std::uint8_t* m_pOutStagingStart = nullptr;
  std::uint8_t* m_pOutStagingCursor = nullptr;
  std::uint8_t m_uiBitMask = 1;
  std::uint8_t m_uiPendingByte = 0;
  // Entries hold a string's start plus m_iTableBase, so that tables reused
  // from an earlier call read as "never seen" without being cleared.
  std::int32_t* m_pMatchTables[kLengths] = {};
  std::int32_t m_iTableBase = 0;
  // The tables are worked a batch of positions ahead: per length, the
  // candidate found at each position of the batch, and the hashes of the
  // strings that start just before it. The batch ends before m_iBatchEnd.
  std::int32_t* m_pCandidates = nullptr;
  std::uint16_t* m_pRecentHashes = nullptr;
  std::int32_t m_iBatchEnd = 0;
  std::int32_t m_iRejectedCandidates = 0;
  std::int32_t m_iVerifiedCandidates = 0;

  // Decoder state.
  std::int32_t m_iOutputWords = 0;
  std::uint8_t* m_pInStagingStart = nullptr;
  std::uint8_t* m_pInStagingCursor = nullptr;
  std::int32_t m_iUnreadInputBytes = 0;
  std::uint16_t* m_pOutputRing = nullptr;
  // Compressed bits taken from the staging buffer but not yet read, the
  // next in bit 0.
  std::uint64_t m_ullBitBuffer = 0;
  int m_iBufferedBits = 0;

  // The collections of the running call. The input count includes the
  // padding trailer, if any.
  const std::uint8_t* m_pInputData = nullptr;
  std::int32_t m_iInputCount = 0;
  std::int32_t m_iInputPadding = 0;
  std::int32_t m_iInputReadPosition = 0;
  std::uint8_t* m_pOutputData = nullptr;
  std::int32_t m_iOutputSize = 0;
  std::int32_t m_iOutputWritePosition = 0;
  Bytes* m_pOutputCollection = nullptr;

  Method m_eMethod = Method::kFastest;
  int m_iThreads = 0;
};

#endif  // NKFOUNDATION_SERVICES_COMPRESS_H_
