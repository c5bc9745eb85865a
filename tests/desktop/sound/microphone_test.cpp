#include <gtest/gtest.h>
#include <math.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <numbers>
#include <sstream>

#include "desktop/sound/media_files.h"
#include "desktop/sound/microphone_path.h"
#include "desktop/sound/private_server.h"
#include "desktop/sound/recording.h"
#include "desktop/sound/sound_engine.h"
#include "desktop/sound/test_loop.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

std::vector<float> Tone(int frames, double phase = 0) {
  std::vector<float> sound;
  for (int i = 0; i < frames; ++i) {
    const float sample = float(std::sin(phase + 2 * std::numbers::pi * 441 * i / kSampleRate));
    sound.insert(sound.end(), {sample, sample});
  }
  return sound;
}

float GreatestStep(const std::vector<float>& sound, int frames) {
  float greatest = 0;
  for (int i = 2; i < frames * 2; ++i)
    greatest = std::max(greatest, std::fabs(sound[i] - sound[i - 2]));
  return greatest;
}

TEST(Microphone, ShorteningAndLengtheningDoNotClick) {
  const int step = 441;
  for (const int count : {1, 50, 132, 200}) {
    std::vector<float> sound = Tone(step);
    const float own = GreatestStep(sound, step);
    EXPECT_EQ(Shorten(sound.data(), step, count), step - count);
    EXPECT_LT(GreatestStep(sound, step - count), own + 2.0f / float(count + 1)) << count;
    sound = Tone(step);
    sound.resize(std::size_t(step + count) * 2);
    EXPECT_EQ(Lengthen(sound.data(), step, count), step + count);
    EXPECT_LT(GreatestStep(sound, step + count), own + 2.0f / float(count + 1)) << count;
  }
}

/// Passes `seconds` of sound to an output whose clock runs at `speed` times that of the capture.
/// Returns the fewest and the most frames that the output had left, after one second of settling.
std::pair<int, int> Drift(double speed, int seconds) {
  SoundLine line;
  SoundLine master;
  std::atomic<bool> isGone{false};
  MicrophonePath path({line, master, isGone});
  path.Begin();
  double queued = FramesIn(10);
  int fewest = 1 << 20, most = 0;
  for (int block = 0; block < seconds * 100; ++block) {
    std::vector<float> sound = Tone(441 + MicrophonePath::kMostAdded);
    if (block > 200) {
      fewest = std::min(fewest, int(queued));
      most = std::max(most, int(queued));
    }
    queued = std::max(0.0, queued) + path.Pass(sound.data(), 441, int(queued));
    queued -= 441 * speed;
  }
  return {fewest, most};
}

TEST(Microphone, DelayStaysInItsWindowHoweverTheClocksDrift) {
  for (const double speed : {1.0, 1.0003, 0.9997, 1.001, 0.999}) {
    const auto [fewest, most] = Drift(speed, 240);
    EXPECT_GE(fewest, 0) << speed;
    EXPECT_LE(most, FramesIn(9)) << speed;
  }
}

TEST(Microphone, ADelayThatIsFarTooLongIsPutRightAtOnce) {
  SoundLine line;
  SoundLine master;
  std::atomic<bool> isGone{false};
  MicrophonePath path({line, master, isGone});
  path.Begin();
  std::vector<float> sound = Tone(441 + MicrophonePath::kMostAdded);
  EXPECT_EQ(path.Pass(sound.data(), 441, FramesIn(50)), 0);
}

TEST(Microphone, ADelayThatIsTooLongIsCorrectedWithinHalfASecond) {
  SoundLine line;
  SoundLine master;
  std::atomic<bool> isGone{false};
  MicrophonePath path({line, master, isGone});
  path.Begin();
  const int piece = FramesIn(3);
  int queued = FramesIn(25);
  for (int block = 0; block < 500 / 3; ++block) {
    std::vector<float> sound = Tone(piece + MicrophonePath::kMostAdded);
    queued += path.Pass(sound.data(), piece, queued) - piece;
  }
  EXPECT_LE(queued, FramesIn(5));
  EXPECT_GE(queued, FramesIn(2));
}

