#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace marlex {

/// Owns an open file descriptor.
class FileDescriptor {
 public:
  explicit FileDescriptor(int number) : Number(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : Number(std::exchange(other.Number, -1)) {}
  FileDescriptor& operator=(FileDescriptor&&) = delete;
  ~FileDescriptor() { Close(); }

  bool IsOpen() const { return Number >= 0; }
  int Get() const { return Number; }

  /// False when the system reports a late error of an earlier write. The descriptor is released in
  /// any case; being interrupted by a signal does not count as an error.
  bool Close() { return Number < 0 || ::close(std::exchange(Number, -1)) == 0 || errno == EINTR; }

 private:
  int Number;
};

}  // namespace marlex
