#include "simulation/simulated_song_player.h"

#include <algorithm>
#include <optional>

namespace marlex {

namespace {

constexpr double kMsPerSecond = 1000.0;

}  // namespace

void SimulatedSongPlayer::SetFileName(const std::string& path) {
  Stop();
  KnownSeconds = 0;
  Path = path;
  Loaded = Load();
  if (!Loaded) Path.clear();
  Log.Write("load", FileNameOf(path));
  if (!Loaded && !path.empty()) Log.Write("song", "refuse " + FileNameOf(path));
}

/// Reads the file. False when it cannot be played.
bool SimulatedSongPlayer::Load() {
  const std::optional<int> lengthMs = Disk.MediaLengthMs(Path, MediaKind::Mp3);
  LengthMs = lengthMs.value_or(0);
  LoadedMs = Loop.NowMs();
  return lengthMs.has_value();
}

/// Lets go of the file. A later `Play` reads it again.
void SimulatedSongPlayer::Unload() {
  KnownSeconds = Duration();
  Loaded = false;
}

double SimulatedSongPlayer::Duration() const {
  if (!Loaded) return KnownSeconds;
  return Loop.NowMs() - LoadedMs < LengthDelayMs ? 0 : LengthMs / kMsPerSecond;
}

double SimulatedSongPlayer::CurrentPosition() const {
  return static_cast<double>(PositionMs()) / kMsPerSecond;
}

void SimulatedSongPlayer::Play() {
  if (Path.empty() || State == kPlaying) return;
  Loaded = Loaded || Load();
  if (!Loaded) return;  // the file has gone since it was loaded
  Log.Write("song", (State == kPaused ? "resume " : "play ") + FileNameOf(Path));
  State = kPlaying;
  StartedMs = Loop.NowMs();
  Loop.Schedule(std::max<std::int64_t>(LengthMs - PlayedMs, 1), [this, start = ++Started] {
    if (start == Started) ReachEnd();
  });
}

void SimulatedSongPlayer::Pause() {
  if (State != kPlaying) return;
  const std::int64_t positionMs = PositionMs();
  Halt(kPaused);
  PlayedMs = positionMs;
  Log.Write("song", "pause");
}

void SimulatedSongPlayer::Stop() {
  if (State == kStopped) return;
  Halt(kStopped);
  Unload();
  Log.Write("song", "stop");
}

void SimulatedSongPlayer::Reset() {
  Halt(kStopped);
  Unload();
  Path.clear();
  KnownSeconds = 0;
  OnEndOfStream = nullptr;
}

std::int64_t SimulatedSongPlayer::PositionMs() const {
  const std::int64_t playedMs = State == kPlaying ? PlayedMs + Loop.NowMs() - StartedMs : PlayedMs;
  return std::min<std::int64_t>(playedMs, LengthMs);
}

void SimulatedSongPlayer::Halt(PlayStates state) {
  ++Started;
  PlayedMs = 0;
  State = state;
}

void SimulatedSongPlayer::ReachEnd() {
  Halt(kStopped);
  Unload();
  Log.Write("song", "end");
  if (OnEndOfStream) OnEndOfStream();
}

}  // namespace marlex
