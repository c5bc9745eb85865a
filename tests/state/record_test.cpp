#include "state/record.h"

#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

constexpr int kMinuteMs = 60'000;

/// A desk whose journal holds the record alone, from its main window on.
class RecordingDesk : public Desk {
 public:
  explicit RecordingDesk(const DeskOptions& options = {}) : Desk(options) {
    Pc.Journal.Only({"record"});
    Pc.Journal.Clear();
  }

  /// The lines since the last call, without their times.
  std::string Lines() {
    std::string lines;
    for (const std::string& line : Pc.Journal.Lines()) {
      constexpr std::string_view kCategory = " record ";
      lines += line.substr(line.find(kCategory) + kCategory.size()) + "\n";
    }
    Pc.Journal.Clear();
    return lines;
  }
};

/// A desk at 12:00:30 with a row at 12:01 of three seconds.
DeskOptions WithRow(const std::string& timer = "Exact") {
  return {.Sequences = {{.Zones = "103000", .Timer = timer}}};
}

DeskOptions WithMusic(DeskOptions options) {
  options.Music = {{"march"}, {"waltz"}};
  return options;
}

TEST(RecordOfARow, SaysWhenItPlaysAndWhereAndWhenItEnds) {
  RecordingDesk desk(WithRow());
  desk.RunTo(12, 2);
  EXPECT_EQ(desk.Journal(),
            "28000 record row 12:01 welcome: play in 1 3\n"
            "31000 record row 12:01 welcome: end\n");
}

TEST(RecordOfARow, SaysThatItWaitsForTheMusicBreak) {
  RecordingDesk desk(WithMusic(WithRow("Between")));
  desk.Click("cmdPlay");
  desk.RunTo(12, 2);
  EXPECT_EQ(desk.Lines(), "music: play march.mp3\nrow 12:01+ welcome: wait\n");
  desk.Click("cmdSkip");
  desk.Advance(5000);
  EXPECT_EQ(desk.Lines(), "row 12:01+ welcome: play in 1 3\nrow 12:01+ welcome: end\n");
}

TEST(RecordOfARow, NamesAMissingMessage) {
  RecordingDesk desk({.Sequences = {{.Messages = "welcome,lost"}}});
  desk.RunTo(12, 2);
  EXPECT_EQ(desk.Lines(),
            "fault: File not found: lost.wav\n"
            "row 12:01 welcome,lost: play in 1 2 3 4 5 6\n"
            "fault over: File not found: lost.wav\n"
            "row 12:01 welcome,lost: refuse lost.wav\n"
            "row 12:01 welcome,lost: end\n");
}

TEST(RecordOfARow, SaysThatACallHasCutItOff) {
  RecordingDesk desk(WithRow());
  desk.RunTo(12, 1, 2);
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Release("cmdCall");
  desk.RunTo(12, 2);
  EXPECT_EQ(desk.Lines(),
            "row 12:01 welcome: play in 1 3\n"
            "call: begin in 3\n"
            "row 12:01 welcome: cut off, call\n"
            "call: speak\n"
            "call: end\n");
}

TEST(RecordOfARow, SaysThatATakeoverHasCutItOff) {
  RecordingDesk desk(WithRow());
  desk.RunTo(12, 1, 2);
  desk.Status(128);
  desk.RunTo(12, 2);
  EXPECT_EQ(desk.Lines(),
            "row 12:01 welcome: play in 1 3\n"
            "amplifier: status 128\n"
            "amplifier: takeover\n"
            "row 12:01 welcome: cut off, takeover\n");
}

TEST(RecordOfARow, SaysThatACallInItsFadeHasDroppedIt) {
  RecordingDesk desk(WithMusic(WithRow()));
  desk.Click("cmdPlay");
  desk.RunTo(12, 1);
  desk.Advance(300);
  ASSERT_TRUE(desk.State().FadeRunning);
  desk.Press("cmdCall");
  EXPECT_EQ(desk.Lines(),
            "music: play march.mp3\n"
            "call: begin in 3\n"
            "row 12:01 welcome: lost, call\n");
}

