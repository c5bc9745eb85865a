#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "places.h"

namespace marlex {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPackageManager = R"(#!/bin/bash
echo "apt-get $*" >> "$MACHINE/log"
[[ $* == *install* ]] || exit 0
for package in "$@"; do
  [[ -e $MACHINE/unknown/$package ]] && echo "E: Unable to locate package $package" && exit 100
  [[ $* != *" -s "* && $package != -* && $package != install ]] && touch "$MACHINE/has/$package"
  [[ -e $MACHINE/conflicts/$package ]] || continue
  for other in $(< "$MACHINE/conflicts/$package"); do
    [[ -e $MACHINE/has/$other ]] || continue
    [[ $* == *--no-remove* ]] && echo "E: Packages need to be removed" && exit 100
    echo "Remv $other [1.0] [other stuff]"
  done
done
)";

constexpr const char* kPackageQuery = R"(#!/bin/bash
[[ -e $MACHINE/has/${*: -1} ]] && echo -n installed
)";

constexpr const char* kSudo = R"(#!/bin/bash
exec "$@"
)";

/// A machine whose package manager we are.
class Machine : public testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "machine_XXXXXX").string();
    Root = mkdtemp(pattern.data());
    for (const char* folder : {"bin", "has", "unknown", "conflicts", "project/tools"})
      fs::create_directories(Root / folder);
    Tool("apt-get", kPackageManager);
    Tool("dpkg-query", kPackageQuery);
    Tool("sudo", kSudo);
    fs::copy(MARLEX_SOURCE_DIR "/tools/install_packages", Root / "project/tools");
    Write("project/packages.txt", "# needed\ncompiler\n\nlibrary # and why\n");
    Write("project/sound.txt", "viewer\nonesound | othersound othersession\n");
  }

  void TearDown() override { fs::remove_all(Root); }

  void Write(const std::string& name, const std::string& content) const {
    std::ofstream(Root / name) << content;
  }

  void Has(const std::vector<std::string>& packages) const {
    for (const std::string& package : packages) Write("has/" + package, "");
  }

  bool IsThere(const std::string& package) const { return fs::exists(Root / "has" / package); }

  /// Runs the script with these lists. Its exit code; `Said` is what it wrote.
  int Install(const std::string& lists = "") {
    const std::string place = Root.string();
    const std::string command = "MACHINE=" + place + " PATH=" + place + "/bin:$PATH " + place +
                                "/project/tools/install_packages " + lists + " > " + place +
                                "/said 2>&1";
    const int status = std::system(command.c_str());
    Said = Read("said");
    return WEXITSTATUS(status);
  }

  std::string Read(const std::string& name) const {
    std::ostringstream content;
    content << std::ifstream(Root / name).rdbuf();
    return content.str();
  }

  bool Says(const std::string& text) const { return Said.find(text) != std::string::npos; }

  fs::path Root;
  std::string Said;

 private:
  void Tool(const std::string& name, const std::string& content) const {
    Write("bin/" + name, content);
    fs::permissions(Root / "bin" / name, fs::perms::owner_all);
  }
};

TEST_F(Machine, ThatHasEverythingIsNotEvenAsked) {
  Has({"compiler", "library", "viewer", "onesound"});
  EXPECT_EQ(Install("sound.txt"), 0);
  EXPECT_EQ(Said, "");
  EXPECT_EQ(Read("log"), "");
}

TEST_F(Machine, GetsWhatIsMissingOfItsListsAndNothingElse) {
  Has({"compiler"});
  EXPECT_EQ(Install(), 0) << Said;
  EXPECT_TRUE(IsThere("library"));
  EXPECT_FALSE(IsThere("viewer"));
  EXPECT_FALSE(IsThere("onesound"));
}

