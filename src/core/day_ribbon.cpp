#include "core/day_ribbon.h"

#include <algorithm>
#include <iterator>

#include "state/week_time.h"

namespace marlex {
namespace {

constexpr int kMinutesPerHour = 60;
constexpr const char* kLastMinuteOfDay = "23:59";
constexpr std::size_t kMostRowsInTip = 8;

std::string TextOf(int minute) {
  return MinuteText({.Hour = minute / kMinutesPerHour, .Minute = minute % kMinutesPerHour});
}

/// How many minutes of the day come before a time. Times are compared as texts, as the music's
/// clock does.
int MinutesBefore(const std::string& time) {
  int first = 0;
  int end = kMinutesPerDay;
  while (first < end) {
    const int middle = (first + end) / 2;
    TextOf(middle) < time ? first = middle + 1 : end = middle;
  }
  return first;
}

/// The minute of the day that a time names; none for one that no clock ever shows.
std::optional<int> MinuteOf(const std::string& time) {
  if (time.size() != 5) return std::nullopt;
  const auto digit = [&time](std::size_t at) { return time[at] - '0'; };
  const int minute = (digit(0) * 10 + digit(1)) * kMinutesPerHour + digit(3) * 10 + digit(4);
  const bool isOfDay = minute >= 0 && minute < kMinutesPerDay && TextOf(minute) == time;
  return isOfDay ? std::optional(minute) : std::nullopt;
}

/// The rows that are not removed, from `row` on, as far as they are of the same minute. Moves `row`
/// to the next minute.
std::vector<int> TakeMinute(const Grid& table, int& row) {
  const std::string time = TimeOf(table, row);
  std::vector<int> rows;
  for (; row < table.Rows() && TimeOf(table, row) == time; ++row) {
    if (table.RowHeight(row) != 0) rows.push_back(row);
  }
  return rows;
}

}  // namespace

DayRibbon DayPlan::Look() const {
  const LocalTime now = Clock.Now();
  DayRibbon day;
  day.Now = now.Hour * kMinutesPerHour + now.Minute;
  day.MusicHours = MusicOn(now.Weekday);
  for (int row = 1; row < TheGrid.Rows();) {
    const std::vector<int> rows = TakeMinute(TheGrid, row);
    if (rows.empty()) continue;
    if (std::optional<DayMark> mark = MarkOf(rows, now)) day.Marks.push_back(std::move(*mark));
  }
  return day;
}

std::vector<int> DayPlan::RowsToCome() const {
  const LocalTime present = Clock.Now();
  const std::string now = MinuteText(present);
  std::vector<int> rows;
  std::string passed;  // minute whose first row has been seen
  for (int row = 1; row < TheGrid.Rows(); ++row) {
    const std::string time = TimeOf(TheGrid, row);
    const bool isOver = time < now || time == Tick.LastMinute || time == passed;
    const bool neverComes = time > kLastMinuteOfDay;  // such as ":" from an unreadable file
    if (isOver || neverComes || TheGrid.RowHeight(row) == 0) continue;
    if (Tick.RunsOn(row, present.Weekday)) rows.push_back(row);
    passed = time;
  }
  return rows;
}

bool DayPlan::MusicIsToCome() const {
  const LocalTime now = Clock.Now();
  return now.Hour * kMinutesPerHour + now.Minute < MusicOn(now.Weekday).To;
}

/// Deliberate: a window whose stop is not after its start is empty, so none crosses midnight.
DaySpan DayPlan::MusicOn(int weekday) const {
  if (!TheSettings.MusicScheduled || !DayIsOn(TheSettings.MusicWeekDays, weekday)) return {};
  const DaySpan span = {MinutesBefore(TheSettings.MusicStartTime),
                        MinutesBefore(TheSettings.MusicStopTime)};
  return span.From < span.To ? span : DaySpan();
}

/// The mark of the rows of a minute: of the first one, if the tick fires it today, and of all that
/// are of today, if these are in conflict. None otherwise: what follows the first row never plays.
std::optional<DayMark> DayPlan::MarkOf(const std::vector<int>& rows, const LocalTime& now) const {
  const std::string time = TimeOf(TheGrid, rows.front());
  const std::optional<int> minute = MinuteOf(time);
  const std::vector<int> ofToday = RowsOfDay(rows, now.Weekday);
  const bool isConflict = ofToday.size() > 1;
  if (!minute || (!isConflict && !Tick.RunsOn(rows.front(), now.Weekday))) return std::nullopt;
  const std::vector<int> named = isConflict ? ofToday : std::vector{rows.front()};
  return DayMark{*minute, PlaysAtBreak(TheGrid, named.front()), StateOf(time, isConflict, now),
                 TipOf(named)};
}

/// The rows whose weekdays, whole, have today. The tick's own test passes over a digit, and would
/// hide a conflict on a Saturday.
std::vector<int> DayPlan::RowsOfDay(const std::vector<int>& rows, int weekday) const {
  std::vector<int> ofDay;
  std::ranges::copy_if(rows, std::back_inserter(ofDay), [&](int row) {
    return DayIsOn(TheGrid.TextMatrix(row, kDaysColumn), weekday);
  });
  return ofDay;
}

DayMarkState DayPlan::StateOf(const std::string& time, bool isConflict,
                              const LocalTime& now) const {
  const bool hasFired = Tick.CurrentTime.starts_with(time);
  // A takeover mutes the message.
  if (hasFired && TheFlags.MessagePlaying)
    return TheFlags.PriorityPreempted ? DayMarkState::Gone : DayMarkState::Playing;
  if (hasFired && Tick.RowWaits()) return DayMarkState::Coming;
  const std::string present = MinuteText(now);
  const bool isUsedUp = time == present && time == Tick.LastMinute;
  if (time < present || isUsedUp) return DayMarkState::Gone;
  return isConflict ? DayMarkState::Conflict : DayMarkState::Coming;
}

std::string DayPlan::TipOf(const std::vector<int>& rows) const {
  std::string tip;
  for (std::size_t at = 0; at < rows.size(); ++at) {
    if (at > 0) tip += '\n';
    if (at == kMostRowsInTip) return tip + "...";
    tip += TimeOf(TheGrid, rows[at]) + (PlaysAtBreak(TheGrid, rows[at]) ? "+ " : " ") +
           TheGrid.TextMatrix(rows[at], kMessagesColumn);
  }
  return tip;
}

}  // namespace marlex
