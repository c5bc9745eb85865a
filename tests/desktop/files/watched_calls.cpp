#include "desktop/files/watched_calls.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <filesystem>
#include <utility>

#include "desktop/files/slow_drive.h"

namespace marlex::test {

namespace {

namespace fs = std::filesystem;

thread_local WatchedCalls* watching = nullptr;

constexpr const char* kFarEnd = "ptmx";  // of a serial line, which is the test's own

std::string Label(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored) ? "/" : path.filename().string();
}

/// Whether the call, given by its name and its path or descriptor, is to fail; errno then says how.
template <class File>
bool Fails(const char* call, const File& file) {
  const int error = watching ? watching->ErrorOf(call, file) : 0;
  if (error != 0) errno = error;
  return error != 0;
}

/// Suspends the watching while the test itself uses files.
struct Unwatched {
  WatchedCalls* Before = std::exchange(watching, nullptr);
  ~Unwatched() { watching = Before; }
};

template <class Real, class File, class... More>
auto Instead(Real real, const char* call, File file, More... more)
    -> decltype(real(file, more...)) {
  if (Fails(call, file)) return -1;
  const auto result = real(file, more...);
  const int error = errno;
  if (watching && result >= 0) watching->Succeeded(call, file);
  errno = error;
  return result;
}

std::string PathOf(int descriptor) {
  std::error_code ignored;
  return fs::read_symlink("/proc/self/fd/" + std::to_string(descriptor), ignored);
}

}  // namespace

WatchedCalls::WatchedCalls(const Plan& plan) : ThePlan(plan) { watching = this; }

WatchedCalls::~WatchedCalls() { watching = nullptr; }

int WatchedCalls::ErrorOf(const char* call, const std::string& path) {
  if (Label(path) == kFarEnd) return 0;
  if (OnCall) {
    const Unwatched unwatched;
    OnCall();
  }
  Made.push_back(std::string(call) + " " + Label(path));
  if (Made.size() != ThePlan.At) return 0;
  if (ThePlan.Kill) std::raise(SIGKILL);
  return ThePlan.Error;
}

int WatchedCalls::ErrorOf(const char* call, int descriptor) {
  return ErrorOf(call, PathOf(descriptor));
}

void WatchedCalls::Succeeded(const char* call, const std::string& path) {
  const Unwatched unwatched;
  if (OnDone) OnDone(call, path);
}

void WatchedCalls::Succeeded(const char* call, int descriptor) {
  Succeeded(call, PathOf(descriptor));
}

int WatchedCalls::ErrorOfRename(const std::string& to) const {
  return Label(to).starts_with('.') ? 0 : ThePlan.RenameError;
}

}  // namespace marlex::test

using marlex::test::Fails;
using marlex::test::Instead;
using marlex::test::watching;

constexpr std::size_t kPiece = 100;  // bytes of one write

// The linker redirects the calls of the code under test to these (tests/CMakeLists.txt), so their
// names are fixed.
// NOLINTBEGIN(bugprone-reserved-identifier): the linker gives these names
extern "C" {

int __real_open(const char* path, int flags, ...);
int __real_stat(const char* path, struct stat* status);
int __real_fstat(int file, struct stat* status);
int __real_access(const char* path, int mode);
ssize_t __real_read(int file, void* buffer, size_t size);
ssize_t __real_pread(int file, void* buffer, size_t size, off_t place);
ssize_t __real_write(int file, const void* buffer, size_t size);
ssize_t __real_pwrite(int file, const void* buffer, size_t size, off_t place);
int __real_fchown(int file, uid_t owner, gid_t group);
int __real_fchmod(int file, mode_t mode);
int __real_ftruncate(int file, off_t length);
int __real_fsync(int file);
int __real_tcgetattr(int file, struct termios* mode);
int __real_tcsetattr(int file, int when, const struct termios* mode);
int __real_ioctl(int file, unsigned long request, ...);
int __real_close(int file);
int __real_unlink(const char* path);
int __real_rename(const char* from, const char* to);

int __wrap_open(const char* path, int flags, ...) {
  mode_t mode = 0;
  if ((flags & O_CREAT) != 0) {
    va_list more;
    va_start(more, flags);
    mode = va_arg(more, mode_t);
    va_end(more);
  }
  marlex::test::AwaitDrive(path);
  return Instead(__real_open, "open", path, flags, mode);
}
int __wrap_stat(const char* path, struct stat* status) {
  return Instead(__real_stat, "stat", path, status);
}
int __wrap_fstat(int file, struct stat* status) {
  return Instead(__real_fstat, "fstat", file, status);
}
int __wrap_access(const char* path, int mode) {
  return Instead(__real_access, "access", path, mode);
}
ssize_t __wrap_read(int file, void* buffer, size_t size) {
  return Instead(__real_read, "read", file, buffer, size);
}
ssize_t __wrap_pread(int file, void* buffer, size_t size, off_t place) {
  return Instead(__real_pread, "pread", file, buffer, size, place);
}
ssize_t __wrap_write(int file, const void* buffer, size_t size) {
  return Instead(__real_write, "write", file, buffer, watching ? std::min(size, kPiece) : size);
}
ssize_t __wrap_pwrite(int file, const void* buffer, size_t size, off_t place) {
  return Instead(__real_pwrite, "pwrite", file, buffer, watching ? std::min(size, kPiece) : size,
                 place);
}
int __wrap_fchown(int file, uid_t owner, gid_t group) {
  return Instead(__real_fchown, "fchown", file, owner, group);
}
int __wrap_fchmod(int file, mode_t mode) { return Instead(__real_fchmod, "fchmod", file, mode); }
int __wrap_ftruncate(int file, off_t length) {
  return Instead(__real_ftruncate, "ftruncate", file, length);
}
int __wrap_fsync(int file) {
  // No power fails here: a watched test skips what takes long on a real disk.
  return Instead(watching ? +[](int) { return 0; } : __real_fsync, "fsync", file);
}
int __wrap_tcgetattr(int file, struct termios* mode) {
  return Instead(__real_tcgetattr, "tcgetattr", file, mode);
}
int __wrap_tcsetattr(int file, int when, const struct termios* mode) {
  return Instead(__real_tcsetattr, "tcsetattr", file, when, mode);
}
int __wrap_ioctl(int file, unsigned long request, ...) {
  va_list more;
  va_start(more, request);
  void* const argument = va_arg(more, void*);
  va_end(more);
  return Instead(__real_ioctl, "ioctl", file, request, argument);
}
int __wrap_unlink(const char* path) { return Instead(__real_unlink, "unlink", path); }

/// A descriptor is gone once it was closed, whatever close reports.
int __wrap_close(int file) {
  const bool fails = Fails("close", file);
  const int error = errno;
  const int result = __real_close(file);
  if (fails) errno = error;
  return fails ? -1 : result;
}
int __wrap_rename(const char* from, const char* to) {
  if (Fails("rename", from)) return -1;
  const int refused = watching ? watching->ErrorOfRename(to) : 0;
  if (refused == 0) {
    const int result = __real_rename(from, to);
    if (watching && result == 0) watching->Succeeded("rename", std::string(to));
    return result;
  }
  errno = refused;
  return -1;
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
