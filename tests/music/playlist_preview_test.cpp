#include <gtest/gtest.h>

#include "desk/deeds.h"
#include "music/playlist_desk.h"

namespace marlex {
namespace {

/// The editor with the songs of the directory chosen and one of them selected. The song a of the
/// main window has been played and stopped.
struct SongPreviewDesk : PlaylistDesk {
  explicit SongPreviewDesk(const std::string& song = "b", DeskOptions options = {})
      : PlaylistDesk(std::move(options)) {
    PlayAndStop(*this);
    Click("cmdSelectAll");
    Choose(TheFrmPlaylist().SelectedMP3s, song);
    Pc.Journal.Clear();
  }
};

TEST(PlaylistPreview, PlaysTheSelectedSongUntilTheSecondPress) {
  SongPreviewDesk desk;
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
  EXPECT_EQ(desk.Text("PrevKey"), "Stop");
  EXPECT_EQ(desk.SongButtons(), "PrevKey");
  desk.Advance(3000);
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  EXPECT_EQ(desk.SongButtons(), "RemoveKey RemAll_Key PrevKey");
}

TEST(PlaylistPreview, OpensTheMastersAndTheWaveLinesMute) {
  PlaylistDesk desk;
  desk.Add({"b"});
  desk.Choose(desk.TheFrmPlaylist().SelectedMP3s, "b");
  ASSERT_TRUE(desk.MuteCheck(0));
  ASSERT_EQ(desk.WaveMute().Value, FrmMxr::kMuted);
  desk.Click("PrevKey");
  EXPECT_FALSE(desk.MuteCheck(0));
  EXPECT_EQ(desk.WaveMute().Value, FrmMxr::kOpen);
}

TEST(PlaylistPreview, AfterBackgroundMusicTheFirstPressStopsItAndTheSecondStarts) {
  SongPreviewDesk desk("c");
  desk.Click("cmdPlay");
  desk.TakeJournal();
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "song c.mp3 at 20000");
  EXPECT_EQ(desk.Text("PrevKey"), "Stop");
  EXPECT_EQ(desk.Journal(), "0 song stop\n0 song play c.mp3\n");
}

TEST(PlaylistPreview, AtItsEndTheMainWindowsListGoesOnAndTheButtonStillSaysStop) {
  SongPreviewDesk desk("c");
  desk.Click("PrevKey");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal(), "0 song play c.mp3\n10000 song end\n10000 song play b.mp3\n");
  EXPECT_EQ(desk.Position(), 1);
  EXPECT_EQ(desk.Text("PrevKey"), "Stop");
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "silence");
}

TEST(PlaylistPreview, LooksForTheMainWindowsSongAndNotForItsOwn) {
  SongPreviewDesk desk;
  desk.Pc.Disk.Remove("/music/a.mp3");
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Text("PrevKey"), "Stop");
  desk.Pc.Disk.AddMp3("/music/a.mp3", 10'000);
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
}

TEST(PlaylistPreview, BeforeAnySongOfTheMainWindowItIsSilent) {
  PlaylistDesk desk;
  desk.Add({"b"});
  desk.Choose(desk.TheFrmPlaylist().SelectedMP3s, "b");
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Text("PrevKey"), "Stop");
}

TEST(PlaylistPreview, WithNothingSelectedThePlayerRefusesTheEmptyName) {
  SongPreviewDesk desk;
  desk.Click("RemAll_Key");
  desk.Click("PrevKey");
  EXPECT_EQ(desk.TakeJournal(), "0 song refuse .mp3\n");
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Boxes(), "");
}

TEST(PlaylistPreview, GoesOnWhenTheEditorClosesAndTheNextOneSaysPlay) {
  SongPreviewDesk desk;
  desk.Click("PrevKey");
  desk.Exit();
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
  desk.Click("mnuPlaylist");
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  EXPECT_FALSE(desk.Enabled("PrevKey"));
}

