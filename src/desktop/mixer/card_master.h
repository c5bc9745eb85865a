#pragma once

#include <functional>
#include <optional>

#include "desktop/sound/sound_line.h"

namespace marlex {

/// Level and mute of a card's own master.
struct CardState {
  StereoLevel Level;
  bool Muted = false;
  bool operator==(const CardState&) const = default;
};

/// What the card's master is to be; a value that was never set is left to the card.
struct CardWish {
  std::optional<StereoLevel> Level;
  std::optional<bool> Muted;
  bool operator==(const CardWish&) const = default;
};

/// The master that a sound card has itself. It may come and go with the card or the sound server.
/// Calls are on the system's thread and return at once unless they say otherwise.
class CardMaster {
 public:
  virtual ~CardMaster() = default;

  /// The card's master as it was found last; empty while there is none.
  virtual std::optional<CardState> Found() const = 0;

  /// Wishes this of the master, now and each time it comes back.
  virtual void Wish(const CardWish& wish) = 0;

  /// Whether the master is to be looked for at all. While the card that the program plays on is
  /// away, another card may answer in its place, whose master is none of our business. The design
  /// value is true.
  virtual void SetWanted(bool wanted) = 0;

  /// Waits until the last wish has reached the master, for a fifth of a second at most.
  virtual void Settle() = 0;

  /// The master has come or gone: an event of the loop.
  std::function<void()> OnChange;
};

}  // namespace marlex
