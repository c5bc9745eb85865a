#include "core/settings_loader.h"

#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

using Prepare = std::function<void(SimulatedPc&)>;

Prepare With(const std::string& section, const std::string& key, const std::string& value) {
  return [=](SimulatedPc& pc) { pc.Profiles.WriteString(section, key, value, Desk::kIni); };
}

/// A settings file with only this text.
Prepare Ini(const std::string& text) {
  return [=](SimulatedPc& pc) { pc.Disk.AddFile(Desk::kIni, text); };
}

constexpr const char* kLeast =
    "[User language]\r\nLanguage=English\r\n[Selected paths]\r\nMusic directory=/music/\r\n";

TEST(SettingsLoader, EverySettingReachesItsValue) {
  Desk desk({.Music = {{"march"}},
             .Priority = "High",
             .FadeTime = "Slow",
             .AllDays = true,
             .ScheduleName = true,
             .StartTime = "09:00",
             .StopTime = "18:30",
             .WeekDays = "1030500",
             .LastSong = "4"},
            [](SimulatedPc& pc) {
              With("Chime selection", "PreChime", "ding")(pc);
              With("Chime selection", "PostChime", "dong")(pc);
              With("Used com port", "Com port", "2")(pc);
              With("Volume", "CD volume", "777")(pc);
            });
  const Settings& values = desk.Values();
  EXPECT_EQ(values.MusicDirectory, "/music/");
  EXPECT_EQ(values.MessageDirectory, "/messages/");
  EXPECT_EQ(values.ZoneNames, (std::array<std::string, 6>{"Hall", "Yard", "", "", "", ""}));
  EXPECT_EQ(values.PreChime, "ding");
  EXPECT_EQ(values.PostChime, "dong");
  EXPECT_EQ(values.ComPortSetting, "2");
  EXPECT_EQ(desk.Pc.Serial.CommPort(), 2);
  EXPECT_TRUE(values.RouterPresent);
  EXPECT_EQ(values.PriorityLevelText, "High");
  EXPECT_EQ(values.OwnPriorityLevel, 128);
  EXPECT_EQ(values.MusicVolume, 20000);
  EXPECT_EQ(values.MessageVolume, 10000);
  EXPECT_EQ(values.MasterVolume, 5000);
  EXPECT_EQ(values.MicroVolume, 15000);
  EXPECT_EQ(values.CdVolume, 777);
  EXPECT_EQ(values.FadeTime, 1500);
  EXPECT_TRUE(values.AllDaysView);
  EXPECT_TRUE(values.ScheduleNameView);
  EXPECT_EQ(values.CurrentPlaylistFile, Desk::kPlaylist);
  EXPECT_EQ(values.MusicStartTime, "09:00");
  EXPECT_EQ(values.MusicStopTime, "18:30");
  EXPECT_EQ(values.MusicWeekDays, "1030500");
  EXPECT_EQ(values.LastSongIndex, 4);
  EXPECT_TRUE(values.MusicScheduled);
}

