#pragma once

#include <string>

#include "platform/system_log.h"

namespace marlex {

/// The log of a Linux machine: one datagram a line to the socket of its log service (systemd's
/// journal or a syslog daemon), which adds the time. With systemd, `journalctl -t marlex` shows the
/// lines.
///
/// Protocol: RFC 3164, section 4.1, without the header that a local service does not need. Not
/// syslog(3), which blocks while the service does not read.
class Syslog : public SystemLog {
 public:
  explicit Syslog(std::string address = "/dev/log");
  ~Syslog() override;
  Syslog(const Syslog&) = delete;
  Syslog& operator=(const Syslog&) = delete;

  /// Without a service, or while it has no room, the line is dropped. A line break in the line, as
  /// the name of a file may have one, becomes a blank.
  void Write(const std::string& line) override;

 private:
  const std::string Address;
  const int Socket;
};

}  // namespace marlex
