#include <gtest/gtest.h>

#include "desk/desk.h"
#include "mixer/mixer_access.h"

namespace marlex {
namespace {

/// A line of the card for neither music nor speech.
constexpr std::uint32_t kComponentLine = 4098;

void ExpectAQuietStart(Desk& desk) {
  EXPECT_TRUE(desk.Main().Visible);
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(OddCards, ALineWhoseTypeTheCardDoesNotFindHasNoControls) {
  Desk desk({}, [](SimulatedPc& pc) { pc.Mixer.HiddenTypes = {kComponentMicrophone}; });
  ExpectAQuietStart(desk);
  EXPECT_EQ(desk.Sys->Mixer.SourceLineCount, 2);
  EXPECT_EQ(desk.Sys->Mixer.WaveLine, 1);
  EXPECT_EQ(desk.Sys->Mixer.MicLine, 0);
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[2].VolumeControlId, 0u);
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[2].MuteControlId, 0u);
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[2].MeterControlId, 0u);
  EXPECT_EQ(desk.Sys->TheFrmMxr.LblName[2].Caption.Get(), "Microphone");
  EXPECT_FALSE(desk.Sys->TheFrmMxr.SldrVol[2].Enabled);
  EXPECT_FALSE(desk.Sys->TheFrmMxr.ChkMute[2].Enabled);
  EXPECT_FALSE(desk.Main().cmdCall.Visible);
}

TEST(OddCards, ASourceThatCannotBeReadIsPassedOverWithoutAWord) {
  Desk desk({.Music = {{"march"}}}, [](SimulatedPc& pc) { pc.Mixer.LostSources = {0}; });
  ExpectAQuietStart(desk);
  EXPECT_EQ(desk.Sys->Mixer.SourceLineCount, 2);
  EXPECT_EQ(desk.Sys->Mixer.WaveLine, 0);
  EXPECT_EQ(desk.Sys->Mixer.MicLine, 2);
  EXPECT_EQ(desk.Sys->TheFrmMxr.LblName[1].Caption.Get(), "");
  EXPECT_FALSE(desk.Sys->TheFrmMxr.SldrVol[1].Enabled);
  EXPECT_FALSE(desk.Sys->TheFrmMxr.ChkMute[1].Enabled);
  EXPECT_EQ(desk.Sys->TheFrmMxr.LblName[2].Caption.Get(), "Microphone");
  // The music's level acts on the master line.
  EXPECT_EQ(desk.Pc.Mixer.Level(kComponentSpeakers), 65535u - 20000u);
}

TEST(OddCards, ALevelThatCannotBeReadCountsAsSilence) {
  Desk desk({.Music = {{"march"}}}, [](SimulatedPc& pc) {
    pc.Mixer.UnreadableTypes = {kControlVolume, kControlMute};
    pc.Mixer.AddSource(kComponentLine, "Line").Mute = 1;
  });
  ExpectAQuietStart(desk);
  EXPECT_EQ(desk.Sys->Mixer.WaveLine, 1);
  EXPECT_EQ(desk.Sys->Mixer.MicLine, 2);
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[3].Level, 65535u);
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[3].Mute, 0u);
  EXPECT_TRUE(desk.Sys->TheFrmMxr.SldrVol[3].Enabled);
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(OddCards, ALineOfSixChannelsTakesOneValueAndNoBalance) {
  Desk desk({}, [](SimulatedPc& pc) { pc.Mixer.AddSource(kComponentLine, "Six", 6); });
  FrmMxr& panel = desk.Sys->TheFrmMxr;
  desk.Pc.Journal.Only({"mixer"});
  desk.Pc.Journal.Clear();
  desk.Do([&] { panel.SldrVol[3].Value = 535; });
  EXPECT_EQ(desk.TakeJournal(), "0 mixer volume Six 65000\n");
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[3].Level, 65000u);
  desk.Do([&] { panel.SldrPan[3].Value = 100; });
  EXPECT_EQ(desk.TakeJournal(), "0 mixer volume Six 65000\n");
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[3].LeftLevel, 0u);
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[3].RightLevel, 0u);
}

}  // namespace
}  // namespace marlex
