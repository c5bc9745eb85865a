#include "mixer/mixer_access.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

using testing::HasSubstr;
using Prepare = std::function<void(SimulatedPc&)>;

/// The calls to the mixer that `action` causes on a running desk.
std::string CallsOf(Desk& desk, const std::function<void()>& action) {
  desk.Pc.Journal.Only({"mixer"});
  desk.Pc.Journal.Clear();
  desk.Do(action);
  return desk.TakeJournal();
}

std::vector<SimulatedLine>& Sources(SimulatedPc& pc) {
  return pc.Mixer.Devices.front().Destinations.front().Sources;
}

TEST(MixerAccess, RecordsTheMasterAndItsSourcesInTheirOrder) {
  Desk desk({}, [](SimulatedPc& pc) {
    pc.Mixer.AddSource(4101, std::string("Disc player\0rest", 16));
    pc.Mixer.Devices.front().ProductName = std::string("Card 3\0rest", 11);
  });
  const MixerAccess& mixer = desk.Sys->Mixer;
  EXPECT_EQ(mixer.MixerName, "Card 3");
  EXPECT_EQ(mixer.LastDestinationIndex, 0);
  EXPECT_EQ(mixer.SourceLineCount, 3);
  EXPECT_EQ(mixer.MixerLines.size(), 4u);
  EXPECT_EQ(mixer.WaveLine, 1);
  EXPECT_EQ(mixer.MicLine, 2);
  std::string names;
  for (int line = 0; line < 4; ++line)
    names += desk.Sys->TheFrmMxr.LblName[line].Caption.Get() + "|";
  EXPECT_EQ(names, "Speakers|Wave|Microphone|Disc player|");
  EXPECT_EQ(mixer.MixerLines[1].Channels, 2u);
  EXPECT_EQ(mixer.MixerLines[2].Channels, 1u);
  for (const MixerLineRecord& line : mixer.MixerLines) {
    EXPECT_NE(line.VolumeControlId, 0u);
    EXPECT_NE(line.MuteControlId, 0u);
    EXPECT_NE(line.MeterControlId, 0u);
  }
}

TEST(MixerAccess, ALevelAtStartIsKeptAsASliderPosition) {
  Desk desk({}, [](SimulatedPc& pc) {
    pc.Mixer.AddSource(4101, "Disc player").Volume = {1000, 3000};
    pc.Mixer.AddSource(4102, "Line").Mute = 1;
  });
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[3].Level, 64535u);
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[3].Mute, 0u);
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[4].Mute, 1u);
}

TEST(MixerAccess, TheLevelsOfTheSettingsAreSentToALineThatHasThemAlready) {
  Desk desk({.MasterVolume = 5000}, [](SimulatedPc& pc) {
    SimulatedLine& speakers = *pc.Mixer.Line(kComponentSpeakers);
    speakers.Volume = {60535, 60535};
    speakers.Mute = 1;
    pc.Journal.Unmute("mixer");
  });
  EXPECT_THAT(desk.Journal(), HasSubstr("mixer volume speakers 60535 60535\n"));
  EXPECT_THAT(desk.Journal(), HasSubstr("mixer mute speakers 1\n"));
}

TEST(MixerAccess, ABalanceSendsNoLevelBeforeTheFirstOneIsSet) {
  Desk desk({}, [](SimulatedPc& pc) {
    pc.Mixer.AddSource(4101, "Disc player").Volume = {1000, 3000};
    pc.Journal.Unmute("mixer");
  });
  FrmMxr& panel = desk.Sys->TheFrmMxr;
  desk.TakeJournal();
  panel.SldrPan[3].Value = 50;
  EXPECT_EQ(desk.Journal(), "");
  panel.SldrVol[3].Value = 64535;  // where the line is already
  EXPECT_THAT(desk.Journal(), HasSubstr("mixer volume"));
}

TEST(MixerAccess, ALineThatTheMixerDoesNotHaveIsABrokenRule) {
  Desk desk;
  EXPECT_THROW(desk.Sys->Mixer.SetLineVolume(3), RuntimeFailure);
  EXPECT_THROW(desk.Sys->Mixer.SetLineMute(3), RuntimeFailure);
}

