#include "desktop/mixer/engine_mixer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/await.h"
#include "desktop/sound/private_server.h"

namespace marlex {
namespace {

/// The mixer as the program composes it, on a sound server of the test's own.
class EngineMixerTest : public testing::Test {
 protected:
  void SetUp() override {
    Engine = std::make_unique<SoundEngine>(Loop);
    Mixer = MakeEngineMixer(Loop, *Engine);
    ASSERT_EQ(Mixer->Open(0, Handle), kMixerNoError);
  }

  void Set(std::uint32_t component, std::uint32_t type, const std::vector<std::uint32_t>& values) {
    const auto line = Mixer->GetLineOfType(Handle, component);
    ASSERT_TRUE(line);
    const auto control = Mixer->GetLineControl(Handle, line->LineId, type);
    ASSERT_TRUE(control);
    EXPECT_EQ(Mixer->SetControlDetails(Handle, *control, values), kMixerNoError);
  }

  testing::AssertionResult Await(const std::function<bool()>& done) {
    return marlex::Await(Loop, done);
  }

  PrivateServer Server{kOneCard};
  QtEventLoop Loop;
  std::unique_ptr<SoundEngine> Engine;
  std::unique_ptr<MixerFunctions> Mixer;
  std::uint32_t Handle = 0;
};

TEST_F(EngineMixerTest, TheSpeakersAreTheServersOutputAndTheWaveLineIsTheEnginesOwn) {
  Set(kComponentSpeakers, kControlVolume, {32768, 16384});
  Set(kComponentWaveOut, kControlVolume, {100, 200});
  EXPECT_TRUE(Await([&] { return Server.Level(0) == 32769 && Server.Level(1) == 16384; }));
  EXPECT_EQ(Engine->Master().Level(), StereoLevel{});
  EXPECT_EQ(Engine->Wave().Level(), (StereoLevel{100, 200}));
}

TEST_F(EngineMixerTest, WhatWasSetRightBeforeTheMixerIsClosedHasReachedTheCard) {
  Set(kComponentSpeakers, kControlMute, {1});
  Mixer->Close(Handle);
  EXPECT_TRUE(Server.IsMuted());
  EXPECT_TRUE(Engine->Master().Muted());
}

TEST_F(EngineMixerTest, LevelAndMuteAreAsSetWhenTheServerStartsAgain) {
  Set(kComponentSpeakers, kControlVolume, {20000, 20000});
  Set(kComponentSpeakers, kControlMute, {1});
  ASSERT_TRUE(Await([&] { return Server.IsMuted(); }));
  Server.Kill();
  ASSERT_TRUE(Await([&] { return !Engine->OutputAlive(); }));
  EXPECT_TRUE(Await([&] { return Engine->Master().Level() == StereoLevel{20000, 20000}; }));
  Set(kComponentSpeakers, kControlVolume, {30000, 30000});
  Server.Start();
  ASSERT_TRUE(Await([&] { return Engine->OutputAlive(); }));
  EXPECT_TRUE(Await([&] { return Server.Level(0) == 30000 && Server.IsMuted(); }));
  EXPECT_TRUE(Await([&] { return Engine->Master().Level() == StereoLevel{}; }));
}

/// The operator's headphones become the default output while the desk's card is away.
TEST_F(EngineMixerTest, TheSpeakersAreTheOutputOfTheSoundAndNeverAnother) {
  Set(kComponentSpeakers, kControlVolume, {20000, 20000});
  ASSERT_TRUE(Await([&] { return Server.Level(0) == 20000; }));
  Server.Control("load-module module-null-sink sink_name=headphones");
  Server.Control("set-default-sink headphones");
  Server.RemoveOutput("card");
  ASSERT_TRUE(Await([&] { return !Engine->OutputAlive(); }));
  EXPECT_TRUE(Await([&] { return Engine->Master().Level() == StereoLevel{20000, 20000}; }));
  Server.AddOutput("card");
  ASSERT_TRUE(Await([&] { return Engine->OutputAlive(); }));
  EXPECT_TRUE(Await([&] { return Server.Level(0) == 20000; }));
  Set(kComponentSpeakers, kControlVolume, {30000, 10000});
  Set(kComponentSpeakers, kControlMute, {1});
  EXPECT_TRUE(Await(
      [&] { return Server.Level(0) == 30000 && Server.Level(1) == 10000 && Server.IsMuted(); }));
  EXPECT_EQ(Server.Level(0, "headphones"), 65536);
  EXPECT_FALSE(Server.IsMuted("headphones"));
}

/// A desk that was started before its card was plugged in.
TEST_F(EngineMixerTest, TheFirstCardOfAServerThatHadNoneIsTheSpeakers) {
  Mixer.reset();
  Server.RemoveOutput("card");
  Server.Control("load-module module-always-sink");
  Engine = std::make_unique<SoundEngine>(Loop);
  Mixer = MakeEngineMixer(Loop, *Engine);
  ASSERT_EQ(Mixer->Open(0, Handle), kMixerNoError);
  Set(kComponentSpeakers, kControlVolume, {20000, 20000});
  ASSERT_TRUE(Await([&] { return Server.Level(0, "auto_null") == 20000; }));
  Server.AddOutput("card");
  EXPECT_TRUE(Await([&] { return Server.Level(0) == 20000; }));
}

TEST_F(EngineMixerTest, WithoutAServerTheSpeakersAreThoseOfTheEnginesDevice) {
  Server.Control("load-module module-null-sink sink_name=other");
  Mixer.reset();
  Engine = std::make_unique<SoundEngine>(
      Loop, SoundOptions{.UseServer = false, .CardDevice = "pulse:other"});
  Mixer = MakeEngineMixer(Loop, *Engine);
  ASSERT_EQ(Mixer->Open(0, Handle), kMixerNoError);
  Set(kComponentSpeakers, kControlVolume, {20000, 20000});
  EXPECT_TRUE(Await([&] { return Server.Level(0, "other") == 20000; }));
  EXPECT_EQ(Server.Level(0), 65536);
}

}  // namespace
}  // namespace marlex
