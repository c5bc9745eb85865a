#include "wall_clock.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <time.h>
#include <unistd.h>

#include <atomic>
#include <stdexcept>

#include "sound/wait.h"

namespace marlex::stage {
namespace {

constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;

constexpr std::int64_t kNanosecondsPerMillisecond = 1'000'000;

std::int64_t RealNanoseconds() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return std::int64_t{now.tv_sec} * kNanosecondsPerSecond + now.tv_nsec;
}

std::int64_t Nanoseconds(const std::string& localTime) {
  tm parts{};
  if (!strptime(localTime.c_str(), "%Y-%m-%d %H:%M:%S", &parts)) {
    throw std::runtime_error("No time: " + localTime);
  }
  parts.tm_isdst = -1;  // the system determines it
  return std::int64_t{mktime(&parts)} * kNanosecondsPerSecond;
}

}  // namespace

ShiftedClock::ShiftedClock(const std::string& folder, const std::string& preload)
    : File(folder + "/clock"), Preload(preload) {
  int file = open(File.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  if (file < 0 || ftruncate(file, sizeof(std::int64_t)) != 0)
    throw std::runtime_error("Cannot write " + File);
  void* page = mmap(nullptr, sizeof(std::int64_t), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  close(file);
  if (page == MAP_FAILED) throw std::runtime_error("Cannot map " + File);
  Shift = static_cast<std::int64_t*>(page);
}

ShiftedClock::~ShiftedClock() { munmap(Shift, sizeof(std::int64_t)); }

Environment ShiftedClock::Variables() const {
  return {{"LD_PRELOAD", Preload}, {"MARLEX_CLOCK_FILE", File}};
}

void ShiftedClock::Set(const std::string& localTime) {
  std::atomic_ref(*Shift).store(Nanoseconds(localTime) - RealNanoseconds());
}

std::string ShiftedClock::TimeAt(double steadySeconds) const {
  std::int64_t now = RealNanoseconds() + std::atomic_ref(*Shift).load();
  std::int64_t then = now + std::int64_t((steadySeconds - Now()) * kNanosecondsPerSecond);
  auto seconds = time_t(then / kNanosecondsPerSecond);
  tm parts{};
  localtime_r(&seconds, &parts);
  char text[16];
  strftime(text, sizeof(text), "%H:%M:%S", &parts);
  std::string milliseconds =
      std::to_string(1000 + then % kNanosecondsPerSecond / kNanosecondsPerMillisecond);
  return std::string(text) + "." + milliseconds.substr(1);
}

double ShiftedClock::SteadyTimeOf(const std::string& localTime) const {
  std::int64_t now = RealNanoseconds() + std::atomic_ref(*Shift).load();
  return Now() + double(Nanoseconds(localTime) - now) / kNanosecondsPerSecond;
}

}  // namespace marlex::stage
