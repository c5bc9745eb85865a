#include "desktop/process/qt_event_loop.h"

#include <time.h>

#include <QEventLoop>
#include <QObject>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/await.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

double ThreadCpuMs() {
  timespec used{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
  return used.tv_sec * 1e3 + used.tv_nsec / 1e6;
}

TEST(QtEventLoop, ATimerFiresAtItsIntervalUntilItIsStopped) {
  QtEventLoop loop;
  int fired = 0;
  const auto begin = SteadyClock::now();
  const auto timer = loop.StartTimer(20, [&] { ++fired; });
  ASSERT_TRUE(Await(loop, [&] { return fired == 3; }));
  EXPECT_GE(SteadyClock::now() - begin, 60ms);
  loop.StopTimer(timer);
  bool later = false;
  loop.StartTimer(100, [&] { later = true; });
  ASSERT_TRUE(Await(loop, [&] { return later; }));
  EXPECT_EQ(fired, 3);
}

TEST(QtEventLoop, ATimerKeepsItsCadenceAlthoughItsCallbackTakesTime) {
  QtEventLoop loop;
  std::vector<SteadyClock::time_point> fired;
  const auto begin = SteadyClock::now();
  loop.StartTimer(20, [&] {
    fired.push_back(SteadyClock::now());
    std::this_thread::sleep_for(7ms);
  });
  ASSERT_TRUE(Await(loop, [&] { return fired.size() == 25; }));
  for (const auto& time : fired) {
    const auto sinceBegin = std::chrono::duration<double, std::milli>(time - begin).count();
    EXPECT_GE(sinceBegin, 20.0);
    // Periods that the loop misses on a busy machine are dropped, but never shifted.
    EXPECT_LT(sinceBegin - 20.0 * static_cast<int>(sinceBegin / 20.0), 15.0);
  }
}

/// Starts eight timers of one second an eighth of a second apart, each in its own loop. Returns how
/// many fire for the first time within 20 ms of their due time. None fires early.
int PunctualTimers() {
  constexpr double kPunctualMs = 20;
  QtEventLoop waiting;
  std::vector<std::unique_ptr<QtEventLoop>> loops;
  int fired = 0;
  int punctual = 0;
  for (int timer = 0; timer < 8; ++timer) {
    loops.push_back(std::make_unique<QtEventLoop>());
    loops.back()->StartTimer(1000, [&, first = true, begin = SteadyClock::now()]() mutable {
      if (!std::exchange(first, false)) return;
      const std::chrono::duration<double, std::milli> since = SteadyClock::now() - begin;
      EXPECT_GE(since.count(), 1000);
      ++fired;
      if (since.count() < 1000 + kPunctualMs) ++punctual;
    });
    std::this_thread::sleep_for(125ms);
  }
  EXPECT_TRUE(Await(waiting, [&] { return fired == 8; }));
  return punctual;
}

TEST(QtEventLoop, TimersOfASecondAreNotRoundedAsCoarseOnesAre) {
  int punctual = 0;
  for (int attempt = 0; punctual < 7 && attempt < 3; ++attempt) punctual = PunctualTimers();
  EXPECT_GE(punctual, 7);
}

TEST(QtEventLoop, MissedPeriodsAreDroppedAndNotMadeUp) {
  QtEventLoop loop;
  int fired = 0;
  loop.StartTimer(10, [&] { ++fired; });
  std::this_thread::sleep_for(200ms);
  loop.Pump();
  EXPECT_EQ(fired, 1);
}

TEST(QtEventLoop, ATimerFiresAgainWhileItsOwnCallbackWaits) {
  QtEventLoop loop;
  int fired = 0;
  int depth = 0;
  int deepest = 0;
  const auto timer = loop.StartTimer(5, [&] {
    ++fired;
    deepest = std::max(deepest, ++depth);
    if (fired < 4) loop.PumpUntil([&] { return fired >= 4; });
    --depth;
  });
  ASSERT_TRUE(Await(loop, [&] { return fired >= 4 && depth == 0; }));
  loop.StopTimer(timer);
  EXPECT_EQ(deepest, 4);
}

TEST(QtEventLoop, TimersAndPostsGoOnUnderALoopOfQtThatACallbackRuns) {
  QtEventLoop loop;
  int fired = 0;
  bool posted = false;
  bool closed = false;
  loop.StartTimer(5, [&] { ++fired; });
  loop.Post([&] {
    QEventLoop box;
    loop.StartTimer(5, [&] {
      if (fired < 5) return;
      loop.Post([&] {
        posted = true;
        box.quit();
      });
    });
    box.exec();
    closed = true;
  });
  // The condition becomes true early, inside the box; the box still gets its events.
  ASSERT_TRUE(Await(loop, [&] { return fired >= 2; }));
  EXPECT_GE(fired, 5);
  EXPECT_TRUE(posted);
  EXPECT_TRUE(closed);
}

TEST(QtEventLoop, ATimerMayStopItselfAndIsSilentFromThenOn) {
  QtEventLoop loop;
  int fired = 0;
  auto token = std::make_shared<int>(7);
  EventLoop::TimerId timer = 0;
  timer = loop.StartTimer(1, [&, token] {
    loop.StopTimer(timer);
    fired += *token == 7;  // what the callback captures survives the stop
  });
  bool later = false;
  loop.StartTimer(50, [&] { later = true; });
  ASSERT_TRUE(Await(loop, [&] { return later; }));
  EXPECT_EQ(fired, 1);
  EXPECT_EQ(token.use_count(), 1);
}

TEST(QtEventLoop, ATimerStoppedByAnEarlierEventOfTheSameMomentStaysSilent) {
  QtEventLoop loop;
  int fired = 0;
  std::vector<EventLoop::TimerId> timers;
  for (int i = 0; i < 3; ++i) {
    timers.push_back(loop.StartTimer(5, [&] {
      ++fired;
      for (const auto timer : timers) loop.StopTimer(timer);
    }));
  }
  std::this_thread::sleep_for(20ms);
  loop.Pump();
  loop.Pump();
  EXPECT_EQ(fired, 1);
}

TEST(QtEventLoop, ACallbackMayStartTimers) {
  QtEventLoop loop;
  int started = 0;
  std::function<void()> startAnother = [&] {
    if (++started < 50) loop.StartTimer(1000000, [] {});
    if (started < 50) loop.Post(startAnother);
  };
  loop.Post(startAnother);
  ASSERT_TRUE(Await(loop, [&] { return started == 50; }));
}

TEST(QtEventLoop, StoppingATimerThatDoesNotRunDoesNothing) {
  QtEventLoop loop;
  loop.StopTimer(0);
  loop.StopTimer(4711);
  bool fired = false;
  loop.StartTimer(1, [&] { fired = true; });
  EXPECT_TRUE(Await(loop, [&] { return fired; }));
}

TEST(QtEventLoop, PostedEventsComeInTheirOrderAndNeverInsideThePost) {
  QtEventLoop loop;
  std::string order;
  loop.Post([&] { order += 'a'; });
  loop.Post([&] {
    loop.Post([&] { order += 'd'; });
    order += 'b';
  });
  loop.Post([&] { order += 'c'; });
  EXPECT_EQ(order, "");
  ASSERT_TRUE(Await(loop, [&] { return order.size() == 4; }));
  EXPECT_EQ(order, "abcd");
}

TEST(QtEventLoop, APostFromAnotherThreadEndsASleepAndRunsOnTheSystemsThread) {
  QtEventLoop loop;
  std::thread::id ranOn;
  std::thread other([&] {
    std::this_thread::sleep_for(50ms);
    loop.Post([&] { ranOn = std::this_thread::get_id(); });
  });
  loop.PumpUntil([&] { return ranOn != std::thread::id(); });
  other.join();
  EXPECT_EQ(ranOn, std::this_thread::get_id());
}

TEST(QtEventLoop, NothingIsLostWhenFourThreadsPostAtOnce) {
  QtEventLoop loop;
  constexpr int kEach = 5000;
  std::vector<int> last(4, -1);
  int arrived = 0;
  bool inOrder = true;
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([&, thread] {
      for (int i = 0; i < kEach; ++i) {
        loop.Post([&, thread, i] {
          inOrder = inOrder && last[thread] == i - 1;
          last[thread] = i;
          ++arrived;
        });
      }
    });
  }
  EXPECT_TRUE(Await(loop, [&] { return arrived == 4 * kEach; }));
  for (auto& thread : threads) thread.join();
  EXPECT_TRUE(inOrder);
}

