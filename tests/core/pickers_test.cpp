#include "core/pickers.h"

#include <gtest/gtest.h>

#include "core/settings_desk.h"

namespace marlex {
namespace {

/// A shop whose media are on several drives.
void Shop(SimulatedPc& pc) {
  pc.Disk.AddMp3("/music/march.mp3", 1000);
  pc.Disk.AddMp3("/music/waltz.MP3", 1000);
  pc.Disk.AddWav("/music/gong.wav", 1000);
  pc.Disk.AddMp3("/music/Sundays/hymn.mp3", 1000);
  pc.Disk.AddDirectory("/music/advent");
  pc.Disk.AddDirectory("/music/.trash");
  pc.Disk.AddDrive("/media/stick");
  pc.Disk.AddMp3("/media/stick/polka.mp3", 1000);
}

struct Picking : SettingsDesk {
  explicit Picking(const std::function<void(SimulatedPc&)>& prepare = nullptr)
      : SettingsDesk({}, [&](SimulatedPc& pc) {
          Shop(pc);
          if (prepare) prepare(pc);
        }) {
    Open();
  }
};

TEST(DirectoryPicker, ItBeginsAtTheDirectoryThatIsSet) {
  Picking desk;
  desk.Click("cmdBgBrowse");
  EXPECT_TRUE(desk.DirSel().Visible);
  EXPECT_EQ(desk.DirSel().Caption.Get(), "Directory selection");
  EXPECT_TRUE(desk.Sys->ThePickers.BrowsingMusicDirectory);
  EXPECT_EQ(desk.DirSel().Dir1.Path(), "/music");
  EXPECT_EQ(desk.DirSel().Drive1.Drive(), "/");
  EXPECT_EQ(Entries(desk.DirSel().Dir1), "/\n/music\n/music/advent\n/music/Sundays\n");
  EXPECT_EQ(desk.DirSel().Dir1.Text(), "/music");
  EXPECT_EQ(Entries(desk.DirSel().lstFiles), "march.mp3\nwaltz.MP3\n");
  EXPECT_EQ(desk.Text("lblBGDir_Name"), "/music/");
  EXPECT_EQ(desk.Values().MusicDirectory, "/music/");
}

TEST(DirectoryPicker, ForTheMessagesItListsWavFiles) {
  Picking desk;
  desk.Click("cmdMsgBrowse");
  EXPECT_FALSE(desk.Sys->ThePickers.BrowsingMusicDirectory);
  EXPECT_EQ(desk.DirSel().Dir1.Path(), "/messages");
  EXPECT_EQ(Entries(desk.DirSel().lstFiles), "closing.wav\nwelcome.wav\n");
}

TEST(DirectoryPicker, TheDrivesAreTheHomeDirectoryAndTheMountedFileSystems) {
  Picking desk;
  desk.Click("cmdBgBrowse");
  EXPECT_EQ(Entries(desk.DirSel().Drive1), "/home/operator\n/\n/media/stick\n");
}

TEST(DirectoryPicker, ADirectoryOnAnotherDriveIsShownThereAndStays) {
  Picking desk;
  desk.Values().MusicDirectory = "/media/stick/";
  desk.Click("cmdBgBrowse");
  EXPECT_EQ(desk.DirSel().Drive1.Drive(), "/media/stick");
  EXPECT_EQ(desk.DirSel().Dir1.Path(), "/media/stick");
  EXPECT_EQ(desk.Values().MusicDirectory, "/media/stick/");
}

TEST(DirectoryPicker, ADirectoryThatIsGoneLeavesItAtHomeAndTheSettingsAsTheyAre) {
  Picking desk;
  desk.Values().MusicDirectory = "/gone/";
  desk.Click("cmdBgBrowse");
  EXPECT_EQ(desk.DirSel().Dir1.Path(), "/home/operator");
  EXPECT_EQ(desk.DirSel().Drive1.Drive(), "/home/operator");
  EXPECT_EQ(desk.Values().MusicDirectory, "/gone/");
  EXPECT_EQ(desk.Text("lblBGDir_Name"), "/music/");
  EXPECT_EQ(desk.BoxTexts(), "");
}

TEST(DirectoryPicker, WithNothingSetItBeginsAtHomeAndSetsNothingByItself) {
  Picking desk;
  desk.Values().MusicDirectory = "";
  desk.Click("cmdBgBrowse");
  EXPECT_EQ(desk.DirSel().Dir1.Path(), "/home/operator");
  EXPECT_EQ(desk.Values().MusicDirectory, "");
}

TEST(DirectoryPicker, ASelectedDirectoryIsChosenAtOnce) {
  Picking desk;
  desk.Click("cmdBgBrowse");
  desk.Choose(desk.DirSel().Dir1, "/music/Sundays");
  EXPECT_EQ(desk.Text("lblBGDir_Name"), "/music/Sundays/");
  EXPECT_EQ(desk.Values().MusicDirectory, "/music/Sundays/");
  EXPECT_EQ(Entries(desk.DirSel().lstFiles), "hymn.mp3\n");
  EXPECT_EQ(desk.DirSel().Dir1.Path(), "/music");
  EXPECT_EQ(desk.Setting("Selected paths", "Music directory"), "/music/");
  EXPECT_EQ(desk.Text("lblMsgDir_Name"), "/messages/");
}

TEST(DirectoryPicker, ADoubleClickOpensADirectoryAndChoosesIt) {
  Picking desk;
  desk.Click("cmdMsgBrowse");
  desk.DoubleClick(desk.DirSel().Dir1, "/");
  EXPECT_EQ(desk.DirSel().Dir1.Path(), "/");
  desk.DoubleClick(desk.DirSel().Dir1, "/music");
  EXPECT_EQ(desk.DirSel().Dir1.Path(), "/music");
  EXPECT_EQ(desk.Values().MessageDirectory, "/music/");
  EXPECT_EQ(desk.Text("lblMsgDir_Name"), "/music/");
  EXPECT_EQ(Entries(desk.DirSel().lstFiles), "gong.wav\n");
  EXPECT_EQ(desk.Values().MusicDirectory, "/music/");
}

TEST(DirectoryPicker, ARootGetsNoSecondSeparatorAndAnyDeeperDirectoryGetsOne) {
  Picking desk([](SimulatedPc& pc) { pc.Disk.AddDirectory("/a"); });
  desk.Click("cmdBgBrowse");
  desk.DoubleClick(desk.DirSel().Dir1, "/");
  EXPECT_EQ(desk.Values().MusicDirectory, "/");
  EXPECT_EQ(desk.Text("lblBGDir_Name"), "/");
  desk.Choose(desk.DirSel().Dir1, "/a");
  EXPECT_EQ(desk.Values().MusicDirectory, "/a/");
}

TEST(DirectoryPicker, AnotherDriveOpensItsRootAndChoosesIt) {
  Picking desk;
  desk.Click("cmdBgBrowse");
  desk.Choose(desk.DirSel().Drive1, "/media/stick");
  EXPECT_EQ(desk.DirSel().Dir1.Path(), "/media/stick");
  EXPECT_EQ(desk.Values().MusicDirectory, "/media/stick/");
  EXPECT_EQ(Entries(desk.DirSel().lstFiles), "polka.mp3\n");
  desk.Choose(desk.DirSel().Drive1, "/");
  EXPECT_EQ(desk.DirSel().Dir1.Path(), "/");
}

TEST(DirectoryPicker, ADriveThatIsGoneChangesNothing) {
  Picking desk;
  desk.Click("cmdBgBrowse");
  desk.Pc.Disk.Vanish("/media/stick");
  desk.Choose(desk.DirSel().Drive1, "/media/stick");
  EXPECT_EQ(desk.DirSel().Dir1.Path(), "/music");
  EXPECT_EQ(desk.Values().MusicDirectory, "/music/");
}

TEST(DirectoryPicker, ADirectoryThatCannotBeReadShowsAsEmpty) {
  Picking desk;
  desk.Click("cmdBgBrowse");
  desk.Pc.Disk.FailReads("/music/Sundays");
  desk.DoubleClick(desk.DirSel().Dir1, "/music/Sundays");
  EXPECT_EQ(Entries(desk.DirSel().Dir1), "/\n/music\n/music/Sundays\n");
  EXPECT_EQ(Entries(desk.DirSel().lstFiles), "");
  EXPECT_EQ(desk.Values().MusicDirectory, "/music/Sundays/");
}

TEST(DirectoryPicker, AnOkWithFilesAllowsTheChimesAndOneWithoutForbidsThem) {
  Picking desk;
  desk.Click("cmdBgBrowse");
  desk.Choose(desk.DirSel().Dir1, "/music/advent");
  desk.Click("cmdOK");
  EXPECT_FALSE(desk.DirSel().Visible);
  EXPECT_FALSE(desk.Enabled("chkPreChime")) << "the test is made for either directory";
  EXPECT_FALSE(desk.Enabled("chkPostChime"));
  desk.Click("cmdMsgBrowse");
  desk.Click("cmdOK");
  EXPECT_TRUE(desk.Enabled("chkPreChime"));
  EXPECT_TRUE(desk.Enabled("chkPostChime"));
}

TEST(DirectoryPicker, ItsCloseIsItsOkSinceThereIsNoCancel) {
  Picking desk;
  desk.Click("cmdBgBrowse");
  desk.Choose(desk.DirSel().Dir1, "/music/advent");
  desk.Do([&] { desk.DirSel().Close(); });
  EXPECT_FALSE(desk.DirSel().Visible);
  EXPECT_FALSE(desk.Enabled("chkPreChime"));
  EXPECT_EQ(desk.Values().MusicDirectory, "/music/advent/");
}

/// The songs come from the chosen directory, and the next browse begins in it; the file, and
/// therefore the label at the next opening, keep the old one.
TEST(DirectoryPicker, WhatItChoseStaysInMemoryWhenTheSettingsAreCancelled) {
  SettingsDesk desk({.Music = {{"hymn"}}}, Shop);
  desk.Open();
  desk.Click("cmdBgBrowse");
  desk.Choose(desk.DirSel().Dir1, "/music/Sundays");
  desk.Click("cmdOK");      // of the picker
  desk.Click("cmdCancel");  // of the settings
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Pc.Song.FileName(), "/music/Sundays/hymn.mp3");
  desk.Open();
  EXPECT_EQ(desk.Text("lblBGDir_Name"), "/music/");
  desk.Click("cmdBgBrowse");
  EXPECT_EQ(desk.DirSel().Dir1.Path(), "/music/Sundays");
  desk.Click("cmdOK");
  desk.Click("cmdCancel");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Pc.Song.FileName(), "/music/Sundays/hymn.mp3");
}

