#pragma once

#include <string>
#include <vector>

#include "platform/event_loop.h"
#include "platform/wall_clock.h"
#include "schedule/schedule_tick.h"
#include "state/flags.h"
#include "state/record.h"
#include "windows/windows.h"

namespace marlex {

/// Records the rows of the minutes that no tick accepts, which nothing else would notice. Looks
/// once a second, and has no influence on anything else.
class MissedMinutes {
 public:
  MissedMinutes(EventLoop& loop, WallClock& clock, const Flags& flags, const Windows& windows,
                const ScheduleTick& tick, Record& record);
  ~MissedMinutes() { Loop.StopTimer(Timer); }
  MissedMinutes(const MissedMinutes&) = delete;
  MissedMinutes& operator=(const MissedMinutes&) = delete;

 private:
  void Look();
  void EndMinute(const std::string& now, int weekday) const;
  void LoseSkippedRows(const std::string& now, int weekday) const;
  LossReason Reason() const;
  bool IsAccepted() const { return Tick.LastMinute == Minute && AcceptedBefore != Minute; }

  EventLoop& Loop;
  WallClock& Clock;
  const Flags& TheFlags;
  const Windows& TheWindows;
  const ScheduleTick& Tick;
  Record& TheRecord;

  // What the last look has found.
  std::string Minute;          // empty before the first look
  std::string AcceptedBefore;  // the tick's last minute at the look before that minute; after a
                               // day without a tick, it has the same name
  std::string Accepted;        // the same at the last look
  int Weekday = 0;             // 1 is Monday
  std::vector<RecordedRow> Missed;  // the rows of that minute, unless the tick has accepted it
  LossReason Why = LossReason::Held;

  const EventLoop::TimerId Timer;
};

}  // namespace marlex
