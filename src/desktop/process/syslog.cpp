#include "desktop/process/syslog.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <syslog.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <utility>

namespace marlex {

Syslog::Syslog(std::string address)
    : Address(std::move(address)),
      Socket(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {}

Syslog::~Syslog() { close(Socket); }

void Syslog::Write(const std::string& line) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  if (Address.size() >= sizeof address.sun_path) return;
  std::ranges::copy(Address, address.sun_path);
  std::string datagram = "<" + std::to_string(LOG_USER | LOG_INFO) + ">marlex[" +
                         std::to_string(getpid()) + "]: " + line;
  std::ranges::replace_if(
      datagram, [](unsigned char byte) { return std::iscntrl(byte) != 0; }, ' ');
  sendto(Socket, datagram.data(), datagram.size(), MSG_NOSIGNAL,
         reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

}  // namespace marlex