TEST(MixerAccess, LooksForTheSpeakersAmongAllDestinations) {
  Desk desk({}, [](SimulatedPc& pc) {
    SimulatedMixerDevice& device = pc.Mixer.Devices.front();
    SimulatedDestination recording{{7, "Recording"}, {{kComponentMicrophone, "Microphone", 1}}};
    device.Destinations.insert(device.Destinations.begin(), recording);
  });
  EXPECT_EQ(desk.Sys->Mixer.LastDestinationIndex, 1);
  EXPECT_EQ(desk.Sys->Mixer.SourceLineCount, 2);
  EXPECT_EQ(desk.Sys->TheFrmMxr.LblName[0].Caption.Get(), "Speakers");
}

TEST(MixerAccess, WithoutSpeakersTheStartGoesOnWithEmptyRecords) {
  Desk desk({.Music = {{"march"}}, .Router = false}, [](SimulatedPc& pc) {
    pc.Mixer.Devices.front().Destinations.front().Line.ComponentType = 7;
  });
  EXPECT_TRUE(desk.Main().Visible);
  EXPECT_TRUE(desk.Sys->Mixer.MixerLines.empty());
  EXPECT_EQ(desk.Sys->Mixer.MicLine, 0);
  EXPECT_EQ(desk.Sys->Mixer.WaveLine, 0);
  EXPECT_FALSE(desk.Main().frCall.Visible);
  EXPECT_FALSE(desk.Main().cmdCall.Visible);
  EXPECT_EQ(CallsOf(desk,
                    [&] {
                      desk.Sys->TheFrmMxr.SldrVol[0].Value = 1;
                      desk.Sys->TheFrmMxr.ChkMute[0].Value = 0;
                    }),
            "");
  desk.Click("cmdPlay");
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(MixerAccess, TheFirstMicrophoneThatHasAVolumeIsTheMicrophone) {
  const auto secondMicrophone = [](bool firstHasVolume) {
    return [=](SimulatedPc& pc) {
      pc.Mixer.Line(kComponentMicrophone)->HasVolume = firstHasVolume;
      pc.Mixer.AddSource(kComponentMicrophone, "Front microphone", 1);
    };
  };
  EXPECT_EQ(Desk({}, secondMicrophone(true)).Sys->Mixer.MicLine, 2);
  EXPECT_EQ(Desk({}, secondMicrophone(false)).Sys->Mixer.MicLine, 3);
}

TEST(MixerAccess, TheFirstWaveOutputThatHasAVolumeIsTheWaveLine) {
  const auto secondWave = [](bool firstHasVolume) {
    return [=](SimulatedPc& pc) {
      pc.Mixer.Line(kComponentWaveOut)->HasVolume = firstHasVolume;
      pc.Mixer.AddSource(kComponentWaveOut, "Second wave");
    };
  };
  EXPECT_EQ(Desk({}, secondWave(true)).Sys->Mixer.WaveLine, 1);
  EXPECT_EQ(Desk({}, secondWave(false)).Sys->Mixer.WaveLine, 3);
}

TEST(MixerAccess, AMicrophoneWithoutAVolumeIsNoneAndHidesTheCallStation) {
  Desk desk({}, [](SimulatedPc& pc) { pc.Mixer.Line(kComponentMicrophone)->HasVolume = false; });
  EXPECT_EQ(desk.Sys->Mixer.MicLine, 0);
  EXPECT_EQ(desk.Sys->Mixer.SourceLineCount, 2);
  EXPECT_FALSE(desk.Main().cmdCall.Visible);
}

TEST(MixerAccess, OnlyTheFirstTenSourcesAreSeen) {
  Desk desk({.Music = {{"march"}}, .MasterVolume = 1000}, [](SimulatedPc& pc) {
    Sources(pc).clear();
    for (int source = 1; source <= 10; ++source)
      pc.Mixer.AddSource(4102, "Line " + std::to_string(source));
    pc.Mixer.AddSource(kComponentMicrophone, "Microphone", 1);
    pc.Mixer.AddSource(kComponentWaveOut, "Wave");
  });
  const MixerAccess& mixer = desk.Sys->Mixer;
  EXPECT_EQ(mixer.SourceLineCount, 10);
  EXPECT_EQ(mixer.MixerLines.size(), 11u);
  EXPECT_EQ(desk.Sys->TheFrmMxr.LblName[10].Caption.Get(), "Line 10");
  EXPECT_EQ(mixer.MicLine, 0);
  EXPECT_EQ(mixer.WaveLine, 0);
  // The music's level acts on the master line.
  EXPECT_EQ(desk.Pc.Mixer.Level(kComponentSpeakers), 65535u - 20000u);
}

TEST(MixerAccess, ALineWithoutAVolumeOrAMuteHasThatControlDisabled) {
  Desk desk({}, [](SimulatedPc& pc) {
    pc.Mixer.Line(kComponentSpeakers)->HasVolume = false;
    pc.Mixer.Line(kComponentWaveOut)->HasMute = false;
    pc.Mixer.Line(kComponentWaveOut)->HasMeter = false;
  });
  FrmMxr& panel = desk.Sys->TheFrmMxr;
  EXPECT_FALSE(panel.SldrVol[0].Enabled);
  EXPECT_TRUE(panel.ChkMute[0].Enabled);
  EXPECT_TRUE(panel.SldrVol[1].Enabled);
  EXPECT_FALSE(panel.ChkMute[1].Enabled);
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[0].VolumeControlId, 0u);
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[1].MuteControlId, 0u);
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[1].MeterControlId, 0u);
}

