#pragma once

#include <poll.h>

#include <functional>
#include <memory>
#include <vector>

#include "desktop/mixer/card_master.h"

namespace marlex {

/// An open master: a sound card's own, or that of a sound server's output. Every call may block,
/// since a server may hang, so it is used on a thread of its own.
class MasterDevice {
 public:
  virtual ~MasterDevice() = default;

  virtual CardState Read() const = 0;

  /// Sets what is wished, the mute first when it closes and last when it opens. False when the
  /// device is lost.
  bool Apply(const CardWish& wish) {
    if (wish.Muted == true && !SetMute(true)) return false;
    if (wish.Level && !SetLevel(*wish.Level)) return false;
    return wish.Muted != false || SetMute(false);
  }

  /// Adds what becomes readable when something has happened at the device.
  virtual void AppendDescriptors(std::vector<pollfd>& descriptors) const = 0;

  /// Takes what has happened. False when the device is lost.
  virtual bool HandleEvents() = 0;

 protected:
  virtual bool SetLevel(StereoLevel level) = 0;
  virtual bool SetMute(bool muted) = 0;
};

/// Opens the master of the card that the program plays on, never another's; null while it is away.
/// Called on a thread that may outlive whoever handed it in.
using OpenMaster = std::function<std::unique_ptr<MasterDevice>()>;

}  // namespace marlex
