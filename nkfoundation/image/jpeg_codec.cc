// JPEG through libjpeg-turbo. The library reports errors through a callback
// that must not return; ours jumps back to the codec function, which then
// destroys the codec object and answers kDamaged. No C++ object with a
// destructor is created between the setjmp and a jump.
#include <climits>
#include <csetjmp>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <jpeglib.h>

#include "nkfoundation/image/picture_codecs.h"

namespace nk {
namespace {

// The most pixel bytes a decoder makes from one byte of file: an all-flat
// picture of empty blocks costs about two bits per 8 x 8 block and channel.
constexpr std::uint64_t kMaxExpansion = 1024;
// Progressive files may hold any number of scans, each a pass over all
// coefficients; real encoders write about a dozen.
constexpr int kMaxScans = 256;

struct ErrorManager {
  jpeg_error_mgr base;
  std::jmp_buf jump;
};

[[noreturn]] void JumpOnError(j_common_ptr codec) {
  std::longjmp(reinterpret_cast<ErrorManager*>(codec->err)->jump, 1);
}

// Warnings (corrupt but decodable data) are not worth a message.
void IgnoreMessage(j_common_ptr, int) {}
void IgnoreOutput(j_common_ptr) {}

void InstallErrorManager(ErrorManager& errors) {
  jpeg_std_error(&errors.base);
  errors.base.error_exit = JumpOnError;
  errors.base.emit_message = IgnoreMessage;
  errors.base.output_message = IgnoreOutput;
}

void StopEndlessScans(j_common_ptr codec) {
  if (codec->is_decompressor &&
      reinterpret_cast<j_decompress_ptr>(codec)->input_scan_number > kMaxScans) {
    JumpOnError(codec);
  }
}

// The jumping halves: everything they change that outlives a jump lives in
// the caller's frame and is reached through a reference.
PictureStatus DecodeInto(const std::uint8_t* data, std::size_t size, Picture& read) {
  jpeg_decompress_struct codec;
  ErrorManager errors;
  jpeg_progress_mgr progress;
  codec.err = &errors.base;
  InstallErrorManager(errors);
  if (setjmp(errors.jump)) {
    jpeg_destroy_decompress(&codec);
    return PictureStatus::kDamaged;
  }
  jpeg_create_decompress(&codec);
  progress.progress_monitor = StopEndlessScans;
  codec.progress = &progress;
  jpeg_mem_src(&codec, data, static_cast<unsigned long>(size));
  jpeg_read_header(&codec, TRUE);
  read.channels = codec.num_components == 1 ? 1 : 3;
  if (!PictureSizeFits(codec.image_width, codec.image_height, read.channels, size, kMaxExpansion)) {
    jpeg_destroy_decompress(&codec);
    return PictureStatus::kTooLarge;
  }
  codec.out_color_space = read.channels == 1 ? JCS_GRAYSCALE : JCS_RGB;
  // Progressive files keep every coefficient (two bytes each) in memory.
  const std::uint64_t working = 8ull * codec.image_width * codec.image_height + (1u << 20);
  codec.mem->max_memory_to_use = static_cast<long>(std::min<std::uint64_t>(working, LONG_MAX));
  jpeg_start_decompress(&codec);
  read.width = static_cast<int>(codec.output_width);
  read.height = static_cast<int>(codec.output_height);
  const std::size_t row_bytes = static_cast<std::size_t>(read.width) * read.channels;
  read.pixels.resize(row_bytes * static_cast<std::size_t>(read.height));
  while (codec.output_scanline < codec.output_height) {
    JSAMPROW row = read.pixels.data() + row_bytes * codec.output_scanline;
    jpeg_read_scanlines(&codec, &row, 1);
  }
  jpeg_finish_decompress(&codec);
  jpeg_destroy_decompress(&codec);
  return PictureStatus::kOk;
}

struct MemoryDestination {
  unsigned char* buffer = nullptr;
  unsigned long length = 0;
};

PictureStatus EncodeInto(const Picture& picture, int quality, MemoryDestination& out) {
  jpeg_compress_struct codec;
  ErrorManager errors;
  codec.err = &errors.base;
  InstallErrorManager(errors);
  if (setjmp(errors.jump)) {
    jpeg_destroy_compress(&codec);
    return PictureStatus::kTooLarge;
  }
  jpeg_create_compress(&codec);
  jpeg_mem_dest(&codec, &out.buffer, &out.length);
  codec.image_width = static_cast<JDIMENSION>(picture.width);
  codec.image_height = static_cast<JDIMENSION>(picture.height);
  codec.input_components = picture.channels;
  codec.in_color_space = picture.channels == 1 ? JCS_GRAYSCALE : JCS_RGB;
  jpeg_set_defaults(&codec);
  jpeg_set_quality(&codec, std::clamp(quality, 1, 100), TRUE);
  jpeg_start_compress(&codec, TRUE);
  const std::size_t row_bytes = static_cast<std::size_t>(picture.width) * picture.channels;
  while (codec.next_scanline < codec.image_height) {
    // libjpeg's row pointers are not const, but compression only reads them.
    JSAMPROW row = const_cast<std::uint8_t*>(picture.pixels.data()) + row_bytes * codec.next_scanline;
    jpeg_write_scanlines(&codec, &row, 1);
  }
  jpeg_finish_compress(&codec);
  jpeg_destroy_compress(&codec);
  return PictureStatus::kOk;
}

}  // namespace

bool IsJpegPngAvailable() { return true; }

PictureStatus DecodeJpeg(const std::uint8_t* data, std::size_t size, Picture& picture) {
  if (size == 0 || size > kMaxPictureBytes) return PictureStatus::kDamaged;
  Picture read;
  const PictureStatus status = DecodeInto(data, size, read);
  if (status == PictureStatus::kOk) picture = std::move(read);
  return status;
}

PictureStatus EncodeJpeg(const Picture& picture, int quality, std::vector<std::uint8_t>& bytes) {
  if (!picture.IsValid()) return PictureStatus::kInvalid;
  MemoryDestination out;
  const PictureStatus status = EncodeInto(picture, quality, out);
  if (status == PictureStatus::kOk) bytes.assign(out.buffer, out.buffer + out.length);
  std::free(out.buffer);
  return status;
}

}  // namespace nk
