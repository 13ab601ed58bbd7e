#include <gtest/gtest.h>

#include <memory>

#include "nkfoundation/core/culture.h"
#include "nkfoundation/device/device_info.h"

namespace {

using Texts = WritableCollection<std::u16string>;

class DeviceInfoLocalizedTest : public ::testing::Test {
 protected:
  void TearDown() override { culture::SetCurrentCulture(culture::kEnglish); }

  bool Lines() { return OType_DeviceInfo::GetLocalizedInformation(info_, labels_, values_); }

  std::shared_ptr<OType_DeviceInfo> info_ = std::make_shared<OType_DeviceInfo>();
  std::shared_ptr<Texts> labels_ = std::make_shared<Texts>();
  std::shared_ptr<Texts> values_ = std::make_shared<Texts>();
};

TEST_F(DeviceInfoLocalizedTest, DefaultRecordGivesTheFixedLines) {
  culture::SetCurrentCulture(culture::kEnglish);
  ASSERT_TRUE(Lines());
  ASSERT_EQ(labels_->GetCount(), 66);
  ASSERT_EQ(values_->GetCount(), 66);
  const struct {
    int line;  // 1-based, as the user sees it
    const char16_t* key;
    const char16_t* value;
  } kLines[] = {
      {1, u"InfrastructureDvinfoStr51_Text", u"255"},
      {2, u"InfrastructureDvinfoStr7_Text", u"16"},
      {3, u"InfrastructureDvinfoStr5_Text", u"8"},
      {4, u"InfrastructureDvinfoStr3_Text", u"Unlimited"},
      {23, u"InfrastructureDvinfoStr78_Text", u"0"},
      {25, u"InfrastructureDvinfoStr78_Text", u"0"},
      {39, u"InfrastructureDvinfoStr69_Text", u"0"},
      {57, u"InfrastructureDvinfoStr8_Text", u"49"},
      {66, u"InfrastructureDvinfoStr76_Text", u"0"},
  };
  for (const auto& l : kLines) {
    EXPECT_EQ(labels_->At(l.line - 1), l.key) << l.line;
    EXPECT_EQ(values_->At(l.line - 1), l.value) << l.line;
  }
}

TEST_F(DeviceInfoLocalizedTest, SignedAndUnsignedValuesAndCultureWords) {
  info_->m_MaxNumFeatures = 0x8000;
  info_->m_ToolVersion_TOOL_OEM1 = 200;
  info_->m_Hardware_CPU_ID = 0xFFFE;
  info_->m_DDIOVersion_EtherNetIP = 3;
  ASSERT_TRUE(Lines());
  EXPECT_EQ(values_->At(3), u"-32768");
  EXPECT_EQ(values_->At(26), u"200");
  EXPECT_EQ(values_->At(47), u"-2");
  EXPECT_EQ(values_->At(38), u"3");
  EXPECT_EQ(values_->At(65), u"3");

  info_->m_MaxNumFeatures = 0xFFFF;
  const std::u16string kWords[] = {u"@@Unlimited", u"Unlimited", u"Unbegrenzt"};
  for (int culture : {0, 1, 2}) {
    culture::SetCurrentCulture(static_cast<culture::Language>(culture));
    ASSERT_TRUE(Lines());
    EXPECT_EQ(values_->At(values_->GetCount() - 66 + 3), kWords[culture]);
  }
  EXPECT_EQ(labels_->GetCount(), 4 * 66);  // appended behind what was there
}

TEST_F(DeviceInfoLocalizedTest, NullPointersAppendNothing) {
  labels_->Add(u"kept");
  EXPECT_FALSE(OType_DeviceInfo::GetLocalizedInformation(info_, labels_, nullptr));
  EXPECT_FALSE(OType_DeviceInfo::GetLocalizedInformation(nullptr, labels_, values_));
  EXPECT_EQ(labels_->GetCount(), 1);
  EXPECT_EQ(values_->GetCount(), 0);
}

}  // namespace