TEST(SettingsLoader, AnAbsentKeyHasTheEffectOfItsTable) {
  Desk desk({}, Ini(kLeast));
  const Settings& values = desk.Values();
  EXPECT_EQ(values.MusicVolume, 0);
  EXPECT_EQ(values.MessageVolume, 0);
  EXPECT_EQ(values.MasterVolume, 0);
  EXPECT_EQ(values.MicroVolume, 0);
  EXPECT_EQ(values.FadeTime, 500);
  EXPECT_EQ(values.MessageDirectory, "");
  EXPECT_FALSE(values.AllDaysView);
  EXPECT_FALSE(values.ScheduleNameView);
  EXPECT_EQ(values.ZoneNames[0], "");
  EXPECT_EQ(values.PreChime, "");
  EXPECT_EQ(values.CurrentPlaylistFile, "");
  EXPECT_FALSE(values.RouterPresent);
  EXPECT_EQ(values.OwnPriorityLevel, 64);
  EXPECT_EQ(values.MusicRouting, "000000");
  EXPECT_FALSE(values.MusicScheduled);
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(SettingsLoader, TheTruthWordsAreComparedExactly) {
  for (const char* word : {"yes", "YES", "1", "True", "Yes!"}) {
    Desk desk({}, [&](SimulatedPc& pc) {
      With("Selected type", "QRT4410/20", word)(pc);
      With("Schedule", "All days", word)(pc);
      With("Schedule", "View", word)(pc);
    });
    EXPECT_FALSE(desk.Values().RouterPresent) << word;
    EXPECT_FALSE(desk.Values().AllDaysView) << word;
    EXPECT_FALSE(desk.Values().ScheduleNameView) << word;
  }
  EXPECT_EQ(Desk({.Priority = "high"}).Values().OwnPriorityLevel, 64);
  EXPECT_EQ(Desk({.FadeTime = "slow"}).Values().FadeTime, 500);
}

TEST(SettingsLoader, KeysAreFoundWhateverTheirCaseIs) {
  Desk desk(
      {},
      Ini("[user LANGUAGE]\r\nlanguage=English\r\n[SELECTED paths]\r\nmusic DIRECTORY=/music/\r\n"
          "[playlist]\r\nCurrent List=/app/x.lst\r\n"
          "[Routing]\r\nMusic routing=101000\r\nCall routing=010000\r\n"));
  EXPECT_EQ(desk.Values().CurrentPlaylistFile, "/app/x.lst");
  EXPECT_EQ(desk.Values().MusicRouting, "101000");
  EXPECT_EQ(desk.Values().CallRouting, "010000");
}

TEST(SettingsLoader, AnEmptyChimeIsNoChime) {
  Desk desk({}, Ini(std::string(kLeast) + "[Chime selection]\r\nPreChime=\r\nPostChime=dong\r\n"));
  EXPECT_EQ(desk.Values().PreChime, "");
  EXPECT_EQ(desk.Values().PostChime, "dong");
}

TEST(SettingsLoader, AnEmptyMusicDirectoryIsAFirstRunOnWhichNoOtherKeyCounts) {
  std::unique_ptr<Desk> desk = std::make_unique<Desk>(
      DeskOptions{.Music = {{"march"}}, .Priority = "High", .Autostart = "True"},
      [](SimulatedPc& pc) {
        With("Selected paths", "Music directory", "")(pc);
        With("Used com port", "Com port", "2")(pc);
      });
  EXPECT_EQ(desk->Values().MessageDirectory, "");
  EXPECT_EQ(desk->Values().CurrentPlaylistFile, "");
  EXPECT_FALSE(desk->Values().RouterPresent);
  EXPECT_EQ(desk->Pc.Serial.CommPort(), 1);
  EXPECT_FALSE(desk->Pc.Serial.PortOpen());
  EXPECT_FALSE(desk->Sys->TheFrmPlayers.tmrMessage.Enabled);
  EXPECT_FALSE(desk->Main().Visible);
  EXPECT_TRUE(desk->Sys->TheWindows.frmSettings.Visible);
}

TEST(SettingsLoader, TheProgramStartsWithAllLinesMutedAtTheStoredLevels) {
  Desk desk;
  EXPECT_EQ(desk.Pc.Mixer.Level(kComponentSpeakers), 65535u - 5000u);
  EXPECT_EQ(desk.Pc.Mixer.Level(kComponentWaveOut), 65535u - 20000u);
  EXPECT_EQ(desk.Pc.Mixer.Level(kComponentMicrophone), 65535u - 15000u);
  EXPECT_TRUE(desk.Pc.Mixer.Muted(kComponentSpeakers));
  EXPECT_TRUE(desk.Pc.Mixer.Muted(kComponentWaveOut));
  EXPECT_TRUE(desk.Pc.Mixer.Muted(kComponentMicrophone));
}

TEST(SettingsLoader, TheStoredLevelsReachACardThatStoodAnywhere) {
  for (const std::uint32_t level : {0u, 100u, 65535u}) {
    Desk desk({.MusicVolume = 0, .MasterVolume = 65535}, [&](SimulatedPc& pc) {
      pc.Mixer.Line(kComponentSpeakers)->Volume = {level, level};
      pc.Mixer.Line(kComponentWaveOut)->Volume = {level, level};
      pc.Mixer.Line(kComponentWaveOut)->Mute = 1;
    });
    EXPECT_EQ(desk.Pc.Mixer.Level(kComponentSpeakers), 0u);
    EXPECT_EQ(desk.Pc.Mixer.Level(kComponentWaveOut), 65535u);
    EXPECT_TRUE(desk.Pc.Mixer.Muted(kComponentWaveOut));
  }
}

TEST(SettingsLoader, VolumesThatAreNoNumbersShareOneBoxAndCountAsAbsent) {
  Desk desk({}, [](SimulatedPc& pc) {
    With("Volume", "Music volume", "loud")(pc);
    With("Volume", "Micro volume", "99999999999")(pc);
  });
  EXPECT_EQ(desk.Values().MusicVolume, 0);
  EXPECT_EQ(desk.Values().MicroVolume, 0);
  EXPECT_EQ(desk.Values().MessageVolume, 10000);
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Body,
            "These volumes are not numbers and count as missing:\r\nMusic volume=loud\r\nMicro "
            "volume=99999999999");
  EXPECT_TRUE(desk.Main().Visible);
}

