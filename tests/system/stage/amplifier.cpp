#include "amplifier.h"

#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>

namespace marlex::stage {

Amplifier::Amplifier(const std::string& link) : Terminal(link) { PlugIn(); }

void Amplifier::PlugIn() {
  if (const std::string fault = Terminal.PlugIn(); !fault.empty()) throw std::runtime_error(fault);
  Slave = open(Terminal.Device().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  const int ours = fcntl(Terminal.Descriptor(), F_DUPFD_CLOEXEC, 0);
  Reader = std::make_unique<ByteReader>(ours, [this](double time, std::string_view bytes) {
    std::lock_guard guard(Lock);
    for (char byte : bytes) Bytes.push_back({time, static_cast<unsigned char>(byte)});
  });
}

void Amplifier::PullOut() {
  Reader.reset();
  Terminal.PullOut();
  if (Slave >= 0) close(Slave);
  Slave = -1;
}

Amplifier::~Amplifier() { PullOut(); }

std::vector<LineByte> Amplifier::Received() const {
  std::lock_guard guard(Lock);
  return Bytes;
}

void Amplifier::Send(int status) {
  char byte = static_cast<char>(status);
  if (write(Terminal.Descriptor(), &byte, 1) != 1)
    throw std::runtime_error("The line takes no byte.");
}

}  // namespace marlex::stage
