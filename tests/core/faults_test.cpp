#include "core/faults.h"

#include <gtest/gtest.h>

#include "desk/deeds.h"
#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::MusicAtStart::IsSilent;
constexpr int kPromisedMs = 10'000;  // until a fault is in sight, and until it is gone

/// The texts of the faults, the newest first, joined by "|".
std::string Faults(const Desk& desk) {
  std::string texts;
  for (const std::string& text : desk.Sys->ThePasserby.Look().Faults)
    texts += (texts.empty() ? "" : "|") + text;
  return texts;
}

std::string Later(Desk& desk) {
  desk.Advance(kPromisedMs);
  return Faults(desk);
}

Sequence At(const std::string& hours, const std::string& minutes, const std::string& messages) {
  return {messages + ".sch", messages, hours, minutes};
}

DeskOptions AtNoon(std::vector<Sequence> rows) { return {.Sequences = std::move(rows)}; }

TEST(Faults, HaveNothingToSayWhenAllIsWell) {
  SpotDesk desk;
  EXPECT_EQ(Faults(desk), "");
  desk.RunTo(12, 3);
  EXPECT_EQ(Faults(desk), "");
}

TEST(Faults, ShowASoundDeviceThatHasGoneUntilItIsBack) {
  Desk desk;
  desk.Pc.Sound.OutletNow = SoundOutlet::Gone;
  EXPECT_EQ(Later(desk), "No sound: the sound device is missing");
  desk.Pc.Sound.OutletNow = SoundOutlet::Device;
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, ShowThatASilentDeviceHasTakenThePlaceOfTheCard) {
  Desk desk;
  desk.Pc.Sound.OutletNow = SoundOutlet::Pretended;
  EXPECT_EQ(Later(desk), "No sound: the sound server has no sound card");
  desk.Pc.Sound.OutletNow = SoundOutlet::Device;
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, ShowAMicrophoneThatHasGoneUntilItIsBack) {
  Desk desk;
  desk.Pc.Sound.NoMicrophone = true;
  EXPECT_EQ(Later(desk), "The microphone is missing");
  desk.Pc.Sound.NoMicrophone = false;
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, ShowASerialLineThatHasGoneUntilItIsBack) {
  Desk desk;
  desk.Pc.Serial.Unplug();
  EXPECT_EQ(Later(desk), "The com port cannot be opened: COM1");
  desk.Pc.Serial.Plug();
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, ShowASerialLineThatWasNeverThere) {
  Desk desk({.ComPort = "2"}, [](SimulatedPc& pc) { pc.Serial.Unplug(); });
  EXPECT_EQ(Later(desk), "The com port cannot be opened: COM2");
}

TEST(Faults, MissNoSerialLineWithoutARouter) {
  Desk desk({.Router = false}, [](SimulatedPc& pc) { pc.Serial.Unplug(); });
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, ShowSettingsNotWrittenUntilTheyAreWritten) {
  Desk desk;
  desk.Pc.Disk.FailWrites(Desk::kIni);
  desk.Click("mnuAllDays");
  EXPECT_EQ(Later(desk), "The file cannot be saved: Tolvo.ini");
  desk.Pc.Disk.Heal(Desk::kIni);
  desk.Click("mnuCurrentDay");
  EXPECT_EQ(Later(desk), "The file cannot be saved: Tolvo.ini");  // had that value all along
  desk.Click("mnuScheduleName");
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, ShowAPlaylistNotWrittenUntilOneIsWritten) {
  Desk desk({.Music = {{"march"}, {"waltz"}}});
  desk.Pc.Disk.FailWrites(Desk::kPlaylist);
  desk.Select(1);
  desk.Click("cmdPlay");
  EXPECT_EQ(Later(desk), "The file cannot be saved: Day.lst");
  desk.Pc.Disk.Heal(Desk::kPlaylist);
  desk.Click("cmdSkip");
  desk.Click("cmdSkip");
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, ForgetAFileWhenAnotherOfItsKindIsWrittenInstead) {
  Desk desk;
  SettingsStore& store = desk.Sys->Store;
  desk.Pc.Disk.FailWrites("/stick");
  desk.Pc.Disk.AddDirectory("/stick");
  desk.Do([&store] {
    store.RebuildProfile({{"Songs", "Song1", "march"}}, "/stick/Night.lst");
    store.RebuildProfile({{"Schedule", "Hours", "12"}}, "/stick/Night.sch");
  });
  EXPECT_EQ(Later(desk), "The file cannot be saved: Night.lst|The file cannot be saved: Night.sch");
  desk.Do([&store] { store.RebuildProfile({{"Songs", "Song1", "march"}}, "/app/Night.lst"); });
  EXPECT_EQ(Later(desk), "The file cannot be saved: Night.sch");
}

