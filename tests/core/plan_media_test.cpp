#include "core/plan_media.h"

#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

constexpr int kPromisedMs = 10'000;  // until a fault is in sight, and until it is gone

TEST(PlanMedia, ChecksTheSongsFromTheOneWithWhichTheClockWillStart) {
  DeskOptions shop = {.StartTime = "14:00", .StopTime = "18:00", .WeekDays = "1234567"};
  shop.LastSong = "150";
  for (int song = 0; song < 300; ++song) shop.Music.push_back({"song" + std::to_string(song)});
  Desk desk(shop);
  desk.Select(0);
  for (const char* song : {"99", "149", "249", "250"})
    desk.Pc.Disk.Vanish(std::string("/music/song") + song + ".mp3");
  desk.Advance(kPromisedMs);
  EXPECT_EQ(desk.Sys->ThePasserby.Look().Faults,
            std::vector<std::string>{"File not found: song249.mp3"});
  desk.Click("cmdPlay");
  desk.Advance(kPromisedMs);
  EXPECT_EQ(desk.Sys->ThePasserby.Look().Faults,
            std::vector<std::string>{"File not found: song99.mp3"});
}

TEST(PlanMedia, NamesAMissingPlaylistAndMissingSequenceFiles) {
  Desk desk({.Music = {{"march"}},
             .Sequences = {{.File = "day.sch"}, {.File = "evening.sch", .Hours = "20"}}});
  desk.Pc.Disk.Vanish("/app/evening.sch");
  desk.Pc.Disk.Vanish(Desk::kPlaylist);
  desk.Advance(kPromisedMs);
  EXPECT_EQ(desk.Sys->ThePasserby.Look().Faults,
            (std::vector<std::string>{"File not found: evening.sch", "File not found: Day.lst"}));
  desk.Click("mnuClose");
  desk.Advance(kPromisedMs);
  EXPECT_EQ(desk.Sys->ThePasserby.Look().Faults,
            std::vector<std::string>{"File not found: Day.lst"});
}

}  // namespace
}  // namespace marlex
