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

TEST(SimulatedWavePlayer, ReportsNeverComeInsideACommand) {
  WaveDesk desk;
  desk.Open("none.wav");
  EXPECT_EQ(desk.Reports, "");
  desk.Play("door.wav");
  desk.Pc.Wav.Command("Close");
  EXPECT_EQ(desk.Reports, "");
}

TEST(SimulatedWavePlayer, FileThatCannotBeOpenedIsReportedAsStopped) {
  WaveDesk desk;
  desk.Pc.Disk.AddMp3("/m/song.wav", 1000);
  for (const char* name : {"none.wav", "song.wav"}) {
    desk.Reports.clear();
    desk.Play(name);
    EXPECT_EQ(desk.Pc.Wav.Mode(), kWaveNotOpen);
    EXPECT_EQ(desk.Pc.Wav.Length(), 0);
    desk.Pc.Loop.RunFor(20);
    EXPECT_NE(desk.Reports.find("mode 525"), std::string::npos) << name;
    EXPECT_EQ(desk.Pc.Wav.Mode(), kWaveNotOpen);
  }
}

TEST(SimulatedWavePlayer, FileClosedWhileItPlaysIsReportedOnceAsStopped) {
  WaveDesk desk;
  desk.Play("door.wav");
  desk.Pc.Loop.RunFor(500);
  desk.Pc.Wav.Command("Close");
  EXPECT_EQ(desk.Pc.Wav.Mode(), kWaveNotOpen);
  desk.Pc.Loop.RunFor(5000);
  EXPECT_EQ(desk.Reports, "500 mode 525\n");
}

TEST(SimulatedWavePlayer, StopIsReportedOnce) {
  WaveDesk desk;
  desk.Play("door.wav");
  desk.Pc.Wav.Command("Stop");
  desk.Pc.Wav.Command("Stop");
  desk.Pc.Wav.Command("Close");
  desk.Pc.Loop.RunFor(5000);
  EXPECT_EQ(desk.Reports, "0 mode 525\n");
}

TEST(SimulatedWavePlayer, DeviceThatWasNeverOpenedReportsNothing) {
  WaveDesk desk;
  for (const char* command : {"Play", "Stop", "Pause", "Close"}) desk.Pc.Wav.Command(command);
  desk.Pc.Loop.RunFor(1000);
  EXPECT_EQ(desk.Reports, "");
  EXPECT_EQ(desk.Pc.Wav.Mode(), kWaveNotOpen);
}

TEST(SimulatedWavePlayer, OpeningDropsReportsOfTheEarlierFile) {
  WaveDesk desk;
  desk.Play("door.wav");
  desk.Pc.Loop.RunFor(500);
  desk.Pc.Wav.Command("Close");
  desk.Play("fire.wav");
  desk.Pc.Loop.RunFor(2999);
  EXPECT_EQ(desk.Reports, "");
  desk.Pc.Loop.RunFor(1);
  EXPECT_EQ(desk.Reports, "3500 done\n3500 mode 525\n");
}

TEST(SimulatedWavePlayer, OpeningInsideTheDoneEventDropsTheRestOfThatReport) {
  WaveDesk desk;
  desk.Pc.Wav.OnDone = [&] {
    if (desk.Pc.Wav.OpenFile() == "/m/door.wav") desk.Play("fire.wav");
  };
  desk.Play("door.wav");
  desk.Pc.Loop.RunFor(1500);
  EXPECT_EQ(desk.Reports, "");
  EXPECT_EQ(desk.Pc.Wav.Mode(), kWavePlaying);
  desk.Pc.Loop.RunFor(3000);
  EXPECT_EQ(desk.Reports, "4500 mode 525\n");
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

TEST(SimulatedWavePlayer, AnyOtherWordIsNoCommand) {
  WaveDesk desk;
  desk.Play("door.wav");
  for (const char* word : {"Chiudi", "close", "CLOSE", ""}) desk.Pc.Wav.Command(word);
  EXPECT_EQ(desk.Pc.Wav.Mode(), kWavePlaying);
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

TEST(SimulatedWavePlayer, ModeIsTheReportedOneWhileAReportOfAClosedFileIsDelivered) {
  WaveDesk desk;
  int during = 0;
  desk.Pc.Wav.OnStatusUpdate = [&] { during = desk.Pc.Wav.Mode(); };
  desk.Play("door.wav");
  desk.Pc.Wav.Command("Close");
  desk.Pc.Loop.RunFor(0);
  EXPECT_EQ(during, kWaveStopped);
  EXPECT_EQ(desk.Pc.Wav.Mode(), kWaveNotOpen);
}

}  // namespace
}  // namespace marlex
