// The clock is set forward during the fade with which the music's clock stops a song. A second tick
// then plays its row on top of the first tick, which is still waiting underneath for its own row.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "scenario/dice.h"
#include "scenario/random_installation.h"
#include "scenario/recovery.h"

namespace marlex {
namespace {

DeskOptions Installation() {
  return {.Music = {{"march"}, {"waltz"}},
          .Sequences = {{.File = "a.sch", .Messages = "welcome,closing", .Zones = "003000"},
                        {.File = "b.sch", .Messages = "closing,welcome", .Minutes = "02"}},
          .FadeTime = "Slow",
          .StartTime = "11:00",
          .StopTime = "12:01",
          .WeekDays = "1234567"};
}

/// About 58 seconds after its start the clock says 12:01 and the fade begins; half a second later
/// it says 12:02.
class NestedDesk : public WatchedDesk {
 public:
  NestedDesk() : WatchedDesk(Installation(), GoodFiles()) {
    const auto inTheFade = [this] { return State().FadeRunning; };
    Require(Pc.Loop.RunUntil(inTheFade, 120'000), "The music's clock does not stop the music");
    Advance(500);
    Pc.Clock.Jump(60);
  }

 private:
  static std::function<void(SimulatedPc&)> GoodFiles() {
    Dice dice(1);
    return [files = DrawFiles(dice, {})](SimulatedPc& pc) {
      files(pc);
      pc.Disk.AddMp3("/music/march.mp3", 180'000);
      pc.Disk.AddMp3("/music/waltz.mp3", 180'000);
      pc.Disk.AddWav("/messages/welcome.wav", 3000);
      pc.Disk.AddWav("/messages/closing.wav", 2000);
    };
  }
};

using Deed = std::pair<std::string, std::function<void(WatchedDesk&)>>;

const std::vector<Deed> kDeeds{
    {"nothing", [](WatchedDesk&) {}},
    {"a takeover", [](WatchedDesk& desk) { desk.Status(128); }},
    {"a takeover and its end",
     [](WatchedDesk& desk) {
       desk.Status(192);
       desk.Status(0);
     }},
    {"a low call", [](WatchedDesk& desk) { desk.Status(64); }},
    {"play", [](WatchedDesk& desk) { desk.Click("cmdPlay"); }},
    {"stop", [](WatchedDesk& desk) { desk.Click("cmdStop"); }},
    {"the other view", [](WatchedDesk& desk) { desk.Click("mnuAllDays"); }},
    {"schedules closed", [](WatchedDesk& desk) { desk.Click("mnuClose"); }},
    {"the clock set back", [](WatchedDesk& desk) { desk.Pc.Clock.Jump(-60); }},
    {"exit", [](WatchedDesk& desk) { desk.Click("mnuExit"); }},
};

TEST(WaitsInWaits, WhateverHappensInThemTheRulesHoldAndTheNextRowIsAnnounced) {
  for (const int afterMs : {100, 700, 1200, 3000, 6500, 9000, 12'000}) {
    for (const auto& [what, happens] : kDeeds) {
      try {
        NestedDesk desk;
        desk.Advance(afterMs);
        happens(desk);
        desk.Advance(30'000);
        if (what == "nothing") Require(desk.Corners["waits in waits"] > 0, "No waits");
        Recovery(desk).Run();
      } catch (const BrokenRule& broken) {
        ADD_FAILURE() << what << " after " << afterMs << " ms: " << broken.what();
      }
    }
  }
}

}  // namespace
}  // namespace marlex
