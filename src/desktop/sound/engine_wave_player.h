#pragma once

#include <memory>

#include "desktop/sound/sound_engine.h"
#include "platform/lifeline.h"
#include "platform/wave_player.h"

namespace marlex {

/// Plays WAV files through the engine's wave line.
class EngineWavePlayer : public WavePlayer {
 public:
  /// Both must outlive the player.
  EngineWavePlayer(SoundEngine& engine, EventLoop& loop) : Engine(engine), Loop(loop) {}
  ~EngineWavePlayer() override;
  EngineWavePlayer(const EngineWavePlayer&) = delete;
  EngineWavePlayer& operator=(const EngineWavePlayer&) = delete;

  void Command(std::string_view command) override;
  int Mode() const override { return Reported.expired() ? Present : int(kWaveStopped); }
  long Length() const override;

 private:
  void Open();
  void Play();
  void Pause();
  void Stop();
  void Close();
  void Unload();
  bool InPlay() const { return Present == kWavePlaying || Present == kWavePaused; }
  void ReportStopped();
  void DeliverStopped(bool played);

  SoundEngine& Engine;
  EventLoop& Loop;
  std::string OpenPath;  // path of the open file
  // Null without an open file, and from the end of a playback until the next one.
  std::shared_ptr<SoundStream> Stream;
  double Seconds = 0;  // length of the open file
  int Present = kWaveNotOpen;
  std::weak_ptr<char> Reported;  // lives while mode 525 is being delivered
  Lifeline Opening;              // cut by each opening: the previous file reports no more
};

}  // namespace marlex
