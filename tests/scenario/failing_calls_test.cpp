#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <string>

#include "scenario/failing_calls.h"
#include "scenario/failing_story.h"
#include "scenario/random_installation.h"
#include "scenario/recovery.h"

namespace marlex {
namespace {

using Plan = FailingCalls::Plan;

/// Values of the profile files: those of each "file [section] key".
using Values = std::map<std::string, std::set<std::string>>;

std::string FileOf(const std::string& key) { return key.substr(0, key.find(' ')); }

/// Whether the story creates this file.
bool IsNew(const std::string& file) { return file == "New.lst" || file == "new.sch"; }

Values ValuesOn(const MemoryDisk& disk) {
  Values values;
  for (const char* file : {"Tolvo.ini", "Day.lst", "New.lst", "spot.sch", "break.sch", "new.sch"}) {
    std::istringstream text(disk.Read(std::string("/app/") + file).value_or(""));
    std::string section;
    for (std::string line; std::getline(text, line);) {
      if (line.ends_with('\r')) line.pop_back();
      if (line.starts_with('[')) section = line;
      const auto equals = line.find('=');
      if (equals == std::string::npos) continue;
      const std::string key = file + (" " + section + " ") + line.substr(0, equals);
      values[key].insert(line.substr(equals + 1));
    }
  }
  return values;
}

/// Adds what the journal says was written: "12 write a.ini [Section] key=value".
void AddWrites(const std::string& journal, Values& values) {
  std::istringstream lines(journal);
  std::string time, category;
  for (std::string line; lines >> time >> category && std::getline(lines, line);) {
    const auto equals = line.find('=');
    if (category == "write") values[line.substr(1, equals - 1)].insert(line.substr(equals + 1));
  }
}

/// The story without a fault.
struct GoodStory {
  std::map<std::string, int> Calls;  // by operation
  Values Last;                       // at the end
  Values All;                        // at any time
};

/// The story with one call that fails, or none.
class FailingRun {
 public:
  explicit FailingRun(const Plan& plan) : Calls(plan), Operation(plan.Operation) {}

  void Live() {
    const auto prepare = [&](SimulatedPc& pc) {
      AddGoodFiles(pc.Disk);
      Before = ValuesOn(pc.Disk);
      Calls.StandBetween(pc);
      pc.Journal.Unmute("write");
    };
    TheDesk = std::make_unique<WatchedDesk>(StoryInstallation(), prepare);
    LiveTheStory(*TheDesk);
    After = ValuesOn(TheDesk->Pc.Disk);
  }

  GoodStory WhatHappened() const {
    GoodStory story{Calls.Counts(), After, Before};
    AddWrites(TheDesk->Journal(), story.All);
    return story;
  }

  bool HasFailed() const { return Calls.HasFailed(); }
  std::string Journal() const { return TheDesk ? TheDesk->Journal() : ""; }

  /// Nothing has gone from a file, and a new one has everything. What a refused write leaves is old
  /// or new; after a refused read, the operator may also have saved what the windows showed.
  void RequireWholeFiles(const GoodStory& good) const {
    for (const auto& [key, values] : good.Last) {
      const bool isThere = TheDesk->Pc.Disk.Read("/app/" + FileOf(key)).has_value();
      const bool belongs = Before.contains(key) || (IsNew(FileOf(key)) && isThere);
      Require(After.contains(key) || !belongs, "A file has lost " + key);
    }
    if (Operation != "profile write" && Operation != "profile rebuild") return;
    for (const auto& [key, values] : After) {
      Require(good.All.contains(key), "A file has got " + key);
      for (const std::string& value : values) {
        const bool known = good.All.at(key).contains(value);
        Require(known || key.ends_with("Last song"), "A file has got " + key + "=" + value);
      }
    }
  }

