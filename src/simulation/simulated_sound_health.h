#pragma once

#include "platform/sound_health.h"

namespace marlex {

/// Sound devices that a test takes away and brings back.
class SimulatedSoundHealth : public SoundHealth {
 public:
  SoundOutlet Outlet() const override { return OutletNow; }
  bool MicrophoneIsGone() const override { return NoMicrophone; }

  SoundOutlet OutletNow = SoundOutlet::Device;
  bool NoMicrophone = false;
};

}  // namespace marlex
