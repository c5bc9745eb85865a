#include <gtest/gtest.h>

#include "music/music_desk.h"
#include "music/music_player.h"

namespace marlex {
namespace {

/// Drags an entry with the mouse over the entries of `path`, one move for each.
void Drag(MusicDesk& desk, int from, const std::vector<int>& path) {
  desk.Select(from);
  desk.Do([&] { desk.List().OnMouseDown(MouseButton::Left); });
  for (const int entry : path) {
    desk.Select(entry);
    desk.Do([&] { desk.List().OnMouseMove(); });
  }
  desk.Do([&] { desk.List().OnMouseUp(); });
}

TEST(ListOfSongs, AClickOnAnotherEntryDecidesTheNextSongAndNotThisOne) {
  MusicDesk desk({.Music = MusicDesk::Songs(4)});
  desk.Click("cmdPlay");
  desk.Advance(1000);
  desk.Select(2);
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
  desk.Advance(9000);
  EXPECT_EQ(desk.Heard(), "song d.mp3 at 20000");
  EXPECT_EQ(desk.Journal(), "0 song play a.mp3\n10000 song end\n10000 song play d.mp3\n");
}

/// A desk of two-minute songs at 12:01:01, in the first second of an announcement: in its fade if
/// music plays, otherwise in its message.
struct AnnouncingDesk : MusicDesk {
  explicit AnnouncingDesk(bool music)
      : MusicDesk(
            {.Music = Songs(3, 120'000), .Sequences = {{.Timer = "Exact"}}, .FadeTime = "Slow"}) {
    if (music) Click("cmdPlay");
    RunTo(12, 1, 1);
    EXPECT_EQ(Buttons(), "");
  }
};

TEST(ListOfSongs, AClickInTheFadeOfAnAnnouncementWakesThePlayButton) {
  AnnouncingDesk desk(true);
  ASSERT_EQ(desk.PlayState(), kPlaying);
  desk.Select(1);
  EXPECT_EQ(desk.Buttons(), "Play");
}

TEST(ListOfSongs, AClickWhileAMessagePlaysLeavesThePlayButtonOff) {
  AnnouncingDesk desk(false);
  ASSERT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.Select(1);
  EXPECT_EQ(desk.Buttons(), "");
}

TEST(ListOfSongs, ADoubleClickPlaysTheEntry) {
  MusicDesk desk;
  desk.DoubleClickSong(2);
  EXPECT_EQ(desk.Journal(), "0 song play c.mp3\n");
}

TEST(ListOfSongs, ADoubleClickWhileAMessagePlaysPlaysNothing) {
  AnnouncingDesk desk(false);
  desk.DoubleClickSong(0);
  EXPECT_EQ(desk.PlayState(), kStopped);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

TEST(ListOfSongs, TheDeleteKeyTakesTheEntryOffTheListButNotOutOfTheFile) {
  MusicDesk desk;
  desk.Select(1);
  desk.PressKeyInList(kKeyDelete);
  EXPECT_EQ(desk.Entries(), "a c");
  EXPECT_EQ(desk.Position(), ListBox::kNoSelection);
  EXPECT_EQ(desk.Setting("Playlist", "Song:2", Desk::kPlaylist), "b");
  desk.PressKeyInList(kKeyDelete);
  EXPECT_EQ(desk.Entries(), "a c");
}

TEST(ListOfSongs, OtherKeysTakeNothingOff) {
  MusicDesk desk;
  for (int key = 0; key < 256; ++key) {
    if (key != kKeyDelete) desk.PressKeyInList(key);
  }
  EXPECT_EQ(desk.Entries(), "a b c");
}

TEST(ListOfSongs, TheDeleteKeyWorksWhileAMessagePlays) {
  AnnouncingDesk desk(false);
  desk.PressKeyInList(kKeyDelete);
  EXPECT_EQ(desk.Entries(), "b c");
}

TEST(ListOfSongs, AfterADeletionTheNextSongIsTheFirstOne) {
  MusicDesk desk;
  desk.Select(1);
  desk.Click("cmdPlay");
  desk.PressKeyInList(kKeyDelete);
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
  EXPECT_EQ(desk.LastSong(), "0");
}

TEST(ListOfSongs, AfterADeletionALongListStillScrollsToTheFirstSong) {
  MusicDesk desk({.Music = MusicDesk::Songs(20)});
  desk.Click("cmdPlay");
  desk.PressKeyInList(kKeyDelete);
  std::vector<int> selections;
  desk.List().Watcher = [&] { selections.push_back(desk.Position()); };
  desk.Click("cmdSkip");
  desk.List().Watcher = nullptr;
  EXPECT_EQ(selections, (std::vector<int>{9, 0}));
}

TEST(ListOfSongs, ADragCarriesAnEntryPastItsNeighbours) {
  MusicDesk desk({.Music = MusicDesk::Songs(5)});
  Drag(desk, 0, {1, 2, 3});
  EXPECT_EQ(desk.Entries(), "b c d a e");
  Drag(desk, 4, {3, 2, 1, 0});
  EXPECT_EQ(desk.Entries(), "e b c d a");
  EXPECT_EQ(desk.Setting("Playlist", "Song:1", Desk::kPlaylist), "a");
  EXPECT_FALSE(desk.Sys->Music.Drag.DragActive);
}

TEST(ListOfSongs, ADragThatJumpsOverEntriesOverwritesTheNeighbourOfItsTarget) {
  MusicDesk desk({.Music = MusicDesk::Songs(5)});
  Drag(desk, 0, {3});
  EXPECT_EQ(desk.Entries(), "a b d a e");
}

TEST(ListOfSongs, ADragShowsThePlaceOfTheSelection) {
  MusicDesk desk;
  desk.Do([&] { desk.List().OnMouseDown(MouseButton::Left); });
  desk.Select(1);
  desk.Do([&] { desk.List().OnMouseMove(); });
  EXPECT_EQ(desk.Text("lblMP3Number"), "2/3");
  EXPECT_EQ(desk.Sys->Music.Drag.DragIndex, 1);
  EXPECT_EQ(desk.Sys->Music.Drag.DragText, "a");
  EXPECT_TRUE(desk.Sys->Music.Drag.DragMoved);
}

TEST(ListOfSongs, AMoveWithoutAButtonDragsNothing) {
  MusicDesk desk;
  desk.Select(1);
  desk.Do([&] { desk.List().OnMouseMove(); });
  EXPECT_EQ(desk.Entries(), "a b c");
  EXPECT_EQ(desk.Text("lblMP3Number"), "");
}

TEST(ListOfSongs, AfterADragOfAnotherSongTheSelectionIsBackOnThePlayingOne) {
  MusicDesk desk({.Music = MusicDesk::Songs(5)});
  desk.Select(2);
  desk.Click("cmdPlay");
  Drag(desk, 4, {3, 2, 1, 0});
  EXPECT_EQ(desk.Entries(), "e a b c d");
  EXPECT_EQ(desk.Position(), 3);
  EXPECT_EQ(desk.Text("lblMP3Number"), "4/5");
}

TEST(ListOfSongs, AfterADragToAPlaceBelowTheSelectionIsTheOldIndexOfTheSong) {
  MusicDesk desk({.Music = MusicDesk::Songs(5)});
  desk.Select(2);
  desk.Click("cmdPlay");
  Drag(desk, 3, {4});
  EXPECT_EQ(desk.Entries(), "a b c e d");
  EXPECT_EQ(desk.Position(), 2);
  EXPECT_EQ(desk.Text("lblMP3Number"), "3/5");
}

TEST(ListOfSongs, RepeatedDragsWorkFromTheIndexAtWhichTheSongWasLoaded) {
  MusicDesk desk({.Music = MusicDesk::Songs(5)});
  desk.Select(2);
  desk.Click("cmdPlay");
  Drag(desk, 4, {3, 2, 1, 0});
  Drag(desk, 4, {3, 2, 1, 0});
  EXPECT_EQ(desk.Entries(), "d e a b c");
  EXPECT_EQ(desk.Position(), 3);
  EXPECT_EQ(desk.Sys->Music.CurrentSongIndex, 2);
}

TEST(ListOfSongs, ADragOfThePlayingSongKeepsTheSelectionOnIt) {
  MusicDesk desk({.Music = MusicDesk::Songs(5)});
  desk.Select(2);
  desk.Click("cmdPlay");
  Drag(desk, 2, {3, 4});
  EXPECT_EQ(desk.Entries(), "a b d e c");
  EXPECT_EQ(desk.Position(), 4);
}

TEST(ListOfSongs, ASongWhoseNameIsPartOfThePlayingPathCountsAsThePlayingOne) {
  MusicDesk desk({.Music = {{"march"}, {"waltz"}, {"mar"}, {"us"}}});
  desk.Click("cmdPlay");
  Drag(desk, 2, {1, 0});
  EXPECT_EQ(desk.Entries(), "mar march waltz us");
  EXPECT_EQ(desk.Position(), 0);
  Drag(desk, 3, {2});
  EXPECT_EQ(desk.Position(), 2);
}

TEST(ListOfSongs, WithoutPlayingMusicAnyDragPutsTheSelectionBack) {
  MusicDesk desk({.Music = MusicDesk::Songs(5)});
  desk.Select(2);
  desk.Click("cmdPlay");
  desk.Click("cmdStop");
  Drag(desk, 2, {3, 4});
  EXPECT_EQ(desk.Position(), 2);
}

TEST(ListOfSongs, ADragThatEndsWhereItBeganLeavesTheSelection) {
  MusicDesk desk({.Music = MusicDesk::Songs(5)});
  desk.Select(2);
  desk.Click("cmdPlay");
  Drag(desk, 4, {4});
  EXPECT_EQ(desk.Entries(), "a b c d e");
  EXPECT_EQ(desk.Position(), 4);
  EXPECT_EQ(desk.Text("lblMP3Number"), "5/5");
}

TEST(ListOfSongs, AfterADragInFrontOfTheLastSongTheSelectionStaysInTheList) {
  MusicDesk desk;
  desk.Select(2);
  desk.Click("cmdPlay");
  Drag(desk, 1, {0, 1, 2});
  EXPECT_EQ(desk.Entries(), "a c b");
  EXPECT_EQ(desk.Position(), 2);
  desk.Do([&] { desk.Sys->Music.CurrentSongIndex = 40; });
  Drag(desk, 2, {1});
  EXPECT_EQ(desk.Entries(), "a b c");
  EXPECT_EQ(desk.Position(), 2);
  EXPECT_EQ(desk.Journal(), "0 song play c.mp3\n");
}

TEST(ListOfSongs, AnEmptyListTakesAnyHandWithoutAFault) {
  MusicDesk desk;
  desk.Do([&] { desk.List().Clear(); });
  desk.PressKeyInList(kKeyDelete);
  desk.Do([&] {
    desk.List().OnMouseDown(MouseButton::Left);
    desk.List().OnMouseMove();
    desk.List().OnMouseUp();
    desk.List().OnDblClick();
  });
  EXPECT_EQ(desk.Journal(), "0 song refuse .mp3\n");
}

TEST(ListOfSongs, AfterADragToThePlayingSongsPlaceTheSelectionIsOneFurther) {
  MusicDesk desk({.Music = MusicDesk::Songs(5)});
  desk.Select(2);
  desk.Click("cmdPlay");
  Drag(desk, 4, {3, 2});
  EXPECT_EQ(desk.Entries(), "a b e c d");
  EXPECT_EQ(desk.Position(), 3);
  EXPECT_EQ(desk.Text("lblMP3Number"), "4/5");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Heard(), "song d.mp3 at 20000");
}

}  // namespace
}  // namespace marlex
