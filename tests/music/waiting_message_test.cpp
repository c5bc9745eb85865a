#include <gtest/gtest.h>

#include "music/music_desk.h"
#include "music/music_player.h"

namespace marlex {
namespace {

constexpr int kSongMs = 60'000;
constexpr int kMessageMs = 3000;

/// A desk on which the row of 12:01 waits for the end of the song "a", 30 s from now.
class BreakDesk : public MusicDesk {
 public:
  explicit BreakDesk(DeskOptions options = {}) : MusicDesk(WithRow(std::move(options))) {
    RunTo(12, 0, 33);
    Click("cmdPlay");
    RunTo(12, 1, 3);
    Pc.Journal.Clear();
    EXPECT_EQ(Waiting(), "waiting");
  }

  /// The signs of a waiting message: the flag, and the tick that is off.
  std::string Waiting() {
    std::string text = State().MessageAwaitingSongEnd ? "waiting" : "nothing waits";
    if (State().MessageAwaitingSongEnd == Players().tmrMessage.Enabled) text += " ";
    return text;
  }

 private:
  static DeskOptions WithRow(DeskOptions options) {
    if (options.Music.empty()) options.Music = Songs(3, kSongMs);
    if (options.Sequences.empty()) options.Sequences = {{.Timer = "Between"}};
    return options;
  }
};

TEST(WaitingMessage, AMessageWaitsForTheEndOfTheSongAndTheNextSongFollowsAtOnce) {
  BreakDesk desk;
  EXPECT_EQ(desk.Buttons(), "Play Skip Stop");
  EXPECT_EQ(desk.PlayState(), kPlaying);
  desk.Advance(31'000);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  EXPECT_EQ(desk.Buttons(), "Play Skip Stop");
  EXPECT_EQ(desk.Position(), 0);
  desk.Advance(kMessageMs);
  EXPECT_EQ(desk.Waiting(), "nothing waits");
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
  EXPECT_EQ(desk.Journal(),
            "30000 song end\n30000 wav play welcome.wav\n"
            "33000 wav end welcome.wav\n33000 song play b.mp3\n");
}

TEST(WaitingMessage, NeitherZonesNorPaintNorZoneButtonsChangeForIt) {
  BreakDesk desk;
  desk.Pc.Journal.Only({"send"});
  desk.Advance(31'000);
  EXPECT_EQ(desk.LitZones(), "110000");
  EXPECT_EQ(desk.CellColor(1, 0), kNavy);
  EXPECT_TRUE(desk.Enabled("cmdMusicZones_0"));
  desk.Advance(10'000);
  EXPECT_EQ(desk.Journal(), "");
}

TEST(WaitingMessage, ASkipSendsTheWaitingMessageOutNow) {
  BreakDesk desk;
  desk.Click("cmdSkip");
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(),
            "0 song stop\n0 wav play welcome.wav\n"
            "3000 wav end welcome.wav\n3000 song play b.mp3\n");
}

TEST(WaitingMessage, AfterTheStopButtonTheScheduleHaltsUntilAStartedSongEnds) {
  BreakDesk desk;
  desk.Click("cmdStop");
  EXPECT_EQ(desk.Waiting(), "waiting");
  desk.Advance(24 * 3'600'000);
  EXPECT_EQ(desk.Waiting(), "waiting");
  EXPECT_EQ(desk.TakeJournal(), "0 song stop\n");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Waiting(), "waiting");
  desk.Advance(70'000);
  EXPECT_EQ(desk.Waiting(), "nothing waits");
  EXPECT_EQ(desk.Journal(),
            "0 song play a.mp3\n60000 song end\n60000 wav play welcome.wav\n"
            "63000 wav end welcome.wav\n63000 song play b.mp3\n");
}

TEST(WaitingMessage, ALateStartOfARefusedSongSendsTheMessageOutAtOnce) {
  BreakDesk desk;
  desk.Click("cmdStop");
  desk.Pc.Disk.AddBroken("/music/a.mp3");
  desk.Click("cmdPlay");
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(),
            "0 song stop\n0 song refuse a.mp3\n0 wav play welcome.wav\n"
            "3000 wav end welcome.wav\n3000 song play b.mp3\n");
  EXPECT_EQ(desk.LastSong(), "1");
  EXPECT_EQ(desk.Text("lblMP3Number"), "2/3");
}

TEST(WaitingMessage, ASkipInTheMiddleOfTheMessageStartsASongAndItsEndTheOneAfter) {
  BreakDesk desk;
  desk.Advance(31'000);
  desk.Click("cmdSkip");
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 10000 + wav welcome.wav at 10000");
  desk.Advance(5000);
  EXPECT_EQ(desk.Heard(), "song c.mp3 at 20000");
}

TEST(WaitingMessage, AnEmptiedListInTheMiddleOfTheMessageEndsTheMusic) {
  BreakDesk desk;
  desk.Advance(31'000);
  desk.Pc.Dialogs.OpenResults = {""};
  desk.Click("mnuOpen");
  desk.Advance(5000);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Waiting(), "nothing waits");
  EXPECT_EQ(desk.Journal(),
            "30000 song end\n30000 wav play welcome.wav\n33000 wav end welcome.wav\n");
}

TEST(WaitingMessage, AnotherListInTheMiddleOfTheMessageGivesTheNextSong) {
  BreakDesk desk;
  desk.Pc.Disk.AddMp3("/music/x.mp3", kSongMs);
  desk.Pc.Disk.AddMp3("/music/y.mp3", kSongMs);
  desk.Pc.Disk.AddFile("/app/New.lst", "[Playlist]\r\nSong:1=x\r\nSong:2=y\r\n");
  desk.Advance(31'000);
  desk.Pc.Dialogs.OpenResults = {"/app/New.lst"};
  desk.Click("mnuOpen");
  desk.Advance(5000);
  EXPECT_EQ(desk.Heard(), "song y.mp3 at 20000");
}

TEST(WaitingMessage, ATakeoverInTheMiddleOfTheMessageLetsTheNextSongRunMuted) {
  BreakDesk desk;
  desk.Advance(31'000);
  desk.Status(128);
  desk.Advance(1000);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Waiting(), "nothing waits");
  EXPECT_EQ(desk.Pc.Song.FileName(), "/music/b.mp3");
  EXPECT_EQ(desk.PlayState(), kPlaying);
  desk.Status(0);
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
}

TEST(WaitingMessage, TheExitInTheMiddleOfTheMessageEndsTheProgramAtOnce) {
  BreakDesk desk;
  desk.Advance(31'000);
  desk.Pc.Journal.Only({"send", "process", "song"});
  desk.Pc.Journal.Clear();
  desk.Click("mnuExit");
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(), "0 send 0\n0 process ends\n");
}

TEST(WaitingMessage, ThePlayButtonUnderTheMessageRestartsTheSongUntilItEnds) {
  BreakDesk desk;
  desk.Advance(31'000);
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000 + wav welcome.wav at 20000");
  desk.Advance(5000);
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 20000");
  EXPECT_EQ(desk.Journal(),
            "30000 song end\n30000 wav play welcome.wav\n31000 song play a.mp3\n"
            "33000 wav end welcome.wav\n33000 song stop\n33000 song play b.mp3\n");
}

}  // namespace
}  // namespace marlex
