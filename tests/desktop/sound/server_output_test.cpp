#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>

#include "desktop/sound/engine_song_player.h"
#include "desktop/sound/engine_wave_player.h"
#include "desktop/sound/media_files.h"
#include "desktop/sound/private_server.h"
#include "desktop/sound/test_loop.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// An engine on a sound server of its own.
struct ServerDesk {
  PrivateServer Server;
  TestLoop Loop;
  MediaFiles Files;
  SoundEngine Engine{Loop, {.UseCard = false}};
  EngineSongPlayer Song{Engine};
  EngineWavePlayer Wave{Engine, Loop};

  void PlaySong(double seconds = 30) {
    Song.SetFileName(Files.Mp3("song.mp3", seconds));
    Song.Play();
  }
};

TEST(ServerOutput, FindsTheCardAndItsMicrophone) {
  ServerDesk desk;
  EXPECT_TRUE(desk.Engine.HasOutput());
  EXPECT_TRUE(desk.Engine.HasMicrophone());
  EXPECT_TRUE(desk.Engine.OutputAlive());
  EXPECT_EQ(desk.Engine.CardName(), "Desk");
}

TEST(ServerOutput, ToneIsHeardAtItsLevel) {
  ServerDesk desk;
  Recording recording("desk");
  desk.Engine.Wave().SetLevel(32768, 32768);
  desk.PlaySong();
  EXPECT_TRUE(desk.Loop.Within(5s, [&] { return recording.Latest() > 0.2; }));
  EXPECT_TRUE(desk.Loop.Within(5s, [&] { return std::abs(recording.Latest() - 0.25) < 0.03; }));
  desk.Engine.Master().SetMute(true);
  EXPECT_TRUE(desk.Loop.Within(5s, [&] { return recording.Latest() == 0; }));
  desk.Engine.Master().SetMute(false);
  EXPECT_TRUE(desk.Loop.Within(5s, [&] { return recording.Latest() > 0.2; }));
}

TEST(ServerOutput, AVolumeThatTheServerRemembersIsPutBackToFull) {
  ServerDesk desk;
  EXPECT_NE(desk.Server.Control("list sink-inputs").find("65536 / 100%"), std::string::npos);
}

TEST(ServerOutput, AMessageEndsWhenItWasHeard) {
  ServerDesk desk;
  Clock::time_point ended;
  desk.Wave.OnStatusUpdate = [&] { ended = Clock::now(); };
  desk.Wave.FileName = desk.Files.Wav("chime.wav", 0.5);
  desk.Wave.Command("Open");
  const Clock::time_point begin = Clock::now();
  desk.Wave.Command("Play");
  ASSERT_TRUE(desk.Loop.Within(5s, [&] { return ended != Clock::time_point(); }));
  EXPECT_GT(ended - begin, 490ms);
  EXPECT_LT(ended - begin, 700ms);
}

TEST(ServerOutput, GoesOnAfterTheServerWasKilledAndStartedAgain) {
  ServerDesk desk;
  desk.PlaySong();
  ASSERT_TRUE(desk.Loop.Within(5s, [&] { return desk.Song.CurrentPosition() > 0.5; }));
  desk.Server.Kill();
  ASSERT_TRUE(desk.Loop.Within(5s, [&] { return !desk.Engine.OutputAlive(); }));
  const double lostAt = desk.Song.CurrentPosition();
  const Clock::time_point lost = Clock::now();
  desk.Loop.Within(2s, [] { return false; });
  const double gone = std::chrono::duration<double>(Clock::now() - lost).count();
  EXPECT_NEAR(desk.Song.CurrentPosition() - lostAt, gone, 0.2);  // time passes, no faster
  desk.Server.Start();
  const Clock::time_point back = Clock::now();
  ASSERT_TRUE(desk.Loop.Within(10s, [&] { return desk.Engine.OutputAlive(); }));
  EXPECT_LT(Clock::now() - back, 3s);
  Recording recording("desk");
  EXPECT_TRUE(desk.Loop.Within(5s, [&] { return recording.Latest() > 0.4; }));
  EXPECT_EQ(desk.Song.PlayState(), kPlaying);
}

