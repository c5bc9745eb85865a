#pragma once

#include <thread>
#include <vector>

#include "desktop/sound/alsa_device.h"
#include "desktop/sound/alsa_microphone.h"
#include "desktop/sound/sound_output.h"
#include "desktop/sound/waker.h"

namespace marlex {

/// How full a card's buffer is kept, in frames: as soon as no more than `Least` are left, it is
/// refilled up to `Most`.
struct CardFill {
  int Least = 0;
  int Most = 0;
};

/// Fill levels for a card that transfers `piece` frames at a time and buffers `buffer`. Music is
/// buffered generously, to save wake-ups; while somebody speaks, at most two pieces wait.
CardFill FillOfCard(int piece, int buffer, bool speaks);

/// Plays on a sound card without a sound server. The device stops while nothing plays.
class AlsaOutput : public SoundOutput {
 public:
  AlsaOutput(std::unique_ptr<AlsaDevice> device, const std::string& name,
             const MicrophoneLines& lines);
  ~AlsaOutput() override;
  AlsaOutput(const AlsaOutput&) = delete;
  AlsaOutput& operator=(const AlsaOutput&) = delete;

  void Start(OutputSource& source) override;
  void Wake() override;
  bool Alive() const override { return Living; }
  bool Asleep() const override { return Sleeping; }

 private:
  void Run();
  bool Step();
  bool Fill(int frames);
  bool Sleep();

  std::unique_ptr<AlsaDevice> Device;
  AlsaMicrophone Input;
  OutputSource* Source = nullptr;
  SleepTimer Silence;
  bool Coarse = false;  // in speech the card takes nothing from a short queue
  std::vector<float> Block;
  std::atomic<bool> Quit{false};
  std::atomic<bool> Living{true};
  std::atomic<bool> Sleeping{false};
  Waker Waking;
  std::thread Thread;
};

}  // namespace marlex
