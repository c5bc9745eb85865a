#include <gtest/gtest.h>

#include "simulation/simulated_pc.h"

namespace marlex {
namespace {

/// A PC with two songs that counts the ends of songs.
struct SongDesk {
  SongDesk() {
    Pc.Disk.AddMp3("/m/march.mp3", 180'000);
    Pc.Disk.AddMp3("/m/waltz.mp3", 60'000);
    Pc.Song.OnEndOfStream = [this] { ++Ends; };
  }

  SimulatedPc Pc;
  int Ends = 0;
};

TEST(SimulatedSongPlayer, SongPlaysToItsEndAndReportsItOnce) {
  SongDesk desk;
  desk.Pc.Song.SetFileName("/m/march.mp3");
  EXPECT_EQ(desk.Pc.Song.PlayState(), kStopped);
  EXPECT_DOUBLE_EQ(desk.Pc.Song.Duration(), 180.0);
  desk.Pc.Song.Play();
  desk.Pc.Loop.RunFor(179'999);
  EXPECT_EQ(desk.Ends, 0);
  EXPECT_DOUBLE_EQ(desk.Pc.Song.CurrentPosition(), 179.999);
  desk.Pc.Loop.RunFor(500'000);
  EXPECT_EQ(desk.Ends, 1);
  EXPECT_EQ(desk.Pc.Song.PlayState(), kStopped);
  EXPECT_DOUBLE_EQ(desk.Pc.Song.CurrentPosition(), 0);
  EXPECT_EQ(desk.Pc.Journal.Text(), "0 song play march.mp3\n180000 song end\n");
}

TEST(SimulatedSongPlayer, SongOfNoLengthTakesAMillisecondSoThatTheClockMovesOn) {
  SongDesk desk;
  desk.Pc.Disk.AddMp3("/m/empty.mp3", 0);
  desk.Pc.Song.SetFileName("/m/empty.mp3");
  desk.Pc.Song.OnEndOfStream = [&] {
    ++desk.Ends;
    desk.Pc.Song.Play();
  };
  desk.Pc.Song.Play();
  desk.Pc.Loop.RunFor(100);
  EXPECT_EQ(desk.Ends, 100);
}

TEST(SimulatedSongPlayer, SongThatIsLoadedPlaysOnWhenItsFileGoesAway) {
  SongDesk desk;
  desk.Pc.Song.SetFileName("/m/waltz.mp3");
  desk.Pc.Song.Play();
  desk.Pc.Disk.Vanish("/m");
  desk.Pc.Loop.RunFor(60'000);
  EXPECT_EQ(desk.Ends, 1);
  desk.Pc.Song.SetFileName("/m/waltz.mp3");
  EXPECT_EQ(desk.Pc.Song.FileName(), "");
}

}  // namespace
}  // namespace marlex
