// What the real program shows and records when something of its surroundings is lost, and when it
// is back.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <sstream>

#include "system/real_desk.h"

namespace marlex {
namespace {

constexpr double kPromised = 10;  // seconds until a fault is in sight, and until it is gone

class FaultsInSight : public testing::Test {
 protected:
  FaultsInSight() : Desk(WithMicrophone()) {
    stage::InstallationFiles files = TwoSongs(90);
    files.Sequences = {{"Evening", "Short", "20", "30"}};
    stage::LayOut(Desk.Installation, files);
    Desk.Start("2031-05-05 08:10:00");
    IsUp = Desk.AwaitTone(kFirstSong) && Desk.Await("frmMain.paneFaults", "visible", "no");
  }

  std::string Newest() const { return Desk.Window->Read("frmMain.paneNewestFault", "text"); }

  /// Whether the log has, or soon gets, a line that begins so.
  bool Records(const std::string& text) const {
    const auto begins = [&](const stage::LogLine& line) { return line.Text.starts_with(text); };
    return stage::WaitUntil([&] { return std::ranges::any_of(Desk.Log->Lines(), begins); }, 5);
  }

  void Comes(const std::string& text) {
    const double since = stage::Now();
    const auto comes = [&] { return Newest().starts_with(text); };
    EXPECT_TRUE(stage::WaitUntil(comes, kPromised)) << text << ", not " << Newest();
    EXPECT_TRUE(Records("fault: " + text));
    GTEST_LOG_(INFO) << "in sight after " << stage::Now() - since << " s: " << Newest();
  }
  void Goes() {
    const std::string last = Newest();
    const double since = stage::Now();
    EXPECT_TRUE(Desk.Await("frmMain.paneFaults", "visible", "no", kPromised)) << Newest();
    EXPECT_TRUE(Records("fault over: " + last));
    GTEST_LOG_(INFO) << "gone after " << stage::Now() - since << " s";
  }

  /// Takes the output "card" from the server.
  void RemoveCard() const {
    std::istringstream modules(Desk.Server->Control("list short modules"));
    for (std::string module; std::getline(modules, module);) {
      if (module.find("sink_name=card") != std::string::npos)
        Desk.Server->Control("unload-module " + module.substr(0, module.find('\t')));
    }
  }

  RealDesk Desk;
  bool IsUp = false;
};

TEST_F(FaultsInSight, AnEveningMessageThatIsMovedAwayInTheMorning) {
  ASSERT_TRUE(IsUp);
  const std::string file = Desk.File("Messages/Short.wav");
  std::filesystem::rename(file, Desk.File("Short.wav"));
  Comes("File not found: Short.wav");
  Desk.WriteFile("Messages/Short.wav", "no sound at all");
  Comes("The file cannot be played: Short.wav");
  std::filesystem::rename(Desk.File("Short.wav"), file);
  Goes();
}

TEST_F(FaultsInSight, AnAdapterOfTheLineThatIsPulledOut) {
  ASSERT_TRUE(IsUp);
  Desk.Line->PullOut();
  Comes("The com port cannot be opened: COM1");
  Desk.Line->PlugIn();
  Goes();
}

TEST_F(FaultsInSight, AMicrophoneThatIsPulledOut) {
  ASSERT_TRUE(IsUp);
  Desk.Server->Control("unload-module module-remap-source");
  Comes("The microphone is missing");
  Desk.Server->Control(
      "load-module module-remap-source source_name=microphone "
      "master=mouth.monitor");
  Goes();
}

TEST_F(FaultsInSight, ACardThatIsPulledOut) {
  ASSERT_TRUE(IsUp);
  RemoveCard();
  Comes("No sound: the sound device is missing");
  Desk.Server->Control("load-module module-null-sink sink_name=card");
  Goes();
}

TEST_F(FaultsInSight, AClockThatIsSet) {
  ASSERT_TRUE(IsUp);
  Desk.Clock->Set("2031-05-05 09:10:00");
  Comes("The clock was changed: 08:10:");
  EXPECT_NE(Newest().find(" – 09:10:0"), std::string::npos) << Newest();
}

TEST_F(FaultsInSight, AScheduleThatStandsStillForItsEditor) {
  ASSERT_TRUE(IsUp);
  ASSERT_TRUE(Desk.Click("frmMain.mnuEdit"));
  ASSERT_TRUE(Desk.Click("mnuSchedule"));
  Comes("Schedule stopped");
}

}  // namespace
}  // namespace marlex
