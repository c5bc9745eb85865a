#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "places.h"

namespace marlex {
namespace {

namespace fs = std::filesystem;

std::string Text(const fs::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

/// The exit code of a shell command; its output is in `said`.
int Shell(const std::string& command, std::string& said) {
  FILE* const pipe = popen((command + " 2>&1").c_str(), "r");
  char part[4096];
  said.clear();
  while (std::size_t count = std::fread(part, 1, sizeof part, pipe)) said.append(part, count);
  return WEXITSTATUS(pclose(pipe));
}

bool Has(const std::string& program) {
  std::string said;
  return Shell("command -v " + program, said) == 0;
}

/// The tree that `cmake --install` makes, once for all tests.
class InstalledTree : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    std::string pattern = (fs::temp_directory_path() / "tree_XXXXXX").string();
    Root = mkdtemp(pattern.data());
    std::string said;
    ASSERT_EQ(Shell("cmake --install " MARLEX_BINARY_DIR " --prefix " + Root.string(), said), 0)
        << said;
  }
  static void TearDownTestSuite() { fs::remove_all(Root); }

  static std::set<std::string> Files() {
    std::set<std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(Root))
      if (!entry.is_directory()) files.insert(fs::relative(entry.path(), Root).string());
    return files;
  }

  static inline fs::path Root;
  static inline const std::string Entry = "share/applications/marlex.desktop";
  static inline const std::string AmplifierEntry = "share/applications/marlex-amplifier.desktop";
  static inline const std::string Metadata = "share/metainfo/marlex.tolvo.marlex.metainfo.xml";
};

TEST_F(InstalledTree, HoldsWhatBelongsToTheProgramAndNothingElse) {
  std::set<std::string> expected = {"bin/marlex",
                                    "bin/marlex-amplifier",
                                    "bin/marlex-unattended",
                                    "lib/systemd/user/marlex.service",
                                    "lib/udev/rules.d/60-marlex.rules",
                                    "libexec/marlex/marlex-program",
                                    AmplifierEntry,
                                    Entry,
                                    Metadata,
                                    "share/doc/marlex/installing.html",
                                    "share/doc/marlex/manual.html",
                                    "share/doc/marlex/older_desk.html",
                                    "share/icons/hicolor/scalable/apps/marlex.svg",
                                    "share/man/man1/marlex-amplifier.1",
                                    "share/man/man1/marlex-unattended.1",
                                    "share/man/man1/marlex.1"};
  for (const char* size : {"16", "22", "24", "32", "48", "64", "128", "256", "512"})
    expected.insert("share/icons/hicolor/" + std::string(size) + "x" + size + "/apps/marlex.png");
  for (const auto& picture : fs::directory_iterator(MARLEX_SOURCE_DIR "/docs/pictures"))
    expected.insert("share/doc/marlex/pictures/" + picture.path().filename().string());
  EXPECT_EQ(Files(), expected);
}

TEST_F(InstalledTree, HasCommandsAndAProgramThatAnybodyMayStart) {
  const fs::perms anybody = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
  for (const char* file : {"bin/marlex", "bin/marlex-amplifier", "bin/marlex-unattended",
                           "libexec/marlex/marlex-program"})
    EXPECT_EQ(fs::status(Root / file).permissions() & anybody, anybody) << file;
  std::string said;
  EXPECT_EQ(Shell((Root / "bin/marlex --help").string(), said), 0);
  EXPECT_NE(said.find("Usage: marlex [FOLDER]"), std::string::npos) << said;
  EXPECT_EQ(Shell((Root / "bin/marlex-amplifier --help").string(), said), 0);
  EXPECT_NE(said.find("Usage: marlex-amplifier [--box] [FOLDER]"), std::string::npos) << said;
}

TEST_F(InstalledTree, HasHardenedPrograms) {
  const std::string programs =
      (Root / "libexec/marlex/marlex-program ").string() + (Root / "bin/marlex-amplifier").string();
  std::string said;
  EXPECT_EQ(Shell(MARLEX_SOURCE_DIR "/tools/hardened " + programs, said), 0);
  EXPECT_EQ(said, "");
}

TEST_F(InstalledTree, IsCheckedForEachProtectionThatAProgramMayLack) {
  const std::string bare = (Root / "bare").string();
  std::string said;
  ASSERT_EQ(
      Shell("echo 'int main() {}' | c++ -x c++ -o " + bare +
                " -no-pie -fno-stack-protector -Wl,-z,lazy,-z,norelro,-z,execstack,-rpath,/x -",
            said),
      0)
      << said;
  EXPECT_EQ(Shell(MARLEX_SOURCE_DIR "/tools/hardened " + bare, said), 1);
  for (const char* lack : {"not position-independent", "not a position-independent executable",
                           "binds functions when they are first called",
                           "no segment that is read-only after relocation",
                           "the stack is executable", "looks for libraries in a path of its own",
                           "no stack protector", "no fortified call"})
    EXPECT_NE(said.find(bare + ": " + lack + "\n"), std::string::npos) << lack << "\n" << said;
#ifdef __x86_64__
  EXPECT_NE(said.find("no landing pads for indirect jumps\n"), std::string::npos) << said;
#endif
  fs::remove(bare);
}

