#include <gtest/gtest.h>

#include "desk/deeds.h"
#include "schedule/schedule_tick.h"
#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::MusicAtStart::IsSilent;

/// A row at 12:01 that waits for the music break; the first song ends at 12:01:30.5, 31 seconds
/// into the journal.
DeskOptions AtBreak() {
  return {.Music = {{"march", 58'000}, {"waltz", 600'000}},
          .Sequences = {{.Messages = "welcome,closing", .Zones = "003000", .Timer = "Between"}}};
}

TEST(BetweenRow, TheRowWaitsForTheSongsEndAndPlaysOnTheMusicsZonesWithNoFade) {
  SpotDesk desk(AtBreak());
  desk.AdvanceTo(60'000);
  EXPECT_EQ(desk.Journal(),
            "31000 song end\n"
            "31000 wav play welcome.wav\n"
            "34000 wav end welcome.wav\n"
            "34000 wav play closing.wav\n"
            "36000 wav end closing.wav\n"
            "36000 song play waltz.mp3\n");
}

TEST(BetweenRow, TheWaitIsShownByTheFlagTheTickAndTheRowAlone) {
  SpotDesk desk(AtBreak());
  desk.AdvanceTo(SpotDesk::kDue);
  EXPECT_TRUE(desk.State().MessageAwaitingSongEnd);
  EXPECT_EQ(desk.Alive(), "cmdPlay cmdSkip cmdStop");
  EXPECT_EQ(desk.Paint(1), "nnnnn");
  EXPECT_EQ(desk.LitZones(), "110000");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(BetweenRow, TheMessagesLeaveTheButtonsTheZonesAndThePaintOfTheRowAlone) {
  SpotDesk desk(AtBreak());
  desk.AdvanceTo(32'000);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  EXPECT_TRUE(desk.State().MessagePlaying);
  EXPECT_FALSE(desk.State().MessageAwaitingSongEnd);
  EXPECT_EQ(desk.Paint(1), "nnnnn");
  EXPECT_EQ(desk.Alive(), "cmdPlay cmdSkip cmdStop");
  EXPECT_TRUE(desk.Enabled("cmdMusicZones_0"));
  EXPECT_EQ(desk.LitZones(), "110000");
}

TEST(BetweenRow, TheNextSongPlaysAtItsLevelAndTheTickIsBack) {
  SpotDesk desk(AtBreak());
  desk.AdvanceTo(36'000);
  EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 20000");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
  EXPECT_FALSE(desk.State().MessagePlaying);
}

TEST(BetweenRow, WithoutMusicTheRowPlaysAtItsMinuteIntoItsOwnZones) {
  SpotDesk desk(AtBreak(), kSilent);
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(),
            "1000 wav play welcome.wav\n"
            "1200 send 68\n"
            "4000 wav end welcome.wav\n"
            "4000 wav play closing.wav\n"
            "6000 wav end closing.wav\n"
            "6000 send 0\n");
  EXPECT_FALSE(desk.State().MessageAwaitingSongEnd);
}

TEST(BetweenRow, WithPausedMusicTheRowPlaysAtItsMinuteAndResumesIt) {
  SpotDesk desk(AtBreak());
  PauseByPreview(desk);
  desk.AdvanceTo(1500);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  desk.AdvanceTo(8000);
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(BetweenRow, EveryTimerValueButExactWaitsForTheBreak) {
  for (const char* timer : {"Between", "exact", "Exact now", ""}) {
    DeskOptions options = AtBreak();
    options.Sequences[0].Timer = timer;
    SpotDesk desk(options);
    desk.AdvanceTo(2000);
    EXPECT_TRUE(desk.State().MessageAwaitingSongEnd) << timer;
  }
}

TEST(BetweenRow, APlusAnywhereInTheTimeCellWaitsForTheBreak) {
  DeskOptions options = AtBreak();
  options.Sequences[0].Timer = "Exact";
  SpotDesk desk(options);
  desk.Do([&] { desk.Main().grdSchedule.SetTextMatrix(1, kTimeColumn, "12:01  x+y"); });
  desk.AdvanceTo(2000);
  EXPECT_TRUE(desk.State().MessageAwaitingSongEnd);
}

TEST(BetweenRow, ASkippedSongEndsTheWaitAtOnce) {
  SpotDesk desk(AtBreak());
  desk.AdvanceTo(5000);
  desk.Click("cmdSkip");
  desk.AdvanceTo(20'000);
  EXPECT_EQ(desk.Journal(),
            "5000 song stop\n"
            "5000 wav play welcome.wav\n"
            "8000 wav end welcome.wav\n"
            "8000 wav play closing.wav\n"
            "10000 wav end closing.wav\n"
            "10000 song play waltz.mp3\n");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
}

TEST(BetweenRow, AStoppedSongLeavesTheWholeScheduleHeld) {
  DeskOptions options = AtBreak();
  options.Sequences.push_back({.File = "b.sch", .Minutes = "05,10"});
  options.StartTime = "12:02";
  options.StopTime = "13:00";
  options.WeekDays = "1234567";
  SpotDesk desk(options);
  desk.Pc.Journal.Only({"song", "wav", "send"});
  desk.AdvanceTo(5000);
  desk.Click("cmdStop");
  desk.Pc.Dialogs.OpenResults = {Desk::kPlaylist};
  desk.Click("mnuOpen");
  EXPECT_FALSE(desk.State().MusicStoppedByUser);
  desk.RunTo(13, 0);
  EXPECT_EQ(desk.Journal(), "5000 song stop\n5000 send 0\n");
  EXPECT_TRUE(desk.State().MessageAwaitingSongEnd);
  EXPECT_FALSE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
  EXPECT_EQ(desk.Sys->Tick.LastMinute, "12:01");
}

TEST(BetweenRow, MessagesThatWaitPlayAfterTheNextSongHoweverLate) {
  SpotDesk desk(AtBreak());
  desk.AdvanceTo(5000);
  desk.Click("cmdStop");
  desk.RunTo(15, 0);
  desk.Pc.Journal.Clear();
  desk.Click("cmdPlay");
  desk.Advance(70'000);
  EXPECT_EQ(desk.Journal(),
            "0 song play march.mp3\n"
            "200 send 67\n"
            "58000 song end\n"
            "58000 wav play welcome.wav\n"
            "61000 wav end welcome.wav\n"
            "61000 wav play closing.wav\n"
            "63000 wav end closing.wav\n"
            "63000 song play waltz.mp3\n");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay cmdSkip cmdStop");
}

TEST(BetweenRow, TheEndOfACallBringsTheTickBackAndTheMessagesKeepWaiting) {
  DeskOptions options = AtBreak();
  options.Sequences.push_back({.File = "b.sch", .Messages = "closing", .Minutes = "03"});
  SpotDesk desk(options);
  desk.AdvanceTo(5000);
  desk.Click("cmdStop");
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Release("cmdCall");
  desk.Pc.Journal.Clear();
  desk.RunTo(12, 2, 30);
  EXPECT_TRUE(desk.State().MessageAwaitingSongEnd);
  // The next row that plays ends the wait of earlier ones.
  desk.RunTo(12, 4);
  EXPECT_FALSE(desk.State().MessageAwaitingSongEnd);
  EXPECT_EQ(desk.Journal(),
            "115000 wav play closing.wav\n"
            "115200 send 127\n"
            "117000 wav end closing.wav\n"
            "117000 send 0\n");
}

TEST(BetweenRow, ASongChosenByHandWhileMessagesWaitEndsTheWaitWithItsOwnEnd) {
  SpotDesk desk(AtBreak());
  desk.AdvanceTo(5000);
  desk.DoubleClickSong(1);
  desk.AdvanceTo(32'000);
  EXPECT_TRUE(desk.State().MessageAwaitingSongEnd);
  desk.AdvanceTo(606'000);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

TEST(BetweenRow, ATakeoverCutsTheMessagesOfTheBreakOff) {
  for (const int status : {128, 192}) {
    SpotDesk desk(AtBreak());
    desk.AdvanceTo(32'000);
    desk.Pc.Journal.Clear();
    desk.Status(status);
    desk.Advance(8000);
    EXPECT_EQ(desk.Journal(),
              "0 wav stop welcome.wav\n"
              "0 wav refuse \n"
              "0 song play waltz.mp3\n")
        << status;
    EXPECT_EQ(desk.Heard(), "silence");
    desk.Status(0);
    EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 20000");
    EXPECT_TRUE(desk.Sys->TheFrmPlayers.tmrMessage.Enabled);
  }
}

TEST(BetweenRow, AStatusThatTakesNothingOverLeavesTheMessagesAlone) {
  for (const int status : {64, 0}) {
    SpotDesk desk(AtBreak());
    desk.AdvanceTo(32'000);
    desk.Status(status);
    EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
    desk.AdvanceTo(36'000);
    EXPECT_EQ(desk.Heard(), "song waltz.mp3 at 20000");
  }
}

TEST(BetweenRow, AZoneButtonUnderTheMessagesLightsItsLabelWithoutAByte) {
  SpotDesk desk(AtBreak());
  desk.AdvanceTo(32'000);
  desk.Pc.Journal.Only({"send"});
  desk.Pc.Journal.Clear();
  desk.Click("cmdMusicZones_2");
  EXPECT_EQ(desk.LitZones(), "111000");
  desk.Advance(60'000);
  EXPECT_EQ(desk.Journal(), "");
}

TEST(BetweenRow, TheProgramCanBeLeftInTheWaitAndInTheMessagesOfTheBreak) {
  for (const int atMs : {5000, 32'000, 35'000}) {
    SpotDesk desk(AtBreak());
    desk.AdvanceTo(atMs);
    desk.Pc.Journal.Clear();
    desk.Click("mnuExit");
    desk.Advance(60'000);
    EXPECT_EQ(desk.Journal(), "0 send 0\n0 serial close\n0 process ends\n") << atMs;
  }
}

TEST(BetweenRow, AViewChangedInTheWaitLeavesTheMessagesToPlay) {
  SpotDesk desk(AtBreak());
  desk.AdvanceTo(5000);
  desk.Click("mnuAllDays");
  EXPECT_EQ(desk.Paint(1), "wwwww");
  desk.AdvanceTo(32'000);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

TEST(BetweenRow, ARowOfOneMinuteBeforeMidnightMayPlayOnTheNewDay) {
  SpotDesk desk({.Music = {{"march", 150'000}, {"waltz", 600'000}},
                 .Sequences = {{.Hours = "23", .Minutes = "59", .Timer = "Between"}},
                 .Now = {2024, 1, 1, 23, 58, 40}});
  desk.RunTo(0, 1, 14);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

TEST(BetweenRow, ASecondRowRefillsTheListThatACallHasEmptied) {
  DeskOptions options = AtBreak();
  options.Music[0].LengthMs = 150'000;
  options.Sequences[0].Messages = "welcome";
  options.Sequences.push_back(
      {.File = "b.sch", .Messages = "closing", .Minutes = "02", .Timer = "Between"});
  SpotDesk desk(options);
  desk.Pc.Journal.Only({"wav"});
  desk.AdvanceTo(5000);
  desk.Press("cmdCall");
  desk.Advance(3000);
  desk.Release("cmdCall");
  desk.RunTo(12, 2, 30);
  EXPECT_TRUE(desk.State().MessageAwaitingSongEnd);
  desk.RunTo(12, 4);
  EXPECT_EQ(desk.Journal(), "125471 wav play closing.wav\n127471 wav end closing.wav\n");
}

}  // namespace
}  // namespace marlex
