// What the real program shows and records when something of its surroundings is lost, and when it
// is back.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

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

  void Comes(const std::string& text) {
    const double since = stage::Now();
    EXPECT_TRUE(Desk.AwaitFault(text, kPromised)) << text << ", not " << Desk.NewestFault();
    EXPECT_TRUE(Desk.Records("fault: " + text));
    GTEST_LOG_(INFO) << "in sight after " << stage::Now() - since << " s: " << Desk.NewestFault();
  }
  void Goes() {
    const std::string last = Desk.NewestFault();
    const double since = stage::Now();
    EXPECT_TRUE(Desk.Await("frmMain.paneFaults", "visible", "no", kPromised)) << Desk.NewestFault();
    EXPECT_TRUE(Desk.Records("fault over: " + last));
    GTEST_LOG_(INFO) << "gone after " << stage::Now() - since << " s";
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
  Desk.PullCard();
  Comes("No sound: the sound device is missing");
  Desk.PlugCard();
  Goes();
}

TEST_F(FaultsInSight, AClockThatIsSet) {
  ASSERT_TRUE(IsUp);
  Desk.Clock->Set("2031-05-05 09:10:00");
  Comes("The clock was changed: 08:10:");
  EXPECT_THAT(Desk.NewestFault(), testing::HasSubstr(" – 09:10:0"));
}

TEST_F(FaultsInSight, SettingsThatCannotBeWritten) {
  ASSERT_TRUE(IsUp);
  namespace fs = std::filesystem;
  const std::string settings = Desk.File("Tolvo.ini");
  fs::rename(settings, Desk.File("kept"));
  fs::create_directory(settings);  // no rights keep out a program that runs as root
  ASSERT_TRUE(Desk.Click("frmMain.cmdMusicZones_2"));
  Comes("The file cannot be saved: Tolvo.ini");
  ASSERT_TRUE(Desk.Click("QMessageBox.OK"));
  fs::remove(settings);
  fs::rename(Desk.File("kept"), settings);
  ASSERT_TRUE(Desk.Click("frmMain.cmdMusicZones_3"));
  Goes();
}

TEST_F(FaultsInSight, AScheduleThatStandsStillForItsEditor) {
  ASSERT_TRUE(IsUp);
  ASSERT_TRUE(Desk.Click("frmMain.mnuEdit"));
  ASSERT_TRUE(Desk.Click("mnuSchedule"));
  Comes("Schedule stopped");
}

TEST(FaultsAtTheStart, AServerThatOnlyPretendsACard) {
  RealDesk desk(TwoSongs(90));
  desk.Server->Control("load-module module-always-sink");
  desk.PullCard();
  const double since = stage::Now();
  desk.Start("2031-05-05 08:10:00");
  EXPECT_TRUE(desk.AwaitFault("No sound: the sound server has no sound card", 30))
      << desk.NewestFault();
  GTEST_LOG_(INFO) << "in sight after " << stage::Now() - since << " s";
  desk.PlugCard();
  const double back = stage::Now();
  EXPECT_TRUE(desk.Await("frmMain.paneFaults", "visible", "no", 10)) << desk.NewestFault();
  GTEST_LOG_(INFO) << "gone after " << stage::Now() - back << " s";
  EXPECT_TRUE(desk.AwaitTone(kFirstSong));
}

}  // namespace
}  // namespace marlex
