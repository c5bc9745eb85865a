#include "desktop/process/posix_process.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <memory>

#include <gtest/gtest.h>

namespace marlex {
namespace {

/// A caption that no other run of these tests uses at the same time.
std::string OwnCaption(const std::string& name) { return name + " " + std::to_string(getpid()); }

/// A second process that has claimed a window and lives until it is killed.
class OtherProcess {
 public:
  explicit OtherProcess(const std::string& caption) {
    int ready[2];
    if (pipe(ready) != 0) return;
    Id = fork();
    if (Id == 0) {
      PosixProcess process;
      process.ClaimWindow(caption);
      [[maybe_unused]] const auto written = write(ready[1], "r", 1);
      while (true) pause();
    }
    close(ready[1]);
    char byte = 0;
    Ready = read(ready[0], &byte, 1) == 1;
    close(ready[0]);
  }
  ~OtherProcess() { Kill(); }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;

  bool IsReady() const { return Ready; }

  void Kill() {
    if (Id <= 0) return;
    kill(Id, SIGKILL);
    waitpid(Id, nullptr, 0);
    Id = 0;
  }

 private:
  pid_t Id = 0;
  bool Ready = false;
};

TEST(Process, TheWindowOfAnotherProcessIsFoundUntilThatProcessDies) {
  const std::string caption = OwnCaption("Desk");
  PosixProcess process;
  EXPECT_FALSE(process.FindWindow(caption));
  OtherProcess other(caption);
  ASSERT_TRUE(other.IsReady());
  EXPECT_TRUE(process.FindWindow(caption));
  EXPECT_TRUE(process.FindWindow(caption)) << "looking must not wear the claim out";
  EXPECT_FALSE(process.FindWindow(caption + "!"));
  other.Kill();
  EXPECT_FALSE(process.FindWindow(caption));
}

TEST(Process, AProcessDoesNotFindItsOwnWindowButOthersDo) {
  const std::string caption = OwnCaption("Own");
  PosixProcess process;
  process.ClaimWindow(caption);
  process.ClaimWindow(caption);
  EXPECT_FALSE(process.FindWindow(caption));
  const pid_t child = fork();
  if (child == 0) _exit(PosixProcess().FindWindow(caption) ? 0 : 1);
  int status = -1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

TEST(Process, AClaimThatComesTooLateDoesNotHideTheOther) {
  const std::string caption = OwnCaption("Late");
  OtherProcess other(caption);
  ASSERT_TRUE(other.IsReady());
  PosixProcess process;
  process.ClaimWindow(caption);
  EXPECT_TRUE(process.FindWindow(caption));
}

TEST(Process, AClaimEndsWithItsProcessObject) {
  const std::string caption = OwnCaption("Object");
  auto first = std::make_unique<PosixProcess>();
  first->ClaimWindow(caption);
  PosixProcess second;
  EXPECT_TRUE(second.FindWindow(caption));
  first.reset();
  EXPECT_FALSE(second.FindWindow(caption));
}

TEST(Process, CaptionsOfAnyLengthAndAlphabetAreDistinguished) {
  PosixProcess claiming;
  PosixProcess looking;
  const std::string longCaption = OwnCaption(std::string(500, 'x'));
  claiming.ClaimWindow(longCaption + "a");
  EXPECT_TRUE(looking.FindWindow(longCaption + "a"));
  EXPECT_FALSE(looking.FindWindow(longCaption + "b"));
  EXPECT_FALSE(looking.FindWindow(OwnCaption("\xC3\x84")));
}

TEST(Process, TheApplicationDirectoryHoldsTheExecutable) {
  const std::filesystem::path directory = PosixProcess().ApplicationDirectory();
  EXPECT_TRUE(directory.is_absolute());
  EXPECT_TRUE(directory.has_filename()) << "no separator at the end";
  EXPECT_TRUE(std::filesystem::equivalent(
      directory / std::filesystem::read_symlink("/proc/self/exe").filename(), "/proc/self/exe"));
}

TEST(Process, TheVersionIsThatOfNoPublishedFamily) {
  const SystemVersion version = PosixProcess().GetVersion();
  EXPECT_EQ(version.PlatformId, 0);
  EXPECT_GT(version.MajorVersion, 0);
  EXPECT_GE(version.MinorVersion, 0);
}

TEST(Process, EndFlushesWhatWasPrintedAndRunsNoDestructors) {
  int output[2];
  ASSERT_EQ(pipe(output), 0);
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    dup2(output[1], STDOUT_FILENO);
    const std::shared_ptr<void> local(nullptr, [](void*) { std::printf("destroyed"); });
    std::printf("last words");
    PosixProcess().End();
  }
  close(output[1]);
  std::string printed;
  char buffer[100];
  ssize_t count;
  while ((count = read(output[0], buffer, sizeof buffer)) > 0) printed.append(buffer, count);
  close(output[0]);
  int status = -1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  EXPECT_EQ(printed, "last words");
}

}  // namespace
}  // namespace marlex
