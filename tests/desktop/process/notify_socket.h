#pragma once

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace marlex {

/// The socket on which a service manager hears of its processes. Its address is a path, or by
/// default '@' and a unique name, which is abstract.
class NotifySocket {
 public:
  NotifySocket() : NotifySocket("@marlex-test-" + std::to_string(getpid()) + "-" + Serial()) {}
  explicit NotifySocket(std::string address) : Name(std::move(address)) {
    sockaddr_un bound = {};
    bound.sun_family = AF_UNIX;
    Name.copy(bound.sun_path, sizeof bound.sun_path - 1);
    if (Name.front() == '@') bound.sun_path[0] = '\0';
    const auto length = offsetof(sockaddr_un, sun_path) + Name.size();
    if (bind(Socket, reinterpret_cast<sockaddr*>(&bound), static_cast<socklen_t>(length)) != 0)
      throw std::runtime_error("No socket " + Name);
  }
  ~NotifySocket() { close(Socket); }
  NotifySocket(const NotifySocket&) = delete;
  NotifySocket& operator=(const NotifySocket&) = delete;

  /// The value of `NOTIFY_SOCKET`.
  std::string Address() const { return Name; }

  /// What has been reported since the last call.
  std::vector<std::string> Reports() const {
    std::vector<std::string> reports;
    char report[512];
    for (ssize_t size = 0; (size = recv(Socket, report, sizeof report, 0)) >= 0;)
      reports.emplace_back(report, static_cast<std::size_t>(size));
    return reports;
  }

 private:
  static std::string Serial() {
    static int made = 0;
    return std::to_string(++made);
  }

  const std::string Name;
  const int Socket = socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
};

}  // namespace marlex
