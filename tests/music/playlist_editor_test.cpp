#include "music/playlist_editor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "desk/deeds.h"
#include "i18n/with_texts.h"
#include "music/playlist_desk.h"

namespace marlex {
namespace {

TEST(PlaylistEditor, OpensOnTheSongsOfTheDirectoryWithAnEmptyList) {
  PlaylistDesk desk;
  EXPECT_TRUE(desk.TheFrmPlaylist().Visible);
  EXPECT_EQ(desk.TheFrmPlaylist().Caption.Get(), "Music playlist:");
  EXPECT_EQ(desk.Available(), "a b c");
  EXPECT_EQ(desk.Selected(), "");
  EXPECT_EQ(desk.SongButtons(), "RemAll_Key");
  EXPECT_EQ(desk.Choice(), "Autostart");
  EXPECT_EQ(desk.Times(), "(__:__-__:__ -------)");
  EXPECT_EQ(desk.Boxes(), "");
}

TEST(PlaylistEditor, LeavesTheMainWindowFree) {
  PlaylistDesk desk;
  EXPECT_EQ(desk.Entries(), "a b c");
  desk.Add({"c"});
  desk.Click("cmdPlay");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
  EXPECT_EQ(desk.Entries(), "a b c");
  EXPECT_EQ(desk.Selected(), "c");
}

TEST(PlaylistEditor, TheTimeListsHoldEveryHourAndEveryMinuteAtTheirIndex) {
  PlaylistDesk desk;
  FrmPlaylist& form = desk.TheFrmPlaylist();
  for (ComboBox* hours : {&form.cmbStartHours, &form.cmbStopHours}) {
    ASSERT_EQ(hours->ListCount(), 24);
    EXPECT_EQ(hours->List(0), "00");
    EXPECT_EQ(hours->List(9), "09");
    EXPECT_EQ(hours->List(23), "23");
  }
  for (ComboBox* minutes : {&form.cmbStartMinutes, &form.cmbStopMinutes}) {
    ASSERT_EQ(minutes->ListCount(), 60);
    EXPECT_EQ(minutes->List(5), "05");
    EXPECT_EQ(minutes->List(59), "59");
  }
}

/// Every text that a control shows, by the control's name.
std::string Captions(FrmPlaylist& form) {
  std::string texts;
  for (Control* control : form.Controls) {
    const auto* visual = dynamic_cast<VisualControl*>(control);
    if (visual && !visual->Caption.Get().empty())
      texts += visual->ObjectName() + ": " + visual->Caption.Get() + "\n";
  }
  return texts;
}

TEST(PlaylistEditor, ItsTextsComeFromTheTable) {
  const std::string english =
      "mnuFile: File\n"
      "mnuOpen: Open playlist\n"
      "mnuSave: Save playlist\n"
      "mnuExit: Exit\n"
      "frMessageSelection: Background music selection\n"
      "WavText: Available music\n"
      "cmdSelectAll: Select all\n"
      "Label3: Selected music\n"
      "RemoveKey: Remove\n"
      "RemAll_Key: Remove all\n"
      "cmdRandomize: Randomize\n"
      "PrevKey: Play\n"
      "Frame1: Background music start\n"
      "optScheduled_0: Scheduled\n"
      "optScheduled_1: Manual\n"
      "optScheduled_2: Autostart\n"
      "frMusicTime: Background music schedule\n"
      "Label1: Starts at:\n"
      "Label2: Stops at:\n"
      "Label5:  M  T  W   T   F   S   S\n";
  PlaylistDesk desk;
  EXPECT_EQ(Captions(desk.TheFrmPlaylist()), english);
  EXPECT_EQ(Captions(desk.Sys->TheWindows.frmPlaylist), english);
}

TEST(PlaylistEditor, EveryTextFollowsTheLanguage) {
  Desk desk;
  FrmPlaylist& form = desk.Sys->TheWindows.frmPlaylist;
  desk.Sys->Strings.LanguageBase = 60000;
  const auto greek = [&desk](const char* text) { return WithTexts(desk.Sys->Strings, text); };
  form.Load();
  EXPECT_EQ(form.Caption.Get(), greek("#12"));
  EXPECT_EQ(Captions(form),
            greek("mnuFile: #270\nmnuOpen: #881\nmnuSave: #882\nmnuExit: #310\n"
                  "frMessageSelection: #880\nWavText: #890\ncmdSelectAll: #910\nLabel3: #900\n"
                  "RemoveKey: #920\nRemAll_Key: #930\ncmdRandomize: #940\nPrevKey: #230\n"
                  "Frame1: #950\noptScheduled_0: #980\noptScheduled_1: #970\noptScheduled_2: #960\n"
                  "frMusicTime: #990\nLabel1: #14\nLabel2: #16\nLabel5: #871\n"));
}

TEST(PlaylistEditor, ASongsNameEndsBeforeTheFirstExtensionInAnyCase) {
  EXPECT_EQ(SongName("march.mp3"), "march");
  EXPECT_EQ(SongName("MARCH.MP3"), "MARCH");
  EXPECT_EQ(SongName("March.Mp3"), "March");
  EXPECT_EQ(SongName("no.1.mp3"), "no.1");
  EXPECT_EQ(SongName("live.mp3.mp3"), "live");
  EXPECT_EQ(SongName("live.MP3 take 2.mp3"), "live");
  EXPECT_EQ(SongName("mp3"), "mp3");
}

TEST(PlaylistEditor, SongsWithACapitalExtensionAreShownAndSoughtWithASmallOne) {
  PlaylistDesk desk({}, [](SimulatedPc& pc) {
    pc.Disk.AddMp3("/music/d LOUD.MP3", 1000);
    pc.Disk.AddFile("/music/notes.txt");
    pc.Disk.AddMp3("/music/more/deep.mp3", 1000);
  });
  EXPECT_EQ(desk.Available(), "a b c d LOUD");
  desk.Add({"d LOUD"});
  desk.Choose(desk.TheFrmPlaylist().SelectedMP3s, "d LOUD");
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Pc.Song.FileName(), "/music/d LOUD.mp3");
}

TEST(PlaylistEditor, NamesOfAnyAlphabetKeepTheirLetters) {
  const std::vector<std::string> songs = {"Καλημέρα", "Подмосковные вечера", "שלום", "Işık",
                                          "Été [live]; no=1"};
  PlaylistDesk desk({}, [&](SimulatedPc& pc) {
    for (const std::string& song : songs) pc.Disk.AddMp3("/music/" + song + ".mp3", 5000);
  });
  desk.Add(songs);
  desk.SaveAs("/app/Λίστα.lst");
  desk.Click("mnuPlaylist");
  desk.Open("/app/Λίστα.lst");
  EXPECT_EQ(desk.TheFrmPlaylist().Caption.Get(), "Music playlist Λίστα.lst");
  std::vector<std::string> read;
  for (int song = 0; song < desk.TheFrmPlaylist().SelectedMP3s.ListCount(); ++song)
    read.push_back(desk.TheFrmPlaylist().SelectedMP3s.List(song));
  EXPECT_EQ(read, songs);
  desk.Choose(desk.TheFrmPlaylist().SelectedMP3s, "Подмосковные вечера");
  PlayAndStop(desk);
  desk.TakeJournal();
  desk.Click("PrevKey");
  EXPECT_EQ(desk.TakeJournal(), "0 song play Подмосковные вечера.mp3\n");
}

TEST(PlaylistEditor, WithoutTheMusicDirectoryTheOperatorIsLedToTheSettings) {
  MusicDesk desk({}, [](SimulatedPc& pc) { pc.Disk.Vanish("/music"); });
  desk.Pc.Dialogs.AnswerAfterMs = 5000;
  desk.Click("mnuPlaylist");
  desk.Advance(0);
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Body,
            "Could not find music directory: /music/\rClick OK to open the configuration window");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Caption, "Error");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Icon, BoxIcon::Critical);
  Windows& windows = desk.Sys->TheWindows;
  EXPECT_FALSE(windows.frmSettings.Visible);
  desk.Advance(5000);
  EXPECT_TRUE(windows.frmSettings.Visible);
  EXPECT_EQ(windows.frmSettings.ShowCount, 1u);
  EXPECT_FALSE(windows.frmPlaylist.Loaded());
}

