#include <unistd.h>

#include "tools/machine.h"

namespace marlex {
namespace {

namespace fs = std::filesystem;

/// A machine with the command `marlex` and a program that says where it was started.
class Launcher : public Machine {
 protected:
  void SetUp() override {
    Machine::SetUp();
    Take("install/marlex");
    Put("usr");
    fs::create_symlink("/bin/sh", Root / "tools/sh");
    fs::create_symlink("/usr/bin/readlink", Root / "tools/readlink");
  }

  /// Installs the package below a prefix.
  void Put(const std::string& prefix, const std::string& version = "1") const {
    fs::create_directories(Root / prefix / "bin");
    fs::copy(Root / "project/install/marlex", Root / prefix / "bin/marlex",
             fs::copy_options::overwrite_existing);
    Program(prefix + "/libexec/marlex/marlex-program", "echo \"version " + version + ": $0\"");
  }

  int Start(const std::string& folder = "") { return Run("../usr/bin/marlex " + folder); }

  /// What the program says that was started in a folder of the machine.
  std::string StartedIn(const std::string& folder, const std::string& version = "1") const {
    return "version " + version + ": " + fs::canonical(Root / folder).string() + "/marlex\n";
  }

  const std::string Default = ".local/share/marlex";
};

TEST_F(Launcher, MakesTheOperatorsFolderAtTheFirstStart) {
  EXPECT_EQ(Start(), 0);
  EXPECT_EQ(Said, StartedIn(Default));
  EXPECT_TRUE(fs::is_symlink(Root / Default / "marlex"));
}

TEST_F(Launcher, FollowsTheOperatorsDataDirectory) {
  EXPECT_EQ(Run("../usr/bin/marlex", "XDG_DATA_HOME=" + (Root / "data").string()), 0);
  EXPECT_EQ(Said, StartedIn("data/marlex"));
}

TEST_F(Launcher, KeepsTheFilesOfAFolderAtEachStart) {
  Start();
  Write(Default + "/Tolvo.ini", "settings");
  const auto made = fs::last_write_time(Root / Default);
  EXPECT_EQ(Start(), 0);
  EXPECT_EQ(Said, StartedIn(Default));
  EXPECT_EQ(Read(Default + "/Tolvo.ini"), "settings");
  EXPECT_EQ(fs::last_write_time(Root / Default), made) << "the link was made again";
}

TEST_F(Launcher, StartsInTheGivenFolder) {
  EXPECT_EQ(Start("'../two desks/upper'"), 0);
  EXPECT_EQ(Said, StartedIn("two desks/upper"));
  EXPECT_EQ(Start("'../two desks/lower'"), 0);
  EXPECT_EQ(Said, StartedIn("two desks/lower"));
  EXPECT_FALSE(fs::exists(Root / Default));
}

TEST_F(Launcher, StartsTheUpdatedProgramInEachFolder) {
  Start("../upper");
  Start("../lower");
  Put("usr", "2");
  for (const char* folder : {"upper", "lower"}) {
    EXPECT_EQ(Run("../" + std::string(folder) + "/marlex"), 0);
    EXPECT_TRUE(Says("version 2: ")) << Said;
    EXPECT_EQ(Start("../" + std::string(folder)), 0);
    EXPECT_EQ(Said, StartedIn(folder, "2"));
  }
}

TEST_F(Launcher, OfAnotherPlaceTakesTheFolderOver) {
  Start("../desk");
  Put("opt", "2");
  EXPECT_EQ(Run("../opt/bin/marlex ../desk"), 0) << Said;
  EXPECT_EQ(Said, StartedIn("desk", "2"));
  fs::remove_all(Root / "opt");
  EXPECT_EQ(Start("../desk"), 0) << Said;
  EXPECT_EQ(Said, StartedIn("desk", "1"));
}

TEST_F(Launcher, LeavesAnInstallationWithAProgramOfItsOwnAsItIs) {
  Write("desk/marlex", "a program of its own");
  Write("desk/Tolvo.ini", "settings");
  EXPECT_EQ(Start("../desk"), 0);
  EXPECT_EQ(Said, "version 1: " + (fs::canonical(Root) / "desk/marlex-installed\n").string());
  EXPECT_EQ(Read("desk/marlex"), "a program of its own");
  EXPECT_EQ(Read("desk/Tolvo.ini"), "settings");
}

TEST_F(Launcher, LeavesALinkToAnotherProgramAsItIs) {
  Program("mine/marlex", "echo mine");
  fs::create_directories(Root / "desk");
  fs::create_symlink(Root / "mine/marlex", Root / "desk/marlex");
  EXPECT_EQ(Start("../desk"), 0);
  EXPECT_EQ(fs::read_symlink(Root / "desk/marlex"), Root / "mine/marlex");
}

TEST_F(Launcher, RefusesAFolderThatIsAFile) {
  Write("desk", "a file");
  EXPECT_EQ(Start("../desk"), 1);
  EXPECT_EQ(Said, "marlex: ../desk is a file, not a folder\n");
  EXPECT_EQ(Read("desk"), "a file");
}

TEST_F(Launcher, RefusesAFolderThatCannotBeMade) {
  Write("desk", "a file");
  EXPECT_EQ(Start("../desk/lower"), 1);
  EXPECT_TRUE(Says("marlex: the folder ../desk/lower cannot be created\n")) << Said;
}

/// Root may write everywhere, so it asks as somebody else.
TEST_F(Launcher, RefusesAFolderThatCannotBeWritten) {
  const fs::perms readable = fs::perms(0755);
  for (const char* place : {"", "usr/libexec/marlex/marlex-program"})
    fs::permissions(Root / place, readable);
  fs::create_directory(Root / "desk");
  fs::permissions(Root / "desk", fs::perms(0555));
  const std::string somebody = geteuid() == 0 ? "setpriv --reuid 65534 --clear-groups " : "";
  EXPECT_EQ(Run(somebody + "../usr/bin/marlex ../desk"), 1);
  EXPECT_EQ(Said, "marlex: the folder " + (fs::canonical(Root) / "desk").string() +
                      " cannot be written\n");
}

TEST_F(Launcher, RefusesAFolderWithoutRoomForALink) {
  EXPECT_EQ(Start("/proc"), 1);
  EXPECT_TRUE(Says("marlex: /proc cannot hold a link to the program\n") ||
              Says("marlex: the folder /proc cannot be written\n"))
      << Said;
}

TEST_F(Launcher, RefusesAnEmptyName) {
  EXPECT_EQ(Start("''"), 1);
  EXPECT_EQ(Said, "marlex: the name of the folder is empty\n");
}

TEST_F(Launcher, ExplainsItselfAndRefusesWhatItDoesNotKnow) {
  EXPECT_EQ(Start("--help"), 0);
  EXPECT_TRUE(Says("Usage: marlex [FOLDER]")) << Said;
  EXPECT_EQ(Start("--fast"), 2);
  EXPECT_EQ(Start("../upper ../lower"), 2);
  EXPECT_FALSE(fs::exists(Root / "upper"));
  EXPECT_FALSE(fs::exists(Root / Default));
}

TEST_F(Launcher, WithoutItsProgramSaysSo) {
  fs::remove_all(Root / "usr/libexec");
  EXPECT_EQ(Start("../desk"), 1);
  EXPECT_TRUE(Says("marlex-program is missing: install the package again")) << Said;
  EXPECT_FALSE(fs::exists(Root / "desk"));
}

}  // namespace
}  // namespace marlex
