// The operator's session ends while the real program runs; it must end as if by its own exit.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <array>

#include "system/real_desk.h"
#include "system/session_manager.h"

namespace marlex {
namespace {

using testing::ElementsAre;

constexpr int kMusicZones = 128 + 3;
constexpr int kRowZones = 128 + 4;

/// The program ends by itself, and the release byte is the last byte that it sends.
testing::AssertionResult Leaves(RealDesk& desk) {
  if (!desk.Program->WaitForEnd(10)) return testing::AssertionFailure() << "it runs on";
  const int code = desk.Program->ExitCode().value_or(-1);
  if (code != 0) return testing::AssertionFailure() << "it ended with " << code;
  if (!desk.AwaitLastByte(0, 5)) return testing::AssertionFailure() << "without the release byte";
  return testing::AssertionSuccess();
}

class EndSignal : public testing::TestWithParam<int> {};

TEST_P(EndSignal, OverMusicIsTheExit) {
  RealDesk desk(TwoSongs(40));
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(1));
  desk.Program->Signal(GetParam());
  EXPECT_TRUE(Leaves(desk));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kMusicZones, 0));
}

INSTANTIATE_TEST_SUITE_P(Kinds, EndSignal, testing::Values(SIGTERM, SIGINT, SIGHUP),
                         [](const auto& signal) {
                           return std::string(sigabbrev_np(signal.param));
                         });

TEST(SessionEnd, ASignalInAMessageUnderTwoBoxesIsTheExit) {
  stage::InstallationFiles files = TwoSongs(40);
  files.Sequences = {{"Opening", "Long,Long", "09", "00", "003000"}};
  RealDesk desk(files);
  desk.Start("2031-05-05 08:59:50");
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.Click("mnuAbout"));
  ASSERT_TRUE(desk.Click("mnuAdresses"));
  ASSERT_TRUE(desk.Await("QMessageBox", "visible", "yes"));
  ASSERT_TRUE(desk.AwaitTone(kMessage));
  ASSERT_TRUE(desk.AwaitBytes(2));
  desk.Program->Signal(SIGTERM);
  EXPECT_TRUE(Leaves(desk));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kMusicZones, kRowZones, 0));
}

TEST(SessionEnd, ManySignalsAreOneExit) {
  RealDesk desk(TwoSongs(40));
  desk.Start();
  ASSERT_TRUE(desk.AwaitBytes(1));
  for (int i = 0; i < 20; ++i) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) kill(desk.Program->Pid(), signal);
  }
  EXPECT_TRUE(Leaves(desk));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kMusicZones, 0));
}

TEST(SessionEnd, ASignalInTheSplashEndsTheProgramBeforeItHasSpoken) {
  RealDesk desk(TwoSongs(40));
  desk.Start();
  ASSERT_TRUE(desk.Await("frmLogo", "visible", "yes"));
  desk.Program->Signal(SIGTERM);
  ASSERT_TRUE(desk.Program->WaitForEnd(10));
  EXPECT_EQ(desk.Program->ExitCode(), 0);
  EXPECT_TRUE(desk.Bytes().empty());
}

TEST(SessionEnd, TheLossOfTheDisplayIsTheExit) {
  RealDesk desk(TwoSongs(40));
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(1));
  desk.Display->Kill();
  EXPECT_TRUE(Leaves(desk));
}

stage::StageOptions In(const stage::SessionManager& session) {
  stage::StageOptions options = RealDeskOptions();
  options.Variables = session.Variables();
  return options;
}

TEST(SessionEnd, TheSessionManagersWordIsTheExitWhateverWindowIsOpen) {
  stage::SessionManager session;
  RealDesk desk(TwoSongs(40), In(session));
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(1));
  // Qt by itself would ask the windows in no defined order, and stop at the first that stays open.
  for (const auto& [menu, item, window] : {std::array{"mnuAbout", "mnuAboutbox", "frmAbout"},
                                           std::array{"mnuEdit", "mnuSettings", "frmSettings"},
                                           std::array{"mnuEdit", "mnuSchedule", "WavWindow"},
                                           std::array{"mnuEdit", "mnuPlaylist", "frmPlaylist"}}) {
    ASSERT_TRUE(desk.Click(menu));
    ASSERT_TRUE(desk.Click(item));
    ASSERT_TRUE(desk.Await(window, "visible", "yes"));
  }
  ASSERT_TRUE(stage::WaitUntil([&] { return session.HasClient(); }, 30));
  session.EndSession();
  EXPECT_TRUE(Leaves(desk));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kMusicZones, 0));
}

TEST(SessionEnd, ASessionThatOnlyAsksWhetherItMayEndLosesNothing) {
  stage::SessionManager session;
  RealDesk desk(TwoSongs(40), In(session));
  desk.Start();
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(stage::WaitUntil([&] { return session.HasClient(); }, 30));
  session.AskAndGoOn();
  ASSERT_TRUE(stage::WaitUntil([&] { return session.WentOn(); }, 30));
  desk.RecordFor(1);
  EXPECT_TRUE(desk.Program->IsRunning());
  EXPECT_TRUE(desk.IsLoud(kFirstSong));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kMusicZones));
}

}  // namespace
}  // namespace marlex
