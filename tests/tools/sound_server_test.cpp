#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "tools/machine.h"

namespace marlex {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSay = R"(echo "${0#$MACHINE/} $*" >> "$MACHINE/log"
)";

constexpr const char* kUnpack = R"(
[[ $1 == -x && -e $2 ]] || exit 1
mkdir -p "$3/usr/bin" "$3/usr/lib/pulse-1/modules" "$3/usr/lib/machine/pulseaudio"
cp "$MACHINE/server" "$3/usr/bin/pulseaudio"
)";

constexpr const char* kServer = R"(#!/bin/bash
if [[ -e $MACHINE/broken ]]; then
  echo "error while loading shared libraries: libtdb.so.1" >&2
  exit 127
fi
[[ $1 == --version ]] || echo "unpacked $*" >> "$MACHINE/log"
)";

/// The daemon opens its socket, but the server for PulseAudio's protocol ends at once.
constexpr const char* kPipeWire = R"(
echo "pipewire $*" >> "$MACHINE/log"
[[ -e $MACHINE/broken ]] && exit 1
[[ $1 == -c ]] && exec cat "$2"
ln -s "$MACHINE/door" "$PIPEWIRE_RUNTIME_DIR/pipewire-0"
exec sleep 20
)";

/// A machine on which the tests want a sound server of their own.
class SoundMachine : public Machine {
 protected:
  void SetUp() override {
    Machine::SetUp();
    Take("tests/sound/unpack_server");
    Take("tests/sound/private_server");
    Program("dpkg", kUnpack);
    Write("server", kServer);
    fs::permissions(Root / "server", fs::perms::owner_all);
    fs::create_directories(Root / "folder");
    Write("data/policy.conf", "policy.lua");
    OpenDoor();
  }

  void HasPulseAudio() const { Program("pulseaudio", kSay); }
  void HasPipeWire() const {
    Program("pipewire", kPipeWire);
    Program("wireplumber", kSay);
  }
  bool IsUnpacked() const {
    return fs::exists(Root / "project/build/sound_server/usr/bin/pulseaudio");
  }

  int Unpack(const std::string& variables = "") {
    return Run("tests/sound/unpack_server", variables);
  }
  int Serve(const std::string& variables = "") {
    return Run("tests/sound/private_server " + (Root / "folder").string() + " module-of-the-test",
               "WIREPLUMBER_DATA_DIR=" + (Root / "data").string() + " " + variables);
  }

