#pragma once

#include <cstdint>
#include <string>

#include "platform/song_player.h"
#include "simulation/journal.h"
#include "simulation/loaded_file.h"
#include "simulation/memory_disk.h"
#include "simulation/virtual_loop.h"

namespace marlex {

/// A song player whose files take their lengths in virtual time. A song of length 0 still takes one
/// millisecond.
class SimulatedSongPlayer : public SongPlayer {
 public:
  SimulatedSongPlayer(VirtualLoop& loop, const MemoryDisk& disk, Journal& journal)
      : File(loop, disk, MediaKind::Mp3), Loop(loop), Log(journal) {}

  void SetFileName(const std::string& path) override;
  std::string FileName() const override { return File.Path(); }
  double Duration() const override;
  double CurrentPosition() const override;
  int PlayState() const override { return State; }
  void Play() override;
  void Pause() override;
  void Stop() override;

  /// Simulates a slow drive: how long after its loading the length of a file becomes known.
  void SetLengthDelay(int ms) { File.LengthDelayMs = ms; }

  /// Forgets its song and its handler, as the end of the process does.
  void Reset();

 private:
  std::int64_t PositionMs() const;
  void Halt(PlayStates state);
  void ReachEnd();

  LoadedFile File;  // loaded from loading or a start to a stop or the end
  VirtualLoop& Loop;
  Journal& Log;

  PlayStates State = kStopped;
  std::int64_t PlayedMs = 0;   // before the current start
  std::int64_t StartedMs = 0;  // virtual time of the current start
  std::uint64_t Started = 0;   // counts starts and halts; an end from before is void
};

}  // namespace marlex
