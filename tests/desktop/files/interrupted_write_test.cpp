#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <iostream>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "desktop/files/disk_profile_files.h"
#include "desktop/files/forked_child.h"
#include "desktop/files/open_descriptors.h"
#include "desktop/files/power_cut.h"
#include "desktop/files/temporary_directory.h"
#include "desktop/files/watched_calls.h"
#include "desktop/files/whole_file.h"

namespace marlex::test {
namespace {

using Plan = WatchedCalls::Plan;
using Calls = std::vector<std::string>;

// The new text is the longer one, so that a disk can fill up while it is written.
const std::string kOld = "[S]\nk=old\nkept=" + std::string(150, 'p') + "\n";
const std::string kNew = "[S]\nk=the new value\nkept=" + std::string(150, 'p') + "\n";

bool Set(const std::string& file) {
  return DiskProfileFiles().WriteString("S", "k", "the new value", file);
}

bool SetAlone(const std::string& file) {
  return DiskProfileFiles().Rebuild({{"S", "k", "the new value"}}, file);
}

/// What a reader takes for the whole text; nothing when the file is absent.
std::optional<std::string> Text(const std::string& file) {
  const WholeFile whole = ReadWholeFile(file);
  return whole.State == FileState::Absent ? std::nullopt : std::optional(whole.Text);
}

/// A write and the files that it finds: their texts, or nothing for an absent one.
struct Write {
  const char* Name = "of one value";
  bool (*Work)(const std::string& file) = Set;
  std::optional<std::string> Old = kOld;  // what a reader finds at first
  std::string New = kNew;
  std::optional<std::string> File = Old;
  std::optional<std::string> Copy = {};
  std::optional<std::string> Draft = {};
  int RenameError = 0;

  std::string Prepare(const TemporaryDirectory& directory) const {
    if (Copy) directory.Write(".a.ini.whole", *Copy);
    if (Draft) directory.Write(".a.ini.new", *Draft);
    return File ? directory.Write("a.ini", *File) : directory.Path("a.ini");
  }
};

const std::string kNewAlone = "[S]\r\nk=the new value\r\n";
const std::string kUnfinished = std::string(1, '\0') + kNew.substr(1, 40);
const std::string kStale = "[S]\nk=stale\n";

/// Every kind of write, each under a name that a rename can replace and, except for the creations,
/// under one that it cannot.
std::vector<Write> Writes() {
  const std::string added = kNewAlone;
  std::vector<Write> writes = {
      {},
      {.Name = "of one file in place of another", .Work = SetAlone, .New = kNewAlone},
      {.Name = "over a stale draft and copy", .Copy = kStale, .Draft = kStale},
      {.Name = "after an unfinished one", .File = kUnfinished, .Copy = kOld, .Draft = kStale},
      {.Name = "of an empty file", .Old = "", .New = added},
      {.Name = "of one file after an unfinished one",
       .Work = SetAlone,
       .New = kNewAlone,
       .File = kUnfinished,
       .Copy = kOld},
  };
  for (std::size_t at = 0, count = writes.size(); at < count; ++at) {
    writes.push_back(writes[at]);
    writes.back().RenameError = EBUSY;
  }
  writes.push_back({.Name = "of a first value", .Old = {}, .New = added});
  writes.push_back({.Name = "of a new file", .Work = SetAlone, .Old = {}, .New = kNewAlone});
  return writes;
}

/// The system calls of a write under the plan.
Calls CallsOf(const Plan& plan, const Write& write = {}) {
  const TemporaryDirectory directory(InMemory());
  const std::string file = write.Prepare(directory);
  WatchedCalls watched(plan);
  write.Work(file);
  return watched.Made;
}

/// The next write succeeds and leaves no temporary file.
void ExpectTidy(const TemporaryDirectory& directory, const std::string& file) {
  {
    const WatchedCalls watched({});
    EXPECT_TRUE(Set(file));
    EXPECT_TRUE(DiskProfileFiles().WriteString("S", "k", "next", file));
  }
  EXPECT_EQ(DiskProfileFiles().GetString("S", "k", file, 99), "next");
  EXPECT_NE(directory.Read("a.ini").find("k=next"), std::string::npos);
  EXPECT_EQ(directory.Entries(), 1);
}

/// The file is whole after the fault that the plan causes.
void ExpectWhole(Plan plan, const Write& write) {
  const TemporaryDirectory directory(InMemory());
  const std::string file = write.Prepare(directory);
  bool written = false;
  const long descriptors = OpenDescriptors();
  {
    WatchedCalls watched(plan);
    written = write.Work(file);
  }
  EXPECT_EQ(OpenDescriptors(), descriptors);
  EXPECT_EQ(Text(file), written ? write.New : write.Old);
  EXPECT_TRUE(!written || directory.Read("a.ini") == write.New);
  EXPECT_TRUE(written || plan.Error != EINTR);
  ExpectTidy(directory, file);
}

/// The same after the process was killed just before the call.
void ExpectWholeAfterKill(Plan plan, const Write& write) {
  const TemporaryDirectory directory(InMemory());
  const std::string file = write.Prepare(directory);
  const pid_t child = StartChild([&] {
    WatchedCalls watched(plan);
    return write.Work(file);
  });
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
  const auto text = Text(file);
  EXPECT_TRUE(text == write.Old || text == write.New) << text.value_or("no file");
  ExpectTidy(directory, file);
}

/// Returns the number of calls that failed or were the last.
std::size_t ExpectWholeWhateverFails(const Write& write) {
  const Calls calls = CallsOf({.RenameError = write.RenameError}, write);
  for (std::size_t at = 1; at <= calls.size(); ++at) {
    SCOPED_TRACE(std::string(write.Name) + ": " + std::to_string(at) + " " + calls[at - 1]);
    for (const int error : {EIO, ENOSPC, EINTR})
      ExpectWhole({.At = at, .Error = error, .RenameError = write.RenameError}, write);
    ExpectWholeAfterKill({.At = at, .Kill = true, .RenameError = write.RenameError}, write);
  }
  return calls.size();
}

/// Whatever part of the plan's write survives a power cut, a reader finds one of its texts whole,
/// and the new one after a write without a fault.
void ExpectWholeAfterPowerCut(Plan plan, const Write& write) {
  using Texts = std::set<std::optional<std::string>>;
  const TemporaryDirectory directory(InMemory());
  const std::string file = write.Prepare(directory);
  PowerCut disk(directory.Path());
  Texts found;
  {
    WatchedCalls watched(plan);
    watched.OnCall = [&] { found.merge(disk.Texts("a.ini")); };
    watched.OnDone = [&](const auto& call, const auto& path) { disk.Done(call, path); };
    write.Work(file);
  }
  const Texts last = disk.Texts("a.ini");
  found.insert(last.begin(), last.end());
  const Texts whole = {write.Old, write.New};
  for (const auto& text : found) EXPECT_TRUE(whole.contains(text)) << text.value_or("no file");
  EXPECT_TRUE(plan.At != 0 || last == Texts{write.New});
}

TEST(InterruptedWrite, TheNewTextIsOnTheDiskBeforeItTakesTheName) {
  EXPECT_EQ(CallsOf({}), (Calls{"open a.ini",
                                "fstat a.ini",
                                "read a.ini",
                                "read a.ini",
                                "close a.ini",
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
                                "open /",
                                "fsync /",
                                "close /",
                                "unlink .a.ini.whole"}));
}

TEST(InterruptedWrite, AnyCallMayFailOnceOrBeTheLast) {
  std::size_t calls = 0;
  for (const Write& write : Writes()) calls += ExpectWholeWhateverFails(write);
  std::cout << Writes().size() << " writes, " << calls << " calls, " << 4 * calls << " runs\n";
}

TEST(InterruptedWrite, ThePowerMayFailAtAnyCall) {
  for (const Write& write : Writes()) {
    SCOPED_TRACE(std::string(write.Name) + " " + std::to_string(write.RenameError));
    ExpectWholeAfterPowerCut({.RenameError = write.RenameError}, write);
  }
}

TEST(InterruptedWrite, ThePowerMayFailAfterAFailedCall) {
  for (const Write& write : Writes()) {
    const Calls calls = CallsOf({.RenameError = write.RenameError}, write);
    for (std::size_t at = 1; at <= calls.size(); ++at) {
      SCOPED_TRACE(std::string(write.Name) + ": " + std::to_string(at) + " " + calls[at - 1]);
      ExpectWholeAfterPowerCut({.At = at, .Error = EIO, .RenameError = write.RenameError}, write);
    }
  }
}

TEST(InterruptedWrite, AFileThatWasPutRightByHandCountsBeforeAnOldCopy) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a.ini", kOld);
  directory.Write(".a.ini.whole", kStale);
  EXPECT_EQ(Text(file), kOld);
  WatchedCalls watched({.RenameError = EBUSY});
  EXPECT_TRUE(Set(file));
  EXPECT_EQ(directory.Read("a.ini"), kNew);
  EXPECT_EQ(directory.Entries(), 1);
}

TEST(InterruptedWrite, ACopyThatCannotBeReadHidesNothing) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a.ini", kOld);
  ASSERT_EQ(::mkfifo(directory.Path(".a.ini.whole").c_str(), 0666), 0);
  EXPECT_EQ(Text(file), kOld);
}

