#include "schedule/message_wavs.h"

#include <gtest/gtest.h>

#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr auto kSilent = SpotDesk::MusicAtStart::IsSilent;

std::vector<std::string> ListOf(Desk& desk, const std::string& messageInfo) {
  desk.Do([&] { desk.Sys->Wavs.BuildMessageList(messageInfo); });
  const ListBox& list = desk.Sys->TheFrmPlayers.lstMsgSequence;
  std::vector<std::string> files;
  for (int entry = 0; entry < list.ListCount(); ++entry) files.push_back(list.List(entry));
  return files;
}

using Files = std::vector<std::string>;

TEST(MessageWavs, TheListHoldsTheNamesOfTheRowInTheirOrder) {
  Desk desk;
  EXPECT_EQ(ListOf(desk, "welcome"), (Files{"welcome.wav"}));
  EXPECT_EQ(ListOf(desk, "b,a,b"), (Files{"b.wav", "a.wav", "b.wav"}));
  EXPECT_EQ(ListOf(desk, "door 1, lift"), (Files{"door 1.wav", " lift.wav"}));
}

TEST(MessageWavs, AnEmptyNameBecomesAnEntryOfItsOwn) {
  Desk desk;
  EXPECT_EQ(ListOf(desk, ""), (Files{".wav"}));
  EXPECT_EQ(ListOf(desk, "a,,b"), (Files{"a.wav", ".wav", "b.wav"}));
  EXPECT_EQ(ListOf(desk, "a,"), (Files{"a.wav", ".wav"}));
  EXPECT_EQ(ListOf(desk, ",a"), (Files{".wav", "a.wav"}));
}

TEST(MessageWavs, OnlyTheLastOfSeveralNamesIsCutAtAHundredCharacters) {
  Desk desk;
  const std::string longName(120, 'x');
  const std::string hundred(100, 'x');
  EXPECT_EQ(ListOf(desk, longName), (Files{longName + ".wav"}));
  EXPECT_EQ(ListOf(desk, longName + "," + longName), (Files{longName + ".wav", hundred + ".wav"}));
}

TEST(MessageWavs, TheCutCountsCharactersAndLeavesNoneInPieces) {
  Desk desk;
  std::string umlauts;
  for (int i = 0; i < 101; ++i) umlauts += "ü";
  EXPECT_EQ(ListOf(desk, "a," + umlauts), (Files{"a.wav", umlauts.substr(0, 200) + ".wav"}));
}

TEST(MessageWavs, ThePlayerIsGivenItsPropertiesAndThePathOfTheFile) {
  SpotDesk desk({}, kSilent);
  desk.Pc.Wav.Notify = true;
  desk.Pc.Wav.Shareable = true;
  desk.AdvanceTo(2000);
  EXPECT_FALSE(desk.Pc.Wav.Notify);
  EXPECT_TRUE(desk.Pc.Wav.Wait);
  EXPECT_FALSE(desk.Pc.Wav.Shareable);
  EXPECT_EQ(desk.Pc.Wav.DeviceType, "WaveAudio");
  EXPECT_EQ(desk.Pc.Wav.OpenFile(), "/messages/welcome.wav");
}

TEST(MessageWavs, MessagesGoOutUnmutedWithTheMicrophoneClosed) {
  SpotDesk desk({}, kSilent);
  desk.Do([&] {
    desk.Sys->TheFrmMxr.ChkMute[desk.Sys->Mixer.MicLine].Value = 0;
    desk.Sys->TheFrmMxr.ChkMute[desk.Sys->Mixer.WaveLine].Value = 1;
    desk.Sys->TheFrmMxr.ChkMute[0].Value = 1;
  });
  desk.AdvanceTo(SpotDesk::kDue - 1);
  EXPECT_EQ(desk.Heard(), "silence");
  EXPECT_EQ(desk.Muted(), "master wave");
  desk.AdvanceTo(SpotDesk::kDue);
  EXPECT_EQ(desk.Muted(), "microphone");
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
  EXPECT_EQ(desk.Slider(0), 5000);
}