/// The service manager itself cannot check it without a session.
TEST_F(InstalledTree, HasAServiceThatStartsItsCommand) {
  const std::string service = Text(Root / "lib/systemd/user/marlex.service");
  const std::regex start("\nExecStart=/[^\n]*/bin/marlex %E/marlex/unattended\n");
  EXPECT_TRUE(std::regex_search(service, start)) << service;
  const std::size_t section = service.find("\n[Service]\n");
  ASSERT_NE(section, std::string::npos);
  for (const char* line : {"PartOf=graphical-session.target", "StartLimitIntervalSec=0",
                           "ConditionPathIsSymbolicLink=%E/marlex/unattended"})
    EXPECT_LT(service.find("\n" + std::string(line) + "\n"), section) << line;
  for (const char* line : {"Type=notify", "WatchdogSec=30", "WatchdogSignal=SIGKILL",
                           "TimeoutStopSec=10", "Restart=on-failure", "RestartSec=1"})
    EXPECT_NE(service.find("\n" + std::string(line) + "\n", section), std::string::npos) << line;
}

TEST_F(InstalledTree, HasIconsOfTheSizesOfTheirFolders) {
  for (const unsigned size : {16u, 22u, 24u, 32u, 48u, 64u, 128u, 256u, 512u}) {
    const std::string folder = std::to_string(size) + "x" + std::to_string(size);
    const std::string icon = Text(Root / "share/icons/hicolor" / folder / "apps/marlex.png");
    ASSERT_GT(icon.size(), 24u) << folder;
    for (const std::size_t place : {16u, 20u}) {  // width and height, high byte first
      const unsigned high = static_cast<unsigned char>(icon[place + 2]);
      const unsigned low = static_cast<unsigned char>(icon[place + 3]);
      EXPECT_EQ(high << 8 | low, size);
    }
  }
}

TEST_F(InstalledTree, HasValidDesktopEntriesForItsCommandsAndIcon) {
  for (const auto& [file, command] :
       {std::pair(Entry, "marlex"), std::pair(AmplifierEntry, "marlex-amplifier --box")}) {
    const std::string entry = Text(Root / file);
    EXPECT_NE(entry.find("\nExec=" + std::string(command) + "\n"), std::string::npos) << file;
    EXPECT_NE(entry.find("\nIcon=marlex\n"), std::string::npos) << file;
  }
  if (!Has("desktop-file-validate")) GTEST_SKIP() << "desktop-file-utils is not installed";
  for (const std::string& file : {Entry, AmplifierEntry}) {
    std::string said;
    EXPECT_EQ(Shell("desktop-file-validate " + (Root / file).string(), said), 0);
    EXPECT_EQ(said, "");
  }
}

TEST_F(InstalledTree, HasValidMetadata) {
  EXPECT_NE(Text(Root / Metadata).find(">marlex.desktop<"), std::string::npos);
  if (!Has("appstreamcli")) GTEST_SKIP() << "appstream is not installed";
  std::string said;
  EXPECT_EQ(Shell("appstreamcli validate --no-net " + (Root / Metadata).string(), said), 0) << said;
  EXPECT_EQ(said.find("W:"), std::string::npos) << said;
}

TEST_F(InstalledTree, HasTheVersionOfThePackage) {
  const std::string changelog = Text(MARLEX_SOURCE_DIR "/debian/changelog");
  const std::size_t begin = changelog.find('(') + 1;
  const std::string version = changelog.substr(begin, changelog.find(')') - begin);
  const std::string metadata = Text(Root / Metadata);
  const std::string newest = "<releases>\n    <release version=\"" + version + "\"";
  EXPECT_NE(metadata.find(newest), std::string::npos) << version;
}

/// The first text of the main window says what the program is, in each language.
TEST_F(InstalledTree, NamesTheProgramAsItNamesItself) {
  const std::string entry = Text(Root / Entry);
  const std::string metadata = Text(Root / Metadata);
  int languages = 0;
  for (const auto& file : fs::directory_iterator(MARLEX_SOURCE_DIR "/src/i18n/strings")) {
    const std::string texts = Text(file.path());
    const std::size_t begin = texts.find('"') + 1;
    const std::string name = texts.substr(begin, texts.find('"', begin) - begin);
    EXPECT_NE(entry.find("=" + name + "\n"), std::string::npos) << file.path() << ": " << name;
    EXPECT_NE(metadata.find(">" + name + "</summary>"), std::string::npos) << file.path();
    ++languages;
  }
  EXPECT_EQ(languages, 14);
}

TEST_F(InstalledTree, HasAManualWithAllItsPicturesAndPages) {
  const std::vector<std::pair<std::string, std::string>> pages = {
      {"manual", "Using Tolvo Marlex"},
      {"installing", "Installing Tolvo Marlex"},
      {"older_desk", "Files from an older desk"}};
  const fs::path folder = Root / "share/doc/marlex";
  const std::regex reference("(src|href)=\"([^\"]*)\"");
  int references = 0;
  for (const auto& [name, title] : pages) {
    const std::string page = Text(folder / (name + ".html"));
    EXPECT_NE(page.find("<title>" + title + "</title>"), std::string::npos) << name;
    for (std::sregex_iterator at(page.begin(), page.end(), reference), end; at != end; ++at) {
      EXPECT_TRUE(fs::exists(folder / (*at)[2].str())) << name << ": " << (*at)[2];
      ++references;
    }
    EXPECT_EQ(page.find("]("), std::string::npos) << "a link has been left as it is written";
  }
  EXPECT_GT(references, 8);
}

TEST_F(InstalledTree, HasManPagesThatFormatCleanly) {
  if (!Has("man")) GTEST_SKIP() << "man-db is not installed";
  std::string said;
  for (const char* name : {"marlex.1", "marlex-amplifier.1", "marlex-unattended.1"}) {
    const std::string page = (Root / "share/man/man1" / name).string();
    EXPECT_EQ(Shell("(LC_ALL=C MANWIDTH=80 man --warnings -l " + page + " > /dev/null)", said), 0);
    EXPECT_EQ(said, "") << name;
  }
}

}  // namespace
}  // namespace marlex
