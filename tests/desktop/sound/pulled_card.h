#pragma once

namespace marlex::test {

/// While it lives, each ALSA device of this program reports that its card has been pulled. Only one
/// may exist at a time.
class PulledCard {
 public:
  PulledCard();
  ~PulledCard();
  PulledCard(const PulledCard&) = delete;
  PulledCard& operator=(const PulledCard&) = delete;
};

}  // namespace marlex::test
