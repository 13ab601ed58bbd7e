#include "nkfoundation/core/variant.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "nkfoundation/core/culture.h"
#include "nkfoundation/core/date_types.h"

namespace {

// --- The type table ----------------------------------------------------------

// How a type stores a value that is set.
enum class Storage {
  kRounded,    // rounded to an integer and range-checked
  kSingle,     // converted to single precision
  kUnchanged,  // as given
};

// How a type shows its value, and so how its text is read back.
enum class TextForm {
  kInteger,   // "%d" of the truncated value
  kUnsigned,  // "%d" of the value as unsigned 32-bit: above 2^31 - 1 it prints negative
  kDecimal,   // value / scale with `digits` decimals, as "%.*lf"
  kDate,      // YYYYMMDD in the culture's date format
  kTime,      // HHMMSS in the culture's time format
  kBits,      // `digits` binary digits in groups of four
  kHex,       // "0x" and at least `digits` lowercase hex digits
  kNone,      // never shown
};

struct TypeRule {
  int size;
  Storage storage;
  double min;  // range of kRounded; halves round away from zero when min < 0
  double max;
  TextForm text;
  int digits;
  double scale;
  bool magnitude;  // the text shows the absolute value
};

constexpr double kU8 = 255.0;
constexpr double kU16 = 65535.0;
constexpr double kU32 = 4294967295.0;
constexpr double kI16Min = -32768.0;
constexpr double kI16Max = 32767.0;
constexpr double kI32Min = -2147483648.0;
constexpr double kI32Max = 2147483647.0;

using enum Storage;
using enum TextForm;

// Indexed by the type code.
constexpr TypeRule kRules[] = {
    {1, kRounded, 0, kU8, kInteger, 0, 1, true},               // 0
    {2, kRounded, kI16Min, kI16Max, kInteger, 0, 1, false},    // 1
    {2, kRounded, 0, kU16, kUnsigned, 0, 1, false},            // 2
    {2, kRounded, kI16Min, kI16Max, kDecimal, 1, 10, false},   // 3
    {2, kRounded, 0, kU16, kDecimal, 1, 10, true},             // 4
    {2, kRounded, kI16Min, kI16Max, kDecimal, 2, 100, false},  // 5
    {2, kRounded, 0, kU16, kDecimal, 2, 100, true},            // 6
    {4, kRounded, kI32Min, kI32Max, kInteger, 0, 1, false},    // 7
    {4, kRounded, 0, kU32, kUnsigned, 0, 1, false},            // 8
    {4, kSingle, 0, 0, kDecimal, 6, 1, false},                 // 9
    {4, kUnchanged, 0, 0, kDate, 0, 1, false},                 // 10
    {4, kUnchanged, 0, 0, kTime, 0, 1, false},                 // 11
    {1, kRounded, 0, kU8, kBits, 8, 1, false},                 // 12
    {2, kRounded, 0, kU16, kBits, 16, 1, false},               // 13
    {4, kRounded, 0, kU32, kBits, 32, 1, false},               // 14
    {1, kRounded, 0, kU8, kHex, 2, 1, false},                  // 15
    {2, kRounded, 0, kU16, kHex, 4, 1, false},                 // 16
    {4, kRounded, 0, kU32, kHex, 8, 1, false},                 // 17
    {8, kUnchanged, 0, 0, kDecimal, 6, 1, false},              // 18
    {4, kRounded, 0, kU32, kNone, 0, 1, false},                // 19
};

const TypeRule* RuleOf(int type) {
  return type >= 0 && type < static_cast<int>(std::size(kRules)) ? &kRules[type] : nullptr;
}

// The stored value of `value` under `rule`, or nothing when out of range.
std::optional<double> StoredValue(double value, const TypeRule& rule) {
  switch (rule.storage) {
    case kSingle:
      return static_cast<double>(static_cast<float>(value));
    case kUnchanged:
      return value;
    case kRounded:
      break;
  }
  // Signed types round halves away from zero. The sign bit decides, so that
  // a negative zero (the rounding of -0.3) stays negative and "-0.0" reads
  // back as it was shown.
  const double rounded =
      rule.min < 0 && std::signbit(value) ? std::ceil(value - 0.5) : std::floor(value + 0.5);
  // Written so that NaN, which lies in no range, is refused.
  if (!(rounded >= rule.min && rounded <= rule.max)) return std::nullopt;
  return rounded;
}

// --- Integer conversions -------------------------------------------------------

// Values outside a type's range reach the text only from a stored frame.
// They convert as on the x86 processors the device software came from: a
// value beyond 32-bit int gives 0x80000000, and the unsigned conversion
// keeps the low 32 bits of the 64-bit truncation.
std::int32_t TruncatedInt32(double value) {
  const double whole = std::trunc(value);
  if (!(whole >= kI32Min && whole <= kI32Max)) return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(whole);
}

std::uint32_t TruncatedUInt32(double value) {
  const double whole = std::trunc(value);
  if (!(whole >= -0x1p63 && whole < 0x1p63)) return 0;
  return static_cast<std::uint32_t>(static_cast<std::int64_t>(whole));
}

// --- Text --------------------------------------------------------------------

std::u16string Widen(std::string_view text) { return {text.begin(), text.end()}; }

// ASCII text without surrounding blanks, or nothing when any character lies
// outside ASCII.
std::optional<std::string> NarrowTrimmed(std::u16string_view text) {
  const auto blank = [](char16_t c) { return c == u' ' || c == u'\t'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  std::string narrow;
  for (char16_t c : text) {
    if (c > 0x7F) return std::nullopt;
    narrow += static_cast<char>(c);
  }
  return narrow;
}

// The whole of `text` as a T; `options` are from_chars's base or format.
template <class T, class... Options>
std::optional<T> ParseAll(std::string_view text, Options... options) {
  T value{};
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value, options...);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return value;
}

std::string DecimalText(double value, int decimals) {
  // Large enough for the longest fixed form of a double.
  char buffer[400];
  const auto result =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals);
  return {buffer, result.ptr};
}

