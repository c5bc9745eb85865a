#include "desktop/process/posix_process.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "desktop/process/program_directory.h"

namespace marlex {

namespace {

/// A name in the kernel's abstract namespace, which begins with a NUL. It contains a hash of the
/// caption (FNV-1a, 64 bits), since a caption may be too long for such a name.
class WindowAddress {
 public:
  explicit WindowAddress(const std::string& caption) {
    Address.sun_family = AF_UNIX;
    constexpr std::size_t kRoom = sizeof Address.sun_path - 1;
    const int written = std::snprintf(Address.sun_path + 1, kRoom, "main-window-%016llx",
                                      static_cast<unsigned long long>(Hash(caption)));
    Length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + written);
  }

  bool Bind(int socket) const { return bind(socket, Pointer(), Length) == 0; }
  bool Connect(int socket) const { return connect(socket, Pointer(), Length) == 0; }

 private:
  static std::uint64_t Hash(const std::string& text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const unsigned char byte : text) hash = (hash ^ byte) * 0x100000001b3;
    return hash;
  }

  const sockaddr* Pointer() const { return reinterpret_cast<const sockaddr*>(&Address); }

  sockaddr_un Address{};
  socklen_t Length;
};

/// Datagram sockets: connecting is enough to learn whether the name is taken, and the other end has
/// no queue of connections that could fill up.
int MakeSocket() { return socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0); }

std::filesystem::path Executable(std::error_code& error) {
  return std::filesystem::read_symlink("/proc/self/exe", error);
}

}  // namespace

PosixProcess::PosixProcess() {
  std::error_code error;
  const auto executable = Executable(error);
  if (!error) PackagedDirectory = LinkDirectory(executable, StartedPath()).string();
}

PosixProcess::~PosixProcess() {
  for (const auto& [caption, socket] : Claims) close(socket);
}

std::string PosixProcess::ApplicationDirectory() const {
  if (!PackagedDirectory.empty()) return PackagedDirectory;
  std::error_code error;
  const auto executable = Executable(error);
  if (error) return std::filesystem::current_path(error).string();
  return executable.parent_path().string();
}

bool PosixProcess::FindWindow(const std::string& caption) const {
  if (Claims.contains(caption)) return false;
  const int socket = MakeSocket();
  if (socket < 0) return false;
  const bool found = WindowAddress(caption).Connect(socket);
  close(socket);
  return found;
}

bool PosixProcess::ClaimWindow(const std::string& caption) {
  if (Claims.contains(caption)) return true;
  const int socket = MakeSocket();
  if (socket < 0) return true;  // better a program that cannot ask than none
  if (WindowAddress(caption).Bind(socket)) {
    Claims.emplace(caption, socket);
    return true;
  }
  const bool taken = errno == EADDRINUSE;
  close(socket);
  return !taken;
}

SystemVersion PosixProcess::GetVersion() const {
  SystemVersion version;
  utsname system{};
  if (uname(&system) != 0) return version;
  std::sscanf(system.release, "%d.%d", &version.MajorVersion, &version.MinorVersion);
  return version;
}

void PosixProcess::End() {
  std::fflush(nullptr);
  std::_Exit(0);
}

}  // namespace marlex
