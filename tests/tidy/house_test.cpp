#include <gtest/gtest.h>

#include <sstream>

#include "places.h"
#include "tidy/house_rules.h"

namespace marlex {
namespace {

const SourceTree& House() {
  static const SourceTree sources = ReadSources(MARLEX_SOURCE_DIR, "src");
  return sources;
}

TEST(House, IsRead) {
  EXPECT_TRUE(House().contains("src/platform/event_loop.h"));
  EXPECT_TRUE(House().contains("src/core/system.cpp"));
  EXPECT_GT(House().size(), 150u);
}

TEST(House, IncludesPointDownwardsOnly) { EXPECT_EQ(ClimbingIncludes(House()), ""); }

TEST(House, NoTwoModulesIncludeEachOtherEvenByADetour) { EXPECT_EQ(CircularIncludes(House()), ""); }

TEST(House, TheSystemKnowsNoPc) { EXPECT_EQ(ForeignWords(House()), ""); }

TEST(House, LinesAndFilesAreShort) { EXPECT_EQ(Oversizes(House()), ""); }

TEST(House, EverySuppressionHasAReason) {
  for (const char* directory : {"src", "tests", "benchmarks"})
    EXPECT_EQ(BareSuppressions(ReadSources(MARLEX_SOURCE_DIR, directory)), "");
}

TEST(House, EveryHeaderIsGuarded) { EXPECT_EQ(UnguardedHeaders(House()), ""); }

TEST(House, ItsTestsAreTidyToo) {
  const SourceTree tests = ReadSources(MARLEX_SOURCE_DIR, "tests");
  EXPECT_EQ(UnguardedHeaders(tests), "");
  EXPECT_EQ(Oversizes(tests), "");
  EXPECT_EQ(LongTitles(tests), "");
}

// The rules themselves, tested on small houses that break them.

/// A file's path and text.
using File = std::pair<std::string, std::string>;

SourceTree Tree(const std::vector<File>& files) {
  SourceTree sources;
  for (const auto& [path, text] : files) {
    std::istringstream lines(text);
    std::vector<std::string>& read = sources[path];
    for (std::string line; std::getline(lines, line);) read.push_back(line);
  }
  return sources;
}

TEST(HouseRules, AnIncludeUpwardsIsNamedWithItsPlace) {
  EXPECT_EQ(ClimbingIncludes(Tree({{"src/link/serial_link.h", ""},
                                   {"src/mixer/panel.h", "\n#include \"link/serial_link.h\"\n"},
                                   {"src/link/panel.cpp", "#include \"mixer/panel.h\"\n"}})),
            "src/mixer/panel.h:2: includes src/link/serial_link.h, and link/ does not lie below "
            "mixer/\n");
}

TEST(HouseRules, TheTwoPcsDoNotKnowEachOther) {
  EXPECT_EQ(ClimbingIncludes(Tree({{"src/simulation/disk.h", ""},
                                   {"src/desktop/disk.cpp", "#include \"simulation/disk.h\"\n"}})),
            "src/desktop/disk.cpp:1: includes src/simulation/disk.h, and simulation/ does not lie "
            "below desktop/\n");
}

TEST(HouseRules, AFolderWithoutAFloorIsNamed) {
  EXPECT_EQ(ClimbingIncludes(Tree({{"src/cellar/wine.h", ""}})),
            "src/cellar/wine.h:1: no floor has this folder; give it one in kFloors\n");
}

TEST(HouseRules, AnIncludeIsWrittenFromTheRootOfTheSources) {
  EXPECT_EQ(ClimbingIncludes(Tree({{"src/music/fades.cpp", "#include \"fades.h\"\n"}})),
            "src/music/fades.cpp:1: src/fades.h is not there; write includes from src/\n");
  EXPECT_EQ(ClimbingIncludes(Tree({{"src/desktop/views.cpp", "#include \"ui_frm_main.h\"\n"}})),
            "");
}

TEST(HouseRules, ACircleIsNamedWithItsWholeWay) {
  EXPECT_EQ(
      CircularIncludes(Tree({{"src/music/a.h", "#include \"music/b.h\"\n"},
                             {"src/music/b.cpp", "\n#include \"music/c.h\"\n"},
                             {"src/music/c.h", "#include \"music/a.h\"\n"},
                             {"src/music/d.h", "#include \"music/a.h\"\n"}})),
      "a circle of includes: src/music/a.h:1 includes src/music/b, src/music/b.cpp:2 includes "
      "src/music/c, src/music/c.h:1 includes src/music/a; split the lower half of one off, or hand "
      "a "
      "callback in\n");
}

TEST(HouseRules, ASourceFileMayIncludeItsOwnHeader) {
  EXPECT_EQ(CircularIncludes(
                Tree({{"src/music/a.h", ""}, {"src/music/a.cpp", "#include \"music/a.h\"\n"}})),
            "");
}

TEST(HouseRules, EveryForeignWordIsAnsweredWithThePortToUse) {
  const std::vector<std::pair<std::string, std::string>> words = {
      {"#include <QString>", "Qt: write to the controls of controls/ instead"},
      {"#include <pulse/pulseaudio.h>",
       "PulseAudio: use SongPlayer, WavePlayer or MixerFunctions instead"},
      {"#include <alsa/asoundlib.h>", "ALSA: use MixerFunctions instead"},
      {"#include <mpg123.h>", "sound files: use SongPlayer or WavePlayer instead"},
      {"#include <termios.h>", "a terminal: use SerialPort instead"},
      {"#include <dirent.h>", "POSIX files: use ProfileFiles or Directories instead"},
      {"#include <unistd.h>", "POSIX: use Process or EventLoop instead"},
      {"#  include <sys/wait.h>", "POSIX: use Process or EventLoop instead"},
      {"#include <curl/curl.h>", "not the C++ standard library: add a port to platform/ instead"},
      {"auto now = std::chrono::system_clock::now();",
       "a clock: use WallClock, or a Timer of EventLoop, instead"},
      {"using Clock = std::chrono::steady_clock;",
       "a clock: use WallClock, or a Timer of EventLoop, instead"},
      {"const auto now = std::time(nullptr);", "a clock: use WallClock instead"},
      {"#include <fstream>", "files: use ProfileFiles or Directories instead"},
      {"if (std::filesystem::exists(path)) {", "files: use Directories instead"},
      {"std::cerr << text;", "a console: use Dialogs instead"},
      {"std::exit(1);", "the process: use Process instead"},
      {"#include <thread>", "threads: the system has one, use EventLoop instead"}};
  for (const auto& [line, advice] : words) {
    EXPECT_EQ(ForeignWords(Tree({{"src/music/fades.cpp", "\n" + line}})),
              "src/music/fades.cpp:2: " + advice + "\n");
    EXPECT_EQ(ForeignWords(Tree({{"src/desktop/sound/engine.cpp", line}})), "");
  }
}

TEST(HouseRules, TheSimulatedPcMayHaveAThreadButNoClock) {
  EXPECT_EQ(ForeignWords(Tree({{"src/simulation/loop.h", "#include <thread>"}})), "");
  EXPECT_NE(ForeignWords(Tree({{"src/simulation/loop.h", "std::chrono::steady_clock"}})), "");
}

TEST(HouseRules, ATitleOfSixtyCharactersIsTooLong) {
  const std::string longest(59, 'x');
  EXPECT_EQ(
      LongTitles(Tree({{"tests/a_test.cpp", "TEST(Fades, " + longest + ") {\n" +
                                                "TEST_F(Fades,\n       " + longest + "x) {\n"}})),
      "tests/a_test.cpp:3: the title has 60 characters or more; say it shorter\n");
}

TEST(HouseRules, ALineOfAHundredAndOneCharactersIsTooLong) {
  const std::string hundred(100, 'x');
  EXPECT_EQ(Oversizes(Tree({{"src/music/fades.h", hundred + "\n" + hundred + "x"}})),
            "src/music/fades.h:2: the line has more than 100 characters\n");
  std::string greek = hundred;
  greek.replace(0, 1, "λ");
  EXPECT_EQ(Oversizes(Tree({{"src/i18n/greek.cpp", greek}})), "");
}

TEST(HouseRules, AFileOfFiveHundredAndOneLinesIsTooLong) {
  EXPECT_EQ(Oversizes(Tree({{"src/music/fades.h", std::string(500, '\n')}})), "");
  EXPECT_EQ(Oversizes(Tree({{"src/music/fades.h", std::string(501, '\n')}})),
            "src/music/fades.h:501: the file has more than 500 lines; split it\n");
}

TEST(HouseRules, ASuppressionWithoutItsCheckOrReasonIsNamed) {
  const std::string mark = "int x;  // NO" + std::string("LINT");  // hidden from the rule itself
  for (const char* bare :
       {"", "(bugprone-x)", "(bugprone-x) because", "(bugprone-x): ", "(bugprone-*): the linker",
        "(*): the linker", ": the linker", "NEXTLINE(bugprone-x)", "BEGIN(bugprone-x)", "BEGIN"})
    EXPECT_EQ(BareSuppressions(Tree({{"src/a/x.cpp", "\n" + mark + bare}})),
              "src/a/x.cpp:2: say why, and name the check: NO"
              "LINT(check): reason\n")
        << bare;
  for (const char* good : {"(bugprone-x): the linker", "NEXTLINE(bugprone-x): the linker",
                           "BEGIN(bugprone-x,misc-y): the linker", "END(bugprone-x)"})
    EXPECT_EQ(BareSuppressions(Tree({{"src/a/x.cpp", mark + good}})), "") << good;
}

TEST(HouseRules, AHeaderWithoutItsGuardIsNamed) {
  EXPECT_EQ(UnguardedHeaders(Tree({{"src/a/good.h", "#pragma once\n"},
                                   {"src/a/bad.h", "\n#pragma once\n"},
                                   {"src/a/empty.h", ""},
                                   {"src/a/source.cpp", "int x;\n"}})),
            "src/a/bad.h:1: the header does not begin with #pragma once\n"
            "src/a/empty.h:1: the header does not begin with #pragma once\n");
}

}  // namespace
}  // namespace marlex
