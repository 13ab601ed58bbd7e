#include "nkfoundation/image/grey_line_array.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

namespace {

constexpr std::size_t kMinZ2PackageSize = 15;
constexpr std::size_t kZ2HeaderSize = 12;
constexpr std::size_t kRecordHeadSize = 7;

enum Encoding : std::uint8_t { kRaw = 0, kAbsolute = 1, kRelative = 2 };

// Nibbles of the signed range -8..7 that are not plain differences.
constexpr int kRepeat = -8;
constexpr int kLiteral = -7;
constexpr int kAdjustLast = 7;

std::uint16_t BigEndian16(const std::uint8_t* bytes) {
  return static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]);
}

// `value` shifted left by `shift`, modulo 256; a shift of 8 or more leaves
// nothing. Negative values shift as their two's complement.
std::uint8_t ShiftLeft(int value, unsigned shift) {
  return shift >= 8 ? 0 : static_cast<std::uint8_t>(static_cast<unsigned>(value) << shift);
}

// The data of a record as a sequence of 4-bit values, the high nibble of
// each byte first.
class NibbleReader {
 public:
  NibbleReader(const std::uint8_t* data, std::size_t size) : data_(data), count_(2 * size) {}

  bool Has(std::size_t n) const { return count_ - next_ >= n; }

  // The next nibble as a value of -8..7.
  int Signed() {
    const int raw = Raw();
    return raw >= 8 ? raw - 16 : raw;
  }

  // An 8-bit argument: the next two nibbles, high one first. After an escape
  // in a high nibble it straddles the byte boundary.
  std::uint8_t Byte() {
    const int high = Raw();
    return static_cast<std::uint8_t>(high << 4 | Raw());
  }

 private:
  int Raw() {
    const std::uint8_t byte = data_[next_ / 2];
    const int raw = next_ % 2 == 0 ? byte >> 4 : byte & 0x0F;
    ++next_;
    return raw;
  }

  const std::uint8_t* data_;
  std::size_t count_;
  std::size_t next_ = 0;
};

// Absolute values: a running byte that differences move, literals set and
// runs repeat. The shift applies to the finished line.
void DecodeAbsolute(NibbleReader nibbles, unsigned shift, std::uint8_t* line, std::size_t length) {
  std::uint8_t value = 0;
  std::size_t i = 0;
  // An escape whose argument the data does not hold ends the line.
  while (i < length && nibbles.Has(1)) {
    const int nibble = nibbles.Signed();
    if (nibble == kRepeat) {
      if (!nibbles.Has(2)) break;
      const std::size_t run = std::min<std::size_t>(nibbles.Byte(), length - i);
      std::fill_n(line + i, run, value);
      i += run;
    } else if (nibble == kLiteral) {
      if (!nibbles.Has(2)) break;
      value = nibbles.Byte();
      line[i++] = value;
    } else if (nibble == kAdjustLast) {
      if (!nibbles.Has(1)) break;
      value = static_cast<std::uint8_t>(value + nibbles.Signed());
      if (i > 0) line[i - 1] = value;
    } else {
      value = static_cast<std::uint8_t>(value + nibble);
      line[i++] = value;
    }
  }
  if (shift != 0) {
    for (std::size_t k = 0; k < length; ++k) line[k] = ShiftLeft(line[k], shift);
  }
}

// Differences to the previous line, each shifted as it is applied; runs copy
// the previous line unshifted. Positions beyond the previous line's end
// count as 0 there.
void DecodeRelative(NibbleReader nibbles, unsigned shift, const WritableCollection<unsigned char, int>& previous,
                    std::uint8_t* line, std::size_t length) {
  const auto before = [&previous](std::size_t i) { return previous.GetAt(static_cast<int>(i)); };
  std::size_t i = 0;
  while (i < length && nibbles.Has(1)) {
    const int nibble = nibbles.Signed();
    if (nibble == kRepeat) {
      if (!nibbles.Has(2)) break;
      const std::size_t end = i + std::min<std::size_t>(nibbles.Byte(), length - i);
      for (; i < end; ++i) line[i] = before(i);
    } else if (nibble == kLiteral) {
      if (!nibbles.Has(2)) break;
      line[i++] = ShiftLeft(nibbles.Byte(), shift);
    } else if (nibble == kAdjustLast) {
      if (!nibbles.Has(1)) break;
      const std::uint8_t step = ShiftLeft(nibbles.Signed(), shift);
      if (i > 0) line[i - 1] = static_cast<std::uint8_t>(line[i - 1] + step);
    } else {
      line[i] = static_cast<std::uint8_t>(before(i) + ShiftLeft(nibble, shift));
      ++i;
    }
  }
}

