// Faults that random days have found, each reduced to what it needs.

#include <gtest/gtest.h>

#include "scenario/watched_desk.h"

namespace marlex {
namespace {

std::string Songs(WatchedDesk& desk) {
  std::string songs;
  for (int song = 0; song < desk.Main().lstPlaylist.ListCount(); ++song)
    songs += desk.Main().lstPlaylist.List(song) + " ";
  return songs;
}

TEST(FoundDays, ASongThatWasDeletedUnderThePointerDragsNoOther) {
  WatchedDesk desk({.Music = {{"march"}, {"waltz"}, {"polka"}}}, nullptr);
  desk.PressSong(2);
  desk.PressKeyInList(kKeyDelete);
  desk.DragTo(1);
  desk.DragTo(0);
  desk.LetGo();
  EXPECT_EQ(Songs(desk), "march waltz ");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 0u);
}

TEST(FoundDays, ASongWhoseListWasReplacedUnderThePointerDragsNoOther) {
  WatchedDesk desk({.Music = {{"march"}, {"waltz"}, {"polka"}}}, nullptr);
  desk.Pc.Disk.AddFile("/app/Short.lst", "[Playlist]\r\nSong:1=tango\r\nSong:2=swing\r\n");
  desk.PressSong(2);
  desk.Pc.Dialogs.OpenResults = {"/app/Short.lst"};
  desk.Click("mnuOpen");
  desk.DragTo(1);
  desk.LetGo();
  EXPECT_EQ(Songs(desk), "tango swing ");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 0u);
}

/// A takeover has emptied the waiting row, so that only the song's end switches the tick on. Then
/// something happens at every moment of the second that the tick has.
TEST(FoundDays, ATickThatTheEndOfASongSwitchesOnMissesNoMinute) {
  WatchedDesk desk({.Music = {{"march", 100'040}, {"waltz"}}, .Sequences = {{.Timer = "Between"}}},
                   nullptr);
  desk.Click("cmdPlay");
  constexpr int kEveryMs = 30;
  constexpr int kLongEnoughMs = 150'000;
  for (int ms = 0; ms < kLongEnoughMs; ms += kEveryMs) desk.Pc.Loop.Schedule(ms, [] {});
  desk.RunTo(12, 1, 30);
  EXPECT_FALSE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
  desk.Status(128);
  desk.Status(0);
  desk.RunTo(12, 2, 30);
  EXPECT_TRUE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
  EXPECT_EQ(desk.Sys->Tick.LastMinute, "12:02");
}

TEST(FoundDays, APreviewWhoseStopThePlayerDidNotUnderstandEndsWithTheEditor) {
  WatchedDesk desk({.Language = "Italian"}, nullptr);
  WavWindow& editor = desk.Sys->TheWindows.TheWavWindow;
  desk.Click("mnuSchedule");
  desk.Choose(editor.AvailWavs, "welcome");
  desk.Click("PrevKey");
  desk.Click("PrevKey");
  EXPECT_EQ(desk.Pc.Wav.Mode(), kWavePlaying);
  desk.Do([&] { editor.Close(); });
  EXPECT_NE(desk.Pc.Wav.Mode(), kWavePlaying);
}

}  // namespace
}  // namespace marlex
