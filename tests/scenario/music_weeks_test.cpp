// The music's clock over several weeks.

#include <gtest/gtest.h>

#include "music/music_desk.h"

namespace marlex {
namespace {

/// A desk with three songs of one hour each and music from 12:05 to 12:10 every day, starting on a
/// Monday at 12:00:33.
class WeekDesk : public MusicDesk {
 public:
  explicit WeekDesk(const std::string& startTime = "12:05", const std::string& stopTime = "12:10",
                    const std::string& weekDays = "1234567")
      : MusicDesk({.Music = Songs(3, 3'600'000),
                   .StartTime = startTime,
                   .StopTime = stopTime,
                   .WeekDays = weekDays}) {}

  bool Plays() { return Pc.Song.PlayState() == kPlaying; }

  void OpenAgain() {
    Pc.Dialogs.OpenResults = {kPlaylist};
    Click("mnuOpen");
  }

  /// Goes to this time of the wall clock, today or tomorrow, skipping every minute before the last.
  /// An hour of music is slow to simulate, and the clock looks only at the current minute.
  void SkipTo(int hour, int minute, int second = 0) {
    constexpr int kDaySeconds = 86'400;
    constexpr int kSeenSeconds = 5;
    const LocalTime now = Pc.Clock.Now();
    const int seconds = (hour - now.Hour) * 3600 + (minute - now.Minute) * 60 + second - now.Second;
    Pc.Clock.Jump((seconds + kDaySeconds) % kDaySeconds - kSeenSeconds);
    Advance(kSeenSeconds * 1000);
  }

  /// Goes past the next midnight.
  void SkipToTomorrow() { SkipTo(0, 0, 3); }
};

TEST(MusicWeeks, OnceOverriddenTheClockStartsTheMusicEveryDayAndStopsItNever) {
  WeekDesk desk;
  desk.RunTo(12, 10, 3);
  ASSERT_FALSE(desk.Plays());
  desk.Click("cmdPlay");
  ASSERT_EQ(desk.MusicFlags(), "Overridden");
  for (int day = 1; day <= 14; ++day) {
    desk.SkipTo(23, 0);
    EXPECT_TRUE(desk.Plays()) << day;
    if (day == 7) desk.OpenAgain();
    desk.Click("cmdStop");
    desk.SkipToTomorrow();
    desk.SkipTo(12, 4, 58);
    EXPECT_FALSE(desk.Plays()) << day;
    desk.RunTo(12, 12);
    EXPECT_TRUE(desk.Plays()) << day;
    EXPECT_EQ(desk.MusicFlags(), "Started Overridden") << day;
  }
}

TEST(MusicWeeks, AnOverrideEndsWithTheProgram) {
  WeekDesk desk;
  desk.RunTo(12, 10, 3);
  desk.Click("cmdPlay");
  desk.SkipToTomorrow();
  desk.Restart();
  EXPECT_EQ(desk.MusicFlags(), "");
  desk.SkipTo(12, 9);
  EXPECT_EQ(desk.MusicFlags(), "Started");
  desk.RunTo(12, 11);
  EXPECT_EQ(desk.MusicFlags(), "BySchedule");
  EXPECT_FALSE(desk.Plays());
}

TEST(MusicWeeks, AWindowOverMidnightNeverOpens) {
  WeekDesk desk("22:00", "06:00");
  for (int day = 1; day <= 7; ++day) {
    for (const int hour : {21, 22, 23, 0, 1, 5, 6, 12}) {
      desk.SkipTo(hour, 0, 30);
      EXPECT_FALSE(desk.Plays()) << day << " at " << hour;
    }
  }
  EXPECT_EQ(desk.MusicFlags(), "");
}

TEST(MusicWeeks, AStopThatFallsOnADayThatIsOffWaitsForTheNextDayThatIsOn) {
  WeekDesk desk("12:05", "12:10", "1000500");
  desk.RunTo(12, 6);
  ASSERT_TRUE(desk.Plays());
  desk.Status(64);  // the stop of Monday is lost to a call
  desk.SkipToTomorrow();
  desk.Status(0);
  for (const char* day : {"Tuesday", "Wednesday", "Thursday"}) {
    desk.SkipTo(12, 10, 30);
    EXPECT_TRUE(desk.Plays()) << day;
    EXPECT_EQ(desk.MusicFlags(), "Started") << day;
    desk.SkipToTomorrow();
  }
  desk.SkipTo(12, 9, 59);  // Friday
  EXPECT_TRUE(desk.Plays());
  desk.RunTo(12, 10, 3);
  EXPECT_FALSE(desk.Plays());
  EXPECT_EQ(desk.MusicFlags(), "BySchedule");
}

TEST(MusicWeeks, OnTheDaysOfTheMaskAloneTheMusicPlaysFromItsStartToItsStop) {
  WeekDesk desk("12:05", "12:10", "1030067");
  std::string days;
  for (int day = 0; day < 21; ++day) {
    desk.SkipTo(12, 4, 58);
    EXPECT_FALSE(desk.Plays()) << day;
    desk.RunTo(12, 5, 2);
    const bool plays = desk.Plays();
    desk.SkipTo(12, 9, 58);
    EXPECT_EQ(desk.Plays(), plays) << day;
    desk.RunTo(12, 10, 3);
    EXPECT_FALSE(desk.Plays()) << day;
    days += plays ? static_cast<char>('1' + day % 7) : '0';
    desk.SkipToTomorrow();
  }
  EXPECT_EQ(days, "103006710300671030067");
}

TEST(MusicWeeks, AStopByHandIsForgivenEveryMidnight) {
  WeekDesk desk("09:00", "18:00");
  for (int day = 1; day <= 7; ++day) {
    desk.SkipTo(12, 2);
    EXPECT_EQ(desk.MusicFlags(), "Started") << day;
    EXPECT_TRUE(desk.Plays()) << day;
    desk.Click("cmdStop");
    desk.SkipTo(17, 0);
    EXPECT_FALSE(desk.Plays()) << day;
    EXPECT_EQ(desk.MusicFlags(), "ByUser Started") << day;
    desk.SkipToTomorrow();
  }
}

TEST(MusicWeeks, AStopByHandIsNotForgivenByAMidnightThatNobodySaw) {
  WeekDesk desk("09:00", "18:00");
  desk.SkipTo(12, 2);
  desk.Click("cmdStop");
  for (int day = 1; day <= 7; ++day) {
    desk.SkipTo(11, 0);
    EXPECT_FALSE(desk.Plays()) << day;
    EXPECT_EQ(desk.MusicFlags(), "ByUser Started") << day;
  }
}

TEST(MusicWeeks, AListOpenedInsideItsWindowPlaysThroughEveryStopOfTheWeek) {
  WeekDesk desk;
  desk.Pc.Disk.AddFile("/app/Evening.lst",
                       "[Playlist]\r\nSong:1=c\r\n[Background music]\r\nStart time=12:00\r\n"
                       "Stop time=12:04\r\n");
  desk.RunTo(12, 2);
  desk.Pc.Dialogs.OpenResults = {"/app/Evening.lst"};
  desk.Click("mnuOpen");
  for (int day = 1; day <= 7; ++day) {
    EXPECT_EQ(desk.Heard(), "song c.mp3 at 20000") << day;
    EXPECT_EQ(desk.MusicFlags(), "") << day;
    desk.SkipTo(12, 4, 30);
    desk.SkipToTomorrow();
    desk.SkipTo(12, 0, 30);
  }
}

}  // namespace
}  // namespace marlex
