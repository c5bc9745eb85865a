#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace marlex {

/// A regular file, read in large pieces so that a song costs few system calls. A read error counts
/// as the end of the file.
class SoundFile {
 public:
  SoundFile() = default;
  ~SoundFile();
  SoundFile(const SoundFile&) = delete;
  SoundFile& operator=(const SoundFile&) = delete;

  /// False for anything but a readable regular file; never blocks on a pipe or a device.
  bool Open(const std::string& path);

  std::int64_t Size() const { return Length; }

  /// Makes `offset` the origin of `Seek`, and moves the reading position there.
  void SetBase(std::int64_t offset);

  /// Reads up to `bytes` bytes and returns how many; 0 at the end.
  ssize_t Read(void* buffer, std::size_t bytes);

  /// Like `lseek`, counted from the base; -1 for a position before it.
  off_t Seek(off_t offset, int whence);

 private:
  bool Refill();

  int Descriptor = -1;
  std::int64_t Length = 0;
  std::int64_t Base = 0;
  std::int64_t BufferStart = 0;  // file offset of the buffer's first byte
  std::size_t BufferUsed = 0;    // bytes of the buffer that were already read
  std::size_t BufferFill = 0;
  std::vector<char> Buffer;
};

}  // namespace marlex
