#include "desktop/mixer/engine_mixer.h"

#include <utility>

#include "desktop/mixer/alsa_master.h"
#include "desktop/mixer/desk_mixer.h"
#include "desktop/mixer/master_keeper.h"
#include "desktop/mixer/master_line.h"
#include "desktop/mixer/pulse_master.h"

namespace marlex {

namespace {

/// Deliberate: not the default output or card. The operator may have switched the default to
/// another card, whose master must be left alone.
OpenMaster MasterAt(std::function<CardAddress()> address) {
  return [address = std::move(address)]() -> std::unique_ptr<MasterDevice> {
    const CardAddress card = address();
    if (!card.Sink.empty()) return PulseMaster::Open(card.Sink);
    return AlsaMaster::Open(card.Control, card.Card);
  };
}

}  // namespace

std::unique_ptr<MixerFunctions> MakeEngineMixer(EventLoop& loop, SoundEngine& engine) {
  DeskMixerParts parts;
  parts.HasOutput = engine.HasOutput();
  if (parts.HasOutput) {
    parts.CardName = engine.CardName();
    parts.Speakers = std::make_unique<MasterLine>(
        loop, engine.Master(), std::make_unique<MasterKeeper>(loop, MasterAt(engine.Address())),
        [&engine] { return engine.OutputAlive(); });
    parts.WaveSource = std::make_unique<EngineLine>(engine.Wave());
    if (engine.HasMicrophone()) {
      parts.MicrophoneSource = std::make_unique<EngineLine>(engine.Microphone());
    }
  }
  return std::make_unique<DeskMixer>(std::move(parts));
}

}  // namespace marlex
