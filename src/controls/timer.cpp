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
  Stop();
  if (!run) return;
  Running = Loop.StartTimer(Interval, [this] {
    if (OnTimer) OnTimer();
  });
}

void Timer::Stop() {
  if (Running) Loop.StopTimer(*Running);
  Running.reset();
}

}  // namespace marlex
