// What every implementation of `SongPlayer` promises.

#include <gtest/gtest.h>

#include "contracts/devices/player_bench.h"

namespace marlex {
namespace {

constexpr int kLengthMs = 600;
constexpr double kLength = 0.6;
constexpr int kSlackMs = 50;  // more than a block of the sound engine

class SongPlayerContract : public testing::TestWithParam<PcKind> {
 protected:
  SongPlayerContract() {
    Song.OnEndOfStream = [this] {
      ++Ends;
      StateAtEnd = Song.PlayState();
    };
  }

  void Load(int lengthMs = kLengthMs) { Song.SetFileName(Bench->Mp3("song.mp3", lengthMs)); }

  const std::unique_ptr<PlayerBench> Bench = MakePlayerBench(GetParam());
  SongPlayer& Song = Bench->Song();
  int Ends = 0;
  int StateAtEnd = -1;
};

INSTANTIATE_TEST_SUITE_P(Pc, SongPlayerContract, kBothPcs, NameOf);

TEST_P(SongPlayerContract, ALoadedSongIsStoppedAtItsBeginning) {
  Load();
  EXPECT_EQ(Song.FileName(), Bench->Path("song.mp3"));
  EXPECT_NEAR(Song.Duration(), kLength, 1e-6);
  EXPECT_EQ(Song.PlayState(), kStopped);
  EXPECT_EQ(Song.CurrentPosition(), 0);
  Bench->Advance(kLengthMs + kSlackMs);
  EXPECT_EQ(Song.CurrentPosition(), 0);
  EXPECT_EQ(Ends, 0);
}

TEST_P(SongPlayerContract, ASongPlaysToItsEndAndReportsItOnce) {
  Load();
  Song.Play();
  EXPECT_EQ(Song.PlayState(), kPlaying);
  Bench->Advance(kLengthMs - kSlackMs);
  EXPECT_EQ(Ends, 0);
  EXPECT_NEAR(Song.CurrentPosition(), kLength - kSlackMs / 1000.0, 1e-3);
  Bench->Advance(2 * kSlackMs);
  EXPECT_EQ(Ends, 1);
  EXPECT_EQ(StateAtEnd, kStopped);
  EXPECT_EQ(Song.PlayState(), kStopped);
  EXPECT_EQ(Song.CurrentPosition(), 0);
  EXPECT_NEAR(Song.Duration(), kLength, 1e-6);
  Bench->Advance(2 * kLengthMs);
  EXPECT_EQ(Ends, 1);
}

TEST_P(SongPlayerContract, ASongThatHasEndedPlaysAgainFromItsBeginning) {
  Load();
  for (int play = 1; play <= 2; ++play) {
    Song.Play();
    Bench->Advance(kLengthMs - kSlackMs);
    EXPECT_EQ(Ends, play - 1);
    Bench->Advance(2 * kSlackMs);
    EXPECT_EQ(Ends, play);
  }
}

TEST_P(SongPlayerContract, APauseKeepsThePositionAndPlayGoesOnThere) {
  Load();
  Song.Play();
  Bench->Advance(200);
  Song.Pause();
  const double paused = Song.CurrentPosition();
  EXPECT_NEAR(paused, 0.2, 1e-3);
  Bench->Advance(2 * kLengthMs);
  EXPECT_EQ(Song.PlayState(), kPaused);
  EXPECT_EQ(Song.CurrentPosition(), paused);
  EXPECT_EQ(Ends, 0);
  Song.Play();
  EXPECT_EQ(Song.PlayState(), kPlaying);
  Bench->Advance(kLengthMs - 200 - kSlackMs);
  EXPECT_EQ(Ends, 0);
  Bench->Advance(2 * kSlackMs);
  EXPECT_EQ(Ends, 1);
}

TEST_P(SongPlayerContract, APauseHasNoEffectUnlessTheSongPlays) {
  Load();
  Song.Pause();
  EXPECT_EQ(Song.PlayState(), kStopped);
  Song.Play();
  Bench->Advance(100);
  Song.Pause();
  Song.Pause();
  EXPECT_EQ(Song.PlayState(), kPaused);
  Song.Stop();
  Song.Pause();
  EXPECT_EQ(Song.PlayState(), kStopped);
}

TEST_P(SongPlayerContract, ASecondPlayDoesNotStartThePlayingSongAgain) {
  Load();
  Song.Play();
  Bench->Advance(300);
  Song.Play();
  EXPECT_NEAR(Song.CurrentPosition(), 0.3, 1e-3);
  Bench->Advance(300 + kSlackMs);
  EXPECT_EQ(Ends, 1);
}

TEST_P(SongPlayerContract, AStopReportsNoEndAndGoesBackToTheBeginning) {
  Load();
  for (const bool paused : {false, true}) {
    Song.Play();
    Bench->Advance(300);
    if (paused) Song.Pause();
    Song.Stop();
    EXPECT_EQ(Song.PlayState(), kStopped);
    EXPECT_EQ(Song.CurrentPosition(), 0);
    EXPECT_NEAR(Song.Duration(), kLength, 1e-6);
    EXPECT_NE(Song.FileName(), "");
    Bench->Advance(2 * kLengthMs);
    EXPECT_EQ(Ends, 0);
  }
  Song.Play();
  Bench->Advance(kLengthMs - kSlackMs);
  EXPECT_EQ(Ends, 0);
}

TEST_P(SongPlayerContract, AReplacedSongReportsNoEnd) {
  Load();
  Song.Play();
  Bench->Advance(300);
  Song.SetFileName(Bench->Mp3("next.mp3", 300));
  EXPECT_EQ(Song.PlayState(), kStopped);
  EXPECT_EQ(Song.CurrentPosition(), 0);
  EXPECT_NEAR(Song.Duration(), 0.3, 1e-6);
  Bench->Advance(2 * kLengthMs);
  EXPECT_EQ(Ends, 0);
}

TEST_P(SongPlayerContract, AFileThatCannotBePlayedIsRefused) {
  const std::string wave = Bench->Wav("wave.mp3", 100);
  for (const std::string& path :
       {Bench->Noise("noise.mp3"), wave, Bench->Path("gone.mp3"), std::string()}) {
    Load();
    Song.Play();
    Song.SetFileName(path);
    EXPECT_EQ(Song.FileName(), "") << path;
    EXPECT_EQ(Song.Duration(), 0) << path;
    Song.Play();
    EXPECT_EQ(Song.PlayState(), kStopped) << path;
  }
  Bench->Advance(2 * kLengthMs);
  EXPECT_EQ(Ends, 0);
}

TEST_P(SongPlayerContract, WithoutASongNothingHappens) {
  Song.Play();
  Song.Pause();
  Song.Stop();
  EXPECT_EQ(Song.FileName(), "");
  EXPECT_EQ(Song.PlayState(), kStopped);
  EXPECT_EQ(Song.Duration(), 0);
  EXPECT_EQ(Song.CurrentPosition(), 0);
}

TEST_P(SongPlayerContract, TheEndMayLoadAndPlayTheNextSong) {
  const std::string next = Bench->Mp3("next.mp3", 300);
  Load();
  Song.OnEndOfStream = [&] {
    if (++Ends > 1) return;
    Song.SetFileName(next);
    Song.Play();
  };
  Song.Play();
  Bench->Advance(kLengthMs + kSlackMs);
  EXPECT_EQ(Song.FileName(), next);
  EXPECT_EQ(Song.PlayState(), kPlaying);
  Bench->Advance(300);
  EXPECT_EQ(Ends, 2);
  EXPECT_EQ(Song.PlayState(), kStopped);
}

TEST_P(SongPlayerContract, NoCallbackRunsInsideACall) {
  Load(100);
  Song.Play();
  Bench->Advance(200);
  ASSERT_EQ(Ends, 1);
  Song.Play();
  Song.Stop();
  Song.Play();
  Song.Pause();
  Song.SetFileName("");
  EXPECT_EQ(Ends, 1);
}

TEST_P(SongPlayerContract, ALoadedSongPlaysThoughItsFileHasGone) {
  Load(100);
  Bench->Remove(Bench->Path("song.mp3"));
  Song.Play();
  EXPECT_EQ(Song.PlayState(), kPlaying);
  Bench->Advance(100 + kSlackMs);
  EXPECT_EQ(Ends, 1);
}

TEST_P(SongPlayerContract, AFileThatHasGoneSinceTheStopDoesNotPlay) {
  Load();
  Song.Play();
  Bench->Advance(100);
  Song.Stop();
  Bench->Remove(Bench->Path("song.mp3"));
  Song.Play();
  EXPECT_EQ(Song.PlayState(), kStopped);
  EXPECT_NE(Song.FileName(), "");
  EXPECT_NEAR(Song.Duration(), kLength, 1e-6);
  Bench->Advance(2 * kLengthMs);
  EXPECT_EQ(Ends, 0);
}

TEST_P(SongPlayerContract, TheLengthOfASongOnASlowDriveIsZeroUntilItIsKnown) {
  const std::string song = Bench->Mp3("song.mp3", kLengthMs);
  Bench->HoldLengths();
  Song.SetFileName(song);
  EXPECT_EQ(Song.FileName(), song);
  EXPECT_EQ(Song.Duration(), 0);
  Bench->LetLengthsArrive();
  EXPECT_NEAR(Song.Duration(), kLength, 1e-6);
}

TEST_P(SongPlayerContract, ASongThatIsStoppedBeforeItsLengthIsKnownKeepsZero) {
  const std::string song = Bench->Mp3("song.mp3", kLengthMs);
  Bench->HoldLengths();
  Song.SetFileName(song);
  Song.Play();
  Song.Stop();
  EXPECT_EQ(Song.Duration(), 0);
  Song.Play();
  EXPECT_EQ(Song.Duration(), 0);
  Bench->LetLengthsArrive();
  EXPECT_NEAR(Song.Duration(), kLength, 1e-6);
}

}  // namespace
}  // namespace marlex