  /// The next rows are announced in full and heard, and so is the music after them.
  void RequireAnnouncements() {
    constexpr int kRowMs = 20 * 60'000;
    constexpr int kAnnouncementMs = 60'000;
    constexpr int kFadeMs = 2500;
    Calls.Heal();
    Recovery(*TheDesk).Run();
    SimulatedPc& pc = TheDesk->Pc;
    const auto announces = [&] { return pc.Wav.Mode() == kWavePlaying; };
    Require(pc.Loop.RunUntil(announces, kRowMs), "No further row is announced");
    TheDesk->Advance(1);
    Require(TheDesk->Heard().find("wav ") != std::string::npos, "A message is not heard");
    const auto isOver = [&] { return !announces() && pc.Song.PlayState() == kPlaying; };
    Require(pc.Loop.RunUntil(isOver, kAnnouncementMs), "The music does not come back");
    TheDesk->Advance(kFadeMs);
    Require(TheDesk->Heard().find("song ") != std::string::npos, "The music is not heard");
  }

 private:
  FailingCalls Calls;
  const std::string Operation;
  std::unique_ptr<WatchedDesk> TheDesk;
  Values Before, After;
};

GoodStory LiveWithoutFault() {
  FailingRun run({});
  run.Live();
  const GoodStory good = run.WhatHappened();
  run.RequireWholeFiles(good);
  run.RequireAnnouncements();
  return good;
}

/// What is wrong after this fault, with the end of the journal; nothing if all is well.
std::optional<std::string> FaultOf(const Plan& plan, const GoodStory& good) {
  FailingRun run(plan);
  try {
    run.Live();
    Require(run.HasFailed(), "The call is never made");
    run.RequireWholeFiles(good);
    run.RequireAnnouncements();
  } catch (const std::exception& broken) {
    constexpr std::size_t kTail = 3000;
    const std::string journal = run.Journal();
    return broken.what() +
           ("\n" + journal.substr(journal.size() - std::min(journal.size(), kTail)));
  }
  return std::nullopt;
}

/// The distance between the calls that fail: MARLEX_SWEEP=whole has each one fail, otherwise a few
/// of each operation do.
int StepOf(int calls) {
#if defined(__SANITIZE_ADDRESS__)
  constexpr int kOfEach = 1;  // the sanitizers are slow
#else
  constexpr int kOfEach = 3;
#endif
  const bool whole = std::getenv("MARLEX_SWEEP") != nullptr;
  return whole ? 1 : (calls + kOfEach - 1) / kOfEach;
}

TEST(FailingCalls, EachMayFailOnceAndTheNextRowIsAnnounced) {
  constexpr int kMostReports = 5;
  const GoodStory good = LiveWithoutFault();
  int calls = 0;
  int runs = 0;
  int reports = 0;
  for (const auto& [operation, count] : good.Calls) {
    std::cout << count << " " << operation << "\n";
    calls += count;
    for (int at = 1; at <= count && reports < kMostReports; at += StepOf(count), ++runs) {
      const auto fault = FaultOf({operation, at}, good);
      if (!fault) continue;
      ++reports;
      ADD_FAILURE() << "call " << at << " of " << operation << ": " << *fault;
    }
  }
  std::cout << good.Calls.size() << " operations, " << calls << " calls, " << runs << " runs\n";
}

/// Each operation of a port that can fail is part of the story.
TEST(FailingCalls, TheStoryMakesAllOfThem) {
  const GoodStory good = LiveWithoutFault();
  EXPECT_TRUE(good.Last.contains("new.sch [Schedule] Zone(s)"));
  EXPECT_TRUE(good.Last.contains("New.lst [Playlist] Song:4"));
  std::set<std::string> made;
  for (const auto& [operation, count] : good.Calls) made.insert(operation);
  const std::set<std::string> all{
      "box",
      "directory drives",
      "directory folders",
      "directory list",
      "directory look",
      "directory search",
      "file dialog",
      "length length",
      "length open",
      "length read",
      "media message",
      "media song",
      "media text",
      "mixer caps",
      "mixer control",
      "mixer count",
      "mixer destination",
      "mixer get",
      "mixer line",
      "mixer open",
      "mixer set",
      "mixer source",
      "profile read",
      "profile read of a list",
      "profile rebuild",
      "profile write",
      "serial look",
      "serial open",
      "serial read",
      "serial write",
      "song length",
      "song open",
      "song play",
      "song read",
      "sound microphone",
      "sound outlet",
      "wav open",
      "wav play",
      "wav read",
  };
  EXPECT_EQ(made, all);
}

}  // namespace
}  // namespace marlex
