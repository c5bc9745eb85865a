#pragma once

#include <string>
#include <vector>

#include "desktop/sound/media_files.h"
#include "desktop/sound/private_server.h"
#include "desktop/sound/sound_engine.h"
#include "desktop/sound/test_loop.h"

namespace marlex {

/// Measures the delay from the microphone to the output on a private server, between the points
/// where the server passes the sound on: a sample of the mouth counts from the moment at which a
/// microphone would deliver it, and one of the desk until it is in the card's buffer. The time that
/// the sound then spends in the buffer of the server's silent card is not included, since the
/// server may make it as long as it likes.
class MicrophoneDelay {
 public:
  explicit MicrophoneDelay(const SoundOptions& options);

  /// Opens the microphone, speaks the given number of words and returns the milliseconds that each
  /// of them took; fewer values when words were lost.
  std::vector<double> Measure(int words);

  PrivateServer Server;

 private:
  std::string Words(int count);

  MediaFiles Files;
  TestLoop Loop;
  SoundEngine Engine;
};

}  // namespace marlex
