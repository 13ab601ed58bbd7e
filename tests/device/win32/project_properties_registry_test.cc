#include <gtest/gtest.h>

#include <string>

#include "nkfoundation/core/text.h"
#include "nkfoundation/device/project_properties.h"
#include "nkfoundation/services/application_profile.h"
#include "nkfoundation/services/win32/application_profile_registry.h"
#include "tests/support/win32/scratch_registry_key.h"

namespace nk::testing {
namespace {

// The project properties against the desktop application's profile: the
// scratch key plays the application's key below Software\<company>.
class ProjectPropertiesRegistryTest : public ::testing::Test {
 protected:
  void SetUp() override { profile::SetApplicationProfile(&profile_); }
  void TearDown() override { profile::SetApplicationProfile(nullptr); }

  std::string Settings() const { return scratch_ / "Settings"; }

  void Store(const char* entry, DWORD value) {
    ASSERT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, Settings().c_str(), entry, REG_DWORD, &value, sizeof value),
              ERROR_SUCCESS);
  }

  // The entry's DWORD as the registry holds it; -1 when missing or not a
  // DWORD.
  long long Stored(const char* entry) const {
    DWORD value = 0, size = sizeof value;
    if (RegGetValueA(HKEY_CURRENT_USER, Settings().c_str(), entry, RRF_RT_REG_DWORD, nullptr, &value, &size) !=
        ERROR_SUCCESS) {
      return -1;
    }
    return value;
  }

  ScratchRegistryKey scratch_{"profile"};
  OApplicationProfile_Registry profile_{u"NkFoundationTests", ToUtf16(scratch_.name())};
};

TEST_F(ProjectPropertiesRegistryTest, ReadingStoresOneZeroZeroAndReadsTheRest) {
  EXPECT_EQ(profile_.oStrSectionKey(u"Settings"), ToUtf16(Settings()));
  Store("PROJECT_USE_QUALITY", 0);
  Store("PROJECT_USE_ALTERNATIVE_VALUE", 5);
  Store("PROJECT_USE_NEWTOOLSONCAMERAIMAGE", 7);
  Store("PROJECT_USE_MULTI_PARTSET", 0);
  Store("PROJECT_USE_ORIENTATION", 2);

  OType_ProjectProperties properties;
  properties.ReadRegistry_ProjectProperties();
  EXPECT_EQ(Stored("PROJECT_USE_QUALITY"), 1);
  EXPECT_EQ(Stored("PROJECT_USE_ALTERNATIVE_VALUE"), 0);
  EXPECT_EQ(Stored("PROJECT_USE_NEWTOOLSONCAMERAIMAGE"), 0);
  // Entries that are only read are not created.
  EXPECT_EQ(Stored("UPDATE_PROJECTDESCRIPTION"), -1);

  EXPECT_TRUE(properties.bUseQuality());
  EXPECT_TRUE(properties.bUseAlternativeValue());
  EXPECT_TRUE(properties.bUseNewToolsOnCameraImage());
  EXPECT_FALSE(properties.bUseMultiPartSets());
  EXPECT_TRUE(properties.bUseOrientations());
  EXPECT_FALSE(properties.bUseSortTypes());
  EXPECT_TRUE(properties.m_bUpdate_ProjectDescription);
}

TEST_F(ProjectPropertiesRegistryTest, WritingStoresDwords) {
  OType_ProjectProperties properties;
  properties.m_bProject_Use_Orientations = false;
  properties.WriteRegistry_ProjectProperties();
  EXPECT_EQ(Stored("PROJECT_USE_ORIENTATION"), 0);
  EXPECT_EQ(Stored("UPDATE_PROJECTDESCRIPTION"), 1);
  // A value of another type counts as missing.
  ASSERT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, Settings().c_str(), "PROJECT_USE_TYPES", REG_SZ, "1", 2),
            ERROR_SUCCESS);
  EXPECT_EQ(profile_.iGetProfileInt(u"Settings", u"PROJECT_USE_TYPES", -3), -3);
}

TEST_F(ProjectPropertiesRegistryTest, WithoutAnApplicationKeyNothingIsStored) {
  OApplicationProfile_Registry unnamed(u"", ToUtf16(scratch_.name()));
  EXPECT_FALSE(unnamed.bWriteProfileInt(u"Settings", u"PROJECT_USE_QUALITY", 1));
  profile::SetApplicationProfile(&unnamed);
  OType_ProjectProperties properties;
  properties.ReadRegistry_ProjectProperties();
  EXPECT_FALSE(properties.bUseOrientations());  // the fallback
  EXPECT_FALSE(scratch_.Exists());
}

}  // namespace
}  // namespace nk::testing
