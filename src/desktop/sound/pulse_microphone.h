#pragma once

#include <vector>

#include "desktop/sound/microphone_path.h"
#include "desktop/sound/pulse_connection.h"

namespace marlex {

/// Passes the microphone to the output through two streams of its own, which work in much smaller
/// pieces than music needs. They exist only while the microphone line is open, so that stale
/// captured sound is never heard. Call everything under the connection's lock.
class PulseMicrophone {
 public:
  /// `connection` must outlive the microphone.
  PulseMicrophone(PulseConnection& connection, const PulseCard& card, const MicrophoneLines& lines);
  ~PulseMicrophone();
  PulseMicrophone(const PulseMicrophone&) = delete;
  PulseMicrophone& operator=(const PulseMicrophone&) = delete;

  /// Opens or closes the streams as the line demands. While the line is open, a missing microphone
  /// is retried once a second, and one that delivers nothing for two seconds is reopened.
  void Follow();

 private:
  void Open();
  void Close();
  bool OpenCapture();
  bool OpenPlayback();
  void Lost();
  void Look();
  void SetWatch(bool on);
  void Pass();
  void PassBlock(const float* stereo, int frames);
  int Queued() const;

  PulseConnection& Connection;
  const PulseCard Card;
  SoundLine& Line;
  MicrophonePath Path;
  pa_stream* Capture = nullptr;
  pa_stream* Playback = nullptr;
  pa_time_event* Watch = nullptr;  // while the line is open
  bool Flowing = false;            // blocks have arrived since the opening
  std::int64_t LastBlockUs = 0;    // when the last block arrived; the opening before that
  std::vector<float> Block;
};

}  // namespace marlex
