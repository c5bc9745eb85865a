#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace marlex {

/// A sound server of the test's own, with null sinks. This process and the tools that it runs use
/// it instead of any other.
class PrivateServer {
 public:
  /// Starts it with the sinks "desk" (the default) and "other", and a microphone "mic" that hears
  /// what is played into the sink "mouth".
  PrivateServer();
  ~PrivateServer();
  PrivateServer(const PrivateServer&) = delete;
  PrivateServer& operator=(const PrivateServer&) = delete;

  void Start();
  void Kill();

  /// Waits until the sink plays immediately what it receives: without listeners a null sink is
  /// seconds ahead.
  void Settle();

  /// Runs `pactl` with these arguments and returns what it prints.
  std::string Control(const std::string& arguments) const;

  /// Replaces the microphone by a dead one, which exists but delivers nothing. False where the
  /// server has no such thing.
  bool SuspendMicrophone() const;
  void ResumeMicrophone() const { Control("suspend-source mic 0"); }

  /// Takes the sink "desk" away.
  void RemoveDesk() const;

  pid_t Process() const { return Server; }

 private:
  std::filesystem::path Directory;
  pid_t Server = -1;
  pid_t Listener = -1;  // keeps the latency of the sink low
};

/// Records the monitor of a sink for as long as it lives: stereo, 44100 frames a second.
class Recording {
 public:
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
  pid_t Process = -1;
  int Pipe = -1;
  std::string Bytes;
  std::vector<float> Samples;

  struct Delivery {
    std::size_t Frames;  // recorded so far at that moment
    double Seconds;      // when, on the steady clock
  };
  std::vector<Delivery> Deliveries;
};

/// Processor time of a process in seconds, and how often its threads went to sleep.
struct ProcessCost {
  double Seconds = 0;
  long Wakeups = 0;
};
ProcessCost CostOf(pid_t process);

}  // namespace marlex
