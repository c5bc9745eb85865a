#include "desktop/amplifier/linked_terminal.h"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace marlex {

namespace {

namespace fs = std::filesystem;

constexpr const char* kDevices = "/dev/";
constexpr const char* kPseudoTerminals = "/dev/pts/";

/// Without this, what we send before the program has set its end up would come back as an echo.
void MakeRaw(int terminal) {
  termios mode{};
  tcgetattr(terminal, &mode);
  cfmakeraw(&mode);
  tcsetattr(terminal, TCSANOW, &mode);
}

/// A new pseudo-terminal and the name of its near end; -1 if the system has none left.
int OpenFarEnd(std::string& name) {
  const int far = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (far < 0) return -1;
  char device[64];
  if (grantpt(far) != 0 || unlockpt(far) != 0 || ptsname_r(far, device, sizeof device) != 0) {
    close(far);
    return -1;
  }
  name = device;
  MakeRaw(far);
  // A near end that was never opened does not count as hung up.
  if (const int near = open(device, O_RDWR | O_NOCTTY | O_CLOEXEC); near >= 0) close(near);
  return far;
}

fs::path TargetOf(const std::string& link) {
  std::error_code ignored;
  return fs::read_symlink(link, ignored);
}

/// Leads the link to the device, so that a program that looks at that moment finds one or the
/// other.
bool Relink(const std::string& link, const std::string& device) {
  const std::string fresh = link + ".new";
  unlink(fresh.c_str());
  if (symlink(device.c_str(), fresh.c_str()) != 0) return false;
  if (rename(fresh.c_str(), link.c_str()) == 0) return true;
  const int error = errno;
  unlink(fresh.c_str());
  errno = error;
  return false;
}

}  // namespace

LinkedTerminal::~LinkedTerminal() {
  PullOut();
  if (!Name.empty() && TargetOf(Link) == Name) unlink(Link.c_str());
}

std::string LinkedTerminal::PlugIn() {
  if (std::string obstacle = Obstacle(); !obstacle.empty()) return obstacle;
  std::string name;
  const int far = OpenFarEnd(name);
  if (far < 0) return "the system has no pseudo-terminal left";
  if (!Relink(Link, name)) {
    const std::string reason = std::generic_category().message(errno);
    close(far);
    return "the link " + Link + " cannot be made: " + reason;
  }
  PullOut();
  Far = far;
  Name = name;
  return "";
}

void LinkedTerminal::PullOut() {
  if (Far >= 0) close(Far);
  Far = -1;
}

/// What has the name of the link and must stay; empty if it is free. A dangling link to a device
/// is that of an adapter which is unplugged.
std::string LinkedTerminal::Obstacle() const {
  std::error_code ignored;
  const fs::file_status named = fs::symlink_status(Link, ignored);
  if (!fs::exists(named)) return "";
  if (!fs::is_symlink(named)) return Link + " is in the way: it is not a link";
  const fs::path target = TargetOf(Link);
  if (target == Name) return "";
  const std::string device = (fs::path(Link).parent_path() / target).lexically_normal().string();
  if (fs::status(Link, ignored).type() != fs::file_type::not_found)
    return Link + " leads to " + device + " already";
  const bool isAdapter = device.starts_with(kDevices) && !device.starts_with(kPseudoTerminals);
  return isAdapter ? Link + " belongs to " + device + ", which is unplugged" : "";
}

}  // namespace marlex
