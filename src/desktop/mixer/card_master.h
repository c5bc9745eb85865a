#pragma once

#include <functional>
#include <optional>

#include "desktop/sound/sound_line.h"

namespace marlex {

/// Level and mute of a sound card's master.
struct CardState {
  StereoLevel Level;
  bool Muted = false;
  bool operator==(const CardState&) const = default;
};

/// The desired state of the card's master. A value that was never set is left to the card.
struct CardWish {
  std::optional<StereoLevel> Level;
  std::optional<bool> Muted;
  bool operator==(const CardWish&) const = default;
};

/// A sound card's own master, as opposed to the engine's master line. It may come and go with the
/// card or the sound server. Call from the system's thread; calls return at once unless they say
/// otherwise.
class CardMaster {
 public:
  virtual ~CardMaster() = default;

  /// The state of the master as last found; empty while there is none.
  virtual std::optional<CardState> Found() const = 0;

  /// Sets the desired state, which is applied now and each time the master comes back.
  virtual void Wish(const CardWish& wish) = 0;

  /// Whether to look for the master at all; initially true. While the card that the program plays
  /// on is gone, another card may answer in its place, and its master must not be touched.
  virtual void SetWanted(bool wanted) = 0;

  /// Waits until the latest wish has reached the master, for at most 200 ms.
  virtual void Settle() = 0;

  /// Called as an event of the loop when the master has come or gone.
  std::function<void()> OnChange;
};

}  // namespace marlex