TEST(SettingsLoader, AVolumeWithAFractionIsANumber) {
  Desk desk({}, With("Volume", "Music volume", "20000.4"));
  EXPECT_EQ(desk.Values().MusicVolume, 20000);
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(SettingsLoader, AVolumeOutsideTheSliderIsHeldAtItsEnd) {
  Desk desk({.MusicVolume = 70000, .MasterVolume = -5});
  EXPECT_EQ(desk.Values().MusicVolume, 65535);
  EXPECT_EQ(desk.Values().MasterVolume, 0);
}

TEST(SettingsLoader, TheNameOfThePlaylistEndsAtTheFirstPointOfItsPath) {
  Desk desk({}, [](SimulatedPc& pc) {
    With("Playlist", "Current List", "/shop.2/Day.lst")(pc);
    pc.Disk.AddFile("/shop.2/Day.lst",
                    "[Background music]\r\nStart time=09:00\r\nStop time=10:00\r\n");
  });
  EXPECT_EQ(desk.Values().MusicLabelText, "Background music playlist:/shop  09:00-10:00");
}

TEST(SettingsLoader, WithoutAStartTimeTheLabelHasNoTimes) {
  Desk desk({}, With("Playlist", "Current List", "/shop/Day.lst"));
  EXPECT_EQ(desk.Values().MusicLabelText, "Background music playlist:/shop/Day ");
  EXPECT_EQ(Desk().Values().MusicLabelText, "Background music playlist:");
}

TEST(SettingsLoader, ALongListOfSequencesLosesItsTailSilently) {
  std::string list;
  for (int file = 0; list.size() < 1600; ++file) list += "file" + std::to_string(file) + ".sch|";
  Desk desk({}, With("Current sequence list", "Sequence list", list));
  const ListBox& files = desk.Sys->TheFrmPlayers.SeqFileList;
  std::string read;
  for (int file = 0; file < files.ListCount(); ++file) read += (file ? "|" : "") + files.List(file);
  EXPECT_EQ(read, list.substr(0, 1499));
}

TEST(SettingsLoader, TheStartClearsThePriorityAndStopsAFade) {
  Desk desk({}, nullptr, false);
  desk.Sys->TheFrmPlayers.tmrFadeTime.Enabled = true;
  EXPECT_FALSE(desk.State().PriorityClear);
  desk.Start();
  EXPECT_FALSE(desk.Sys->TheFrmPlayers.tmrFadeTime.Enabled);
  EXPECT_TRUE(desk.State().PriorityClear);
}

TEST(SettingsLoader, WithoutTheRouterThePortNumberIsNotTouched) {
  Desk desk({.Router = false}, With("Used com port", "Com port", "2"));
  EXPECT_EQ(desk.Pc.Serial.CommPort(), 1);
  EXPECT_FALSE(desk.Pc.Serial.PortOpen());
}

TEST(SettingsLoader, UnknownKeysAndCommentsSurviveARunOfTheProgram) {
  const std::string text =
      std::string("; of this shop\r\n") + kLeast + "Colour = blue\r\n[Other]\r\nx=1\r\n";
  Desk desk({}, Ini(text));
  desk.Click("mnuExit");
  EXPECT_EQ(desk.Pc.Disk.Read(Desk::kIni), text + "[Routing]\r\nMusic routing=000000\r\n");
}

TEST(SettingsLoader, SettingsThatCannotBeWrittenAreReportedOnceAndNothingIsLost) {
  Desk desk({.Music = {{"march"}}});
  const auto before = desk.Pc.Disk.Read(Desk::kIni);
  desk.Pc.Disk.FailWrites("/app");
  desk.Click("cmdMusicZones_5");
  desk.Advance(0);
  desk.Click("mnuAllDays");
  desk.Click("cmdPlay");
  desk.Advance(1000);
  EXPECT_EQ(desk.Pc.Disk.Read(Desk::kIni), before);
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Caption, "Error");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Body, "The settings cannot be saved: /app/Tolvo.ini");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(SettingsLoader, AWriteWithNothingToChangeProvesNothing) {
  Desk desk({}, With("Zone names", "Zone:1", "K\xFC\x63he"));
  desk.Pc.Disk.FailWrites("/app");
  desk.Click("mnuAllDays");
  desk.Do([&] {
    desk.Sys->Store.Write(keys::kRouter, "Yes");
    desk.Sys->Store.Write({keys::kZoneNames, keys::ZoneName(0)}, "Küche");
  });
  desk.Click("mnuCurrentDay");
  desk.Click("mnuAllDays");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
}

TEST(SettingsLoader, AFaultThatComesAgainAfterAWriteIsReportedAgain) {
  Desk desk;
  for (int fault = 0; fault < 2; ++fault) {
    desk.Pc.Disk.FailWrites("/app");
    desk.Click("mnuAllDays");
    desk.Click("mnuAllDays");
    desk.Pc.Disk.Heal("/app");
    desk.Click("mnuAllDays");
  }
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 2u);
}

TEST(SettingsLoader, APlaylistOnAProtectedDiskIsNothingToTell) {
  Desk desk({.Music = {{"march"}}});
  desk.Pc.Disk.FailWrites(Desk::kPlaylist);
  desk.Click("cmdPlay");
  desk.Advance(1000);
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(SettingsLoader, ASettingsFileThatCannotBeReadIsNotOverwrittenWithDefaults) {
  Desk desk({}, [](SimulatedPc& pc) { pc.Disk.FailReads(Desk::kIni); });
  desk.Click("cmdOK");  // of the language dialog that an empty language brings
  desk.Pc.Disk.Heal(Desk::kIni);
  EXPECT_EQ(desk.Setting("Selected paths", "Music directory"), "/music/");
}

}  // namespace
}  // namespace marlex
