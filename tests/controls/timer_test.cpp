#include "controls/timer.h"

#include <gtest/gtest.h>

#include "controls/form.h"
#include "simulation/virtual_loop.h"

namespace marlex {
namespace {

/// A loaded form with one timer and the virtual times at which it fired.
struct Clockwork : Form {
  explicit Clockwork(VirtualLoop& loop, int intervalMs = 100, bool enabled = true)
      : Form("clockwork", ""), TheLoop(loop), tmr(*this, "tmr", loop, intervalMs, enabled) {
    tmr.OnTimer = [this] { Fired += std::to_string(TheLoop.NowMs()) + " "; };
    Load();
  }
  VirtualLoop& TheLoop;
  Timer tmr;
  std::string Fired;
};

TEST(Timer, FiresEveryInterval) {
  VirtualLoop loop;
  Clockwork clock(loop);
  loop.RunFor(350);
  EXPECT_EQ(clock.Fired, "100 200 300 ");
}

TEST(Timer, DoesNotFireWhileItIsDisabled) {
  VirtualLoop loop;
  Clockwork clock(loop, 100, false);
  loop.RunFor(300);
  EXPECT_EQ(clock.Fired, "");
  clock.tmr.Enabled = true;
  loop.RunFor(100);
  clock.tmr.Enabled = false;
  loop.RunFor(300);
  EXPECT_EQ(clock.Fired, "400 ");
}

TEST(Timer, EnablingARunningOneDoesNotRestartIt) {
  VirtualLoop loop;
  Clockwork clock(loop);
  loop.RunFor(60);
  clock.tmr.Enabled = true;
  loop.RunFor(60);
  EXPECT_EQ(clock.Fired, "100 ");
}

TEST(Timer, EnablingAStoppedOneBeginsAWholeInterval) {
  VirtualLoop loop;
  Clockwork clock(loop);
  loop.RunFor(60);
  clock.tmr.Enabled = false;
  clock.tmr.Enabled = true;
  loop.RunFor(100);
  EXPECT_EQ(clock.Fired, "160 ");
}

TEST(Timer, AnotherIntervalBeginsAtOnceAndTheSameOneChangesNothing) {
  VirtualLoop loop;
  Clockwork clock(loop);
  loop.RunFor(60);
  clock.tmr.Interval = 100;
  loop.RunFor(60);
  clock.tmr.Interval = 50;
  loop.RunFor(120);
  EXPECT_EQ(clock.Fired, "100 170 220 ");
}

TEST(Timer, AnIntervalOfNoughtStopsIt) {
  VirtualLoop loop;
  Clockwork clock(loop);
  clock.tmr.Interval = 0;
  loop.RunFor(300);
  EXPECT_EQ(clock.Fired, "");
  clock.tmr.Interval = 100;
  loop.RunFor(100);
  EXPECT_EQ(clock.Fired, "400 ");
}

TEST(Timer, FiresAgainWhileItsOwnHandlerWaits) {
  VirtualLoop loop;
  Clockwork clock(loop);
  int depth = 0;
  clock.tmr.OnTimer = [&] {
    clock.Fired += std::to_string(loop.NowMs()) + " ";
    if (++depth < 3) loop.PumpUntil([&] { return depth == 3; });
    clock.Fired += "out ";
  };
  loop.RunFor(350);
  EXPECT_EQ(clock.Fired, "100 200 300 out out out ");
}

TEST(Timer, AOneShotThatDisablesItselfFiresOnce) {
  VirtualLoop loop;
  Clockwork clock(loop);
  clock.tmr.OnTimer = [&] {
    clock.tmr.Enabled = false;
    clock.Fired += "once ";
  };
  loop.RunFor(500);
  EXPECT_EQ(clock.Fired, "once ");
}

TEST(Timer, AOneThatIsEnabledAgainInItsOwnHandlerBeginsAWholeInterval) {
  VirtualLoop loop;
  Clockwork clock(loop);
  clock.tmr.OnTimer = [&] {
    clock.Fired += std::to_string(loop.NowMs()) + " ";
    clock.tmr.Enabled = false;
    loop.Block(30);
    clock.tmr.Enabled = true;
  };
  loop.RunFor(300);
  EXPECT_EQ(clock.Fired, "100 230 ");
}

}  // namespace
}  // namespace marlex
