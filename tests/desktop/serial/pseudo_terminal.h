#pragma once

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

namespace marlex {

/// The amplifier's end of a line whose other end is a terminal device.
class PseudoTerminal {
 public:
  PseudoTerminal() {
    int device = -1;
    char name[128] = {};
    if (openpty(&Far, &device, name, nullptr, nullptr) != 0) throw std::runtime_error("openpty");
    close(device);
    fcntl(Far, F_SETFL, O_NONBLOCK);
    fcntl(Far, F_SETFD, FD_CLOEXEC);
    Name = name;
  }
  ~PseudoTerminal() { Vanish(); }
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  const std::string& Path() const { return Name; }

  void Send(const std::string& bytes) {
    if (write(Far, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
      throw std::runtime_error("the line is full");
    }
  }

  /// Everything received so far.
  std::string Take() {
    std::string taken;
    char buffer[4096];
    ssize_t count;
    while ((count = read(Far, buffer, sizeof buffer)) > 0) taken.append(buffer, count);
    return taken;
  }

  /// Line settings of the device, for as long as somebody has it open.
  termios Mode() const {
    termios mode{};
    tcgetattr(Far, &mode);
    return mode;
  }

  void SetMode(const termios& mode) const { tcsetattr(Far, TCSANOW, &mode); }

  /// Whether somebody has the device open.
  bool IsOpen() const {
    pollfd far{Far, POLLIN, 0};
    return poll(&far, 1, 0) >= 0 && !(far.revents & POLLHUP);
  }

  /// Unplugs the adapter.
  void Vanish() {
    if (Far >= 0) close(Far);
    Far = -1;
  }

 private:
  int Far = -1;
  std::string Name;
};

}  // namespace marlex