// Most significant first, a group of four per nibble. The gap after group g
// (counted from 1) is one space plus one per factor two in g: 1 2 1 3 1 2 1.
std::string BitText(std::uint32_t value, int digits) {
  std::string text;
  for (int group = 1; group <= digits / 4; ++group) {
    for (int bit = digits - 4 * (group - 1) - 1; bit >= digits - 4 * group; --bit) {
      text += (value >> bit & 1) != 0 ? '1' : '0';
    }
    if (group < digits / 4) text.append(1 + std::countr_zero(static_cast<unsigned>(group)), ' ');
  }
  return text;
}

std::optional<double> ParseBits(std::string_view text) {
  std::uint64_t value = 0;
  int digits = 0;
  for (char c : text) {
    if (c == ' ') continue;
    if ((c != '0' && c != '1') || ++digits > 32) return std::nullopt;
    value = value << 1 | static_cast<std::uint64_t>(c - '0');
  }
  if (digits == 0) return std::nullopt;
  return static_cast<double>(value);
}

std::string HexText(std::uint32_t value, int digits) {
  char buffer[8];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, 16);
  std::string hex(buffer, result.ptr);
  if (hex.size() < static_cast<std::size_t>(digits)) hex.insert(0, digits - hex.size(), '0');
  return "0x" + hex;
}

std::optional<double> ParseHex(std::string_view text) {
  if (text.starts_with("0x") || text.starts_with("0X")) text.remove_prefix(2);
  const auto value = ParseAll<std::uint64_t>(text, 16);
  if (!value) return std::nullopt;
  return static_cast<double>(*value);
}

// --- Dates and times ---------------------------------------------------------

struct DateTimeFormats {
  const char16_t* date;
  const char16_t* time;
};

// Indexed by the culture. Every language shows dates and times alike.
constexpr DateTimeFormats kFormats[] = {
    {u"@@%d.%m.%Y", u"@@%H:%M:%S"},  // key form
    {u"@@%d.%m.%Y", u"@@%H:%M:%S"},  // English
    {u"@@%d.%m.%Y", u"@@%H:%M:%S"},  // German
};

