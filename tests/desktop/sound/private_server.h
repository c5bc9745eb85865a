#pragma once

#include <memory>
#include <string>

#include "desktop/files/temporary_directory.h"
#include "sound/sound_server.h"

namespace marlex {

/// A single output "card", at the server's own rate.
inline const stage::SoundCards kOneCard = {{"card"}, false, 0};

/// A sound server of the test's own. This process and the tools that it runs use it instead of any
/// other, and afterwards none.
class PrivateServer {
 public:
  /// Starts it with the outputs "desk", which plays promptly what it receives, and "other", and a
  /// microphone. Throws when it does not come up.
  PrivateServer();
  explicit PrivateServer(const stage::SoundCards& cards);
  ~PrivateServer();
  PrivateServer(const PrivateServer&) = delete;
  PrivateServer& operator=(const PrivateServer&) = delete;

  /// Starts it again after `Kill`. The server ends with the thread that starts it.
  void Start();

  /// Kills it without warning; its socket remains.
  void Kill();

  /// Stops answering, and later continues where it stopped.
  void Freeze() { Server->Freeze(); }
  void Thaw() { Server->Thaw(); }

  /// Runs `pactl` with these words and returns what it prints.
  std::string Control(const std::string& words) const { return Server->Control(words); }

  /// Takes an output away, and brings it back.
  void RemoveOutput(const std::string& name) const;
  void AddOutput(const std::string& name) const;

  /// Level of a channel (0 left, 1 right) of an output, the first one unless named, in the server's
  /// steps (0 to 65536); -1 when unknown.
  int Level(int channel) const { return Level(channel, Cards.Outputs.front()); }
  int Level(int channel, const std::string& output) const;
  bool IsMuted() const { return IsMuted(Cards.Outputs.front()); }
  bool IsMuted(const std::string& output) const;

  /// Plays a WAV file into the microphone, until the file or the process ends.
  std::unique_ptr<stage::ChildProcess> Speak(const std::string& file) const {
    return Server->Speak(file);
  }

  /// Replaces the microphone by a dead one, which exists but delivers nothing. False where the
  /// server has no such thing.
  bool SuspendMicrophone() const;
  void ResumeMicrophone() const { Control("suspend-source microphone 0"); }

 private:
  void Listen();
  void AwaitPromptness() const;

  const stage::SoundCards Cards;
  const test::TemporaryDirectory Folder;
  std::unique_ptr<stage::SoundServer> Server;
  bool IsPrompt = false;
  std::unique_ptr<stage::ChildProcess> Listener;  // keeps the latency of the first output low
};

}  // namespace marlex
