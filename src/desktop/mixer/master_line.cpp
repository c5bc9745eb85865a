#include "desktop/mixer/master_line.h"

#include <utility>

namespace marlex {

namespace {

constexpr int kWatchIntervalMs = 500;  // a lost output stays away for at least a second

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

/// Looks for the master only while the card is there. A card that comes back, or a server that
/// restarts, has a level of its own until the wish is applied again.
void MasterLine::FollowOutput() {
  const bool alive = OutputAlive();
  if (alive != std::exchange(WasAlive, alive)) Card->SetWanted(alive);
}

}  // namespace marlex
