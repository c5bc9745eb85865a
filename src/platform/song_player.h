#pragma once

#include <functional>
#include <string>

namespace marlex {

enum PlayStates : int { kStopped = 0, kPaused = 1, kPlaying = 2 };

/// Plays one MP3 file at a time. Calls and callbacks are on the system's thread; callbacks never
/// run inside a call. A file on a slow drive plays in silence until it is open; one that then turns
/// out to be unplayable ends like a song that has played to its end.
class SongPlayer {
 public:
  virtual ~SongPlayer() = default;

  /// Stops the current song and loads a file, stopped at its beginning. A file that cannot be
  /// played is refused: `FileName` then returns an empty string.
  virtual void SetFileName(const std::string& path) = 0;
  virtual std::string FileName() const = 0;

  /// Length in seconds; 0 when no file is loaded, and until the length of a file on a slow drive is
  /// known. One that is stopped before is not read on until it is played again.
  virtual double Duration() const = 0;

  /// Seconds played; kept to the sample during a pause, 0 after a stop.
  virtual double CurrentPosition() const = 0;

  virtual int PlayState() const = 0;  // one of `PlayStates`

  /// Starts, or resumes after a pause; no effect without a file, or when the file has gone since it
  /// was stopped or played to its end.
  virtual void Play() = 0;
  virtual void Pause() = 0;  // no effect unless playing
  virtual void Stop() = 0;   // back to the beginning; reports no end

  /// Called when the song has played to its end; the state is then `kStopped`. Never called for a
  /// song that was stopped or replaced.
  std::function<void()> OnEndOfStream;
};

}  // namespace marlex
