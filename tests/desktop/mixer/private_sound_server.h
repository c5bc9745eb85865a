#pragma once

#include <signal.h>
#include <sys/types.h>

#include <string>

namespace marlex {

/// A PulseAudio of the test's own with silent outputs, and the environment that leads to it. The
/// user's server and its levels stay untouched.
class PrivateSoundServer {
 public:
  PrivateSoundServer();
  ~PrivateSoundServer();
  PrivateSoundServer(const PrivateSoundServer&) = delete;
  PrivateSoundServer& operator=(const PrivateSoundServer&) = delete;

  static bool IsInstalled();

  /// Starts it with the output "card" and waits until it answers. False when it does not.
  bool Start();

  /// Stops answering, and goes on where it was.
  void Freeze() { kill(Server, SIGSTOP); }
  void Thaw() { kill(Server, SIGCONT); }

  /// Dies without a farewell.
  void Kill();

  /// What `pactl` prints for these arguments.
  std::string Ask(const std::string& arguments) const;

  /// Level of a channel (0 left, 1 right) of the output "card", in the server's steps (0 to 65536);
  /// -1 when unknown.
  int Level(int channel) const;
  bool IsMuted() const;

 private:
  std::string Directory;
  std::string OldServer;  // environment, as it was
  pid_t Server = 0;
};

}  // namespace marlex
