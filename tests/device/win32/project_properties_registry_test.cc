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

  StoredValue Stored(const wchar_t* entry) const { return scratch_.Read(u"Settings", entry); }

  ScratchRegistryKey scratch_{"profile"};
  OApplicationProfile_Registry profile_{u"NkFoundationTests", ToUtf16(scratch_.name())};
};

TEST_F(ProjectPropertiesRegistryTest, ReadingStoresOneZeroZeroAndReadsTheRest) {
  EXPECT_EQ(profile_.oStrSectionKey(u"Settings"), ToUtf16(scratch_ / "Settings"));
  for (const auto& [entry, value] : {std::pair{L"PROJECT_USE_QUALITY", 0u}, {L"PROJECT_USE_ALTERNATIVE_VALUE", 5},
                                     {L"PROJECT_USE_NEWTOOLSONCAMERAIMAGE", 7}, {L"PROJECT_USE_MULTI_PARTSET", 0},
                                     {L"PROJECT_USE_ORIENTATION", 2}}) {
    ASSERT_TRUE(scratch_.Write(u"Settings", entry, REG_DWORD, U32(value)));
  }
  OType_ProjectProperties properties;
  properties.ReadRegistry_ProjectProperties();
  EXPECT_EQ(Stored(L"PROJECT_USE_QUALITY"), StoredDword(1));
  EXPECT_EQ(Stored(L"PROJECT_USE_ALTERNATIVE_VALUE"), StoredDword(0));
  EXPECT_EQ(Stored(L"PROJECT_USE_NEWTOOLSONCAMERAIMAGE"), StoredDword(0));
  // Entries that are only read are not created.
  EXPECT_EQ(Stored(L"UPDATE_PROJECTDESCRIPTION").first, static_cast<DWORD>(REG_NONE));

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
  EXPECT_EQ(Stored(L"PROJECT_USE_ORIENTATION"), StoredDword(0));
  EXPECT_EQ(Stored(L"UPDATE_PROJECTDESCRIPTION"), StoredDword(1));
  // A value of another type counts as missing.
  ASSERT_TRUE(scratch_.Write(u"Settings", L"PROJECT_USE_TYPES", REG_SZ, Hex("31000000")));
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
