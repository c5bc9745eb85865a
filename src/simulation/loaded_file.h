#pragma once

#include <cstdint>
#include <string>

#include "simulation/memory_disk.h"
#include "simulation/virtual_loop.h"

namespace marlex {

/// The sound file of a simulated player, with its length.
class LoadedFile {
 public:
  LoadedFile(const VirtualLoop& loop, const MemoryDisk& disk, MediaKind kind)
      : Loop(loop), Disk(disk), Kind(kind) {}

  /// Simulates a slow drive: how long after loading the file its length becomes known. It can be
  /// played at once.
  int LengthDelayMs = 0;

  /// Takes another file, which is not loaded yet; none when the path is empty.
  void Take(const std::string& path);

  /// Reads the file, unless it is loaded already. False when it cannot be played.
  bool Load();

  /// Lets go of the file. Its length remains known; the next play reads it again.
  void Unload();

  const std::string& Path() const { return FilePath; }

  /// Length when the file was last loaded.
  int LengthMs() const { return ReadLengthMs; }

  /// Length as far as the player knows it; 0 until then.
  int KnownLengthMs() const;

 private:
  const VirtualLoop& Loop;
  const MemoryDisk& Disk;
  const MediaKind Kind;
  std::string FilePath;
  bool Loaded = false;
  int ReadLengthMs = 0;
  int KeptLengthMs = 0;       // known while the file is not loaded
  std::int64_t LoadedMs = 0;  // virtual time
};

}  // namespace marlex