TEST(PlaylistPreview, ADirectoryWithoutItsFinalSeparatorGetsOne) {
  PlaylistDesk desk;
  desk.Exit();
  desk.Do([&] { desk.Values().MusicDirectory = "/music"; });
  desk.Click("mnuPlaylist");
  desk.Add({"c"});
  desk.Choose(desk.TheFrmPlaylist().SelectedMP3s, "c");
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Pc.Song.FileName(), "/music/c.mp3");
}

TEST(PlaylistPreview, NoneBeginsUnderACall) {
  SongPreviewDesk desk;
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  EXPECT_EQ(desk.WaveMute().Value, FrmMxr::kMuted);
  EXPECT_EQ(desk.SongButtons(), "RemoveKey RemAll_Key PrevKey");
  EXPECT_EQ(desk.Journal().find("song play"), std::string::npos) << desk.Journal();
  desk.Release("cmdCall");
  desk.Advance(1000);
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
}

TEST(PlaylistPreview, NoneBeginsUnderAnAnnouncement) {
  SongPreviewDesk desk("b", {.Sequences = {{}}});
  desk.RunTo(12, 1, 1);
  ASSERT_TRUE(desk.State().MessagePlaying);
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  EXPECT_EQ(desk.Heard().find("song"), std::string::npos) << desk.Heard();
  desk.Advance(60'000);
  ASSERT_FALSE(desk.State().MessagePlaying);
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
}

TEST(PlaylistPreview, AnAmplifierThatTakesOverEndsItAndLetsNoneBegin) {
  SongPreviewDesk desk;
  desk.Click("PrevKey");
  desk.Advance(500);
  desk.Status(128);
  ASSERT_TRUE(desk.State().PriorityPreempted);
  EXPECT_EQ(desk.Pc.Song.PlayState(), kStopped);
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  EXPECT_EQ(desk.SongButtons(), "RemoveKey RemAll_Key PrevKey");
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
  EXPECT_TRUE(desk.MuteCheck(0));
  EXPECT_EQ(desk.Pc.Song.PlayState(), kStopped);
  desk.Status(0);
  desk.Advance(1000);
  EXPECT_EQ(desk.Heard(), "silence");
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
}

TEST(PlaylistPreview, AnAmplifierThatTakesOverEndsOneOfTheMainWindowsSongToo) {
  SongPreviewDesk desk("a");
  desk.Click("PrevKey");
  ASSERT_EQ(desk.Heard(), "song a.mp3 at 20000");
  desk.Status(128);
  EXPECT_EQ(desk.Pc.Song.PlayState(), kStopped);
  EXPECT_EQ(desk.Text("PrevKey"), "Play");
}

/// During a call of the amplifier another list does not start by itself, and the song plays on.
TEST(PlaylistPreview, ATakeoverLeavesASongThatAnotherListWasOpenedOver) {
  Desk desk({.Music = {{"a"}, {"b"}}});
  desk.Click("cmdPlay");
  desk.Status(64);
  desk.Pc.Disk.AddFile("/app/other.lst",
                       "[Playlist]\r\nSong:1=b\r\n[Background music]\r\nAutostart=True\r\n");
  desk.Pc.Dialogs.OpenResults = {"/app/other.lst"};
  desk.Click("mnuOpen");
  desk.Advance(1000);
  ASSERT_EQ(desk.Sys->Music.CurrentSongPath, "/music/b.mp3");
  ASSERT_EQ(desk.Heard(), "song a.mp3 at 20000");
  desk.Status(128);
  EXPECT_EQ(desk.Pc.Song.PlayState(), kPlaying);
  desk.Status(0);
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
}

TEST(PlaylistPreview, AnAmplifierThatTakesOverLeavesTheMainWindowsMusicRunning) {
  SongPreviewDesk desk;
  desk.Click("cmdPlay");
  desk.Status(128);
  EXPECT_EQ(desk.Pc.Song.PlayState(), kPlaying);
  desk.Status(0);
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
}

}  // namespace
}  // namespace marlex
