#pragma once

#include <thread>

#include "desktop/sound/sound_output.h"
#include "desktop/sound/waker.h"

namespace marlex {

/// Keeps time without a device: takes samples in real time and discards them, so that songs and
/// messages still end.
class TimerOutput : public SoundOutput {
 public:
  TimerOutput();
  ~TimerOutput() override;
  TimerOutput(const TimerOutput&) = delete;
  TimerOutput& operator=(const TimerOutput&) = delete;

  void Start(OutputSource& source) override;
  void Wake() override;
  bool Alive() const override { return true; }
  bool Asleep() const override { return Sleeping; }

 private:
  void Run(OutputSource& source);
  void Sleep(OutputSource& source);

  std::atomic<bool> Quit{false};
  std::atomic<bool> Sleeping{false};
  Waker Waking;
  std::thread Thread;
};

}  // namespace marlex
