// Preloaded into the program under test: shifts its wall clock by the number of nanoseconds
// (positive or negative) in a file, which the test maps and may write at any moment. Durations stay
// true, since the steady clocks are passed through untouched.

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
constexpr std::int64_t kNanosecondsPerMicrosecond = 1000;

const std::atomic<std::int64_t>* MapShift() {
  const char* path = getenv("MARLEX_CLOCK_FILE");
  int file = path ? open(path, O_RDONLY | O_CLOEXEC) : -1;
  if (file < 0) return nullptr;
  void* page = mmap(nullptr, sizeof(std::int64_t), PROT_READ, MAP_SHARED, file, 0);
  close(file);
  return page == MAP_FAILED ? nullptr : static_cast<const std::atomic<std::int64_t>*>(page);
}

void Shift(timespec& time) {
  static const std::atomic<std::int64_t>* shift = MapShift();
  if (!shift) return;
  std::int64_t total =
      std::int64_t{time.tv_sec} * kNanosecondsPerSecond + time.tv_nsec + shift->load();
  time.tv_sec = total / kNanosecondsPerSecond;
  time.tv_nsec = total % kNanosecondsPerSecond;
}

int ReadClock(clockid_t clock, timespec* time) {
  int result = static_cast<int>(syscall(SYS_clock_gettime, clock, time));
  if (result == 0 && (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE)) Shift(*time);
  return result;
}

}  // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* time) noexcept { return ReadClock(clock, time); }

int gettimeofday(timeval* time, void*) noexcept {
  timespec now{};
  int result = ReadClock(CLOCK_REALTIME, &now);
  *time = {now.tv_sec, now.tv_nsec / kNanosecondsPerMicrosecond};
  return result;
}

time_t time(time_t* result) noexcept {
  timespec now{};
  ReadClock(CLOCK_REALTIME, &now);
  if (result) *result = now.tv_sec;
  return now.tv_sec;
}

}  // extern "C"
