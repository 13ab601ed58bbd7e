#include "nkfoundation/core/text.h"

#include <iterator>

#include <utf8.h>

namespace nk {
namespace {

constexpr char16_t kReplacement = u'\uFFFD';

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// The converter insists on well-formed UTF-16; damaged text is mended first.
std::u16string ReplaceUnpairedSurrogates(std::u16string_view text) {
  std::u16string mended(text);
  for (std::size_t i = 0; i < mended.size(); ++i) {
    if (IsHighSurrogate(mended[i]) && i + 1 < mended.size() && IsLowSurrogate(mended[i + 1])) {
      ++i;
    } else if (IsHighSurrogate(mended[i]) || IsLowSurrogate(mended[i])) {
      mended[i] = kReplacement;
    }
  }
  return mended;
}

}  // namespace

std::string ToUtf8(std::u16string_view text) {
  const std::u16string mended = ReplaceUnpairedSurrogates(text);
  std::string result;
  utf8::utf16to8(mended.begin(), mended.end(), std::back_inserter(result));
  return result;
}

std::u16string ToUtf16(std::string_view text) {
  std::string valid;
  utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid));
  std::u16string result;
  utf8::utf8to16(valid.begin(), valid.end(), std::back_inserter(result));
  return result;
}

}  // namespace nk
