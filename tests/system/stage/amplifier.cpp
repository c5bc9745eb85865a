#include "amplifier.h"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <stdexcept>

namespace marlex::stage {

Amplifier::Amplifier(const std::string& link) : Link(link) { PlugIn(); }

void Amplifier::PlugIn() {
  int master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) {
    throw std::runtime_error("The system has no pseudo-terminal left.");
  }
  std::string name = ptsname(master);
  Slave = open(name.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  termios settings{};
  tcgetattr(Slave, &settings);
  cfmakeraw(&settings);
  tcsetattr(Slave, TCSANOW, &settings);
  unlink(Link.c_str());
  if (symlink(name.c_str(), Link.c_str()) != 0)
    throw std::runtime_error("Cannot link " + Link + ".");
  Reader = std::make_unique<ByteReader>(master, [this](double time, std::string_view bytes) {
    std::lock_guard guard(Lock);
    for (char byte : bytes) Bytes.push_back({time, static_cast<unsigned char>(byte)});
  });
}

void Amplifier::PullOut() {
  Reader.reset();
  if (Slave >= 0) close(Slave);
  Slave = -1;
}

Amplifier::~Amplifier() {
  PullOut();
  unlink(Link.c_str());
}

std::vector<LineByte> Amplifier::Received() const {
  std::lock_guard guard(Lock);
  return Bytes;
}

void Amplifier::Send(int status) {
  char byte = static_cast<char>(status);
  if (write(Reader->Descriptor(), &byte, 1) != 1)
    throw std::runtime_error("The line takes no byte.");
}

std::string DescribeRouting(int value) {
  constexpr int kZones = 6;
  constexpr int kHigh = 128;
  if (value == 0) return "release";
  std::string text = "zones";
  for (int zone = 0; zone < kZones; ++zone) {
    if (value >> zone & 1) text += " " + std::to_string(zone + 1);
  }
  return text + (value & kHigh ? " high" : " low");
}

}  // namespace marlex::stage
