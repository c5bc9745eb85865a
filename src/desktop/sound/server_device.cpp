#include <mutex>

#include "desktop/sound/pulse_output.h"
#include "desktop/sound/sound_devices.h"

namespace marlex {

namespace {

/// The card that was found, shared by the thread that opens it and the mixer's thread.
class FoundCard {
 public:
  explicit FoundCard(const PulseCard& card) : Card(card) {}

  PulseCard Get() const {
    const std::scoped_lock lock(Guard);
    return Card;
  }
  void Set(const PulseCard& card) {
    const std::scoped_lock lock(Guard);
    Card = card;
  }

 private:
  mutable std::mutex Guard;
  PulseCard Card;
};

/// A server without a card pretends to have one until the first real card comes; from then on the
/// engine stays with that card.
std::unique_ptr<SoundOutput> OpenAgain(FoundCard& found, const MicrophoneLines& lines) {
  auto server = PulseConnection::Connect();
  if (!server) return nullptr;
  PulseCard card = found.Get();
  if (card.Dummy && !FindCard(*server, card)) return nullptr;
  found.Set(card);
  return PulseOutput::Open(std::move(server), card, lines, true);
}

}  // namespace

SoundDevice FindServerDevice(const MicrophoneLines& lines) {
  SoundDevice device;
  auto connection = PulseConnection::ConnectAtStart();
  PulseCard card;
  if (!connection || !FindCardAtStart(*connection, card)) return device;
  const auto found = std::make_shared<FoundCard>(card);
  device.CardName = card.Description;
  device.HasMicrophone = !card.Source.empty();
  device.Address = [found] { return CardAddress{found->Get().Sink, "", ""}; };
  device.IsPretended = [found] { return found->Get().Dummy; };
  device.Output = PulseOutput::Open(std::move(connection), card, lines, false);
  device.Reopen = [found, lines] { return OpenAgain(*found, lines); };
  return device;
}

}  // namespace marlex
