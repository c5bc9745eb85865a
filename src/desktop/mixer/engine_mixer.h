#pragma once

#include <memory>

#include "desktop/sound/sound_engine.h"
#include "platform/event_loop.h"
#include "platform/mixer_functions.h"

namespace marlex {

/// The mixer of a desk that plays through `engine`, which outlives it. The speakers are the card's
/// own master where it has one; the sources are the engine's wave line and, where the PC has a
/// microphone, its microphone line. Waits for the card's answer, a second at most.
std::unique_ptr<MixerFunctions> MakeEngineMixer(EventLoop& loop, SoundEngine& engine);

}  // namespace marlex
