#pragma once

#include <alsa/asoundlib.h>

#include <string>

#include "desktop/mixer/master_device.h"

namespace marlex {

/// The simple control "Master" of an ALSA mixer device. The device may be a sound server, and one
/// that hangs blocks its callers until it recovers (measured: a call took 2.96 s when the server
/// was stopped for 3 s).
class AlsaMaster : public MasterDevice {
 public:
  /// Null when the device does not answer or has no master with a volume. Also null when `card` is
  /// given and the device belongs to another card, since a card number may have passed to another
  /// card.
  static std::unique_ptr<AlsaMaster> Open(const std::string& device, const std::string& card = "");

  CardState Read() const override;
  void AppendDescriptors(std::vector<pollfd>& descriptors) const override;
  bool HandleEvents() override;

 private:
  struct Closer {
    void operator()(snd_mixer_t* mixer) const { snd_mixer_close(mixer); }
  };
  using Handle = std::unique_ptr<snd_mixer_t, Closer>;

  AlsaMaster(Handle mixer, snd_mixer_elem_t* master);
  bool SetLevel(StereoLevel level) override;
  bool SetMute(bool muted) override;
  long ToCard(int level) const;
  int FromCard(long volume) const;

  Handle Mixer;
  snd_mixer_elem_t* Master;
  long Lowest = 0;  // in the card's units
  long Highest = 0;
};

}  // namespace marlex
