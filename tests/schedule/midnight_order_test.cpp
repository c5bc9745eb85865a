// The order of what the first tick of a day does.

#include <gtest/gtest.h>

#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::MusicAtStart::IsSilent;
constexpr int kInTheFade = 1300;

/// From a Sunday to a Monday, each with a row of its own at midnight, where the clock stops the
/// music.
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

/// The same with music from `start` to `stop` every day, by the music's clock.
DeskOptions NightOfMusic(const std::string& start, const std::string& stop) {
  DeskOptions options = Night();
  options.StartTime = start;
  options.StopTime = stop;
  options.WeekDays = "1234567";
  return options;
}

/// The clock has started the music and will stop it at midnight. Since then the stop button was
/// pressed, and the preview of the playlist editor, in which a file with other times was opened,
/// has brought the music back without the clock's knowledge.
class NightDesk : public SpotDesk {
 public:
  NightDesk() : SpotDesk(NightOfMusic("23:00", "24:00"), kSilent) {
    Pc.Disk.AddFile("/app/Midnight.lst",
                    "[Playlist]\r\nSong:1=march\r\n[Background music]\r\nStart time=00:00\r\n"
                    "Stop time=00:00\r\nWeekdays=1234567\r\n");
    Pc.Dialogs.OpenResults = {"/app/Midnight.lst"};
    FrmPlaylist& editor = Sys->TheWindows.frmPlaylist;
    Click("cmdStop");
    Click("mnuPlaylist");
    Click(editor.mnuOpen);
    Choose(editor.SelectedMP3s, "march");
    Click(editor.PrevKey);
    Click(editor.mnuExit);
    EXPECT_EQ(Heard(), "song march.mp3 at 20000");
    EXPECT_TRUE(State().MusicStartedBySchedule);
    EXPECT_TRUE(State().MusicStoppedByUser);
    Pc.Journal.Clear();
  }
};

TEST(MidnightOrder, MusicStopsBeforeTheTableIsBuiltAndTheStopButtonIsForgiven) {
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

TEST(MidnightOrder, TheNewDaysRowIsSoughtLastAndPlaysAfterTheStop) {
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

TEST(MidnightOrder, TheStopButtonOfYesterdayBarsTheMusicsStartAtMidnightItself) {
  SpotDesk desk(NightOfMusic("00:00", "23:00"), kSilent);
  desk.Click("cmdPlay");
  desk.Click("cmdStop");
  desk.AdvanceTo(30'000);
  EXPECT_EQ(desk.MusicState(), kStopped);
  EXPECT_FALSE(desk.State().MusicStoppedByUser);
  desk.AdvanceTo(62'000);
  EXPECT_EQ(desk.MusicState(), kPlaying);
}

TEST(MidnightOrder, TheMusicsStartAtMidnightComesBeforeTheRowWhichFadesItAgain) {
  SpotDesk desk(NightOfMusic("00:00", "23:00"), kSilent);
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
