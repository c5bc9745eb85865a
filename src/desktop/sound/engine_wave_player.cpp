#include "desktop/sound/engine_wave_player.h"

#include <cmath>

#include "desktop/sound/sound_format.h"
#include "desktop/sound/wav_decoder.h"

namespace marlex {

EngineWavePlayer::~EngineWavePlayer() { Unload(); }

void EngineWavePlayer::Command(std::string_view command) {
  if (command == "Open") Open();
  if (command == "Play") Play();
  if (command == "Pause") Pause();
  if (command == "Stop") Stop();
  if (command == "Close") Close();
}

long EngineWavePlayer::Length() const {
  constexpr double kMsPerSecond = 1000;
  return std::lround((Stream ? Stream->Seconds() : Seconds) * kMsPerSecond);
}

void EngineWavePlayer::Open() {
  Unload();
  Opening.Cut();
  Reported.reset();
  Seconds = 0;
  OpenPath = FileName;
  Stream = Engine.Load(OpenPath, OpenWav, EndReport::kHeard);
  Present = Stream ? kWaveStopped : kWaveNotOpen;
  if (!Stream) ReportStopped();
}

void EngineWavePlayer::Play() {
  if (Present != kWaveStopped && Present != kWavePaused) return;
  if (!Stream) Stream = Engine.Load(OpenPath, OpenWav, EndReport::kHeard);
  if (!Stream) return ReportStopped();  // the file has gone since it was opened
  Present = kWavePlaying;
  Reported.reset();
  Engine.Play(Stream, [this] {
    Unload();
    Present = kWaveStopped;
    DeliverStopped(true);
  });
}

void EngineWavePlayer::Pause() {
  if (Present != kWavePlaying) return;
  Present = kWavePaused;
  Stream->Pause();
}

void EngineWavePlayer::Stop() {
  if (!InPlay()) return;
  Unload();
  Present = kWaveStopped;
  ReportStopped();
}

void EngineWavePlayer::Close() {
  const bool ended = InPlay();
  Unload();
  Present = kWaveNotOpen;
  Seconds = 0;
  if (ended) ReportStopped();
}

void EngineWavePlayer::Unload() {
  if (!Stream) return;
  Seconds = Stream->Seconds();
  Engine.Release(Stream);
  Stream = nullptr;
}

/// Reports mode 525 as a separate event, never from inside a command.
void EngineWavePlayer::ReportStopped() {
  Loop.Post(Opening.Guard([this] { DeliverStopped(false); }));
}

/// While the report is being delivered, `Mode` returns the reported mode. A listener that opens the
/// next file ends the report of this one.
void EngineWavePlayer::DeliverStopped(bool played) {
  const Lifeline::Tie opening = Opening.Now();
  // Destroyed with this call, even if a listener throws.
  const auto report = std::make_shared<char>();
  Reported = report;
  if (played && OnDone) OnDone();
  if (!opening.Holds() || !OnStatusUpdate) return;
  Reported = report;  // also when the listener has started the file again
  OnStatusUpdate();
}

}  // namespace marlex
