// What every implementation of `MixerFunctions` promises.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "contracts/both_pcs.h"
#include "desktop/mixer/desk_mixer.h"
#include "simulation/simulated_pc.h"

namespace marlex {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Values = std::vector<std::uint32_t>;

constexpr std::uint32_t kNoSuchId = 4711;

/// The mixer of one of the PCs, with all lines.
class MixerBench {
 public:
  virtual ~MixerBench() = default;
  virtual MixerFunctions& Mixer() = 0;
};

class SimulatedMixerBench : public MixerBench {
 public:
  MixerFunctions& Mixer() override { return Pc.Mixer; }

 private:
  SimulatedPc Pc;
};

/// The lines of the sound engine, without a card.
class RealMixerBench : public MixerBench {
 public:
  MixerFunctions& Mixer() override { return TheMixer; }

 private:
  DeskMixerParts Parts() {
    DeskMixerParts parts;
    parts.CardName = "Card";
    parts.Speakers = std::make_unique<EngineLine>(Master);
    parts.WaveSource = std::make_unique<EngineLine>(Wave);
    parts.MicrophoneSource = std::make_unique<EngineLine>(Microphone);
    return parts;
  }

  SoundLine Master;
  SoundLine Wave;
  SoundLine Microphone{true};
  DeskMixer TheMixer{Parts()};
};

class MixerContract : public testing::TestWithParam<PcKind> {
 protected:
  MixerContract() {
    if (GetParam() == PcKind::Simulated) {
      Bench = std::make_unique<SimulatedMixerBench>();
    } else {
      Bench = std::make_unique<RealMixerBench>();
    }
  }
  void SetUp() override { ASSERT_EQ(Mixer().Open(0, Handle), kMixerNoError); }

  MixerFunctions& Mixer() { return Bench->Mixer(); }

  MixerLineInfo Line(std::uint32_t component) {
    return Mixer().GetLineOfType(Handle, component).value_or(MixerLineInfo{});
  }
  std::uint32_t Control(std::uint32_t component, std::uint32_t type) {
    return Mixer().GetLineControl(Handle, Line(component).LineId, type).value_or(0);
  }
  std::uint32_t Set(std::uint32_t control, const Values& values) {
    return Mixer().SetControlDetails(Handle, control, values);
  }
  Values Get(std::uint32_t control, std::uint32_t channels) {
    return Mixer().GetControlDetails(Handle, control, channels);
  }

  std::unique_ptr<MixerBench> Bench;
  std::uint32_t Handle = 0;
};

INSTANTIATE_TEST_SUITE_P(Pc, MixerContract, kBothPcs, NameOf);

constexpr std::uint32_t kComponents[] = {kComponentSpeakers, kComponentWaveOut,
                                         kComponentMicrophone};
constexpr std::uint32_t kControlTypes[] = {kControlVolume, kControlMute, kControlPeakMeter};

TEST_P(MixerContract, TheDeviceNamesItselfAndItsDestinations) {
  EXPECT_EQ(Mixer().GetNumDevs(), 1u);
  MixerCaps caps;
  EXPECT_EQ(Mixer().GetDevCaps(0, caps), kMixerNoError);
  EXPECT_NE(caps.ProductName, "");
  EXPECT_EQ(caps.Destinations, 1u);
}

TEST_P(MixerContract, ADeviceThatDoesNotExistIsRefused) {
  MixerCaps caps;
  std::uint32_t handle = kNoSuchId;
  EXPECT_EQ(Mixer().Open(1, handle), kMixerBadDevice);
  EXPECT_EQ(handle, kNoSuchId);
  EXPECT_EQ(Mixer().GetDevCaps(1, caps), kMixerBadDevice);
}

TEST_P(MixerContract, TheSpeakersHaveTheWaveOutputAndTheMicrophone) {
  const auto speakers = Mixer().GetDestination(Handle, 0);
  ASSERT_TRUE(speakers);
  EXPECT_EQ(speakers->ComponentType, kComponentSpeakers);
  ASSERT_EQ(speakers->Connections, 2u);
  for (std::uint32_t source = 0; source < 2; ++source) {
    const auto line = Mixer().GetSource(Handle, 0, source);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->ComponentType, kComponents[source + 1]);
    EXPECT_EQ(line->LineId, Line(kComponents[source + 1]).LineId);
    EXPECT_NE(line->Name, "");
    EXPECT_GT(line->Channels, 0u);
    EXPECT_EQ(line->Connections, 0u);
  }
}

TEST_P(MixerContract, WhatDoesNotExistIsEmpty) {
  EXPECT_FALSE(Mixer().GetDestination(Handle, 1));
  EXPECT_FALSE(Mixer().GetSource(Handle, 0, 2));
  EXPECT_FALSE(Mixer().GetSource(Handle, 1, 0));
  EXPECT_FALSE(Mixer().GetLineOfType(Handle, kNoSuchId));
  EXPECT_FALSE(Mixer().GetLineControl(Handle, kNoSuchId, kControlMute));
  EXPECT_FALSE(Mixer().GetLineControl(Handle, Line(kComponentWaveOut).LineId, kNoSuchId));
  for (const std::uint32_t control : {0u, kNoSuchId, 0xFFFFFFFFu})
    EXPECT_THAT(Get(control, 1), IsEmpty()) << control;
}

TEST_P(MixerContract, EveryControlHasAnIdOfItsOwnAndNoneIsZero) {
  std::set<std::uint32_t> ids;
  for (const auto component : kComponents) {
    for (const auto type : kControlTypes) ids.insert(Control(component, type));
  }
  EXPECT_THAT(ids, SizeIs(9));
  EXPECT_FALSE(ids.contains(0));
}

