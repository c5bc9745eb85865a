#include "desktop/sound/alsa_output.h"
#include "desktop/sound/sound_devices.h"

namespace marlex {
namespace {

constexpr int kPieceMs = 5;  // granularity at which the card is refilled
constexpr int kBufferMs = 40;

/// Silences the library, which would print an error for a missing device. Here that is normal.
void SayNothing(const char*, int, const char*, int, const char*, ...) {}

std::unique_ptr<AlsaDevice> OpenCard(const std::string& name, snd_pcm_stream_t direction) {
  return AlsaDevice::Open(name, direction, kPieceMs, kBufferMs);
}

}  // namespace

SoundDevice FindCardDevice(const std::string& name, const MicrophoneLines& lines) {
  snd_lib_error_set_handler(SayNothing);
  SoundDevice found;
  auto device = OpenCard(name, SND_PCM_STREAM_PLAYBACK);
  if (!device) return found;
  found.CardName = device->CardName();
  found.Address = [address = device->Address()] { return address; };
  found.HasMicrophone = OpenCard(name, SND_PCM_STREAM_CAPTURE) != nullptr;
  found.Output = std::make_unique<AlsaOutput>(std::move(device), name, lines);
  found.Reopen = [name, lines, card = found.CardName]() -> std::unique_ptr<SoundOutput> {
    auto again = OpenCard(name, SND_PCM_STREAM_PLAYBACK);
    // The name may now belong to another card, which the engine must not play on.
    if (!again || again->CardName() != card) return nullptr;
    return std::make_unique<AlsaOutput>(std::move(again), name, lines);
  };
  return found;
}

}  // namespace marlex