TEST(MixerAccess, TheLevelsOfTheSettingsReachALineThatWasOutOfBalance) {
  // Another program has moved the balance to the left: the left channel has the level that we would
  // set.
  Desk desk({.MasterVolume = 5000}, [](SimulatedPc& pc) {
    pc.Mixer.Line(kComponentSpeakers)->Volume = {60535, 20000};
  });
  EXPECT_EQ(desk.Pc.Mixer.Line(kComponentSpeakers)->Volume,
            (std::array<std::uint32_t, 2>{60535, 60535}));
}

TEST(MixerAccess, AStereoLineTakesItsLevelOnBothChannels) {
  Desk desk;
  EXPECT_EQ(CallsOf(desk, [&] { desk.Sys->TheFrmMxr.SldrVol[1].Value = 535; }),
            "0 mixer volume wave 65000 65000\n");
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[1].LeftLevel, 65000u);
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[1].RightLevel, 65000u);
}

TEST(MixerAccess, TheBalanceTakesFromTheFarSideInProportion) {
  Desk desk;
  FrmMxr& panel = desk.Sys->TheFrmMxr;
  const auto at = [&](int balance) {
    panel.SldrPan[1].Value = 0;
    return CallsOf(desk, [&] { panel.SldrPan[1].Value = balance; });
  };
  panel.SldrVol[1].Value = 5535;
  EXPECT_EQ(at(100), "0 mixer volume wave 0 60000\n");
  EXPECT_EQ(at(-100), "0 mixer volume wave 60000 0\n");
  EXPECT_EQ(at(25), "0 mixer volume wave 45000 60000\n");
  EXPECT_EQ(at(-25), "0 mixer volume wave 60000 45000\n");
}

TEST(MixerAccess, AnExactHalfOfALevelGoesToTheEvenNeighbour) {
  Desk desk;
  FrmMxr& panel = desk.Sys->TheFrmMxr;
  panel.SldrPan[1].Value = 50;
  EXPECT_EQ(CallsOf(desk, [&] { panel.SldrVol[1].Value = 65535 - 5; }),
            "0 mixer volume wave 2 5\n");
  EXPECT_EQ(CallsOf(desk, [&] { panel.SldrVol[1].Value = 65535 - 7; }),
            "0 mixer volume wave 4 7\n");
  panel.SldrPan[1].Value = -50;
  EXPECT_EQ(CallsOf(desk, [&] { panel.SldrVol[1].Value = 65535 - 5; }),
            "0 mixer volume wave 5 2\n");
}

