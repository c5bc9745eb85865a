#include "desktop/process/signs_of_life.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "desktop/files/temporary_directory.h"
#include "desktop/process/notify_socket.h"
#include "desktop/process/qt_event_loop.h"
#include "simulation/virtual_loop.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;

constexpr int kLimitMs = 20'000;
constexpr const char* kVariables[] = {"NOTIFY_SOCKET", "WATCHDOG_USEC", "WATCHDOG_PID"};

class ServiceManagerTest : public testing::Test {
 protected:
  ServiceManagerTest() { setenv("NOTIFY_SOCKET", TheManager.Address().c_str(), 1); }
  ~ServiceManagerTest() override {
    for (const char* name : kVariables) unsetenv(name);
  }

  /// Lets the loop turn until so many reports have come.
  std::vector<std::string> Await(std::size_t count) {
    std::vector<std::string> reports;
    bool late = false;
    const auto limit = Loop.StartTimer(kLimitMs, [&] { late = true; });
    Loop.PumpUntil([&] {
      for (std::string& report : TheManager.Reports()) reports.push_back(report);
      return reports.size() >= count || late;
    });
    Loop.StopTimer(limit);
    return reports;
  }

  QtEventLoop Loop;
  NotifySocket TheManager;
};

using Reports = std::vector<std::string>;

TEST_F(ServiceManagerTest, HearsThatTheLoopTurnsAndThenOnceInHalfAPeriod) {
  setenv("WATCHDOG_USEC", "30000000", 1);
  setenv("WATCHDOG_PID", std::to_string(getpid()).c_str(), 1);
  VirtualLoop loop;
  const SignsOfLife signs(loop);
  EXPECT_EQ(TheManager.Reports(), Reports());
  loop.RunFor(1);
  EXPECT_EQ(TheManager.Reports(), Reports{"READY=1"});
  for (int sign = 0; sign < 4; ++sign) {
    loop.RunFor(14'999);
    EXPECT_EQ(TheManager.Reports(), Reports());
    loop.RunFor(1);
    EXPECT_EQ(TheManager.Reports(), Reports{"WATCHDOG=1"});
  }
}

TEST_F(ServiceManagerTest, HearsAtASocketThatIsAFile) {
  const test::TemporaryDirectory folder;
  const NotifySocket file(folder.Path("notify"));
  setenv("NOTIFY_SOCKET", file.Address().c_str(), 1);
  VirtualLoop loop;
  const SignsOfLife signs(loop);
  loop.RunFor(1);
  EXPECT_EQ(file.Reports(), Reports{"READY=1"});
}

TEST_F(ServiceManagerTest, HearsNothingFromALoopThatHangs) {
  setenv("WATCHDOG_USEC", "20000", 1);
  const SignsOfLife signs(Loop);
  Await(2);
  std::this_thread::sleep_for(200ms);
  EXPECT_EQ(TheManager.Reports(), Reports());
}

TEST_F(ServiceManagerTest, HearsOfALoopInANestedWait) {
  setenv("WATCHDOG_USEC", "20000", 1);
  const SignsOfLife signs(Loop);
  std::size_t heard = 0;
  bool isOver = false;
  Loop.Post([&] {
    heard = Await(3).size();
    isOver = true;
  });
  Loop.PumpUntil([&] { return isOver; });
  EXPECT_EQ(heard, 3u);
}

TEST_F(ServiceManagerTest, WithoutAWatchdogHearsThatTheProgramIsReadyAlone) {
  VirtualLoop loop;
  const SignsOfLife signs(loop);
  loop.RunFor(60'000);
  EXPECT_EQ(TheManager.Reports(), Reports{"READY=1"});
}

TEST_F(ServiceManagerTest, HearsNoSignsOfLifeIfItWatchesAnotherProcess) {
  setenv("WATCHDOG_USEC", "20000", 1);
  setenv("WATCHDOG_PID", std::to_string(getppid()).c_str(), 1);
  VirtualLoop loop;
  const SignsOfLife signs(loop);
  loop.RunFor(1000);
  EXPECT_EQ(TheManager.Reports(), Reports{"READY=1"});
}

TEST_F(ServiceManagerTest, IsNotInheritedByChildProcesses) {
  setenv("WATCHDOG_USEC", "20000", 1);
  setenv("WATCHDOG_PID", std::to_string(getpid()).c_str(), 1);
  const SignsOfLife signs(Loop);
  for (const char* name : kVariables) EXPECT_EQ(getenv(name), nullptr) << name;
}

}  // namespace
}  // namespace marlex
