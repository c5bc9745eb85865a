#include <gtest/gtest.h>

#include "simulation/simulated_pc.h"

namespace marlex {
namespace {

/// A PC with two messages that records the reports of its wave player with their times.
struct WaveDesk {
  WaveDesk() {
    Pc.Disk.AddWav("/m/door.wav", 1500);
    Pc.Disk.AddWav("/m/fire.wav", 3000);
    Pc.Wav.OnDone = [this] { Reports += std::to_string(Pc.Loop.NowMs()) + " done\n"; };
    Pc.Wav.OnStatusUpdate = [this] {
      Reports += std::to_string(Pc.Loop.NowMs()) + " mode " + std::to_string(Pc.Wav.Mode()) + "\n";
    };
  }

  void Open(const std::string& name) {
    Pc.Wav.FileName = "/m/" + name;
    Pc.Wav.Command("Open");
  }

  void Play(const std::string& name) {
    Open(name);
    Pc.Wav.Command("Play");
  }

  SimulatedPc Pc;
  std::string Reports;
};

TEST(SimulatedWavePlayer, PlayIsReportedOnceAtItsEnd) {
  WaveDesk desk;
  desk.Play("door.wav");
  EXPECT_EQ(desk.Pc.Wav.Mode(), kWavePlaying);
  EXPECT_EQ(desk.Pc.Wav.Length(), 1500);
  desk.Pc.Loop.RunFor(1499);
  EXPECT_EQ(desk.Reports, "");
  EXPECT_EQ(desk.Pc.Wav.PositionMs(), 1499);
  desk.Pc.Loop.RunFor(10'000);
  EXPECT_EQ(desk.Reports, "1500 done\n1500 mode 525\n");
  EXPECT_EQ(desk.Pc.Wav.Mode(), kWaveStopped);
  EXPECT_EQ(desk.Pc.Journal.Text(), "0 wav play door.wav\n1500 wav end door.wav\n");
}

TEST(SimulatedWavePlayer, PauseKeepsThePositionAndDelaysTheEnd) {
  WaveDesk desk;
  desk.Play("door.wav");
  desk.Pc.Loop.RunFor(1000);
  desk.Pc.Wav.Command("Pause");
  EXPECT_EQ(desk.Pc.Wav.Mode(), kWavePaused);
  desk.Pc.Loop.RunFor(60'000);
  EXPECT_EQ(desk.Pc.Wav.PositionMs(), 1000);
  desk.Pc.Wav.Command("Play");
  desk.Pc.Loop.RunFor(60'000);
  EXPECT_EQ(desk.Reports, "61500 done\n61500 mode 525\n");
}

TEST(SimulatedWavePlayer, StoppedFilePlaysAgainFromItsBeginning) {
  WaveDesk desk;
  desk.Play("door.wav");
  desk.Pc.Loop.RunFor(2000);
  desk.Reports.clear();
  desk.Pc.Wav.Command("Play");
  EXPECT_EQ(desk.Pc.Wav.PositionMs(), 0);
  desk.Pc.Loop.RunFor(2000);
  EXPECT_EQ(desk.Reports, "3500 done\n3500 mode 525\n");
}

TEST(SimulatedWavePlayer, ReportMayComeUpToItsDelayLater) {
  WaveDesk desk;
  desk.Pc.Wav.ReportDelayMs = 20;
  desk.Play("door.wav");
  desk.Pc.Loop.RunFor(1519);
  EXPECT_EQ(desk.Reports, "");
  desk.Pc.Loop.RunFor(1);
  EXPECT_EQ(desk.Reports, "1520 done\n1520 mode 525\n");
}

TEST(SimulatedWavePlayer, FileOfNoLengthEndsAMillisecondLater) {
  WaveDesk desk;
  desk.Pc.Disk.AddWav("/m/empty.wav", 0);
  desk.Play("empty.wav");
  desk.Pc.Loop.RunFor(1);
  EXPECT_EQ(desk.Reports, "1 done\n1 mode 525\n");
}

}  // namespace
}  // namespace marlex