TEST(Faults, NameAMissingMessageBeforeItsTimeComes) {
  Desk desk(AtNoon({At("19", "30", "welcome,lost")}));
  EXPECT_EQ(Later(desk), "File not found: lost.wav");
  desk.Pc.Disk.AddWav("/messages/lost.wav", 2000);
  EXPECT_EQ(Later(desk), "");
  desk.Pc.Disk.Vanish("/messages/welcome.wav");
  EXPECT_EQ(Later(desk), "File not found: welcome.wav");
  desk.Pc.Disk.Return("/messages/welcome.wav");
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, NameAMessageThatIsThereButCannotBePlayed) {
  Desk desk(AtNoon({At("19", "30", "welcome,noise")}));
  desk.Pc.Disk.AddBroken("/messages/noise.wav");
  EXPECT_EQ(Later(desk), "The file cannot be played: noise.wav");
  desk.Pc.Disk.AddWav("/messages/noise.wav", 2000);
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, NameAMissingMessageOnceHoweverOftenItIsDue) {
  Desk desk(AtNoon({At("13-19", "00,30", "lost,welcome,lost")}));
  EXPECT_EQ(Later(desk), "File not found: lost.wav");
}

TEST(Faults, NameAMissingSongOnceHoweverOftenItIsInTheList) {
  Desk desk({.Music = {{"march"}, {"waltz"}, {"waltz"}}});
  desk.Pc.Disk.Vanish("/music/waltz.mp3");
  desk.Click("cmdPlay");
  EXPECT_EQ(Later(desk), "File not found: waltz.mp3");
}

TEST(Faults, LeaveOutMessagesThatNoRowWillPlayToday) {
  Desk desk({.Sequences = {{"past.sch", "past", "11", "30"},
                           {"friday.sch", "friday", "14", "00", "0000500"},
                           {"first.sch", "welcome", "15", "00"},
                           {"second.sch", "second", "15", "00"}},
             .AllDays = true});
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, KeepNamingTheMessageOfARowThatAwaitsTheBreak) {
  SpotDesk desk({.Sequences = {{"spot.sch", "lost", "12", "01", "1234567", "123456", "Between"}}});
  desk.RunTo(12, 1, 30);
  ASSERT_TRUE(desk.State().MessageAwaitingSongEnd);
  EXPECT_EQ(Faults(desk), "File not found: lost.wav");
  desk.Click("cmdSkip");
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, NameASongOnlyIfMusicIsOnOrWillBeToday) {
  Desk desk({.Music = {{"march"}, {"waltz"}}});
  desk.Pc.Disk.Vanish("/music/waltz.mp3");
  EXPECT_EQ(Later(desk), "");
  desk.Click("cmdPlay");
  EXPECT_EQ(Later(desk), "File not found: waltz.mp3");
  desk.Pc.Disk.Return("/music/waltz.mp3");
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, NameASongThatTheMusicClockWillPlayToday) {
  const auto faults = [](const std::string& start, const std::string& stop,
                         const std::string& days) {
    Desk desk({.Music = {{"march"}}, .StartTime = start, .StopTime = stop, .WeekDays = days});
    desk.Pc.Disk.AddBroken("/music/march.mp3");
    return Later(desk);
  };
  EXPECT_EQ(faults("14:00", "18:00", "1234567"), "The file cannot be played: march.mp3");
  EXPECT_EQ(faults("14:00", "18:00", "0234567"), "");
  EXPECT_EQ(faults("08:00", "11:00", "1234567"), "");
}

TEST(Faults, NameNoSongThatTheOperatorsStopBars) {
  Desk desk({.Music = {{"march"}, {"waltz"}}, .StartTime = "14:00", .StopTime = "18:00"});
  desk.Pc.Disk.Vanish("/music/waltz.mp3");
  desk.Click("cmdPlay");
  EXPECT_EQ(Later(desk), "File not found: waltz.mp3");
  desk.Click("cmdStop");
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, NameNoSongOfTheListForAPreview) {
  Desk desk({.Music = {{"march"}, {"waltz"}}});
  FrmPlaylist& editor = desk.Sys->TheWindows.frmPlaylist;
  PlayAndStop(desk);
  desk.Click("mnuPlaylist");
  desk.Choose(editor.AvailMP3s, "march");
  desk.Choose(editor.SelectedMP3s, "march");
  desk.Pc.Disk.Vanish("/music/waltz.mp3");
  desk.Click(editor.PrevKey);
  const std::string faults = Later(desk);
  ASSERT_EQ(desk.Heard(), "song march.mp3 at 20000");
  EXPECT_EQ(faults, "");
}