TEST(ServerOutput, StaysWithItsCardAndMovesToNoOther) {
  ServerDesk desk;
  desk.PlaySong();
  ASSERT_TRUE(desk.Loop.Within(5s, [&] { return desk.Song.CurrentPosition() > 0.2; }));
  Recording other("other");
  const std::string modules = desk.Server.Control("list short modules");
  const std::string number = modules.substr(0, modules.find('\t'));
  ASSERT_NE(modules.find("sink_name=desk"), std::string::npos);
  desk.Server.Control("unload-module " + number);
  ASSERT_TRUE(desk.Loop.Within(5s, [&] { return !desk.Engine.OutputAlive(); }));
  desk.Loop.Within(3s, [] { return false; });
  EXPECT_FALSE(desk.Engine.OutputAlive());
  EXPECT_EQ(other.Latest(44100 * 3), 0);
  EXPECT_EQ(desk.Server.Control("list short sink-inputs"), "");
  desk.Server.Control("load-module module-null-sink sink_name=desk");
  ASSERT_TRUE(desk.Loop.Within(3s, [&] { return desk.Engine.OutputAlive(); }));
  Recording again("desk");
  EXPECT_TRUE(desk.Loop.Within(5s, [&] { return again.Latest() > 0.4; }));
}

TEST(ServerOutput, AServerThatHangsIsLeftForTheTimerUntilItGoesOn) {
  ServerDesk desk;
  desk.PlaySong();
  ASSERT_TRUE(desk.Loop.Within(5s, [&] { return desk.Song.CurrentPosition() > 0.2; }));
  kill(desk.Server.Process(), SIGSTOP);
  EXPECT_TRUE(desk.Loop.Within(6s, [&] { return !desk.Engine.OutputAlive(); }));
  const double before = desk.Song.CurrentPosition();
  EXPECT_TRUE(desk.Loop.Within(3s, [&] { return desk.Song.CurrentPosition() > before + 1; }));
  kill(desk.Server.Process(), SIGCONT);
  EXPECT_TRUE(desk.Loop.Within(6s, [&] { return desk.Engine.OutputAlive(); }));
}

TEST(ServerOutput, WithoutAServerTimePassesAllTheSame) {
  setenv("PULSE_SERVER", "unix:/nonexistent", 1);
  TestLoop loop;
  MediaFiles files;
  SoundEngine engine(loop, {.UseCard = false});
  EXPECT_FALSE(engine.HasOutput());
  EXPECT_FALSE(engine.HasMicrophone());
  EXPECT_EQ(engine.CardName(), "");
  EngineSongPlayer song(engine);
  bool ended = false;
  song.OnEndOfStream = [&] { ended = true; };
  song.SetFileName(files.Mp3("song.mp3", 1));
  const Clock::time_point begin = Clock::now();
  song.Play();
  ASSERT_TRUE(loop.Within(5s, [&] { return ended; }));
  EXPECT_GT(Clock::now() - begin, 900ms);
  EXPECT_LT(Clock::now() - begin, 1500ms);
}

TEST(ServerOutput, AWaitingEngineSleeps) {
  ServerDesk desk;
  Recording recording("desk");
  desk.PlaySong(1);
  bool ended = false;
  desk.Song.OnEndOfStream = [&] { ended = true; };
  ASSERT_TRUE(desk.Loop.Within(5s, [&] { return ended; }));
  const auto corked = [&] {
    return desk.Server.Control("list sink-inputs").find("Corked: yes") != std::string::npos;
  };
  ASSERT_TRUE(desk.Loop.Within(10s, corked));
  const ProcessCost before = CostOf(getpid());
  std::this_thread::sleep_for(2s);
  const ProcessCost after = CostOf(getpid());
  EXPECT_LT(after.Wakeups - before.Wakeups, 20);
  desk.Song.Play();
  EXPECT_TRUE(desk.Loop.Within(5s, [&] { return recording.Latest() > 0.4; }));
}

TEST(ServerOutput, OpensAndClosesAHundredTimes) {
  PrivateServer server;
  TestLoop loop;
  MediaFiles files;
  const std::string song = files.Mp3("song.mp3", 1);
  const auto descriptors = [] {
    const std::filesystem::directory_iterator open("/proc/self/fd");
    return std::distance(begin(open), end(open));
  };
  long before = 0;
  for (int i = 0; i < 120; ++i) {
    SoundEngine engine(loop, {.UseCard = false});
    ASSERT_TRUE(engine.HasOutput());
    EngineSongPlayer player(engine);
    player.SetFileName(song);
    player.Play();
    engine.Microphone().SetMute(i % 2 == 0);
    ASSERT_TRUE(loop.Within(5s, [&] { return player.CurrentPosition() > 0; }));
    if (i == 10) before = descriptors();
  }
  EXPECT_LE(descriptors(), before);
}

}  // namespace
}  // namespace marlex
