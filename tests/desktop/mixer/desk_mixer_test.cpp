#include "desktop/mixer/desk_mixer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace marlex {
namespace {

using testing::ElementsAre;
using Values = std::vector<std::uint32_t>;

/// A mixer of three lines without any device.
class DeskMixerTest : public testing::Test {
 protected:
  void SetUp() override { Make(true); }

  void Make(bool withMicrophone) {
    DeskMixerParts parts;
    parts.CardName = "Card";
    parts.Speakers = std::make_unique<EngineLine>(Master);
    parts.WaveSource = std::make_unique<EngineLine>(Wave);
    if (withMicrophone) parts.MicrophoneSource = std::make_unique<EngineLine>(Microphone);
    Mixer = std::make_unique<DeskMixer>(std::move(parts));
    ASSERT_EQ(Mixer->Open(0, Handle), kMixerNoError);
  }

  std::uint32_t Control(std::uint32_t component, std::uint32_t type) {
    const auto line = Mixer->GetLineOfType(Handle, component);
    if (!line) return 0;
    return Mixer->GetLineControl(Handle, line->LineId, type).value_or(0);
  }
  std::uint32_t Set(std::uint32_t control, const Values& values) {
    return Mixer->SetControlDetails(Handle, control, values);
  }
  Values Get(std::uint32_t control, std::uint32_t channels) {
    return Mixer->GetControlDetails(Handle, control, channels);
  }

  SoundLine Master;
  SoundLine Wave;
  SoundLine Microphone{true};
  std::unique_ptr<DeskMixer> Mixer;
  std::uint32_t Handle = 0;
};

TEST_F(DeskMixerTest, TheOneDeviceIsTheCardAndItsOneDestinationTheSpeakers) {
  EXPECT_EQ(Mixer->GetNumDevs(), 1u);
  MixerCaps caps;
  EXPECT_EQ(Mixer->GetDevCaps(0, caps), kMixerNoError);
  EXPECT_EQ(caps.ProductName, "Card");
  EXPECT_EQ(caps.Destinations, 1u);
  const auto speakers = Mixer->GetDestination(Handle, 0);
  ASSERT_TRUE(speakers);
  EXPECT_EQ(speakers->ComponentType, kComponentSpeakers);
  EXPECT_EQ(speakers->Channels, 2u);
  EXPECT_EQ(speakers->Connections, 2u);
  EXPECT_FALSE(Mixer->GetDestination(Handle, 1));
}

TEST_F(DeskMixerTest, WithoutAMicrophoneThereIsNoLineOfIt) {
  const std::uint32_t mute = Control(kComponentMicrophone, kControlMute);
  Make(false);
  EXPECT_EQ(Mixer->GetDestination(Handle, 0)->Connections, 1u);
  EXPECT_FALSE(Mixer->GetSource(Handle, 0, 1));
  EXPECT_FALSE(Mixer->GetLineOfType(Handle, kComponentMicrophone));
  EXPECT_NE(Set(mute, {0}), kMixerNoError);
  EXPECT_TRUE(Microphone.Muted());
}

TEST_F(DeskMixerTest, WithoutAnOutputThereIsNoMixer) {
  DeskMixerParts parts;
  parts.HasOutput = false;
  DeskMixer none(std::move(parts));
  std::uint32_t handle = 0;
  MixerCaps caps;
  EXPECT_EQ(none.GetNumDevs(), 0u);
  EXPECT_NE(none.Open(0, handle), kMixerNoError);
  EXPECT_NE(none.GetDevCaps(0, caps), kMixerNoError);
}

TEST_F(DeskMixerTest, AVolumeGoesThroughBothWaysOneValueAChannel) {
  const std::uint32_t volume = Control(kComponentWaveOut, kControlVolume);
  EXPECT_THAT(Get(volume, 2), ElementsAre(65535, 65535));
  EXPECT_EQ(Set(volume, {12345, 54321}), kMixerNoError);
  EXPECT_EQ(Wave.Level(), (StereoLevel{12345, 54321}));
  EXPECT_THAT(Get(volume, 2), ElementsAre(12345, 54321));
  EXPECT_THAT(Get(volume, 1), ElementsAre(12345));
  EXPECT_EQ(Master.Level(), StereoLevel{});
  EXPECT_EQ(Microphone.Level(), StereoLevel{});
}

TEST_F(DeskMixerTest, AMuteIsOneValueForTheWholeLine) {
  const std::uint32_t mute = Control(kComponentMicrophone, kControlMute);
  EXPECT_THAT(Get(mute, 2), ElementsAre(1, 1));
  EXPECT_EQ(Set(mute, {0}), kMixerNoError);
  EXPECT_FALSE(Microphone.Muted());
  EXPECT_THAT(Get(mute, 1), ElementsAre(0));
  EXPECT_EQ(Set(mute, {1}), kMixerNoError);
  EXPECT_TRUE(Microphone.Muted());
}

TEST_F(DeskMixerTest, AMeterReadsTheLoudestSampleSinceTheLastReading) {
  const std::uint32_t peak = Control(kComponentSpeakers, kControlPeakMeter);
  Master.Meter(0.5F);
  Master.Meter(0.25F);
  const Values values = Get(peak, 1);
  ASSERT_EQ(values.size(), 1u);
  EXPECT_NEAR(values[0], 16384, 1);
  EXPECT_THAT(Get(peak, 1), ElementsAre(0));
  EXPECT_NE(Set(peak, {1}), kMixerNoError);
}

}  // namespace
}  // namespace marlex
