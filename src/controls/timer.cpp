#include "controls/timer.h"

#include "controls/form.h"

namespace marlex {

Timer::Timer(Form& form, std::string name, EventLoop& loop, int intervalMs, bool enabled)
    : Control(form, std::move(name)),
      Enabled(*this, enabled),
      Interval(*this, intervalMs),
      Loop(loop) {}

Timer::~Timer() { Stop(); }

void Timer::Changed() {
  const bool run = Owner.Loaded() && Enabled && Interval > 0;
  if (run && RunningInterval == Interval) return;
  Stop();
  if (!run) return;
  RunningInterval = Interval;
  Running = Loop.StartTimer(RunningInterval, [this] {
    if (OnTimer) OnTimer();
  });
}

void Timer::Stop() {
  if (RunningInterval == 0) return;
  Loop.StopTimer(Running);
  RunningInterval = 0;
}

}  // namespace marlex
