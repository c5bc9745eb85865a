#include <gtest/gtest.h>

#include "desk/deeds.h"
#include "link/link_desk.h"
#include "link/serial_link.h"

namespace marlex {
namespace {

/// A desk with a row at 12:01 that announces into zone 3.
DeskOptions WithSpot(DeskOptions options = {}) {
  options.Sequences = {{.Zones = "003000"}};
  return options;
}

/// The bytes sent in the 30 seconds after 12:00:59, with milliseconds from there; the tick comes at
/// 1000.
std::string BytesOfTheSpot(LinkDesk& desk) {
  desk.RunTo(12, 0, 59);
  desk.Pc.Journal.Clear();
  desk.Advance(30'000);
  return desk.Journal();
}

TEST(SendingSites, ThePlayButtonRequestsTheZonesUnlessTheMusicPlaysAlready) {
  LinkDesk desk;
  desk.Click("cmdPlay");
  desk.Advance(1000);
  EXPECT_EQ(desk.TakeJournal(), "200 send 67\n");
  desk.Click("cmdPlay");
  desk.Advance(1000);
  EXPECT_EQ(desk.TakeJournal(), "");
  PauseByPreview(desk);
  desk.Click("cmdPlay");
  desk.Advance(1000);
  EXPECT_EQ(desk.TakeJournal(), "200 send 67\n");
}

TEST(SendingSites, ThePlayButtonSendsNothingWhileItIsHeldBack) {
  LinkDesk desk;
  desk.Status(64);
  desk.Click("cmdPlay");
  desk.Advance(1000);
  EXPECT_EQ(desk.Journal(), "");
}

TEST(SendingSites, AZoneButtonRequestsTheZonesOnlyWhileTheMusicPlays) {
  LinkDesk desk;
  desk.Click("cmdMusicZones_2");
  desk.Advance(1000);
  EXPECT_EQ(desk.TakeJournal(), "");
  desk.PlayMusic();
  desk.Click("cmdMusicZones_2");
  desk.Advance(1000);
  EXPECT_EQ(desk.TakeJournal(), "200 send 67\n");
  PauseByPreview(desk);
  desk.Click("cmdMusicZones_2");
  desk.Advance(1000);
  EXPECT_EQ(desk.TakeJournal(), "");
}

TEST(SendingSites, AMessageBringsItsZonesAndThenThoseOfThePausedMusic) {
  LinkDesk desk(WithSpot());
  desk.PlayMusic();
  EXPECT_EQ(BytesOfTheSpot(desk), "1729 send 68\n4729 send 67\n");
}

TEST(SendingSites, AMessageWithoutMusicEndsInTheReleaseByte) {
  LinkDesk desk(WithSpot());
  EXPECT_EQ(BytesOfTheSpot(desk), "1200 send 68\n4000 send 0\n");
}

TEST(SendingSites, AMessageReleasesTheZonesFirstWhenTheAmplifierReportedACall) {
  LinkDesk desk(WithSpot({.Priority = "High"}));
  desk.PlayMusic();
  desk.Status(64);
  EXPECT_EQ(BytesOfTheSpot(desk), "1529 send 0\n1729 send 132\n4729 send 131\n");
}

TEST(SendingSites, AMessageShorterThanTheDelayLeavesOnlyTheByteOfTheEnd) {
  DeskOptions options = WithSpot();
  options.Messages = {{"welcome", 150}};
  LinkDesk desk(options);
  desk.PlayMusic();
  EXPECT_EQ(BytesOfTheSpot(desk), "1729 send 67\n");
}

TEST(SendingSites, AMessageThatTheAmplifierCutOffSendsNothingMore) {
  LinkDesk desk(WithSpot());
  desk.PlayMusic();
  desk.Pc.Loop.ScheduleAt(desk.Pc.Loop.NowMs() + (59 - desk.Pc.Clock.Now().Second) * 1000 + 3000,
                          [&] { desk.Pc.Serial.Receive({128}); });
  EXPECT_EQ(BytesOfTheSpot(desk), "1729 send 68\n");
}

TEST(SendingSites, AMessageAtAMusicBreakSendsNothing) {
  DeskOptions options = WithSpot({.Music = {{"march", 60'000}, {"waltz", 60'000}}});
  options.Sequences[0].Timer = "Between";
  LinkDesk desk(options);
  desk.PlayMusic();
  desk.Pc.Journal.Only({"send", "lost", "wav"});
  desk.Pc.Journal.Clear();
  desk.Advance(100'000);
  EXPECT_EQ(desk.Journal(), "59000 wav play welcome.wav\n62000 wav end welcome.wav\n");
}

TEST(SendingSites, TheEndOfTheListSendsNothing) {
  LinkDesk desk({.Music = {{"march", 2000}, {"waltz", 2000}}});
  desk.PlayMusic();
  desk.Advance(20'000);
  EXPECT_EQ(desk.Journal(), "");
}

TEST(SendingSites, TheStopButtonReleasesTheZones) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Click("cmdStop");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal(), "0 send 0\n");
}

/// A desk during the fade with which the clock stops the music at 12:02.
struct StopDesk : LinkDesk {
  StopDesk() : LinkDesk({.StartTime = "12:01", .StopTime = "12:02"}) {
    RunTo(12, 1, 59);
    EXPECT_EQ(Heard(), "song march.mp3 at 20000");
    while (!State().FadeRunning) Advance(10);
    Pc.Journal.Clear();
  }
};

TEST(SendingSites, AStopOfTheClockReleasesTheZones) {
  StopDesk desk;
  desk.Advance(10'000);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Journal(), "529 send 0\n");
}

TEST(SendingSites, AStopOfTheClockLeavesTheZonesToACallThatIsOn) {
  StopDesk desk;
  desk.Press("cmdCall");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Pc.Song.PlayState(), kStopped);
  EXPECT_EQ(desk.Heard(), "microphone at 15000");
  EXPECT_EQ(desk.Journal(), "729 send 68\n");
}

/// No action of an operator leaves a message playing when that fade ends, so the test sets the
/// flag.
TEST(SendingSites, AStopOfTheClockLeavesTheZonesToAMessageThatIsOn) {
  StopDesk desk;
  desk.Do([&] { desk.State().MessagePlaying = true; });
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal(), "");
}

TEST(SendingSites, TheExitReleasesTheZonesAndThenClosesThePort) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Pc.Journal.Only({"send", "serial", "process"});
  desk.Click("mnuExit");
  EXPECT_EQ(desk.Journal(), "0 send 0\n0 serial close\n0 process ends\n");
}

TEST(SendingSites, AnAutostartsZonesAreSentOnceThePortIsOpen) {
  Desk desk({.Music = {{"march"}}, .Autostart = "True"});
  desk.Advance(1000);
  EXPECT_EQ(desk.Journal(), "2500 song play march.mp3\n2500 serial open 1\n2700 send 67\n");
}

}  // namespace
}  // namespace marlex
