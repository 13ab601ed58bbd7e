#include "nkfoundation/image/grey_line_array.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "support/bytes.h"

namespace {

using nk::testing::Bytes;
using nk::testing::Concat;

// A Z2 package: header with line length, shift and record count (the
// uninterpreted bytes filled so that a parser reading them would notice),
// then `body`.
Bytes Z2(std::uint16_t length, std::uint8_t shift, std::uint16_t records, const Bytes& body) {
  Bytes header{static_cast<std::uint8_t>(length >> 8), static_cast<std::uint8_t>(length), 0xA5, 0xA5, 0xA5,
               0xA5, 0xA5, 0xA5, 0xA5, shift, static_cast<std::uint8_t>(records >> 8),
               static_cast<std::uint8_t>(records)};
  return Concat(header, body);
}

// A record head: four uninterpreted bytes, the encoding, the data length.
Bytes Head(std::uint8_t encoding, std::uint16_t size) {
  return {0x5A, 0x5A, 0x5A, 0x5A, encoding, static_cast<std::uint8_t>(size >> 8), static_cast<std::uint8_t>(size)};
}

// One record and its data. A single record ending the package needs no
// padding: the head lies wholly before the end.
Bytes OneRecord(std::uint16_t length, std::uint8_t shift, std::uint8_t encoding, const Bytes& data) {
  return Z2(length, shift, 1, Concat(Head(encoding, static_cast<std::uint16_t>(data.size())), data));
}

// An exactly sized copy, so that a read past the end is caught by the
// address sanitizer.
WritableCollection<unsigned char, int> Package(const Bytes& bytes) {
  WritableCollection<unsigned char, int> package;
  package.Copy(bytes.data(), static_cast<int>(bytes.size()));
  return package;
}

Bytes Values(const OType_GreyLine& line) { return {line.GetData().begin(), line.GetData().end()}; }

void AddPlainLine(OType_GreyLine_Array& lines, const Bytes& values) {
  lines.AddGreyLine_ZE_Package(reinterpret_cast<const char*>(values.data()), static_cast<int>(values.size()));
}

struct DecodeCase {
  const char* name;
  std::uint16_t length;
  std::uint8_t shift;
  std::uint8_t encoding;
  Bytes data;
  Bytes expected;
};

// Relative cases build on the line 10 20 30 40 50 60.
const Bytes kPrevious{10, 20, 30, 40, 50, 60};

class Z2Decoding : public ::testing::TestWithParam<DecodeCase> {};

TEST_P(Z2Decoding, BuildsTheLine) {
  const DecodeCase& c = GetParam();
  OType_GreyLine_Array lines;
  AddPlainLine(lines, kPrevious);
  const auto line = lines.AddGreyLine_Z2_Package(Package(OneRecord(c.length, c.shift, c.encoding, c.data)));
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(Values(*line), c.expected);
  EXPECT_EQ(lines.GetCount(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Encodings, Z2Decoding,
    ::testing::Values(
        DecodeCase{"RawPaddedToLength", 5, 0, 0, {7, 8, 9}, {7, 8, 9, 0, 0}},
        DecodeCase{"RawCutToLength", 2, 0, 0, {7, 8, 9}, {7, 8}},
        DecodeCase{"RawIgnoresShift", 2, 3, 0, {7, 8}, {7, 8}},
        // 1, 2, -1 then 0, 5, 0: the fourth value reaches the length.
        DecodeCase{"AbsoluteDifferences", 4, 0, 1, {0x12, 0xF0, 0x50}, {1, 3, 2, 2}},
        DecodeCase{"AbsoluteWrapsModulo256", 2, 0, 1, {0xA6}, {0xFA, 0x00}},
        // Literal escape in a low nibble: its argument is the whole next byte.
        DecodeCase{"AbsoluteLiteralAfterLowEscape", 3, 0, 1, {0x19, 0xAB, 0x10}, {1, 0xAB, 0xAC}},
        // In a high nibble: that byte's low nibble, then the next high one.
        DecodeCase{"AbsoluteLiteralAfterHighEscape", 2, 0, 1, {0x9A, 0xB1}, {0xAB, 0xAC}},
        DecodeCase{"AbsoluteRepeatAfterLowEscape", 6, 0, 1, {0x18, 0x03}, {1, 1, 1, 1, 0, 0}},
        DecodeCase{"AbsoluteRepeatAfterHighEscape", 4, 0, 1, {0x80, 0x21}, {0, 0, 1, 0}},
        DecodeCase{"AbsoluteRepeatStopsAtLength", 3, 0, 1, {0x28, 0xFF}, {2, 2, 2}},
        DecodeCase{"AbsoluteAdjustReplacesLast", 3, 0, 1, {0x37, 0xE0}, {1, 1, 0}},
        DecodeCase{"AbsoluteAdjustBeforeOutput", 2, 0, 1, {0x72, 0x10}, {3, 3}},
        DecodeCase{"AbsoluteArgumentCutByDataEnd", 3, 0, 1, {0x19}, {1, 0, 0}},
        DecodeCase{"AbsoluteShiftedAfterwards", 3, 1, 1, {0x19, 0x81}, {2, 0x02, 0}},
        DecodeCase{"AbsoluteShiftOfEightClears", 2, 8, 1, {0x11}, {0, 0}},
        DecodeCase{"RelativeDifferences", 3, 0, 2, {0x1F, 0x00}, {11, 19, 30}},
        DecodeCase{"RelativeDifferencesShifted", 3, 2, 2, {0x1F, 0x00}, {14, 16, 30}},
        DecodeCase{"RelativeRepeatUnshifted", 6, 2, 2, {0x80, 0x41}, {10, 20, 30, 40, 54, 0}},
        DecodeCase{"RelativeLiteralShifted", 2, 1, 2, {0x9F, 0xF0}, {0xFE, 20}},
        DecodeCase{"RelativeLiteralAfterLowEscape", 2, 0, 2, {0x09, 0x42}, {10, 0x42}},
        DecodeCase{"RelativeAdjustShifted", 2, 2, 2, {0x17, 0x10}, {18, 20}},
        DecodeCase{"RelativeBeyondPreviousReadsZero", 8, 0, 2, {0x80, 0x71, 0x10}, {10, 20, 30, 40, 50, 60, 0, 1}},
        DecodeCase{"RelativeUnreachedIsZero", 4, 0, 2, {0x00}, {10, 20, 0, 0}}),
    [](const ::testing::TestParamInfo<DecodeCase>& info) { return info.param.name; });

TEST(GreyLineZ2, RecordsAdvanceByTheirHeadOnly) {
  // The first record's data starts with the second record's head.
  const Bytes package = Z2(2, 0, 2, Concat(Head(0, 9), Concat(Head(1, 1), {0x12, 0x00})));
  OType_GreyLine_Array lines;
  const auto last = lines.AddGreyLine_Z2_Package(Package(package));
  ASSERT_EQ(lines.GetCount(), 2);
  EXPECT_EQ(Values(*lines[0]), (Bytes{0x5A, 0x5A}));
  EXPECT_EQ(Values(*last), (Bytes{1, 3}));
}

TEST(GreyLineZ2, SkipsRecordsThatDoNotFitOrAreUnknown) {
  const Bytes unknown = Z2(2, 0, 2, Concat(Head(3, 0), Concat(Head(0, 2), {4, 5})));
  const Bytes too_long = Z2(2, 0, 2, Concat(Head(0, 200), Concat(Head(0, 2), {4, 5})));
  for (const Bytes& package : {unknown, too_long}) {
    OType_GreyLine_Array lines;
    const auto last = lines.AddGreyLine_Z2_Package(Package(package));
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(lines.GetCount(), 1);
    EXPECT_EQ(Values(*last), (Bytes{4, 5}));
  }
}

TEST(GreyLineZ2, NullResults) {
  OType_GreyLine_Array lines;
  EXPECT_EQ(lines.AddGreyLine_Z2_Package(Package(Bytes(14, 0))), nullptr);
  // Difference-coded with nothing before it.
  EXPECT_EQ(lines.AddGreyLine_Z2_Package(Package(OneRecord(2, 0, 2, {0x11}))), nullptr);
  EXPECT_EQ(lines.GetCount(), 0);
  EXPECT_EQ(lines.AddGreyLine_ZE_Package(nullptr, 3), nullptr);
  EXPECT_EQ(lines.AddGreyLine_ZE_Package("ab", 0), nullptr);
  EXPECT_EQ(lines.GetCount(), 0);
}

TEST(GreyLineZ2, NoRecordsStillTrims) {
  OType_GreyLine_Array lines;
  for (int i = 0; i < 4; ++i) AddPlainLine(lines, {static_cast<std::uint8_t>(i)});
  lines.m_iGreyLine_MaxNumber = 2;
  EXPECT_EQ(lines.AddGreyLine_Z2_Package(Package(Z2(4, 0, 0, {0, 0, 0}))), nullptr);
  ASSERT_EQ(lines.GetCount(), 2);
  EXPECT_EQ(Values(*lines[0]), Bytes{2});
}

TEST(GreyLineZ2, CutHeadKeepsLinesUntrimmedAndGivesNull) {
  OType_GreyLine_Array lines;
  lines.m_iGreyLine_MaxNumber = 1;
  AddPlainLine(lines, {9});
  // Three records announced; the third head would end at the package's end.
  const Bytes package = Z2(1, 0, 3, Concat(Head(0, 0), Concat(Head(0, 0), {1, 2, 3, 4, 5, 6, 7})));
  EXPECT_EQ(lines.AddGreyLine_Z2_Package(Package(package)), nullptr);
  EXPECT_EQ(lines.GetCount(), 3);
}

TEST(GreyLineZ2, TruncatedAtEveryLengthIsSafe) {
  const Bytes whole = Z2(6, 1, 3, Concat(Head(1, 9), Concat(Head(2, 3), Concat(Head(0, 2), {0x98, 0x17, 0x9F}))));
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    OType_GreyLine_Array lines;
    const auto last = lines.AddGreyLine_Z2_Package(Package(Bytes(whole.begin(), whole.begin() + size)));
    if (size < 15) {
      EXPECT_EQ(lines.GetCount(), 0) << size;
    }
    if (last) {
      EXPECT_EQ(last->GetData().GetCount(), 6) << size;
    }
  }
}

TEST(GreyLineZ2, RefusesPackagesWhoseLinesWouldNotFit) {
  // 1100 empty raw records of 65535-pixel lines, then a cut head: all would stay.
  Bytes body;
  for (int i = 0; i < 1100; ++i) body = Concat(body, Head(0, 0));
  OType_GreyLine_Array lines;
  EXPECT_EQ(lines.AddGreyLine_Z2_Package(Package(Z2(0xFFFF, 0, 1101, body))), nullptr);
  EXPECT_EQ(lines.GetCount(), 0);
  // With the trimming at the end only the newest lines stay, so it is taken.
  lines.m_iGreyLine_MaxNumber = 2;
  ASSERT_NE(lines.AddGreyLine_Z2_Package(Package(Z2(0xFFFF, 0, 1099, body))), nullptr);
  EXPECT_EQ(lines.GetCount(), 2);
}

TEST(GreyLineArray, KeepsTheNewestLines) {
  OType_GreyLine_Array lines;
  lines.m_iGreyLine_MaxNumber = 3;
  for (std::uint8_t i = 1; i <= 4; ++i) AddPlainLine(lines, {i, i});
  ASSERT_EQ(lines.GetCount(), 3);
  EXPECT_EQ(Values(*lines[0]), (Bytes{2, 2}));
  EXPECT_EQ(Values(*lines[2]), (Bytes{4, 4}));

  // None kept: the new line is still handed back.
  lines.m_iGreyLine_MaxNumber = 0;
  const auto line = lines.AddGreyLine_Z2_Package(Package(OneRecord(1, 0, 2, {0x10})));
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(Values(*line), Bytes{5});
  EXPECT_EQ(lines.GetCount(), 0);
}

}  // namespace
