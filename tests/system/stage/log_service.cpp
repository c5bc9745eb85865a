#include "log_service.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <stdexcept>

namespace marlex::stage {

LogService::LogService(const std::string& folder) : Address(folder + "/log") {
  const int log = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  sockaddr_un bound = {};
  bound.sun_family = AF_UNIX;
  Address.copy(bound.sun_path, sizeof bound.sun_path - 1);
  if (bind(log, reinterpret_cast<sockaddr*>(&bound), sizeof bound) != 0)
    throw std::runtime_error("No log at " + Address);
  Reader = std::make_unique<ByteReader>(log, [this](double time, std::string_view datagram) {
    constexpr std::string_view kEndOfTag = "]: ";
    const std::scoped_lock lock(Lock);
    Received.push_back(
        {time, std::string(datagram.substr(datagram.find(kEndOfTag) + kEndOfTag.size()))});
  });
}

std::vector<LogLine> LogService::Lines() const {
  const std::scoped_lock lock(Lock);
  return Received;
}

bool LogService::Has(const std::string& text) const {
  return std::ranges::any_of(Lines(), [&](const LogLine& line) { return line.Text == text; });
}

}  // namespace marlex::stage
