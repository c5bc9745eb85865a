#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace marlex {

/// Modes of the wave player, the values of the published media control interface.
enum WaveMode : int {
  kWaveNotOpen = 524,
  kWaveStopped = 525,
  kWavePlaying = 526,
  kWavePaused = 529,
};

/// Plays one WAV file at a time. Calls and callbacks are on the system's thread, callbacks never
/// inside a call.
///
/// Mode 525 is reported through `OnStatusUpdate` within 20 ms, exactly once, for every play that
/// ends, for a file that could not be opened, and for a file that is closed while it plays. A
/// device that was never opened reports nothing. Opening a file drops every report of an earlier
/// file that is not yet delivered, so that none of them can end a wait for the new one.
class WavePlayer {
 public:
  virtual ~WavePlayer() = default;

  // Properties that the next command takes. `Notify`, `Wait`, `Shareable` and `DeviceType` are kept
  // and read back; the player always works as with `Wait` False, since a command never blocks.
  bool Notify = false;
  bool Wait = false;
  bool Shareable = false;
  std::string DeviceType;
  std::string FileName;

  /// "Open", "Play", "Pause", "Stop" or "Close", exactly; any other word is no command and does
  /// nothing. "Play" resumes a pause and starts a stopped file from its beginning.
  virtual void Command(std::string_view command) = 0;

  /// Present mode. While a report is delivered it is the reported one.
  virtual int Mode() const = 0;

  /// Length of the open file in milliseconds; 0 when none is open.
  virtual long Length() const = 0;

  std::function<void()> OnDone;          // a file was played to its end
  std::function<void()> OnStatusUpdate;  // the mode has changed
};

}  // namespace marlex