TEST(PlaylistEditor, AnEmptyDirectoryCountsAsMissingAndOneWithoutSongsDoesNot) {
  MusicDesk empty({}, [](SimulatedPc& pc) {
    for (const char* song : {"a", "b", "c"}) pc.Disk.Remove(std::string("/music/") + song + ".mp3");
  });
  empty.Click("mnuPlaylist");
  EXPECT_FALSE(empty.Sys->TheWindows.frmPlaylist.Loaded());
  PlaylistDesk songless({}, [](SimulatedPc& pc) {
    for (const char* song : {"a", "b", "c"}) pc.Disk.Remove(std::string("/music/") + song + ".mp3");
    pc.Disk.AddFile("/music/notes.txt");
  });
  EXPECT_TRUE(songless.TheFrmPlaylist().Visible);
  EXPECT_EQ(songless.Available(), "");
  songless.Click("cmdSelectAll");
  EXPECT_EQ(songless.Selected(), "");
}

TEST(PlaylistEditor, EveryClickAddsItsSongAtTheEndAlsoASecondTime) {
  PlaylistDesk desk;
  desk.Click("RemAll_Key");
  EXPECT_EQ(desk.SongButtons(), "");
  desk.Add({"b", "a"});
  EXPECT_EQ(desk.Selected(), "b a");
  EXPECT_EQ(desk.SongButtons(), "RemAll_Key");
  desk.Add({"a", "b"});
  EXPECT_EQ(desk.Selected(), "b a a b");
}

