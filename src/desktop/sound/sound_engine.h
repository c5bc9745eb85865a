#pragma once

#include <functional>
#include <memory>
#include <string>

#include "desktop/sound/card_address.h"
#include "desktop/sound/sound_line.h"
#include "desktop/sound/sound_stream.h"
#include "platform/event_loop.h"
#include "platform/sound_health.h"

namespace marlex {

/// Where an engine gets its clock from. By default it tries the sound server, then the sound card,
/// then falls back to a timer.
struct SoundOptions {
  bool Offline = false;                // no device, no clock: the owner calls `SoundEngine::Render`
  bool UseServer = true;               // PulseAudio, or PipeWire through its PulseAudio interface
  bool UseCard = true;                 // ALSA, when no server runs
  std::string CardDevice = "default";  // name of the ALSA device
};

/// Owns the sound device: mixes what the players decode, and applies levels and meters. Use the
/// constructor, the lines and the players from the system's thread only. The engine only ever uses
/// one device, the one found at start. While that is gone, a timer keeps time and the engine tries
/// to reopen it once a second.
class SoundEngine : public SoundHealth {
 public:
  explicit SoundEngine(EventLoop& loop, const SoundOptions& options = {});
  ~SoundEngine() override;
  SoundEngine(const SoundEngine&) = delete;
  SoundEngine& operator=(const SoundEngine&) = delete;

  /// Everything that is heard, including the microphone.
  SoundLine& Master();
  /// Songs and messages.
  SoundLine& Wave();
  /// The microphone, muted at start. Nothing is captured while it is muted.
  SoundLine& Microphone();

  /// Whether a sound server or card was found at start. Does not change afterwards.
  bool HasOutput() const;
  /// Whether a microphone was found at start. Does not change afterwards.
  bool HasMicrophone() const;
  /// Name of the card for the operator, in UTF-8; empty without a device.
  std::string CardName() const;

  /// Returns a function that says where to find the mixer of the card; null without a device. The
  /// function may be called on any thread, even after the engine is gone. Its answer changes at
  /// most once: when a server that had no card gets its first one.
  std::function<CardAddress()> Address() const;

  /// The device is there and takes samples; false while a timer keeps time.
  bool OutputAlive() const;

  SoundOutlet Outlet() const override;
  /// False as well while the output is gone. A sound server reports a microphone that goes at once;
  /// of a card without a server it is noticed by the next call.
  bool MicrophoneIsGone() const override;

  /// Mixes the next `frames` frames (at most 4096) into `stereo` (left, right, left, ...), where an
  /// amplitude of 1.0 is full scale. Only for the owner of an offline engine, whose time advances
  /// with this call: it waits for the decoders. Any other engine is rendered by its output, which
  /// never waits, locks or allocates.
  void Render(float* stereo, int frames);

  // For the players.

  /// Opens a file; null when it cannot be played.
  std::shared_ptr<SoundStream> Load(const std::string& path, OpenDecoder open, EndReport report);

  /// Plays a stream from its beginning, or from where it was paused. `onEnded` is called once, as
  /// an event of the loop, when the stream ends by itself; never after `Release`.
  void Play(const std::shared_ptr<SoundStream>& stream, std::function<void()> onEnded);

  /// Ends a stream, whether it is playing or not.
  void Release(const std::shared_ptr<SoundStream>& stream);

 private:
  class Body;
  std::shared_ptr<Body> Inside;
};

}  // namespace marlex
