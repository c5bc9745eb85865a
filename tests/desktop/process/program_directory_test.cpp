#include "desktop/process/program_directory.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "desktop/files/temporary_directory.h"

namespace marlex {
namespace {

namespace fs = std::filesystem;

/// A disk with a package's program, and folders that lead to it.
class ProgramDirectory : public testing::Test {
 protected:
  ProgramDirectory() {
    for (const char* folder : {"package", "desk", "menu"}) fs::create_directories(Root / folder);
    std::ofstream(Program) << "program";
  }
  ~ProgramDirectory() override { fs::remove_all(Root); }

  const fs::path Root =
      fs::canonical(fs::temp_directory_path()) / ("program-directory-" + std::to_string(getpid()));
  const fs::path Program = Root / "package" / kPackagedProgram;
};

TEST_F(ProgramDirectory, OfAPackageIsThatOfTheLink) {
  fs::create_symlink(Program, Root / "desk/marlex");
  EXPECT_EQ(LinkDirectory(Program, Root / "desk/marlex"), Root / "desk");
}

TEST_F(ProgramDirectory, OfAPackageIsThatOfTheLastOfSeveralLinks) {
  fs::create_symlink("../package/marlex-program", Root / "desk/marlex");
  fs::create_symlink("../desk/marlex", Root / "menu/Marlex");
  EXPECT_EQ(LinkDirectory(Program, Root / "menu/Marlex"), Root / "desk");
}

TEST_F(ProgramDirectory, HasNoLinksInItself) {
  fs::create_symlink(Program, Root / "desk/marlex");
  fs::create_directory_symlink("desk", Root / "way");
  EXPECT_EQ(LinkDirectory(Program, Root / "way/marlex"), Root / "desk");
}

TEST_F(ProgramDirectory, IsAbsoluteAfterAStartFromWithinTheFolder) {
  fs::create_symlink(Program, Root / "desk/marlex");
  const fs::path before = fs::current_path();
  fs::current_path(Root / "desk");
  EXPECT_EQ(LinkDirectory(Program, "marlex"), Root / "desk");
  EXPECT_EQ(LinkDirectory(Program, "./marlex"), Root / "desk");
  fs::current_path(before);
}

TEST_F(ProgramDirectory, OfAnInstallationsOwnProgramIsNeverThatOfALink) {
  fs::rename(Program, Root / "desk/marlex");
  fs::create_symlink(Root / "desk/marlex", Root / "menu/Marlex");
  EXPECT_EQ(LinkDirectory(Root / "desk/marlex", Root / "menu/Marlex"), "");
}

TEST_F(ProgramDirectory, IsUnknownWithoutALinkToTheProgram) {
  EXPECT_EQ(LinkDirectory(Program, Program), "");
  EXPECT_EQ(LinkDirectory(Program, ""), "");
  fs::create_symlink("nowhere", Root / "desk/marlex");
  EXPECT_EQ(LinkDirectory(Program, Root / "desk/marlex"), "");
  fs::create_symlink("circle", Root / "desk/circle");
  EXPECT_EQ(LinkDirectory(Program, Root / "desk/circle"), "");
}

TEST(StartedPath, IsThatOfThisProgram) {
  EXPECT_TRUE(fs::equivalent(StartedPath(), "/proc/self/exe"));
}

/// Started again, by a link, this test says by which path.
TEST(StartedPath, IsThatOfTheLinkThatStartedIt) {
  if (const char* said = getenv("MARLEX_SAID")) {
    std::ofstream(said) << StartedPath().string();
    return;
  }
  const test::TemporaryDirectory folder;
  const std::string link = folder.Path("link");
  fs::create_symlink(fs::read_symlink("/proc/self/exe"), link);
  const std::string start = "env -u GTEST_TOTAL_SHARDS MARLEX_SAID=" + folder.Path("said") + " " +
                            link +
                            " --gtest_filter=StartedPath.IsThatOfTheLinkThatStartedIt > /dev/null";
  EXPECT_EQ(std::system(start.c_str()), 0);
  EXPECT_EQ(folder.Read("said"), link);
}

}  // namespace
}  // namespace marlex
