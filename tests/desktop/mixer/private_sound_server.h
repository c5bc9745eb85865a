#pragma once

#include <signal.h>
#include <sys/types.h>

#include <string>

namespace marlex {

/// A sound server of the test's own with silent outputs, and the environment that leads to it. The
/// user's server and its levels are not touched.
class PrivateSoundServer {
 public:
  PrivateSoundServer();
  ~PrivateSoundServer();
  PrivateSoundServer(const PrivateSoundServer&) = delete;
  PrivateSoundServer& operator=(const PrivateSoundServer&) = delete;

  static bool IsInstalled();

  /// Starts it with the output "card" and waits until it answers. False when it does not.
  bool Start();

  /// Stops answering, and later continues where it stopped.
  void Freeze() { kill(Server, SIGSTOP); }
  void Thaw() { kill(Server, SIGCONT); }

  /// Kills it without warning.
  void Kill();

  /// Runs `pactl` with these arguments and returns what it prints.
  std::string Ask(const std::string& arguments) const;

  /// Takes the output "card" away, and brings it back.
  void RemoveCard() const;
  void AddCard() const { Ask("load-module module-null-sink sink_name=card"); }

  /// Level of a channel (0 left, 1 right) of an output, in the server's steps (0 to 65536); -1 when
  /// unknown.
  int Level(int channel, const std::string& output = "card") const;
  bool IsMuted(const std::string& output = "card") const;

 private:
  std::string Directory;
  std::string OldServer;  // the environment as it was
  pid_t Server = 0;
};

}  // namespace marlex
