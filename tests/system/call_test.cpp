// The call station of the real program: its buttons, chimes, microphone and amplifier.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "system/real_desk.h"

namespace marlex {
namespace {

using stage::Recording;
using stage::Span;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kChime = 1900;
constexpr double kGong = 2300;

// Bytes of our own level, High: the music's zones 1 and 2, the call's zone 1.
constexpr int kMusicZones = 128 + 3;
constexpr int kCallZones = 128 + 1;

stage::InstallationFiles WithChimes() {
  stage::InstallationFiles files = TwoSongs(120);
  files.Messages.push_back({"Chime", stage::Tone(kChime, 1, kTonePeak)});
  files.Messages.push_back({"Gong", stage::Tone(kGong, 0.8, kTonePeak)});
  files.PreChime = "Chime";
  files.PostChime = "Gong";
  return files;
}

/// A desk with a microphone into which somebody speaks all the time.
class RealCallDesk : public RealDesk {
 public:
  explicit RealCallDesk(const stage::InstallationFiles& files) : RealDesk(files, WithMicrophone()) {
    Start();
    Speak();
  }

  /// Selects the type of the amplifier in the settings: 0 is the one with a router, 1 the other.
  bool ChooseAmplifier(int type) {
    const std::string choice = "frmSettings.optTolvo_" + std::to_string(type);
    return Click("mnuEdit") && Click("mnuSettings") && Await("frmSettings", "visible", "yes") &&
           Click(choice) && Await(choice, "checked", "yes") && Click("frmSettings.cmdOK") &&
           Await("frmSettings", "visible", "no");
  }

  /// Makes a call, waits until the voice is heard, ends the call and waits for silence.
  testing::AssertionResult CallBy(const std::string& button) {
    if (!Press(button)) return testing::AssertionFailure() << button << " is not to be seen";
    const bool isHeard = AwaitTone(kVoice);
    Display->Release();
    if (!isHeard) return testing::AssertionFailure() << "nothing is heard through " << button;
    if (!AwaitSilence()) return testing::AssertionFailure() << button << " leaves the voice on";
    return testing::AssertionSuccess();
  }
};

/// A fade takes half a second in each direction. So 200 ms before the song becomes inaudible, and
/// 200 ms after it becomes audible again, it is neither at full level nor gone.
void ExpectFades(const Recording& heard, const std::vector<Span>& song, double fullDb) {
  EXPECT_NEAR(heard.TypicalLevelDb(heard.EndTime() - 0.5, heard.EndTime()), fullDb, 0.5);
  for (const double midst : {song[0].To - 0.2, song[1].From + 0.2}) {
    const double level = heard.ToneDb(kFirstSong, midst - 0.025, midst + 0.025);
    EXPECT_LT(level, fullDb - 2);
    EXPECT_GT(level, kHeardDb);
  }
}

TEST(Call, OverMusicIsFadeChimeVoiceChimeAndFadeWithoutAGap) {
  const stage::InstallationFiles files = WithChimes();
  RealCallDesk desk(files);
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(desk.Press("frmMain.cmdCall"));
  ASSERT_TRUE(desk.AwaitText("frmMain.cmdCall", "Speak"));
  desk.RecordFor(2);
  const double released = stage::Now();
  desk.Display->Release();
  ASSERT_TRUE(desk.AwaitText("frmMain.cmdCall", "Call"));
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  desk.RecordFor(1.5);
  const Recording heard = desk.Card->Take();
  const std::vector<Span> voice = heard.Tone(kVoice, kHeardDb);
  const std::vector<Span> chime = heard.Tone(kChime, kHeardDb);
  const std::vector<Span> gong = heard.Tone(kGong, kHeardDb);
  const std::vector<Span> song = heard.Tone(kFirstSong, kHeardDb);
  ASSERT_EQ(voice.size(), 1U);
  ASSERT_EQ(chime.size(), 1U);
  ASSERT_EQ(gong.size(), 1U);
  ASSERT_EQ(song.size(), 2U);
  EXPECT_NEAR(chime[0].Sounding, 1, 0.05);
  EXPECT_NEAR(gong[0].Sounding, 0.8, 0.05);
  constexpr double kGap = 0.15;
  EXPECT_NEAR(chime[0].From, song[0].To, kGap);
  EXPECT_NEAR(voice[0].From, chime[0].To, kGap);
  EXPECT_NEAR(gong[0].From, voice[0].To, kGap);
  EXPECT_GT(song[1].From, gong[0].To);
  EXPECT_LT(song[1].From - gong[0].To, 0.6);
  ExpectFades(heard, song, kToneDb + stage::LineDb(files.MusicVolume));
  EXPECT_NEAR(voice[0].To, released, kGap);
  EXPECT_NEAR(heard.TypicalLevelDb(voice[0].From + 0.3, voice[0].To - 0.3),
              kToneDb + stage::LineDb(files.MicroVolume), 0.5);
  for (const auto& [from, to] : {std::pair{heard.StartTime + 0.1, voice[0].From - 0.1},
                                 std::pair{voice[0].To + 0.1, heard.EndTime() - 0.1}}) {
    EXPECT_LT(heard.ToneDb(kVoice, from, to), kNothingDb);
  }
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kMusicZones, kCallZones, 0));
}

