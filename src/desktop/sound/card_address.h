#pragma once

#include <string>

namespace marlex {

/// Where to find the mixer of the card that an engine plays on.
struct CardAddress {
  std::string Sink;     // the sound server's name of the output; empty without a server
  std::string Control;  // the ALSA control device; empty with a server
  std::string Card;     // name that the card must have; empty for a device without a card
};

}  // namespace marlex
