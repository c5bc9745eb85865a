#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/wall_clock.h"
#include "schedule/schedule_tick.h"
#include "state/flags.h"
#include "state/settings.h"
#include "windows/frm_main.h"

namespace marlex {

inline constexpr int kMinutesPerDay = 24 * 60;

/// What has become of an announcement. A conflict is only one as long as it can still be resolved.
enum class DayMarkState { Gone, Coming, Conflict, Playing };

/// The announcement of a minute of today.
struct DayMark {
  int Minute = 0;        // of the day
  bool AtBreak = false;  // waits for a music break
  DayMarkState State = DayMarkState::Coming;
  std::string Tip;  // time and messages, a line for each row that wants the minute

  bool operator==(const DayMark&) const = default;
};

/// The minutes of the day from one to before another; none when both are the same.
struct DaySpan {
  int From = 0;
  int To = 0;

  bool operator==(const DaySpan&) const = default;
};

/// Today from midnight to midnight.
struct DayRibbon {
  DaySpan MusicHours;          // when the clock wants music
  std::vector<DayMark> Marks;  // by minute, one each
  int Now = 0;                 // minute of the day

  bool operator==(const DayRibbon&) const = default;
};

/// Sums up today's announcements and music, for the ribbon in the main window. Shows today even
/// where the table holds all days. Changes nothing.
class DayPlan {
 public:
  DayPlan(const Flags& flags, const Settings& settings, const FrmMain& frmMain,
          const ScheduleTick& tick, WallClock& clock)
      : TheFlags(flags),
        TheSettings(settings),
        TheGrid(frmMain.grdSchedule),
        Tick(tick),
        Clock(clock) {}

  DayRibbon Look() const;

  /// The rows that the tick is still to fire today, in order of time. Includes those of the current
  /// minute until the tick has accepted it.
  std::vector<int> RowsToCome() const;

  /// Whether the clock wants music now or later today.
  bool MusicIsToCome() const;

 private:
  DaySpan MusicOn(int weekday) const;
  std::optional<DayMark> MarkOf(const std::vector<int>& rows, const LocalTime& now) const;
  std::vector<int> RowsOfDay(const std::vector<int>& rows, int weekday) const;
  DayMarkState StateOf(const std::string& time, bool isConflict, const LocalTime& now) const;
  std::string TipOf(const std::vector<int>& rows) const;

  const Flags& TheFlags;
  const Settings& TheSettings;
  const Grid& TheGrid;
  const ScheduleTick& Tick;
  WallClock& Clock;
};

}  // namespace marlex
