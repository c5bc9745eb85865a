#include "music/playlist_files.h"

#include <gtest/gtest.h>

#include "desk/deeds.h"
#include "music/music_desk.h"

namespace marlex {
namespace {

/// A desk whose playlist file has this text.
struct FileDesk : MusicDesk {
  explicit FileDesk(const std::string& text, std::vector<int> now = {2024, 1, 1, 12, 0, 30})
      : MusicDesk({.Now = std::move(now)},
                  [&](SimulatedPc& pc) { pc.Disk.AddFile(kPlaylist, text); }) {}

  std::string Frame() { return Main().frBGMusic.Caption; }

  /// What the settings got from the file: "09:00-18:00 1234567 scheduled autostart".
  std::string Times() {
    return Values().MusicStartTime + "-" + Values().MusicStopTime + " " + Values().MusicWeekDays +
           (Values().MusicScheduled ? " scheduled" : "") +
           (Values().MusicAutostart ? " autostart" : "");
  }

  void Open(const std::string& path) {
    Pc.Dialogs.OpenResults = {path};
    Click("mnuOpen");
  }
};

const std::string kThreeSongs = "[Playlist]\r\nSong:1=a\r\nSong:2=b\r\nSong:3=c\r\n";
const std::string kWindow = "[Background music]\r\nStart time=12:00\r\nStop time=12:30\r\n";

TEST(PlaylistFiles, ShowTheirSongsInTheOrderOfTheFileAndSelectTheFirst) {
  FileDesk desk("[Playlist]\r\nSong:1=waltz\r\nSong:2=march\r\nSong:3=aria\r\n");
  EXPECT_EQ(desk.Entries(), "waltz march aria");
  EXPECT_EQ(desk.Position(), 0);
  EXPECT_EQ(desk.Buttons(), "Play");
  EXPECT_EQ(desk.PlayState(), kStopped);
  EXPECT_EQ(desk.Frame(), "Background music playlist: Day.lst");
}

TEST(PlaylistFiles, AGapInTheNumbersEndsTheList) {
  EXPECT_EQ(FileDesk("[Playlist]\r\nSong:1=a\r\nSong:2=b\r\nSong:4=d\r\n").Entries(), "a b");
  EXPECT_EQ(FileDesk("[Playlist]\r\nSong:1=a\r\nSong:2=\r\nSong:3=c\r\n").Entries(), "a");
  EXPECT_EQ(FileDesk("[Playlist]\r\nSong:2=b\r\n").Entries(), "");
}

TEST(PlaylistFiles, SectionsAndKeysAreFoundInAnyCaseAndOrder) {
  FileDesk desk(
      "[BACKGROUND MUSIC]\r\nWEEKDAYS=1030500\r\nstop TIME=18:00\r\nstart time=13:00\r\n"
      "autoSTART=false\r\n[playlist]\r\nSONG:2=b\r\nsong:1=a\r\n");
  EXPECT_EQ(desk.Entries(), "a b");
  EXPECT_EQ(desk.Times(), "13:00-18:00 1030500 scheduled");
  EXPECT_EQ(desk.Frame(), "Background music playlist: Day.lst 13:00-18:00");
}

TEST(PlaylistFiles, AFileWithTimesAndNoAutostartDoesNotStartByItself) {
  FileDesk desk(kThreeSongs + "[Background music]\r\nStart time=13:00\r\nStop time=14:00\r\n");
  EXPECT_EQ(desk.Times(), "13:00-14:00  scheduled");
  desk.Advance(20'000);
  EXPECT_EQ(desk.Journal(), "");
}

TEST(PlaylistFiles, AnAutostartResumesAtTheLastSong) {
  FileDesk desk("[Last played]\r\nLast song=2\r\n" + kThreeSongs +
                "[BackGround music]\r\nAutostart=True\r\n");
  EXPECT_EQ(desk.Heard(), "song c.mp3 at 20000");
  EXPECT_EQ(desk.Text("lblMP3Number"), "3/3");
  EXPECT_EQ(desk.Buttons(), "Play Skip Stop");
  EXPECT_EQ(desk.Times(), "-  autostart");
  EXPECT_EQ(desk.MusicFlags(), "");
}

TEST(PlaylistFiles, AnAutostartGivesTheClockTheMinuteBeforeItsFirstTick) {
  FileDesk desk(kThreeSongs);
  ASSERT_EQ(desk.State().CurrentMinute, "");
  desk.Pc.Disk.AddFile("/app/Auto.lst", kThreeSongs + "[BackGround music]\r\nAutostart=True\r\n");
  desk.Pc.Clock.Set(2024, 1, 1, 9, 5, 30);
  desk.Open("/app/Auto.lst");
  EXPECT_EQ(desk.State().CurrentMinute, "09:05");
}

TEST(PlaylistFiles, AnAutostartIsATruthWordInAnyCaseOrANumberButNought) {
  const std::vector<std::pair<std::string, bool>> texts = {
      {"True", true}, {"TRUE", true},   {"true", true}, {"1", true},    {"-1", true},
      {"", false},    {"False", false}, {"0", false},   {"Yes", false}, {"nonsense", false}};
  for (const auto& [text, on] : texts) {
    FileDesk desk(kThreeSongs + "[Background music]\r\nAutostart=" + text + "\r\n");
    EXPECT_EQ(desk.Values().MusicAutostart, on) << text;
    EXPECT_EQ(desk.PlayState(), on ? kPlaying : kStopped) << text;
  }
}

TEST(PlaylistFiles, AnAutostartGoesBeforeTheTimesWhichTheTickStillTests) {
  FileDesk desk(kThreeSongs +
                "[Background music]\r\nStart time=12:05\r\nStop time=12:10\r\nAutostart=True\r\n");
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
  EXPECT_EQ(desk.Times(), "12:05-12:10  scheduled autostart");
  StopByPreview(desk);
  desk.RunTo(12, 4, 59);
  EXPECT_EQ(desk.Heard(), "silence");
  desk.RunTo(12, 5, 1);
  EXPECT_EQ(desk.MusicFlags(), "Started");
  desk.RunTo(12, 10, 3);
  EXPECT_EQ(desk.MusicFlags(), "BySchedule");
  EXPECT_EQ(desk.Heard(), "silence");
}

TEST(PlaylistFiles, AnAutostartOfAnEmptyListIsSilence) {
  FileDesk desk("[Background music]\r\nAutostart=True\r\n");
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Position(), ListBox::kNoSelection);
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(PlaylistFiles, ALastSongThatTheListDoesNotHaveMeansTheFirstOne) {
  for (const std::string last : {"3", "32767", "999999999999", "-1", "x", ""}) {
    FileDesk desk("[Last played]\r\nLast song=" + last + "\r\n" + kThreeSongs +
                  "[BackGround music]\r\nAutostart=True\r\n");
    EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000") << last;
    EXPECT_EQ(desk.LastSong(), "0") << last;
  }
  EXPECT_EQ(PlaylistPosition(2, 3), 2);
  EXPECT_EQ(PlaylistPosition(3, 3), 0);
  EXPECT_EQ(PlaylistPosition(-1, 3), 0);
  EXPECT_EQ(PlaylistPosition(0, 0), ListBox::kNoSelection);
}

TEST(PlaylistFiles, TheFirstTickOfTheProgramStartsTheMusic) {
  FileDesk desk(kThreeSongs + kWindow);
  EXPECT_EQ(desk.State().CurrentMinute, "");
  EXPECT_EQ(desk.Heard(), "silence");
  desk.Advance(1000);
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
  EXPECT_EQ(desk.MusicFlags(), "Started");
}

TEST(PlaylistFiles, AListOpenedInsideItsWindowPlaysOnAnyWeekday) {
  FileDesk desk("[Last played]\r\nLast song=2\r\n" + kThreeSongs);
  desk.Advance(1000);
  desk.Pc.Disk.AddFile("/app/Night.lst", "[Last played]\r\nLast song=1\r\n" + kThreeSongs +
                                             kWindow + "Weekdays=0000000\r\n");
  desk.Pc.Journal.Clear();
  desk.Open("/app/Night.lst");
  EXPECT_EQ(desk.Journal(), "0 song refuse .mp3\n0 song play a.mp3\n");
  EXPECT_EQ(desk.Text("lblMP3Number"), "1/3");
  EXPECT_EQ(desk.Setting("Last played", "Last song", "/app/Night.lst"), "0");
  EXPECT_EQ(desk.MusicFlags(), "");
  EXPECT_EQ(desk.Frame(), "Background music playlist: Night.lst 12:00-12:30");
}

TEST(PlaylistFiles, AListOpenedInsideItsWindowIsNotStoppedByTheClock) {
  FileDesk desk(kThreeSongs);
  desk.Advance(1000);
  desk.Pc.Disk.AddFile("/app/Night.lst", kThreeSongs + kWindow);
  desk.Open("/app/Night.lst");
  desk.RunTo(13, 0);
  EXPECT_EQ(desk.PlayState(), kPlaying);
}

TEST(PlaylistFiles, TheWindowHasItsFirstMinuteAndNotItsLast) {
  struct Row {
    int Hour;
    int Minute;
    bool Ticked;  // the clock has seen the minute
    bool Plays;
  };
  for (const Row& row : std::vector<Row>{{12, 10, false, false},
                                         {11, 59, true, false},
                                         {12, 0, true, true},
                                         {12, 29, true, true},
                                         {12, 30, true, false},
                                         {13, 0, true, false}}) {
    FileDesk desk(kThreeSongs, {2024, 1, 1, row.Hour, row.Minute, 30});
    desk.Pc.Disk.AddFile("/app/Night.lst", kThreeSongs + kWindow);
    if (row.Ticked) desk.Advance(1000);
    desk.Open("/app/Night.lst");
    EXPECT_EQ(desk.PlayState(), row.Plays ? kPlaying : kStopped) << row.Hour << ":" << row.Minute;
    EXPECT_EQ(desk.Position(), 0);
  }
}

TEST(PlaylistFiles, AWindowThatEndsBeforeItBeginsIsNeverOpen) {
  for (const auto& [hour, minute] : {std::pair{5, 59}, {12, 0}, {22, 0}, {23, 59}, {0, 0}}) {
    FileDesk desk(kThreeSongs, {2024, 1, 1, hour, minute, 30});
    desk.Advance(1000);
    desk.Pc.Disk.AddFile(
        "/app/Night.lst",
        kThreeSongs + "[Background music]\r\nStart time=22:00\r\nStop time=06:00\r\n");
    desk.Open("/app/Night.lst");
    EXPECT_EQ(desk.PlayState(), kStopped) << hour << ":" << minute;
  }
}

TEST(PlaylistFiles, OpeningAsksForOneListAndMakesItTheCurrentOne) {
  FileDesk desk(kThreeSongs);
  desk.Pc.Disk.AddFile("/lists/Night.lst", "[Playlist]\r\nSong:1=c\r\nSong:2=a\r\n");
  desk.Open("/lists/Night.lst");
  ASSERT_EQ(desk.Pc.Dialogs.FileDialogs.size(), 1u);
  const FileDialog& dialog = desk.Pc.Dialogs.FileDialogs[0];
  EXPECT_EQ(dialog.Filter, "Playlist files (*.lst)|*.lst");
  EXPECT_EQ(dialog.DefaultExtension, "lst");
  EXPECT_EQ(dialog.InitialDirectory, "/app");
  EXPECT_FALSE(dialog.AllowMultiselect);
  EXPECT_EQ(desk.Entries(), "c a");
  EXPECT_EQ(desk.Values().CurrentPlaylistFile, "/lists/Night.lst");
  EXPECT_EQ(desk.Setting("Playlist", "Current list"), "/lists/Night.lst");
  EXPECT_EQ(desk.Frame(), "Background music playlist: Night.lst");
  desk.Restart();
  EXPECT_EQ(desk.Entries(), "c a");
}

TEST(PlaylistFiles, OpeningAListLetsTheSongPlayOnAndTheNextOneIsFromTheNewList) {
  FileDesk desk(kThreeSongs);
  desk.Click("cmdPlay");
  desk.Pc.Disk.AddFile("/app/Night.lst", "[Playlist]\r\nSong:1=c\r\nSong:2=b\r\n");
  desk.Advance(1000);
  desk.Open("/app/Night.lst");
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
  desk.Advance(9000);
  EXPECT_EQ(desk.Journal(), "0 song play a.mp3\n10000 song end\n10000 song play b.mp3\n");
}

TEST(PlaylistFiles, OpeningAListLiftsTheBarOfTheStopButton) {
  FileDesk desk(kThreeSongs);
  desk.Click("cmdPlay");
  desk.Click("cmdStop");
  EXPECT_EQ(desk.MusicFlags(), "ByUser");
  desk.Open(Desk::kPlaylist);
  EXPECT_EQ(desk.MusicFlags(), "");
}

TEST(PlaylistFiles, ACancelledDialogLeavesNoListAndASongPlaysOnToItsEnd) {
  FileDesk desk(kThreeSongs + kWindow);
  desk.Advance(1000);
  desk.Open("");
  EXPECT_EQ(desk.Entries(), "");
  EXPECT_EQ(desk.Setting("Playlist", "Current list"), "");
  EXPECT_EQ(desk.Times(), "- ");
  EXPECT_EQ(desk.Frame(), "Background music playlist: ");
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
  desk.Advance(60'000);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "silence");
}

TEST(PlaylistFiles, TheDeskWorksWhileTheDialogIsOpen) {
  FileDesk desk(kThreeSongs);
  desk.Click("cmdPlay");
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.Pc.Dialogs.OpenResults = {"/app/Night.lst"};
  desk.Pc.Disk.AddFile("/app/Night.lst", "[Playlist]\r\nSong:1=c\r\nSong:2=b\r\n");
  desk.Click("mnuOpen");
  desk.Advance(15'000);
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
  desk.Status(192);
  EXPECT_EQ(desk.Heard(), "silence");
  desk.Status(0);
  EXPECT_EQ(desk.Entries(), "a b c");
  desk.Pc.Dialogs.Answer();
  desk.Advance(0);
  EXPECT_EQ(desk.Entries(), "c b");
}

TEST(PlaylistFiles, TheFrameShowsItsCaptionAsSoonAsTheListIsLoaded) {
  FileDesk desk(kThreeSongs + "[Background music]\r\nStart time=09:00\r\nStop time=11:30\r\n");
  EXPECT_EQ(desk.Frame(), "Background music playlist: Day.lst 09:00-11:30");
}

TEST(PlaylistFiles, AFileThatIsNotThereLeavesTheListEmpty) {
  MusicDesk desk({}, [](SimulatedPc& pc) { pc.Disk.Remove(Desk::kPlaylist); });
  EXPECT_EQ(desk.Entries(), "");
  EXPECT_EQ(desk.Buttons(), "");
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
  desk.Advance(70'000);
  EXPECT_EQ(desk.Journal(), "");
}

TEST(PlaylistFiles, AnEmptyAForeignAndAnUnreadableFileLeaveTheListEmpty) {
  std::string noise;
  for (int byte = 0; byte < 4096; ++byte) noise += static_cast<char>(byte * 37 % 256);
  for (const std::string& text : {std::string(), noise, std::string("ID3\4\0\0", 6)}) {
    FileDesk desk(text);
    EXPECT_EQ(desk.Entries(), "");
    EXPECT_EQ(desk.Frame(), "Background music playlist: Day.lst");
    EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
    desk.Advance(70'000);
    EXPECT_EQ(desk.Journal(), "");
  }
  MusicDesk desk({}, [](SimulatedPc& pc) { pc.Disk.FailReads(Desk::kPlaylist); });
  EXPECT_EQ(desk.Entries(), "");
  EXPECT_EQ(desk.PlayState(), kStopped);
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(PlaylistFiles, AnUnreadableFileIsNotOverwrittenByThePosition) {
  FileDesk desk(kThreeSongs);
  desk.Pc.Disk.FailReads(Desk::kPlaylist);
  desk.Click("cmdPlay");
  desk.Advance(25'000);
  EXPECT_EQ(desk.Heard(), "song c.mp3 at 20000");
  desk.Pc.Disk.Heal(Desk::kPlaylist);
  EXPECT_EQ(desk.Pc.Disk.Read(Desk::kPlaylist), kThreeSongs);
}

TEST(PlaylistFiles, AFullDiskStopsNoMusic) {
  FileDesk desk(kThreeSongs);
  desk.Pc.Disk.FailWrites(Desk::kPlaylist);
  desk.Click("cmdPlay");
  desk.Advance(25'000);
  EXPECT_EQ(desk.Heard(), "song c.mp3 at 20000");
  EXPECT_EQ(desk.LastSong(), "");
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(PlaylistFiles, ACutOffFileKeepsTheSongsUpToTheCut) {
  EXPECT_EQ(FileDesk("[Playlist]\r\nSong:1=a\r\nSong:2=b\r\nSon").Entries(), "a b");
  EXPECT_EQ(FileDesk("[Playlist]\r\nSong:1=a\r\nSong:2=").Entries(), "a");
}

TEST(PlaylistFiles, ThePositionOfTheSongSurvivesAPowerCut) {
  FileDesk desk(kThreeSongs + "[Background music]\r\nAutostart=True\r\n");
  desk.Advance(15'000);
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
  desk.Restart();
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
}

TEST(PlaylistFiles, OnlyThePositionOfTheFileIsWrittenWhileMusicPlays) {
  FileDesk desk("; of the shop\r\n" + kThreeSongs + "\r\n[Other]\r\nkey = value\r\n");
  desk.Click("cmdPlay");
  desk.Advance(15'000);
  EXPECT_EQ(desk.Pc.Disk.Read(Desk::kPlaylist),
            "; of the shop\r\n" + kThreeSongs +
                "\r\n[Other]\r\nkey = value\r\n[Last played]\r\nLast song=1\r\n");
}

TEST(PlaylistFiles, TheLongestListIsLoadedWhole) {
  constexpr int kLongest = 32'767;
  std::string text = "[Playlist]\r\n";
  for (int song = 1; song <= kLongest; ++song) {
    text += "Song:" + std::to_string(song) + "=song " + std::to_string(song) + "\r\n";
  }
  FileDesk desk(text);
  EXPECT_EQ(desk.List().ListCount(), kLongest);
  EXPECT_EQ(desk.List().List(kLongest - 1), "song 32767");
}

TEST(PlaylistFiles, AnAutostartOfAnotherListBeginsWhereTheProgramBegan) {
  FileDesk desk("[Last played]\r\nLast song=1\r\n" + kThreeSongs);
  desk.Pc.Disk.AddFile("/app/Auto.lst",
                       "[Last played]\r\nLast song=2\r\n[Playlist]\r\nSong:1=c\r\nSong:2=a\r\n"
                       "Song:3=b\r\n[BackGround music]\r\nAutostart=True\r\n");
  desk.Click("cmdPlay");
  ASSERT_EQ(desk.LastSong(), "0");
  desk.Open("/app/Auto.lst");
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
  EXPECT_EQ(desk.Text("lblMP3Number"), "2/3");
}

}  // namespace
}  // namespace marlex
