#include <gtest/gtest.h>

#include <random>
#include <utility>

#include "music/music_desk.h"

namespace marlex {
namespace {

constexpr int kSongs = 100;

/// Songs "0", "1" and so on, of zero to three seconds.
std::vector<Medium> ShortSongs() {
  std::mt19937 random(7);
  std::vector<Medium> songs;
  for (int song = 0; song < kSongs; ++song)
    songs.push_back({std::to_string(song), static_cast<int>(random() % 3001)});
  songs.front().LengthMs = songs[1].LengthMs = 0;
  return songs;
}

TEST(ShortSongs, TenThousandOfThemBackToBackLeaveADeskWithTheRightSong) {
  constexpr int kRounds = 100;
  MusicDesk desk({.Music = ShortSongs()});
  desk.Pc.Journal.Only({"failure", "process", "box"});
  std::vector<std::string> played;
  desk.Pc.Loop.AfterEvent = [&desk, &played, seen = -1]() mutable {
    if (std::exchange(seen, desk.Position()) != desk.Position())
      played.push_back(desk.Pc.Song.FileName());
  };
  desk.Click("cmdPlay");
  ASSERT_TRUE(desk.Pc.Loop.RunUntil(
      [&] { return played.size() > static_cast<std::size_t>(kRounds * kSongs); }, 24 * 3'600'000));
  for (std::size_t song = 0; song < played.size(); ++song)
    ASSERT_EQ(played[song], "/music/" + std::to_string(song % kSongs) + ".mp3") << song;
  EXPECT_EQ(desk.Journal(), "");
  EXPECT_EQ(desk.Pc.Loop.Waits(), 1);
  EXPECT_EQ(desk.LastSong(), "0");
  EXPECT_EQ(desk.Text("lblMP3Number"), "1/100");
  EXPECT_EQ(desk.Heard(), "song 0.mp3 at 20000");
  desk.Click("cmdStop");
  desk.Select(5);
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song 5.mp3 at 20000");
}

}  // namespace
}  // namespace marlex
