#pragma once

#include <semaphore.h>

#include <string>
#include <thread>

#include "desktop/sound/frame_ring.h"
#include "desktop/sound/microphone_path.h"

namespace marlex {

/// Captures from an ALSA device while the microphone line is open, and hands the sound to the
/// output's thread. The device is opened and closed with the line, so that no old capture is ever
/// heard.
class AlsaMicrophone {
 public:
  AlsaMicrophone(const std::string& name, const MicrophoneLines& lines);
  ~AlsaMicrophone();
  AlsaMicrophone(const AlsaMicrophone&) = delete;
  AlsaMicrophone& operator=(const AlsaMicrophone&) = delete;

  /// The line was opened or closed. Returns at once.
  void Follow();

  /// For the output's thread: adds what was captured. True while the line is open. Never locks.
  bool MixInto(float* stereo, int frames);

 private:
  void Run();
  void Capture();

  const std::string Name;
  SoundLine& Line;
  MicrophonePath Path;
  FrameRing Ring;
  std::atomic<bool> Quit{false};
  sem_t Waker;
  std::thread Thread;
};

}  // namespace marlex
