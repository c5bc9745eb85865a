#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "desktop/sound/sound_output.h"
#include "desktop/sound/waker.h"

namespace marlex {

/// Keeps samples flowing: through the device while it is there, by a timer while it is not. A
/// device that is lost, or that is awake and takes nothing for two seconds, is closed and reopened;
/// attempts follow once a second until one succeeds.
class OutputKeeper {
 public:
  /// Opens the device that was found at start, and no other; null while that is impossible. May
  /// block for a while.
  using Opener = std::function<std::unique_ptr<SoundOutput>()>;

  /// `source` must outlive the keeper.
  explicit OutputKeeper(OutputSource& source);
  ~OutputKeeper();
  OutputKeeper(const OutputKeeper&) = delete;
  OutputKeeper& operator=(const OutputKeeper&) = delete;

  /// Starts with the device found at start, or null when there is none. Without an `opener`, a
  /// missing or lost device is never reopened.
  void Start(std::unique_ptr<SoundOutput> output, Opener opener);

  /// Stops the output. When it returns, the source is not being called and will not be again.
  void Stop();

  /// For the system's thread: call when something may have started to play, or the microphone was
  /// opened or closed.
  void Wake();

  /// For any thread; never lock.
  void OutputChanged();
  void CountBlock() { ++Blocks; }

  /// The device takes samples; false while the timer stands in for it.
  bool DeviceAlive() const { return OnDevice; }

 private:
  void Run();
  void WatchDevice();
  void AwaitDevice();
  bool Stalled();
  void Use(std::unique_ptr<SoundOutput> output, bool device);

  OutputSource& Source;
  Opener Open;
  std::mutex Guard;                     // guards `Output`
  std::unique_ptr<SoundOutput> Output;  // written by the keeper's thread only
  std::atomic<bool> OnDevice{false};
  std::atomic<bool> Quit{false};
  std::atomic<std::uint64_t> Blocks{0};  // rendered so far
  std::uint64_t SeenBlocks = 0;
  std::int64_t SeenUs = 0;  // when `SeenBlocks` last changed
  Waker Waking;
  std::thread Thread;
};

}  // namespace marlex
