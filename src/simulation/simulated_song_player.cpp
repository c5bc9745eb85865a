#include "simulation/simulated_song_player.h"

#include <algorithm>
#include <optional>

namespace marlex {

namespace {

constexpr double kMsPerSecond = 1000.0;

}  // namespace

void SimulatedSongPlayer::SetFileName(const std::string& path) {
  Stop();
  const std::optional<int> lengthMs = Disk.MediaLengthMs(path, MediaKind::Mp3);
  Path = lengthMs ? path : "";
  LengthMs = lengthMs.value_or(0);
  LoadedMs = Loop.NowMs();
  Log.Write("load", FileNameOf(path));
  if (!lengthMs && !path.empty()) Log.Write("song", "refuse " + FileNameOf(path));
}

double SimulatedSongPlayer::Duration() const {
  return Loop.NowMs() - LoadedMs < LengthDelayMs ? 0 : LengthMs / kMsPerSecond;
}

double SimulatedSongPlayer::CurrentPosition() const {
  return static_cast<double>(PositionMs()) / kMsPerSecond;
}

void SimulatedSongPlayer::Play() {
  if (Path.empty() || State == kPlaying) return;
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
  Log.Write("song", "stop");
}

void SimulatedSongPlayer::Reset() {
  Halt(kStopped);
  Path.clear();
  LengthMs = 0;
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
  Log.Write("song", "end");
  if (OnEndOfStream) OnEndOfStream();
}

}  // namespace marlex