TEST(RecordOfARow, SaysThatATakeoverInItsFadeHasDroppedIt) {
  RecordingDesk desk(WithMusic(WithRow()));
  desk.Click("cmdPlay");
  desk.RunTo(12, 1);
  desk.Advance(300);
  ASSERT_TRUE(desk.State().FadeRunning);
  desk.Status(192);
  desk.RunTo(12, 2);
  EXPECT_EQ(desk.Lines(),
            "music: play march.mp3\n"
            "amplifier: status 192\n"
            "amplifier: takeover\n"
            "row 12:01 welcome: lost, takeover\n");
}

TEST(RecordOfARow, SaysThatACallHasDroppedItWhileItWaited) {
  RecordingDesk desk(WithMusic(WithRow("Between")));
  desk.Click("cmdPlay");
  desk.RunTo(12, 1, 30);
  desk.Lines();
  desk.Press("cmdCall");
  desk.Advance(100);
  EXPECT_EQ(desk.Lines(), "call: begin in 3\nrow 12:01+ welcome: lost, call\n");
}

TEST(RecordOfARow, SaysThatATakeoverHasDroppedItWhileItWaited) {
  RecordingDesk desk(WithMusic(WithRow("Between")));
  desk.Click("cmdPlay");
  desk.RunTo(12, 1, 30);
  desk.Lines();
  desk.Status(128);
  desk.Status(0);
  desk.Click("cmdSkip");  // a break
  desk.Advance(10'000);
  EXPECT_EQ(desk.Lines(),
            "amplifier: status 128\n"
            "amplifier: takeover\n"
            "row 12:01+ welcome: lost, takeover\n"
            "amplifier: status 0\n");
}

TEST(RecordOfARow, SaysThatTheNextRowHasReplacedIt) {
  RecordingDesk desk(WithMusic({.Sequences = {{.Minutes = "01,02", .Timer = "Between"}}}));
  desk.Click("cmdPlay");
  desk.RunTo(12, 1, 30);
  desk.Lines();
  desk.Click("mnuSchedule");  // whose end resumes the schedule
  desk.Click("mnuExit");
  desk.RunTo(12, 2, 30);
  EXPECT_EQ(desk.Lines(), "row 12:01+ welcome: lost, next row\nrow 12:02+ welcome: wait\n");
}

TEST(RecordOfARow, SaysThatTheAmplifiersCallKeptItFromFiring) {
  RecordingDesk desk(WithRow());
  desk.Status(128);
  desk.RunTo(12, 2);
  EXPECT_EQ(desk.Lines(), "amplifier: status 128\nrow 12:01 welcome: lost, takeover\n");
}

TEST(RecordOfARow, SaysThatACallKeptItFromFiring) {
  RecordingDesk desk(WithRow());
  desk.Press("cmdCall");
  desk.RunTo(12, 3);
  desk.Release("cmdCall");
  EXPECT_EQ(desk.Lines(),
            "call: begin in 3\n"
            "call: speak\n"
            "row 12:01 welcome: lost, call\n"
            "call: end\n");
}

TEST(RecordOfARow, SaysThatTheEditorKeptItFromFiring) {
  RecordingDesk desk(WithRow());
  desk.Click("mnuSchedule");
  desk.RunTo(12, 3);
  EXPECT_EQ(desk.Lines(), "fault: Schedule stopped\nrow 12:01 welcome: lost, editor\n");
}

TEST(RecordOfARow, SaysThatALongAnnouncementKeptItFromFiring) {
  RecordingDesk desk({.Messages = {{"long", 150'000}},
                      .Sequences = {{.Messages = "long", .Minutes = "01,02,04"}}});
  desk.RunTo(12, 3, 50);
  EXPECT_EQ(desk.Lines(),
            "row 12:01 long: play in 1 2 3 4 5 6\n"
            "row 12:02 long: lost, announcement\n"
            "row 12:01 long: end\n");
}

TEST(RecordOfARow, SaysThatAWaitingRowKeptItFromFiring) {
  RecordingDesk desk(WithMusic({.Sequences = {{.Minutes = "01,02", .Timer = "Between"}}}));
  desk.Click("cmdPlay");
  desk.RunTo(12, 3, 10);
  EXPECT_EQ(desk.Lines(),
            "music: play march.mp3\n"
            "row 12:01+ welcome: wait\n"
            "row 12:02+ welcome: lost, waiting row\n");
}

TEST(RecordOfARow, SaysThatAnotherRowOfTheMinuteComesFirst) {
  RecordingDesk desk({.Sequences = {{.File = "a.sch"}, {.File = "b.sch", .Messages = "closing"}}});
  desk.RunTo(12, 1, 30);
  EXPECT_EQ(desk.Lines(),
            "row 12:01 closing: lost, other row\n"
            "row 12:01 welcome: play in 1 2 3 4 5 6\n"
            "row 12:01 welcome: end\n");
}

TEST(RecordOfARow, SaysThatTheReturnOfTheMusicKeptItFromFiring) {
  RecordingDesk desk(WithMusic({.Messages = {{"long", 116'600}},
                                .Sequences = {{.Messages = "long", .Minutes = "01,02"}},
                                .FadeTime = "Slow"}));
  desk.Click("cmdPlay");
  desk.RunTo(12, 3, 30);
  EXPECT_EQ(desk.Lines(),
            "music: play march.mp3\n"
            "row 12:01 long: play in 1 2 3 4 5 6\n"
            "row 12:01 long: end\n"
            "row 12:02 long: lost, fade\n");
}

TEST(RecordOfARow, SaysThatAScheduleLeftHeldKeptItFromFiring) {
  RecordingDesk desk(WithRow());
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Status(128);  // resumes nothing
  desk.Release("cmdCall");
  desk.Status(0);
  desk.Advance(1000);
  desk.Lines();
  desk.RunTo(12, 2);
  EXPECT_EQ(desk.Lines(), "row 12:01 welcome: lost, schedule held\n");
}

TEST(RecordOfARow, SaysThatAScheduleHeldForADayKeptItFromFiring) {
  RecordingDesk desk(WithRow());
  desk.RunTo(12, 1, 10);
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Status(128);
  desk.Release("cmdCall");
  desk.Status(0);
  desk.Advance(2000);
  desk.Lines();
  desk.Advance((24 * 60 + 1) * kMinuteMs);
  EXPECT_EQ(desk.Lines(), "row 12:01 welcome: lost, schedule held\n");
}

TEST(RecordOfARow, SaysThatTheStopOfTheMusicLastedPastItsMinute) {
  RecordingDesk desk(WithMusic({.Sequences = {{.Minutes = "01"}},
                                .FadeTime = "Slow",
                                .StartTime = "11:00",
                                .StopTime = "12:01",
                                .WeekDays = "1234567"}));
  desk.RunTo(12, 0, 50);
  desk.Click("mnuSchedule");
  desk.RunTo(12, 1, 58);
  desk.Lines();
  desk.Click("mnuExit");
  desk.Advance(30'000);
  EXPECT_EQ(desk.Lines(),
            "fault over: Schedule stopped\n"
            "music: stop, clock\n"
            "music: stop, clock\n"  // the tick of 12:02 finds the music playing, too
            "row 12:01 welcome: lost, fade\n");
}

TEST(RecordOfARow, SaysNothingOfARowOfAnotherDay) {
  RecordingDesk desk({.Sequences = {{.Weekdays = "0200000"}}, .AllDays = true});
  ASSERT_EQ(desk.Rows().size(), 1u);
  desk.Press("cmdCall");
  desk.RunTo(12, 3);
  EXPECT_EQ(desk.Lines(), "call: begin in 3\ncall: speak\n");
}

TEST(RecordOfARow, SaysThatTheClockHasSkippedIt) {
  RecordingDesk desk({.Sequences = {{.Minutes = "01,15,30"}}});
  desk.Advance(2500);
  desk.Pc.Clock.Jump(15 * 60);
  desk.Advance(20'000);
  EXPECT_EQ(desk.Lines(),
            "row 12:15 welcome: play in 1 2 3 4 5 6\n"
            "row 12:01 welcome: lost, clock\n"
            "fault: The clock was changed: 12:00:35 – 12:15:36\n"
            "row 12:15 welcome: end\n");
}

TEST(RecordOfARow, SaysWhatTheClockHasSkippedOverMidnight) {
  RecordingDesk desk({.Sequences = {{.Hours = "00,11,13"}}});
  desk.Advance(2500);
  desk.Pc.Clock.Jump(12 * 3600 + 120);
  desk.Advance(1000);
  EXPECT_EQ(desk.Lines(),
            "row 13:01 welcome: lost, clock\n"
            "row 00:01 welcome: lost, clock\n"
            "fault: The clock was changed: 2024-01-01 12:00:35 – 2024-01-02 00:02:36\n");
}

TEST(RecordOfARow, SaysNothingOfATimeThatNoClockShows) {
  RecordingDesk desk({.Sequences = {{.Minutes = "0-59"}}});  // the hours have ranges, minutes none
  ASSERT_EQ(desk.Rows().size(), 1u);
  desk.RunTo(12, 3);
  desk.RunTo(11, 59);
  desk.RunTo(12, 3);
  EXPECT_EQ(desk.Lines(), "");
}

TEST(RecordOfARow, SaysNothingWhenTheClockIsSetBack) {
  RecordingDesk desk({.Sequences = {{.Hours = "10,11"}}});
  desk.Advance(2500);
  desk.Pc.Clock.Jump(-2 * 3600 + 120);
  desk.Advance(1000);
  EXPECT_EQ(desk.Lines(), "fault: The clock was changed: 12:00:35 – 10:02:36\n");
}

TEST(RecordOfACall, SaysThatItWasReleasedBeforeTheMicrophoneOpened) {
  RecordingDesk desk({.PreChime = "welcome"});
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Release("cmdCall");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Lines(), "call: begin in 3\ncall: end\n");
}

TEST(RecordOfACall, SaysThatItWasReleasedInTheFade) {
  RecordingDesk desk(WithMusic({}));
  desk.Click("cmdPlay");
  desk.Advance(1000);
  desk.Press("cmdCall");
  desk.Advance(300);
  ASSERT_TRUE(desk.State().FadeRunning);
  desk.Release("cmdCall");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Lines(), "music: play march.mp3\ncall: begin in 3\ncall: end\n");
}

TEST(RecordOfACall, SaysThatATakeoverHasEndedIt) {
  RecordingDesk desk;
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Status(128);
  desk.Release("cmdCall");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Lines(),
            "call: begin in 3\n"
            "call: speak\n"
            "amplifier: status 128\n"
            "amplifier: takeover\n"
            "call: cut off, takeover\n"
            "fault: Schedule stopped\n");
}

TEST(RecordOfACall, SaysThatTheAmplifiersCallRefusesIt) {
  RecordingDesk desk;
  desk.Status(128);
  desk.Press("cmdCall");
  desk.Release("cmdCall");
  desk.Status(0);
  EXPECT_EQ(desk.Lines(),
            "amplifier: status 128\n"
            "call: refuse, takeover\n"
            "amplifier: status 0\n");
}

TEST(RecordOfTheMusic, SaysWhatTheClockAndTheOperatorDo) {
  RecordingDesk desk(WithMusic({.StartTime = "12:01", .StopTime = "12:03", .WeekDays = "1234567"}));
  desk.RunTo(12, 1, 30);
  EXPECT_EQ(desk.Lines(), "music: play march.mp3\nmusic: play, clock\n");
  desk.Click("cmdStop");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Lines(), "music: stop\nmusic: play march.mp3\n");
  desk.RunTo(12, 4);
  EXPECT_EQ(desk.Lines(), "music: stop, clock\n");
}

TEST(RecordOfTheAmplifier, SaysEachStatusOnce) {
  RecordingDesk desk;
  for (const int status : {0, 64, 64, 65, 0, 0}) desk.Status(status);
  EXPECT_EQ(desk.Lines(), "amplifier: status 64\namplifier: status 0\n");
}

TEST(RecordOfTheDesk, IsInEnglishWhateverItsLanguage) {
  RecordingDesk desk({.Language = "German"});
  desk.Pc.Sound.NoMicrophone = true;
  desk.Advance(1000);
  desk.Pc.Sound.NoMicrophone = false;
  desk.Advance(1000);
  EXPECT_EQ(desk.Lines(),
            "fault: The microphone is missing\n"
            "fault over: The microphone is missing\n");
}

TEST(RecordOfTheDesk, BeginsWithTheStartAndEndsWithTheExit) {
  Desk desk({}, [](SimulatedPc& pc) { pc.Journal.Only({"record"}); });
  EXPECT_EQ(desk.Journal(), "0 record program: start\n");
  desk.TakeJournal();
  desk.Click("mnuExit");
  EXPECT_EQ(desk.Journal(), "0 record program: exit\n");
}

}  // namespace
}  // namespace marlex
