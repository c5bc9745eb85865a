#include "scenario/inspectors/music_clock.h"

#include "state/week_time.h"

namespace marlex {

void MusicClockInspector::Check() {
  Require(State().MusicStopOverridden || !Before.Flags.MusicStopOverridden,
          "An override is taken back");
  if (State().MusicStartedBySchedule && !Before.Flags.MusicStartedBySchedule) CheckStart();
  if (State().MusicStoppedBySchedule && !Before.Flags.MusicStoppedBySchedule) CheckStop();
}

void MusicClockInspector::CheckStart() {
  const Flags& before = Before.Flags;
  Require(Tick.HasNewMinute(), "The clock starts music between two minutes");
  Require(IsInWindow(ReadMusicTimes(TheDesk)) || IsInWindow(Playlists.TimesBefore()),
          "The clock starts music outside its window");
  Require(before.PriorityClear && !before.MusicStoppedByUser && !before.CallActive,
          "The clock starts music that is barred");
  ++Corners["a start by the clock"];
}

void MusicClockInspector::CheckStop() {
  Require(!Before.Flags.MusicStopOverridden,
          "The clock stops music though the operator has overridden it");
  Require(Before.Flags.MusicStartedBySchedule, "The clock stops music that it has not started");
}

/// The date may have changed together with the event.
bool MusicClockInspector::IsInWindow(const MusicTimes& times) const {
  const std::string& minute = Tick.LastMinute();
  const bool on = DayIsOn(times.WeekDays, TheDesk.Pc.Clock.Now().Weekday) ||
                  DayIsOn(times.WeekDays, Before.Weekday);
  return times.Scheduled && on && minute >= times.StartTime && minute < times.StopTime;
}

}  // namespace marlex
