#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>

#include "desktop/sound/engine_song_player.h"
#include "desktop/sound/media_files.h"
#include "desktop/sound/private_server.h"
#include "desktop/sound/pulled_card.h"
#include "desktop/sound/recording.h"
#include "desktop/sound/test_loop.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;

/// An engine on an ALSA device, which plays into a private server, since the machine has no card.
struct CardDesk {
  PrivateServer Server;
  TestLoop Loop;
  MediaFiles Files;
  SoundEngine Engine{Loop, {.UseServer = false, .CardDevice = "pulse"}};
  EngineSongPlayer Song{Engine};
};

TEST(CardOutput, PlaysASongToItsEndInRealTime) {
  CardDesk desk;
  ASSERT_TRUE(desk.Engine.HasOutput());
  EXPECT_TRUE(desk.Engine.HasMicrophone());
  Recording recording("desk");
  bool ended = false;
  desk.Song.OnEndOfStream = [&] { ended = true; };
  desk.Song.SetFileName(desk.Files.Mp3("song.mp3", 2));
  const auto begin = std::chrono::steady_clock::now();
  desk.Song.Play();
  EXPECT_TRUE(desk.Loop.Within(5s, [&] { return recording.Latest() > 0.4; }));
  ASSERT_TRUE(desk.Loop.Within(10s, [&] { return ended; }));
  const auto length = std::chrono::steady_clock::now() - begin;
  EXPECT_GT(length, 1700ms);
  EXPECT_LT(length, 2600ms);
}

/// Greatest step between two samples of a tone that plays for two seconds.
float GreatestStepOfATone(CardDesk& desk, Recording& recording) {
  const std::size_t begin = recording.Sound().size();
  const std::size_t end = begin + 4 * 44100;
  desk.Loop.Within(10s, [&] { return recording.Sound().size() > end; });
  const std::vector<float>& sound = recording.Sound();
  float greatest = 0;
  for (std::size_t i = begin; i + 2 < sound.size(); ++i) {
    greatest = std::max(greatest, std::fabs(sound[i + 2] - sound[i]));
  }
  return greatest;
}

TEST(CardOutput, MusicIsWhole) {
  CardDesk desk;
  Recording recording("desk");
  desk.Song.SetFileName(desk.Files.Mp3("song.mp3", 60));
  desk.Song.Play();
  ASSERT_TRUE(desk.Loop.Within(5s, [&] { return recording.Latest(441) > 0.45; }));
  constexpr float kStepOfTheTone = 0.0315f;
  // A busy machine may interrupt the sound, but not in every attempt.
  float greatest = 1;
  for (int i = 0; i < 5 && greatest > kStepOfTheTone * 1.1f; ++i) {
    greatest = GreatestStepOfATone(desk, recording);
  }
  EXPECT_LT(greatest, kStepOfTheTone * 1.1f);
  EXPECT_GT(greatest, kStepOfTheTone * 0.9f);
}

TEST(CardOutput, GoesOnByTheTimerWhenTheCardGoesAndComesBackWithIt) {
  CardDesk desk;
  desk.Song.SetFileName(desk.Files.Mp3("song.mp3", 60));
  desk.Song.Play();
  ASSERT_TRUE(desk.Loop.Within(5s, [&] { return desk.Song.CurrentPosition() > 0.3; }));
  desk.Server.Kill();
  ASSERT_TRUE(desk.Loop.Within(5s, [&] { return !desk.Engine.OutputAlive(); }));
  const double position = desk.Song.CurrentPosition();
  EXPECT_TRUE(desk.Loop.Within(5s, [&] { return desk.Song.CurrentPosition() > position + 0.5; }));
  desk.Server.Start();
  EXPECT_TRUE(desk.Loop.Within(5s, [&] { return desk.Engine.OutputAlive(); }));
  Recording recording("desk");
  EXPECT_TRUE(desk.Loop.Within(5s, [&] { return recording.Latest() > 0.4; }));
}

TEST(CardOutput, ACardThatIsPulledWhileNothingPlaysIsMissed) {
  CardDesk desk;
  EXPECT_FALSE(desk.Loop.Within(6s, [&] { return !desk.Engine.OutputAlive(); }));
  {
    const test::PulledCard card;
    EXPECT_TRUE(desk.Loop.Within(4s, [&] { return !desk.Engine.OutputAlive(); }));
  }
  EXPECT_TRUE(desk.Loop.Within(5s, [&] { return desk.Engine.OutputAlive(); }));
}

TEST(CardOutput, AnUnknownDeviceIsNoOutput) {
  TestLoop loop;
  SoundEngine engine(loop, {.UseServer = false, .CardDevice = "no-such-device"});
  EXPECT_FALSE(engine.HasOutput());
}

TEST(CardOutput, PassesTheMicrophone) {
  CardDesk desk;
  Recording recording("desk");
  MediaFiles files;
  const std::string tone = files.Wav("voice.wav", 20, 0.5);
  FILE* voice = popen(("paplay -d mouth --latency-msec=20 '" + tone + "'").c_str(), "r");
  desk.Engine.Microphone().SetMute(false);
  EXPECT_TRUE(desk.Loop.Within(8s, [&] { return recording.Latest() > 0.45; }));
  desk.Engine.Microphone().SetMute(true);
  EXPECT_TRUE(desk.Loop.Within(5s, [&] { return recording.Latest() == 0; }));
  desk.Server.Kill();
  pclose(voice);
}

}  // namespace
}  // namespace marlex
