// The real program under a service manager that starts it again, as that of an unattended PC does.
#include "desktop/process/notify_socket.h"
#include "real_desk.h"

namespace marlex {
namespace {

constexpr double kWatchdogSeconds = 4;
constexpr double kRestartSeconds = 1;

stage::InstallationFiles Shop() {
  stage::InstallationFiles files = TwoSongs(600);
  files.Sequences = {{"Opening", "Short", "09", "01"}};
  return files;
}

stage::StageOptions Watched(const NotifySocket& manager) {
  stage::StageOptions options = RealDeskOptions();
  options.Variables = {{"NOTIFY_SOCKET", manager.Address()},
                       {"WATCHDOG_USEC", std::to_string(int(kWatchdogSeconds * 1e6))}};
  return options;
}

/// A desk that plays its first song, under a service manager.
class Unattended : public testing::Test {
 protected:
  void StartInASong() {
    Desk.Start("2031-05-05 09:00:05");
    ASSERT_TRUE(Desk.AwaitTone(kFirstSong, 30));
    ASSERT_TRUE(AwaitReport("READY=1"));
  }

  bool AwaitReport(const std::string& wanted, double limitSeconds = 30) {
    return stage::WaitUntil(
        [&] {
          const std::vector<std::string> reports = Manager.Reports();
          return std::find(reports.begin(), reports.end(), wanted) != reports.end();
        },
        limitSeconds);
  }

  /// Kills the program when it has said nothing for the watchdog's period.
  void KillWhenSilent() {
    while (AwaitReport("WATCHDOG=1", kWatchdogSeconds)) {
    }
    Desk.Program->Signal(SIGKILL);
  }

  /// The seconds from `begin` until music plays again. The row that is due next is then announced.
  void StartAgainAndExpectAll(double begin, double limitSeconds) {
    ASSERT_TRUE(Desk.Program->WaitForEnd(10));
    ASSERT_TRUE(Desk.AwaitSilence());
    stage::WaitUntil([] { return false; }, kRestartSeconds);
    Desk.Start();
    ASSERT_TRUE(Desk.AwaitTone(kFirstSong, 30));
    const double silent = stage::Now() - begin;
    EXPECT_LT(silent, limitSeconds);
    RecordProperty("SilentMs", int(silent * 1000));
    EXPECT_TRUE(AwaitReport("READY=1"));
    EXPECT_TRUE(Desk.AwaitTone(kMessage, 90));
    EXPECT_TRUE(Desk.AwaitTone(kFirstSong, 30));
  }

  NotifySocket Manager;
  RealDesk Desk{Shop(), Watched(Manager)};
};

TEST_F(Unattended, KilledInASongItPlaysAgainAndAnnouncesTheNextRow) {
  StartInASong();
  const double begin = stage::Now();
  Desk.Program->Signal(SIGKILL);
  StartAgainAndExpectAll(begin, 15);
}

TEST_F(Unattended, FrozenInASongItIsKilledAndAnnouncesTheNextRow) {
  StartInASong();
  ASSERT_TRUE(AwaitReport("WATCHDOG=1"));
  const double begin = stage::Now();
  Desk.Program->Signal(SIGSTOP);
  KillWhenSilent();
  StartAgainAndExpectAll(begin, 15 + kWatchdogSeconds);
}

}  // namespace
}  // namespace marlex