const DateTimeFormats& CurrentFormats() {
  const int culture = culture::GetCurrentCulture();
  return kFormats[culture >= 0 && culture < static_cast<int>(std::size(kFormats))
                      ? culture
                      : culture::kEnglish];
}

// YYYYMMDD or HHMMSS: three fields packed as decimal digits, highest first.
using Packed = std::array<int, 3>;

// The split the device software uses; nothing when a field does not fit an
// int (the date is then rejected like any other impossible one).
std::optional<Packed> Unpack(double value) {
  const double high = std::trunc(std::fabs(value / 10000));
  const double high_and_middle = std::trunc(std::fabs(value / 100));
  const double fields[] = {high, high_and_middle - 100 * high,
                           std::trunc(value) - 100 * high_and_middle};
  Packed packed;
  for (int i = 0; i < 3; ++i) {
    if (!(std::fabs(fields[i]) < 1e9)) return std::nullopt;
    packed[i] = static_cast<int>(fields[i]);
  }
  return packed;
}

// A time of day lies on 1 January 2000.
COleDateTime DateOf(const Packed& f, TextForm form) {
  return form == kDate ? COleDateTime(f[0], f[1], f[2], 0, 0, 0)
                       : COleDateTime(2000, 1, 1, f[0], f[1], f[2]);
}

const char16_t* FormatOf(TextForm form) {
  return form == kDate ? CurrentFormats().date : CurrentFormats().time;
}

std::u16string DateTimeText(double value, TextForm form) {
  const std::optional<Packed> fields = Unpack(value);
  COleDateTime date;
  if (fields) {
    date = DateOf(*fields, form);
  } else {
    date.SetStatus(COleDateTime::invalid);
  }
  return date.Format(FormatOf(form));
}

// The conversions of the date and time formats, in packing order: a date
// packs the first three fields, a time the last three.
constexpr std::u16string_view kConversions = u"YmdHMS";
using ConvertedFields = std::array<int, 6>;

// Reads `text` written with `format`: each conversion of kConversions takes
// one to four digits, %% a percent sign, every other character itself.
bool ReadWithFormat(std::u16string_view text, std::u16string_view format, ConvertedFields* fields) {
  std::size_t at = 0;
  for (std::size_t i = 0; i < format.size(); ++i) {
    const bool conversion = format[i] == u'%' && i + 1 < format.size();
    const std::size_t field = conversion ? kConversions.find(format[i + 1]) : kConversions.npos;
    if (field == kConversions.npos) {
      if (conversion && format[i + 1] == u'%') ++i;
      if (at == text.size() || text[at] != format[i]) return false;
      ++at;
      continue;
    }
    ++i;
    int value = 0;
    int digits = 0;
    for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9' && digits < 4; ++at) {
      value = value * 10 + (text[at] - u'0');
      ++digits;
    }
    if (digits == 0) return false;
    (*fields)[field] = value;
  }
  return at == text.size();
}

std::optional<double> ParseDateTime(std::u16string_view text, TextForm form) {
  const std::u16string_view format = FormatOf(form);
  ConvertedFields fields{2000, 1, 1, 0, 0, 0};
  bool read = ReadWithFormat(text, format, &fields);
  // Typed dates need not carry the key marker the formats begin with.
  if (!read && format.starts_with(u"@@")) read = ReadWithFormat(text, format.substr(2), &fields);
  const int first = form == kDate ? 0 : 3;
  const Packed packed{fields[first], fields[first + 1], fields[first + 2]};
  if (!read || DateOf(packed, form).GetStatus() != COleDateTime::valid) return std::nullopt;
  return packed[0] * 10000.0 + packed[1] * 100.0 + packed[2];
}

// --- Both directions ---------------------------------------------------------