TEST(MixerAccess, AMonoLineIgnoresItsBalance) {
  Desk desk;
  FrmMxr& panel = desk.Sys->TheFrmMxr;
  panel.SldrPan[2].Value = 100;
  EXPECT_EQ(CallsOf(desk, [&] { panel.SldrVol[2].Value = 535; }),
            "0 mixer volume microphone 65000\n");
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[2].Level, 65000u);
}

TEST(MixerAccess, AMuteIsSentAsOneValue) {
  Desk desk;
  EXPECT_EQ(CallsOf(desk, [&] { desk.Sys->TheFrmMxr.ChkMute[0].Value = 0; }),
            "0 mixer mute speakers 0\n");
  EXPECT_EQ(CallsOf(desk, [&] { desk.Sys->TheFrmMxr.ChkMute[0].Value = 1; }),
            "0 mixer mute speakers 1\n");
  EXPECT_EQ(desk.Sys->Mixer.MixerLines[0].Mute, 1u);
}

/// A start on a PC prepared like this, which ends in a box.
SimulatedDialogs::MessageBox FatalBox(const Prepare& prepare) {
  Desk desk({}, prepare);
  EXPECT_TRUE(desk.Pc.Process.Ended());
  EXPECT_FALSE(desk.Main().Visible);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  if (desk.Pc.Dialogs.Boxes.empty()) return {};
  const SimulatedDialogs::MessageBox& box = desk.Pc.Dialogs.Boxes.front();
  EXPECT_EQ(box.Caption, "Volume ControlError");
  EXPECT_EQ(box.Icon, BoxIcon::Critical);
  return box;
}

TEST(MixerAccess, AfterARefusalAnEqualSettingIsSentAgain) {
  Desk desk;
  const auto open = [&] {
    desk.Do([&] {
      desk.Sys->Lines.OpenWave();
      desk.Sys->Lines.SetWave(1234);
    });
  };
  desk.Pc.Mixer.RefusesSettings = true;
  open();
  desk.Pc.Mixer.RefusesSettings = false;
  EXPECT_TRUE(desk.Pc.Mixer.Muted(kComponentWaveOut));
  open();
  EXPECT_FALSE(desk.Pc.Mixer.Muted(kComponentWaveOut));
  EXPECT_EQ(desk.Pc.Mixer.Level(kComponentWaveOut), 65535u - 1234);
}

TEST(MixerAccess, WithoutAMixerTheProgramSaysSoAndEnds) {
  EXPECT_EQ(FatalBox([](SimulatedPc& pc) { pc.Mixer.Devices.clear(); }).Body,
            "Unable to detect a mixer:\r\nPossible causes:\r\n"
            "No sound card present or correct drivers not installed\r\n\r\nTerminating...");
}

TEST(MixerAccess, WithAMixerThatCannotBeOpenedTheProgramSaysSoAndEnds) {
  EXPECT_EQ(FatalBox([](SimulatedPc& pc) { pc.Mixer.OpenResult = 4; }).Body,
            "Unable to open mixer.\r\n\r\nTerminating...");
}

TEST(MixerAccess, WithAMixerOfUnknownCapabilitiesTheProgramSaysSoAndEnds) {
  EXPECT_EQ(FatalBox([](SimulatedPc& pc) { pc.Mixer.CapsResult = 4; }).Body,
            "Unable to acquire mixer capabilities.\r\n\r\nTerminating...");
}

TEST(MixerAccess, TheProgramEndsOnlyWhenTheBoxIsAnswered) {
  Desk desk({}, [](SimulatedPc& pc) {
    pc.Mixer.Devices.clear();
    pc.Dialogs.AnswerAfterMs = 60'000;
  });
  desk.Advance(59'999);
  EXPECT_FALSE(desk.Pc.Process.Ended());
  desk.Advance(1);
  EXPECT_TRUE(desk.Pc.Process.Ended());
}

TEST(MixerAccess, AMixerThatVanishesWhileTheProgramRunsGoesUnnoticed) {
  Desk desk({.Music = {{"march"}}});
  desk.Pc.Mixer.Devices.clear();
  desk.Click("cmdPlay");
  desk.Click("cmdStop");
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
  EXPECT_TRUE(desk.Main().Visible);
}

}  // namespace
}  // namespace marlex
