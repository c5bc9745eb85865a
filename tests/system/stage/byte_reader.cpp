#include "byte_reader.h"

#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <unistd.h>

#include <stdexcept>
#include <utility>

#include "sound/wait.h"

namespace marlex::stage {

ByteReader::ByteReader(int descriptor, Piece piece)
    : Source(descriptor), OnPiece(std::move(piece)) {
  if (pipe2(StopEnd, O_CLOEXEC) != 0) throw std::runtime_error("The system has no pipe left.");
  Thread = std::thread([this] { ReadAll(); });
}

ByteReader::~ByteReader() {
  close(StopEnd[1]);
  Thread.join();
  close(StopEnd[0]);
  close(Source);
}

void ByteReader::ReadAll() {
  // The more promptly this thread runs, the more accurate its times are. Where a higher priority is
  // not permitted, only accuracy is lost.
  constexpr int kBeforeOthers = -15;
  setpriority(PRIO_PROCESS, 0, kBeforeOthers);  // for this thread alone
  char buffer[65536];
  for (;;) {
    pollfd waits[2] = {{Source, POLLIN, 0}, {StopEnd[0], POLLIN, 0}};
    if (poll(waits, 2, -1) < 0 && errno != EINTR) return;
    if (waits[1].revents) return;
    ssize_t count = read(Source, buffer, sizeof(buffer));
    if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN)) return;
    if (count > 0) OnPiece(Now(), {buffer, static_cast<size_t>(count)});
  }
}

}  // namespace marlex::stage
