#pragma once

#include <memory>
#include <string>
#include <vector>

#include "sound/child_process.h"

namespace marlex::stage {

/// What is attached to a sound server of the tests.
struct SoundCards {
  std::vector<std::string> Outputs = {"card"};  // the first is the default
  bool Microphone = false;  // "microphone", which hears what is played into the output "mouth"
  int Rate = 48'000;        // frames a second of the cards; 0 leaves it to the server
  bool OnPipeWire = false;  // whatever else the machine has; see `KillInterface`
};

/// A sound server of our own with silent cards, separate from any other server of the machine. A
/// program started with `Variables` also reaches it through its ALSA device `default`.
class SoundServer {
 public:
  /// Writes the server's files into the folder and starts it. Throws when it does not come up.
  SoundServer(const std::string& folder, const SoundCards& cards);

  Environment Variables() const;

  /// Id of its process, which must be running.
  pid_t Pid() const { return Server->Pid(); }

  /// Kills it without warning, as a crash would. With PipeWire all of its processes die.
  void Kill();

  /// Starts it again after `Kill`, possibly with other cards. Until it answers, the socket of the
  /// killed one remains: clients see a server that is starting. It ends with the thread that starts
  /// it.
  void Start(const SoundCards& cards);

  /// For `OnPipeWire`, where a program reaches the cards through a process of its own, as through
  /// pipewire-pulse on a desktop: the rest, which the tests themselves use, runs on without it.
  void KillInterface();
  void StartInterface();

  /// Stops answering, and later continues where it stopped.
  void Freeze() { Server->Signal(SIGSTOP); }
  void Thaw() { Server->Signal(SIGCONT); }

  /// Runs `pactl` with these words and returns what it prints.
  std::string Control(const std::string& words) const;

  /// Records what an output plays, as raw 16-bit stereo at `kSampleRate`, into a descriptor, of
  /// which it takes ownership.
  std::unique_ptr<ChildProcess> Record(const std::string& output, int descriptor) const;

  /// Plays a WAV file into the microphone, until the file or the process ends.
  std::unique_ptr<ChildProcess> Speak(const std::string& file) const;

  static constexpr int kSampleRate = 48'000;
  static constexpr int kChannels = 2;

 private:
  Command Prepare(std::vector<std::string> arguments, const std::string& log) const;
  bool IsReady(const SoundCards& cards) const;
  void WriteAlsaConfiguration() const;

  std::string Folder;
  bool OnPipeWire;
  std::unique_ptr<ChildProcess> Server;
  std::unique_ptr<ChildProcess> Interface;
};

}  // namespace marlex::stage
