#pragma once

#include <utility>

#include "platform/media_check.h"
#include "simulation/memory_disk.h"

namespace marlex {

/// Inspects files of the memory disk, which never make it wait, and looks for text files where the
/// system does. For speed it looks again only after the disk has changed.
class SimulatedMediaCheck : public MediaCheck {
 public:
  explicit SimulatedMediaCheck(MemoryDisk& disk) : Texts(&disk), Disk(disk) {}

  Directories* Texts;

  void Watch(std::vector<WatchedFile> files) override {
    Watched = std::move(files);
    IsKnown = false;
  }

  const std::vector<MediaState>& States() override {
    const bool isSame = IsKnown && Texts == &Disk && Disk.Changes() == KnownChanges;
    if (!isSame) Inspect();
    return Known;
  }

 private:
  void Inspect() {
    Known.clear();
    for (const WatchedFile& file : Watched) Known.push_back(Of(file));
    IsKnown = true;
    KnownChanges = Disk.Changes();
  }

  MediaState Of(const WatchedFile& file) const {
    if (file.Kind == MediumKind::TextFile)
      return Texts->Search(file.Path).empty() ? MediaState::Missing : MediaState::Good;
    const MediaKind kind = file.Kind == MediumKind::Song ? MediaKind::Mp3 : MediaKind::Wav;
    if (Disk.MediaLengthMs(file.Path, kind)) return MediaState::Good;
    return Disk.Search(file.Path).empty() ? MediaState::Missing : MediaState::Unplayable;
  }

  const MemoryDisk& Disk;
  std::vector<WatchedFile> Watched;
  std::vector<MediaState> Known;
  std::uint64_t KnownChanges = 0;  // of the disk
  bool IsKnown = false;
};

}  // namespace marlex
