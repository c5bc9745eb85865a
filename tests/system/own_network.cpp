#include <fcntl.h>
#include <sched.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

namespace {

/// Tests of this program run side by side, but one network namespace holds one running instance of
/// the program under test. So each test process has a namespace of its own, or, where the system
/// does not permit that, waits until the others have ended.
class OwnNetwork : public testing::Environment {
 public:
  void SetUp() override {
    if (unshare(CLONE_NEWNET) == 0) return;
    const auto lock = std::filesystem::temp_directory_path() / "marlex-one-instance";
    Lock = open(lock.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC, 0666);
    ASSERT_EQ(flock(Lock, LOCK_EX), 0) << lock;
  }
  void TearDown() override {
    if (Lock >= 0) close(Lock);
  }

 private:
  int Lock = -1;
};

[[maybe_unused]] const testing::Environment* const kOwnNetwork =
    testing::AddGlobalTestEnvironment(new OwnNetwork);

}  // namespace
