#pragma once

#include "state/flags.h"

namespace marlex {

/// A call, an announcement with its fades, and the amplifier go before a preview, which neither
/// begins nor goes on under them.
inline bool OutrunsPreviews(const Flags& flags) {
  return flags.CallActive || flags.MessagePlaying || flags.FadeRunning || flags.PriorityPreempted;
}

}  // namespace marlex
