#include "music/music_schedule.h"

#include <gtest/gtest.h>

#include "desk/deeds.h"
#include "music/music_desk.h"

namespace marlex {
namespace {

/// A desk with music from 12:05 to 12:10, on a Monday at 12:00:33.
struct MusicClockDesk : MusicDesk {
  explicit MusicClockDesk(DeskOptions options = {}) : MusicDesk(WithWindow(std::move(options))) {}

  void Open(const std::string& path) {
    Pc.Dialogs.OpenResults = {path};
    Click("mnuOpen");
  }

 private:
  static DeskOptions WithWindow(DeskOptions options) {
    if (options.Music.empty()) options.Music = Songs(3, 3'600'000);
    if (options.StartTime.empty()) options.StartTime = "12:05";
    if (options.StopTime.empty()) options.StopTime = "12:10";
    if (options.WeekDays.empty()) options.WeekDays = "1234567";
    return options;
  }
};

TEST(MusicSchedule, StartsTheMusicAtTheStartMinuteAndFadesItOutAtTheStopMinute) {
  MusicClockDesk desk;
  desk.Pc.Journal.Only({"song", "send"});
  desk.RunTo(12, 4, 59);
  desk.Pc.Journal.Clear();
  EXPECT_EQ(desk.MusicFlags(), "");
  desk.RunTo(12, 5, 2);
  EXPECT_EQ(desk.Journal(), "1000 song play a.mp3\n1200 send 67\n");
  EXPECT_EQ(desk.MusicFlags(), "Started");
  EXPECT_EQ(desk.Buttons(), "Play Skip Stop");
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
  desk.RunTo(12, 9, 59);
  desk.Pc.Journal.Clear();
  desk.RunTo(12, 10, 3);
  EXPECT_EQ(desk.Journal(), "1529 song stop\n1529 send 0\n");
  EXPECT_EQ(desk.MusicFlags(), "BySchedule");
  EXPECT_EQ(desk.Buttons(), "Play");
  EXPECT_EQ(desk.PlayState(), kStopped);
}

TEST(MusicSchedule, AfterItsStopTheSliderIsSilentUntilThePlayButtonPutsItRight) {
  MusicClockDesk desk;
  desk.RunTo(12, 10, 3);
  EXPECT_EQ(desk.WaveSlider(), FrmMxr::kSilent);
  EXPECT_FALSE(desk.WaveMute().Value);
  EXPECT_FALSE(desk.MuteCheck(0));
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
}

TEST(MusicSchedule, WithoutAFadeTimeItStopsAtOnce) {
  MusicClockDesk desk;
  desk.RunTo(12, 9, 59);
  desk.Pc.Journal.Clear();
  desk.Do([&] { desk.Values().FadeTime = 0; });
  desk.RunTo(12, 10, 3);
  EXPECT_EQ(desk.Journal(), "1000 song stop\n");
  EXPECT_EQ(desk.WaveSlider(), 20'000);
}

TEST(MusicSchedule, MusicThatTheUserStoppedStaysOffUntilMidnight) {
  MusicClockDesk desk({.StartTime = "00:00", .StopTime = "23:59"});
  desk.RunTo(12, 1, 1);
  EXPECT_EQ(desk.MusicFlags(), "Started");
  desk.Click("cmdStop");
  EXPECT_EQ(desk.MusicFlags(), "ByUser Started");
  desk.RunTo(23, 59, 59);
  EXPECT_EQ(desk.PlayState(), kStopped);
  EXPECT_EQ(desk.MusicFlags(), "ByUser Started");
  desk.RunTo(0, 0, 1);
  EXPECT_EQ(desk.MusicFlags(), "Started");
  EXPECT_EQ(desk.PlayState(), kStopped);
  desk.RunTo(0, 1, 1);
  EXPECT_EQ(desk.PlayState(), kPlaying);
}

TEST(MusicSchedule, MusicThatTheUserRestartedStillStopsAtTheStopTime) {
  MusicClockDesk desk;
  desk.RunTo(12, 6, 0);
  desk.Click("cmdStop");
  desk.RunTo(12, 8, 0);
  EXPECT_EQ(desk.PlayState(), kStopped);
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.MusicFlags(), "Started");
  desk.RunTo(12, 10, 3);
  EXPECT_EQ(desk.PlayState(), kStopped);
  EXPECT_EQ(desk.MusicFlags(), "BySchedule");
}

TEST(MusicSchedule, MusicThatTheClockStoppedStartsAgainOnTheNextDayOfTheMask) {
  MusicClockDesk desk({.WeekDays = "1030000"});
  desk.RunTo(12, 10, 3);
  EXPECT_EQ(desk.MusicFlags(), "BySchedule");
  desk.RunTo(12, 10, 2);  // Tuesday
  EXPECT_EQ(desk.MusicFlags(), "BySchedule");
  EXPECT_EQ(desk.PlayState(), kStopped);
  desk.RunTo(12, 4, 59);  // Wednesday
  EXPECT_EQ(desk.MusicFlags(), "BySchedule");
  desk.RunTo(12, 5, 2);
  EXPECT_EQ(desk.MusicFlags(), "Started");
  EXPECT_EQ(desk.PlayState(), kPlaying);
}

TEST(MusicSchedule, MusicRestartedAfterTheClocksStopIsNeverStoppedByIt) {
  MusicClockDesk desk;
  desk.RunTo(12, 10, 3);
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.MusicFlags(), "Overridden");
  desk.RunTo(13, 0);
  EXPECT_EQ(desk.PlayState(), kPlaying);
  desk.Click("cmdStop");
  desk.RunTo(12, 6);  // Tuesday
  EXPECT_EQ(desk.MusicFlags(), "Started Overridden");
  EXPECT_EQ(desk.PlayState(), kPlaying);
  desk.RunTo(23, 0);
  EXPECT_EQ(desk.PlayState(), kPlaying);
}

TEST(MusicSchedule, MusicThatTheUserStartedBeforeTheWindowPlaysOnAfterIt) {
  MusicClockDesk desk;
  desk.Click("cmdPlay");
  desk.RunTo(12, 7);
  EXPECT_EQ(desk.MusicFlags(), "");
  desk.RunTo(12, 30);
  EXPECT_EQ(desk.PlayState(), kPlaying);
  EXPECT_EQ(desk.MusicFlags(), "");
}

TEST(MusicSchedule, ThePlayButtonAndAnOpenedListLiftTheBarOfTheStopButton) {
  MusicClockDesk desk;
  desk.RunTo(12, 6);
  desk.Click("cmdStop");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.MusicFlags(), "Started");
  desk.Click("cmdStop");
  desk.Open(Desk::kPlaylist);
  EXPECT_EQ(desk.MusicFlags(), "Started");
  EXPECT_EQ(desk.PlayState(), kPlaying);
}

