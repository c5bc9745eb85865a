#include <gtest/gtest.h>

#include "music/music_desk.h"
#include "music/music_player.h"

namespace marlex {
namespace {

void Break(Desk& desk, const std::string& song) {
  desk.Pc.Disk.AddBroken("/music/" + song + ".mp3");
}

TEST(RefusedSongs, AreSkippedWithoutAWordAndThePositionMovesOn) {
  MusicDesk desk({.Music = MusicDesk::Songs(4)});
  Break(desk, "b");
  desk.Pc.Disk.Remove("/music/c.mp3");
  desk.Click("cmdPlay");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal(),
            "0 song play a.mp3\n10000 song end\n"
            "10000 song refuse b.mp3\n10000 song refuse c.mp3\n10000 song play d.mp3\n");
  EXPECT_EQ(desk.LastSong(), "3");
  EXPECT_EQ(desk.Text("lblMP3Number"), "4/4");
  EXPECT_EQ(desk.Sys->Music.CurrentSongIndex, 3);
}

TEST(RefusedSongs, ThePlayButtonGoesOnToTheNextSongThatPlays) {
  MusicDesk desk;
  Break(desk, "c");
  Break(desk, "a");
  desk.Select(2);
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Journal(), "0 song refuse c.mp3\n0 song refuse a.mp3\n0 song play b.mp3\n");
  EXPECT_EQ(desk.LastSong(), "1");
  EXPECT_EQ(desk.Buttons(), "Play Skip Stop");
}

TEST(RefusedSongs, AListOfNothingElseStopsAfterOneRound) {
  MusicDesk desk;
  for (const Medium& song : MusicDesk::Songs(3)) Break(desk, song.Name);
  desk.Select(1);
  desk.Click("cmdPlay");
  desk.Advance(60'000);
  EXPECT_EQ(desk.Journal(),
            "0 song refuse b.mp3\n"
            "0 song refuse c.mp3\n0 song refuse a.mp3\n0 song refuse b.mp3\n");
  EXPECT_EQ(desk.PlayState(), kStopped);
  EXPECT_EQ(desk.LastSong(), "1");
}

TEST(RefusedSongs, ALostDirectoryStopsTheMusicAfterOneRound) {
  MusicDesk desk;
  desk.Click("cmdPlay");
  desk.Pc.Disk.Vanish("/music");
  desk.Advance(60'000);
  EXPECT_EQ(desk.Journal(),
            "0 song play a.mp3\n10000 song end\n"
            "10000 song refuse b.mp3\n10000 song refuse c.mp3\n10000 song refuse a.mp3\n");
  EXPECT_EQ(desk.Heard(), "silence");
  desk.Pc.Disk.Return("/music");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
}

TEST(RefusedSongs, TheLongestListOfThemNeitherOverflowsTheStackNorHangs) {
  constexpr int kLongest = 32'767;
  DeskOptions options;
  for (int song = 0; song < kLongest; ++song) options.Music.push_back({std::to_string(song), 1000});
  MusicDesk desk(options);
  ASSERT_EQ(desk.List().ListCount(), kLongest);
  const auto path = [](int song) { return "/music/" + std::to_string(song) + ".mp3"; };
  for (int song = 0; song < kLongest; ++song) desk.Pc.Disk.FailReads(path(song));
  desk.Pc.Journal.Only({"song", "write", "failure"});
  desk.Click("cmdPlay");
  // The selected song, one round, and the position: written for the round's first and last song,
  // and by the button.
  EXPECT_EQ(desk.Pc.Journal.Lines().size(), 1u + kLongest + 3u);
  EXPECT_EQ(desk.Position(), 0);
  for (int song = 0; song < kLongest; ++song) desk.Pc.Disk.Heal(path(song));
  desk.Select(kLongest - 1);
  desk.Click("cmdPlay");
  desk.Advance(1000);
  EXPECT_EQ(desk.Heard(), "song 0.mp3 at 20000");
}

TEST(RefusedSongs, ASongEndWithAnEmptyListIsTheEndOfTheMusic) {
  MusicDesk desk;
  desk.Click("cmdPlay");
  for (int song = 0; song < 3; ++song) {
    desk.Select(0);
    desk.PressKeyInList(kKeyDelete);
  }
  desk.Advance(60'000);
  EXPECT_EQ(desk.Journal(), "0 song play a.mp3\n10000 song end\n");
  desk.Click("cmdSkip");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.PlayState(), kStopped);
  EXPECT_EQ(desk.Journal(), "0 song play a.mp3\n10000 song end\n60000 song refuse .mp3\n");
}

TEST(RefusedSongs, ASongThatIsGoneWhenItShouldPlayIsSilenceWithoutAnEnd) {
  MusicDesk desk;
  desk.Click("cmdPlay");
  desk.Advance(1000);
  desk.Do([&] { desk.Pc.Song.Pause(); });
  desk.Pc.Disk.Vanish("/music/a.mp3");
  desk.Do([&] { desk.Sys->Music.PlaySong(); });
  desk.Advance(60'000);
  EXPECT_EQ(desk.PlayState(), kPaused);
  EXPECT_EQ(desk.Journal(), "0 song play a.mp3\n1000 song pause\n");
}

TEST(RefusedSongs, TheTestBeforePlayingLooksAtTheLastPathAlone) {
  MusicDesk desk;
  desk.Click("cmdPlay");
  desk.Do([&] {
    desk.Pc.Song.SetFileName("/music/c.mp3");
    desk.Sys->Music.PlaySong();
  });
  EXPECT_EQ(desk.Heard(), "song c.mp3 at 20000");
  desk.Pc.Disk.Vanish("/music/a.mp3");
  desk.Do([&] {
    desk.Pc.Song.SetFileName("/music/c.mp3");
    desk.Sys->Music.PlaySong();
  });
  EXPECT_EQ(desk.Heard(), "silence");
}

}  // namespace
}  // namespace marlex