TEST(Microphone, MutedLineFadesOutAndThenSaysSo) {
  SoundLine line;
  SoundLine master;
  std::atomic<bool> isGone{false};
  MicrophonePath path({line, master, isGone});
  path.Begin();
  std::vector<float> sound = Tone(441 + MicrophonePath::kMostAdded);
  path.Pass(sound.data(), 441, FramesIn(4));
  EXPECT_EQ(sound[0] < 0.01f, true);  // rises from silence
  EXPECT_FALSE(path.Silent());
  line.SetMute(true);
  sound = Tone(441 + MicrophonePath::kMostAdded);
  path.Pass(sound.data(), 441, FramesIn(4));
  EXPECT_TRUE(path.Silent());
  EXPECT_EQ(sound[880], 0);
}

/// Somebody speaks into the microphone of a private server.
struct Booth {
  std::string Streams() const { return Server.Control("list short source-outputs"); }

  PrivateServer Server;
  MediaFiles Files;
  std::unique_ptr<stage::ChildProcess> Voice = Server.Speak(Files.Wav("voice.wav", 60, 0.5));
  TestLoop Loop;
  SoundEngine Engine{Loop, {.UseCard = false}};
};

TEST(Microphone, IsHeardWhileItsLineIsOpenAndOnlyThen) {
  Booth booth;
  Recording recording("desk");
  ASSERT_TRUE(booth.Engine.HasMicrophone());
  EXPECT_TRUE(booth.Engine.Microphone().Muted());
  booth.Loop.Within(500ms, [] { return false; });
  EXPECT_EQ(recording.Latest(), 0);
  for (int call = 0; call < 3; ++call) {
    booth.Engine.Microphone().SetMute(false);
    EXPECT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest(441) > 0.45; }));
    EXPECT_GT(booth.Engine.Microphone().Peak(), 10000);
    EXPECT_GT(booth.Engine.Master().Peak(), 10000);
    booth.Engine.Microphone().SetLevel(32768, 32768);
    EXPECT_TRUE(booth.Loop.Within(5s, [&] { return std::fabs(recording.Latest() - 0.25) < 0.02; }));
    booth.Engine.Microphone().SetMute(true);
    EXPECT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest() == 0; }));
    booth.Engine.Microphone().SetLevel(65535, 65535);
    EXPECT_TRUE(
        booth.Loop.Within(5s, [&] { return booth.Streams().find("marlex") == std::string::npos; }));
  }
}

/// A server on which a telephone application is active, so that it mutes every new stream.
TEST(Microphone, IsHeardWhereTheServerMutesItsStream) {
  Booth booth;
  Recording recording("desk");
  booth.Server.Control("load-module module-role-cork trigger_roles=phone cork_roles=no_role");
  const std::string ring = booth.Files.Wav("ring.wav", 60, 0);
  const std::string command = "paplay -d desk --property=media.role=phone '" + ring + "'";
  FILE* const telephone = popen(("exec " + command).c_str(), "r");
  const auto inputs = [&] { return booth.Server.Control("list sink-inputs"); };
  ASSERT_TRUE(booth.Loop.Within(5s, [&] { return inputs().find("phone") != std::string::npos; }));
  booth.Engine.Microphone().SetMute(false);
  EXPECT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest() > 0.45; }));
  booth.Server.Kill();
  pclose(telephone);
}

TEST(Microphone, MasterLineMutesItToo) {
  Booth booth;
  Recording recording("desk");
  booth.Engine.Microphone().SetMute(false);
  EXPECT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest() > 0.45; }));
  booth.Engine.Master().SetMute(true);
  EXPECT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest() == 0; }));
}

TEST(Microphone, ComesBackWhenItWasPulledOutInMidCall) {
  Booth booth;
  Recording recording("desk");
  booth.Engine.Microphone().SetMute(false);
  ASSERT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest() > 0.45; }));
  booth.Server.Control("unload-module module-remap-source");
  EXPECT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest() == 0; }));
  EXPECT_TRUE(booth.Engine.OutputAlive());
  booth.Server.Control(
      "load-module module-remap-source source_name=microphone master=mouth.monitor");
  EXPECT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest() > 0.45; }));
}

