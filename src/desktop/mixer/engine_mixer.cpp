#include "desktop/mixer/engine_mixer.h"

#include <utility>

#include "desktop/mixer/alsa_card_master.h"
#include "desktop/mixer/desk_mixer.h"
#include "desktop/mixer/master_line.h"

namespace marlex {

std::unique_ptr<MixerFunctions> MakeEngineMixer(EventLoop& loop, SoundEngine& engine) {
  DeskMixerParts parts;
  parts.HasOutput = engine.HasOutput();
  if (parts.HasOutput) {
    parts.CardName = engine.CardName();
    parts.Speakers =
        std::make_unique<MasterLine>(loop, engine.Master(), std::make_unique<AlsaCardMaster>(loop),
                                     [&engine] { return engine.OutputAlive(); });
    parts.Wave = std::make_unique<EngineLine>(engine.Wave());
    if (engine.HasMicrophone()) {
      parts.Microphone = std::make_unique<EngineLine>(engine.Microphone());
    }
  }
  return std::make_unique<DeskMixer>(std::move(parts));
}

}  // namespace marlex
