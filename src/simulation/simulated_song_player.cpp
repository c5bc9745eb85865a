#include "simulation/simulated_song_player.h"

#include <algorithm>

namespace marlex {

namespace {

constexpr double kMsPerSecond = 1000.0;

}  // namespace

void SimulatedSongPlayer::SetFileName(const std::string& path) {
  Stop();
  File.Take(path);
  const bool playable = File.Load();
  if (!playable) File.Take("");
  Log.Write("load", FileNameOf(path));
  if (!playable && !path.empty()) Log.Write("song", "refuse " + FileNameOf(path));
}

double SimulatedSongPlayer::Duration() const { return File.KnownLengthMs() / kMsPerSecond; }

double SimulatedSongPlayer::CurrentPosition() const {
  return static_cast<double>(PositionMs()) / kMsPerSecond;
}

void SimulatedSongPlayer::Play() {
  if (File.Path().empty() || State == kPlaying) return;
  if (!File.Load()) return;  // it has gone since it was loaded
  Log.Write("song", (State == kPaused ? "resume " : "play ") + FileNameOf(File.Path()));
  State = kPlaying;
  StartedMs = Loop.NowMs();
  Loop.Schedule(std::max<std::int64_t>(File.LengthMs() - PlayedMs, 1), [this, start = ++Started] {
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
  File.Unload();
  Log.Write("song", "stop");
}

void SimulatedSongPlayer::Reset() {
  Halt(kStopped);
  File.Take("");
  OnEndOfStream = nullptr;
}

std::int64_t SimulatedSongPlayer::PositionMs() const {
  const std::int64_t playedMs = State == kPlaying ? PlayedMs + Loop.NowMs() - StartedMs : PlayedMs;
  return std::min<std::int64_t>(playedMs, File.LengthMs());
}

void SimulatedSongPlayer::Halt(PlayStates state) {
  ++Started;
  PlayedMs = 0;
  State = state;
}

void SimulatedSongPlayer::ReachEnd() {
  Halt(kStopped);
  File.Unload();
  Log.Write("song", "end");
  if (OnEndOfStream) OnEndOfStream();
}

}  // namespace marlex
