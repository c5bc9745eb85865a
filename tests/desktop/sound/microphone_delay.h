#pragma once

#include <string>
#include <vector>

#include "desktop/sound/media_files.h"
#include "desktop/sound/private_server.h"
#include "desktop/sound/sound_engine.h"
#include "desktop/sound/test_loop.h"

namespace marlex {

/// Where the delay from the microphone to the output is measured, on a private server. Both ends
/// are taken where the server passes the sound on: a sample of the mouth counts from the moment at
/// which a microphone would give it, and one of the desk until it is in the card's buffer. So the
/// time that the sound then spends in the buffer of the server's silent card, which is as long as
/// the server likes, is no part of it.
class MicrophoneDelay {
 public:
  explicit MicrophoneDelay(const SoundOptions& options);

  /// Opens the microphone, speaks so often and returns the milliseconds that each word took; fewer
  /// when words were lost.
  std::vector<double> Measure(int words);

  PrivateServer Server;

 private:
  std::string Words(int count);

  MediaFiles Files;
  TestLoop Loop;
  SoundEngine Engine;
};

}  // namespace marlex
