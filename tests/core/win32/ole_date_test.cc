// OLE automation against the portable calendar arithmetic, on the same dates:
// Windows builds convert through oleaut32, every other build through the
// arithmetic, and both must agree on every date, text and refusal.
#include <windows.h>
#include <oleauto.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "nkfoundation/core/culture.h"
#include "nkfoundation/core/date_types.h"
#include "nkfoundation/core/ole_date.h"
#include "nkfoundation/core/time_stamp.h"
#include "nkfoundation/core/variant.h"

namespace {

using nk::ole_date::Fields;
namespace portable = nk::ole_date::portable;

std::string Describe(const Fields& f) {
  return std::to_string(f.year) + "-" + std::to_string(f.month) + "-" + std::to_string(f.day) + " " +
         std::to_string(f.hour) + ":" + std::to_string(f.minute) + ":" + std::to_string(f.second);
}

// Fields in the supported years, days past a month's end included.
Fields RandomFields(std::mt19937& random) {
  const auto in = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
  return {in(100, 9999), in(1, 12), in(1, 31), in(0, 23), in(0, 59), in(0, 59)};
}

TEST(OleAutomationDateTest, FieldsConvertAsThePortableArithmetic) {
  // The edges and leap days, then fields that each break one rule, then
  // random ones.
  std::vector<Fields> samples = {
      {100, 1, 1, 0, 0, 0}, {9999, 12, 31, 23, 59, 59}, {1899, 12, 30, 0, 0, 0}, {1899, 12, 29, 6, 0, 0},
      {1899, 12, 29, 23, 59, 59}, {1600, 2, 29, 12, 0, 0}, {2000, 2, 29, 0, 0, 0}, {2024, 2, 29, 18, 30, 5},
      {1970, 1, 1, 0, 0, 0}, {2037, 12, 31, 23, 59, 59}, {400, 3, 1, 0, 0, 1},
      {99, 12, 31, 0, 0, 0}, {0, 1, 1, 0, 0, 0}, {10000, 1, 1, 0, 0, 0}, {1900, 2, 29, 0, 0, 0},
      {2023, 2, 29, 0, 0, 0}, {2100, 2, 29, 0, 0, 0}, {2024, 4, 31, 0, 0, 0}, {2024, 0, 1, 0, 0, 0},
      {2024, 13, 1, 0, 0, 0}, {2024, 1, 0, 0, 0, 0}, {2024, 1, 32, 0, 0, 0}, {2024, 1, 1, 24, 0, 0},
      {2024, 1, 1, 0, 60, 0}, {2024, 1, 1, 0, 0, 60}, {2024, 1, 1, -1, 0, 0}, {-2024, 1, 1, 0, 0, 0},
      {67560, 1, 1, 0, 0, 0}, {2024, 65537, 1, 0, 0, 0}, {30, 6, 15, 0, 0, 0}, {2024, 1, 1, 0, 0, 65536},
  };
  std::mt19937 random(1899);
  for (int i = 0; i < 20000; ++i) samples.push_back(RandomFields(random));
  for (const Fields& fields : samples) {
    double ole = -1e9, by_arithmetic = -1e9;
    const bool valid = nk::ole_date::FromFields(fields, &ole);
    ASSERT_EQ(valid, portable::FromFields(fields, &by_arithmetic)) << Describe(fields);
    if (!valid) continue;
    // Each may sum the time of day in its own order: equal to well within a
    // millisecond, and the same fields back either way.
    EXPECT_NEAR(ole, by_arithmetic, 1e-8) << Describe(fields);
    Fields back;
    ASSERT_TRUE(portable::ToFields(ole, &back)) << Describe(fields);
    EXPECT_EQ(back, fields);
    ASSERT_TRUE(nk::ole_date::ToFields(by_arithmetic, &back)) << Describe(fields);
    EXPECT_EQ(back, fields);
  }
}

TEST(OleAutomationDateTest, DatesConvertAsThePortableArithmetic) {
  // Both sides of day 0, the range edges, and 0.4 s and 0.6 s past whole
  // seconds, where the time of day rounds.
  std::vector<double> dates = {0.0, 0.25, -0.25, -1.25, -1.75, -657434.0, -657434.5, -657434.99999, -657435.0,
                               -657435.5, 2958465.0, 2958465.99998, 2958466.0, 1e7, -1e7,
                               std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()};
  std::mt19937 random(1900);
  std::uniform_real_distribution<double> spread(-657434.0, 2958465.0);
  std::uniform_int_distribution<int> second(0, 86399);
  for (int i = 0; i < 20000; ++i) dates.push_back(spread(random));
  for (int i = 0; i < 2000; ++i) {
    const double day = std::trunc(spread(random));
    const double fraction = (second(random) + (i % 2 == 0 ? 0.4 : 0.6)) / 86400.0;
    dates.push_back(day < 0 ? day - fraction : day + fraction);
  }
  for (double date : dates) {
    Fields ole{}, by_arithmetic{};
    const bool valid = nk::ole_date::ToFields(date, &ole);
    ASSERT_EQ(valid, portable::ToFields(date, &by_arithmetic)) << date;
    if (!valid) continue;
    EXPECT_EQ(ole, by_arithmetic) << date;
  }
}

TEST(OleAutomationDateTest, DateTypesAndTimeStampsGoThroughOleAutomation) {
  const COleDateTime date(1600, 2, 29, 6, 7, 8);
  SYSTEMTIME time{.wYear = 1600, .wMonth = 2, .wDayOfWeek = 0, .wDay = 29,
                  .wHour = 6, .wMinute = 7, .wSecond = 8, .wMilliseconds = 0};
  DATE expected;
  ASSERT_TRUE(SystemTimeToVariantTime(&time, &expected));
  EXPECT_EQ(date.m_dt, expected);
  EXPECT_EQ(date.Format(u"%d.%m.%Y %H:%M:%S"), u"29.02.1600 06:07:08");

  OTime stamp;
  stamp.SetOleTime(COleDateTime(2011, 12, 24, 18, 30, 5));
  EXPECT_EQ(std::tie(stamp.m_iYear, stamp.m_iSeconds), std::make_tuple(2011, 5));
  double by_arithmetic;
  ASSERT_TRUE(portable::FromFields({2011, 12, 24, 18, 30, 5}, &by_arithmetic));
  EXPECT_NEAR(stamp.GetOleTime().m_dt, by_arithmetic, 1e-8);
}

// The variant's date and time texts, read by OLE automation as the desktop
// application reads dates typed in German (day, month, year), give the dates
// the portable arithmetic gives for the same fields.
TEST(OleAutomationDateTest, VariantTextsReadBackThroughOleAutomation) {
  culture::SetCurrentCulture(culture::kGerman);
  const LCID german = MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT);
  std::mt19937 random(2006);
  for (int i = 0; i < 3000; ++i) {
    const bool is_date = i % 2 == 0;
    const Fields any = RandomFields(random);
    const Fields fields = is_date ? Fields{any.year, any.month, any.day, 0, 0, 0}
                                  : Fields{2000, 1, 1, any.hour, any.minute, any.second};
    const double packed = is_date ? fields.year * 10000.0 + fields.month * 100 + fields.day
                                  : fields.hour * 10000.0 + fields.minute * 100 + fields.second;
    OType_Variant variant;
    ASSERT_EQ(variant.iSetValueDirect(packed, is_date ? OType_Variant::kDate : OType_Variant::kTime), 1);
    const std::u16string text = variant.oStrGetValue();
    double by_arithmetic;
    const bool valid = portable::FromFields(fields, &by_arithmetic);
    ASSERT_EQ(text != u"Invalid DateTime", valid) << Describe(fields);

    // The variant takes back exactly the texts it shows.
    OType_Variant read;
    EXPECT_EQ(read.bSetValue(text, variant.iGetType()), valid) << Describe(fields);
    if (!valid) continue;
    EXPECT_EQ(read.dGetValue(), packed);

    ASSERT_TRUE(text.starts_with(u"@@"));
    std::wstring typed(text.begin() + 2, text.end());
    DATE ole;
    ASSERT_EQ(VarDateFromStr(typed.data(), german, is_date ? VAR_DATEVALUEONLY : VAR_TIMEVALUEONLY, &ole), S_OK)
        << Describe(fields);
    // A time alone lies on day 0, 30 December 1899.
    EXPECT_NEAR(ole, is_date ? by_arithmetic : by_arithmetic - std::trunc(by_arithmetic), 1e-8) << Describe(fields);
  }
  culture::SetCurrentCulture(culture::kEnglish);
}

}  // namespace
