#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace marlex {

/// Modes of the wave player, with the values of the published media control interface.
enum WaveMode : int {
  kWaveNotOpen = 524,
  kWaveStopped = 525,
  kWavePlaying = 526,
  kWavePaused = 529,
};

/// Plays one WAV file at a time. Calls and callbacks are on the system's thread; callbacks never
/// run inside a call. A file on a slow drive plays in silence until it is open; one that then turns
/// out to be unplayable ends like a message that has played to its end.
///
/// Mode 525 is reported through `OnStatusUpdate` within 20 ms, exactly once, for every play that
/// ends, for a file that could not be opened, and for a file that is closed while it is playing or
/// paused. A device that was never opened reports nothing. Opening a file drops all undelivered
/// reports of earlier files, so that none of them can end a wait for the new one.
class WavePlayer {
 public:
  virtual ~WavePlayer() = default;

  // Properties for the next command. `Notify`, `Wait`, `Shareable` and `DeviceType` are only
  // stored: the player always works as if `Wait` were false, since a command never blocks.
  bool Notify = false;
  bool Wait = false;
  bool Shareable = false;
  std::string DeviceType;
  std::string FileName;

  /// "Open", "Play", "Pause", "Stop" or "Close", spelled exactly so; anything else is ignored.
  /// "Play" resumes a paused file, and starts a stopped one from its beginning. A file that has
  /// gone since it was opened or played to its end is reported like one that could not be opened.
  virtual void Command(std::string_view command) = 0;

  /// Opens a message in place of any other file. "Play" then plays it.
  void OpenMessage(const std::string& path) {
    Notify = false;
    Wait = true;
    Shareable = false;
    DeviceType = "WaveAudio";
    FileName = path;
    Command("Close");
    Command("Open");
  }

  /// Current mode. While a report is being delivered, the reported mode, until "Open" or "Play".
  virtual int Mode() const = 0;

  /// Length of the open file in milliseconds; 0 when none is open, and until the length of a file
  /// on a slow drive is known. One that is stopped before is not read on until it is played again.
  virtual long Length() const = 0;

  std::function<void()> OnDone;          // a file has played to its end
  std::function<void()> OnStatusUpdate;  // the mode has changed
};

}  // namespace marlex
