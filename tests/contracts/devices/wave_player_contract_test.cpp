// What every implementation of `WavePlayer` promises.

#include <gtest/gtest.h>

#include "contracts/devices/player_bench.h"
#include "platform/runtime_failure.h"

namespace marlex {
namespace {

constexpr int kLengthMs = 400;
constexpr int kReportMs = 20;  // within which a report comes
constexpr int kBlockMs = 10;   // the sound engine hears of an end with its next block

class WavePlayerContract : public testing::TestWithParam<PcKind> {
 protected:
  WavePlayerContract() {
    Wave.OnDone = [this] { Reports += "done "; };
    Wave.OnStatusUpdate = [this] { Reports += std::to_string(Wave.Mode()) + " "; };
  }

  void Open(const std::string& path) {
    Wave.FileName = path;
    Wave.Command("Open");
  }
  void Open() { Open(Bench->Wav("chime.wav", kLengthMs)); }
  void Play() {
    Open();
    Wave.Command("Play");
  }
  void PassTheEnd() { Bench->Advance(kLengthMs + kBlockMs + kReportMs); }

  const std::unique_ptr<PlayerBench> Bench = MakePlayerBench(GetParam());
  WavePlayer& Wave = Bench->Wave();
  std::string Reports;
};

INSTANTIATE_TEST_SUITE_P(Pc, WavePlayerContract, kBothPcs, NameOf);

TEST_P(WavePlayerContract, TheModeFollowsTheCommands) {
  EXPECT_EQ(Wave.Mode(), kWaveNotOpen);
  Open();
  EXPECT_EQ(Wave.Mode(), kWaveStopped);
  Wave.Command("Play");
  EXPECT_EQ(Wave.Mode(), kWavePlaying);
  Wave.Command("Pause");
  EXPECT_EQ(Wave.Mode(), kWavePaused);
  Wave.Command("Play");
  EXPECT_EQ(Wave.Mode(), kWavePlaying);
  Wave.Command("Stop");
  EXPECT_EQ(Wave.Mode(), kWaveStopped);
  Wave.Command("Close");
  EXPECT_EQ(Wave.Mode(), kWaveNotOpen);
}

TEST_P(WavePlayerContract, APlayToTheEndIsReportedOnceAndInTime) {
  Play();
  Bench->Advance(kLengthMs - kBlockMs);
  EXPECT_EQ(Reports, "");
  EXPECT_EQ(Wave.Mode(), kWavePlaying);
  Bench->Advance(2 * kBlockMs + kReportMs);
  EXPECT_EQ(Reports, "done 525 ");
  EXPECT_EQ(Wave.Mode(), kWaveStopped);
  PassTheEnd();
  EXPECT_EQ(Reports, "done 525 ");
}

TEST_P(WavePlayerContract, AFileThatCannotBeOpenedIsReportedOnce) {
  const std::string song = Bench->Mp3("song.wav", 100);
  for (const std::string& path :
       {Bench->Path("gone.wav"), Bench->Noise("noise.wav"), song, std::string()}) {
    Reports.clear();
    Open(path);
    EXPECT_EQ(Reports, "") << "inside the call";
    Wave.Command("Play");
    EXPECT_EQ(Wave.Mode(), kWaveNotOpen);
    EXPECT_EQ(Wave.Length(), 0);
    PassTheEnd();
    EXPECT_EQ(Reports, "525 ") << path;
    EXPECT_EQ(Wave.Mode(), kWaveNotOpen);
  }
}

TEST_P(WavePlayerContract, AFileClosedWhileItPlaysOrPausesIsReportedOnce) {
  for (const bool paused : {false, true}) {
    Reports.clear();
    Play();
    Bench->Advance(100);
    if (paused) Wave.Command("Pause");
    Wave.Command("Close");
    Wave.Command("Close");
    EXPECT_EQ(Reports, "") << "inside the call";
    EXPECT_EQ(Wave.Mode(), kWaveNotOpen);
    EXPECT_EQ(Wave.Length(), 0);
    PassTheEnd();
    EXPECT_EQ(Reports, "525 ");
  }
}

TEST_P(WavePlayerContract, AStopIsReportedOnce) {
  for (const bool paused : {false, true}) {
    Reports.clear();
    Play();
    Bench->Advance(100);
    if (paused) Wave.Command("Pause");
    Wave.Command("Stop");
    Wave.Command("Stop");
    EXPECT_EQ(Reports, "") << "inside the call";
    PassTheEnd();
    Wave.Command("Close");
    Bench->Advance(kReportMs);
    EXPECT_EQ(Reports, "525 ");
  }
}

TEST_P(WavePlayerContract, ClosingAStoppedFileReportsNothing) {
  Open();
  Wave.Command("Close");
  PassTheEnd();
  EXPECT_EQ(Reports, "");
}

TEST_P(WavePlayerContract, ADeviceThatWasNeverOpenedReportsNothing) {
  for (const char* word : {"Play", "Stop", "Pause", "Close"}) Wave.Command(word);
  PassTheEnd();
  EXPECT_EQ(Reports, "");
  EXPECT_EQ(Wave.Mode(), kWaveNotOpen);
  EXPECT_EQ(Wave.Length(), 0);
}

TEST_P(WavePlayerContract, OpeningDropsReportsOfTheEarlierFile) {
  for (const char* word : {"Stop", "Close", "none"}) {
    Play();
    Bench->Advance(100);
    Wave.Command(word);
    Play();
    Bench->Advance(kLengthMs - kBlockMs);
    EXPECT_EQ(Reports, "") << word;
  }
  Open(Bench->Path("gone.wav"));
  Play();
  PassTheEnd();
  EXPECT_EQ(Reports, "done 525 ");
}

TEST_P(WavePlayerContract, AnyOtherWordIsNoCommand) {
  Wave.FileName = Bench->Wav("chime.wav", kLengthMs);
  for (const char* word : {"open", "OPEN", "Open ", ""}) Wave.Command(word);
  EXPECT_EQ(Wave.Mode(), kWaveNotOpen);
  Wave.Command("Open");
  for (const char* word : {"play", "Resume"}) Wave.Command(word);
  EXPECT_EQ(Wave.Mode(), kWaveStopped);
  Wave.Command("Play");
  for (const char* word : {"Chiudi", "close", "CLOSE", "stop", "pause", "Seek"}) Wave.Command(word);
  EXPECT_EQ(Wave.Mode(), kWavePlaying);
}

TEST_P(WavePlayerContract, AStoppedFilePlaysFromItsBeginning) {
  Play();
  Bench->Advance(300);
  Wave.Command("Stop");
  Bench->Advance(kReportMs);
  Reports.clear();
  Wave.Command("Play");
  Bench->Advance(kLengthMs - kBlockMs);
  EXPECT_EQ(Reports, "");
  Bench->Advance(2 * kBlockMs + kReportMs);
  EXPECT_EQ(Reports, "done 525 ");
}

TEST_P(WavePlayerContract, AFileThatHasEndedPlaysAgain) {
  Play();
  PassTheEnd();
  Wave.Command("Play");
  EXPECT_EQ(Wave.Mode(), kWavePlaying);
  PassTheEnd();
  EXPECT_EQ(Reports, "done 525 done 525 ");
}

TEST_P(WavePlayerContract, APausedFileGoesOnWhereItWas) {
  Play();
  Bench->Advance(300);
  Wave.Command("Pause");
  Bench->Advance(2 * kLengthMs);
  EXPECT_EQ(Reports, "");
  Wave.Command("Play");
  Bench->Advance(kLengthMs - 300 - kBlockMs);
  EXPECT_EQ(Reports, "");
  Bench->Advance(3 * kBlockMs + kReportMs);
  EXPECT_EQ(Reports, "done 525 ");
}

TEST_P(WavePlayerContract, TheReportedModeIsReadWhileItIsDelivered) {
  std::string seen;
  Wave.OnDone = [&] {
    Wave.Command("Close");
    seen += std::to_string(Wave.Mode()) + " ";
  };
  Wave.OnStatusUpdate = [&] { seen += std::to_string(Wave.Mode()) + " "; };
  Play();
  PassTheEnd();
  EXPECT_EQ(seen, "525 525 ");
  EXPECT_EQ(Wave.Mode(), kWaveNotOpen);
}

TEST_P(WavePlayerContract, AListenerThatFailsEndsTheReport) {
  int inside = 0;
  Wave.OnStatusUpdate = [&] {
    inside = Wave.Mode();
    throw RuntimeFailure("a listener fails");
  };
  Open(Bench->Path("gone.wav"));
  Bench->Advance(kReportMs);
  EXPECT_EQ(inside, kWaveStopped);
  EXPECT_EQ(Wave.Mode(), kWaveNotOpen);
}

TEST_P(WavePlayerContract, AListenerThatOpensTheNextFileHearsNoMoreOfThisOne) {
  int played = 0;
  Wave.OnDone = [&] {
    Reports += "done ";
    if (++played == 3) return;
    Wave.Command("Open");
    Wave.Command("Play");
    Reports += std::to_string(Wave.Mode()) + " ";
  };
  Play();
  for (int play = 0; play < 3; ++play) PassTheEnd();
  EXPECT_EQ(Reports, "done 526 done 526 done 525 ");
}

TEST_P(WavePlayerContract, AListenerThatPlaysTheFileAgainReadsThatItPlays) {
  int heard = 0;
  Wave.OnStatusUpdate = [&] {
    Reports += std::to_string(Wave.Mode()) + " ";
    if (++heard > 1) return;
    Wave.Command("Play");
    Reports += std::to_string(Wave.Mode()) + " ";
  };
  Play();
  PassTheEnd();
  PassTheEnd();
  EXPECT_EQ(Reports, "done 525 526 done 525 ");
}

TEST_P(WavePlayerContract, TheEndIsReportedThoughItsListenerPlaysTheFileAgain) {
  int played = 0;
  Wave.OnDone = [&] {
    Reports += "done ";
    if (++played == 1) Wave.Command("Play");
  };
  Play();
  PassTheEnd();
  EXPECT_EQ(Reports, "done 525 ");
  EXPECT_EQ(Wave.Mode(), kWavePlaying);
  PassTheEnd();
  EXPECT_EQ(Reports, "done 525 done 525 ");
}

TEST_P(WavePlayerContract, ItsPropertiesAreOnlyStored) {
  Wave.Wait = true;
  Wave.Notify = true;
  Wave.Shareable = true;
  Wave.DeviceType = "MPEGVideo";
  Play();
  EXPECT_EQ(Wave.Mode(), kWavePlaying) << "the command does not wait";
  PassTheEnd();
  EXPECT_EQ(Reports, "done 525 ");
  EXPECT_EQ(Wave.DeviceType, "MPEGVideo");
}

TEST_P(WavePlayerContract, ANewNameCountsFromTheNextOpening) {
  Open();
  Wave.FileName = Bench->Wav("long.wav", 2 * kLengthMs);
  EXPECT_EQ(Wave.Length(), kLengthMs);
  Wave.Command("Play");
  PassTheEnd();
  Wave.Command("Play");
  PassTheEnd();
  EXPECT_EQ(Reports, "done 525 done 525 ");
  Wave.Command("Open");
  EXPECT_EQ(Wave.Length(), 2 * kLengthMs);
}

TEST_P(WavePlayerContract, TheLengthIsThatOfTheOpenFile) {
  Open();
  EXPECT_EQ(Wave.Length(), kLengthMs);
  Wave.Command("Play");
  EXPECT_EQ(Wave.Length(), kLengthMs);
  PassTheEnd();
  EXPECT_EQ(Wave.Length(), kLengthMs);
  Wave.Command("Close");
  EXPECT_EQ(Wave.Length(), 0);
}

TEST_P(WavePlayerContract, TheLengthOfAFileOnASlowDriveIsZeroUntilItIsKnown) {
  const std::string chime = Bench->Wav("chime.wav", kLengthMs);
  Bench->HoldLengths();
  Open(chime);
  EXPECT_EQ(Wave.Mode(), kWaveStopped);
  EXPECT_EQ(Wave.Length(), 0);
  Bench->LetLengthsArrive();
  EXPECT_EQ(Wave.Length(), kLengthMs);
}

TEST_P(WavePlayerContract, AFileThatIsStoppedBeforeItsLengthIsKnownKeepsZero) {
  const std::string chime = Bench->Wav("chime.wav", kLengthMs);
  Bench->HoldLengths();
  Open(chime);
  Wave.Command("Play");
  Wave.Command("Stop");
  EXPECT_EQ(Wave.Length(), 0);
  Wave.Command("Play");
  EXPECT_EQ(Wave.Length(), 0);
  Bench->LetLengthsArrive();
  EXPECT_EQ(Wave.Length(), kLengthMs);
}

TEST_P(WavePlayerContract, AFileThatHasGoneSinceItsEndIsReported) {
  Play();
  PassTheEnd();
  Bench->Remove(Wave.FileName);
  Reports.clear();
  Wave.Command("Play");
  EXPECT_EQ(Reports, "") << "inside the call";
  EXPECT_EQ(Wave.Mode(), kWaveStopped);
  PassTheEnd();
  EXPECT_EQ(Reports, "525 ");
}

}  // namespace
}  // namespace marlex
