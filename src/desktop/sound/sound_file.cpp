#include "desktop/sound/sound_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "desktop/files/found_path.h"

namespace marlex {
namespace {

constexpr std::size_t kPiece = 64 * 1024;  // bytes per system call

}  // namespace

SoundFile::~SoundFile() {
  if (Descriptor >= 0) close(Descriptor);
}

bool SoundFile::Open(const std::string& path) {
  Descriptor = open(FoundPath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (Descriptor < 0) return false;
  struct stat facts = {};
  if (fstat(Descriptor, &facts) != 0 || !S_ISREG(facts.st_mode)) return false;
  Length = facts.st_size;
  Buffer.resize(kPiece);
  return true;
}

void SoundFile::SetBase(std::int64_t offset) {
  Base = offset;
  Seek(0, SEEK_SET);
}

bool SoundFile::Refill() {
  BufferStart += std::int64_t(BufferFill);
  BufferUsed = BufferFill = 0;
  ssize_t got = -1;
  do got = pread(Descriptor, Buffer.data(), Buffer.size(), BufferStart);
  while (got < 0 && errno == EINTR);
  BufferFill = got > 0 ? std::size_t(got) : 0;
  return BufferFill > 0;
}

ssize_t SoundFile::Read(void* buffer, std::size_t bytes) {
  std::size_t done = 0;
  while (done < bytes) {
    if (BufferUsed == BufferFill && !Refill()) break;
    const std::size_t part = std::min(bytes - done, BufferFill - BufferUsed);
    std::memcpy(static_cast<char*>(buffer) + done, Buffer.data() + BufferUsed, part);
    BufferUsed += part;
    done += part;
  }
  return ssize_t(done);
}

off_t SoundFile::Seek(off_t offset, int whence) {
  const std::int64_t here = BufferStart + std::int64_t(BufferUsed);
  const std::int64_t from = whence == SEEK_SET ? Base : whence == SEEK_CUR ? here : Length;
  const std::int64_t to = from + offset;
  if (to < Base) return -1;
  if (to >= BufferStart && to <= BufferStart + std::int64_t(BufferFill)) {
    BufferUsed = std::size_t(to - BufferStart);
  } else {
    BufferStart = to;
    BufferUsed = BufferFill = 0;
  }
  return off_t(to - Base);
}

}  // namespace marlex
