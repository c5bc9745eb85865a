// A year of a busy installation, day by day.

#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <set>
#include <utility>

#include "scenario/require.h"
#include "scenario/year_ledger.h"
#include "scenario/year_shop.h"
#include "state/week_time.h"

namespace marlex {
namespace {

constexpr int kDayBeginsAt = 4;  // o'clock, with nothing due around it
constexpr int kHourSeconds = 3600;

/// The figure of an element in what `malloc_info` says of all threads together, which comes last.
std::int64_t SizeOf(const std::string& info, const std::string& element) {
  const std::string size = "size=\"";
  return std::stoll(info.substr(info.find(size, info.rfind(element)) + size.size()));
}

/// Bytes that are allocated on the heap.
std::int64_t BytesInUse() {
  char* text = nullptr;
  std::size_t length = 0;
  std::FILE* const stream = open_memstream(&text, &length);
  malloc_info(0, stream);
  std::fclose(stream);
  const std::string info(text, length);
  std::free(text);
  return SizeOf(info, "<system type=\"current\"") - SizeOf(info, "<total type=\"fast\"") -
         SizeOf(info, "<total type=\"rest\"");
}

struct Date {
  int Month;
  int Day;

  bool operator==(const Date&) const = default;
};

// The nights in which summer time begins and ends: the days before them.
constexpr Date kBeforeSummer = {3, 30};
constexpr Date kBeforeWinter = {10, 26};

class YearDesk : public Desk {
 public:
  explicit YearDesk(const Date& first)
      : Desk(YearShop(kPlans, {2024, first.Month, first.Day, kDayBeginsAt - 1, 59, 30}),
             AddYearPlaylists) {
    Pc.Journal.Only({"record", "wav", "song"});
    Pc.Loop.AfterEvent = [this] {
      ++Events;
      Frame = __builtin_frame_address(0);
      if (Sys->TheWindows.TheWavWindow.Visible) EditorSeenMs = Pc.Loop.NowMs();
    };
    Pc.Log.OnLine = [this](const std::string& line) { EnterRowOfAnotherDay(line); };
    RunTo(kDayBeginsAt);
    TakeJournal();
  }

  /// From four in the morning to four in the morning.
  void LiveADay() {
    const LocalTime now = Pc.Clock.Now();
    const Date today = {now.Month, now.Day};
    EnterDueRows(now.Weekday);
    EnteredOfOtherDays.clear();
    for (const YearDeed& deed : DrawYearDay(Luck, now.Day)) {
      RunTo(deed.SecondOfDay / kHourSeconds, deed.SecondOfDay / 60 % 60, deed.SecondOfDay % 60);
      deed.Do(*this);
    }
    PassNight(today);
    try {
      for (const std::string& line : Pc.Journal.Lines()) Books.Post(line);
      Books.CloseDay();
    } catch (const BrokenRule& broken) {
      throw BrokenRule(std::to_string(today.Month) + "/" + std::to_string(today.Day) + ": " +
                       broken.what() + "\n" + Pc.Journal.Text());
    }
    ForgetTheDay();
    EXPECT_EQ(Heard(), "silence") << today.Month << " " << today.Day;
    EXPECT_EQ(Pc.Loop.Waits(), 1) << today.Month << " " << today.Day;
  }

  void LiveDays(int count) {
    while (count-- > 0) LiveADay();
  }

  YearLedger Books;
  int RowsOfOtherDays = 0;
  std::int64_t Events = 0;
  void* Frame = nullptr;  // of the last event

 private:
  void RunTo(int hour, int minute = 0, int second = 0) { Desk::RunTo(hour, minute, second); }

  /// What the simulated PC remembers for tests.
  void ForgetTheDay() {
    Pc.Journal.Clear();
    Pc.Serial.ForgetSent();
    Pc.Dialogs.Boxes.clear();
    Pc.Dialogs.FileDialogs.clear();
  }

  /// All of the next 24 hours of the clock.
  void EnterDueRows(int weekday) {
    for (int minute = 0; minute < 24 * 60; ++minute) {
      const int hour = (kDayBeginsAt + minute / 60) % 24;
      const int day = hour < kDayBeginsAt ? weekday % kWeekdays + 1 : weekday;
      for (const YearPlan& plan : kPlans)
        if (plan.IsDue(day, hour, minute % 60)) Books.Due(plan.RowAt(hour, minute % 60));
    }
  }