 private:
  void OpenDoor() const {
    const int door = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    (Root / "door").string().copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(door, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    close(door);
  }
};

TEST_F(SoundMachine, WithPulseAudioUnpacksNone) {
  HasPulseAudio();
  EXPECT_EQ(Unpack(), 0) << Said;
  EXPECT_FALSE(IsUnpacked());
  EXPECT_EQ(Read("log"), "");
}

TEST_F(SoundMachine, WithoutPulseAudioUnpacksOneOnceAndInstallsNothing) {
  HasPipeWire();
  EXPECT_EQ(Unpack(), 0) << Said;
  EXPECT_TRUE(IsUnpacked());
  EXPECT_EQ(Read("log"), "apt-get download -q pulseaudio\n");
  EXPECT_EQ(Unpack(), 0) << Said;
  EXPECT_EQ(Read("log"), "apt-get download -q pulseaudio\n");
}

TEST_F(SoundMachine, UnpacksOneBesideItsOwnWhereThatIsAskedFor) {
  HasPulseAudio();
  EXPECT_EQ(Unpack("MARLEX_SOUND_SERVER=unpacked"), 0) << Said;
  EXPECT_TRUE(IsUnpacked());
}

TEST_F(SoundMachine, ThatIsOfflineTestsOnItsPipeWireAndSaysWhy) {
  HasPipeWire();
  Write("offline", "");
  EXPECT_EQ(Unpack(), 0) << Said;
  EXPECT_TRUE(Says("The tests play on PipeWire")) << Said;
  EXPECT_TRUE(Says("Temporary failure resolving")) << Said;
  EXPECT_FALSE(IsUnpacked());
}

TEST_F(SoundMachine, ThatIsOfflineWithoutAnyServerSeesWhatIsMissingAndWhy) {
  Write("offline", "");
  EXPECT_EQ(Unpack(), 1);
  EXPECT_TRUE(Says("Not unpacked: pulseaudio (E: Failed to fetch: Temporary failure resolving)"))
      << Said;
}

TEST_F(SoundMachine, WhereTheUnpackedOneDoesNotRunSeesWhy) {
  Write("broken", "");
  EXPECT_EQ(Unpack("MARLEX_SOUND_SERVER=unpacked"), 1);
  EXPECT_TRUE(Says("Not unpacked: pulseaudio (error while loading shared libraries: libtdb.so.1)"))
      << Said;
  EXPECT_FALSE(IsUnpacked());
}

TEST_F(SoundMachine, TestsOnItsPulseAudioFirst) {
  HasPulseAudio();
  HasPipeWire();
  ASSERT_EQ(Unpack("MARLEX_SOUND_SERVER=unpacked"), 0) << Said;
  EXPECT_EQ(Serve(), 0) << Said;
  EXPECT_TRUE(Logged("bin/pulseaudio -n ")) << Read("log");
  EXPECT_TRUE(Logged("-L module-of-the-test -L module-native-protocol-unix")) << Read("log");
}

TEST_F(SoundMachine, TestsOnTheUnpackedPulseAudioNext) {
  HasPipeWire();
  ASSERT_EQ(Unpack(), 0) << Said;
  EXPECT_EQ(Serve(), 0) << Said;
  EXPECT_TRUE(Logged("unpacked -n ")) << Read("log");
  EXPECT_FALSE(Logged("pipewire "));
}

TEST_F(SoundMachine, TestsOnPipeWireWhereThereIsNoPulseAudio) {
  HasPipeWire();
  EXPECT_EQ(Serve(), 0) << Said;
  EXPECT_TRUE(Logged("pipewire -c ")) << Read("log");
  EXPECT_TRUE(Says("cmd = \"load-module\" args = \"module-of-the-test\"")) << Said;
  EXPECT_TRUE(Says("unix:" + (Root / "folder").string() + "/native")) << Said;
}

TEST_F(SoundMachine, TestsOnTheServerThatIsAskedFor) {
  HasPulseAudio();
  HasPipeWire();
  ASSERT_EQ(Unpack("MARLEX_SOUND_SERVER=unpacked"), 0) << Said;
  EXPECT_EQ(Serve("MARLEX_SOUND_SERVER=unpacked"), 0) << Said;
  EXPECT_TRUE(Logged("unpacked -n ")) << Read("log");
  EXPECT_EQ(Serve("MARLEX_SOUND_SERVER=pipewire"), 0) << Said;
  EXPECT_TRUE(Logged("pipewire -c ")) << Read("log");
  EXPECT_FALSE(Logged("bin/pulseaudio"));
}

TEST_F(SoundMachine, PutsNoOtherServerInPlaceOfTheOneThatIsAskedFor) {
  HasPulseAudio();
  HasPipeWire();
  EXPECT_EQ(Serve("MARLEX_SOUND_SERVER=unpacked"), 1);
  EXPECT_TRUE(Says("MARLEX_SOUND_SERVER asks for \"unpacked\", which is not there")) << Said;
  EXPECT_EQ(Read("log"), "");
}

TEST_F(SoundMachine, WithoutAnyServerSeesWhatIsMissing) {
  EXPECT_EQ(Serve(), 1);
  EXPECT_TRUE(Says("pipewire is not installed, and there is no PulseAudio")) << Said;
}

TEST_F(SoundMachine, WhosePipeWireDoesNotStartIsNotWaitedForForEver) {
  HasPipeWire();
  Write("broken", "");
  EXPECT_EQ(Serve(), 1);
  EXPECT_TRUE(Says("PipeWire does not start")) << Said;
}

}  // namespace
}  // namespace marlex
