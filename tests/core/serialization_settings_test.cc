#include "nkfoundation/core/serialization_settings.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/support/bytes.h"

namespace nk::testing {
namespace {

using Settings = OType_ObjectSerializationSettings;

// The 24 switches of a set as "1"/"0" in declaration order.
std::string SwitchText(const Settings& settings) {
  std::string text;
  for (const Settings::Switch& entry : Settings::Switches()) text += settings.*entry.member ? '1' : '0';
  return text;
}

TEST(SerializationSettingsTest, PredefinedSetsSwitchTheirGroups) {
  // In PreDefinedSettings order.
  const std::pair<const Settings&, const char*> kSets[] = {
      {Settings::All(), "111111111111111111111111"},
      {Settings::FrontEndJobData(), "111101111111111111111111"},
      {Settings::UndoRedo(), "111100001111111110000011"},
      {Settings::PartialJobDataUpdate(), "000000000000000001111110"},
      {Settings::SendReceiveCameraSettings(), "000000000000000000000010"},
      {Settings::DeviceJobData(), "000000001111111100000010"},
      {Settings::PartFileLogger(), "000000000000000001111110"},
      {Settings::None(), "000000000000000000000000"},
      {Settings::SyncJobWithoutDataLoss(), "000000001111111100000010"},
  };
  for (int value = 0; value < 9; ++value) {
    const auto& [instance, switches] = kSets[value];
    EXPECT_EQ(SwitchText(instance), switches);
    EXPECT_EQ(SwitchText(Settings(static_cast<Settings::PreDefinedSettings>(value))), switches);
  }
  EXPECT_EQ(SwitchText(Settings(static_cast<Settings::PreDefinedSettings>(9))), SwitchText(Settings()));
  // The shared instances know their owner; an object on the stack has none.
  EXPECT_EQ(Settings::All().ThisPtr().get(), &Settings::All());
  EXPECT_EQ(Settings().ThisPtr(), nullptr);
}

// The frame claims six bytes beyond the stream's end; it reads up to the end.
TEST(SerializationSettingsTest, WrittenFrameIsSixBytesShorterThanAnnouncedAndReadsBack) {
  Settings all(Settings::PreDefinedSettings::All);
  all.m_oUserData.Add(0xEE);
  EXPECT_EQ(all.GetObjectSize(), 35u);
  EXPECT_EQ(Serialize(all), Hex("1F000000 0054D0FE 0101010101010101010101010101010101010101 EE"));

  for (const Settings* predefined : {&Settings::All(), &Settings::UndoRedo()}) {
    Settings plain, tailed;
    plain.CopyFrom(*predefined);
    tailed.CopyFrom(*predefined);
    tailed.m_oUserData.Add(0xEE);
    for (Settings* source : {&plain, &tailed}) {
      auto stream = StreamOf(Serialize(*source));
      Settings read;
      ASSERT_TRUE(read.GetObjectData(stream, true));
      EXPECT_EQ(SwitchText(read), SwitchText(*source));
      EXPECT_EQ(read.m_oUserData.GetCount(), source->m_oUserData.GetCount());
      EXPECT_EQ(stream.GetRemaining(), 0u);
      EXPECT_EQ(Serialize(read), Serialize(*source));
    }
  }
}

TEST(SerializationSettingsTest, ReadsTwentySwitchesFromEighteenBytesOn) {
  // Switch 5 on, switch 24 on, the rest off; two newer bytes follow.
  Settings settings(Settings::PreDefinedSettings::All);
  ASSERT_TRUE(Deserialize(settings, Hex("1A000000 0054D0FE 0100000000000000000000000000000000000001 ABCD"), false));
  EXPECT_EQ(SwitchText(settings), "111110000000000000000001");
  EXPECT_EQ(settings.m_oUserData.GetCount(), 2);

  // A payload of 18 reads the last two switches from past its end, then
  // returns to it; without surplus bytes the old tail stays.
  auto eighteen = StreamOf(Hex("16000000 0054D0FE 000000000000000000000000000000000000 0101"));
  ASSERT_TRUE(settings.GetObjectData(eighteen, true));
  EXPECT_EQ(SwitchText(settings), "000000000000000000000011");
  EXPECT_EQ(eighteen.GetPosition(), 26u);
  EXPECT_EQ(settings.m_oUserData.GetCount(), 2);

  // A payload of 17 bytes reads no switch.
  for (bool initialize : {false, true}) {
    Settings kept(Settings::PreDefinedSettings::All);
    kept.SetObjectSize_Precalculation(static_cast<Settings::ObjectSize_Precalculation>(3));
    ASSERT_TRUE(Deserialize(kept, Hex("15000000 0054D0FE 0000000000000000000000000000000000"), initialize));
    EXPECT_EQ(SwitchText(kept), std::string(24, initialize ? '0' : '1'));
    EXPECT_EQ(kept.GetObjectSize_Precalculation(), initialize ? 0 : 3);
  }
}

TEST(SerializationSettingsTest, CopiesCarryOnlyTheTravellingSwitchesAndTheTail) {
  Settings source(Settings::PreDefinedSettings::All);
  source.m_oUserData.Add(0x11);
  auto target = std::make_shared<Settings>();
  target->SetObjectSize_Precalculation(static_cast<Settings::ObjectSize_Precalculation>(2));
  target->m_oUserData.Add(0x22);
  source.CopyTo(target);
  EXPECT_EQ(SwitchText(*target), "000011111111111111111111");
  EXPECT_EQ(target->GetObjectSize_Precalculation(), 2);
  EXPECT_EQ(Serialize(*target), Serialize(source));
}

}  // namespace
}  // namespace nk::testing
