// Binary PGM and PPM: "P5" (grey) or "P6" (colour), then width, height and
// the maximum value as decimal text separated by white space (comments from
// '#' to the end of a line), one white-space byte, and the rows top-down.
#include <algorithm>
#include <string>

#include "nkfoundation/image/picture_codecs.h"

namespace nk {
namespace {

class HeaderReader {
 public:
  HeaderReader(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  // A decimal number after white space and comments; false without digits
  // or beyond `limit`.
  bool Number(std::uint32_t limit, std::uint32_t& value) {
    SkipSpaceAndComments();
    if (at_ >= size_ || data_[at_] < '0' || data_[at_] > '9') return false;
    std::uint64_t number = 0;
    while (at_ < size_ && data_[at_] >= '0' && data_[at_] <= '9') {
      number = number * 10 + (data_[at_++] - '0');
      if (number > limit) return false;
    }
    value = static_cast<std::uint32_t>(number);
    return true;
  }

  // The single white-space byte that ends the header.
  bool EndOfHeader() {
    if (at_ >= size_ || !IsSpace(data_[at_])) return false;
    ++at_;
    return true;
  }

  std::size_t Position() const { return at_; }
  void Skip(std::size_t n) { at_ += n; }

 private:
  static bool IsSpace(std::uint8_t c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f'; }

  void SkipSpaceAndComments() {
    while (at_ < size_) {
      if (data_[at_] == '#') {
        while (at_ < size_ && data_[at_] != '\n') ++at_;
      } else if (IsSpace(data_[at_])) {
        ++at_;
      } else {
        return;
      }
    }
  }

  const std::uint8_t* data_;
  std::size_t size_;
  std::size_t at_ = 0;
};

}  // namespace

PictureStatus DecodePnm(const std::uint8_t* data, std::size_t size, Picture& picture) {
  if (size < 2 || data[0] != 'P' || (data[1] != '5' && data[1] != '6')) return PictureStatus::kDamaged;
  const int channels = data[1] == '5' ? 1 : 3;
  HeaderReader header(data, size);
  header.Skip(2);
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  std::uint32_t max_value = 0;
  if (!header.Number(0x7FFFFFFF, width) || !header.Number(0x7FFFFFFF, height) ||
      !header.Number(65535, max_value) || max_value == 0 || !header.EndOfHeader()) {
    return PictureStatus::kDamaged;
  }
  if (max_value > 255) return PictureStatus::kUnsupported;
  if (!PictureSizeFits(width, height, channels, size, 1)) return PictureStatus::kTooLarge;
  const std::size_t count = static_cast<std::size_t>(width) * height * channels;
  if (size - header.Position() < count) return PictureStatus::kDamaged;

  const std::uint8_t* in = data + header.Position();
  Picture read{static_cast<int>(width), static_cast<int>(height), channels, {in, in + count}};
  if (max_value != 255) {
    for (std::uint8_t& value : read.pixels) {
      value = static_cast<std::uint8_t>(std::min<std::uint32_t>(value, max_value) * 255 / max_value);
    }
  }
  picture = std::move(read);
  return PictureStatus::kOk;
}

PictureStatus EncodePnm(const Picture& picture, std::vector<std::uint8_t>& bytes) {
  if (!picture.IsValid()) return PictureStatus::kInvalid;
  const std::string header = std::string(picture.channels == 1 ? "P5\n" : "P6\n") +
                             std::to_string(picture.width) + " " + std::to_string(picture.height) +
                             "\n255\n";
  bytes.assign(header.begin(), header.end());
  bytes.insert(bytes.end(), picture.pixels.begin(), picture.pixels.end());
  return PictureStatus::kOk;
}

}  // namespace nk