TEST(InterruptedWrite, AnUnfinishedFileWhoseCopyIsGoneIsNeverAppendedTo) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write("a.ini", kUnfinished);
  EXPECT_FALSE(Set(file));
  EXPECT_EQ(directory.Read("a.ini"), kUnfinished);
}

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
  const auto copied = std::find(calls.begin(), calls.end(), "fsync /") - 2;
  EXPECT_EQ(Calls(copied, calls.end()),
            (Calls{"rename .a.ini.new", "open /", "fsync /", "close /", "open a.ini",
                   "pwrite a.ini", "fsync a.ini", "pwrite a.ini", "pwrite a.ini", "ftruncate a.ini",
                   "fsync a.ini", "pwrite a.ini", "fsync a.ini", "close a.ini",
                   "unlink .a.ini.whole", "open /", "fsync /", "close /", "unlink .a.ini.new"}));
}

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

/// Mounts one file over another, for this process only.
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

/// Makes a whole directory read-only for this process, except for what is mounted in it.
bool Protect(const std::string& directory) {
  const char* path = directory.c_str();
  return ::unshare(CLONE_NEWNS) == 0 &&
         ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         ::mount(path, path, nullptr, MS_BIND, nullptr) == 0 &&
         ::mount(nullptr, path, nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) == 0;
}

TEST(InterruptedWrite, AMountedFileIsLeftAloneWhereNoCopyCanBeMade) {
  const TemporaryDirectory directory;
  const TemporaryDirectory elsewhere;
  const std::string file = directory.Write("a.ini", "");
  const std::string mounted = elsewhere.Write("a.ini", kOld);
  const auto mount = [&] { return Protect(directory.Path()) && Mount(mounted, file); };
  if (!TrueInAChild(mount)) GTEST_SKIP() << "may not mount";
  EXPECT_TRUE(TrueInAChild([&] { return mount() && !Set(file) && Text(file) == kOld; }));
  EXPECT_EQ(elsewhere.Read("a.ini"), kOld);
  EXPECT_EQ(directory.Entries(), 1);
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
