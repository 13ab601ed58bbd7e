#include "nkfoundation/services/compress.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/support/bytes.h"
#include "tests/support/lz77_reference.h"
#include "tests/support/sensor_images.h"

namespace {

using nk::testing::Bytes;
using nk::testing::Hex;

using Method = OCompress::Method;

// Runs a coder on `bytes`; the source must come back unchanged.
Bytes RunCoder(int (OCompress::*coder)(OCompress::Bytes&, OCompress::Bytes&), Method method, const Bytes& bytes,
          int threads = 0) {
  OCompress::Bytes source;
  source.Copy(bytes.data(), static_cast<int>(bytes.size()));
  OCompress::Bytes target;
  EXPECT_EQ((OCompress(method, threads).*coder)(source, target), bytes.empty() ? 0 : 1);
  EXPECT_EQ(Bytes(source.begin(), source.end()), bytes);
  return {target.begin(), target.end()};
}

// Random bytes below `limit`; a small limit gives many short matches, hash
// collisions and candidates that fail verification.
Bytes RandomBytes(std::size_t size, unsigned seed, unsigned limit = 256) {
  std::mt19937 random(seed);
  Bytes bytes(size);
  for (auto& b : bytes) b = static_cast<std::uint8_t>(random() % limit);
  return bytes;
}
Bytes FewWords(std::size_t size, unsigned seed) { return RandomBytes(size, seed, 3); }

// Random words that repeat every `period` words, one byte in 997 changed so
// that matches end and begin all along.
Bytes Repeating(std::size_t size, std::size_t period, unsigned seed) {
  Bytes bytes = RandomBytes(size, seed);
  for (std::size_t i = 2 * period; i < size; ++i) {
    if (i % 997 != 0) bytes[i] = bytes[i - 2 * period];
  }
  return bytes;
}

// Every test runs once per method: each must write and read the same bytes.
class CompressTest : public ::testing::TestWithParam<Method> {
 protected:
  Bytes Compress(const Bytes& bytes) { return RunCoder(&OCompress::iCompress_LZ77_Fast, GetParam(), bytes, threads_); }
  Bytes Decompress(const Bytes& bytes) { return RunCoder(&OCompress::iDeCompress_LZ77_Fast, GetParam(), bytes); }
  void ExpectExact(const Bytes& data, const std::string& what);

