// Several things that happen in the same minute.

#include <gtest/gtest.h>

#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::MusicAtStart::IsSilent;

/// A row that waits for the music break, and a window of music.
DeskOptions AtBreak(const std::string& startTime, const std::string& stopTime) {
  return {.Music = {{"march", 58'000}, {"waltz", 600'000}},
          .Sequences = {{.Messages = "welcome,closing", .Zones = "003000", .Timer = "Between"}},
          .StartTime = startTime,
          .StopTime = stopTime,
          .WeekDays = "1234567"};
}

TEST(SameMinute, ARowAtTheBreakWaitsForTheSongThatTheClockStartsInItsMinute) {
  SpotDesk desk(AtBreak("12:01", "13:00"), kSilent);
  desk.AdvanceTo(70'000);
  EXPECT_EQ(desk.Journal(),
            "1000 song play march.mp3\n"
            "1200 send 67\n"
            "59000 song end\n"
            "59000 wav play welcome.wav\n"
            "62000 wav end welcome.wav\n"
            "62000 wav play closing.wav\n"
            "64000 wav end closing.wav\n"
            "64000 song play waltz.mp3\n");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
}

TEST(SameMinute, ARowAtTheBreakPlaysAtOnceWhenTheClockStopsTheMusic) {
  SpotDesk desk(AtBreak("11:00", "12:01"), kSilent);
  ASSERT_EQ(desk.MusicState(), kPlaying);
  desk.AdvanceTo(20'000);
  EXPECT_EQ(desk.Journal(),
            "1529 song stop\n"
            "1529 send 0\n"
            "1529 wav play welcome.wav\n"
            "1729 send 68\n"
            "4529 wav end welcome.wav\n"
            "4529 wav play closing.wav\n"
            "6529 wav end closing.wav\n"
            "6529 send 0\n");
  EXPECT_FALSE(desk.State().MessageAwaitingSongEnd);
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");
}

TEST(SameMinute, ARowAtMidnightPlaysAfterTheClocksStopOfTheMusic) {
  SpotDesk desk({.Sequences = {{.Hours = "0", .Minutes = "00", .Zones = "003000"}},
                 .StartTime = "23:00",
                 .StopTime = "23:59",
                 .WeekDays = "1234567",
                 .Now = {2024, 1, 1, 23, 58, 30}},
                kSilent);
  ASSERT_EQ(desk.MusicState(), kPlaying);
  desk.AdvanceTo(70'000);
  EXPECT_EQ(desk.Journal(),
            "1529 song stop\n"
            "1529 send 0\n"
            "61000 wav play welcome.wav\n"
            "61200 send 68\n"
            "64000 wav end welcome.wav\n"
            "64000 send 0\n");
}

TEST(SameMinute, ARowIntoNoZonesReleasesThemForItsLength) {
  SpotDesk desk({.Sequences = {{.Zones = "000000"}}});
  desk.AdvanceTo(20'000);
  EXPECT_EQ(desk.Journal(),
            "1529 song pause\n"
            "1529 wav play welcome.wav\n"
            "1729 send 0\n"
            "4529 wav end welcome.wav\n"
            "4529 song resume march.mp3\n"
            "4729 send 67\n");
  EXPECT_EQ(desk.LitZones(), "110000");
}

TEST(SameMinute, ARowIntoNoZonesWithoutMusicReleasesTwice) {
  SpotDesk desk({.Sequences = {{.Zones = "000000"}}}, kSilent);
  desk.AdvanceTo(20'000);
  EXPECT_EQ(desk.Journal(),
            "1000 wav play welcome.wav\n"
            "1200 send 0\n"
            "4000 wav end welcome.wav\n"
            "4000 send 0\n");
}

TEST(SameMinute, ARowWhoseFilesAreAllMissingFadesTheMusicOutAndInAgain) {
  SpotDesk desk({.Sequences = {{.Messages = "gone,lost", .Zones = "003000"}}});
  desk.AdvanceTo(20'000);
  const std::string journal = desk.Journal();
  EXPECT_EQ(journal.find("wav play"), std::string::npos) << journal;
  EXPECT_NE(journal.find("1529 song pause\n1529 wav refuse gone.wav\n"), std::string::npos)
      << journal;
  EXPECT_NE(journal.find("wav refuse lost.wav\n"), std::string::npos) << journal;
  EXPECT_NE(journal.find("song resume march.mp3\n"), std::string::npos) << journal;
  EXPECT_EQ(desk.Pc.Serial.Sent().back().Value, 67);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
}

TEST(SameMinute, OfTwoRowsAtTheBreakOnlyTheUpperOneWaits) {
  DeskOptions options = AtBreak("", "");
  options.Sequences.push_back({.File = "b.sch", .Messages = "closing", .Timer = "Between"});
  SpotDesk desk(options);
  desk.AdvanceTo(60'000);
  EXPECT_EQ(desk.Journal(),
            "31000 song end\n"
            "31000 wav play welcome.wav\n"
            "34000 wav end welcome.wav\n"
            "34000 wav play closing.wav\n"
            "36000 wav end closing.wav\n"
            "36000 song play waltz.mp3\n");
}

}  // namespace
}  // namespace marlex
