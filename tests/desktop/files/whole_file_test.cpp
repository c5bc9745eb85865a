#include "desktop/files/whole_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "desktop/files/temporary_directory.h"

namespace marlex::test {
namespace {

namespace fs = std::filesystem;

TEST(WholeFile, GivesEveryByteOfTheFile) {
  const TemporaryDirectory directory;
  std::string text(200000, '\0');
  for (std::size_t at = 0; at < text.size(); ++at) text[at] = static_cast<char>(at % 251);
  const WholeFile file = ReadWholeFile(directory.Write("a", text));
  EXPECT_EQ(file.State, FileState::Read);
  EXPECT_EQ(file.Text, text);
  EXPECT_EQ(ReadWholeFile(directory.Write("b", "")).State, FileState::Read);
}

TEST(WholeFile, IsAbsentWhereThereIsNoSuchName) {
  const TemporaryDirectory directory;
  directory.Write("file", "");
  fs::create_symlink("gone", directory.Path("dangling"));
  for (const char* name : {"gone", "gone/gone", "file/gone", "dangling"}) {
    EXPECT_EQ(ReadWholeFile(directory.Path(name)).State, FileState::Absent) << name;
  }
  EXPECT_EQ(ReadWholeFile("").State, FileState::Absent);
}

TEST(WholeFile, IsUnreadableWhenItIsNoRegularFile) {
  const TemporaryDirectory directory;
  ASSERT_EQ(::mkfifo(directory.Path("pipe").c_str(), 0666), 0);
  EXPECT_EQ(ReadWholeFile(directory.Path("pipe")).State, FileState::Unreadable);
  EXPECT_EQ(ReadWholeFile(directory.Path()).State, FileState::Unreadable);
  EXPECT_EQ(ReadWholeFile("/dev/zero").State, FileState::Unreadable);
}

TEST(WholeFile, IsUnreadableWhenItsMediumFails) {
  // A process's own memory is a regular file that can be opened; reading it at address 0 fails like
  // a bad sector.
  const WholeFile file = ReadWholeFile("/proc/self/mem");
  EXPECT_EQ(file.State, FileState::Unreadable);
  EXPECT_EQ(file.Text, "");
}

TEST(WholeFile, IsUnreadableWhenItIsFarTooLarge) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a", "[S]\n");
  fs::resize_file(file, std::uintmax_t{1} << 40);  // a sparse file, which takes no space
  EXPECT_EQ(ReadWholeFile(file).State, FileState::Unreadable);
}

TEST(WholeFile, ReplacesATextByAShorterOne) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a", "a long text");
  EXPECT_TRUE(ReplaceFile(file, "short"));
  EXPECT_EQ(directory.Read("a"), "short");
  EXPECT_TRUE(ReplaceFile(file, ""));
  EXPECT_EQ(directory.Read("a"), "");
}

}  // namespace
}  // namespace marlex::test
