#pragma once

#include <alsa/asoundlib.h>
#include <poll.h>

#include <memory>
#include <string>
#include <vector>

#include "desktop/mixer/card_master.h"

namespace marlex {

/// The simple control "Master" of an ALSA mixer device. Every call may block: a device may be a
/// sound server, and one that hangs keeps its callers waiting until it goes on (measured: a set
/// took 2.96 s of a server that was stopped for 3 s). So it is used on a thread of its own.
class AlsaMaster {
 public:
  /// Null when the device does not answer or has no master with a volume.
  static std::unique_ptr<AlsaMaster> Open(const std::string& device);

  CardState Read() const;

  /// Sets what is wished, the mute first when it closes and last when it opens. False when the
  /// device is lost.
  bool Apply(const CardWish& wish);

  /// What becomes readable when something has happened at the device.
  void AppendDescriptors(std::vector<pollfd>& descriptors) const;

  /// Takes what has happened. False when the device is lost.
  bool HandleEvents();

 private:
  struct Closer {
    void operator()(snd_mixer_t* mixer) const { snd_mixer_close(mixer); }
  };
  using Handle = std::unique_ptr<snd_mixer_t, Closer>;

  AlsaMaster(Handle mixer, snd_mixer_elem_t* master);
  bool SetLevel(StereoLevel level);
  bool SetMute(bool muted);
  long ToCard(int level) const;
  int FromCard(long volume) const;

  Handle Mixer;
  snd_mixer_elem_t* Master;
  long Lowest = 0;  // the card's own scale
  long Highest = 0;
};

}  // namespace marlex
