// Names that a profile file does not return as they were written.

#include <gtest/gtest.h>

#include "core/settings_desk.h"

namespace marlex {
namespace {

constexpr const char* kFile = "/app/new.lst";

/// A desk with a song of this name, which the operator puts into a playlist and opens again.
void SaveAndOpen(Desk& desk, const std::string& song) {
  FrmPlaylist& editor = desk.Sys->TheWindows.frmPlaylist;
  desk.Click("mnuPlaylist");
  desk.Choose(editor.AvailMP3s, song);
  desk.Pc.Dialogs.OpenResults = {kFile, kFile};
  desk.Do([&] { editor.mnuSave.OnClick(); });
  desk.Advance(0);
  desk.Do([&] { desk.Main().mnuOpen.OnClick(); });
  desk.Advance(0);
}

TEST(OddNames, OfSongsInQuotesOrWithBlanksSurviveSaving) {
  for (const char* song : {"'Hello'", "\"Hello\"", "'", "''", "Hello ", " Hello", "'Hello", " '"}) {
    Desk desk({.Music = {{song}}});
    SaveAndOpen(desk, song);
    EXPECT_EQ(desk.Main().lstPlaylist.List(0), song);
    desk.Click("cmdPlay");
    EXPECT_EQ(desk.Heard(), std::string("song ") + song + ".mp3 at 20000");
  }
}

TEST(OddNames, AreWrittenInsideOneMorePairOfQuotes) {
  Desk desk({.Music = {{"'Hello'"}, {"don't"}}});
  SaveAndOpen(desk, "'Hello'");
  EXPECT_EQ(desk.Pc.Disk.Read(kFile)->find("Song:1=\"'Hello'\"\r\n") != std::string::npos, true);
  SaveAndOpen(desk, "don't");
  EXPECT_EQ(desk.Pc.Disk.Read(kFile)->find("Song:1=don't\r\n") != std::string::npos, true);
}

TEST(OddNames, OfMessagesSurviveSaving) {
  Desk desk({.Messages = {{"'one", 1000}, {"two'", 1000}}});
  desk.Click("mnuSchedule");
  WavWindow& editor = desk.Sys->TheWindows.TheWavWindow;
  desk.Choose(editor.AvailWavs, "'one");
  desk.Choose(editor.AvailWavs, "two'");
  desk.Do([&] {
    editor.txtHours.Text = "12";
    editor.txtMinutes.Text = "30";
  });
  desk.Click("WkDays_0");
  desk.Pc.Dialogs.OpenResults = {"/app/new.sch"};
  desk.Click("mnuSave");
  desk.Advance(0);
  EXPECT_EQ(desk.Setting("Schedule", "Message(s)", "/app/new.sch"), "'one,two'");
  EXPECT_EQ(desk.Setting("Schedule", "Hour(s)", "/app/new.sch"), "12");
}

TEST(OddNames, OfAnOpenPlaylistSurviveARestart) {
  for (const std::string file : {"/app/day.lst ", "/app/day.lst\t"}) {
    Desk desk({},
              [&](SimulatedPc& pc) { pc.Disk.AddFile(file, "[Playlist]\r\nSong:1=march\r\n"); });
    desk.Pc.Dialogs.OpenResults = {file};
    desk.Do([&] { desk.Main().mnuOpen.OnClick(); });
    desk.Advance(0);
    desk.Restart();
    EXPECT_EQ(desk.Values().CurrentPlaylistFile, file);
    EXPECT_EQ(desk.Main().lstPlaylist.List(0), "march");
  }
}

TEST(OddNames, OfOpenSequencesSurviveSaving) {
  Desk desk({.Sequences = {{.File = " first.sch"}, {.File = "second.sch"}}});
  desk.Pc.Dialogs.OpenResults = {"/app/  first.sch second.sch"};
  desk.Click("mnuSequence");
  desk.Restart();
  EXPECT_EQ(desk.Sys->TheFrmPlayers.SeqFileList.List(0), " first.sch");
  EXPECT_EQ(desk.Sys->TheFrmPlayers.SeqFileList.List(1), "second.sch");
}

TEST(OddNames, OfZonesAndChimesSurviveSaving) {
  SettingsDesk desk({.Messages = {{"'ding'", 1000}}});
  desk.Open();
  desk.Type(desk.TheFrmSettings().txtZoneName[0], "\"A\"");
  desk.Do([&] { desk.TheFrmSettings().chkPreChime.Value = 1; });
  desk.Click("cmdPreSelect");
  desk.Choose(desk.ChimeSelect().lstChimeList, "'ding'.wav");
  desk.Click("cmdOK");
  desk.Click("cmdOK");
  desk.Restart();
  EXPECT_EQ(desk.Text("lblZoneName_0"), "\"A\"");
  EXPECT_EQ(desk.Values().PreChime, "'ding'");
}

TEST(OddNames, WithALineEndAreNotOffered) {
  Desk desk({.Music = {{"march"}, {"two\nlines"}, {"two\rlines"}}}, [](SimulatedPc& pc) {
    pc.Disk.AddFile("/music/sub\ndirectory/a.mp3");
    pc.Disk.AddFile("/music/sub/a.mp3");
  });
  desk.Click("mnuPlaylist");
  EXPECT_EQ(desk.Sys->TheWindows.frmPlaylist.AvailMP3s.ListCount(), 1);
  EXPECT_EQ(desk.Pc.Disk.Subdirectories("/music"), std::vector<std::string>{"sub"});
}

}  // namespace
}  // namespace marlex
