#include "desktop/sound/pulled_card.h"

#include <alsa/asoundlib.h>

#include <atomic>

namespace marlex::test {

namespace {

std::atomic<bool> isPulled{false};

}  // namespace

PulledCard::PulledCard() { isPulled = true; }
PulledCard::~PulledCard() { isPulled = false; }

}  // namespace marlex::test

// The linker redirects the calls of the code under test to this (tests/CMakeLists.txt), so its name
// is fixed.
// NOLINTBEGIN(bugprone-reserved-identifier): the linker gives these names
extern "C" {

snd_pcm_state_t __real_snd_pcm_state(snd_pcm_t* pcm);

snd_pcm_state_t __wrap_snd_pcm_state(snd_pcm_t* pcm) {
  return marlex::test::isPulled ? SND_PCM_STATE_DISCONNECTED : __real_snd_pcm_state(pcm);
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
