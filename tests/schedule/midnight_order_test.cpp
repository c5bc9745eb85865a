// The order of what the first tick of a day does.

#include <gtest/gtest.h>

#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::Music::IsSilent;
constexpr int kInTheFade = 1300;

/// From a Sunday to a Monday, each with a row of its own at midnight; music of the clock stops
/// there.
DeskOptions Night() {
  return {.Sequences = {{.File = "a.sch",
                         .Messages = "welcome",
                         .Hours = "0",
                         .Minutes = "00",
                         .Weekdays = "1000000"},
                        {.File = "b.sch",
                         .Messages = "closing",
                         .Hours = "0",
                         .Minutes = "00",
                         .Weekdays = "0000007"}},
          .Now = {2024, 1, 7, 23, 59, 30}};
}

/// The window is one that the music's clock ends at midnight and that began on the day before.
class NightDesk : public SpotDesk {
 public:
  NightDesk() : SpotDesk(Night()) {
    Do([this] {
      State().MusicStartedBySchedule = true;
      State().MusicStoppedByUser = true;
      Values().MusicStartTime = "00:00";
      Values().MusicStopTime = "00:00";
    });
  }
};

TEST(MidnightOrder, TheMusicIsStoppedBeforeTheTableIsBuiltAndTheStopKeyForgiven) {
  NightDesk desk;
  desk.AdvanceTo(kInTheFade);
  EXPECT_TRUE(desk.State().FadeRunning);
  EXPECT_EQ(desk.Rows().front(), "00:00  ||123456||closing");
  EXPECT_TRUE(desk.State().MusicStoppedByUser);
  desk.AdvanceTo(1600);
  EXPECT_EQ(desk.MusicState(), kStopped);
  EXPECT_EQ(desk.Rows().front(), "00:00  ||123456||welcome");
  EXPECT_FALSE(desk.State().MusicStoppedByUser);
}

TEST(MidnightOrder, TheNewDaysRowIsSoughtLastAndPlaysBehindTheStop) {
  NightDesk desk;
  desk.AdvanceTo(20'000);
  EXPECT_EQ(desk.Journal(),
            "1529 song stop\n"
            "1529 send 0\n"
            "1529 wav play welcome.wav\n"
            "1729 send 127\n"
            "4529 wav end welcome.wav\n"
            "4529 send 0\n");
}

TEST(MidnightOrder, TheStopKeyOfYesterdayBarsTheMusicsStartAtMidnightItself) {
  DeskOptions options = Night();
  options.StartTime = "00:00";
  options.StopTime = "23:00";
  options.WeekDays = "1234567";
  SpotDesk desk(options, kSilent);
  desk.Do([&] { desk.State().MusicStoppedByUser = true; });
  desk.AdvanceTo(30'000);
  EXPECT_EQ(desk.MusicState(), kStopped);
  EXPECT_FALSE(desk.State().MusicStoppedByUser);
  desk.AdvanceTo(62'000);
  EXPECT_EQ(desk.MusicState(), kPlaying);
}

TEST(MidnightOrder, TheMusicsStartAtMidnightComesBeforeTheRowWhichFadesItAgain) {
  DeskOptions options = Night();
  options.StartTime = "00:00";
  options.StopTime = "23:00";
  options.WeekDays = "1234567";
  SpotDesk desk(options, kSilent);
  desk.AdvanceTo(2000);
  EXPECT_EQ(desk.Journal(),
            "1000 song play march.mp3\n"
            "1200 send 67\n"
            "1529 song pause\n"
            "1529 wav play welcome.wav\n"
            "1729 send 127\n");
}

}  // namespace
}  // namespace marlex
