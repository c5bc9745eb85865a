// What random days have found, each told again with no more than it needs.

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

}  // namespace
}  // namespace marlex
