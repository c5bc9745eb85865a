#pragma once

#include <memory>
#include <string>
#include <vector>

#include "child_process.h"

namespace marlex::stage {

/// What hangs on the sound server of a stage.
struct SoundCards {
  std::vector<std::string> Outputs = {"card"};  // the first is the default
  bool Microphone = false;                      // one that hears what `Speak` plays
};

/// A sound server of our own with silent cards, apart from any other server of the machine. The
/// ALSA device `default` of a program that gets `Variables` leads to it too.
class SoundServer {
 public:
  /// Writes its files into the folder and starts. Throws when it does not come up.
  SoundServer(const std::string& folder, const SoundCards& cards);

  Environment Variables() const;

  /// Id of its process, which must be running.
  pid_t Pid() const { return Server->Pid(); }

  /// Ends it without a farewell, as a crash would.
  void Kill();

  /// Starts it again after `Kill`, perhaps with other cards.
  void Start(const SoundCards& cards);

  /// Records what an output plays, as raw 16 bit stereo at `kSampleRate`, into a descriptor, which
  /// it takes over.
  std::unique_ptr<ChildProcess> Record(const std::string& output, int descriptor) const;

  /// Plays a WAV file into the microphone, until its end or that of the process.
  std::unique_ptr<ChildProcess> Speak(const std::string& file) const;

  static constexpr int kSampleRate = 48'000;
  static constexpr int kChannels = 2;

 private:
  void Control(std::vector<std::string> arguments) const;
  void WriteAlsaConfiguration() const;
  bool IsUp() const;

  std::string Folder;
  std::unique_ptr<ChildProcess> Server;
};

}  // namespace marlex::stage
