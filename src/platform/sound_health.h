#pragma once

namespace marlex {

/// Where sound goes: to the device; nowhere, because there is no device, or no longer; or to a
/// device that a sound server without a sound card pretends to have, which nobody hears.
enum class SoundOutlet { Device, Gone, Pretended };

/// What has become of the sound devices that were there at the start. Calls are on the system's
/// thread and return at once what is known, mostly not older than two seconds; a microphone on a
/// card without a sound server is missed only by the next call.
class SoundHealth {
 public:
  virtual ~SoundHealth() = default;

  virtual SoundOutlet Outlet() const = 0;

  /// Whether the microphone has gone. False where there was none at the start.
  virtual bool MicrophoneIsGone() const = 0;
};

}  // namespace marlex