std::u16string TextOf(double value, const TypeRule& rule) {
  switch (rule.text) {
    case kInteger:
      return Widen(std::to_string(TruncatedInt32(rule.magnitude ? std::fabs(value) : value)));
    case kUnsigned:
      return Widen(std::to_string(static_cast<std::int32_t>(TruncatedUInt32(value))));
    case kDecimal: {
      const double shown = value / rule.scale;
      return Widen(DecimalText(rule.magnitude ? std::fabs(shown) : shown, rule.digits));
    }
    case kDate:
    case kTime:
      return DateTimeText(value, rule.text);
    case kBits: {
      const std::uint32_t bits = TruncatedUInt32(value);
      if (rule.digits < 32 && bits >> rule.digits != 0) return {};
      return Widen(BitText(bits, rule.digits));
    }
    case kHex:
      return Widen(HexText(TruncatedUInt32(value), rule.digits));
    case kNone:
      break;
  }
  return {};
}

// The value that `text` shows under `rule`, before the range rules.
std::optional<double> ValueOf(std::u16string_view text, const TypeRule& rule) {
  if (rule.text == kDate || rule.text == kTime) return ParseDateTime(text, rule.text);
  const std::optional<std::string> narrow = NarrowTrimmed(text);
  if (!narrow) return std::nullopt;
  switch (rule.text) {
    case kInteger:
    case kUnsigned: {
      const auto value = ParseAll<std::int64_t>(*narrow);
      if (!value) return std::nullopt;
      // Unsigned values above 2^31 - 1 are shown negative; read them back so.
      const bool wrapped = rule.text == kUnsigned && *value < 0 && *value >= kI32Min;
      return static_cast<double>(*value) + (wrapped ? 0x1p32 : 0.0);
    }
    case kDecimal: {
      const auto value = ParseAll<double>(*narrow);
      return value ? std::optional(*value * rule.scale) : std::nullopt;
    }
    case kBits:
      return ParseBits(*narrow);
    case kHex:
      return ParseHex(*narrow);
    case kDate:
    case kTime:
    case kNone:
      break;
  }
  return std::nullopt;
}

}  // namespace

// --- OType_Variant ---------------------------------------------------------------

void OType_Variant::InitializeMembers(bool /*bInitialize*/) {
  m_iType = 0;
  m_dValue = 0.0;
}

void OType_Variant::CopyTo(OType_Variant* target) const {
  if (target != nullptr) *target = *this;
}

OType_Variant* OType_Variant::opCreateCopy() const { return new OType_Variant(*this); }

int OType_Variant::iSizeOfData(int type) {
  const TypeRule* rule = RuleOf(type);
  return rule != nullptr ? rule->size : 0;
}

int OType_Variant::iSetValueDirect(double value, int type) {
  const TypeRule* rule = RuleOf(type);
  if (rule == nullptr) return 0;
  const std::optional<double> stored = StoredValue(value, *rule);
  if (!stored) return 0;
  m_iType = type;
  m_dValue = *stored;
  return 1;
}

int OType_Variant::iSetValueDirect(double value) { return iSetValueDirect(value, m_iType); }

bool OType_Variant::bSetValue(const std::u16string& text, int type) {
  const TypeRule* rule = RuleOf(type);
  if (rule == nullptr) return false;
  // The variant's own text keeps its value: some texts stand for many values
  // (six decimals of a double, a rejected date, type 19's empty text), and
  // an edit that changes nothing must not change the value.
  if (type == m_iType && text == oStrGetValue()) return true;
  const std::optional<double> value = ValueOf(text, *rule);
  return value && iSetValueDirect(*value, type) == 1;
}

bool OType_Variant::bSetValue(const OType_Variant& other) {
  m_iType = other.m_iType;
  m_dValue = other.m_dValue;
  return true;
}

bool OType_Variant::bSetValue(const OType_Variant* other) {
  return other != nullptr && bSetValue(*other);
}

bool OType_Variant::bSetValue(const std::shared_ptr<OType_Variant>& other) {
  return bSetValue(other.get());
}

std::u16string OType_Variant::oStrGetValue() const {
  const TypeRule* rule = RuleOf(m_iType);
  return rule != nullptr ? TextOf(m_dValue, *rule) : std::u16string();
}

void OType_Variant::BeginGetFields(bool bInitialize) {
  if (bInitialize) InitializeMembers(true);
}
