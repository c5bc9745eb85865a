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
  return Reported.expired() ? PresentMode : static_cast<int>(kWaveStopped);
}

long SimulatedWavePlayer::Length() const {
  if (!Loaded) return KnownLengthMs;
  return Loop.NowMs() - LoadedMs < LengthDelayMs ? 0 : LengthMs;
}

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
  Unload();
  KnownLengthMs = 0;
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
  KnownLengthMs = 0;
  Path = FileName;
  Loaded = Load();
  PresentMode = Loaded ? kWaveStopped : kWaveNotOpen;
  if (Loaded) return;
  Path.clear();
  Note("refuse " + FileNameOf(FileName));
  QueueReport(false);
}

/// Reads the file. False when it cannot be played.
bool SimulatedWavePlayer::Load() {
  const std::optional<int> lengthMs = Disk.MediaLengthMs(Path, MediaKind::Wav);
  LengthMs = lengthMs.value_or(0);
  LoadedMs = Loop.NowMs();
  return lengthMs.has_value();
}

/// Lets go of the file, as a play does at its end. A later "Play" reads it again.
void SimulatedWavePlayer::Unload() {
  KnownLengthMs = static_cast<int>(Length());
  Loaded = false;
}

void SimulatedWavePlayer::Play() {
  if (PresentMode != kWaveStopped && PresentMode != kWavePaused) return;
  Loaded = Loaded || Load();
  if (!Loaded) return QueueReport(false);  // the file has gone since it was opened
  Reported.reset();
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
  Unload();
  Note("stop " + ShortName());
  QueueReport(false);
}

void SimulatedWavePlayer::Close() {
  Stop();
  ++Started;
  PresentMode = kWaveNotOpen;
  Path.clear();
  Unload();
  KnownLengthMs = 0;
}

void SimulatedWavePlayer::FinishPlaying() {
  PlayedMs = 0;
  PresentMode = kWaveStopped;
  Unload();
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
