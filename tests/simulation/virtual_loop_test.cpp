#include "simulation/virtual_loop.h"

#include <gmock/gmock.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace marlex {
namespace {

/// Milliseconds of a year of 365 days.
constexpr std::int64_t kYearMs = 365LL * 24 * 60 * 60 * 1000;

/// Records its own destruction, so that a test can see that a stack was unwound.
struct Witness {
  explicit Witness(bool& gone) : Gone(gone) {}
  ~Witness() { Gone = true; }
  bool& Gone;
};

TEST(VirtualLoop, EventsComeByDueTimeAndAmongEqualsInTheOrderOfQueueing) {
  VirtualLoop loop;
  std::string order;
  loop.Schedule(20, [&] { order += 'd'; });
  loop.Schedule(10, [&] { order += 'b'; });
  loop.Post([&] { order += 'a'; });
  loop.Schedule(10, [&] { order += 'c'; });
  loop.RunFor(20);
  EXPECT_EQ(order, "abcd");
  EXPECT_EQ(loop.NowMs(), 20);
}

TEST(VirtualLoop, WaitsAreCountedUntilTheyEndOrTheProcessDoes) {
  VirtualLoop loop;
  std::string counts;
  const auto count = [&] { counts += std::to_string(loop.Waits()); };
  bool done = false;
  loop.Schedule(10, [&] { loop.PumpUntil([&] { return done; }); });
  loop.Schedule(20, count);
  loop.Schedule(30, [&] { done = true; });
  loop.Schedule(40, count);
  loop.Schedule(50, [&] { loop.PumpUntil([] { return false; }); });
  loop.Schedule(60, count);
  loop.RunFor(100);
  EXPECT_EQ(counts, "212");
  loop.Kill();
  EXPECT_EQ(loop.Waits(), 0);
}

TEST(VirtualLoop, TimerAndQueuedEventOfOneMomentKeepTheirOrder) {
  VirtualLoop loop;
  std::string order;
  loop.StartTimer(10, [&] { order += 't'; });
  loop.Schedule(10, [&] { order += 'e'; });
  loop.Schedule(20, [&] { order += 'E'; });  // queued before the timer is armed for 20
  loop.RunFor(20);
  EXPECT_EQ(order, "teEt");
}

TEST(VirtualLoop, RunForEndsAtItsDeadlineAndDeliversNothingBeyond) {
  VirtualLoop loop;
  int early = 0;
  int late = 0;
  loop.Schedule(99, [&] { ++early; });
  loop.Schedule(101, [&] { ++late; });
  loop.RunFor(100);
  EXPECT_EQ(early, 1);
  EXPECT_EQ(late, 0);
  EXPECT_EQ(loop.NowMs(), 100);
  loop.RunFor(1);
  EXPECT_EQ(late, 1);
}

TEST(VirtualLoop, TimerFiresEveryPeriodUntilItIsStopped) {
  VirtualLoop loop;
  int fired = 0;
  const EventLoop::TimerId timer = loop.StartTimer(250, [&] { ++fired; });
  loop.RunFor(1000);
  EXPECT_EQ(fired, 4);
  loop.StopTimer(timer);
  loop.RunFor(1000);
  EXPECT_EQ(fired, 4);
}

TEST(VirtualLoop, TimerMayStopItselfAndAnother) {
  VirtualLoop loop;
  int other = 0;
  int own = 0;
  EventLoop::TimerId first = 0;
  EventLoop::TimerId second = 0;
  first = loop.StartTimer(10, [&] {
    ++own;
    loop.StopTimer(first);
    loop.StopTimer(second);
  });
  second = loop.StartTimer(10, [&] { ++other; });
  loop.RunFor(100);
  EXPECT_EQ(own, 1);
  EXPECT_EQ(other, 0);
}

TEST(VirtualLoop, TimerFiresAgainWhileItsOwnCallbackWaits) {
  VirtualLoop loop;
  int fired = 0;
  int depth = 0;
  int deepest = 0;
  loop.StartTimer(10, [&] {
    ++fired;
    deepest = std::max(deepest, ++depth);
    if (fired == 1) loop.PumpUntil([&] { return fired == 3; });
    --depth;
  });
  loop.RunFor(30);
  EXPECT_EQ(fired, 3);
  EXPECT_EQ(deepest, 2);
  EXPECT_EQ(depth, 0);
}

TEST(VirtualLoop, PeriodsOfABlockedLoopAreDroppedAndThePhaseIsKept) {
  VirtualLoop loop;
  std::vector<std::int64_t> at;
  loop.StartTimer(100, [&] { at.push_back(loop.NowMs()); });
  loop.RunFor(150);
  loop.Block(500);
  loop.RunFor(150);
  EXPECT_EQ(at, (std::vector<std::int64_t>{100, 650, 700, 800}));
}

TEST(VirtualLoop, PumpDeliversWhatWaitsAndNotWhatThatQueues) {
  VirtualLoop loop;
  std::string order;
  loop.Do([&] {
    loop.Post([&] {
      order += 'a';
      loop.Post([&] { order += 'c'; });
    });
    loop.Post([&] { order += 'b'; });
    loop.Pump();
    order += '|';
  });
  EXPECT_EQ(order, "ab|c");
}

TEST(VirtualLoop, PumpLeavesWhatIsDueLater) {
  VirtualLoop loop;
  bool late = false;
  loop.Schedule(1, [&] { late = true; });
  loop.Do([&] { loop.Pump(); });
  EXPECT_FALSE(late);
  EXPECT_EQ(loop.NowMs(), 0);
}

TEST(VirtualLoop, PumpUntilTestsItsConditionBeforeTheFirstEvent) {
  VirtualLoop loop;
  bool delivered = false;
  loop.Post([&] { delivered = true; });
  loop.PumpUntil([] { return true; });
  EXPECT_FALSE(delivered);
}

TEST(VirtualLoop, PumpUntilTestsItsConditionAfterEachEvent) {
  VirtualLoop loop;
  std::string order;
  for (const char event : {'a', 'b', 'c'}) loop.Post([&order, event] { order += event; });
  loop.PumpUntil([&] { return order == "ab"; });
  EXPECT_EQ(order, "ab");
}

TEST(VirtualLoop, InnerWaitEndsBeforeTheOuterGoesOn) {
  VirtualLoop loop;
  std::string order;
  bool outer = false;
  bool inner = false;
  loop.Schedule(10, [&] {
    loop.PumpUntil([&] { return outer; });
    order += "outer ";
  });
  loop.Schedule(20, [&] {
    loop.PumpUntil([&] { return inner; });
    order += "inner ";
  });
  loop.Schedule(30, [&] { outer = true; });
  loop.Schedule(40, [&] { order += "between "; });
  loop.Schedule(50, [&] { inner = true; });
  loop.RunFor(100);
  EXPECT_EQ(order, "between inner outer ");
}

TEST(VirtualLoop, TestGetsTheTurnInTheMiddleOfANestedWait) {
  VirtualLoop loop;
  bool released = false;
  int step = 0;
  loop.Do([&] {
    step = 1;
    loop.PumpUntil([&] { return released; });
    step = 2;
  });
  EXPECT_EQ(step, 1);
  loop.RunFor(300);
  EXPECT_EQ(step, 1);
  EXPECT_EQ(loop.NowMs(), 300);
  loop.Do([&] { released = true; });
  EXPECT_EQ(step, 2);
  EXPECT_EQ(loop.NowMs(), 300);
}

TEST(VirtualLoop, DoRunsOnTopOfTheWaitThatIsUnderWay) {
  VirtualLoop loop;
  bool released = false;
  std::string order;
  loop.Do([&] {
    loop.PumpUntil([&] { return released; });
    order += "first ";
  });
  loop.Do([&] {
    released = true;
    loop.Schedule(10, [] {});
    loop.PumpUntil([&, until = loop.NowMs() + 10] { return loop.NowMs() >= until; });
    order += "second ";
  });
  EXPECT_EQ(order, "");
  loop.RunFor(10);
  EXPECT_EQ(order, "second first ");
}

TEST(VirtualLoop, RunUntilStopsTheClockAtTheEventThatMakesItsConditionHold) {
  VirtualLoop loop;
  int fired = 0;
  loop.StartTimer(100, [&] { ++fired; });
  EXPECT_TRUE(loop.RunUntil([&] { return fired == 3; }, 10'000));
  EXPECT_EQ(loop.NowMs(), 300);
  EXPECT_FALSE(loop.RunUntil([&] { return fired < 0; }, 1'000));
  EXPECT_EQ(loop.NowMs(), 1'300);
}

TEST(VirtualLoop, BrokenRuleEndsItsEventAndGoesToTheFailureHandler) {
  VirtualLoop loop;
  std::string failure;
  bool next = false;
  loop.OnFailure = [&](const RuntimeFailure& broken) { failure = broken.what(); };
  loop.Post([] { throw RuntimeFailure("index 7"); });
  loop.Post([&] { next = true; });
  loop.RunFor(0);
  EXPECT_EQ(failure, "index 7");
  EXPECT_TRUE(next);
  EXPECT_FALSE(loop.Ended());
}

TEST(VirtualLoop, AnyOtherExceptionEndsTheProcessAndReachesTheTest) {
  VirtualLoop loop;
  loop.Schedule(5, [] { throw std::out_of_range("lost"); });
  EXPECT_THROW(loop.RunFor(10), std::out_of_range);
  EXPECT_TRUE(loop.Ended());
}

TEST(VirtualLoop, EndUnwindsEveryNestedWaitAndNothingRunsAfterIt) {
  VirtualLoop loop;
  bool outerGone = false;
  bool innerGone = false;
  int ticks = 0;
  loop.StartTimer(100, [&] { ++ticks; });
  loop.Schedule(10, [&] {
    const Witness witness(outerGone);
    loop.PumpUntil([] { return false; });
  });
  loop.Schedule(20, [&] {
    const Witness witness(innerGone);
    loop.PumpUntil([] { return false; });
  });
  loop.Schedule(250, [&] { loop.End(); });
  loop.RunFor(1000);
  EXPECT_TRUE(outerGone);
  EXPECT_TRUE(innerGone);
  EXPECT_TRUE(loop.Ended());
  EXPECT_EQ(ticks, 2);
  EXPECT_EQ(loop.NowMs(), 1000);
  bool action = false;
  loop.Do([&] { action = true; });
  EXPECT_FALSE(action);
}

TEST(VirtualLoop, DestructionInTheMiddleOfAWaitUnwindsTheStack) {
  bool gone = false;
  {
    VirtualLoop loop;
    loop.Do([&] {
      const Witness witness(gone);
      loop.PumpUntil([] { return false; });
    });
    EXPECT_FALSE(gone);
  }
  EXPECT_TRUE(gone);
}

TEST(VirtualLoop, DestructorThatPumpsWhileTheStackIsUnwoundDoesNoHarm) {
  VirtualLoop loop;
  int pumped = 0;
  struct Pumping {
    ~Pumping() {
      Loop.Pump();
      Loop.PumpUntil([] { return false; });
      ++Pumped;
    }
    VirtualLoop& Loop;
    int& Pumped;
  };
  loop.Do([&] {
    const Pumping pumping{loop, pumped};
    loop.PumpUntil([] { return false; });
  });
  loop.Kill();
  EXPECT_EQ(pumped, 1);
}

TEST(VirtualLoop, RestartDropsWhatWaitedAndRunsAnotherProcess) {
  VirtualLoop loop;
  int old = 0;
  int young = 0;
  loop.StartTimer(10, [&] { ++old; });
  loop.Do([&] { loop.PumpUntil([] { return false; }); });
  loop.RunFor(25);
  loop.Restart();
  EXPECT_FALSE(loop.Ended());
  loop.StartTimer(10, [&] { ++young; });
  loop.RunFor(30);
  EXPECT_EQ(old, 2);
  EXPECT_EQ(young, 3);
  EXPECT_EQ(loop.NowMs(), 55);
}

TEST(VirtualLoop, WaitThatNothingCanEndIsAnErrorOnTheTestsOwnStack) {
  VirtualLoop loop;
  EXPECT_THROW(loop.PumpUntil([] { return false; }), std::logic_error);
}

TEST(VirtualLoop, WatcherSeesEveryEventNestedOnesToo) {
  VirtualLoop loop;
  int seen = 0;
  bool released = false;
  loop.AfterEvent = [&] { ++seen; };
  loop.Schedule(1, [&] { loop.PumpUntil([&] { return released; }); });
  loop.Schedule(2, [] {});
  loop.Schedule(3, [&] { released = true; });
  loop.RunFor(10);
  EXPECT_EQ(seen, 3);
}

TEST(VirtualLoop, ATestHasItsTurnAgainAfterEachOfItsCalls) {
  VirtualLoop loop;
  std::vector<std::int64_t> turns;
  loop.AfterTurn = [&, test = std::this_thread::get_id()] {
    EXPECT_EQ(std::this_thread::get_id(), test);
    turns.push_back(loop.NowMs());
  };
  loop.Schedule(1, [&] { loop.PumpUntil([] { return false; }); });
  loop.Schedule(2, [] {});
  loop.RunFor(10);
  loop.Do([] {});
  EXPECT_THAT(turns, ::testing::ElementsAre(10, 10));
}

TEST(VirtualLoop, EventsThatFeedEachOtherForEverAreAnErrorAndNotAHang) {
  VirtualLoop loop;
  std::function<void()> feed = [&] { loop.Post(feed); };
  loop.Post(feed);
  EXPECT_THROW(loop.RunFor(1), std::logic_error);
}

TEST(VirtualLoop, YearOfSecondsIsCountedWithoutLoss) {
  VirtualLoop loop;
  std::int64_t seconds = 0;
  loop.StartTimer(1000, [&] { ++seconds; });
  loop.RunFor(kYearMs);
  EXPECT_EQ(seconds, kYearMs / 1000);
}

}  // namespace
}  // namespace marlex
