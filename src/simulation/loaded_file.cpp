#include "simulation/loaded_file.h"

#include <optional>

namespace marlex {

void LoadedFile::Take(const std::string& path) {
  FilePath = path;
  Loaded = false;
  KeptLengthMs = 0;
}

bool LoadedFile::Load() {
  if (Loaded) return true;
  const std::optional<int> lengthMs = Disk.MediaLengthMs(FilePath, Kind);
  ReadLengthMs = lengthMs.value_or(0);
  LoadedMs = Loop.NowMs();
  Loaded = lengthMs.has_value();
  return Loaded;
}

void LoadedFile::Unload() {
  KeptLengthMs = KnownLengthMs();
  Loaded = false;
}

int LoadedFile::KnownLengthMs() const {
  if (!Loaded) return KeptLengthMs;
  return Loop.NowMs() - LoadedMs < LengthDelayMs ? 0 : ReadLengthMs;
}

}  // namespace marlex
