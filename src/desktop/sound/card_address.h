#pragma once

#include <string>

namespace marlex {

/// Where the mixer of the card that an engine plays on is found.
struct CardAddress {
  std::string Sink;     // the sound server's name for the output; empty without a server
  std::string Control;  // the ALSA control device; empty with one
  std::string Card;     // the name that this card must have; empty for a device that is no card
};

}  // namespace marlex
