#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace marlex {

/// A regular file, read in large pieces so that a song costs few system calls. An error reads like
/// the file's end.
class SoundFile {
 public:
  SoundFile() = default;
  ~SoundFile();
  SoundFile(const SoundFile&) = delete;
  SoundFile& operator=(const SoundFile&) = delete;

  /// False for what is no readable regular file; a pipe or a device is never waited for.
  bool Open(const std::string& path);

  std::int64_t Size() const { return Length; }

  /// Offsets of `Seek` count from here on; the reading position is moved there.
  void SetBase(std::int64_t offset);

  /// Reads up to `bytes` and returns their number, 0 at the end.
  ssize_t Read(void* buffer, std::size_t bytes);

  /// As `lseek`, counted from the base; -1 for a place before it.
  off_t Seek(off_t offset, int whence);

 private:
  bool Refill();

  int Descriptor = -1;
  std::int64_t Length = 0;
  std::int64_t Base = 0;
  std::int64_t BufferStart = 0;  // place in the file of the buffer's first byte
  std::size_t BufferUsed = 0;    // bytes of the buffer that are read already
  std::size_t BufferFill = 0;
  std::vector<char> Buffer;
};

}  // namespace marlex
