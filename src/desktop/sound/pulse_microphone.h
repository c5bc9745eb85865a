#pragma once

#include <vector>

#include "desktop/sound/microphone_path.h"
#include "desktop/sound/pulse_connection.h"

namespace marlex {

/// Passes the microphone to the output through two streams of its own, which work in much smaller
/// pieces than music needs. They exist while the microphone line is open only, so that no old
/// capture is ever heard. All calls are under the connection's lock.
class PulseMicrophone {
 public:
  /// The connection outlives the microphone.
  PulseMicrophone(PulseConnection& connection, const PulseCard& card, const MicrophoneLines& lines);
  ~PulseMicrophone();
  PulseMicrophone(const PulseMicrophone&) = delete;
  PulseMicrophone& operator=(const PulseMicrophone&) = delete;

  /// Opens or closes as the line wants it. A microphone that is gone is tried again once a second
  /// meanwhile, and one that gives nothing for two seconds is opened anew.
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
  bool Flowing = false;            // blocks have come since the opening
  std::int64_t LastBlockUs = 0;    // when the last one came, or else the opening
  std::vector<float> Block;
};

}  // namespace marlex