/// Number of a source, as listed by the server.
std::string SourceNumber(const PrivateServer& server, const std::string& name) {
  std::istringstream sources(server.Control("list short sources"));
  for (std::string line; std::getline(sources, line);) {
    std::istringstream words(line);
    std::string number, source;
    words >> number >> source;
    if (source == name) return number;
  }
  return {};
}

/// Numbers of the streams that capture from the microphone.
std::string Captures(const PrivateServer& server) {
  std::istringstream streams(server.Control("list short source-outputs"));
  const std::string microphone = SourceNumber(server, "microphone");
  std::string numbers;
  for (std::string line; std::getline(streams, line);) {
    std::istringstream words(line);
    std::string number, source;
    words >> number >> source;
    if (source == microphone) numbers += number + " ";
  }
  return numbers;
}

/// Anything said while the line was closed must not be heard once it is opened.
void ExpectNothingStale(const PrivateServer& server, SoundEngine& engine, TestLoop& loop) {
  Recording recording("desk");
  Recording mouth("mouth");
  MediaFiles files;
  engine.Microphone().SetMute(false);
  const auto say = [&](const std::string& seconds) {
    const std::string tone = files.Wav("word.wav", 60, 0.5);
    return popen(("exec timeout " + seconds + " paplay -d mouth '" + tone + "'").c_str(), "r");
  };
  FILE* voice = say("3");
  ASSERT_TRUE(loop.Within(8s, [&] { return recording.Latest() > 0.45; }));
  engine.Microphone().SetMute(true);
  ASSERT_TRUE(loop.Within(5s, [&] { return recording.Latest() == 0; }));
  ASSERT_TRUE(loop.Within(8s, [&] { return mouth.Latest(44100) == 0; }));
  pclose(voice);
  const std::size_t begin = recording.Sound().size();
  engine.Microphone().SetMute(false);
  ASSERT_TRUE(loop.Within(5s, [&] { return !Captures(server).empty(); }));
  const std::size_t end = recording.Sound().size() + 3 * 44100;  // a second and a half
  EXPECT_TRUE(loop.Within(10s, [&] { return recording.Sound().size() > end; }));
  const std::vector<float>& sound = recording.Sound();
  EXPECT_EQ(*std::max_element(sound.begin() + long(begin), sound.end()), 0);
  voice = say("2");
  EXPECT_TRUE(loop.Within(5s, [&] { return recording.Latest() > 0.45; }));
  pclose(voice);
}

TEST(Microphone, NothingStaleIsHeardWhenTheLineIsOpened) {
  PrivateServer server;
  TestLoop loop;
  SoundEngine engine(loop, {.UseCard = false});
  ExpectNothingStale(server, engine, loop);
}

TEST(Microphone, NothingStaleIsHeardFromACardWhenTheLineIsOpened) {
  PrivateServer server;
  TestLoop loop;
  SoundEngine engine(loop, {.UseServer = false, .CardDevice = "pulse"});
  ExpectNothingStale(server, engine, loop);
}

constexpr const char* kNeverDead =
    "this sound server has no dead microphone: it gives silence in place of one";

TEST(Microphone, OneThatIsThereButDeadIsOpenedAgain) {
  Booth booth;
  Recording recording("desk");
  booth.Engine.Microphone().SetMute(false);
  ASSERT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest() > 0.45; }));
  const std::string first = Captures(booth.Server);
  ASSERT_NE(first, "");
  booth.Loop.Within(3s, [] { return false; });
  EXPECT_EQ(Captures(booth.Server), first);  // a stream that is alive is left alone
  if (!booth.Server.SuspendMicrophone()) GTEST_SKIP() << kNeverDead;
  const auto reopened = [&] {
    const std::string now = Captures(booth.Server);
    return !now.empty() && now != first;
  };
  EXPECT_TRUE(booth.Loop.Within(8s, reopened));
  booth.Server.ResumeMicrophone();
  EXPECT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest() > 0.45; }));
}