TEST(DirectoryPicker, TheSettingsOkWritesWhatItChose) {
  Picking desk;
  desk.Click("cmdBgBrowse");
  desk.Choose(desk.DirSel().Dir1, "/music/Sundays");
  desk.Click("cmdOK");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Setting("Selected paths", "Music directory"), "/music/Sundays/");
}

TEST(ChimePicker, ItListsTheMessagesAndItsOkWaitsForAChoice) {
  Picking desk;
  desk.Click("chkPreChime");
  desk.Click("cmdPreSelect");
  EXPECT_TRUE(desk.ChimeSelect().Visible);
  EXPECT_EQ(desk.ChimeSelect().Caption.Get(), "Chime selection");
  EXPECT_EQ(Entries(desk.ChimeSelect().lstChimeList), "closing.wav\nwelcome.wav\n");
  EXPECT_EQ(desk.ChimeSelect().cmdCancel.Caption.Get(), "Cancel");
  EXPECT_FALSE(desk.Enabled("cmdOK"));
  desk.Choose(desk.ChimeSelect().lstChimeList, "welcome.wav");
  EXPECT_TRUE(desk.Enabled("cmdOK"));
}

TEST(ChimePicker, ItSpeaksTheLanguageAndTheDirectoryPickerEnglish) {
  Picking desk([](SimulatedPc& pc) { With("User language", "Language", "German")(pc); });
  desk.Click("chkPreChime");
  desk.Click("cmdPreSelect");
  EXPECT_EQ(desk.ChimeSelect().Caption.Get(), "Gongauswahl");
  EXPECT_EQ(desk.Text("cmdCancel"), "Abbrechen");
  desk.Click("cmdCancel");
  desk.Click("cmdBgBrowse");
  EXPECT_EQ(desk.DirSel().Caption.Get(), "Directory selection");
}