struct Record {
  std::size_t data;  // offset of the record's data in the package
  std::uint16_t size;
  std::uint8_t encoding;
};

// What a Z2 package will do, found before anything is built: the records
// that make lines, and whether the walk stops early. Walking first lets the
// size of the lines be checked before any is allocated, and lets lines that
// the final trimming would drop go as soon as a newer one exists.
struct Z2Plan {
  std::uint16_t line_length = 0;
  std::uint8_t shift = 0;
  std::vector<Record> records;
  bool stops_early = false;
};

std::optional<Z2Plan> PlanZ2Package(const std::uint8_t* package, std::size_t size, bool have_line) {
  if (size < kMinZ2PackageSize) return std::nullopt;
  Z2Plan plan;
  plan.line_length = BigEndian16(package);
  plan.shift = package[9];
  const std::uint16_t record_count = BigEndian16(package + 10);
  std::size_t position = kZ2HeaderSize;
  // Every record advances by its head, so the walk ends within size / 7
  // steps whatever the count claims.
  for (std::uint16_t r = 0; r < record_count; ++r) {
    if (position + kRecordHeadSize >= size) {
      plan.stops_early = true;
      break;
    }
    const std::uint8_t encoding = package[position + 4];
    const std::uint16_t data_size = BigEndian16(package + position + 5);
    const std::size_t data = position + kRecordHeadSize;
    if (data + data_size <= size && encoding <= kRelative) {
      if (encoding == kRelative && !have_line) {
        plan.stops_early = true;
        break;
      }
      plan.records.push_back({data, data_size, encoding});
      have_line = true;
    }
    position = data;
  }
  return plan;
}

}  // namespace

std::shared_ptr<OType_GreyLine> OType_GreyLine_Array::AddGreyLine_ZE_Package(const char* data, int size) {
  if (data == nullptr || size <= 0) return nullptr;
  auto line = std::make_shared<OType_GreyLine>();
  line->GetData().Copy(reinterpret_cast<const unsigned char*>(data), size);
  Add(line);
  TrimTo(m_iGreyLine_MaxNumber);
  return line;
}

std::shared_ptr<OType_GreyLine> OType_GreyLine_Array::AddGreyLine_Z2_Package(
    const WritableCollection<unsigned char, int>& package) {
  const std::uint8_t* bytes = package.GetData();
  const auto size = static_cast<std::size_t>(std::max(package.GetCount(), 0));
  const std::optional<Z2Plan> plan = PlanZ2Package(bytes, size, GetCount() > 0);
  if (!plan) return nullptr;

  // A walk that stops early keeps all its lines untrimmed; otherwise only
  // the newest survive, and one is kept while decoding for the next
  // difference-coded record to build on.
  const std::int64_t keep = std::max<std::int64_t>(m_iGreyLine_MaxNumber, 1);
  const std::int64_t lines = static_cast<std::int64_t>(plan->records.size());
  const std::int64_t kept = plan->stops_early ? lines : std::min(lines, keep);
  if (static_cast<std::uint64_t>(kept) * plan->line_length > kMaxPackageLineBytes) return nullptr;

  std::shared_ptr<OType_GreyLine> last;
  for (const Record& record : plan->records) {
    auto line = std::make_shared<OType_GreyLine>();
    WritableCollection<unsigned char, int>& values = line->GetData();
    values.SetSize(plan->line_length);
    const std::uint8_t* data = bytes + record.data;
    switch (record.encoding) {
      case kRaw:
        std::copy_n(data, std::min<std::size_t>(record.size, plan->line_length), values.GetData());
        break;
      case kAbsolute:
        DecodeAbsolute(NibbleReader(data, record.size), plan->shift, values.GetData(), plan->line_length);
        break;
      case kRelative:
        DecodeRelative(NibbleReader(data, record.size), plan->shift, At(GetUpperBound())->GetData(),
                       values.GetData(), plan->line_length);
        break;
    }
    Add(line);
    last = std::move(line);
    if (!plan->stops_early) TrimTo(keep);
  }
  if (plan->stops_early) return nullptr;
  TrimTo(m_iGreyLine_MaxNumber);
  return last;
}

void OType_GreyLine_Array::TrimTo(std::int64_t keep) {
  const std::int64_t excess = GetCount() - std::max<std::int64_t>(keep, 0);
  if (excess > 0) RemoveAt(0, static_cast<int>(excess));
}
