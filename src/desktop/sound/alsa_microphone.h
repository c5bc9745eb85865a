#pragma once

#include <string>
#include <thread>

#include "desktop/sound/microphone_path.h"
#include "desktop/sound/microphone_queue.h"
#include "desktop/sound/waker.h"

namespace marlex {

class AlsaDevice;

/// Captures from an ALSA device while the microphone line is open, and hands the sound to the
/// output's thread. The device is opened and closed with the line, so that stale captured sound is
/// never heard.
class AlsaMicrophone {
 public:
  AlsaMicrophone(const std::string& name, const MicrophoneLines& lines);
  ~AlsaMicrophone();
  AlsaMicrophone(const AlsaMicrophone&) = delete;
  AlsaMicrophone& operator=(const AlsaMicrophone&) = delete;

  /// Call when the line has been opened or closed. Returns at once.
  void Follow();

  // For the output's thread; nothing below locks.

  /// Whether sound is arriving from the microphone, or some of it is left to play.
  bool Speaks() const { return Queue.Speaks(); }

  /// Adds the captured sound to `stereo`. Returns whether the line is open.
  bool MixInto(float* stereo, int frames);

  static constexpr int kPieceMs = 3;  // captured per transfer

 private:
  void Run();
  void Capture();
  std::unique_ptr<AlsaDevice> Open();
  void Pass(AlsaDevice& device);

  const std::string Name;
  SoundLine& Line;
  std::atomic<bool>& IsGone;
  MicrophonePath Path;
  MicrophoneQueue Queue;
  std::atomic<bool> Quit{false};
  Waker Waking;
  std::thread Thread;
};

}  // namespace marlex
