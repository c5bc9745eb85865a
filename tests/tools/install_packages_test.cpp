#include "tools/machine.h"

namespace marlex {
namespace {

class PackageMachine : public Machine {
 protected:
  void SetUp() override {
    Machine::SetUp();
    Take("tools/install_packages");
    Write("project/packages.txt", "# needed\ncompiler\n\nlibrary # and why\n");
    Write("project/sound.txt", "viewer\nonesound | othersound othersession\n");
  }

  int Install(const std::string& lists = "") { return Run("tools/install_packages " + lists); }
};

TEST_F(PackageMachine, ThatHasEverythingIsNotEvenAsked) {
  Has({"compiler", "library", "viewer", "onesound"});
  EXPECT_EQ(Install("sound.txt"), 0);
  EXPECT_EQ(Said, "");
  EXPECT_EQ(Read("log"), "");
}

TEST_F(PackageMachine, GetsWhatIsMissingOfItsListsAndNothingElse) {
  Has({"compiler"});
  EXPECT_EQ(Install(), 0) << Said;
  EXPECT_TRUE(IsThere("library"));
  EXPECT_FALSE(IsThere("viewer"));
  EXPECT_FALSE(IsThere("onesound"));
}

TEST_F(PackageMachine, GetsTheFirstOfTheSoundServersWhenItHasNone) {
  EXPECT_EQ(Install("sound.txt"), 0) << Said;
  EXPECT_TRUE(IsThere("onesound"));
  EXPECT_TRUE(IsThere("viewer"));
  EXPECT_FALSE(IsThere("othersound"));
}

TEST_F(PackageMachine, KeepsTheSoundServerThatItHas) {
  Has({"compiler", "library", "viewer", "othersound", "othersession"});
  EXPECT_EQ(Install("sound.txt"), 0) << Said;
  EXPECT_FALSE(IsThere("onesound"));
  EXPECT_EQ(Read("log"), "");
}

TEST_F(PackageMachine, GetsTheRestOfTheOtherServerWhenTheFirstWouldRemoveSomething) {
  Has({"compiler", "library", "viewer", "othersound", "desktopsound"});
  Write("conflicts/onesound", "desktopsound");
  EXPECT_EQ(Install("sound.txt"), 0) << Said;
  EXPECT_FALSE(IsThere("onesound"));
  EXPECT_TRUE(IsThere("othersession"));
}

TEST_F(PackageMachine, WhoseSoundWouldGoWithEitherServerIsLeftAsItIs) {
  Has({"compiler", "desktopsound"});
  Write("conflicts/onesound", "desktopsound");
  Write("conflicts/othersession", "desktopsound");
  EXPECT_EQ(Install("sound.txt"), 1);
  EXPECT_TRUE(Says("onesound (it would remove: desktopsound)")) << Said;
  EXPECT_TRUE(Says("othersound othersession (it would remove: desktopsound)")) << Said;
  for (const char* package : {"library", "viewer", "onesound", "othersound", "othersession"})
    EXPECT_FALSE(IsThere(package)) << package;
}

TEST_F(PackageMachine, LosesNothingToAnyOtherPackageEither) {
  Has({"compiler", "oldlibrary"});
  Write("conflicts/library", "oldlibrary");
  EXPECT_EQ(Install(), 1);
  EXPECT_TRUE(Says("library (it would remove: oldlibrary)")) << Said;
  EXPECT_FALSE(IsThere("library"));
}

TEST_F(PackageMachine, SeesWhichPackageCannotBeHad) {
  Write("unknown/library", "");
  EXPECT_EQ(Install(), 1);
  EXPECT_TRUE(Says("Unable to locate package library")) << Said;
  EXPECT_FALSE(IsThere("compiler"));
}

TEST_F(PackageMachine, ThatIsOfflineSeesWhatIsMissingAndWhy) {
  Has({"compiler"});
  Write("offline", "");
  EXPECT_EQ(Install(), 1);
  EXPECT_TRUE(Says("Not installed: library (E: Failed to fetch")) << Said;
  EXPECT_TRUE(Says("is the machine online?")) << Said;
  EXPECT_FALSE(IsThere("library"));
}

TEST_F(PackageMachine, WithoutSudoSeesTheReason) {
  Program("id", "echo 1000");
  std::filesystem::remove(Root / "bin/sudo");
  EXPECT_EQ(Install(), 1);
  EXPECT_TRUE(Says("compiler library  (that takes root, and there is no sudo)")) << Said;
}

/// The lists of the project itself.
TEST_F(PackageMachine, RunsWithoutASoundServerOrADisplayOfTheTests) {
  Take("packages.txt");
  EXPECT_EQ(Install(), 0) << Said;
  EXPECT_TRUE(IsThere("qt6-base-dev"));
  for (const char* package : {"pulseaudio", "pipewire-pulse", "xvfb", "libgtest-dev"})
    EXPECT_FALSE(IsThere(package)) << package;
}

TEST_F(PackageMachine, OfADesktopWithPipeWireKeepsItsSoundInTheTests) {
  for (const char* list : {"packages.txt", "tests/system/stage/packages.txt", "tests/packages.txt"})
    Take(list);
  Has({"pipewire", "pipewire-pulse", "pipewire-alsa", "wireplumber"});
  Write("conflicts/pulseaudio", "pipewire-alsa pipewire-pulse");
  EXPECT_EQ(Install("tests/system/stage/packages.txt tests/packages.txt"), 0) << Said;
  EXPECT_FALSE(IsThere("pulseaudio"));
  EXPECT_TRUE(IsThere("xvfb"));
  EXPECT_TRUE(IsThere("libgtest-dev"));
}

}  // namespace
}  // namespace marlex
