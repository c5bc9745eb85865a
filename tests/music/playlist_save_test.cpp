#include <gtest/gtest.h>

#include "i18n/with_texts.h"
#include "music/playlist_desk.h"

namespace marlex {
namespace {

const std::string kSongs = "[Last played]\r\nLast song=0\r\n[Playlist]\r\nSong:1=b\r\nSong:2=a\r\n";
const std::string kNoTimes =
    "[Background music]\r\nStart time=\r\nStop time=\r\nWeekdays=0000000\r\n";

/// The editor with two songs chosen.
struct SaveDesk : PlaylistDesk {
  explicit SaveDesk(DeskOptions options = {}) : PlaylistDesk(std::move(options)) {
    Add({"b", "a"});
    Pc.Journal.Clear();
  }

  /// The option for times, with all of them set.
  void Schedule() {
    Click("optScheduled_0");
    SetTimes("08", "15", "18", "45");
  }
};

TEST(PlaylistSave, WithoutSongsItIsRefusedAndAsksForNoFile) {
  PlaylistDesk desk;
  desk.SaveAs();
  EXPECT_EQ(desk.Boxes(), "!Error: No songs selected\n");
  EXPECT_TRUE(desk.Pc.Dialogs.FileDialogs.empty());
  EXPECT_EQ(desk.File(), "");
  EXPECT_TRUE(desk.TheFrmPlaylist().Visible);
}

TEST(PlaylistSave, ItsDialogAsksForAPlaylistInTheProgramsDirectory) {
  SaveDesk desk;
  desk.SaveAs();
  ASSERT_EQ(desk.Pc.Dialogs.FileDialogs.size(), 1u);
  const FileDialog& dialog = desk.Pc.Dialogs.FileDialogs[0];
  EXPECT_TRUE(dialog.Save);
  EXPECT_EQ(dialog.Filter, "Playlist files (*.lst)|*.lst");
  EXPECT_EQ(dialog.DefaultExtension, "lst");
  EXPECT_EQ(dialog.InitialDirectory, "/app");
  EXPECT_FALSE(dialog.AllowMultiselect);
}

TEST(PlaylistSave, ACancelledDialogSavesNothingAndTheEditorStays) {
  SaveDesk desk;
  desk.SaveAs("");
  EXPECT_TRUE(desk.TheFrmPlaylist().Visible);
  EXPECT_EQ(desk.Selected(), "b a");
  EXPECT_EQ(desk.Boxes(), "");
}

TEST(PlaylistSave, AnAutostartIsWrittenWithoutTimesAndClosesTheEditor) {
  SaveDesk desk;
  desk.SaveAs();
  EXPECT_EQ(desk.File(), kSongs + kNoTimes + "Autostart=True\r\n");
  EXPECT_FALSE(desk.TheFrmPlaylist().Loaded());
  EXPECT_TRUE(desk.Values().MusicAutostart);
}

TEST(PlaylistSave, AManualStartIsNoAutostart) {
  SaveDesk desk({.StartTime = "09:00", .StopTime = "10:00", .WeekDays = "1234567"});
  desk.Do([&] { desk.Values().MusicAutostart = true; });
  desk.Click("optScheduled_1");
  desk.SaveAs();
  EXPECT_EQ(desk.File(), kSongs + kNoTimes + "Autostart=False\r\n");
  // The times of the list that is playing stay in force.
  EXPECT_EQ(desk.LiveTimes(), "09:00-10:00 1234567 scheduled");
}

TEST(PlaylistSave, TimesAreWrittenWithTheirDaysAndWithoutAnAutostart) {
  SaveDesk desk({.WeekDays = "7654321"});
  desk.Do([&] { desk.Values().MusicAutostart = true; });
  desk.Schedule();
  for (const char* day : {"chkDays_0", "chkDays_2", "chkDays_4"}) desk.Click(day);
  desk.SaveAs();
  EXPECT_EQ(desk.File(), kSongs +
                             "[Background music]\r\nStart time=08:15\r\nStop time=18:45\r\n"
                             "Weekdays=1030500\r\n");
  EXPECT_FALSE(desk.TheFrmPlaylist().Loaded());
  EXPECT_EQ(desk.LiveTimes(), "08:15-18:45 7654321 autostart");
}

TEST(PlaylistSave, AScheduleWithNoListSetIsWrittenWithoutTimes) {
  SaveDesk desk;
  desk.Click("optScheduled_0");
  desk.Click("chkDays_0");
  desk.SaveAs();
  EXPECT_EQ(desk.File(), kSongs + kNoTimes + "Autostart=False\r\n");
  EXPECT_FALSE(desk.TheFrmPlaylist().Loaded());
  EXPECT_EQ(desk.Boxes(), "");
}

TEST(PlaylistSave, TheFirstListThatIsNotSetIsNamedAndTheFileHoldsTheSongsAlone) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{"", "15", "18", "45"}, "Start time hours field empty"},
      {{"08", "", "18", "45"}, "Start time minutes field empty"},
      {{"08", "15", "", "45"}, "Stop time hours field empty"},
      {{"08", "15", "18", ""}, "Stop time minutes field empty"},
      {{"08", "", "18", ""}, "Start time minutes field empty"},
      {{"", "", "", "00"}, "Start time hours field empty"}};
  for (const auto& [times, word] : cases) {
    SaveDesk desk;
    desk.Pc.Disk.AddFile(PlaylistDesk::kFile,
                         "[Background music]\r\nStart time=01:00\r\n[Other]\r\nkey=value\r\n");
    desk.Click("optScheduled_0");
    desk.SetTimes(times[0], times[1], times[2], times[3]);
    const std::string shown = desk.Times();
    desk.SaveAs();
    EXPECT_EQ(desk.Boxes(), "!Error: " + word + "\n");
    EXPECT_EQ(desk.File(), kSongs);
    EXPECT_TRUE(desk.TheFrmPlaylist().Visible);
    EXPECT_EQ(desk.Selected(), "b a");
    EXPECT_EQ(desk.Times(), shown);
    EXPECT_EQ(desk.LiveTimes(), "- ");
  }
}

