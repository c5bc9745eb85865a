#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>

#include "scenario/random_day.h"
#include "scenario/recovery.h"

namespace marlex {
namespace {

// The sanitizers are slow.
#if defined(__SANITIZE_ADDRESS__)
constexpr int kUsualSeeds = 30;
#else
constexpr int kUsualSeeds = 100;
#endif
constexpr int kSeedsForAllCorners = 60;

/// Seeds to run, both ends included.
struct Seeds {
  int First = 1;
  int Last = kUsualSeeds;

  int Count() const { return Last - First + 1; }
};

/// MARLEX_SEEDS=1000 runs the seeds 1 to 1000, MARLEX_SEEDS=17..20 those from 17 to 20.
Seeds ChosenSeeds() {
  const char* const chosen = std::getenv("MARLEX_SEEDS");
  if (!chosen) return {};
  const std::string text = chosen;
  const auto dots = text.find("..");
  if (dots == std::string::npos) return {1, std::stoi(text)};
  return {std::stoi(text.substr(0, dots)), std::stoi(text.substr(dots + 2))};
}

struct Failure {
  std::string Rule;   // the rule that was broken, and when
  std::string Story;  // what had happened before
};

/// Runs all happenings, waits until everything that lasts has ended, and requires the next
/// announcement.
void Live(WatchedDesk& desk, const RandomDay& day, const std::vector<Happening>& happenings) {
  for (const Happening& happening : happenings) {
    desk.AdvanceToMs(happening.AtMs);
    if (desk.Pc.Process.Ended()) desk.Restart();
    happening.Do(desk);
  }
  desk.AdvanceToMs(day.LengthMs + RandomDay::kLongestMs);
  Recovery(desk).Run();
}

/// Runs the day with only these happenings, and returns what went wrong.
std::optional<Failure> FaultOf(const RandomDay& day, const std::vector<Happening>& happenings,
                               CornerCounts& corners) {
  WatchedDesk desk(day.Installation, day.Prepare);
  try {
    Live(desk, day, happenings);
  } catch (const std::exception& broken) {
    const std::string at = "\nat " + std::to_string(desk.NowMs()) + " ms, after";
    return Failure{broken.what() + at, desk.Journal()};
  }
  for (const auto& [corner, events] : desk.Corners) ++corners[corner];
  return std::nullopt;
}

std::string FirstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

bool StillBreaks(const RandomDay& day, const std::vector<Happening>& happenings,
                 const std::string& rule) {
  CornerCounts corners;
  const auto failure = FaultOf(day, happenings, corners);
  return failure && FirstLine(failure->Rule) == rule;
}

/// Removes everything that the fault does not need: halves first, then ever smaller parts.
std::vector<Happening> Shrink(const RandomDay& day, const std::string& rule) {
  std::vector<Happening> kept = day.Happenings;
  for (std::size_t part = (kept.size() + 1) / 2; part > 0; part /= 2) {
    for (std::size_t start = 0; start < kept.size();) {
      std::vector<Happening> fewer = kept;
      const auto first = fewer.begin() + static_cast<std::ptrdiff_t>(start);
      fewer.erase(first, first + static_cast<std::ptrdiff_t>(std::min(part, fewer.size() - start)));
      if (StillBreaks(day, fewer, rule)) {
        kept = fewer;
      } else {
        start += part;
      }
    }
  }
  return kept;
}

/// The last lines of a text.
std::string Tail(const std::string& text) {
  constexpr std::size_t kLongest = 3000;
  return text.size() <= kLongest ? text : "...\n" + text.substr(text.size() - kLongest);
}

std::string Report(int seed, const RandomDay& day, const Failure& failure) {
  const std::vector<Happening> happenings = Shrink(day, FirstLine(failure.Rule));
  CornerCounts corners;
  const Failure shrunk = FaultOf(day, happenings, corners).value_or(failure);
  std::string text = "seed " + std::to_string(seed) + "\n" + day.Describe() + "happenings:\n";
  for (const Happening& happening : happenings)
    text += "  " + std::to_string(happening.AtMs) + " " + happening.What + "\n";
  return text + shrunk.Rule + "\n" + Tail(shrunk.Story);
}

/// Without this check, a campaign that no longer reaches its corners would pass without testing
/// anything.
void ExpectAllCorners(CornerCounts& corners) {
  for (const char* corner : {"a takeover in a fade",
                             "a takeover in a message",
                             "a takeover before a music break",
                             "a lower call after a takeover",
                             "a music break",
                             "a box over a fade",
                             "a box over a message",
                             "a conflict",
                             "music started by the clock",
                             "music stopped by the clock",
                             "midnight",
                             "a row that fires",
                             "a row that the record accounts for",
                             "a plan with files",
                             "a start by the clock",
                             "a fade on a card that refuses",
                             "a file dialog over a message",
                             "the settings over a fade",
                             "the settings over a message",
                             "the editor over a fade",
                             "the editor over a message",
                             "the editor over a call",
                             "the editor before a music break",
                             "an editor that closes in a message",
                             "a takeover in the editor",
                             "a preview",
                             "a call over a preview",
                             "a save",
                             "the playlist editor over a fade",
                             "the playlist editor over a message",
                             "the playlist editor over a call",
                             "a takeover in the playlist editor",
                             "both editors",
                             "a song that is heard in the editor",
                             "a takeover that ends the preview of a song",
                             "a call that ends the preview of a song",
                             "an announcement that ends the preview of a song",
                             "music that the editor stops",
                             "times that were but looked at",
                             "a saved list",
                             "a list saved over the one in force",
                             "a list saved without a time",
                             "a list that could not be saved",
                             "another amplifier",
                             "a directory picker over a message",
                             "a chime picker over a call",
                             "another music directory",
                             "another message directory",
                             "a byte out of port 2",
                             "a call that speaks",
                             "a call over a message",
                             "a release in a fade",
                             "a release in a chime",
                             "a takeover in a call"}) {
    EXPECT_GT(corners[corner], 0) << corner;
  }
}

TEST(RandomDays, WhateverHappensTheDeskKeepsItsRulesAndAnnouncesTheNextRow) {
  const Seeds seeds = ChosenSeeds();
  constexpr int kMostReports = 3;
  int reports = 0;
  CornerCounts corners;
  for (int seed = seeds.First; seed <= seeds.Last && reports < kMostReports; ++seed) {
    const RandomDay day(static_cast<std::uint64_t>(seed));
    const auto failure = FaultOf(day, day.Happenings, corners);
    if (!failure) continue;
    ++reports;
    ADD_FAILURE() << Report(seed, day, *failure);
  }
  if (seeds.Count() >= kSeedsForAllCorners) ExpectAllCorners(corners);
}

/// A week costs as much as several days, so only one is run for every few seeds.
TEST(RandomDays, AWeekInWhichLittleHappensKeepsTheRulesToo) {
  constexpr int kSeedsPerWeek = 4;
  const Seeds seeds = ChosenSeeds();
  const int last = seeds.First + std::max(seeds.Count() / kSeedsPerWeek, 1) - 1;
  CornerCounts corners;
  for (int seed = seeds.First; seed <= last; ++seed) {
    const RandomDay week(static_cast<std::uint64_t>(seed), RandomDay::Span::Week);
    const auto failure = FaultOf(week, week.Happenings, corners);
    if (failure) {
      ADD_FAILURE() << Report(seed, week, *failure);
      return;
    }
  }
  EXPECT_GT(corners["midnight"], 0);
}

TEST(RandomDays, ASeedGivesTheSameDayEachTime) {
  const auto run = [] {
    const RandomDay day(7);
    WatchedDesk desk(day.Installation, day.Prepare);
    Live(desk, day, day.Happenings);
    return day.Describe() + std::to_string(desk.NowMs()) + "\n" + desk.Journal();
  };
  EXPECT_EQ(run(), run());
}

}  // namespace
}  // namespace marlex