TEST(MessageWavs, WithoutAMicrophoneNoLineIsMutedInItsPlace) {
  SpotDesk desk({.Microphone = false}, kSilent);
  ASSERT_EQ(desk.Sys->Mixer.MicLine, 0);
  int mutes = 0;
  auto& master = desk.Sys->TheFrmMxr.ChkMute[0];
  desk.Do([&] { master.Value = 0; });
  const auto changed = master.OnClick;
  master.OnClick = [&] {
    mutes += master.Value;
    changed();
  };
  desk.AdvanceTo(2000);
  EXPECT_EQ(desk.Muted(), "");
  EXPECT_EQ(mutes, 0);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

TEST(MessageWavs, TheMusicLevelIsBackOnTheLineAfterTheLastFile) {
  SpotDesk desk({}, kSilent);
  desk.AdvanceTo(5999);
  EXPECT_EQ(desk.WaveSlider(), 10000);
  desk.AdvanceTo(6000);
  EXPECT_EQ(desk.WaveSlider(), 20000);
}

TEST(MessageWavs, AMessageThatIsMissingOrBrokenIsPassedOverInSilence) {
  SpotDesk desk({.Sequences = {{.Messages = "missing,broken,welcome"}}}, kSilent);
  desk.Pc.Disk.AddBroken("/messages/broken.wav");
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(),
            "1000 wav refuse missing.wav\n"
            "1000 wav refuse broken.wav\n"
            "1000 wav play welcome.wav\n"
            "1200 send 127\n"
            "4000 wav end welcome.wav\n"
            "4000 send 0\n");
}

TEST(MessageWavs, ASequenceOfOnlyMissingMessagesEndsAndTheScheduleGoesOn) {
  SpotDesk desk({.Sequences = {{.Messages = "missing,gone"}, {.File = "b.sch", .Minutes = "02"}}});
  desk.AdvanceTo(70'000);
  EXPECT_EQ(desk.Journal(),
            "1529 song pause\n"
            "1529 wav refuse missing.wav\n"
            "1529 wav refuse gone.wav\n"
            "1529 song resume march.mp3\n"
            "1729 send 67\n"
            "61633 song pause\n"
            "61633 wav play welcome.wav\n"
            "61833 send 127\n"
            "64633 wav end welcome.wav\n"
            "64633 song resume march.mp3\n"
            "64833 send 67\n");
}

TEST(MessageWavs, ALostMessageDirectoryEndsTheSequenceWithItsFile) {
  SpotDesk desk({}, kSilent);
  desk.AdvanceTo(2000);
  desk.Pc.Disk.Vanish("/messages");
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(),
            "1000 wav play welcome.wav\n"
            "1200 send 68\n"
            "4000 wav end welcome.wav\n"
            "4000 wav refuse closing.wav\n"
            "4000 send 0\n");
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");
}

TEST(MessageWavs, AReportThatComesLateDelaysTheNextFileAndNoMore) {
  SpotDesk desk({}, kSilent);
  desk.Pc.Wav.ReportDelayMs = 20;
  desk.AdvanceTo(10'000);
  EXPECT_EQ(desk.Journal(),
            "1000 wav play welcome.wav\n"
            "1200 send 68\n"
            "4000 wav end welcome.wav\n"
            "4020 wav play closing.wav\n"
            "6020 wav end closing.wav\n"
            "6040 send 0\n");
}

TEST(MessageWavs, AStatusThatIsNotStoppedDoesNotEndTheWait) {
  SpotDesk desk({}, kSilent);
  desk.AdvanceTo(2000);
  ASSERT_EQ(desk.Pc.Wav.Mode(), kWavePlaying);
  desk.Do([&] { desk.Pc.Wav.OnStatusUpdate(); });
  EXPECT_EQ(desk.Pc.Wav.OpenFile(), "/messages/welcome.wav");
  desk.Do([&] { desk.Pc.Wav.Command("Stop"); });
  EXPECT_EQ(desk.Pc.Wav.OpenFile(), "/messages/closing.wav");
}

TEST(MessageWavs, TheEndThatThePlayerReportsEndsTheWaitAlsoWithoutAStatus) {
  SpotDesk desk({}, kSilent);
  desk.Pc.Wav.OnStatusUpdate = nullptr;
  desk.AdvanceTo(6000);
  EXPECT_EQ(desk.Alive(), "tick cmdPlay");
}

TEST(MessageWavs, ThousandsOfFilesOfAMillisecondAreAllPlayed) {
  std::string messages = "tick";
  for (int i = 1; i < 200; ++i) messages += ",tick";
  SpotDesk desk({.Messages = {{"tick", 1}},
                 .Sequences = {{.Messages = messages,
                                .Hours = "12",
                                .Minutes = "01,02,03,04,05,06,07,08,09,10,11,12,13,14,15,16,17,18,"
                                           "19,20,21,22,23,24,25,26,27,28,29"}}},
                kSilent);
  desk.RunTo(13, 0);
  int played = 0;
  for (const std::string& line : desk.Pc.Journal.Lines()) {
    played += line.find("wav end tick.wav") != std::string::npos;
  }
  EXPECT_EQ(played, 29 * 200);
}

}  // namespace
}  // namespace marlex
