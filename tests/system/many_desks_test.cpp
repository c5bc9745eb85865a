// What a desk does while rsync writes what the head office has for it into its folder.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>

#include "system/real_desk.h"

namespace marlex {
namespace {

namespace fs = std::filesystem;

constexpr double kNewMessage = 2500;
constexpr double kFaultLimit = 10;

class ManyDesks : public testing::Test {
 protected:
  ManyDesks() {
    stage::InstallationFiles files = TwoSongs(90);
    files.Sequences = {{"Day", "Short", "09", "00,02"}};
    stage::LayOut(Desk.Installation, files);
    files.Messages = {{"Short", stage::Tone(kNewMessage, 20, kTonePeak)},
                      {"Late", stage::Tone(kNewMessage, 1, kTonePeak)}};
    files.Sequences = {{"Day", "Short,Late", "09", "00,02"}};
    stage::LayOut(Office, files);
  }

  /// Starts to copy a file or a folder of the office to the same place of the desk.
  std::unique_ptr<stage::ChildProcess> Send(const std::string& name, int kilobytesPerSecond) const {
    stage::Command command;
    command.Arguments = {"rsync", "-a", "--bwlimit=" + std::to_string(kilobytesPerSecond),
                         Office + "/" + name, Desk.File(name)};
    return std::make_unique<stage::ChildProcess>(command);
  }
  void SendAtOnce(const std::string& name) const {
    const auto transfer = Send(name, 0);
    ASSERT_TRUE(transfer->WaitForEnd(20));
    ASSERT_EQ(transfer->ExitCode(), 0);
  }

  /// How often the log has a line.
  long Count(const std::string& line) const {
    return std::ranges::count(Desk.Log->Lines(), line, &stage::LogLine::Text);
  }

  /// Rebuilds the table, as any view does.
  bool ShowAllDays() {
    return Desk.Click("frmMain.mnuView") && Desk.Click("mnuSchedules") && Desk.Click("mnuAllDays");
  }

  RealDesk Desk;
  const std::string Office = Desk.Folder + "/office";
};

TEST_F(ManyDesks, AMessageThatIsStillArrivingPlaysAsItWas) {
  Desk.Start("2031-05-05 08:59:54");
  const auto transfer = Send("Messages/Short.wav", 60);
  ASSERT_TRUE(Desk.AwaitTone(kMessage));
  Desk.RecordFor(3);
  ASSERT_TRUE(transfer->IsRunning());
  EXPECT_EQ(Desk.Window->Read("frmMain.paneFaults", "visible"), "no");
  EXPECT_EQ(Desk.Card->Take().Tone(kNewMessage, kHeardDb).size(), 0u);
  EXPECT_EQ(Count("row 09:00 Short: play in 1 2 3 4 5 6"), 1);
  EXPECT_EQ(Count("row 09:00 Short: end"), 1);
  ASSERT_TRUE(transfer->WaitForEnd(90));
  ASSERT_EQ(transfer->ExitCode(), 0);
  Desk.Clock->Set("2031-05-05 09:01:58");
  EXPECT_TRUE(Desk.AwaitTone(kNewMessage));
}

TEST_F(ManyDesks, ASequenceThatComesBeforeItsMessageIsAFaultUntilThen) {
  Desk.Start("2031-05-05 08:10:00");
  ASSERT_TRUE(Desk.AwaitTone(kFirstSong));
  SendAtOnce("Day.sch");
  ASSERT_TRUE(ShowAllDays());
  EXPECT_TRUE(Desk.AwaitText("frmMain.paneNewestFault", "File not found: Late.wav", kFaultLimit));
  SendAtOnce("Messages/Late.wav");
  EXPECT_TRUE(Desk.Await("frmMain.paneFaults", "visible", "no", kFaultLimit));
  EXPECT_EQ(Count("fault: File not found: Late.wav"), 1);
  EXPECT_EQ(Count("fault over: File not found: Late.wav"), 1);
}

TEST_F(ManyDesks, ASequenceThatComesWhileItPlaysIsNotAnnouncedTwice) {
  Desk.Start("2031-05-05 08:59:54");
  ASSERT_TRUE(Desk.AwaitTone(kMessage));
  SendAtOnce("Day.sch");
  ASSERT_TRUE(ShowAllDays());
  ASSERT_TRUE(Desk.AwaitTone(kFirstSong));
  Desk.RecordFor(5);  // in which the tick looks at the minute again
  EXPECT_EQ(Count("row 09:00 Short: play in 1 2 3 4 5 6"), 1);
  EXPECT_EQ(Count("row 09:00 Short,Late: play in 1 2 3 4 5 6"), 0);
  EXPECT_EQ(Desk.Card->Take().Tone(kNewMessage, kHeardDb).size(), 0u);
}

TEST_F(ManyDesks, APlaylistThatComesWhileItPlaysCountsFromItsOpening) {
  Desk.Start("2031-05-05 08:10:00");
  ASSERT_TRUE(Desk.AwaitTone(kFirstSong));
  stage::InstallationFiles files;
  files.Songs = {{"Newest", stage::Tone(kNewMessage, 40, kTonePeak)}};
  stage::LayOut(Office, files);
  for (const char* name : {"Music/", "Day.lst"}) SendAtOnce(name);
  Desk.RecordFor(2);
  EXPECT_TRUE(Desk.IsLoud(kFirstSong));
  EXPECT_EQ(Desk.Window->Read("frmMain.paneFaults", "visible"), "no");
  Desk.Program.reset();
  Desk.Start();
  EXPECT_TRUE(Desk.AwaitTone(kNewMessage));
}

}  // namespace
}  // namespace marlex
