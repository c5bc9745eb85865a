#include "desktop/serial/tty_line.h"

#include <fcntl.h>
#include <linux/major.h>
#include <linux/serial.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

namespace marlex {

namespace {

constexpr unsigned kFirstBoardPort = 64;  // minor number of /dev/ttyS0
constexpr speed_t kSpeed = B19200;
constexpr std::size_t kReadAtOnce = 4096;

bool IsTransient(int error) { return error == EAGAIN || error == EINTR; }

}  // namespace

std::optional<TtyLine> TtyLine::Open(const std::string& path, int& error) {
  const int device = open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (device < 0) {
    error = errno == ENXIO || errno == EIO ? ENODEV : errno;
    return std::nullopt;
  }
  TtyLine line(device);
  if (!line.HasHardware()) {
    error = ENODEV;
    return std::nullopt;
  }
  if (!line.Configure()) {
    error = errno == EIO ? ENODEV : errno;
    return std::nullopt;
  }
  return line;
}

TtyLine::TtyLine(TtyLine&& other) noexcept
    : Device(std::exchange(other.Device, -1)), Marks(other.Marks) {}

TtyLine& TtyLine::operator=(TtyLine&& other) noexcept {
  std::swap(Device, other.Device);
  std::swap(Marks, other.Marks);
  return *this;
}

TtyLine::~TtyLine() {
  if (Device >= 0) close(Device);
}

/// Each of the board's own ports has a device file, whether or not there is a chip. An adapter is
/// there whenever its file is; its driver reports no type.
bool TtyLine::HasHardware() const {
  struct stat file {};
  const bool isBoardPort = fstat(Device, &file) == 0 && S_ISCHR(file.st_mode) &&
                           major(file.st_rdev) == TTY_MAJOR &&
                           minor(file.st_rdev) >= kFirstBoardPort;
  serial_struct port{};
  if (!isBoardPort || ioctl(Device, TIOCGSERIAL, &port) != 0) return true;
  return port.type != PORT_UNKNOWN;
}

bool TtyLine::Configure() {
  termios mode{};
  if (tcgetattr(Device, &mode) != 0) return false;
  cfmakeraw(&mode);
  mode.c_iflag &= ~static_cast<tcflag_t>(IGNBRK | BRKINT | IGNPAR | IXOFF | IXANY);
  mode.c_iflag |= INPCK | PARMRK;
  mode.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS | HUPCL);
  mode.c_cflag |= CS8 | CREAD | CLOCAL;
  mode.c_cc[VMIN] = 1;  // distinguishes "no byte now" from "hung up"
  mode.c_cc[VTIME] = 0;
  cfsetispeed(&mode, kSpeed);
  cfsetospeed(&mode, kSpeed);
  return tcsetattr(Device, TCSANOW, &mode) == 0 && ioctl(Device, TIOCEXCL) == 0;
}

std::optional<std::string> TtyLine::Read() {
  std::array<char, kReadAtOnce> burst;
  const ssize_t count = read(Device, burst.data(), burst.size());
  if (count > 0) return Marks.Take({burst.data(), static_cast<std::size_t>(count)});
  if (count < 0 && IsTransient(errno)) return std::string();
  return std::nullopt;
}

int TtyLine::Write(std::string_view bytes) {
  if (bytes.empty()) return 0;
  const ssize_t count = write(Device, bytes.data(), bytes.size());
  if (count >= 0) return static_cast<int>(count);
  return IsTransient(errno) ? 0 : -1;
}

}  // namespace marlex
