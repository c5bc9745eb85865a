#pragma once

#include <memory>

#include "desktop/sound/sound_engine.h"
#include "platform/event_loop.h"
#include "platform/mixer_functions.h"

namespace marlex {

/// Makes the mixer of a PC that plays through `engine`, which must outlive it. The speakers are the
/// card's own master where it has one; the sources are the engine's wave line and, if the PC has a
/// microphone, its microphone line. Waits at most a second for the card's answer.
std::unique_ptr<MixerFunctions> MakeEngineMixer(EventLoop& loop, SoundEngine& engine);

}  // namespace marlex
