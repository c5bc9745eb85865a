#pragma once

#include <functional>
#include <string>

namespace marlex {

enum PlayStates : int { kStopped = 0, kPaused = 1, kPlaying = 2 };

/// Plays one MP3 file at a time. Calls and callbacks are on the system's thread, callbacks never
/// inside a call.
class SongPlayer {
 public:
  virtual ~SongPlayer() = default;

  /// Stops what plays and loads a file, at its beginning and stopped. A file that cannot be played
  /// is refused: `FileName` then reads back empty.
  virtual void SetFileName(const std::string& path) = 0;
  virtual std::string FileName() const = 0;

  virtual double Duration() const = 0;  // seconds; 0 when no file is loaded
  virtual double CurrentPosition()
      const = 0;  // seconds played; kept to the sample in a pause, 0 after a stop
  virtual int PlayState() const = 0;  // one of PlayStates

  virtual void Play() = 0;   // starts, or resumes a pause; nothing without a file
  virtual void Pause() = 0;  // nothing unless playing
  virtual void Stop() = 0;   // back to the beginning; no end is reported

  /// The loaded song ran to its end; the state is stopped. Never reported for a song that was
  /// stopped or replaced.
  std::function<void()> OnEndOfStream;
};

}  // namespace marlex
