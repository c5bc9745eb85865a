#include "desktop/files/disk_profile_files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <string>

#include "desktop/files/forked_child.h"
#include "desktop/files/temporary_directory.h"

namespace marlex::test {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLimit = 1499;
constexpr mode_t kModeBits = 07777;

mode_t ModeOf(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & kModeBits : 0;
}

std::string Get(const std::string& file, const std::string& section, const std::string& key) {
  return DiskProfileFiles().GetString(section, key, file, kLimit);
}

bool Set(const std::string& file, const std::string& section, const std::string& key,
         const std::string& value) {
  return DiskProfileFiles().WriteString(section, key, value, file);
}

TEST(ProfileFiles, KeepTheModeAndTheOwnerOfTheFile) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a.ini", "[S]\nk=1\n");
  const bool root = ::geteuid() == 0;
  for (const mode_t mode : {0600U, 0640U, 0664U, 0755U}) {
    ASSERT_TRUE(!root || ::chown(file.c_str(), 65534, 65533) == 0);
    ASSERT_EQ(::chmod(file.c_str(), mode), 0);
    ASSERT_TRUE(Set(file, "S", "k", std::to_string(mode)));
    EXPECT_EQ(ModeOf(file), mode);
    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, root ? 65534 : ::geteuid());
    EXPECT_EQ(status.st_gid, root ? 65533 : ::getegid());
  }
}

TEST(ProfileFiles, CreateAFileUnderTheMaskOfTheProcess) {
  const TemporaryDirectory directory;
  const std::string file = directory.Path("a.ini");
  const bool created = TrueInAChild([&] { return (::umask(027), Set(file, "S", "k", "1")); });
  EXPECT_TRUE(created);
  EXPECT_EQ(ModeOf(file), 0640U);
}

TEST(ProfileFiles, WriteThroughASymbolicLinkThatStays) {
  const TemporaryDirectory directory;
  fs::create_directories(directory.Path("real"));
  directory.Write("real/a.ini", "[S]\nk=1\n");
  fs::create_symlink("real/a.ini", directory.Path("relative"));
  fs::create_symlink(directory.Path("relative"), directory.Path("absolute"));
  ASSERT_TRUE(Set(directory.Path("absolute"), "S", "k", "2"));
  EXPECT_TRUE(fs::is_symlink(directory.Path("relative")));
  EXPECT_TRUE(fs::is_symlink(directory.Path("absolute")));
  EXPECT_FALSE(fs::is_symlink(directory.Path("real/a.ini")));
  EXPECT_EQ(directory.Read("real/a.ini"), "[S]\nk=2\n");
}

TEST(ProfileFiles, CreateTheFileThatADanglingLinkNames) {
  const TemporaryDirectory directory;
  fs::create_symlink("b.ini", directory.Path("a.ini"));
  ASSERT_TRUE(Set(directory.Path("a.ini"), "S", "k", "2"));
  EXPECT_TRUE(fs::is_symlink(directory.Path("a.ini")));
  EXPECT_EQ(directory.Read("b.ini"), "[S]\r\nk=2\r\n");
}

TEST(ProfileFiles, FailOnLinksThatRunInACircle) {
  const TemporaryDirectory directory;
  fs::create_symlink("b.ini", directory.Path("a.ini"));
  fs::create_symlink("a.ini", directory.Path("b.ini"));
  EXPECT_EQ(Get(directory.Path("a.ini"), "S", "k"), "");
  EXPECT_FALSE(Set(directory.Path("a.ini"), "S", "k", "2"));
  EXPECT_EQ(directory.Entries(), 2);
}

