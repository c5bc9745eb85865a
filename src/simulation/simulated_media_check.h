#pragma once

#include "platform/media_check.h"
#include "simulation/memory_disk.h"

namespace marlex {

/// Inspects files of the memory disk, which never make it wait.
class SimulatedMediaCheck : public MediaCheck {
 public:
  explicit SimulatedMediaCheck(const MemoryDisk& disk) : Disk(disk) {}

  MediaState Song(const std::string& path) override { return Of(path, MediaKind::Mp3); }
  MediaState Message(const std::string& path) override { return Of(path, MediaKind::Wav); }
  MediaState TextFile(const std::string& path) override {
    return Disk.Search(path).empty() ? MediaState::Missing : MediaState::Good;
  }

 private:
  MediaState Of(const std::string& path, MediaKind kind) const {
    if (Disk.MediaLengthMs(path, kind)) return MediaState::Good;
    return Disk.Search(path).empty() ? MediaState::Missing : MediaState::Unplayable;
  }

  const MemoryDisk& Disk;
};

}  // namespace marlex
