#pragma once

#include <array>

#include "desktop/sound/sound_file.h"

namespace marlex {

/// The bytes of a WAV file as a parser expects them. A recorder writes the size of its sound last;
/// where that never happened, the size reads as what is there instead of 0.
class WavFile {
 public:
  /// False for anything but a readable regular file that starts as a WAV, so that no other parser
  /// of the sound library ever sees it. Leaves the reading position at the beginning.
  bool Open(const std::string& path);

  std::int64_t Size() const { return File.Size(); }

  /// Like those of `SoundFile`.
  ssize_t Read(void* buffer, std::size_t bytes);
  off_t Seek(off_t offset, int whence) { return File.Seek(offset, whence); }

 private:
  static constexpr std::size_t kSizeBytes = 4;

  bool ReadAt(std::int64_t offset, void* buffer, std::size_t bytes);
  std::uint32_t SizeAt(std::int64_t offset);
  std::int64_t FindData();
  bool IsChunks(std::int64_t offset);
  void SetDataSize(std::int64_t offset);

  SoundFile File;
  bool BigEndian = false;
  std::int64_t DataSizeAt = -1;  // offset of the size to replace; -1 for none
  std::array<char, kSizeBytes> DataSize = {};
};

}  // namespace marlex
