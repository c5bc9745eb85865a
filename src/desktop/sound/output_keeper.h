#pragma once

#include <semaphore.h>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "desktop/sound/sound_output.h"

namespace marlex {

/// Keeps samples flowing: out of the device while it is there, by a timer while it is not. A device
/// that is lost, or that is awake and takes nothing for two seconds, is closed, and tried again
/// once a second for as long as it takes.
class OutputKeeper {
 public:
  /// Opens the device that was found at start, and no other; null while it cannot. It may block for
  /// a while.
  using Opener = std::function<std::unique_ptr<SoundOutput>()>;

  /// `source` outlives the keeper.
  explicit OutputKeeper(OutputSource& source);
  ~OutputKeeper();
  OutputKeeper(const OutputKeeper&) = delete;
  OutputKeeper& operator=(const OutputKeeper&) = delete;

  /// Begins with the device as it was found, null when there is none; without an `opener` there
  /// never will be one.
  void Start(std::unique_ptr<SoundOutput> output, Opener opener);

  /// Ends it; the source is not called any more.
  void Stop();

  /// For the system's thread: something may have begun to play, or the microphone is opened or
  /// closed.
  void Wake();

  /// For any thread; never locks.
  void OutputChanged();
  void CountBlock() { ++Blocks; }

  /// The device takes samples; false while time goes by the timer.
  bool DeviceAlive() const { return OnDevice; }

 private:
  void Run();
  void WatchDevice();
  void AwaitDevice();
  bool Stalled();
  void Use(std::unique_ptr<SoundOutput> output, bool device);

  OutputSource& Source;
  Opener Open;
  std::mutex Guard;                     // of the pointer
  std::unique_ptr<SoundOutput> Output;  // changed by the keeper's thread only
  std::atomic<bool> OnDevice{false};
  std::atomic<bool> Quit{false};
  std::atomic<std::uint64_t> Blocks{0};  // taken from the source
  std::uint64_t SeenBlocks = 0;
  std::int64_t SeenUs = 0;  // when that number was last another one
  sem_t Waker;
  std::thread Thread;
};

}  // namespace marlex