TEST(Faults, KeepTheSongsWhileAMessagePausesTheMusic) {
  SpotDesk desk({.Music = {{"march"}, {"waltz"}},
                 .Messages = {{"long", 40'000}},
                 .Sequences = {{"spot.sch", "long", "12", "01", "1234567", "123456", "Between"}}});
  desk.Pc.Disk.Vanish("/music/waltz.mp3");
  desk.RunTo(12, 1, 30);
  EXPECT_EQ(Faults(desk), "File not found: waltz.mp3");
  desk.Click("cmdSkip");
  desk.Advance(kPromisedMs);
  ASSERT_TRUE(desk.State().MessagePlaying);
  EXPECT_EQ(Faults(desk), "File not found: waltz.mp3");
}

DeskOptions OfManySongs() {
  DeskOptions shop;
  for (int song = 0; song < 300; ++song) shop.Music.push_back({"song" + std::to_string(song)});
  return shop;
}

TEST(Faults, CheckTheNextSongsOfALongPlaylistOnly) {
  Desk desk(OfManySongs());
  desk.Click("cmdPlay");
  for (const char* song : {"99", "100"})
    desk.Pc.Disk.Vanish(std::string("/music/song") + song + ".mp3");
  EXPECT_EQ(Later(desk), "File not found: song99.mp3");
}

TEST(Faults, CheckTheFirstSongsOfALongPlaylistNearItsEnd) {
  Desk desk(OfManySongs());
  desk.Select(250);
  desk.Click("cmdPlay");
  for (const char* song : {"49", "50", "249"})
    desk.Pc.Disk.Vanish(std::string("/music/song") + song + ".mp3");
  EXPECT_EQ(Later(desk), "File not found: song49.mp3");
}

/// Sets the clock forward, or back if negative, and returns the faults after the next look.
std::string AfterJump(Desk& desk, std::int64_t seconds) {
  desk.Advance(2500);
  desk.Pc.Clock.Jump(seconds);
  desk.Advance(1000);
  return Faults(desk);
}

TEST(Faults, ShowFromAndToWhatTheClockWasSetForSomeMinutes) {
  Desk desk;
  EXPECT_EQ(AfterJump(desk, 3600), "The clock was changed: 12:00:35 – 13:00:36");
  desk.Advance(290'000);
  EXPECT_NE(Faults(desk), "");
  desk.Advance(20'000);
  EXPECT_EQ(Faults(desk), "");
}

TEST(Faults, ShowTheDatesOfAClockThatWasSetToAnotherDay) {
  Desk desk;
  EXPECT_EQ(AfterJump(desk, -24 * 3600),
            "The clock was changed: 2024-01-01 12:00:35 – 2023-12-31 12:00:36");
}

TEST(Faults, ForgetAJumpOfTheClockThatIsSetBack) {
  Desk desk;
  EXPECT_NE(AfterJump(desk, 3600), "");
  EXPECT_EQ(AfterJump(desk, -3601), "");
}

TEST(Faults, TakeNeitherSummerTimeNorACorrectionForAJump) {
  Desk desk;
  desk.Advance(2500);
  desk.Pc.Clock.ShiftZone(3600);
  EXPECT_EQ(Later(desk), "");
  EXPECT_EQ(AfterJump(desk, -4), "");
}

TEST(Faults, ShowAScheduleThatStandsStillForItsEditor) {
  Desk desk;
  desk.Click("mnuSchedule");
  EXPECT_EQ(Later(desk), "Schedule stopped");
  desk.Do([&desk] { desk.Sys->TheWindows.TheWavWindow.Close(); });
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, TakeACallAndAMessageForNoStandstill) {
  SpotDesk desk({.Messages = {{"long", 40'000}}, .Sequences = {At("12", "01", "long")}});
  desk.RunTo(12, 1, 20);
  ASSERT_TRUE(desk.State().MessagePlaying);
  EXPECT_EQ(Faults(desk), "");
  desk.Press("cmdCall");
  EXPECT_EQ(Later(desk), "");
}

TEST(Faults, ComeWithTheNewestFirst) {
  Desk desk;
  desk.Pc.Serial.Unplug();
  desk.Advance(kPromisedMs);
  desk.Pc.Sound.NoMicrophone = true;
  EXPECT_EQ(Later(desk), "The microphone is missing|The com port cannot be opened: COM1");
  desk.Pc.Serial.Plug();
  EXPECT_EQ(Later(desk), "The microphone is missing");
  desk.Pc.Serial.Unplug();
  EXPECT_EQ(Later(desk), "The com port cannot be opened: COM1|The microphone is missing");
}

TEST(Faults, ReportToNobodyAndWriteNothing) {
  SpotDesk desk({.Sequences = {At("19", "30", "lost")}}, kSilent);
  desk.Pc.Journal.Unmute("write");
  desk.TakeJournal();
  desk.Pc.Serial.Unplug();
  desk.Pc.Sound.OutletNow = SoundOutlet::Gone;
  desk.Pc.Sound.NoMicrophone = true;
  desk.Pc.Clock.Jump(-600);
  EXPECT_NE(Later(desk), "");
  EXPECT_EQ(desk.TakeJournal(), "");
}

TEST(Faults, SpeakTheLanguageOfTheDesk) {
  Desk desk({.Language = "German"});
  desk.Pc.Sound.NoMicrophone = true;
  EXPECT_EQ(Later(desk), "Das Mikrofon fehlt");
}

}  // namespace
}  // namespace marlex
