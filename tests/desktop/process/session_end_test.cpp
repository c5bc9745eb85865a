#include "desktop/process/session_end.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>
#include <cstdlib>

#include <gtest/gtest.h>

#include "desktop/process/qt_event_loop.h"

namespace marlex {
namespace {

constexpr int kLimitMs = 20'000;

/// Counts the ends that are reported, instead of ending the program.
class SessionEndTest : public testing::Test {
 protected:
  bool AwaitEnds(int count) {
    bool late = false;
    const auto limit = Loop.StartTimer(kLimitMs, [&] { late = true; });
    Loop.PumpUntil([&] { return Ends >= count || late; });
    Loop.StopTimer(limit);
    return Ends >= count;
  }

  QtEventLoop Loop;
  int Ends = 0;
  SessionEnd Watched{Loop, [this] { ++Ends; }};
};

TEST_F(SessionEndTest, EachOfTheThreeSignalsIsAnEnd) {
  int expected = 0;
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    raise(signal);
    EXPECT_TRUE(AwaitEnds(++expected)) << signal;
  }
}

TEST_F(SessionEndTest, SignalsThatComeTogetherAreOneEndAndLaterOnesAreTakenToo) {
  for (int i = 0; i < 100'000; ++i) raise(SIGTERM);  // more than a pipe holds
  ASSERT_TRUE(AwaitEnds(1));
  Loop.Pump();
  EXPECT_EQ(Ends, 1);
  raise(SIGTERM);
  EXPECT_TRUE(AwaitEnds(2));
}

TEST_F(SessionEndTest, ASignalComesThroughNestedWaitsAndLoopsOfQt) {
  bool released = false;
  Loop.Post([&] { Loop.PumpUntil([&] { return released; }); });
  QEventLoop box;
  QTimer::singleShot(kLimitMs, &box, &QEventLoop::quit);
  Loop.Post([&] {
    raise(SIGTERM);
    Loop.PumpUntil([&] { return Ends > 0 || released; });
    released = true;
    box.quit();
  });
  box.exec();
  EXPECT_EQ(Ends, 1);
}

TEST_F(SessionEndTest, TheQuitOfTheSessionManagerIsAnEndThatNoWindowRefuses) {
  QEvent quit(QEvent::Quit);
  QCoreApplication::sendEvent(QCoreApplication::instance(), &quit);
  EXPECT_EQ(Ends, 1);
  QObject other;
  QCoreApplication::sendEvent(&other, &quit);
  EXPECT_EQ(Ends, 1);
}

/// Runs `child` in its own process. Returns its exit code, or minus the signal that ended it.
int Fork(const std::function<void()>& child) {
  const pid_t id = fork();
  if (id == 0) {
    child();
    _exit(99);
  }
  int status = 0;
  waitpid(id, &status, 0);
  return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

TEST_F(SessionEndTest, WhoeverLeavesByTheCLibraryIsLedOutThisWay) {
  const auto leave = [this] {
    SessionEnd last(Loop, [] { _exit(7); });
    std::exit(1);
  };
  EXPECT_EQ(Fork(leave), 7);
}

TEST(SessionEnd, AfterItASignalDoesWhatItDidBefore) {
  const auto outlive = [] {
    QtEventLoop loop;
    {
      SessionEnd gone(loop, [] { _exit(7); });
    }
    raise(SIGTERM);
  };
  EXPECT_EQ(Fork(outlive), -SIGTERM);
}

TEST(SessionEnd, ASignalThatWasIgnoredAtTheStartStaysIgnored) {
  const auto undisturbed = [] {
    signal(SIGHUP, SIG_IGN);
    QtEventLoop loop;
    SessionEnd ends(loop, [] { _exit(7); });
    raise(SIGHUP);
    bool over = false;
    loop.StartTimer(50, [&] { over = true; });
    loop.PumpUntil([&] { return over; });
    _exit(3);
  };
  EXPECT_EQ(Fork(undisturbed), 3);
}

}  // namespace
}  // namespace marlex
