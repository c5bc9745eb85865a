#include <dirent.h>

#include <algorithm>

#include "tools/machine.h"

namespace marlex {
namespace {

/// A machine on which `./run` is tested. The programs that build and that create the installation
/// only leave a trace.
class RunMachine : public Machine {
 protected:
  void SetUp() override {
    Machine::SetUp();
    for (const char* file : {"run", "tools/install_packages", "packages.txt",
                             "tests/system/stage/packages.txt", "tests/packages.txt"})
      Take(file);
    Program("cmake", "echo \"cmake $*\" >> \"$MACHINE/log\"\n");
    Program("pactl", "cat \"$MACHINE/sink\"\n");
    Program("project/sample/install", "mkdir -p \"$1\"\n");
    Program("project/build/release/marlex", "echo marlex\n");
    Program("project/build/release/marlex_watch", "echo marlex_watch\n");
  }

  static bool HasCard() {
    DIR* const cards = opendir("/dev/snd");
    if (cards) closedir(cards);
    return cards != nullptr;
  }
};

TEST_F(RunMachine, WithADisplayAndSoundGetsNothingOfTheStage) {
  Write("sink", "speakers\n");
  EXPECT_EQ(Run("./run", "DISPLAY=:0"), 0) << Said;
  EXPECT_TRUE(Says("\nmarlex\n")) << Said;
  EXPECT_TRUE(IsThere("qt6-base-dev"));
  for (const char* package : {"xvfb", "xdotool", "imagemagick", "pulseaudio", "pulseaudio-utils",
                              "pipewire", "wireplumber", "libgtest-dev", "libtdb1"})
    EXPECT_FALSE(IsThere(package)) << package;
}

TEST_F(RunMachine, WithoutADisplayGetsTheStageAndNothingOfTheTests) {
  Write("sink", "speakers\n");
  EXPECT_EQ(Run("./run"), 0) << Said;
  EXPECT_TRUE(Says("\nmarlex_watch\n")) << Said;
  EXPECT_TRUE(IsThere("xvfb"));
  for (const char* package : {"libgtest-dev", "evilwm", "libltdl7", "liborc-0.4-0", "libspeexdsp1",
                              "libtdb1", "libwrap0", "libasound2-plugins"})
    EXPECT_FALSE(IsThere(package)) << package;
}

TEST_F(RunMachine, WhoseServerPretendsACardGetsTheStage) {
  if (HasCard()) GTEST_SKIP() << "the program would play on this machine's card";
  Write("sink", "auto_null\n");
  EXPECT_EQ(Run("./run", "WAYLAND_DISPLAY=wayland-0"), 0) << Said;
  EXPECT_TRUE(Says("\nmarlex_watch\n")) << Said;
}

TEST_F(RunMachine, OnPipeWireWithoutADisplayKeepsItsSound) {
  Has({"pipewire", "wireplumber", "pipewire-alsa"});
  Write("conflicts/pulseaudio", "pipewire-alsa");
  EXPECT_EQ(Run("./run"), 0) << Said;
  EXPECT_TRUE(IsThere("xvfb"));
  EXPECT_FALSE(IsThere("pulseaudio"));
}

TEST_F(RunMachine, ThatWouldLoseItsSoundIsLeftAsItIs) {
  Has({"pipewire-media-session", "pipewire-alsa"});
  Write("conflicts/pulseaudio", "pipewire-alsa");
  Write("conflicts/wireplumber", "pipewire-media-session");
  EXPECT_EQ(Run("./run"), 1);
  EXPECT_TRUE(Says("pulseaudio (it would remove: pipewire-alsa)")) << Said;
  EXPECT_TRUE(Says("pipewire wireplumber (it would remove: pipewire-media-session)")) << Said;
  EXPECT_FALSE(IsThere("qt6-base-dev"));
  EXPECT_FALSE(Logged("cmake --preset"));
  EXPECT_FALSE(Says("marlex\n"));
}

}  // namespace
}  // namespace marlex
