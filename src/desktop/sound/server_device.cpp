#include "desktop/sound/pulse_output.h"
#include "desktop/sound/sound_devices.h"

namespace marlex {

SoundDevice FindServerDevice(const MicrophoneLines& lines) {
  SoundDevice device;
  auto connection = PulseConnection::ConnectAtStart();
  PulseCard found;
  if (!connection || !FindCard(*connection, found)) return device;
  device.CardName = found.Description;
  device.HasMicrophone = !found.Source.empty();
  device.Output = PulseOutput::Open(std::move(connection), found, lines, false);
  device.Reopen = [card = found, lines]() mutable -> std::unique_ptr<SoundOutput> {
    auto server = PulseConnection::Connect();
    if (!server) return nullptr;
    // A server without a card pretends one until the first real card comes, which is then the one
    // to stay with.
    if (card.Dummy && !FindCard(*server, card)) return nullptr;
    return PulseOutput::Open(std::move(server), card, lines, true);
  };
  return device;
}

}  // namespace marlex
