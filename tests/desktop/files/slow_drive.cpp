#include "desktop/files/slow_drive.h"

#include <condition_variable>
#include <mutex>

namespace marlex::test {

namespace {

std::mutex guard;
std::condition_variable arrived;
std::string slowPath;  // empty for none

}  // namespace

SlowDrive::SlowDrive(const std::string& path) {
  const std::scoped_lock lock(guard);
  slowPath = path;
}

void SlowDrive::Arrive() {
  const std::scoped_lock lock(guard);
  slowPath.clear();
  arrived.notify_all();
}

void AwaitDrive(const std::string& path) {
  std::unique_lock lock(guard);
  arrived.wait(lock, [&] { return slowPath.empty() || !path.starts_with(slowPath); });
}

}  // namespace marlex::test
