#pragma once

#include <memory>
#include <string>
#include <vector>

#include "sound/child_process.h"

namespace marlex {

/// Records the monitor of a sink for as long as it lives: stereo, 44100 frames a second.
class Recording {
 public:
  /// Returns once the recording has begun; throws when it does not.
  explicit Recording(const std::string& sink);
  ~Recording();
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;

  /// Everything recorded so far.
  const std::vector<float>& Sound();

  /// When the frame was passed on, on the steady clock in seconds. A late delivery is corrected by
  /// the prompt ones that follow it within half a second. The frame must have been recorded.
  double TimeOf(std::size_t frame) const;

  /// The loudest of the last `frames` recorded frames.
  float Latest(int frames = 2205);

 private:
  std::unique_ptr<stage::ChildProcess> Recorder;
  int Pipe = -1;
  std::string Bytes;
  std::vector<float> Samples;

  struct Delivery {
    std::size_t Frames;  // recorded so far at that moment
    double Seconds;      // when, on the steady clock
  };
  std::vector<Delivery> Deliveries;
};

}  // namespace marlex
