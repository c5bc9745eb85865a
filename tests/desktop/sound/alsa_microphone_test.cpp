#include "desktop/sound/alsa_microphone.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>

#include "desktop/sound/private_server.h"
#include "desktop/sound/sound_line.h"
#include "desktop/sound/test_loop.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;

TEST(AlsaMicrophone, ThatACallDoesNotFindIsMissedUntilItIsBack) {
  PrivateServer server;
  server.Kill();
  TestLoop loop;
  SoundLine line(true);
  SoundLine master;
  std::atomic<bool> isGone{false};
  AlsaMicrophone microphone("pulse", {line, master, isGone});
  line.SetMute(false);
  microphone.Follow();
  EXPECT_TRUE(loop.Within(5s, [&] { return isGone.load(); }));
  line.SetMute(true);
  microphone.Follow();
  server.Start();
  EXPECT_TRUE(loop.Within(5s, [&] { return !isGone; }));
}

}  // namespace
}  // namespace marlex