TEST(PlaylistSave, ItsWordsAreThoseOfTheChosenLanguage) {
  PlaylistDesk desk;
  desk.Sys->Strings.LanguageBase = 15000;
  desk.SaveAs();
  desk.Add({"a"});
  desk.Click("optScheduled_0");
  const std::vector<std::string> set = {"08", "15", "18", "45"};
  for (std::size_t missing = 0; missing < set.size(); ++missing) {
    std::vector<std::string> times = set;
    times[missing] = "";
    desk.SetTimes(times[0], times[1], times[2], times[3]);
    desk.SaveAs();
  }
  desk.Pc.Disk.FailWrites(PlaylistDesk::kFile);
  desk.SaveAs();
  EXPECT_EQ(desk.Boxes(),
            WithTexts(desk.Sys->Strings,
                      "!#101: #1130\n!#101: #1140\n!#101: #1150\n!#101: #1160\n!#101: #1170\n"
                      "!#101: #1510/app/new.lst\n"));
  EXPECT_EQ(desk.Sys->Strings.LoadString(kStrError), "Ошибка");
}

TEST(PlaylistSave, AScheduleThatIsCompletedAfterTheWordIsSavedWhole) {
  SaveDesk desk;
  desk.Click("optScheduled_0");
  desk.SetTimes("08", "", "", "");
  desk.SaveAs();
  desk.SetTimes("08", "00", "09", "30");
  desk.SaveAs();
  EXPECT_EQ(desk.Setting("Background music", "Start time", PlaylistDesk::kFile), "08:00");
  EXPECT_EQ(desk.Setting("Background music", "Stop time", PlaylistDesk::kFile), "09:30");
  EXPECT_FALSE(desk.TheFrmPlaylist().Loaded());
}

TEST(PlaylistSave, NoDayAndAStopBeforeTheStartAreSavedWithoutAWord) {
  SaveDesk desk;
  desk.Click("optScheduled_0");
  desk.SetTimes("22", "00", "06", "00");
  desk.SaveAs();
  EXPECT_EQ(desk.File(), kSongs +
                             "[Background music]\r\nStart time=22:00\r\nStop time=06:00\r\n"
                             "Weekdays=0000000\r\n");
  EXPECT_EQ(desk.Boxes(), "");
}