TEST(ChimePicker, ItPutsThePreChimeIntoItsLabelWithoutItsExtension) {
  Picking desk;
  desk.Click("chkPreChime");
  desk.Click("cmdPreSelect");
  EXPECT_TRUE(desk.Sys->ThePickers.SelectingPreChime);
  desk.Choose(desk.ChimeSelect().lstChimeList, "welcome.wav");
  desk.Click("cmdOK");
  EXPECT_FALSE(desk.ChimeSelect().Visible);
  EXPECT_EQ(desk.Text("lblPreChime"), "welcome");
  EXPECT_EQ(desk.Values().PreChime, "welcome");
  EXPECT_EQ(desk.Values().PostChime, "");
  EXPECT_EQ(desk.Setting("Chime selection", "PreChime"), "");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Setting("Chime selection", "PreChime"), "welcome");
}

TEST(ChimePicker, AndThePostChimeIntoIts) {
  Picking desk;
  desk.Click("chkPostChime");
  desk.Click("cmdPostSelect");
  EXPECT_FALSE(desk.Sys->ThePickers.SelectingPreChime);
  desk.Choose(desk.ChimeSelect().lstChimeList, "closing.wav");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Text("lblPostChime"), "closing");
  EXPECT_EQ(desk.Values().PostChime, "closing");
  EXPECT_EQ(desk.Text("lblPreChime"), "");
  EXPECT_EQ(desk.Values().PreChime, "");
}

