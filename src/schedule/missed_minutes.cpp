#include "schedule/missed_minutes.h"

#include "state/week_time.h"

namespace marlex {
namespace {

constexpr int kLookMs = 1000;

/// Of a time that `MinuteText` has written.
int MinuteOfDay(const std::string& time) {
  return std::stoi(time.substr(0, 2)) * 60 + std::stoi(time.substr(3, 2));
}

}  // namespace

MissedMinutes::MissedMinutes(EventLoop& loop, WallClock& clock, const Flags& flags,
                             const Windows& windows, const ScheduleTick& tick, Record& record)
    : Loop(loop),
      Clock(clock),
      TheFlags(flags),
      TheWindows(windows),
      Tick(tick),
      TheRecord(record),
      Timer(loop.StartTimer(kLookMs, [this] { Look(); })) {}

/// The rows are taken while the minute lasts: a new day rebuilds the table.
void MissedMinutes::Look() {
  const LocalTime time = Clock.Now();
  const std::string now = MinuteText(time);
  if (now != Minute) {
    if (!Minute.empty()) EndMinute(now, time.Weekday);
    AcceptedBefore = Accepted;
    Minute = now;
    Weekday = time.Weekday;
  }
  Missed.clear();
  if (!IsAccepted()) Missed = Tick.RowsOf(Minute, Weekday);
  Accepted = Tick.LastMinute;
  Why = Reason();
}

void MissedMinutes::EndMinute(const std::string& now, int weekday) const {
  if (!IsAccepted()) TheRecord.RowsAreLost(Missed, Why);
  LoseSkippedRows(now, weekday);
}

/// The clock goes on by more than a minute only when it is set, when summer time begins, and while
/// the machine sleeps. More than what it skips up to the next day is not in the table.
void MissedMinutes::LoseSkippedRows(const std::string& now, int weekday) const {
  constexpr const char* kEndOfDay = "24:00";
  constexpr int kMinutesPerDay = 24 * 60;
  // Between two minutes are only rows whose time no clock ever shows, such as "03:0-".
  if (MinuteOfDay(now) == (MinuteOfDay(Minute) + 1) % kMinutesPerDay) return;
  const bool isNextDay = weekday == Weekday % kWeekdays + 1;
  if (isNextDay) {
    TheRecord.RowsAreLost(Tick.RowsBetween(Minute, kEndOfDay, Weekday), LossReason::Clock);
    TheRecord.RowsAreLost(Tick.RowsBetween("", now, weekday), LossReason::Clock);
  } else if (weekday == Weekday) {
    TheRecord.RowsAreLost(Tick.RowsBetween(Minute, now, weekday), LossReason::Clock);
  }
}

LossReason MissedMinutes::Reason() const {
  if (TheFlags.CallActive) return LossReason::Call;
  if (TheFlags.MessagePlaying) return LossReason::Announcement;
  if (Tick.RowWaits()) return LossReason::WaitingRow;
  if (TheWindows.TheWavWindow.Visible) return LossReason::Editor;
  if (TheFlags.FadeRunning) return LossReason::Fade;
  return LossReason::Held;
}

}  // namespace marlex