TEST(PlaylistSave, AListWithNoDayTickedNeverStartsByTheClock) {
  SaveDesk desk;
  desk.Click("optScheduled_0");
  desk.SetTimes("12", "02", "12", "05");
  desk.SaveAs("/app/new.lst");
  desk.Pc.Dialogs.OpenResults = {"/app/new.lst"};
  desk.Click("mnuOpen");
  ASSERT_EQ(desk.LiveTimes(), "12:02-12:05 0000000 scheduled");
  desk.Advance(600'000);
  EXPECT_EQ(desk.Heard(), "silence");
}

TEST(PlaylistSave, TimesInAHiddenFrameAreNotSaved) {
  SaveDesk desk;
  desk.Schedule();
  desk.OpenText("[Playlist]\r\nSong:1=b\r\nSong:2=a\r\n");
  ASSERT_EQ(desk.Times(), "(08:15-18:45 -------)");
  desk.SaveAs();
  EXPECT_EQ(desk.File(), kSongs + kNoTimes + "Autostart=False\r\n");
}

TEST(PlaylistSave, TheOldFileIsReplacedWhole) {
  SaveDesk desk;
  desk.Pc.Disk.AddFile(PlaylistDesk::kFile,
                       "; by hand\r\n[Playlist]\r\nSong:1=x\r\nSong:2=y\r\nSong:3=z\r\n[Other]\r\n"
                       "key=value\r\n");
  desk.SaveAs();
  EXPECT_EQ(desk.File(), kSongs + kNoTimes + "Autostart=True\r\n");
}

TEST(PlaylistSave, AFileThatCannotBeWrittenIsReportedAndNothingIsLost) {
  for (const bool timed : {false, true}) {
    SaveDesk desk;
    if (timed) desk.Schedule();
    const std::string shown = desk.Times();
    desk.Pc.Disk.AddFile(PlaylistDesk::kFile, "[Playlist]\r\nSong:1=old\r\n");
    desk.Pc.Disk.FailWrites(PlaylistDesk::kFile);
    desk.SaveAs();
    EXPECT_EQ(desk.Boxes(), "!Error: The file cannot be saved: /app/new.lst\n");
    EXPECT_EQ(desk.File(), "[Playlist]\r\nSong:1=old\r\n");
    EXPECT_TRUE(desk.TheFrmPlaylist().Visible);
    EXPECT_EQ(desk.Selected(), "b a");
    EXPECT_EQ(desk.Times(), shown);
    EXPECT_EQ(desk.Choice(), timed ? "Scheduled" : "Autostart");
    EXPECT_EQ(desk.LiveTimes(), "- ");
    desk.Pc.Disk.Heal(PlaylistDesk::kFile);
    desk.SaveAs();
    EXPECT_FALSE(desk.TheFrmPlaylist().Loaded());
    EXPECT_EQ(desk.File().substr(0, kSongs.size()), kSongs);
  }
}

TEST(PlaylistSave, OfAFullDiskAndAMissingTimeTheDiskIsReported) {
  SaveDesk desk;
  desk.Click("optScheduled_0");
  desk.SetTimes("08", "", "", "");
  desk.Pc.Disk.FailWrites("/app");
  desk.SaveAs();
  EXPECT_EQ(desk.Boxes(), "!Error: The file cannot be saved: /app/new.lst\n");
  EXPECT_EQ(desk.File(), "");
}

TEST(PlaylistSave, ADirectoryThatHasGoneIsReported) {
  SaveDesk desk;
  desk.SaveAs("/stick/new.lst");
  EXPECT_EQ(desk.Boxes(), "!Error: The file cannot be saved: /stick/new.lst\n");
  EXPECT_TRUE(desk.TheFrmPlaylist().Visible);
}

TEST(PlaylistSave, TheMainWindowsListIsLeftAloneUntilTheFileIsOpenedThere) {
  SaveDesk desk;
  desk.SaveAs(Desk::kPlaylist);
  EXPECT_EQ(desk.Entries(), "a b c");
  desk.Pc.Dialogs.OpenResults = {Desk::kPlaylist};
  desk.Click("mnuOpen");
  EXPECT_EQ(desk.Entries(), "b a");
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
}

TEST(PlaylistSave, AComposedListSurvivesTheRestartAndStarts) {
  SaveDesk desk;
  desk.SaveAs(Desk::kPlaylist);
  desk.Restart();
  EXPECT_EQ(desk.Entries(), "b a");
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
}

TEST(PlaylistSave, TheDeskWorksWhileTheDialogIsOpen) {
  SaveDesk desk;
  desk.Click("cmdPlay");
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.SaveAs();
  desk.Advance(25'000);
  EXPECT_EQ(desk.Heard(), "song c.mp3 at 20000");
  EXPECT_EQ(desk.File(), "");
  desk.Pc.Dialogs.Answer();
  desk.Advance(0);
  EXPECT_EQ(desk.File(), kSongs + kNoTimes + "Autostart=True\r\n");
}

TEST(PlaylistSave, AListEmptiedOrAnEditorClosedUnderTheDialogSavesNothing) {
  for (const bool closed : {false, true}) {
    SaveDesk desk;
    desk.Pc.Disk.AddFile(PlaylistDesk::kFile, "[Playlist]\r\nSong:1=old\r\n");
    desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
    desk.SaveAs();
    closed ? desk.Exit() : desk.Click("RemAll_Key");
    desk.Pc.Dialogs.Answer();
    desk.Advance(0);
    EXPECT_EQ(desk.File(), "[Playlist]\r\nSong:1=old\r\n") << closed;
  }
}

TEST(PlaylistSave, AFileForAnEditorThatWasClosedIsNotThatOfTheNext) {
  SaveDesk desk;
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.SaveAs();
  desk.Exit();
  desk.Click("mnuPlaylist");
  desk.Add({"c"});
  desk.Pc.Dialogs.Answer();
  desk.Advance(0);
  EXPECT_EQ(desk.File(), "");
  EXPECT_EQ(desk.Selected(), "c");
}

}  // namespace
}  // namespace marlex
