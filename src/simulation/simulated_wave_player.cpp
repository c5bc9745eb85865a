#include "simulation/simulated_wave_player.h"

#include <algorithm>
#include <utility>

namespace marlex {

SimulatedWavePlayer::SimulatedWavePlayer(VirtualLoop& loop, const MemoryDisk& disk,
                                         Journal& journal, std::string name)
    : File(loop, disk, MediaKind::Wav), Loop(loop), Log(journal), Name(std::move(name)) {}

void SimulatedWavePlayer::Command(std::string_view command) {
  if (command == "Open") Open();
  if (command == "Play") Play();
  if (command == "Pause") Pause();
  if (command == "Stop") Stop();
  if (command == "Close") Close();
}

int SimulatedWavePlayer::Mode() const {
  return Reported.expired() ? PresentMode : static_cast<int>(kWaveStopped);
}

std::int64_t SimulatedWavePlayer::PositionMs() const {
  const std::int64_t playedMs =
      PresentMode == kWavePlaying ? PlayedMs + Loop.NowMs() - StartedMs : PlayedMs;
  return std::min<std::int64_t>(playedMs, File.LengthMs());
}

void SimulatedWavePlayer::Reset() {
  ++Opened;
  ++Started;
  File.Take("");
  PresentMode = kWaveNotOpen;
  PlayedMs = 0;
  Reported.reset();
  Notify = Wait = Shareable = false;
  DeviceType.clear();
  FileName.clear();
  OnDone = nullptr;
  OnStatusUpdate = nullptr;
}

void SimulatedWavePlayer::Open() {
  if (PresentMode == kWavePlaying) Note("stop " + ShortName());
  ++Opened;
  ++Started;
  Reported.reset();
  PlayedMs = 0;
  File.Take(FileName);
  const bool playable = File.Load();
  PresentMode = playable ? kWaveStopped : kWaveNotOpen;
  if (playable) return;
  File.Take("");
  Note("refuse " + FileNameOf(FileName));
  QueueReport(false);
}

void SimulatedWavePlayer::Play() {
  if (PresentMode != kWaveStopped && PresentMode != kWavePaused) return;
  if (!File.Load()) return QueueReport(false);  // it has gone since it was opened
  Reported.reset();
  Note((PresentMode == kWavePaused ? "resume " : "play ") + ShortName());
  PresentMode = kWavePlaying;
  StartedMs = Loop.NowMs();
  Loop.Schedule(std::max<std::int64_t>(File.LengthMs() - PlayedMs, 1), [this, start = ++Started] {
    if (start == Started) FinishPlaying();
  });
}

void SimulatedWavePlayer::Pause() {
  if (PresentMode != kWavePlaying) return;
  PlayedMs = PositionMs();
  ++Started;
  PresentMode = kWavePaused;
  Note("pause " + ShortName());
}

void SimulatedWavePlayer::Stop() {
  if (PresentMode != kWavePlaying && PresentMode != kWavePaused) return;
  ++Started;
  PlayedMs = 0;
  PresentMode = kWaveStopped;
  File.Unload();
  Note("stop " + ShortName());
  QueueReport(false);
}

void SimulatedWavePlayer::Close() {
  Stop();
  ++Started;
  PresentMode = kWaveNotOpen;
  File.Take("");
}

void SimulatedWavePlayer::FinishPlaying() {
  PlayedMs = 0;
  PresentMode = kWaveStopped;
  File.Unload();
  Note("end " + ShortName());
  QueueReport(true);
}

void SimulatedWavePlayer::QueueReport(bool done) {
  Loop.Schedule(ReportDelayMs, [this, done, opening = Opened] {
    if (opening == Opened) DeliverReport(done);
  });
}

/// A handler may open another file; the rest of the report is then void.
void SimulatedWavePlayer::DeliverReport(bool done) {
  const std::uint64_t opening = Opened;
  // Destroyed with this call, even if a handler throws.
  const auto report = std::make_shared<char>();
  Reported = report;
  if (done && OnDone) OnDone();
  if (opening != Opened || !OnStatusUpdate) return;
  Reported = report;  // also when the handler has started the file again
  OnStatusUpdate();
}

}  // namespace marlex
