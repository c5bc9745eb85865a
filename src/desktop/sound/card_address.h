#pragma once

#include <string>

namespace marlex {

/// Where the mixer of the card that an engine plays on is found.
struct CardAddress {
  std::string Sink;     // the sound server's name for the output; empty without a server
  std::string Control;  // the ALSA control device; empty with one
  std::string Card;     // name of the card that must stand behind it; empty when it is not a card
};

}  // namespace marlex
