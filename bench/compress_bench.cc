// The image coder beside zlib level 1, zstd level 1, LZ4's default and a plain
// memcpy, all on the same images in the same run. Every figure counts raw
// (uncompressed) bytes per second of wall-clock time, since the image coder
// may work on several threads; "ratio" is compressed size over raw size.
// "OCompress" is the coder's default method, "OCompress-1thread" the same
// held to one thread, "OCompress-fixed" the single-threaded fixed-memory one. The peers are linked here only, to
// measure against.
#include <benchmark/benchmark.h>
#include <lz4.h>
#include <zlib.h>
#include <zstd.h>

#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "nkfoundation/services/compress.h"
#include "tests/support/sensor_images.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

// A codec: compresses into `packed` and restores into `restored`, which is
// already sized to the raw length. A variant that decompresses as another
// row does has no decompress of its own.
struct Codec {
  const char* name;
  void (*compress)(const Bytes& raw, Bytes& packed);
  void (*decompress)(const Bytes& packed, Bytes& restored);
};

// The image coder works on byte collections; the data waits in one before the
// clock starts, as it does in an image, and the result is read out of one.
OCompress::Bytes& CollectionOf(const Bytes& bytes) {
  thread_local std::map<const std::uint8_t*, OCompress::Bytes> collections;
  OCompress::Bytes& collection = collections[bytes.data()];
  if (collection.GetCount() != static_cast<int>(bytes.size())) {
    collection.Copy(bytes.data(), static_cast<int>(bytes.size()));
  }
  return collection;
}

template <OCompress::Method method, int threads = 0>
void CompressOCompress(const Bytes& raw, Bytes& packed) {
  OCompress::Bytes target;
  OCompress(method, threads).iCompress_LZ77_Fast(CollectionOf(raw), target);
  packed.assign(target.GetData(), target.GetData() + target.GetCount());
}

template <OCompress::Method method>
void DecompressOCompress(const Bytes& packed, Bytes& restored) {
  OCompress::Bytes target;
  OCompress(method).iDeCompress_LZ77_Fast(CollectionOf(packed), target);
  // The figure runs from the source collection to the finished target
  // collection, as a caller sees it: its bytes are handed over, not copied.
  static_cast<Bytes&>(target).swap(restored);
}

void CompressZlib(const Bytes& raw, Bytes& packed) {
  uLongf size = compressBound(raw.size());
  packed.resize(size);
  compress2(packed.data(), &size, raw.data(), raw.size(), 1);
  packed.resize(size);
}

void DecompressZlib(const Bytes& packed, Bytes& restored) {
  uLongf size = restored.size();
  uncompress(restored.data(), &size, packed.data(), packed.size());
}

void CompressZstd(const Bytes& raw, Bytes& packed) {
  packed.resize(ZSTD_compressBound(raw.size()));
  packed.resize(ZSTD_compress(packed.data(), packed.size(), raw.data(), raw.size(), 1));
}

void DecompressZstd(const Bytes& packed, Bytes& restored) {
  ZSTD_decompress(restored.data(), restored.size(), packed.data(), packed.size());
}

void CompressLz4(const Bytes& raw, Bytes& packed) {
  packed.resize(static_cast<std::size_t>(LZ4_compressBound(static_cast<int>(raw.size()))));
  packed.resize(static_cast<std::size_t>(
      LZ4_compress_default(reinterpret_cast<const char*>(raw.data()), reinterpret_cast<char*>(packed.data()),
                           static_cast<int>(raw.size()), static_cast<int>(packed.size()))));
}

void DecompressLz4(const Bytes& packed, Bytes& restored) {
  LZ4_decompress_safe(reinterpret_cast<const char*>(packed.data()), reinterpret_cast<char*>(restored.data()),
                      static_cast<int>(packed.size()), static_cast<int>(restored.size()));
}

void CopyMemcpy(const Bytes& from, Bytes& to) {
  to.resize(from.size());
  std::memcpy(to.data(), from.data(), from.size());
}

const Codec kCodecs[] = {
    {"OCompress", CompressOCompress<OCompress::Method::kFastest>, DecompressOCompress<OCompress::Method::kFastest>},
    {"OCompress-1thread", CompressOCompress<OCompress::Method::kFastest, 1>, nullptr},
    {"OCompress-fixed", CompressOCompress<OCompress::Method::kFixedMemory>,
     DecompressOCompress<OCompress::Method::kFixedMemory>},
    {"zlib-1", CompressZlib, DecompressZlib},
    {"zstd-1", CompressZstd, DecompressZstd},
    {"lz4", CompressLz4, DecompressLz4},
    {"memcpy", CopyMemcpy, CopyMemcpy},
};

struct DataSet {
  std::string name;
  std::vector<Bytes> images;
};

std::vector<DataSet> DataSets() {
  DataSet photographs{"photographs", {}};
  for (auto& image : nk::testing::CorpusImages(NKF_CORPUS_DIR)) photographs.images.push_back(image.bytes);
  DataSet sensor{"sensor", {}};
  for (auto& image : nk::testing::SensorImages()) sensor.images.push_back(image.bytes);
  // One small image: the fixed cost of a call.
  DataSet small{"2KiB", {Bytes(sensor.images.front().begin(), sensor.images.front().begin() + 2048)}};
  return {photographs, sensor, small};
}

std::int64_t RawBytes(const DataSet& set) {
  std::int64_t bytes = 0;
  for (const Bytes& image : set.images) bytes += static_cast<std::int64_t>(image.size());
  return bytes;
}

void Compress(benchmark::State& state, const Codec& codec, const DataSet& set) {
  Bytes packed;
  std::int64_t packed_bytes = 0;
  for (auto _ : state) {
    packed_bytes = 0;
    for (const Bytes& image : set.images) {
      codec.compress(image, packed);
      packed_bytes += static_cast<std::int64_t>(packed.size());
      benchmark::DoNotOptimize(packed.data());
    }
  }
  state.SetBytesProcessed(state.iterations() * RawBytes(set));
  state.counters["ratio"] = static_cast<double>(packed_bytes) / static_cast<double>(RawBytes(set));
}

void Decompress(benchmark::State& state, const Codec& codec, const DataSet& set) {
  std::vector<Bytes> packed(set.images.size());
  std::vector<Bytes> restored(set.images.size());
  for (std::size_t i = 0; i < set.images.size(); ++i) {
    codec.compress(set.images[i], packed[i]);
    restored[i].resize(set.images[i].size());
  }
  for (auto _ : state) {
    for (std::size_t i = 0; i < packed.size(); ++i) {
      codec.decompress(packed[i], restored[i]);
      benchmark::DoNotOptimize(restored[i].data());
    }
  }
  for (std::size_t i = 0; i < packed.size(); ++i) {
    if (restored[i] != set.images[i]) state.SkipWithError("the round trip changed the data");
  }
  state.SetBytesProcessed(state.iterations() * RawBytes(set));
}

const bool kRegistered = [] {
  for (const DataSet& set : DataSets()) {
    if (set.images.empty()) continue;
    for (const Codec& codec : kCodecs) {
      benchmark::RegisterBenchmark(("compress/" + set.name + "/" + codec.name).c_str(), Compress, codec, set)
          ->UseRealTime();
      if (codec.decompress == nullptr) continue;
      benchmark::RegisterBenchmark(("decompress/" + set.name + "/" + codec.name).c_str(), Decompress, codec, set)
          ->UseRealTime();
    }
  }
  return true;
}();

}  // namespace
