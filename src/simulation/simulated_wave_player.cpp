#include "simulation/simulated_wave_player.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace marlex {

SimulatedWavePlayer::SimulatedWavePlayer(VirtualLoop& loop, const MemoryDisk& disk,
                                         Journal& journal, std::string name)
    : Loop(loop), Disk(disk), Log(journal), Name(std::move(name)) {}

void SimulatedWavePlayer::Command(std::string_view command) {
  if (command == "Open") Open();
  if (command == "Play") Play();
  if (command == "Pause") Pause();
  if (command == "Stop") Stop();
  if (command == "Close") Close();
}

int SimulatedWavePlayer::Mode() const {
  return ReportingStop ? static_cast<int>(kWaveStopped) : PresentMode;
}

long SimulatedWavePlayer::Length() const { return LengthMs; }

std::int64_t SimulatedWavePlayer::PositionMs() const {
  const std::int64_t playedMs =
      PresentMode == kWavePlaying ? PlayedMs + Loop.NowMs() - StartedMs : PlayedMs;
  return std::min<std::int64_t>(playedMs, LengthMs);
}

void SimulatedWavePlayer::Reset() {
  ++Opened;
  ++Started;
  Path.clear();
  PresentMode = kWaveNotOpen;
  LengthMs = 0;
  PlayedMs = 0;
  ReportingStop = false;
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
  ReportingStop = false;
  PlayedMs = 0;
  const std::optional<int> lengthMs = Disk.MediaLengthMs(FileName, MediaKind::Wav);
  Path = lengthMs ? FileName : "";
  LengthMs = lengthMs.value_or(0);
  PresentMode = lengthMs ? kWaveStopped : kWaveNotOpen;
  if (lengthMs) return;
  Note("refuse " + FileNameOf(FileName));
  QueueReport(false);
}

void SimulatedWavePlayer::Play() {
  if (PresentMode != kWaveStopped && PresentMode != kWavePaused) return;
  Note((PresentMode == kWavePaused ? "resume " : "play ") + ShortName());
  PresentMode = kWavePlaying;
  StartedMs = Loop.NowMs();
  Loop.Schedule(std::max<std::int64_t>(LengthMs - PlayedMs, 1), [this, start = ++Started] {
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
  Note("stop " + ShortName());
  QueueReport(false);
}

void SimulatedWavePlayer::Close() {
  Stop();
  ++Started;
  PresentMode = kWaveNotOpen;
  Path.clear();
  LengthMs = 0;
}

void SimulatedWavePlayer::FinishPlaying() {
  PlayedMs = 0;
  PresentMode = kWaveStopped;
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
  ReportingStop = true;
  if (done && OnDone) OnDone();
  if (opening == Opened && OnStatusUpdate) OnStatusUpdate();
  if (opening == Opened) ReportingStop = false;
}

}  // namespace marlex