TEST(PlaylistEditor, SelectAllTakesTheDirectoryOnceAndLeavesTheButtons) {
  PlaylistDesk desk;
  desk.Add({"c", "c"});
  desk.Click("RemAll_Key");
  desk.Click("cmdSelectAll");
  EXPECT_EQ(desk.Selected(), "a b c");
  EXPECT_EQ(desk.SongButtons(), "");
  desk.Choose(desk.TheFrmPlaylist().SelectedMP3s, "b");
  desk.Click("cmdSelectAll");
  EXPECT_EQ(desk.Selected(), "a b c");
  EXPECT_EQ(desk.SongButtons(), "RemoveKey PrevKey");
}

TEST(PlaylistEditor, RemoveTakesTheSelectedSongAndSwitchesItselfOff) {
  PlaylistDesk desk;
  desk.Click("cmdSelectAll");
  desk.Choose(desk.TheFrmPlaylist().SelectedMP3s, "b");
  EXPECT_EQ(desk.SongButtons(), "RemoveKey RemAll_Key PrevKey");
  desk.Click("RemoveKey");
  EXPECT_EQ(desk.Selected(), "a c");
  EXPECT_EQ(desk.SongButtons(), "RemAll_Key PrevKey");
}

TEST(PlaylistEditor, WithTheLastSongTheButtonsGoOffToo) {
  PlaylistDesk desk;
  desk.Add({"a"});
  desk.Choose(desk.TheFrmPlaylist().SelectedMP3s, "a");
  desk.Click("RemoveKey");
  EXPECT_EQ(desk.Selected(), "");
  EXPECT_EQ(desk.SongButtons(), "");
}

TEST(PlaylistEditor, RemoveAllEmptiesTheListAndLeavesTheOtherButtons) {
  PlaylistDesk desk;
  desk.Add({"a", "b"});
  desk.Choose(desk.TheFrmPlaylist().SelectedMP3s, "a");
  desk.Click("RemAll_Key");
  EXPECT_EQ(desk.Selected(), "");
  EXPECT_EQ(desk.SongButtons(), "RemoveKey PrevKey");
  desk.Click("RemoveKey");
  EXPECT_EQ(desk.SongButtons(), "RemoveKey");
}

TEST(PlaylistEditor, RemoveWithNothingSelectedRemovesNothing) {
  PlaylistDesk desk;
  desk.Add({"a", "b"});
  desk.Choose(desk.TheFrmPlaylist().SelectedMP3s, "a");
  desk.Click("cmdRandomize");
  EXPECT_EQ(desk.SongButtons(), "RemoveKey RemAll_Key PrevKey");
  desk.Click("RemoveKey");
  EXPECT_EQ(desk.TheFrmPlaylist().SelectedMP3s.ListCount(), 2);
  EXPECT_EQ(desk.SongButtons(), "RemAll_Key PrevKey");
  EXPECT_EQ(desk.Boxes(), "");
}

/// The entries of a list, sorted.
std::string Sorted(std::string entries) {
  std::sort(entries.begin(), entries.end());
  return entries;
}