  /// Deliberate: behind an open editor the table shows all days. A row that waited for the music
  /// break when the editor was opened resumes the schedule, and on Sundays any row is then due.
  void EnterRowOfAnotherDay(const std::string& line) {
    constexpr int kSunday = 7;
    constexpr std::int64_t kMinuteMs = 60'000;
    const bool editorWasOpen = Pc.Loop.NowMs() - EditorSeenMs <= 2 * kMinuteMs;
    if (!editorWasOpen || Pc.Clock.Now().Weekday != kSunday || !line.starts_with("row ")) return;
    const int hour = std::stoi(line.substr(4, 2));
    const int minute = std::stoi(line.substr(7, 2));
    for (const YearPlan& plan : kPlans) {
      const std::string row = plan.RowAt(hour, minute);
      const bool isIt = plan.HasMinute(hour, minute) && line.starts_with("row " + row + ": ");
      if (!isIt || plan.IsDue(kSunday, hour, minute)) continue;
      if (!EnteredOfOtherDays.insert(row).second) continue;
      Books.Due(row);
      ++RowsOfOtherDays;
    }
  }

  /// The hour after two comes twice when summer time ends, and never when it begins.
  void PassNight(const Date& today) {
    if (today == kBeforeSummer) {
      RunTo(2);
      Pc.Clock.ShiftZone(kHourSeconds);
    }
    if (today == kBeforeWinter) {
      RunTo(3);
      Pc.Clock.ShiftZone(-kHourSeconds);
      Books.Due(kPlans.front().RowAt(2, 30));
    }
    RunTo(kDayBeginsAt);
  }

  static inline const std::vector<YearPlan> kPlans = YearPlans();
  std::set<std::string> EnteredOfOtherDays;  // today
  std::int64_t EditorSeenMs = 0;
  Dice Luck{2024};
};

void Print(const YearDesk& desk, int days) {
  const YearLedger& books = desk.Books;
  std::cout << days << " days, " << desk.Events << " events, " << books.Calls << " calls, "
            << books.Songs << " songs, " << books.Rows << " rows due, " << books.Played
            << " announced\nof another day: " << desk.RowsOfOtherDays << '\n';
  for (const auto& [fate, count] : books.Fates) std::cout << fate << ": " << count << '\n';
}

std::int64_t Fate(const YearDesk& desk, const std::string& fate) {
  const auto found = desk.Books.Fates.find(fate);
  return found == desk.Books.Fates.end() ? 0 : found->second;
}

TEST(Year, BalancesOverALeapDay) {
  YearDesk desk({2, 28});
  desk.LiveDays(3);
  EXPECT_EQ(desk.Pc.Clock.Now().Month, 3);
  EXPECT_EQ(desk.Pc.Clock.Now().Day, 2);
  EXPECT_GT(desk.Books.Played, 400);
}

TEST(Year, BalancesWhenSummerTimeBegins) {
  YearDesk desk(kBeforeSummer);
  desk.LiveDays(2);
  EXPECT_EQ(Fate(desk, "lost, clock"), 1);
}

TEST(Year, BalancesWhenSummerTimeEnds) {
  YearDesk desk(kBeforeWinter);
  desk.LiveDays(2);
  EXPECT_EQ(Fate(desk, "lost, clock"), 0);
  EXPECT_EQ(desk.Books.Nights, 3);
}

/// MARLEX_YEAR=whole runs all of it.
TEST(Year, EndsWithTheMemoryAndTheStackOfItsFirstDays) {
  constexpr int kFirstDays = 2;
  constexpr std::int64_t kMostGrowth =
      96 * 1024;  // the allocator keeps freed pieces for each thread
  const char* const chosen = std::getenv("MARLEX_YEAR");
  const int days = chosen && std::string(chosen) == "whole" ? 366 : 4;
  YearDesk desk({1, 1});
  desk.LiveDays(kFirstDays);
  const std::int64_t before = BytesInUse();
  void* const frame = desk.Frame;
  desk.LiveDays(days - kFirstDays);
  EXPECT_LT(BytesInUse(), before + kMostGrowth);
  EXPECT_EQ(desk.Frame, frame);
  Print(desk, days);
  std::cout << "heap: " << before << " bytes at first, " << BytesInUse() << " at the end\n";
}

}  // namespace
}  // namespace marlex
