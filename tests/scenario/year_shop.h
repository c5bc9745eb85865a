#pragma once

#include <string>
#include <vector>

#include "desk/desk.h"
#include "scenario/dice.h"

namespace marlex {

/// When a sequence is announced, as a list of plain numbers, from which its expressions are
/// written.
struct YearPlan {
  std::string Messages;  // names joined by commas
  std::vector<int> Hours;
  std::vector<int> Minutes;
  std::string Weekdays;
  bool AtBreak = false;

  bool HasMinute(int hour, int minute) const;
  bool IsDue(int weekday, int hour, int minute) const;

  /// Its row of that minute, as the record names it.
  std::string RowAt(int hour, int minute) const;
};

/// The sequences of a busy installation: forty, from seven in the morning to eight in the evening
/// and one at half past two at night. Some share a minute.
std::vector<YearPlan> YearPlans();

/// The installation with these sequences, three playlists with a window each, and chimes before and
/// after calls.
DeskOptions YearShop(const std::vector<YearPlan>& plans, const std::vector<int>& now);

/// The three playlists: "/app/Day.lst" is that of the options, the others are added to the disk.
extern const std::vector<std::string> kYearPlaylists;
void AddYearPlaylists(SimulatedPc& pc);

/// Something that happens on a day, at a time of its wall clock.
struct YearDeed {
  int SecondOfDay = 0;
  void (*Do)(Desk& desk) = nullptr;
};

/// A day in the order of its times: thirty calls, calls of the amplifier, a look into the editor,
/// another playlist, and on some days a fault that is mended after minutes or hours.
std::vector<YearDeed> DrawYearDay(Dice& dice, int day);

}  // namespace marlex
