#include "simulation/simulated_mixer.h"

#include <gtest/gtest.h>

#include "simulation/simulated_pc.h"

namespace marlex {
namespace {

using Values = std::vector<std::uint32_t>;

/// A PC whose first mixer is open.
struct MixerDesk {
  MixerDesk() { Pc.Mixer.Open(0, Handle); }

  std::uint32_t ControlOf(std::uint32_t componentType, std::uint32_t controlType) {
    const std::uint32_t line = Pc.Mixer.GetLineOfType(Handle, componentType)->LineId;
    return Pc.Mixer.GetLineControl(Handle, line, controlType).value_or(0);
  }

  SimulatedPc Pc;
  std::uint32_t Handle = 0;
};

TEST(SimulatedMixer, TheLevelIsThatOfTheLouderChannel) {
  MixerDesk desk;
  const std::uint32_t volume = desk.ControlOf(kComponentWaveOut, kControlVolume);
  desk.Pc.Mixer.SetControlDetails(desk.Handle, volume, {100, 200});
  EXPECT_EQ(desk.Pc.Mixer.Level(kComponentWaveOut), 200u);
  EXPECT_FALSE(desk.Pc.Mixer.Muted(kComponentWaveOut));
  EXPECT_TRUE(desk.Pc.Mixer.Muted(kComponentMicrophone));
}

TEST(SimulatedMixer, MeterReadsWhatTheTestSets) {
  MixerDesk desk;
  const std::uint32_t meter = desk.ControlOf(kComponentWaveOut, kControlPeakMeter);
  desk.Pc.Mixer.Line(kComponentWaveOut)->Peak = {7, 9};
  EXPECT_EQ(desk.Pc.Mixer.GetControlDetails(desk.Handle, meter, 2), (Values{7, 9}));
  EXPECT_NE(desk.Pc.Mixer.SetControlDetails(desk.Handle, meter, {1, 1}), kMixerNoError);
}

TEST(SimulatedMixer, EveryFailureCanBeSwitchedOn) {
  SimulatedPc pc;
  std::uint32_t handle = 0;
  MixerCaps caps;
  pc.Mixer.OpenResult = 4;
  EXPECT_EQ(pc.Mixer.Open(0, handle), 4u);
  pc.Mixer.OpenResult = kMixerNoError;
  pc.Mixer.CapsResult = 5;
  EXPECT_EQ(pc.Mixer.GetDevCaps(0, caps), 5u);
  pc.Mixer.Devices.clear();
  EXPECT_EQ(pc.Mixer.GetNumDevs(), 0u);
  EXPECT_NE(pc.Mixer.Open(0, handle), kMixerNoError);
}

TEST(SimulatedMixer, LineWithoutAControlHasNoneToFind) {
  MixerDesk desk;
  desk.Pc.Mixer.Line(kComponentMicrophone)->HasVolume = false;
  desk.Pc.Mixer.Line(kComponentWaveOut)->HasMute = false;
  EXPECT_EQ(desk.ControlOf(kComponentMicrophone, kControlVolume), 0u);
  EXPECT_EQ(desk.ControlOf(kComponentWaveOut, kControlMute), 0u);
  EXPECT_NE(desk.ControlOf(kComponentWaveOut, kControlVolume), 0u);
}

TEST(SimulatedMixer, CardMayHaveTwelveSources) {
  MixerDesk desk;
  constexpr std::uint32_t kLineInput = 4098;
  for (int i = 3; i <= 12; ++i) desk.Pc.Mixer.AddSource(kLineInput, "Line " + std::to_string(i));
  EXPECT_EQ(desk.Pc.Mixer.GetDestination(desk.Handle, 0)->Connections, 12u);
  EXPECT_EQ(desk.Pc.Mixer.GetSource(desk.Handle, 0, 11)->Name, "Line 12");
}

TEST(SimulatedMixer, JournalShowsEveryCallWhenItIsAskedTo) {
  MixerDesk desk;
  desk.Pc.Journal.Only({"mixer"});
  const std::uint32_t volume = desk.ControlOf(kComponentWaveOut, kControlVolume);
  desk.Pc.Mixer.SetControlDetails(desk.Handle, volume, {100, 200});
  const std::uint32_t mute = desk.ControlOf(kComponentSpeakers, kControlMute);
  desk.Pc.Mixer.SetControlDetails(desk.Handle, mute, {1});
  EXPECT_EQ(desk.Pc.Journal.Text(), "0 mixer volume wave 100 200\n0 mixer mute speakers 1\n");
}

}  // namespace
}  // namespace marlex
