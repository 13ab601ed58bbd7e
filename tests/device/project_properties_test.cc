#include "nkfoundation/device/project_properties.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "nkfoundation/core/text.h"
#include "nkfoundation/services/application_profile.h"
#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

// Flags 0, 1, 1, 1, 1, 1; doubles 1.0, 1.0, 0.0; flags 1, 1, 1, 0.
const Bytes kDefaultFrame = Hex("44000000 0018D0FE 00000000 01000000 01000000 01000000 01000000 01000000"
                                "000000000000F03F 000000000000F03F 0000000000000000"
                                "01000000 01000000 01000000 00000000");

// The ten flags in the profile's order.
std::vector<bool*> Flags(OType_ProjectProperties& p) {
  return {&p.m_bProject_SaveFile_IncludeOldFormat, &p.m_bProject_Use_MultiPartSets,
          &p.m_bProject_Use_Orientations,          &p.m_bProject_Use_SortTypes,
          &p.m_bProject_Use_ManualOrientations,    &p.m_bProject_Use_ManualTypes,
          &p.m_bProject_Use_Quality,               &p.m_bProject_Use_Alternative_Value,
          &p.m_bProject_Use_NewToolsOnCameraImage, &p.m_bUpdate_ProjectDescription};
}

// The flags as "0" and "1", in the profile's order.
std::string FlagText(OType_ProjectProperties properties) {
  std::string text;
  for (const bool* flag : Flags(properties)) text += *flag ? '1' : '0';
  return text;
}

// Every flag flipped from its default, and other caliper values.
OType_ProjectProperties Flipped() {
  OType_ProjectProperties properties;
  for (bool* flag : Flags(properties)) *flag = !*flag;
  properties.m_dCaliper_ImageScaling_x = 2.0;
  properties.m_dCaliper_World_ZPos = -3.5;
  return properties;
}

TEST(ProjectPropertiesTest, FrameIsExactAndReadingStartsFromDefaults) {
  EXPECT_EQ(OType_ProjectProperties().GetObjectSize(), 72u);
  EXPECT_EQ(Serialize(OType_ProjectProperties()), kDefaultFrame);

  // Any non-zero i32 is true and is written back as 1; the flags travel in
  // their own order (sort types before manual orientations).
  Bytes stored = kDefaultFrame;
  stored[8] = 7;
  stored[20] = 0;
  OType_ProjectProperties read;
  ASSERT_TRUE(Deserialize(read, stored, false));
  EXPECT_TRUE(read.m_bProject_SaveFile_IncludeOldFormat);
  EXPECT_FALSE(read.bUseSortTypes());
  EXPECT_TRUE(read.bUseManualOrientations());
  stored[8] = 1;
  EXPECT_EQ(Serialize(read), stored);

  // A shorter payload reads nothing: the defaults, also without
  // bInitialize, and the 60 bytes as the tail.
  Bytes older(kDefaultFrame.begin(), kDefaultFrame.end() - 4);
  older[0] = 64;
  for (bool initialize : {false, true}) {
    OType_ProjectProperties properties = Flipped();
    ASSERT_TRUE(Deserialize(properties, older, initialize));
    EXPECT_EQ(properties.m_oUserData.GetCount(), 60);
    properties.m_oUserData.RemoveAll();
    EXPECT_EQ(Serialize(properties), kDefaultFrame);
  }

  // A newer frame keeps its surplus; a foreign frame changes nothing.
  Bytes newer = Concat(Serialize(Flipped()), Hex("ABCDEF"));
  newer[0] += 3;
  ASSERT_TRUE(Deserialize(read, newer));
  EXPECT_EQ(Serialize(read), newer);
  EXPECT_FALSE(Deserialize(read, Hex("0C000000 002BD0FE 00000000")));
  EXPECT_EQ(Serialize(read), newer);

  read.Default_ProjectProperties();
  EXPECT_EQ(read.m_oUserData.GetCount(), 3);
  read.m_oUserData.RemoveAll();
  EXPECT_EQ(Serialize(read), kDefaultFrame);
}

// Records every profile call in order: "read NAME=default" or "write
// NAME=value". Writes fail when `writes_fail` is set.
class RecordingProfile : public OApplicationProfile_Memory {
 public:
  bool bIsAvailable() const override { return available; }
  int iGetProfileInt(std::u16string_view section, std::u16string_view entry, int default_value) override {
    calls.push_back(Call("read", section, entry, default_value));
    return OApplicationProfile_Memory::iGetProfileInt(section, entry, default_value);
  }
  bool bWriteProfileInt(std::u16string_view section, std::u16string_view entry, int value) override {
    calls.push_back(Call("write", section, entry, value));
    return !writes_fail && OApplicationProfile_Memory::bWriteProfileInt(section, entry, value);
  }

