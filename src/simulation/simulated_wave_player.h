#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/wave_player.h"
#include "simulation/journal.h"
#include "simulation/loaded_file.h"
#include "simulation/memory_disk.h"
#include "simulation/virtual_loop.h"

namespace marlex {

/// A wave player whose files take their lengths in virtual time. A file of length 0 still takes one
/// millisecond.
class SimulatedWavePlayer : public WavePlayer {
 public:
  /// `name` is its category in the journal.
  SimulatedWavePlayer(VirtualLoop& loop, const MemoryDisk& disk, Journal& journal,
                      std::string name);

  void Command(std::string_view command) override;
  int Mode() const override;
  long Length() const override { return File.KnownLengthMs(); }

  /// Path of the open file; empty when none is open.
  const std::string& OpenFile() const { return File.Path(); }

  /// Playing position in the file, in milliseconds.
  std::int64_t PositionMs() const;

  /// Forgets its file, its properties and its handlers, as the end of the process does.
  void Reset();

  /// Milliseconds from the end of a play to its report, 0 to 20.
  int ReportDelayMs = 0;

  /// Simulates a slow drive: how long after its loading the length of a file becomes known.
  void SetLengthDelay(int ms) { File.LengthDelayMs = ms; }

 private:
  void Open();
  void Play();
  void Pause();
  void Stop();
  void Close();
  void FinishPlaying();
  void QueueReport(bool done);
  void DeliverReport(bool done);
  void Note(const std::string& what) { Log.Write(Name, what); }
  std::string ShortName() const { return FileNameOf(File.Path()); }

  LoadedFile File;  // loaded from an opening or a start to the end of the play
  VirtualLoop& Loop;
  Journal& Log;
  std::string Name;

  int PresentMode = kWaveNotOpen;
  std::int64_t PlayedMs = 0;     // before the current start
  std::int64_t StartedMs = 0;    // virtual time of the current start
  std::uint64_t Opened = 0;      // counts openings; reports of an earlier one are void
  std::uint64_t Started = 0;     // counts starts and halts; an end from before is void
  std::weak_ptr<char> Reported;  // lives while mode 525 is being delivered
};

}  // namespace marlex