TEST_F(Machine, GetsTheFirstOfTheSoundServersWhenItHasNone) {
  EXPECT_EQ(Install("sound.txt"), 0) << Said;
  EXPECT_TRUE(IsThere("onesound"));
  EXPECT_TRUE(IsThere("viewer"));
  EXPECT_FALSE(IsThere("othersound"));
}

TEST_F(Machine, KeepsTheSoundServerThatItHas) {
  Has({"compiler", "library", "viewer", "othersound", "othersession"});
  EXPECT_EQ(Install("sound.txt"), 0) << Said;
  EXPECT_FALSE(IsThere("onesound"));
  EXPECT_EQ(Read("log"), "");
}

TEST_F(Machine, GetsTheRestOfTheOtherServerWhenTheFirstWouldRemoveSomething) {
  Has({"compiler", "library", "viewer", "othersound", "desktopsound"});
  Write("conflicts/onesound", "desktopsound");
  EXPECT_EQ(Install("sound.txt"), 0) << Said;
  EXPECT_FALSE(IsThere("onesound"));
  EXPECT_TRUE(IsThere("othersession"));
}

TEST_F(Machine, WhoseSoundWouldGoWithEitherServerIsLeftAsItIs) {
  Has({"compiler", "desktopsound"});
  Write("conflicts/onesound", "desktopsound");
  Write("conflicts/othersession", "desktopsound");
  EXPECT_EQ(Install("sound.txt"), 1);
  EXPECT_TRUE(Says("onesound (it would remove: desktopsound)")) << Said;
  EXPECT_TRUE(Says("othersound othersession (it would remove: desktopsound)")) << Said;
  for (const char* package : {"library", "viewer", "onesound", "othersound", "othersession"})
    EXPECT_FALSE(IsThere(package)) << package;
}

TEST_F(Machine, LosesNothingToAnyOtherPackageEither) {
  Has({"compiler", "oldlibrary"});
  Write("conflicts/library", "oldlibrary");
  EXPECT_EQ(Install(), 1);
  EXPECT_TRUE(Says("library (it would remove: oldlibrary)")) << Said;
  EXPECT_FALSE(IsThere("library"));
}

TEST_F(Machine, IsToldWhichPackageCannotBeHad) {
  Write("unknown/library", "");
  EXPECT_EQ(Install(), 1);
  EXPECT_TRUE(Says("Unable to locate package library")) << Said;
  EXPECT_FALSE(IsThere("compiler"));
}

/// The lists of the project itself.
TEST_F(Machine, RunsTheProgramWithoutASoundServerOfTheTestsOrADisplayOfTheirs) {
  fs::copy(MARLEX_SOURCE_DIR "/packages.txt", Root / "project",
           fs::copy_options::overwrite_existing);
  EXPECT_EQ(Install(), 0) << Said;
  EXPECT_TRUE(IsThere("qt6-base-dev"));
  for (const char* package : {"pulseaudio", "pipewire-pulse", "xvfb", "libgtest-dev"})
    EXPECT_FALSE(IsThere(package)) << package;
}

TEST_F(Machine, OfADesktopWithPipeWireKeepsItsSoundInTheTests) {
  fs::copy(MARLEX_SOURCE_DIR "/packages.txt", Root / "project",
           fs::copy_options::overwrite_existing);
  fs::copy(MARLEX_SOURCE_DIR "/tests/system/stage/packages.txt", Root / "project/stage.txt");
  fs::copy(MARLEX_SOURCE_DIR "/tests/packages.txt", Root / "project/tests.txt");
  Has({"pipewire", "pipewire-pulse", "pipewire-alsa", "wireplumber"});
  Write("conflicts/pulseaudio", "pipewire-alsa pipewire-pulse");
  EXPECT_EQ(Install("stage.txt tests.txt"), 0) << Said;
  EXPECT_FALSE(IsThere("pulseaudio"));
  EXPECT_TRUE(IsThere("xvfb"));
  EXPECT_TRUE(IsThere("libgtest-dev"));
}

}  // namespace
}  // namespace marlex
