#include "scenario/inspectors/mixer.h"

namespace marlex {

void MixerInspector::Check() {
  for (int line = 0; line < FrmMxr::kLines; ++line) {
    const int position = TheDesk.Slider(line);
    Require(position >= 0 && position <= FrmMxr::kSilent, "A slider beyond its ends");
  }
  Require(CardFollows(0, kComponentSpeakers), "The master line is not where its slider is");
  Require(CardFollows(TheDesk.Sys->Mixer.WaveLine, kComponentWaveOut),
          "The wave line is not where its slider is");
  Require(State().FadeRunning == TheDesk.Sys->TheFrmPlayers.tmrFadeTime.Enabled,
          "A fade and its timer differ");
}

bool MixerInspector::CardFollows(int line, std::uint32_t componentType) {
  const SimulatedMixer& card = TheDesk.Pc.Mixer;
  const int level = static_cast<int>(card.Level(componentType));
  return (level == FrmMxr::kSilent - TheDesk.Slider(line) ||
          card.HasMissed(componentType, kControlVolume)) &&
         (card.Muted(componentType) == TheDesk.MuteCheck(line) ||
          card.HasMissed(componentType, kControlMute));
}

}  // namespace marlex
