#include <gtest/gtest.h>

#include "desk/deeds.h"
#include "music/playlist_desk.h"

namespace marlex {
namespace {

const std::string kTwoSongs = "[Playlist]\r\nSong:1=b\r\nSong:2=a\r\n";

std::string Timed(const std::string& start, const std::string& stop, const std::string& days) {
  return kTwoSongs + "[Background music]\r\nStart time=" + start + "\r\nStop time=" + stop +
         "\r\nWeekdays=" + days + "\r\n";
}

TEST(PlaylistOpen, ItsDialogAsksForAPlaylistInTheProgramsDirectory) {
  PlaylistDesk desk;
  desk.Open("");
  ASSERT_EQ(desk.Pc.Dialogs.FileDialogs.size(), 1u);
  const FileDialog& dialog = desk.Pc.Dialogs.FileDialogs[0];
  EXPECT_FALSE(dialog.Save);
  EXPECT_EQ(dialog.Filter, "Playlist files (*.lst)|*.lst");
  EXPECT_EQ(dialog.DefaultExtension, "lst");
  EXPECT_EQ(dialog.InitialDirectory, "/app");
}

TEST(PlaylistOpen, AFileWithTimesFillsListFrameAndLiveTimes) {
  PlaylistDesk desk;
  desk.Add({"c"});
  desk.OpenText(Timed("08:15", "18:45", "1030500"));
  EXPECT_EQ(desk.Selected(), "b a");
  EXPECT_EQ(desk.Times(), "08:15-18:45 1-3-5--");
  EXPECT_EQ(desk.Choice(), "Scheduled");
  EXPECT_EQ(desk.TheFrmPlaylist().Caption.Get(), "Music playlist new.lst");
  // Whether the list that is playing has times does not change.
  EXPECT_EQ(desk.LiveTimes(), "08:15-18:45 1030500");
  EXPECT_EQ(desk.Entries(), "a b c");
}

TEST(PlaylistOpen, AFileWithoutTimesHidesTheFrameAndSwitchesItsChoiceOff) {
  PlaylistDesk desk;
  desk.OpenText(Timed("08:15", "18:45", "1030500"));
  desk.OpenText(kTwoSongs);
  EXPECT_EQ(desk.Choice(), "");
  EXPECT_EQ(desk.Times(), "(08:15-18:45 1-3-5--)");
  EXPECT_EQ(desk.LiveTimes(), "- ");
}

TEST(PlaylistOpen, AManualChoiceStaysWithAFileThatSaysNothing) {
  PlaylistDesk desk;
  desk.Click("optScheduled_1");
  desk.OpenText(kTwoSongs);
  EXPECT_EQ(desk.Choice(), "Manual");
}

TEST(PlaylistOpen, AnAutostartSetsItsChoiceAndClearsTheTimes) {
  PlaylistDesk desk;
  desk.OpenText(Timed("08:15", "18:45", "1030500"));
  desk.OpenText(kTwoSongs + "[BackGround music]\r\nAutoStart=true\r\n");
  EXPECT_EQ(desk.Choice(), "Autostart");
  EXPECT_EQ(desk.Times(), "(__:__-__:__ -------)");
  EXPECT_EQ(desk.LiveTimes(), "-  autostart");
}

TEST(PlaylistOpen, OfAnAutostartAndTimesTheTimesAreShown) {
  PlaylistDesk desk;
  desk.Click("optScheduled_1");
  desk.OpenText(Timed("08:15", "18:45", "0200000") + "Autostart=1\r\n");
  EXPECT_EQ(desk.Choice(), "Scheduled");
  EXPECT_EQ(desk.Times(), "08:15-18:45 -2-----");
  EXPECT_EQ(desk.LiveTimes(), "08:15-18:45 0200000 autostart");
}

TEST(PlaylistOpen, ItChangesWhatTheClockTestsUntilAListIsOpenedInTheMainWindow) {
  PlaylistDesk desk({.StartTime = "12:30", .StopTime = "12:40", .WeekDays = "1234567"});
  desk.OpenText(Timed("12:02", "12:05", "1234567"));
  desk.RunTo(12, 2, 5);
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
  desk.Exit();
  desk.Pc.Dialogs.OpenResults = {Desk::kPlaylist};
  desk.Click("mnuOpen");
  EXPECT_EQ(desk.LiveTimes(), "12:30-12:40 1234567 scheduled");
}

TEST(PlaylistOpen, ACancelledDialogEmptiesTheListAndTheLiveTimes) {
  PlaylistDesk desk({.StartTime = "12:30", .StopTime = "12:40", .WeekDays = "1234567"});
  desk.Do([&] { desk.Values().MusicAutostart = true; });
  desk.Add({"a"});
  desk.Click("optScheduled_0");
  desk.Open("");
  EXPECT_EQ(desk.Selected(), "");
  EXPECT_EQ(desk.LiveTimes(), "-  scheduled");
  EXPECT_EQ(desk.TheFrmPlaylist().Caption.Get(), "Music playlist ");
  EXPECT_EQ(desk.Choice(), "");
  EXPECT_TRUE(desk.TheFrmPlaylist().Visible);
  EXPECT_EQ(desk.Boxes(), "");
}

TEST(PlaylistOpen, TheMaskOfSevenOnesIsEveryDayToTheClockAndMondayToTheEditor) {
  PlaylistDesk desk({.Now = {2024, 1, 3, 12, 0, 30}});  // a Wednesday
  desk.OpenText(Timed("12:02", "12:05", "1111111"));
  EXPECT_EQ(desk.Times(), "12:02-12:05 1------");
  desk.Do([&] { desk.Values().MusicScheduled = true; });
  desk.RunTo(12, 2, 5);
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
}

TEST(PlaylistOpen, ATimeIsReadByItsPlacesAndWhatNoListHasIsLeftUnset) {
  const std::vector<std::pair<std::string, std::string>> times = {
      {"08:15", "08:15"}, {"23:59", "23:59"}, {"8:00", "__:00"},    {"25:99", "__:__"},
      {"24:60", "__:__"}, {"0815", "08:05"},  {"08.15", "08:15"},   {"7", "07:__"},
      {"ab:cd", "__:__"}, {"-1:-1", "__:__"}, {"08:15:30", "08:15"}};
  for (const auto& [text, shown] : times) {
    PlaylistDesk desk;
    desk.OpenText(Timed(text, "18:45", "1234567"));
    EXPECT_EQ(desk.Times(), shown + "-18:45 1234567") << text;
    EXPECT_EQ(desk.Selected(), "b a") << text;
    EXPECT_EQ(desk.Values().MusicStartTime, text);
    PlaylistDesk other;
    other.OpenText(Timed("18:45", text, "1234567"));
    EXPECT_EQ(other.Times(), "18:45-" + shown + " 1234567") << text;
  }
}

TEST(PlaylistOpen, AMissingStopTimeLeavesItsListsUnset) {
  PlaylistDesk desk;
  desk.OpenText(Timed("08:15", "09:45", "1234567"));
  desk.OpenText(Timed("10:15", "", "1234567"));
  EXPECT_EQ(desk.Times(), "10:15-__:__ 1234567");
}

TEST(PlaylistOpen, AMaskOfFewerOrOtherCharactersTicksWhatItHas) {
  for (const auto& [mask, shown] :
       std::vector<std::pair<std::string, std::string>>{{"12", "12-----"},
                                                        {"", "-------"},
                                                        {"7654321", "---4---"},
                                                        {"12345678", "1234567"},
                                                        {"έ234567", "-234567"}}) {
    PlaylistDesk desk;
    desk.Click("optScheduled_0");
    for (int day = 0; day < 7; ++day) desk.Click("chkDays_" + std::to_string(day));
    desk.OpenText(Timed("08:15", "18:45", mask));
    EXPECT_EQ(desk.Times(), "08:15-18:45 " + shown) << mask;
  }
}

TEST(PlaylistOpen, ItsTitleShowsThePathFromWhereTheProgramsDirectoryWouldEnd) {
  const std::vector<std::pair<std::string, std::string>> titles = {
      {"/app/Day.lst", "Day.lst"},
      {"/app/lists/Day.lst", "lists/Day.lst"},
      {"/music/Day.lst", "c/Day.lst"},
      {"/a.l", ""},
      {"/app/" + std::string(40, 'x') + ".lst", std::string(32, 'x')},
      {"/app/Λίστα με πολλά τραγούδια για κάθε μέρα.lst", "Λίστα με πολλά τραγούδια για κάθ"}};
  for (const auto& [path, shown] : titles) {
    PlaylistDesk desk;
    desk.Pc.Disk.AddFile(path, kTwoSongs);
    desk.Open(path);
    EXPECT_EQ(desk.TheFrmPlaylist().Caption.Get(), "Music playlist " + shown) << path;
    EXPECT_EQ(desk.Selected(), "b a") << path;
  }
}

TEST(PlaylistOpen, AGapInTheNumbersEndsTheList) {
  PlaylistDesk desk;
  desk.OpenText("[Playlist]\r\nSong:1=a\r\nSong:2=b\r\nSong:4=c\r\n");
  EXPECT_EQ(desk.Selected(), "a b");
}

TEST(PlaylistOpen, SectionsKeysAndLineEndsMayBeAnyonesOwn) {
  PlaylistDesk desk;
  desk.OpenText(
      "\xEF\xBB\xBF[BACKGROUND MUSIC]\nWEEKDAYS=0200000\nstop TIME=18:00\nSTART time=13:00\n"
      "[playlist]\nSONG:2=b\nsong:1=a\n");
  EXPECT_EQ(desk.Selected(), "a b");
  EXPECT_EQ(desk.Times(), "13:00-18:00 -2-----");
  desk.OpenText("[Playlist]\rSong:1=c\rSong:2=a\r[Background music]\rStart time=09:00\r");
  EXPECT_EQ(desk.Selected(), "c a");
  EXPECT_EQ(desk.Times(), "09:00-__:__ -------");
}

/// Saving rebuilds the list, and writes it in UTF-8.
TEST(PlaylistOpen, NamesInACodePageAreShownAsTextAndFindTheirSongs) {
  const std::string bytes =
      "Fr\xFChst\xFC"
      "ck";
  PlaylistDesk desk({}, [&](SimulatedPc& pc) { pc.Disk.AddMp3("/music/" + bytes + ".mp3", 5000); });
  desk.OpenText("[Playlist]\r\nSong:1=" + bytes + "\r\nSong:2=a\r\n");
  EXPECT_EQ(desk.Selected(), "Frühstück a");
  desk.Choose(desk.TheFrmPlaylist().SelectedMP3s, "Frühstück");
  PlayAndStop(desk);
  desk.TakeJournal();
  desk.Click("PrevKey");
  EXPECT_EQ(desk.TakeJournal(), "0 song play Frühstück.mp3\n");
  desk.SaveAs();
  EXPECT_EQ(desk.Setting("Playlist", "Song:1", PlaylistDesk::kFile), "Frühstück");
}

TEST(PlaylistOpen, ANameBeyondTheLongestValueIsCutThere) {
  PlaylistDesk desk;
  desk.OpenText("[Playlist]\r\nSong:1=" + std::string(5000, 'x') + "\r\nSong:2=a\r\n");
  EXPECT_EQ(desk.Selected(), std::string(1499, 'x') + " a");
}

TEST(PlaylistOpen, AHalfWrittenFileIsItsSongsAlone) {
  PlaylistDesk desk;
  desk.Add({"c", "a"});
  desk.Click("optScheduled_0");
  desk.SetTimes("08", "", "", "");
  desk.SaveAs();
  desk.Open(PlaylistDesk::kFile);
  EXPECT_EQ(desk.Selected(), "c a");
  EXPECT_EQ(desk.Choice(), "");
  EXPECT_EQ(desk.LiveTimes(), "- ");
}

TEST(PlaylistOpen, AnEmptyAForeignAnUnreadableAndAnAbsentFileLeaveTheListEmpty) {
  std::string noise;
  for (int byte = 0; byte < 4096; ++byte) noise += static_cast<char>(byte * 37 % 256);
  std::string wide;  // two bytes a character, and no byte order mark
  for (const char c : kTwoSongs) wide += std::string{c, '\0'};
  for (const std::string& text : {std::string(), noise, std::string("ID3\4\0\0", 6), wide}) {
    PlaylistDesk desk;
    desk.Add({"a"});
    desk.OpenText(text);
    EXPECT_EQ(desk.Selected(), "");
    EXPECT_EQ(desk.Boxes(), "");
  }
  PlaylistDesk desk;
  desk.Pc.Disk.AddFile(PlaylistDesk::kFile, kTwoSongs);
  desk.Pc.Disk.FailReads(PlaylistDesk::kFile);
  desk.Open(PlaylistDesk::kFile);
  EXPECT_EQ(desk.Selected(), "");
  desk.Open("/app/gone.lst");
  EXPECT_EQ(desk.Selected(), "");
  EXPECT_EQ(desk.Boxes(), "");
}

TEST(PlaylistOpen, SongsThatTheDirectoryDoesNotHaveAreKept) {
  PlaylistDesk desk;
  desk.OpenText("[Playlist]\r\nSong:1=a\r\nSong:2=gone\r\n");
  EXPECT_EQ(desk.Selected(), "a gone");
  desk.SaveAs();
  EXPECT_EQ(desk.Setting("Playlist", "Song:2", PlaylistDesk::kFile), "gone");
}

TEST(PlaylistOpen, TheButtonsStayAsTheyAre) {
  PlaylistDesk desk;
  desk.Click("RemAll_Key");
  desk.OpenText(kTwoSongs);
  EXPECT_EQ(desk.SongButtons(), "");
  desk.Choose(desk.TheFrmPlaylist().SelectedMP3s, "a");
  desk.OpenText(kTwoSongs);
  EXPECT_EQ(desk.SongButtons(), "RemoveKey PrevKey");
}

TEST(PlaylistOpen, AnEditorClosedUnderItsDialogTakesNothing) {
  PlaylistDesk desk({.StartTime = "12:30", .StopTime = "12:40", .WeekDays = "1234567"});
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.OpenText(kTwoSongs);
  desk.Exit();
  desk.Pc.Dialogs.Answer();
  desk.Advance(0);
  EXPECT_EQ(desk.LiveTimes(), "12:30-12:40 1234567 scheduled");
  desk.Click("mnuPlaylist");
  EXPECT_EQ(desk.Selected(), "");
  EXPECT_EQ(desk.TheFrmPlaylist().Caption.Get(), "Music playlist:");
}

TEST(PlaylistOpen, AFileForAnEditorThatWasClosedDoesNotReachTheNext) {
  PlaylistDesk desk({.StartTime = "12:30", .StopTime = "12:40", .WeekDays = "1234567"});
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.OpenText(kTwoSongs);
  desk.Exit();
  desk.Click("mnuPlaylist");
  desk.Add({"c"});
  desk.Pc.Dialogs.Answer();
  desk.Advance(0);
  EXPECT_EQ(desk.Selected(), "c");
  EXPECT_EQ(desk.LiveTimes(), "12:30-12:40 1234567 scheduled");
}

TEST(PlaylistOpen, TwentyThousandSongsAreListedShuffledSavedAndReadBack) {
  constexpr int kSongs = 20'000;
  PlaylistDesk desk({}, [](SimulatedPc& pc) {
    for (int song = 1; song <= kSongs; ++song)
      pc.Disk.AddMp3("/music/song " + std::to_string(song) + ".mp3", 1000);
  });
  EXPECT_EQ(desk.TheFrmPlaylist().AvailMP3s.ListCount(), kSongs + 3);
  desk.Click("cmdSelectAll");
  desk.Click("cmdRandomize");
  const std::string shuffled = desk.Selected();
  EXPECT_NE(shuffled, desk.Available());
  desk.SaveAs();
  ASSERT_FALSE(desk.TheFrmPlaylist().Loaded());
  desk.Click("mnuPlaylist");
  desk.Open(PlaylistDesk::kFile);
  EXPECT_EQ(desk.TheFrmPlaylist().SelectedMP3s.ListCount(), kSongs + 3);
  EXPECT_EQ(desk.Selected(), shuffled);
}

}  // namespace
}  // namespace marlex
