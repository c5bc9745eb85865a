#pragma once

#include <poll.h>

#include <functional>
#include <memory>
#include <vector>

#include "desktop/mixer/card_master.h"

namespace marlex {

/// An open master: that of a sound card, or that of an output of a sound server. Every call may
/// block, since a server may hang, so use it from a dedicated thread.
class MasterDevice {
 public:
  virtual ~MasterDevice() = default;

  virtual CardState Read() const = 0;

  /// Applies what is wished, muting first but unmuting last. False when the device is lost.
  bool Apply(const CardWish& wish) {
    if (wish.Muted == true && !SetMute(true)) return false;
    if (wish.Level && !SetLevel(*wish.Level)) return false;
    return wish.Muted != false || SetMute(false);
  }

  /// Adds the descriptors that become readable when the device has events.
  virtual void AppendDescriptors(std::vector<pollfd>& descriptors) const = 0;

  /// Handles pending events. False when the device is lost.
  virtual bool HandleEvents() = 0;

 protected:
  virtual bool SetLevel(StereoLevel level) = 0;
  virtual bool SetMute(bool muted) = 0;
};

/// Opens the master of the card that the program plays on, never that of another card; null while
/// it is gone. Called on a thread that may outlive the object that the function was passed to.
using OpenMaster = std::function<std::unique_ptr<MasterDevice>()>;

}  // namespace marlex
