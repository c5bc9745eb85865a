#include "desktop/files/directory_calls.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdarg>

namespace marlex::test {

namespace {

thread_local DirectoryCalls* counting = nullptr;

bool Fails(const char* call) { return counting && counting->Fails(call); }

/// The function of this name in the libraries.
template <class Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

DirectoryCalls::DirectoryCalls(std::size_t at, int error) : At(at), Error(error) {
  counting = this;
}

DirectoryCalls::~DirectoryCalls() { counting = nullptr; }

bool DirectoryCalls::Fails(const char* call) {
  Made.emplace_back(call);
  if (Made.size() != At) return false;
  errno = Error;
  return true;
}

}  // namespace marlex::test

using marlex::test::Fails;
using marlex::test::Real;

// The libraries find these before those of the C library, since the program comes first.
extern "C" {

int openat(int directory, const char* path, int flags, ...) {
  static auto* const real = Real<int(int, const char*, int, ...)>("openat");
  mode_t mode = 0;
  if ((flags & O_CREAT) != 0) {
    va_list more;
    va_start(more, flags);
    mode = va_arg(more, mode_t);
    va_end(more);
  }
  return Fails("openat") ? -1 : real(directory, path, flags, mode);
}

DIR* fdopendir(int file) {
  static auto* const real = Real<DIR*(int)>("fdopendir");
  return Fails("fdopendir") ? nullptr : real(file);
}

dirent* readdir(DIR* directory) {
  static auto* const real = Real<dirent*(DIR*)>("readdir");
  return Fails("readdir") ? nullptr : real(directory);
}

int stat(const char* path, struct stat* status) noexcept {
  static auto* const real = Real<int(const char*, struct stat*)>("stat");
  return Fails("stat") ? -1 : real(path, status);
}

}  // extern "C"
