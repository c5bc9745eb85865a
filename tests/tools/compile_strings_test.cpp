#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "places.h"

namespace marlex {
namespace {

/// A folder with one language file, and the result of compiling it.
class CompileStrings : public ::testing::Test {
 protected:
  ~CompileStrings() override { std::filesystem::remove_all(Folder); }

  void Compile(const std::string& lines) {
    std::filesystem::create_directories(Folder / "strings");
    std::ofstream(Folder / "strings" / "Latin.txt") << lines;
    const std::string command = "cmake -DSTRINGS=" + (Folder / "strings").string() +
                                " -DOUTPUT=" + (Folder / "out.inc").string() +
                                " -P " MARLEX_SOURCE_DIR "/src/i18n/compile_strings.cmake > " +
                                (Folder / "log").string() + " 2>&1";
    Succeeded = std::system(command.c_str()) == 0;
    Log = Text(Folder / "log");
    Compiled = Text(Folder / "out.inc");
  }

  static std::string Text(const std::filesystem::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  const std::filesystem::path Folder =
      std::filesystem::temp_directory_path() / ("strings-" + std::to_string(::getpid()));
  bool Succeeded = false;
  std::string Log, Compiled;
};

TEST_F(CompileStrings, MakeAnEntryOfEachLine) {
  Compile("10 \" Musica; [lenta \"\n20 \"\\\"Vox\\\" é\"\n");
  ASSERT_TRUE(Succeeded) << Log;
  EXPECT_EQ(Compiled,
            "constexpr StringEntry kLatin[] = {\n"
            "    {10, \" Musica; [lenta \"},\n"
            "    {20, \"\\\"Vox\\\" é\"},\n"
            "};\n"
            "constexpr StringBlock kStringBlocks[] = {\n"
            "    {\"Latin\", kLatin},\n"
            "};\n");
}

TEST_F(CompileStrings, StopAtAFaultyLineByFileAndLine) {
  for (const char* faulty :
       {"30 Vox", "30", "\"Vox\"", "30  \"Vox\"", "30 \"Vox", "30 \"\"", "", "30 \"Vo\"x\"",
        "30 \"Vox\" ", "x \"Vox\"", "030 \"Vox\"", "30 \"\\n\""}) {
    Compile("10 \"Musica\"\n20 \"Hora\"\n" + std::string(faulty) + "\n40 \"Dies\"\n");
    EXPECT_FALSE(Succeeded) << faulty;
    EXPECT_NE(Log.find("Latin.txt:3: "), std::string::npos) << faulty << "\n" << Log;
  }
}

TEST_F(CompileStrings, StopAtAnIdThatDoesNotAscend) {
  for (const char* id : {"20", "15"}) {
    Compile("10 \"Musica\"\n20 \"Hora\"\n" + std::string(id) + " \"Dies\"\n");
    EXPECT_FALSE(Succeeded) << id;
    EXPECT_NE(Log.find("Latin.txt:3: "), std::string::npos) << Log;
  }
}

}  // namespace
}  // namespace marlex