TEST(MusicSchedule, AProgramStartedInsideTheWindowStartsMusicWithItsFirstTick) {
  MusicClockDesk desk({.Now = {2024, 1, 1, 12, 7, 20}});
  EXPECT_EQ(desk.PlayState(), kStopped);
  desk.Advance(1000);
  EXPECT_EQ(desk.MusicFlags(), "Started");
  EXPECT_EQ(desk.PlayState(), kPlaying);
}

TEST(MusicSchedule, EveryMinuteInsideTheWindowTriesAgain) {
  MusicClockDesk desk;
  desk.Pc.Disk.FailReads("/music");
  desk.RunTo(12, 6, 30);
  EXPECT_EQ(desk.PlayState(), kStopped);
  EXPECT_EQ(desk.MusicFlags(), "Started");
  desk.Pc.Disk.Heal("/music");
  desk.RunTo(12, 7, 2);
  EXPECT_EQ(desk.PlayState(), kPlaying);
}

TEST(MusicSchedule, TheLastMinuteOfTheWindowStartsAndTheStopMinuteDoesNot) {
  MusicClockDesk last({.Now = {2024, 1, 1, 12, 9, 20}});
  last.Advance(2000);
  EXPECT_EQ(last.PlayState(), kPlaying);
  MusicClockDesk stop({.Now = {2024, 1, 1, 12, 10, 20}});
  stop.Advance(120'000);
  EXPECT_EQ(stop.PlayState(), kStopped);
}

TEST(MusicSchedule, EachStartResumesAtTheSongOfTheProgramsStart) {
  MusicClockDesk desk({.Music = MusicDesk::Songs(3, 60'000), .LastSong = "1"});
  desk.RunTo(12, 5, 2);
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
  desk.RunTo(12, 9, 59);
  EXPECT_EQ(desk.LastSong(), "2");
  desk.RunTo(12, 10, 3);
  desk.RunTo(12, 5, 2);  // Tuesday
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
}

TEST(MusicSchedule, ALastSongPastTheEndOfTheListStartsTheFirstOne) {
  MusicClockDesk desk({.LastSong = "7"});
  desk.RunTo(12, 5, 2);
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
  EXPECT_EQ(desk.MusicFlags(), "Started");
}

TEST(MusicSchedule, AnEmptyListIsTriedEveryMinuteWithoutAWord) {
  MusicClockDesk desk;
  desk.Do([&] { desk.List().Clear(); });
  desk.RunTo(12, 7, 30);
  EXPECT_EQ(desk.PlayState(), kStopped);
  EXPECT_EQ(desk.MusicFlags(), "Started");
  desk.Do([&] { desk.List().AddItem("a"); });
  desk.RunTo(12, 8, 2);
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(MusicSchedule, AnEmptyStopTimeNeverStarts) {
  MusicClockDesk desk;
  desk.Do([&] { desk.Values().MusicStopTime = ""; });
  desk.RunTo(12, 6);
  EXPECT_EQ(desk.PlayState(), kStopped);
}

TEST(MusicSchedule, AnEmptyStopTimeStopsAtTheNextMinute) {
  MusicClockDesk desk;
  desk.RunTo(12, 6);
  desk.Do([&] { desk.Values().MusicStopTime = ""; });
  desk.RunTo(12, 7, 3);
  EXPECT_EQ(desk.PlayState(), kStopped);
  EXPECT_EQ(desk.MusicFlags(), "BySchedule");
}

TEST(MusicSchedule, AnEmptyStartTimeNeitherStartsNorStops) {
  MusicClockDesk desk;
  desk.RunTo(12, 6);
  EXPECT_EQ(desk.MusicFlags(), "Started");
  desk.Do([&] { desk.Values().MusicStartTime = ""; });
  desk.RunTo(12, 30);
  EXPECT_EQ(desk.PlayState(), kPlaying);
  desk.Do([&] { desk.Values().MusicScheduled = false; });
  StopByPreview(desk);
  desk.RunTo(12, 6);  // Tuesday
  EXPECT_EQ(desk.PlayState(), kStopped);
}

TEST(MusicSchedule, ThereIsNoWindowOverMidnight) {
  MusicClockDesk desk({.StartTime = "22:00", .StopTime = "06:00"});
  for (int hour = 13; hour < 13 + 24; ++hour) {
    desk.RunTo(hour % 24, 0, 2);
    EXPECT_EQ(desk.PlayState(), kStopped) << hour;
  }
}

TEST(MusicSchedule, AWindowOfNoLengthNeverStarts) {
  MusicClockDesk desk({.StartTime = "12:05", .StopTime = "12:05"});
  desk.RunTo(12, 6);
  EXPECT_EQ(desk.PlayState(), kStopped);
}

TEST(MusicSchedule, EachWeekdayHasItsCharacterOfTheMask) {
  // 1 January 2024 is a Monday.
  for (int day = 1; day <= 7; ++day) {
    std::string mask = "0000000";
    mask[static_cast<std::size_t>(day - 1)] = static_cast<char>('0' + day);
    for (int today = 1; today <= 7; ++today) {
      MusicClockDesk desk({.WeekDays = mask, .Now = {2024, 1, today, 12, 4, 30}});
      desk.RunTo(12, 5, 2);
      EXPECT_EQ(desk.PlayState(), today == day ? kPlaying : kStopped) << mask << today;
    }
  }
}

TEST(MusicSchedule, AMaskHasADayOnUnlessItsCharacterIsNought) {
  const std::vector<std::pair<std::string, bool>> masks = {
      {"", true}, {"1", true}, {"0", false}, {"0000000", false}, {"x", true}, {"7", true}};
  for (const auto& [mask, on] : masks) {
    MusicClockDesk desk;
    desk.Do([&, mask = mask] { desk.Values().MusicWeekDays = mask; });
    desk.RunTo(12, 5, 2);
    EXPECT_EQ(desk.PlayState(), on ? kPlaying : kStopped) << mask;
  }
}

TEST(MusicSchedule, ADayThatIsOffBarsTheStopToo) {
  MusicClockDesk desk;
  desk.RunTo(12, 6);
  desk.Do([&] { desk.Values().MusicWeekDays = "0000000"; });
  desk.RunTo(12, 30);
  EXPECT_EQ(desk.PlayState(), kPlaying);
}

TEST(MusicSchedule, AStopOnADayThatIsOffIsMadeUpOnTheNextDayThatIsOn) {
  MusicClockDesk desk({.WeekDays = "1030567"});
  desk.RunTo(12, 6);
  desk.Do([&] { desk.Values().MusicWeekDays = "0030567"; });
  desk.RunTo(12, 30);
  EXPECT_EQ(desk.PlayState(), kPlaying);
  desk.RunTo(12, 9, 59);  // Tuesday
  desk.RunTo(12, 30);
  EXPECT_EQ(desk.PlayState(), kPlaying);
  desk.RunTo(12, 9, 59);  // Wednesday
  EXPECT_EQ(desk.PlayState(), kPlaying);
  desk.RunTo(12, 10, 3);
  EXPECT_EQ(desk.PlayState(), kStopped);
}

TEST(MusicSchedule, AMinuteUnderAPriorityCallIsLostToBothTests) {
  MusicClockDesk desk;
  desk.Status(64);
  desk.RunTo(12, 5, 30);
  EXPECT_EQ(desk.PlayState(), kStopped);
  desk.Status(0);
  desk.RunTo(12, 5, 59);
  EXPECT_EQ(desk.PlayState(), kStopped);
  desk.RunTo(12, 6, 2);
  EXPECT_EQ(desk.PlayState(), kPlaying);
  desk.Status(64);
  desk.RunTo(12, 12);
  EXPECT_EQ(desk.PlayState(), kPlaying);
  desk.Status(0);
  desk.RunTo(12, 13, 3);
  EXPECT_EQ(desk.PlayState(), kStopped);
}

TEST(MusicSchedule, APriorityCallAtMidnightKeepsTheBarOfTheStopButton) {
  MusicClockDesk desk({.StartTime = "00:00", .StopTime = "23:59"});
  desk.RunTo(12, 1, 2);
  desk.Click("cmdStop");
  desk.RunTo(23, 59, 30);
  desk.Status(64);
  desk.RunTo(0, 0, 30);
  desk.Status(0);
  desk.RunTo(12, 0);
  EXPECT_EQ(desk.MusicFlags(), "ByUser Started");
  EXPECT_EQ(desk.PlayState(), kStopped);
}

TEST(MusicSchedule, PausedMusicCountsAsNotPlayingForTheStart) {
  MusicClockDesk desk;
  desk.Click("cmdPlay");
  PauseByPreview(desk);
  desk.RunTo(12, 5, 2);
  EXPECT_EQ(desk.PlayState(), kPlaying);
  EXPECT_EQ(desk.MusicFlags(), "Started");
  EXPECT_EQ(desk.Text("lblMP3Position"), "0:02");
}

TEST(MusicSchedule, PausedMusicIsNotStopped) {
  MusicClockDesk desk;
  desk.RunTo(12, 6);
  PauseByPreview(desk);
  desk.Do([&] { desk.Values().MusicStopTime = "12:06"; });
  desk.RunTo(12, 12);
  EXPECT_EQ(desk.PlayState(), kPaused);
  EXPECT_EQ(desk.MusicFlags(), "Started");
}

TEST(MusicSchedule, ALostDirectoryIsReportedOnceAMinute) {
  MusicClockDesk desk;
  desk.Pc.Disk.Vanish("/music");
  desk.RunTo(12, 8, 30);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 4u);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Body, "Cannot find music directory /music/");
  EXPECT_EQ(desk.MusicFlags(), "Started");
}

TEST(MusicSchedule, TheBoxOfALostDirectoryDoesNotPileUpAndTheClockGoesOnUnderIt) {
  MusicClockDesk desk;
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.Pc.Disk.Vanish("/music");
  desk.RunTo(12, 7, 30);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
  desk.Pc.Disk.Return("/music");
  desk.RunTo(12, 8, 2);
  EXPECT_EQ(desk.PlayState(), kPlaying);
  desk.RunTo(12, 10, 3);
  EXPECT_EQ(desk.PlayState(), kStopped);
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
}

TEST(MusicSchedule, AnOpenedListInsideItsWindowIsNotStopped) {
  MusicClockDesk desk;
  desk.RunTo(12, 1, 30);
  desk.Pc.Disk.AddFile("/app/Now.lst",
                       "[Playlist]\r\nSong:1=c\r\n[Background music]\r\nStart time=12:00\r\n"
                       "Stop time=12:03\r\n");
  desk.Open("/app/Now.lst");
  EXPECT_EQ(desk.PlayState(), kPlaying);
  EXPECT_EQ(desk.MusicFlags(), "");
  desk.RunTo(12, 30);
  EXPECT_EQ(desk.PlayState(), kPlaying);
}

TEST(MusicSchedule, AMinuteWhileAMessagePlaysIsMadeUpAtTheNextOne) {
  MusicClockDesk desk({.Messages = {{"welcome", 70'000}}, .Sequences = {{.Minutes = "04"}}});
  desk.RunTo(12, 5, 10);
  EXPECT_EQ(desk.PlayState(), kStopped);
  desk.RunTo(12, 6, 2);
  EXPECT_EQ(desk.PlayState(), kPlaying);
}

TEST(MusicSchedule, ARowOfTheStopMinutePlaysAfterTheFadeIntoSilence) {
  MusicClockDesk desk({.Sequences = {{.Minutes = "10"}}});
  desk.RunTo(12, 9, 59);
  desk.Pc.Journal.Clear();
  desk.RunTo(12, 10, 20);
  EXPECT_EQ(desk.Journal(),
            "1529 song stop\n1529 wav play welcome.wav\n4529 wav end welcome.wav\n");
  EXPECT_EQ(desk.PlayState(), kStopped);
}

TEST(MusicSchedule, ARowOfTheStartMinuteInterruptsTheMusicThatHasJustStarted) {
  MusicClockDesk desk({.Sequences = {{.Minutes = "05"}}});
  desk.RunTo(12, 4, 59);
  desk.Pc.Journal.Clear();
  desk.RunTo(12, 5, 20);
  EXPECT_EQ(desk.Journal(),
            "1000 song play a.mp3\n1529 song pause\n1529 wav play welcome.wav\n"
            "4529 wav end welcome.wav\n4529 song resume a.mp3\n");
}

TEST(MusicSchedule, TicksDuringItsFadeChangeNothing) {
  MusicClockDesk desk({.FadeTime = "Slow"});
  desk.RunTo(12, 9, 59);
  desk.Pc.Journal.Clear();
  desk.RunTo(12, 10, 10);
  EXPECT_EQ(desk.Journal(), "2518 song stop\n");
}

TEST(MusicSchedule, ATakeoverInTheMiddleOfItsFadeStopsTheMusicAtOnce) {
  MusicClockDesk desk({.FadeTime = "Slow"});
  desk.Pc.Journal.Only({"song", "send"});
  desk.RunTo(12, 10, 1);
  ASSERT_TRUE(desk.State().FadeRunning);
  desk.Pc.Journal.Clear();
  desk.Status(128);
  EXPECT_EQ(desk.Journal(), "0 song stop\n0 send 0\n");
  EXPECT_EQ(desk.MusicFlags(), "BySchedule");
  EXPECT_EQ(desk.WaveSlider(), 20'000);
  desk.Status(0);
  desk.Advance(30'000);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Journal(), "0 song stop\n0 send 0\n");
}

TEST(MusicSchedule, TheStopButtonDuringItsFadeStopsTheMusicAndTheFadeGoesOn) {
  MusicClockDesk desk({.FadeTime = "Slow"});
  desk.RunTo(12, 10, 1);
  desk.Click("cmdStop");
  EXPECT_TRUE(desk.State().FadeRunning);
  desk.Advance(3000);
  EXPECT_FALSE(desk.State().FadeRunning);
  EXPECT_EQ(desk.MusicFlags(), "ByUser BySchedule");
  EXPECT_EQ(desk.Buttons(), "Play");
}

TEST(MusicSchedule, TheExitInTheMiddleOfItsFadeEndsTheProgramAtOnce) {
  MusicClockDesk desk({.FadeTime = "Slow"});
  desk.RunTo(12, 10, 1);
  ASSERT_TRUE(desk.State().FadeRunning);
  desk.Pc.Journal.Only({"send", "process", "song"});
  desk.Pc.Journal.Clear();
  desk.Click("mnuExit");
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(), "0 send 0\n0 process ends\n");
}

TEST(MusicSchedule, AListOpenedInTheMiddleOfItsFadeDoesNotSaveTheSong) {
  MusicClockDesk desk({.FadeTime = "Slow"});
  desk.Pc.Disk.AddFile("/app/Now.lst", "[Playlist]\r\nSong:1=c\r\n");
  desk.RunTo(12, 10, 1);
  desk.Open("/app/Now.lst");
  desk.Advance(3000);
  EXPECT_EQ(desk.PlayState(), kStopped);
  EXPECT_EQ(desk.MusicFlags(), "BySchedule");
}

TEST(MusicSchedule, AStartByHandOnTheNextDayBeforeTheWindowBarsTheStopToo) {
  MusicClockDesk desk;
  desk.RunTo(12, 10, 3);
  desk.RunTo(12, 4);  // Tuesday
  ASSERT_EQ(desk.MusicFlags(), "BySchedule");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.MusicFlags(), "Overridden");
  desk.RunTo(12, 11);
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
}

}  // namespace
}  // namespace marlex