TEST(PlaylistEditor, EachShuffleIsAPermutationThatKeepsASongListedTwice) {
  PlaylistDesk desk;
  desk.Add({"a", "b", "c", "a", "b", "c", "c"});
  std::vector<std::string> orders;
  for (int press = 0; press < 8; ++press) {
    desk.Click("cmdRandomize");
    EXPECT_EQ(Sorted(desk.Selected()), Sorted("a b c a b c c"));
    orders.push_back(desk.Selected());
    desk.Advance(1000);
  }
  std::sort(orders.begin(), orders.end());
  EXPECT_GT(std::unique(orders.begin(), orders.end()) - orders.begin(), 4);
  EXPECT_EQ(desk.TheFrmPlaylist().lstRandom.ListCount(), 0);
}

/// Pressed second by second, as by an operator, and each time on the list in its original order.
TEST(PlaylistEditor, OverManyPressesEachOfSixSongsComesAsOftenAtEachPlace) {
  constexpr int kPresses = 3600;
  PlaylistDesk desk({.Music = MusicDesk::Songs(6)});
  std::map<std::string, int> counted;  // a song and its place
  for (int press = 0; press < kPresses; ++press) {
    desk.Click("cmdSelectAll");
    desk.Click("cmdRandomize");
    const ListBox& songs = desk.TheFrmPlaylist().SelectedMP3s;
    for (int place = 0; place < songs.ListCount(); ++place)
      ++counted[songs.List(place) + std::to_string(place)];
    desk.Advance(1000);
  }
  ASSERT_EQ(counted.size(), 36u);
  // 600 on average with a standard deviation of 22: five of them on either side.
  for (const auto& [songAndPlace, count] : counted) EXPECT_NEAR(count, 600, 110) << songAndPlace;
}

TEST(PlaylistEditor, TheShuffleIsSeededFromTheClock) {
  const auto shuffled = [](int second) {
    PlaylistDesk desk({.Music = MusicDesk::Songs(20), .Now = {2024, 1, 1, 12, 0, second}});
    desk.Click("cmdSelectAll");
    desk.Click("cmdRandomize");
    return desk.Selected();
  };
  EXPECT_EQ(shuffled(10), shuffled(10));
  EXPECT_NE(shuffled(10), shuffled(11));
}

TEST(PlaylistEditor, TheTimeFrameComesAndGoesWithItsChoice) {
  PlaylistDesk desk;
  desk.Click("optScheduled_0");
  desk.SetTimes("08", "15", "18", "45");
  desk.Click("chkDays_0");
  desk.Click("chkDays_6");
  EXPECT_EQ(desk.Times(), "08:15-18:45 1-----7");
  desk.Click("optScheduled_1");
  EXPECT_EQ(desk.Times(), "(__:__-__:__ -------)");
  EXPECT_EQ(desk.Choice(), "Manual");
  desk.Click("optScheduled_0");
  EXPECT_EQ(desk.Times(), "__:__-__:__ -------");
  desk.SetTimes("08", "15", "18", "45");
  desk.Click("optScheduled_2");
  EXPECT_EQ(desk.Times(), "(__:__-__:__ -------)");
}

TEST(PlaylistEditor, ExitClosesItWithoutSavingOrAsking) {
  PlaylistDesk desk;
  desk.Add({"a"});
  desk.Pc.Journal.Clear();
  desk.Exit();
  EXPECT_FALSE(desk.TheFrmPlaylist().Visible);
  EXPECT_EQ(desk.Journal(), "");
  desk.Click("mnuPlaylist");
  EXPECT_EQ(desk.Selected(), "");
  EXPECT_EQ(desk.Available(), "a b c");
}

TEST(PlaylistEditor, AnotherCallOfItsMenuBringsItBeforeAndKeepsItsList) {
  PlaylistDesk desk;
  desk.Add({"a"});
  const unsigned shown = desk.TheFrmPlaylist().ShowCount;
  desk.Click("mnuPlaylist");
  EXPECT_EQ(desk.TheFrmPlaylist().ShowCount, shown + 1);
  EXPECT_EQ(desk.Selected(), "a");
  EXPECT_EQ(desk.Available(), "a b c");
}

}  // namespace
}  // namespace marlex