  int threads_ = 0;
};

// Compares the coder with the reference and checks the round trip (a single
// byte keeps its trailer).
void CompressTest::ExpectExact(const Bytes& data, const std::string& what) {
  const Bytes compressed = Compress(data);
  ASSERT_EQ(compressed, nk::testing::ReferenceCompress(data)) << what << ", " << data.size() << " bytes";
  const Bytes restored = Decompress(compressed);
  ASSERT_EQ(Bytes(restored.begin(), restored.begin() + static_cast<std::ptrdiff_t>(data.size())), data)
      << what << ", " << data.size() << " bytes";
  ASSERT_EQ(restored.size(), data.size() == 1 ? 8u : data.size());
}

TEST_P(CompressTest, TokensArePacked17BitsLsbFirstWithThePendingByteAlways) {
  // One literal: flag 1, then 0x2211 from bit 1; the 17th bit opens byte 2.
  EXPECT_EQ(Compress(Hex("1122")), Hex("23 44 00"));
  // Eight literals end exactly on a byte boundary: a 0x00 byte still follows.
  Bytes eight_words;
  for (std::uint8_t i = 0; i < 16; ++i) eight_words.push_back(static_cast<std::uint8_t>(0x10 + i));
  const Bytes compressed = Compress(eight_words);
  ASSERT_EQ(compressed.size(), 18u);
  EXPECT_EQ(compressed.back(), 0x00);
  EXPECT_EQ(Decompress(compressed), eight_words);
}

TEST_P(CompressTest, PaddingTrailerAndItsConsequences) {
  // Odd sources travel with the trailer, which the decoder strips from 9 bytes on.
  EXPECT_EQ(Decompress(Compress(Hex("42"))), Hex("42 00FAEBDCCDBEAF"));
  const Bytes nine = Hex("010203040506070809");
  EXPECT_EQ(Decompress(Compress(nine)), nine);
  // An even source that happens to end in the trailer loses it.
  EXPECT_EQ(Decompress(Compress(Hex("0102030405 00FAEBDCCDBEAF"))).size(), 5u);
  // ...but not below 9 bytes.
  EXPECT_EQ(Decompress(Compress(Hex("99 00FAEBDCCDBEAF"))), Hex("99 00FAEBDCCDBEAF"));
}

TEST_P(CompressTest, EmptySourceReturnsZeroAndAnEmptyTarget) {
  for (auto coder : {&OCompress::iCompress_LZ77_Fast, &OCompress::iDeCompress_LZ77_Fast}) {
    OCompress::Bytes empty;
    OCompress::Bytes target;
    target.Add(1);
    EXPECT_EQ((OCompress(GetParam()).*coder)(empty, target), 0);
    EXPECT_EQ(target.GetCount(), 0);
  }
}

TEST_P(CompressTest, EverySmallSize) {
  for (std::size_t size = 1; size <= 400; ++size) {
    ExpectExact(RandomBytes(size, static_cast<unsigned>(size)), "random");
    ExpectExact(FewWords(size, static_cast<unsigned>(size)), "few words");
  }
}

TEST_P(CompressTest, RingReloadsRunsAndRepeats) {
  // The first block fills the ring with 16384 bytes; later blocks of 4096
  // bytes arrive when fewer than 2048 words lie ahead.
  for (std::size_t size : {16382, 16383, 16384, 16385, 16386, 20478, 20480, 20481, 24576, 24577, 65536, 65537}) {
    ExpectExact(FewWords(size, 3), "few words");
    ExpectExact(RandomBytes(size, 4), "random");
  }
  ExpectExact(Bytes(100000, 0), "zeros");
  // A period just inside and just outside the 4095-word window.
  for (std::size_t period : {8188, 8190, 8192}) {
    const Bytes block = RandomBytes(period, 9);
    Bytes repeated;
    for (int i = 0; i < 4; ++i) repeated.insert(repeated.end(), block.begin(), block.end());
    ExpectExact(repeated, "period " + std::to_string(period));
  }
}

// From 64 KiB on, the fastest method searches blocks on several threads, each
// with tables warmed on the 4095 words before it, and searches only where the
// walk can start a token. The size and the thread count place the
// boundaries: matches must cross them, reach the window's edge from just after
// them and start within the warm-up exactly as without blocks.
TEST_P(CompressTest, BlockBoundariesAndTheWindowEdge) {
  const std::vector<int> thread_counts =
      GetParam() == Method::kFastest ? std::vector<int>{1, 2, 3, 16} : std::vector<int>{0};
  for (int threads : thread_counts) {
    threads_ = threads;
    for (std::size_t size : {65535, 65536, 65664, 147457}) {
      const std::string where = std::to_string(threads) + " threads, ";
      ExpectExact(FewWords(size, 11), where + "few words");
      ExpectExact(Repeating(size, 4095, 12), where + "period 4095");
      ExpectExact(Repeating(size, 4096, 13), where + "period 4096");
    }
  }
}

TEST_P(CompressTest, PhotographsAndSensorImages) {
  auto images = nk::testing::CorpusImages(NKF_CORPUS_DIR);
  EXPECT_FALSE(images.empty()) << "no photographs in " << NKF_CORPUS_DIR;
  for (auto& image : nk::testing::SensorImages()) images.push_back(std::move(image));
  for (const auto& image : images) ExpectExact(image.bytes, image.name);
}

TEST_P(CompressTest, DamagedStreamsDecodeLikeTheRingWithoutLeavingTheBuffers) {
  // A distance before the first word reads zeros; distance 0 reads 8192 back;
  // length 0 produces nothing; bits past the end read as zeros.
  const Bytes before_start = Hex("00 FE 03 00");  // distance 3840, length 15, then a literal 0
  EXPECT_EQ(Decompress(before_start), Bytes(32, 0));
  for (std::size_t size : {1, 2, 3, 17, 18, 1023, 1024, 1025, 5000, 70000}) {
    for (unsigned seed = 0; seed < 3; ++seed) {
      const Bytes noise = RandomBytes(size, seed + 100);
      ASSERT_EQ(Decompress(noise), nk::testing::ReferenceDecompress(noise)) << size << " bytes";
    }
  }
  // Fifteen words per 17 bits, far beyond the four times the source that the
  // target starts at.
  nk::testing::ReferenceBits runs;
  runs.Put(0x4243u << 1 | 1u, 17);
  for (int i = 0; i < 3000; ++i) runs.Put(15u << 13 | 1u << 1, 17);
  ASSERT_EQ(Decompress(runs.bytes), nk::testing::ReferenceDecompress(runs.bytes));
  // Every truncation of a real stream.
  const Bytes stream = Compress(FewWords(3000, 5));
  for (std::size_t cut = 0; cut < stream.size(); cut += 7) {
    const Bytes head(stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(cut));
    ASSERT_EQ(Decompress(head), nk::testing::ReferenceDecompress(head)) << "cut at " << cut;
  }
}

// The bit state of one call carries into the next on the same object (the
// stream then begins inside the pending byte); every method carries it alike.
TEST(CompressMethodsTest, CarryTheBitStateIntoTheNextCallAlike) {
  const Bytes data = FewWords(70001, 21);
  std::vector<Bytes> seconds;
  for (Method method : {Method::kFastest, Method::kFixedMemory}) {
    OCompress compressor(method);
    OCompress::Bytes source;
    source.Copy(data.data(), static_cast<int>(data.size()));
    OCompress::Bytes first;
    OCompress::Bytes second;
    compressor.iCompress_LZ77_Fast(source, first);
    compressor.iCompress_LZ77_Fast(source, second);
    seconds.emplace_back(second.begin(), second.end());
  }
  EXPECT_EQ(seconds[0], seconds[1]);
  EXPECT_NE(seconds[0], nk::testing::ReferenceCompress(data));
}

INSTANTIATE_TEST_SUITE_P(Methods, CompressTest, ::testing::Values(Method::kFastest, Method::kFixedMemory),
                         [](const ::testing::TestParamInfo<Method>& info) {
                           return info.param == Method::kFastest ? "Fastest" : "FixedMemory";
                         });

}  // namespace