TEST(Microphone, AMuteThatIsTakenBackAtOnceLeavesItWatched) {
  Booth booth;
  Recording recording("desk");
  SoundLine& line = booth.Engine.Microphone();
  line.SetMute(false);
  ASSERT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest() > 0.45; }));
  std::string opened = Captures(booth.Server);
  // It stays open, unless a busy machine gives it the time to fade out and close.
  for (std::string before; before != opened; opened = Captures(booth.Server)) {
    before = opened;
    line.SetMute(true);
    line.SetMute(false);
    booth.Loop.Within(100ms, [] { return false; });
  }
  ASSERT_NE(opened, "");
  if (!booth.Server.SuspendMicrophone()) GTEST_SKIP() << kNeverDead;
  const auto reopened = [&] {
    const std::string now = Captures(booth.Server);
    return !now.empty() && now != opened;
  };
  EXPECT_TRUE(booth.Loop.Within(8s, reopened));
  booth.Server.ResumeMicrophone();
  EXPECT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest() > 0.45; }));
}

TEST(Microphone, OneOfACardThatIsThereButDeadIsOpenedAgain) {
  PrivateServer server;
  TestLoop loop;
  SoundEngine engine(loop, {.UseServer = false, .CardDevice = "pulse"});
  engine.Microphone().SetMute(false);
  ASSERT_TRUE(loop.Within(5s, [&] { return !Captures(server).empty(); }));
  const std::string first = Captures(server);
  loop.Within(1s, [] { return false; });
  ASSERT_EQ(Captures(server), first);
  if (!server.SuspendMicrophone()) GTEST_SKIP() << kNeverDead;
  const auto reopened = [&] {
    const std::string now = Captures(server);
    return !now.empty() && now != first;
  };
  EXPECT_TRUE(loop.Within(8s, reopened));
  engine.Microphone().SetMute(true);
  EXPECT_TRUE(loop.Within(5s, [&] { return Captures(server).empty(); }));
}

/// A button that is only tapped is released before the server has created the streams.
TEST(Microphone, ClosedBeforeItIsOpenLeavesNothingOpen) {
  Booth booth;
  for (int call = 0; call < 20; ++call) {
    booth.Engine.Microphone().SetMute(false);
    booth.Engine.Microphone().SetMute(true);
  }
  const auto announcements = [&] {
    return booth.Server.Control("list sink-inputs").find("Announcement") != std::string::npos;
  };
  EXPECT_TRUE(
      booth.Loop.Within(5s, [&] { return Captures(booth.Server).empty() && !announcements(); }));
  booth.Loop.Within(500ms, [] { return false; });
  EXPECT_EQ(Captures(booth.Server), "");
  EXPECT_FALSE(announcements());
}

TEST(Microphone, OpensAndClosesHundredsOfTimes) {
  Booth booth;
  Recording recording("desk");
  for (int call = 0; call < 300; ++call) {
    booth.Engine.Microphone().SetMute(false);
    if (call % 3) booth.Loop.Within(std::chrono::milliseconds(call % 30), [] { return false; });
    booth.Engine.Microphone().SetMute(true);
    if (call % 2) booth.Loop.Within(std::chrono::milliseconds(call % 20), [] { return false; });
  }
  EXPECT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest() == 0; }));
  booth.Engine.Microphone().SetMute(false);
  EXPECT_TRUE(booth.Loop.Within(5s, [&] { return recording.Latest() > 0.45; }));
}

TEST(Microphone, IsReportedGoneWhileClosedUntilItIsBack) {
  const PrivateServer server;
  TestLoop loop;
  const SoundEngine engine(loop, {.UseCard = false});
  ASSERT_TRUE(engine.HasMicrophone());
  EXPECT_FALSE(loop.Within(500ms, [&] { return engine.MicrophoneIsGone(); }));
  server.Control("unload-module module-remap-source");
  EXPECT_TRUE(loop.Within(5s, [&] { return engine.MicrophoneIsGone(); }));
  EXPECT_EQ(engine.Outlet(), SoundOutlet::Device);
  server.Control("load-module module-remap-source source_name=microphone master=mouth.monitor");
  EXPECT_TRUE(loop.Within(5s, [&] { return !engine.MicrophoneIsGone(); }));
}

}  // namespace
}  // namespace marlex