TEST(Call, AQuickClickTurnsTheFadeRoundAndIsNeverHeard) {
  stage::InstallationFiles files = WithChimes();
  files.FadeTime = "Slow";  // so that the release falls into the fade
  RealCallDesk desk(files);
  ASSERT_TRUE(desk.AwaitTone(kFirstSong));
  ASSERT_TRUE(desk.AwaitBytes(1));
  ASSERT_TRUE(desk.Press("frmMain.cmdCall"));
  ASSERT_TRUE(desk.AwaitTime("frmMain.cmdCall", "text", "Wait"));
  desk.Display->Release();
  ASSERT_TRUE(desk.AwaitText("frmMain.cmdCall", "Call"));
  desk.RecordFor(1.5);
  const Recording heard = desk.Card->Take();
  EXPECT_EQ(heard.Tone(kFirstSong, -45).size(), 1U);
  for (const double tone : {kVoice, kChime, kGong}) EXPECT_TRUE(heard.Tone(tone, kHeardDb).empty());
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kMusicZones));
}

TEST(Call, ATakeoverWhileSomebodySpeaksClosesTheMicrophoneAtOnce) {
  stage::InstallationFiles files = WithChimes();
  files.Autostart = false;
  RealCallDesk desk(files);
  ASSERT_TRUE(desk.Press("frmMain.cmdCall"));
  ASSERT_TRUE(desk.AwaitTone(kVoice));
  desk.RecordFor(1);
  const double taken = stage::Now();
  desk.Line->Send(192);
  ASSERT_TRUE(desk.AwaitSilence(5));
  EXPECT_TRUE(desk.Await("frmMain.cmdCall", "enabled", "no"));
  desk.Display->Release();
  desk.RecordFor(1);
  desk.Line->Send(0);
  desk.RecordFor(1.5);
  EXPECT_LT(desk.Card->LevelNowDb(1), kSilentDb);
  const std::vector<Span> voice = desk.Card->Take().Tone(kVoice, kHeardDb);
  ASSERT_EQ(voice.size(), 1U);
  EXPECT_LT(voice[0].To - taken, 0.2);
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kCallZones));
  GTEST_LOG_(INFO) << "Silence after " << int((voice[0].To - taken) * 1000) << " ms";
}

TEST(Call, FollowsTheTypeOfTheAmplifierThereAndBack) {
  stage::InstallationFiles files = WithChimes();
  files.Autostart = false;
  files.PostChime = "";
  RealCallDesk desk(files);
  ASSERT_TRUE(desk.ChooseAmplifier(1));
  ASSERT_TRUE(desk.Await("frmMain.frCall", "visible", "yes"));
  EXPECT_TRUE(desk.Await("frmMain.frRouting", "visible", "no"));
  EXPECT_TRUE(desk.CallBy("frmMain.cmdCall2"));
  desk.RecordFor(1);
  EXPECT_THAT(desk.ByteValues(), IsEmpty());
  ASSERT_TRUE(desk.ChooseAmplifier(0));
  ASSERT_TRUE(desk.Await("frmMain.frRouting", "visible", "yes"));
  EXPECT_TRUE(desk.Await("frmMain.frCall", "visible", "no"));
  EXPECT_TRUE(desk.CallBy("frmMain.cmdCall"));
  EXPECT_TRUE(desk.AwaitBytes(2));
  EXPECT_THAT(desk.ByteValues(), ElementsAre(kCallZones, 0));
}

}  // namespace
}  // namespace marlex
