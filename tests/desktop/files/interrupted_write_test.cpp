#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <string>
#include <vector>

#include "desktop/files/forked_child.h"
#include "desktop/files/profile_files.h"
#include "desktop/files/temporary_directory.h"
#include "desktop/files/watched_calls.h"
#include "desktop/files/whole_file.h"

namespace marlex::test {
namespace {

using Plan = WatchedCalls::Plan;
using Calls = std::vector<std::string>;

// The new text is the longer one, so that a disk can fill up under it.
const std::string kOld = "[S]\nk=old\nkept=" + std::string(150, 'p') + "\n";
const std::string kNew = "[S]\nk=the new value\nkept=" + std::string(150, 'p') + "\n";

bool Set(const std::string& file) {
  return DiskProfileFiles().WriteString("S", "k", "the new value", file);
}

/// What a reader takes for the whole text.
std::string Text(const std::string& file) { return ReadWholeFile(file).Text; }

/// The system calls of a write under the plan.
Calls CallsOf(const Plan& plan) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a.ini", kOld);
  WatchedCalls watched(plan);
  Set(file);
  return watched.Made;
}

/// The file is whole after the plan's fault, and the next write succeeds and clears up.
void ExpectWhole(Plan plan, const Calls& calls) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a.ini", kOld);
  bool written = false;
  {
    WatchedCalls watched(plan);
    written = Set(file);
  }
  EXPECT_EQ(Text(file), written ? kNew : kOld) << calls[plan.At - 1];
  EXPECT_EQ(directory.Read("a.ini"), written ? kNew : kOld) << calls[plan.At - 1];
  EXPECT_TRUE(written || plan.Error != EINTR) << calls[plan.At - 1];
  EXPECT_TRUE(Set(file));
  EXPECT_EQ(directory.Read("a.ini"), kNew);
  EXPECT_TRUE(DiskProfileFiles().WriteString("S", "k", "next", file));
  EXPECT_EQ(directory.Entries(), 1) << calls[plan.At - 1];
}

/// The same after a process that was killed in front of the call.
void ExpectWholeAfterKill(Plan plan, const Calls& calls) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a.ini", kOld);
  const pid_t child = StartChild([&] {
    WatchedCalls watched(plan);
    return Set(file);
  });
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << calls[plan.At - 1];
  const std::string text = Text(file);
  EXPECT_TRUE(text == kOld || text == kNew) << calls[plan.At - 1] << ": " << text;
  EXPECT_TRUE(DiskProfileFiles().WriteString("S", "k", "next", file));
  EXPECT_EQ(DiskProfileFiles().GetString("S", "k", file, 99), "next");
  EXPECT_EQ(directory.Read("a.ini").substr(0, 11), "[S]\nk=next\n");
  EXPECT_EQ(directory.Entries(), 1) << calls[plan.At - 1];
}

void ExpectWholeWhateverFails(int renameError) {
  const Calls calls = CallsOf({.RenameError = renameError});
  for (std::size_t at = 1; at <= calls.size(); ++at) {
    for (const int error : {EIO, ENOSPC, EINTR})
      ExpectWhole({.At = at, .Error = error, .RenameError = renameError}, calls);
    ExpectWholeAfterKill({.At = at, .Kill = true, .RenameError = renameError}, calls);
  }
}

TEST(InterruptedWrite, TheNewTextIsOnTheDiskBeforeItTakesTheName) {
  EXPECT_EQ(CallsOf({}), (Calls{"open a.ini",
                                "fstat a.ini",
                                "read a.ini",
                                "read a.ini",
                                "close a.ini",
                                "open .a.ini.whole",
                                "stat a.ini",
                                "access a.ini",
                                "unlink .a.ini.new",
                                "open .a.ini.new",
                                "write .a.ini.new",
                                "write .a.ini.new",
                                "fchown .a.ini.new",
                                "fchmod .a.ini.new",
                                "fsync .a.ini.new",
                                "close .a.ini.new",
                                "rename .a.ini.new",
                                "unlink .a.ini.whole",
                                "open /",
                                "fsync /",
                                "close /"}));
}

