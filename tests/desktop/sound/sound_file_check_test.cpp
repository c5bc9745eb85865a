#include "desktop/sound/sound_file_check.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <filesystem>
#include <future>
#include <memory>
#include <optional>
#include <thread>

#include "desktop/files/file_descriptor.h"
#include "desktop/files/slow_drive.h"
#include "desktop/sound/media_files.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

MediaState StateOf(SoundFileCheck& check, const std::string& wav) {
  check.Watch({{wav, MediumKind::Message}});
  return check.States().at(0);
}

bool Becomes(SoundFileCheck& check, const std::string& wav, MediaState state) {
  const Clock::time_point due = Clock::now() + 8s;
  while (StateOf(check, wav) != state) {
    if (Clock::now() > due) return false;
    std::this_thread::sleep_for(50ms);
  }
  return true;
}

TEST(SoundFileCheck, AFolderThatIsNamedLikeAMessageIsUnplayable) {
  const MediaFiles files;
  std::filesystem::create_directory(files.Path("gong.wav"));
  SoundFileCheck check;
  EXPECT_TRUE(Becomes(check, files.Path("gong.wav"), MediaState::Unplayable));
}

TEST(SoundFileCheck, ASongUnderTheNameOfAMessageIsUnplayable) {
  MediaFiles files;
  std::filesystem::rename(files.Mp3("song.mp3", 1), files.Path("gong.wav"));
  SoundFileCheck check;
  EXPECT_TRUE(Becomes(check, files.Path("gong.wav"), MediaState::Unplayable));
}

/// While it lives, the process can open one more file at a time, and no second one beside it.
class OneMoreFile {
 public:
  OneMoreFile() {
    const FileDescriptor first(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    const FileDescriptor second(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    getrlimit(RLIMIT_NOFILE, &Before);
    const rlimit limit = {rlim_t(second.Get()), Before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &limit);
  }
  ~OneMoreFile() { setrlimit(RLIMIT_NOFILE, &Before); }
  OneMoreFile(const OneMoreFile&) = delete;
  OneMoreFile& operator=(const OneMoreFile&) = delete;

 private:
  rlimit Before = {};
};

/// The file is opened for its facts, but cannot be opened again to be read.
TEST(SoundFileCheck, AFailureToReadGoesOnceTheSameFileCanBeRead) {
  MediaFiles files;
  const std::string gong = files.Wav("gong.wav", 1);
  SoundFileCheck check;
  // A sanitizer needs a descriptor for each class that it meets for the first time.
  ASSERT_TRUE(Becomes(check, files.Wav("chime.wav", 1), MediaState::Good));
  {
    const OneMoreFile limit;
    EXPECT_TRUE(Becomes(check, gong, MediaState::Unplayable));
  }
  EXPECT_TRUE(Becomes(check, gong, MediaState::Good));
}

TEST(SoundFileCheck, ADriveThatDoesNotAnswerKeepsNobodyWaiting) {
  MediaFiles files;
  const std::string gong = files.Wav("gong.wav", 1);
  SoundFileCheck check;
  {
    const test::SlowDrive drive(files.Path(""));
    const Clock::time_point asked = Clock::now();
    EXPECT_EQ(StateOf(check, gong), MediaState::Unknown);
    EXPECT_LT(Clock::now() - asked, 100ms);
    EXPECT_TRUE(Becomes(check, gong, MediaState::Unplayable));
  }
  EXPECT_TRUE(Becomes(check, gong, MediaState::Good));
}

std::ptrdiff_t Threads() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

TEST(SoundFileCheck, LeavesNoThreadBehind) {
  const std::ptrdiff_t before = Threads();
  {
    SoundFileCheck check;
    EXPECT_TRUE(Becomes(check, "/nowhere/gong.wav", MediaState::Missing));
    EXPECT_GT(Threads(), before);
  }
  const Clock::time_point due = Clock::now() + 5s;
  while (Threads() > before && Clock::now() < due) std::this_thread::sleep_for(10ms);
  EXPECT_EQ(Threads(), before);
}

TEST(SoundFileCheck, EndsSoonThoughADriveDoesNotAnswer) {
  MediaFiles files;
  const std::string gong = files.Wav("gong.wav", 1);
  auto check = std::make_unique<SoundFileCheck>();
  std::optional<test::SlowDrive> drive(files.Path(""));
  StateOf(*check, gong);
  std::this_thread::sleep_for(200ms);
  const auto ended = std::async(std::launch::async, [&check] { check.reset(); });
  EXPECT_EQ(ended.wait_for(4s), std::future_status::ready);
  drive.reset();
}

}  // namespace
}  // namespace marlex
