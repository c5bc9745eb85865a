#include "simulation/simulated_pc.h"

#include <gtest/gtest.h>

namespace marlex {
namespace {

TEST(SimulatedSerial, BytesThatReachTheAmplifierAreRecordedWithTheirTime) {
  SimulatedPc pc;
  pc.Serial.SetPortOpen(true);
  pc.Journal.Clear();
  pc.Loop.RunFor(200);
  pc.Serial.Output(std::string("\x45\xFF\x00", 3));
  EXPECT_EQ(pc.Journal.Text(), "200 send 69\n200 send 255\n200 send 0\n");
  ASSERT_EQ(pc.Serial.Sent().size(), 3u);
  EXPECT_EQ(pc.Serial.Sent()[1].Value, 255);
  EXPECT_EQ(pc.Serial.Sent()[1].AtMs, 200);
}

TEST(SimulatedSerial, PortThatCannotBeOpenedReportsOnceAndSwallowsOutput) {
  SimulatedPc pc;
  int faults = 0;
  pc.Journal.Only({"send", "lost"});
  pc.Serial.OnFault = [&](const std::string&) { ++faults; };
  pc.Serial.SetCommPort(3);
  pc.Serial.SetPortOpen(true);
  pc.Serial.SetPortOpen(true);
  EXPECT_EQ(faults, 0);
  pc.Loop.RunFor(5000);
  EXPECT_EQ(faults, 1);
  EXPECT_TRUE(pc.Serial.PortOpen());
  pc.Serial.Output("A");
  EXPECT_EQ(pc.Journal.Text(), "5000 lost 65\n");
  EXPECT_TRUE(pc.Serial.Sent().empty());
}

TEST(SimulatedSerial, DeviceThatComesBackIsFoundWithinASecondWithoutAWord) {
  SimulatedPc pc;
  int faults = 0;
  pc.Serial.OnFault = [&](const std::string&) { ++faults; };
  pc.Serial.SetPortOpen(true);
  pc.Serial.Unplug();
  EXPECT_FALSE(pc.Serial.Connected());
  EXPECT_TRUE(pc.Serial.PortOpen());
  pc.Loop.RunFor(10'000);
  pc.Serial.Plug();
  pc.Loop.RunFor(1000);
  EXPECT_TRUE(pc.Serial.Connected());
  EXPECT_EQ(faults, 0);
}

TEST(SimulatedSerial, ScriptedAmplifierAnswersAByte) {
  SimulatedPc pc;
  pc.Serial.OnSent = [&](int byte) { pc.Serial.ReceiveIn(10, {byte | 128}); };
  int status = -1;
  pc.Serial.OnComm = [&] { status = static_cast<unsigned char>(pc.Serial.Input().back()); };
  pc.Serial.SetPortOpen(true);
  pc.Serial.Output("\x05");
  pc.Loop.RunFor(10);
  EXPECT_EQ(status, 133);
}

TEST(SimulatedDialogs, BoxIsAnsweredAtOnceAndRecorded) {
  SimulatedPc pc;
  pc.Dialogs.MsgBox("No port\r\nnow", BoxIcon::Critical, "Error");
  ASSERT_EQ(pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(pc.Dialogs.Boxes[0].Body, "No port\r\nnow");
  EXPECT_EQ(pc.Dialogs.Boxes[0].Icon, BoxIcon::Critical);
  EXPECT_EQ(pc.Dialogs.OpenBoxCount(), 0);
  EXPECT_EQ(pc.Journal.Text(), "0 box Error: No port|now\n");
}

TEST(SimulatedDialogs, TimersGoOnUnderAnOpenBoxUntilItIsAnswered) {
  SimulatedPc pc;
  int ticks = 0;
  bool closed = false;
  pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  pc.Loop.StartTimer(1000, [&] { ++ticks; });
  pc.Loop.Do([&] {
    pc.Dialogs.MsgBox("body", BoxIcon::Information, "caption");
    closed = true;
  });
  pc.Loop.RunFor(5000);
  EXPECT_EQ(ticks, 5);
  EXPECT_EQ(pc.Dialogs.OpenBoxCount(), 1);
  EXPECT_FALSE(closed);
  pc.Dialogs.Answer();
  pc.Loop.RunFor(0);
  EXPECT_TRUE(closed);
  EXPECT_EQ(pc.Dialogs.OpenBoxCount(), 0);
}

TEST(SimulatedDialogs, ABoxThatIsLeftHoldsNobodyUpAndGoesWithItsAnswerOrTheProcess) {
  SimulatedPc pc;
  pc.Dialogs.AnswerAfterMs = 100;
  bool passed = false;
  pc.Loop.Do([&] {
    pc.Dialogs.LeaveMsgBox("body", BoxIcon::Information, "");
    passed = true;
  });
  EXPECT_TRUE(passed);
  EXPECT_EQ(pc.Dialogs.OpenBoxCount(), 1);
  pc.Loop.RunFor(100);
  EXPECT_EQ(pc.Dialogs.OpenBoxCount(), 0);
  pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  for (int start = 0; start < 2; ++start) {
    pc.Loop.Do([&] { pc.Dialogs.LeaveMsgBox("body", BoxIcon::Information, ""); });
    EXPECT_EQ(pc.Dialogs.OpenBoxCount(), 1);
    pc.Restart();
  }
  EXPECT_EQ(pc.Dialogs.Boxes.size(), 3u);
}

TEST(SimulatedDialogs, TopBoxIsAnsweredFirst) {
  SimulatedPc pc;
  std::string closed;
  pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  for (const char* body : {"a", "b"}) {
    pc.Loop.Do([&pc, &closed, body] {
      pc.Dialogs.MsgBox(body, BoxIcon::Information, "");
      closed += body;
    });
  }
  pc.Dialogs.Answer();
  pc.Loop.RunFor(0);
  EXPECT_EQ(closed, "b");
  pc.Dialogs.Answer();
  pc.Loop.RunFor(0);
  EXPECT_EQ(closed, "ba");
}

TEST(SimulatedDialogs, TwoAnswersInARowAnswerTwoBoxes) {
  SimulatedPc pc;
  pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  for (const char* body : {"a", "b"}) {
    pc.Loop.Do([&pc, body] { pc.Dialogs.MsgBox(body, BoxIcon::Information, ""); });
  }
  pc.Dialogs.Answer();
  pc.Dialogs.Answer();
  pc.Loop.RunFor(0);
  EXPECT_EQ(pc.Dialogs.OpenBoxCount(), 0);
}

TEST(SimulatedDialogs, BoxIsAnsweredAfterTheChosenTime) {
  SimulatedPc pc;
  std::int64_t closedAtMs = -1;
  pc.Dialogs.AnswerAfterMs = 700;
  pc.Loop.Do([&] {
    pc.Dialogs.MsgBox("body", BoxIcon::Information, "caption");
    closedAtMs = pc.Loop.NowMs();
  });
  pc.Loop.RunFor(5000);
  EXPECT_EQ(closedAtMs, 700);
}

TEST(SimulatedDialogs, OpenDialogGivesTheScriptedResultsThenCancels) {
  SimulatedPc pc;
  pc.Dialogs.OpenResults = {"/app/a.sch", ""};
  const FileDialog dialog{"Sequence (*.sch)|*.sch", "sch", "/app", false};
  std::string results;
  for (int opened = 0; opened < 3; ++opened) {
    pc.Dialogs.LeaveOpen(dialog, [&](const std::string& result) { results += result + "|"; });
    pc.Loop.RunFor(0);
  }
  EXPECT_EQ(results, "/app/a.sch|||");
  ASSERT_EQ(pc.Dialogs.FileDialogs.size(), 3u);
  EXPECT_EQ(pc.Dialogs.FileDialogs[0].InitialDirectory, "/app");
}

TEST(SimulatedProcess, EndUnderAnOpenBoxStopsEverything) {
  SimulatedPc pc;
  int ticks = 0;
  bool closed = false;
  pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  pc.Loop.StartTimer(1000, [&] { ++ticks; });
  pc.Loop.Do([&] {
    pc.Dialogs.MsgBox("body", BoxIcon::Information, "caption");
    closed = true;
  });
  pc.Loop.Schedule(2500, [&] { pc.Process.End(); });
  pc.Loop.RunFor(10'000);
  EXPECT_TRUE(pc.Process.Ended());
  EXPECT_EQ(ticks, 2);
  EXPECT_FALSE(closed);
  EXPECT_EQ(pc.Dialogs.OpenBoxCount(), 0);
  EXPECT_EQ(pc.Journal.Lines().back(), "2500 process ends");
}

TEST(SimulatedProcess, AnotherInstanceIsKnownByItsCaption) {
  SimulatedPc pc;
  EXPECT_FALSE(pc.Process.FindWindow("Tolvo Marlex"));
  pc.Process.OtherWindows = {"Tolvo Marlex"};
  EXPECT_TRUE(pc.Process.FindWindow("Tolvo Marlex"));
  EXPECT_FALSE(pc.Process.FindWindow("tolvo marlex"));
}

TEST(Journal, OnlyTheChosenCategoriesAreRecordedAndTimeCountsFromClear) {
  SimulatedPc pc;
  pc.Journal.Only({"song"});
  pc.Disk.AddMp3("/m/a.mp3", 5000);
  pc.Serial.SetPortOpen(true);
  pc.Serial.Output("A");
  pc.Loop.RunFor(100);
  pc.Song.SetFileName("/m/a.mp3");
  pc.Song.Play();
  EXPECT_EQ(pc.Journal.Take(), "100 song play a.mp3\n");
  pc.Loop.RunFor(50);
  pc.Song.Pause();
  EXPECT_EQ(pc.Journal.Text(), "50 song pause\n");
}

TEST(SimulatedPc, MayBeDestroyedUnderAnOpenBox) {
  bool partsStillThere = false;
  struct AtExit {
    ~AtExit() { Seen = Pc.Dialogs.OpenBoxCount() == 0 && Pc.Disk.Search("/app") == "app"; }
    SimulatedPc& Pc;
    bool& Seen;
  };
  {
    SimulatedPc pc;
    pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
    pc.Loop.Do([&] {
      const AtExit atExit{pc, partsStillThere};
      pc.Dialogs.MsgBox("body", BoxIcon::Critical, "Error");
    });
  }
  EXPECT_TRUE(partsStillThere);
}

TEST(SimulatedPc, FailureThatNoSystemHandlesIsALineOfTheJournal) {
  SimulatedPc pc;
  pc.Loop.Do([] { throw RuntimeFailure("index 9"); });
  EXPECT_EQ(pc.Journal.Text(), "0 failure index 9\n");
}

TEST(SimulatedPc, HeardIsWhatPlaysThroughOpenLines) {
  SimulatedPc pc;
  pc.Disk.AddMp3("/m/march.mp3", 60'000);
  pc.Disk.AddWav("/m/door.wav", 1000);
  EXPECT_EQ(pc.Heard(), "silence");
  pc.Song.SetFileName("/m/march.mp3");
  pc.Song.Play();
  pc.Mixer.Line(kComponentWaveOut)->Volume = {45535, 45535};
  EXPECT_EQ(pc.Heard(), "song march.mp3 at 20000");
  pc.Mixer.Line(kComponentWaveOut)->Mute = 1;
  EXPECT_EQ(pc.Heard(), "silence");
  pc.Mixer.Line(kComponentMicrophone)->Mute = 0;
  EXPECT_EQ(pc.Heard(), "microphone at 0");
  pc.Mixer.Line(kComponentSpeakers)->Mute = 1;
  EXPECT_EQ(pc.Heard(), "silence");
}

TEST(SimulatedPc, HeardNamesEverySoundThatOverlaps) {
  SimulatedPc pc;
  pc.Disk.AddMp3("/m/march.mp3", 60'000);
  pc.Disk.AddWav("/m/door.wav", 1000);
  pc.Song.SetFileName("/m/march.mp3");
  pc.Song.Play();
  pc.Wav.FileName = "/m/door.wav";
  pc.Wav.Command("Open");
  pc.Wav.Command("Play");
  EXPECT_EQ(pc.Heard(), "song march.mp3 at 0 + wav door.wav at 0");
  pc.Loop.RunFor(1000);
  EXPECT_EQ(pc.Heard(), "song march.mp3 at 0");
  pc.Kill();
  EXPECT_EQ(pc.Heard(), "silence");
}

TEST(SimulatedPc, RestartKeepsFilesLevelsAndClockAndForgetsTheProcess) {
  SimulatedPc pc;
  pc.Disk.AddMp3("/m/march.mp3", 60'000);
  pc.Disk.AddFile("/app/Tolvo.ini", "text");
  std::uint32_t handle = 0;
  pc.Mixer.Open(0, handle);
  pc.Mixer.Line(kComponentWaveOut)->Volume = {1, 1};
  pc.Serial.SetPortOpen(true);
  pc.Process.ClaimWindow("Tolvo Marlex");
  pc.Song.SetFileName("/m/march.mp3");
  pc.Song.OnEndOfStream = [] { FAIL() << "the song of an ended process cannot end"; };
  pc.Song.Play();
  pc.Loop.RunFor(5000);
  pc.Restart();
  pc.Loop.RunFor(100'000);
  EXPECT_EQ(pc.Song.PlayState(), kStopped);
  EXPECT_FALSE(pc.Serial.PortOpen());
  EXPECT_FALSE(pc.Mixer.IsOpen());
  EXPECT_EQ(pc.Process.ClaimedWindow, "");
  EXPECT_EQ(pc.Mixer.Level(kComponentWaveOut), 1u);
  EXPECT_EQ(pc.Disk.Read("/app/Tolvo.ini"), "text");
  EXPECT_EQ(pc.Loop.NowMs(), 105'000);
}

}  // namespace
}  // namespace marlex