TEST(InterruptedWrite, AnyCallMayFailOnceOrBeTheLast) { ExpectWholeWhateverFails(0); }

TEST(InterruptedWrite, ANameThatCannotBeTakenIsWrittenInPlace) {
  for (const int error : {EBUSY, EPERM, EACCES, EXDEV}) {
    const TemporaryDirectory directory;
    const std::string file = directory.Write("a.ini", kOld);
    WatchedCalls watched({.RenameError = error});
    EXPECT_TRUE(Set(file));
    EXPECT_EQ(directory.Read("a.ini"), kNew);
    EXPECT_EQ(directory.Entries(), 1);
  }
}

TEST(InterruptedWrite, InPlaceItIsWrittenAfterAWholeCopyIsOnTheDisk) {
  const Calls calls = CallsOf({.RenameError = EBUSY});
  const auto taken = std::find(calls.begin(), calls.end(), "fsync .a.ini.new");
  EXPECT_EQ(Calls(taken, calls.end()), (Calls{"fsync .a.ini.new",
                                              "close .a.ini.new",
                                              "rename .a.ini.new",
                                              "open a.ini",
                                              "fstat a.ini",
                                              "read a.ini",
                                              "read a.ini",
                                              "close a.ini",
                                              "open .a.ini.whole",
                                              "rename .a.ini.new",
                                              "open /",
                                              "fsync /",
                                              "close /",
                                              "open a.ini",
                                              "write a.ini",
                                              "write a.ini",
                                              "ftruncate a.ini",
                                              "fsync a.ini",
                                              "close a.ini",
                                              "unlink .a.ini.whole",
                                              "unlink .a.ini.new"}));
}

TEST(InterruptedWrite, InPlaceTooAnyCallMayFailOnceOrBeTheLast) { ExpectWholeWhateverFails(EBUSY); }

TEST(InterruptedWrite, AShorterTextLeavesNothingOfTheLongerInPlace) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a.ini", "[S]\nk=" + std::string(500, 'o') + "\n");
  WatchedCalls watched({.RenameError = EBUSY});
  EXPECT_TRUE(Set(file));
  EXPECT_EQ(directory.Read("a.ini"), "[S]\nk=the new value\n");
}

TEST(InterruptedWrite, ADiskThatRefusesTheNameOtherwiseKeepsTheOldFile) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a.ini", kOld);
  WatchedCalls watched({.RenameError = EROFS});
  EXPECT_FALSE(Set(file));
  EXPECT_EQ(directory.Read("a.ini"), kOld);
  EXPECT_EQ(directory.Entries(), 1);
}

/// Mounts one file over another, for this process alone.
bool Mount(const std::string& from, const std::string& to) {
  return ::unshare(CLONE_NEWNS) == 0 &&
         ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         ::mount(from.c_str(), to.c_str(), nullptr, MS_BIND, nullptr) == 0;
}

TEST(InterruptedWrite, AFileThatIsMountedByItselfIsWritten) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a.ini", "");
  const std::string mounted = directory.Write("b.ini", kOld);
  if (!TrueInAChild([&] { return Mount(mounted, file); })) GTEST_SKIP() << "may not mount";
  EXPECT_TRUE(TrueInAChild([&] { return Mount(mounted, file) && Set(file); }));
  EXPECT_EQ(directory.Read("b.ini"), kNew);
  EXPECT_EQ(directory.Entries(), 2);
}

TEST(InterruptedWrite, AForeignFileInASharedDirectoryIsWritten) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can make a foreign file";
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a.ini", kOld);
  ASSERT_EQ(::chmod(file.c_str(), 0666), 0);
  ASSERT_EQ(::chmod(directory.Path().c_str(), 01777), 0);
  EXPECT_TRUE(TrueInAChild([&] { return BecomeNobody() && Set(file); }));
  EXPECT_EQ(directory.Read("a.ini"), kNew);
  EXPECT_EQ(directory.Entries(), 1);
}

}  // namespace
}  // namespace marlex::test