TEST(ChimePicker, ANameOfTwoPointsIsCutAtItsFirst) {
  Picking desk([](SimulatedPc& pc) { pc.Disk.AddWav("/messages/ding.dong.wav", 1000); });
  desk.Click("chkPreChime");
  desk.Click("cmdPreSelect");
  desk.Choose(desk.ChimeSelect().lstChimeList, "ding.dong.wav");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Values().PreChime, "ding");
  EXPECT_EQ(desk.Text("lblPreChime"), "ding");
}

TEST(ChimePicker, SuchAChimeIsNotFoundByACallWhichOpensWithoutIt) {
  Picking desk([](SimulatedPc& pc) { pc.Disk.AddWav("/messages/ding.dong.wav", 1000); });
  desk.Click("chkPreChime");
  desk.Click("cmdPreSelect");
  desk.Choose(desk.ChimeSelect().lstChimeList, "ding.dong.wav");
  desk.Click("cmdOK");
  desk.Click("cmdOK");  // of the settings
  desk.Pc.Journal.Only({"wav"});
  const auto call = [&desk] {
    desk.TakeJournal();
    desk.Press("cmdCall");
    desk.Advance(100);
    const std::string begin = desk.Text("cmdCall") + ", " + desk.Heard();
    desk.Advance(2000);
    EXPECT_EQ(desk.Text("cmdCall"), "Speak");
    EXPECT_FALSE(desk.MuteCheck(desk.Sys->Mixer.MicLine));
    desk.Release("cmdCall");
    desk.Advance(1000);
    return begin + "\n" + desk.Journal();
  };
  EXPECT_EQ(call(), "Speak, microphone at 15000\n0 wav refuse ding.wav\n");
  With("Chime selection", "PreChime", "ding.dong")(desk.Pc);
  desk.Open();
  desk.Click("cmdOK");
  EXPECT_EQ(call(),
            "Wait, wav ding.dong.wav at 10000\n"
            "0 wav play ding.dong.wav\n1000 wav end ding.dong.wav\n");
}

TEST(ChimePicker, AnEmptyDirectoryOffersNothing) {
  Picking desk([](SimulatedPc& pc) { pc.Disk.AddDirectory("/empty"); });
  desk.Values().MessageDirectory = "/empty/";
  desk.Click("chkPreChime");
  desk.Click("cmdPreSelect");
  EXPECT_EQ(desk.ChimeSelect().lstChimeList.ListCount(), 0);
  EXPECT_FALSE(desk.Enabled("cmdOK"));
}

TEST(ChimePicker, WithNoMessageDirectoryItOffersNothing) {
  Picking desk;
  desk.Values().MessageDirectory = "";
  desk.Click("chkPreChime");
  desk.Click("cmdPreSelect");
  EXPECT_EQ(desk.ChimeSelect().lstChimeList.ListCount(), 0);
}

TEST(ChimePicker, ACancelChangesNothing) {
  Picking desk;
  desk.Click("chkPreChime");
  desk.Click("cmdPreSelect");
  desk.Choose(desk.ChimeSelect().lstChimeList, "welcome.wav");
  desk.Click("cmdCancel");
  EXPECT_FALSE(desk.ChimeSelect().Visible);
  EXPECT_TRUE(desk.TheFrmSettings().Visible);
  EXPECT_EQ(desk.Values().PreChime, "");
  EXPECT_EQ(desk.Text("lblPreChime"), "");
}

TEST(ChimePicker, ASecondOpeningWaitsForAChoiceAgain) {
  Picking desk;
  desk.Click("chkPreChime");
  for (int opening = 0; opening < 2; ++opening) {
    desk.Click("cmdPreSelect");
    EXPECT_FALSE(desk.Enabled("cmdOK"));
    EXPECT_EQ(desk.ChimeSelect().lstChimeList.ListIndex(), ListBox::kNoSelection);
    desk.Choose(desk.ChimeSelect().lstChimeList, "welcome.wav");
    desk.Click("cmdOK");
  }
}

}  // namespace
}  // namespace marlex
