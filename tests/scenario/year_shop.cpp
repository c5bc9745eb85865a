#include "scenario/year_shop.h"

#include <algorithm>

#include "state/week_time.h"

namespace marlex {
namespace {

constexpr int kSequences = 40;
constexpr int kCallsADay = 30;

std::string Joined(const std::vector<int>& numbers) {
  std::string text;
  for (const int number : numbers)
    text += (text.empty() ? "" : ",") + TwoDigits(std::to_string(number));
  return text;
}

bool Contains(const std::vector<int>& numbers, int number) {
  return std::ranges::find(numbers, number) != numbers.end();
}

/// Deliberate: Saturday and Sunday go together in each, since the schedule tests Sunday's digit on
/// Saturdays.
const char* WeekdaysOf(int sequence) {
  if (sequence % 5 == 3) return "1234500";
  return sequence % 5 == 4 ? "0000067" : "1234567";
}

constexpr const char* kVoices[] = {"gong",  "welcome", "offers", "lunch",
                                   "staff", "closing", "lost",   "bus"};

std::string MessagesOf(int sequence) {
  std::string messages = kVoices[sequence % 8];
  if (sequence % 3 == 0) messages += std::string(",") + kVoices[(sequence / 3 + 3) % 8];
  return messages;
}

YearPlan PlanOf(int sequence) {
  const int hour = 7 + sequence % 4;
  return {MessagesOf(sequence),
          {hour, hour + 4, hour + 8},
          {sequence * 7 % 60, (sequence * 7 + 31) % 60},
          WeekdaysOf(sequence),
          sequence % 4 == 1};
}

std::vector<Medium> Songs() {
  std::vector<Medium> songs;
  for (int song = 1; song <= 20; ++song)
    songs.push_back({"song " + std::to_string(song), 150'000 + song * 7'300});
  return songs;
}

std::vector<Medium> Messages() {
  std::vector<Medium> messages{{"ding", 1500}, {"dong", 900}};
  int lengthMs = 2000;
  for (const char* voice : kVoices) messages.push_back({voice, lengthMs += 1700});
  return messages;
}

void OpenPlaylist(Desk& desk, std::size_t list) {
  if (!desk.Shows("mnuOpen")) return;
  desk.Pc.Dialogs.OpenResults = {kYearPlaylists[list]};
  desk.Click("mnuOpen");
}

void ReleaseCall(Desk& desk) { desk.Release("cmdCall"); }

void Add(std::vector<YearDeed>& deeds, int atSecond, void (*deed)(Desk&), int afterSeconds,
         void (*end)(Desk&)) {
  deeds.push_back({atSecond, deed});
  deeds.push_back({atSecond + afterSeconds, end});
}

int OpeningHours(Dice& dice) { return dice.Between(7 * 3600, 20 * 3600); }

void AddCalls(std::vector<YearDeed>& deeds, Dice& dice) {
  for (int call = 0; call < kCallsADay; ++call) {
    Add(
        deeds, OpeningHours(dice), [](Desk& desk) { desk.Press("cmdCall"); }, dice.Between(1, 40),
        ReleaseCall);
  }
}

void AddTakeovers(std::vector<YearDeed>& deeds, Dice& dice) {
  constexpr void (*kTakeovers[])(Desk&) = {[](Desk& desk) { desk.Status(64); },
                                           [](Desk& desk) { desk.Status(128); },
                                           [](Desk& desk) { desk.Status(192); }};
  for (int call = dice.Between(1, 6); call > 0; --call)
    Add(deeds, OpeningHours(dice), kTakeovers[dice.Between(0, 2)], dice.Between(2, 90),
        [](Desk& desk) { desk.Status(0); });
}

void AddFault(std::vector<YearDeed>& deeds, Dice& dice) {
  const int lastSeconds = dice.Between(60, 2 * 3600);
  switch (dice.Between(1, 5)) {
    case 1:
      return Add(
          deeds, OpeningHours(dice),
          [](Desk& desk) { desk.Pc.Disk.Vanish("/messages/offers.wav"); }, lastSeconds,
          [](Desk& desk) { desk.Pc.Disk.Return("/messages/offers.wav"); });
    case 2:
      return Add(
          deeds, OpeningHours(dice), [](Desk& desk) { desk.Pc.Disk.FailReads("/music"); },
          lastSeconds, [](Desk& desk) { desk.Pc.Disk.Heal("/music"); });
    case 3:
      return Add(
          deeds, OpeningHours(dice), [](Desk& desk) { desk.Pc.Disk.FailWrites("/app"); },
          lastSeconds, [](Desk& desk) { desk.Pc.Disk.Heal("/app"); });
    case 4:
      return Add(
          deeds, OpeningHours(dice), [](Desk& desk) { desk.Pc.Serial.Unplug(); }, lastSeconds,
          [](Desk& desk) { desk.Pc.Serial.Plug(); });
    default:
      return Add(
          deeds, OpeningHours(dice), [](Desk& desk) { desk.Pc.Mixer.RefusesSettings = true; },
          dice.Between(5, 60), [](Desk& desk) { desk.Pc.Mixer.RefusesSettings = false; });
  }
}

void AddOperator(std::vector<YearDeed>& deeds, Dice& dice, int day) {
  constexpr void (*kOpenings[])(Desk&) = {[](Desk& desk) { OpenPlaylist(desk, 0); },
                                          [](Desk& desk) { OpenPlaylist(desk, 1); },
                                          [](Desk& desk) { OpenPlaylist(desk, 2); }};
  deeds.push_back({6 * 3600 + 1800, kOpenings[day % 3]});
  Add(
      deeds, OpeningHours(dice), [](Desk& desk) { desk.Click("mnuSchedule"); },
      dice.Between(10, 200),
      [](Desk& desk) {
        if (desk.Sys->TheWindows.TheWavWindow.Visible) desk.Click("mnuExit");
      });
}

}  // namespace

const std::vector<std::string> kYearPlaylists = {Desk::kPlaylist, "/app/Spring.lst",
                                                 "/app/Late.lst"};

bool YearPlan::HasMinute(int hour, int minute) const {
  return Contains(Hours, hour) && Contains(Minutes, minute);
}

bool YearPlan::IsDue(int weekday, int hour, int minute) const {
  return Weekdays[static_cast<std::size_t>(weekday - 1)] != '0' && HasMinute(hour, minute);
}

std::string YearPlan::RowAt(int hour, int minute) const {
  return TwoDigits(std::to_string(hour)) + ":" + TwoDigits(std::to_string(minute)) +
         (AtBreak ? "+ " : " ") + Messages;
}

std::vector<YearPlan> YearPlans() {
  std::vector<YearPlan> plans{{"staff", {2}, {30}, "1234567"}};
  while (plans.size() < kSequences) plans.push_back(PlanOf(static_cast<int>(plans.size())));
  return plans;
}

DeskOptions YearShop(const std::vector<YearPlan>& plans, const std::vector<int>& now) {
  DeskOptions shop{.Music = Songs(),
                   .Messages = Messages(),
                   .StartTime = "08:00",
                   .StopTime = "20:00",
                   .PreChime = "ding",
                   .PostChime = "dong",
                   .Now = now};
  for (const YearPlan& plan : plans) {
    shop.Sequences.push_back({.File = "plan" + std::to_string(shop.Sequences.size()) + ".sch",
                              .Messages = plan.Messages,
                              .Hours = Joined(plan.Hours),
                              .Minutes = Joined(plan.Minutes),
                              .Weekdays = plan.Weekdays,
                              .Timer = plan.AtBreak ? "Between" : "Exact"});
  }
  return shop;
}

void AddYearPlaylists(SimulatedPc& pc) {
  const auto list = [&pc](const std::string& file, int first, const std::string& window) {
    std::string text = "[Playlist]\r\n";
    for (int song = 0; song < 10; ++song)
      text += "Song:" + std::to_string(song + 1) + "=song " + std::to_string(first + song) + "\r\n";
    pc.Disk.AddFile(file, text + "[Background music]\r\n" + window);
  };
  list(kYearPlaylists[1], 1, "Start time=07:30\r\nStop time=21:00\r\nWeekdays=1234567\r\n");
  list(kYearPlaylists[2], 11, "Start time=09:00\r\nStop time=18:30\r\nWeekdays=1234500\r\n");
}

std::vector<YearDeed> DrawYearDay(Dice& dice, int day) {
  std::vector<YearDeed> deeds;
  AddCalls(deeds, dice);
  AddTakeovers(deeds, dice);
  AddOperator(deeds, dice, day);
  if (dice.OneIn(3)) AddFault(deeds, dice);
  std::ranges::stable_sort(deeds, {}, &YearDeed::SecondOfDay);
  return deeds;
}

}  // namespace marlex
