#pragma once

#include <functional>
#include <memory>

#include "desktop/mixer/card_master.h"
#include "desktop/mixer/mixer_line.h"
#include "platform/event_loop.h"

namespace marlex {

/// The speakers: the card's own master if there is one, else the engine's master line. The level is
/// set at only one of the two, or it would count twice. The mute is set at both: the engine mutes
/// at once and without a click, whatever state the card is in.
class MasterLine : public MixerLine {
 public:
  /// `outputAlive` returns whether the card that the program plays on is there.
  MasterLine(EventLoop& loop, SoundLine& engine, std::unique_ptr<CardMaster> card,
             std::function<bool()> outputAlive);
  ~MasterLine() override;
  MasterLine(const MasterLine&) = delete;
  MasterLine& operator=(const MasterLine&) = delete;

  /// The level that was set last, however the card rounded it; before that, the level that was
  /// found.
  StereoLevel Level() const override;
  void SetLevel(StereoLevel level) override;
  bool Muted() const override;
  void SetMute(bool muted) override;
  int Peak() override { return Engine.Peak(); }
  void Settle() override { Card->Settle(); }

 private:
  void LevelTheEngine();
  void FollowOutput();

  EventLoop& Loop;
  SoundLine& Engine;
  const std::unique_ptr<CardMaster> Card;
  const std::function<bool()> OutputAlive;
  CardWish Wished;
  bool WasAlive = true;
  EventLoop::TimerId Watch;
};

}  // namespace marlex