TEST(QtEventLoop, PumpDeliversWhatWaitsAndDoesNotSleep) {
  QtEventLoop loop;
  int delivered = 0;
  loop.StartTimer(1000000, [&] { delivered += 100; });
  loop.Post([&] { ++delivered; });
  loop.Post([&] { ++delivered; });
  loop.Pump();
  EXPECT_EQ(delivered, 2);
  loop.Pump();
  EXPECT_EQ(delivered, 2);
}

TEST(QtEventLoop, PumpReturnsAlthoughEventsFeedEachOther) {
  QtEventLoop loop;
  int rounds = 0;
  std::function<void()> again = [&] {
    ++rounds;
    loop.Post(again);
  };
  loop.Post(again);
  loop.Pump();
  EXPECT_GE(rounds, 1);
  EXPECT_LE(rounds, 3);
}

TEST(QtEventLoop, EventsOfQtGetTheirTurnBetweenEventsThatFeedEachOther) {
  QtEventLoop loop;
  QObject receiver;
  std::function<void()> again = [&] { loop.Post(again); };
  loop.Post(again);
  bool invoked = false;
  QMetaObject::invokeMethod(
      &receiver, [&] { invoked = true; }, Qt::QueuedConnection);
  EXPECT_TRUE(Await(loop, [&] { return invoked; }));
}

TEST(QtEventLoop, AWaitWhoseConditionHoldsDeliversNothing) {
  QtEventLoop loop;
  bool delivered = false;
  loop.Post([&] { delivered = true; });
  loop.PumpUntil([] { return true; });
  EXPECT_FALSE(delivered);
}

