#include "desktop/mixer/master_line.h"

#include <utility>

namespace marlex {

namespace {

constexpr int kWatchIntervalMs = 500;  // an output that is lost stays away for a second at least

}  // namespace

MasterLine::MasterLine(EventLoop& loop, SoundLine& engine, std::unique_ptr<CardMaster> card,
                       std::function<bool()> outputAlive)
    : Loop(loop),
      Engine(engine),
      Card(std::move(card)),
      OutputAlive(std::move(outputAlive)),
      Watch(loop.StartTimer(kWatchIntervalMs, [this] { FollowOutput(); })) {
  Card->OnChange = [this] { LevelTheEngine(); };
}

MasterLine::~MasterLine() { Loop.StopTimer(Watch); }

StereoLevel MasterLine::Level() const {
  if (Wished.Level) return *Wished.Level;
  const std::optional<CardState> found = Card->Found();
  return found ? found->Level : Engine.Level();
}

void MasterLine::SetLevel(StereoLevel level) {
  Wished.Level = level;
  Card->Wish(Wished);
  LevelTheEngine();
}

bool MasterLine::Muted() const {
  if (Wished.Muted) return *Wished.Muted;
  const std::optional<CardState> found = Card->Found();
  return found ? found->Muted : Engine.Muted();
}

void MasterLine::SetMute(bool muted) {
  Wished.Muted = muted;
  Engine.SetMute(muted);
  Card->Wish(Wished);
}

void MasterLine::LevelTheEngine() {
  const StereoLevel level = Card->Found() ? StereoLevel{} : Wished.Level.value_or(StereoLevel{});
  Engine.SetLevel(level.Left, level.Right);
}

/// A card that comes back, or a server that starts again, has a level of its own until ours is set.
void MasterLine::FollowOutput() {
  const bool alive = OutputAlive();
  if (alive != std::exchange(WasAlive, alive)) Card->SetWanted(alive);
}

}  // namespace marlex