TEST(ProfileFiles, LeaveAFileAloneThatHoldsTheValueAlready) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a.ini", "[S]\nk=1\n");
  struct stat before {};
  struct stat after {};
  ASSERT_EQ(::stat(file.c_str(), &before), 0);
  EXPECT_TRUE(Set(file, "s", "K", "1"));
  ASSERT_EQ(::stat(file.c_str(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);
  EXPECT_TRUE(Set(file, "s", "K", "2"));
  ASSERT_EQ(::stat(file.c_str(), &after), 0);
  EXPECT_NE(after.st_ino, before.st_ino);
}

TEST(ProfileFiles, FailWithoutATraceUnderANameThatTheSystemRefuses) {
  const TemporaryDirectory directory;
  EXPECT_FALSE(Set("/proc/a.ini", "S", "k", "1"));
  EXPECT_FALSE(Set(directory.Path(std::string(256, 'x')), "S", "k", "1"));
  EXPECT_EQ(directory.Entries(), 0);
}

TEST(ProfileFiles, TakeANameOfAnyLengthThatTheSystemTakes) {
  const TemporaryDirectory directory;
  const std::string name(255, 'x');
  EXPECT_TRUE(Set(directory.Path(name), "S", "k", "1"));
  EXPECT_EQ(Get(directory.Path(name), "S", "k"), "1");
}

TEST(ProfileFiles, FailWithoutATraceInADirectoryThatIsNotOurs) {
  const TemporaryDirectory directory;
  ASSERT_EQ(::chmod(directory.Path().c_str(), 0555), 0);
  const std::string file = directory.Write("a.ini", "[S]\nk=1\n");
  ASSERT_EQ(::chmod(file.c_str(), 0666), 0);
  EXPECT_TRUE(TrueInAChild([&] { return BecomeNobody() && !Set(file, "S", "k", "2"); }));
  EXPECT_EQ(directory.Read("a.ini"), "[S]\nk=1\n");
  EXPECT_EQ(directory.Entries(), 1);
}

TEST(ProfileFiles, NeitherWaitForAPipeNorReplaceIt) {
  const TemporaryDirectory directory;
  ASSERT_EQ(::mkfifo(directory.Path("a.ini").c_str(), 0666), 0);
  EXPECT_EQ(Get(directory.Path("a.ini"), "S", "k"), "");
  EXPECT_FALSE(Set(directory.Path("a.ini"), "S", "k", "1"));
  EXPECT_TRUE(fs::is_fifo(directory.Path("a.ini")));
  EXPECT_EQ(Get("/dev/zero", "S", "k"), "");
  EXPECT_FALSE(Set("/dev/full", "S", "k", "1"));
}

TEST(ProfileFiles, KeepTheOldFileWhenTheDiskIsFull) {
  const TemporaryDirectory directory;
  const std::string old = "[S]\nk=" + std::string(3000, 'o') + "\n";
  const std::string file = directory.Write("a.ini", old);
  EXPECT_TRUE(TrueInAChild([&] {
    const rlimit limit{2000, 2000};
    std::signal(SIGXFSZ, SIG_IGN);
    return ::setrlimit(RLIMIT_FSIZE, &limit) == 0 && !Set(file, "S", "j", "2");
  }));
  EXPECT_EQ(directory.Read("a.ini"), old);
  EXPECT_EQ(directory.Entries(), 1);
}

TEST(ProfileFiles, ClearAwayWhatAKilledProcessLeftBehind) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a.ini", "[S]\nk=1\n");
  directory.Write(".a.ini.new", std::string(9000, 'x'));
  EXPECT_TRUE(Set(file, "S", "k", "2"));
  EXPECT_EQ(directory.Read("a.ini"), "[S]\nk=2\n");
  EXPECT_EQ(directory.Entries(), 1);
}

TEST(ProfileFiles, AreOldOrNewAndWholeWheneverTheWriterIsKilled) {
  const TemporaryDirectory directory;
  const std::string file = directory.Path("a.ini");
  const std::string padding = "[Other]\r\nkept=" + std::string(200000, 'p') + "\r\n";
  directory.Write("a.ini", padding + "[S]\r\nk=0\r\n");
  std::mt19937 random(1);
  int last = 0;
  int kills = 0;
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(2);
  while (std::chrono::steady_clock::now() < end) {
    const pid_t child = StartChild([&] {
      for (int value = last + 1;; ++value) {
        if (!Set(file, "S", "k", std::to_string(value))) return false;
      }
    });
    ASSERT_GT(child, 0);
    ::usleep(1000 + random() % 20000);
    ::kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "a write failed";
    const std::string value = Get(file, "S", "k");
    ASSERT_EQ(directory.Read("a.ini"), padding + "[S]\r\nk=" + value + "\r\n");
    ASSERT_GE(std::stoi(value), last);
    ASSERT_LE(directory.Entries(), 2);
    last = std::stoi(value);
    ++kills;
  }
  EXPECT_GT(kills, 0);
  EXPECT_GT(last, 0);
  EXPECT_TRUE(Set(file, "S", "k", "end"));
  EXPECT_EQ(directory.Entries(), 1);
}

TEST(ProfileFiles, LeakNoDescriptor) {
  const TemporaryDirectory directory;
  const auto opened = [] {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
  };
  const auto before = opened();
  for (int round = 0; round < 20; ++round) {
    Set(directory.Path("a.ini"), "S", "k", std::to_string(round));
    Set(directory.Path(), "S", "k", "1");
    Set(directory.Path("gone/a.ini"), "S", "k", "1");
    Get("/dev/zero", "S", "k");
  }
  EXPECT_EQ(opened(), before);
}

}  // namespace
}  // namespace marlex::test
