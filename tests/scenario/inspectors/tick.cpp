#include "scenario/inspectors/tick.h"

#include <chrono>
#include <cstdlib>

#include "state/week_time.h"

namespace marlex {
namespace {

/// Since 1970, by the wall clock.
std::int64_t SecondsOf(const LocalTime& time) {
  using namespace std::chrono;
  const sys_days day(year_month_day(year(time.Year), month(static_cast<unsigned>(time.Month)),
                                    std::chrono::day(static_cast<unsigned>(time.Day))));
  return sys_seconds(day).time_since_epoch().count() + time.Hour * 3600 + time.Minute * 60 +
         time.Second;
}

}  // namespace

void TickInspector::Check() {
  constexpr int kTickMs = 1000;
  if (SequenceEdits.ComesOrGoes()) Minute = LastMinute();
  const LocalTime now = TheDesk.Pc.Clock.Now();
  const std::int64_t aheadS = SecondsOf(now) - NowMs() / 1000;
  if (IsDisturbed(aheadS)) SteadySinceMs = NowMs();
  if (NowMs() - SteadySinceMs > kTickMs && now.Second > 1)
    Require(LastMinute() == MinuteText(now), "The tick misses a minute");
  CheckedAtMs = NowMs();
  ClockAheadS = aheadS;
}

bool TickInspector::IsDisturbed(std::int64_t aheadS) const {
  constexpr int kPositionTimerMs = 100;  // the longest time without any event on a running machine
  const bool jumped = std::abs(aheadS - ClockAheadS) > 1;
  const bool stoodStill = NowMs() - CheckedAtMs > kPositionTimerMs;
  const bool armedAgain = Before.Flags.CallActive || TheDesk.Pc.Loop.Waits() < Before.Waits;
  const bool looksAway =
      State().CallActive || State().MessagePlaying || Before.Flags.MessagePlaying;
  return looksAway || !TickIsOn() || !Before.TickOn || jumped || stoodStill || armedAgain;
}

void TickInspector::NotePress() {
  Minute = LastMinute();
  SteadySinceMs = NowMs();
}

}  // namespace marlex
