#include "desktop/process/service_manager.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "desktop/process/notify_socket.h"
#include "desktop/process/qt_event_loop.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;

constexpr int kLimitMs = 20'000;

class ServiceManagerTest : public testing::Test {
 protected:
  ServiceManagerTest() { setenv("NOTIFY_SOCKET", TheManager.Address().c_str(), 1); }
  ~ServiceManagerTest() override {
    for (const char* name : {"NOTIFY_SOCKET", "WATCHDOG_USEC", "WATCHDOG_PID"}) unsetenv(name);
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
  setenv("WATCHDOG_USEC", "100000", 1);
  const ServiceManager manager(Loop);
  EXPECT_EQ(TheManager.Reports(), Reports());
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(Await(4), (Reports{"READY=1", "WATCHDOG=1", "WATCHDOG=1", "WATCHDOG=1"}));
  EXPECT_GE(std::chrono::steady_clock::now() - begin, 140ms);
}

TEST_F(ServiceManagerTest, HearsNothingFromALoopThatHangs) {
  setenv("WATCHDOG_USEC", "20000", 1);
  const ServiceManager manager(Loop);
  Await(2);
  std::this_thread::sleep_for(200ms);
  EXPECT_EQ(TheManager.Reports(), Reports());
}

TEST_F(ServiceManagerTest, HearsOfALoopInANestedWait) {
  setenv("WATCHDOG_USEC", "20000", 1);
  const ServiceManager manager(Loop);
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
  const ServiceManager manager(Loop);
  EXPECT_EQ(Await(1), Reports{"READY=1"});
}

TEST_F(ServiceManagerTest, HearsNoSignsOfLifeThatItAsksOfAnotherProcess) {
  setenv("WATCHDOG_USEC", "20000", 1);
  setenv("WATCHDOG_PID", std::to_string(getppid()).c_str(), 1);
  const ServiceManager manager(Loop);
  EXPECT_EQ(Await(1), Reports{"READY=1"});
  bool over = false;
  const auto timer = Loop.StartTimer(100, [&] { over = true; });
  Loop.PumpUntil([&] { return over; });
  Loop.StopTimer(timer);
  EXPECT_EQ(TheManager.Reports(), Reports());
}

TEST_F(ServiceManagerTest, IsNotInheritedByChildProcesses) {
  setenv("WATCHDOG_USEC", "20000", 1);
  const ServiceManager manager(Loop);
  EXPECT_EQ(getenv("NOTIFY_SOCKET"), nullptr);
  EXPECT_EQ(getenv("WATCHDOG_USEC"), nullptr);
}

}  // namespace
}  // namespace marlex