TEST_P(MixerContract, AllVolumesAreFullAndTheMicrophoneAloneIsMutedAtFirst) {
  for (const auto component : kComponents) {
    const std::uint32_t channels = Line(component).Channels;
    EXPECT_EQ(Get(Control(component, kControlVolume), channels), Values(channels, 65535));
    EXPECT_THAT(Get(Control(component, kControlMute), 1),
                ElementsAre(component == kComponentMicrophone ? 1 : 0));
  }
}

TEST_P(MixerContract, AVolumeIsKeptForEachChannelOfItsLine) {
  const std::uint32_t volume = Control(kComponentWaveOut, kControlVolume);
  ASSERT_EQ(Line(kComponentWaveOut).Channels, 2u);
  EXPECT_EQ(Set(volume, {12345, 54321}), kMixerNoError);
  EXPECT_THAT(Get(volume, 2), ElementsAre(12345, 54321));
  EXPECT_THAT(Get(volume, 1), ElementsAre(12345));
  EXPECT_THAT(Get(volume, 3), IsEmpty()) << "there are only two";
  EXPECT_THAT(Get(Control(kComponentSpeakers, kControlVolume), 2), Each(65535));
}

TEST_P(MixerContract, ASingleVolumeCountsForAllChannels) {
  for (const auto component : kComponents) {
    const std::uint32_t volume = Control(component, kControlVolume);
    const std::uint32_t channels = Line(component).Channels;
    EXPECT_EQ(Set(volume, {0}), kMixerNoError);
    EXPECT_EQ(Get(volume, channels), Values(channels, 0));
  }
}

TEST_P(MixerContract, AVolumeAboveFullIsFull) {
  const std::uint32_t volume = Control(kComponentWaveOut, kControlVolume);
  EXPECT_EQ(Set(volume, {0}), kMixerNoError);
  EXPECT_EQ(Set(volume, {65536, 0xFFFFFFFF}), kMixerNoError);
  EXPECT_THAT(Get(volume, 2), ElementsAre(65535, 65535));
}

TEST_P(MixerContract, AMuteIsOneValueForTheWholeLine) {
  const std::uint32_t mute = Control(kComponentWaveOut, kControlMute);
  EXPECT_EQ(Set(mute, {2}), kMixerNoError);
  EXPECT_THAT(Get(mute, 2), ElementsAre(1, 1));
  EXPECT_EQ(Set(mute, {0}), kMixerNoError);
  EXPECT_THAT(Get(mute, 1), ElementsAre(0));
  EXPECT_THAT(Get(Control(kComponentMicrophone, kControlMute), 1), ElementsAre(1));
}

TEST_P(MixerContract, WhatIsRefusedChangesNothingAndSaysWhy) {
  const std::uint32_t volume = Control(kComponentWaveOut, kControlVolume);
  const std::uint32_t mute = Control(kComponentMicrophone, kControlMute);
  for (const Values& values : {Values{}, Values{1, 2, 3}}) {
    EXPECT_EQ(Set(volume, values), kMixerInvalidParameter);
    EXPECT_EQ(Set(mute, values), kMixerInvalidParameter);
  }
  for (const std::uint32_t control : {0u, kNoSuchId, 0xFFFFFFFFu})
    EXPECT_EQ(Set(control, {1}), kMixerInvalidControl) << control;
  EXPECT_EQ(Set(Control(kComponentWaveOut, kControlPeakMeter), {1}), kMixerInvalidControl);
  EXPECT_EQ(Mixer().SetControlDetails(kNoSuchId, volume, {1}), kMixerInvalidHandle);
  EXPECT_THAT(Get(volume, 2), Each(65535));
  EXPECT_THAT(Get(mute, 1), ElementsAre(1));
}

TEST_P(MixerContract, AMeterIsSilentWithoutSound) {
  for (const auto component : kComponents)
    EXPECT_THAT(Get(Control(component, kControlPeakMeter), 1), ElementsAre(0));
}

TEST_P(MixerContract, AClosedHandleReachesNothing) {
  const std::uint32_t volume = Control(kComponentWaveOut, kControlVolume);
  const std::uint32_t line = Line(kComponentWaveOut).LineId;
  Mixer().Close(Handle);
  EXPECT_EQ(Set(volume, {0}), kMixerInvalidHandle);
  EXPECT_THAT(Get(volume, 2), IsEmpty());
  EXPECT_FALSE(Mixer().GetDestination(Handle, 0));
  EXPECT_FALSE(Mixer().GetSource(Handle, 0, 0));
  EXPECT_FALSE(Mixer().GetLineOfType(Handle, kComponentWaveOut));
  EXPECT_FALSE(Mixer().GetLineControl(Handle, line, kControlVolume));
  EXPECT_EQ(Mixer().GetNumDevs(), 1u);
  Mixer().Close(Handle);
  ASSERT_EQ(Mixer().Open(0, Handle), kMixerNoError);
  EXPECT_THAT(Get(volume, 2), Each(65535));
}

TEST_P(MixerContract, EachOpeningHasAHandleOfItsOwn) {
  std::uint32_t other = 0;
  ASSERT_EQ(Mixer().Open(0, other), kMixerNoError);
  EXPECT_NE(other, Handle);
  Mixer().Close(other);
  EXPECT_TRUE(Mixer().GetDestination(Handle, 0));
  EXPECT_FALSE(Mixer().GetDestination(other, 0));
}

}  // namespace
}  // namespace marlex