TEST(QtEventLoop, AWaitEndsBeforeTheNextEventCanUndoItsCondition) {
  QtEventLoop loop;
  int state = 0;
  for (int i = 0; i < 5; ++i) loop.Post([&] { ++state; });
  loop.PumpUntil([&] { return state == 2; });
  EXPECT_EQ(state, 2);
  EXPECT_TRUE(Await(loop, [&] { return state == 5; }));
}

// No timer and no post of the loop's own runs here that could end the sleep by accident.
TEST(QtEventLoop, AnEventOfQtsOwnEndsAWait) {
  QtEventLoop loop;
  QObject receiver;
  bool done = false;
  QMetaObject::invokeMethod(
      &receiver, [&] { done = true; }, Qt::QueuedConnection);
  loop.PumpUntil([&] { return done; });
  EXPECT_TRUE(done);
}

// Qt wakes for the call, returns, and delivers it only when it is next about to sleep.
TEST(QtEventLoop, ACallThatAnotherThreadQueuesAtQtEndsAWait) {
  QtEventLoop loop;
  QObject receiver;
  bool done = false;
  std::thread other([&] {
    std::this_thread::sleep_for(50ms);
    QMetaObject::invokeMethod(
        &receiver, [&] { done = true; }, Qt::QueuedConnection);
  });
  loop.PumpUntil([&] { return done; });
  other.join();
  EXPECT_TRUE(done);
}

TEST(QtEventLoop, AnInnerWaitEndsBeforeTheOuterOneGoesOn) {
  QtEventLoop loop;
  std::string order;
  bool outerDone = false;
  bool innerDone = false;
  loop.Post([&] {
    loop.Post([&] {
      outerDone = true;
      order += "condition of the outer, ";
    });
    loop.StartTimer(30, [&] { innerDone = true; });
    loop.PumpUntil([&] { return innerDone; });
    order += "inner, ";
  });
  loop.PumpUntil([&] { return outerDone; });
  order += "outer";
  EXPECT_EQ(order, "condition of the outer, inner, outer");
}

TEST(QtEventLoop, AWaitingLoopUsesNoProcessor) {
  QtEventLoop loop;
  bool done = false;
  std::thread other([&] {
    std::this_thread::sleep_for(1s);
    loop.Post([&] { done = true; });
  });
  const double before = ThreadCpuMs();
  loop.PumpUntil([&] { return done; });
  other.join();
  EXPECT_LT(ThreadCpuMs() - before, 20.0);
}

TEST(QtEventLoop, AWaitUnderADialogThatOutlivesItsConditionUsesNoProcessor) {
  QtEventLoop loop;
  bool condition = false;
  loop.Post([&] {
    condition = true;
    QEventLoop box;
    loop.StartTimer(500, [&] { box.quit(); });
    box.exec();
  });
  const double before = ThreadCpuMs();
  loop.PumpUntil([&] { return condition; });
  EXPECT_LT(ThreadCpuMs() - before, 20.0);
}

TEST(QtEventLoop, AFailureEndsItsEventAndGoesToTheOneHandler) {
  QtEventLoop loop;
  std::vector<std::string> failures;
  loop.OnFailure = [&](const RuntimeFailure& failure) { failures.push_back(failure.what()); };
  int fired = 0;
  loop.StartTimer(1, [&] {
    ++fired;
    throw RuntimeFailure("timer");
  });
  loop.Post([] { throw RuntimeFailure("post"); });
  ASSERT_TRUE(Await(loop, [&] { return fired >= 2; }));
  EXPECT_EQ(failures.front(), "post");
  EXPECT_EQ(failures.back(), "timer");
}

TEST(QtEventLoop, AConditionThatThrowsEndsTheWaitThatAskedForIt) {
  QtEventLoop loop;
  bool armed = false;
  bool later = false;
  loop.Post([&] { armed = true; });
  loop.Post([&] { later = true; });
  const auto condition = [&]() -> bool {
    if (armed) throw RuntimeFailure("condition");
    return false;
  };
  EXPECT_THROW(loop.PumpUntil(condition), RuntimeFailure);
  EXPECT_FALSE(later);
  EXPECT_TRUE(Await(loop, [&] { return later; }));
}

TEST(QtEventLoop, ALoopThatIsDestroyedInsideItsOwnEventJustEnds) {
  auto loop = std::make_unique<QtEventLoop>();
  bool deliveredAfterwards = false;
  loop->Post([&] {
    loop->Post([&] { loop.reset(); });
    loop->Post([&] { deliveredAfterwards = true; });
    loop->PumpUntil([] { return false; });
  });
  loop->PumpUntil([] { return false; });
  EXPECT_EQ(loop, nullptr);
  EXPECT_FALSE(deliveredAfterwards);
}

TEST(QtEventLoop, TwoLoopsRunSideBySide) {
  QtEventLoop first;
  QtEventLoop second;
  int fired = 0;
  first.StartTimer(5, [&] { ++fired; });
  EXPECT_TRUE(Await(second, [&] { return fired >= 3; }));
}

}  // namespace
}  // namespace marlex