  bool available = true;
  bool writes_fail = false;
  std::vector<std::string> calls;

 private:
  static std::string Call(const char* what, std::u16string_view section, std::u16string_view entry, int value) {
    return std::string(what) + " " + ToUtf8(section) + "/" + ToUtf8(entry) + "=" + std::to_string(value);
  }
};

class ProjectPropertiesProfileTest : public ::testing::Test {
 protected:
  void SetUp() override { profile::SetApplicationProfile(&profile_); }
  void TearDown() override { profile::SetApplicationProfile(nullptr); }

  RecordingProfile profile_;
};

TEST_F(ProjectPropertiesProfileTest, ReadingStoresThreeEntriesAndReadsTheRest) {
  profile_.bWriteProfileInt(u"Settings", u"PROJECT_USE_QUALITY", 0);
  profile_.bWriteProfileInt(u"Settings", u"PROJECT_USE_TYPES", 5);
  profile_.calls.clear();

  OType_ProjectProperties properties = Flipped();
  properties.ReadRegistry_ProjectProperties();
  EXPECT_EQ(profile_.calls, (std::vector<std::string>{
                                "read Settings/PROJECT_FILE_ADD_OLDFORMAT=0",
                                "read Settings/PROJECT_USE_MULTI_PARTSET=1",
                                "read Settings/PROJECT_USE_ORIENTATION=0",
                                "read Settings/PROJECT_USE_TYPES=0",
                                "read Settings/PROJECT_USE_MANUALORIENTATION=0",
                                "read Settings/PROJECT_USE_MANUALTYPES=0",
                                "write Settings/PROJECT_USE_QUALITY=1",
                                "write Settings/PROJECT_USE_ALTERNATIVE_VALUE=0",
                                "write Settings/PROJECT_USE_NEWTOOLSONCAMERAIMAGE=0",
                                "read Settings/UPDATE_PROJECTDESCRIPTION=1",
                            }));
  EXPECT_EQ(profile_.iGetProfileInt(u"Settings", u"PROJECT_USE_QUALITY", -1), 1);
  EXPECT_EQ(profile_.iGetProfileInt(u"settings", u"project_use_alternative_value", -1), 0);

  // The read entries take their defaults or stored values; the three stored
  // ones are true because storing succeeded; the caliper values stay.
  EXPECT_EQ(FlagText(properties), "0101001111");
  EXPECT_EQ(properties.m_dCaliper_ImageScaling_x, 2.0);

  profile_.writes_fail = true;
  properties.ReadRegistry_ProjectProperties();
  EXPECT_EQ(FlagText(properties), "0101000001");
}

TEST_F(ProjectPropertiesProfileTest, WritingStoresTenFlagsInOrder) {
  Flipped().WriteRegistry_ProjectProperties();
  EXPECT_EQ(profile_.calls, (std::vector<std::string>{
                                "write Settings/PROJECT_FILE_ADD_OLDFORMAT=1",
                                "write Settings/PROJECT_USE_MULTI_PARTSET=0",
                                "write Settings/PROJECT_USE_ORIENTATION=0",
                                "write Settings/PROJECT_USE_TYPES=0",
                                "write Settings/PROJECT_USE_MANUALORIENTATION=0",
                                "write Settings/PROJECT_USE_MANUALTYPES=0",
                                "write Settings/PROJECT_USE_QUALITY=0",
                                "write Settings/PROJECT_USE_ALTERNATIVE_VALUE=0",
                                "write Settings/PROJECT_USE_NEWTOOLSONCAMERAIMAGE=1",
                                "write Settings/UPDATE_PROJECTDESCRIPTION=0",
                            }));
}

// Without a reachable profile nothing is exchanged and reading falls back to
// values that differ from the defaults for orientations and sort types.
TEST_F(ProjectPropertiesProfileTest, WithoutAProfileReadingFallsBack) {
  for (bool installed : {false, true}) {
    profile::SetApplicationProfile(installed ? &profile_ : nullptr);
    profile_.available = false;
    OType_ProjectProperties properties = Flipped();
    properties.WriteRegistry_ProjectProperties();
    properties.ReadRegistry_ProjectProperties();
    EXPECT_TRUE(profile_.calls.empty());
    EXPECT_EQ(FlagText(properties), "0100001101");
    EXPECT_EQ(properties.m_dCaliper_World_ZPos, -3.5);
  }
}

}  // namespace
}  // namespace nk::testing
