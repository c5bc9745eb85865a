#pragma once

#include "platform/media_check.h"
#include "simulation/memory_disk.h"

namespace marlex {

/// Inspects files of the memory disk, which never make it wait, and looks for text files where the
/// system does.
class SimulatedMediaCheck : public MediaCheck {
 public:
  explicit SimulatedMediaCheck(MemoryDisk& disk) : Texts(&disk), Disk(disk) {}

  Directories* Texts;

  MediaState Song(const std::string& path) override { return Of(path, MediaKind::Mp3); }
  MediaState Message(const std::string& path) override { return Of(path, MediaKind::Wav); }
  MediaState TextFile(const std::string& path) override {
    return Texts->Search(path).empty() ? MediaState::Missing : MediaState::Good;
  }

 private:
  MediaState Of(const std::string& path, MediaKind kind) const {
    if (Disk.MediaLengthMs(path, kind)) return MediaState::Good;
    return Disk.Search(path).empty() ? MediaState::Missing : MediaState::Unplayable;
  }

  const MemoryDisk& Disk;
};

}  // namespace marlex
