#pragma once

#include <functional>
#include <memory>
#include <string>

#include "desktop/sound/card_address.h"
#include "desktop/sound/sound_line.h"
#include "desktop/sound/sound_stream.h"
#include "platform/event_loop.h"

namespace marlex {

/// How an engine gets its clock. The default takes the sound server, else the sound card, else a
/// timer.
struct SoundOptions {
  bool Offline = false;                // no device, no clock: the owner calls `SoundEngine::Render`
  bool UseServer = true;               // PulseAudio or PipeWire, by its PulseAudio interface
  bool UseCard = true;                 // ALSA, where no server runs
  std::string CardDevice = "default";  // name of the ALSA device
};

/// Owns the sound device: mixes what the players decode, sets the levels and meters. Constructor,
/// lines and players are on the system's thread. Only one device is ever used: the one that was
/// found at start. When it goes away, time goes on by a timer and the device is tried again once a
/// second.
class SoundEngine {
 public:
  explicit SoundEngine(EventLoop& loop, const SoundOptions& options = {});
  ~SoundEngine();
  SoundEngine(const SoundEngine&) = delete;
  SoundEngine& operator=(const SoundEngine&) = delete;

  /// All that is heard, the microphone included.
  SoundLine& Master();
  /// Songs and messages.
  SoundLine& Wave();
  /// The microphone, muted at start. While it is muted, the device is not captured from.
  SoundLine& Microphone();

  /// A sound server or card was found at start. Does not change afterwards.
  bool HasOutput() const;
  /// A microphone was found at start. Does not change afterwards.
  bool HasMicrophone() const;
  /// Name of the card for the operator, in UTF-8; empty without an output.
  std::string CardName() const;

  /// Tells where the mixer of the card is found; null without an output. It may be called on any
  /// thread, also after the engine. Its answer changes once at most: when a server that had no card
  /// has got its first one.
  std::function<CardAddress()> Address() const;

  /// The device is there now and takes samples; false while time goes by the timer.
  bool OutputAlive() const;

  /// Mixes the next `frames` frames (at most 4096) into `stereo` (left, right, left, ...),
  /// amplitude 1.0 is full. For the owner of an offline engine, whose time passes with it: it waits
  /// for the decoders. Any other engine is rendered by its output, which never waits, locks or
  /// allocates.
  void Render(float* stereo, int frames);

  // For the players.

  /// Opens a file; null when it cannot be played.
  std::shared_ptr<SoundStream> Load(const std::string& path, OpenDecoder open, EndReport report);

  /// Lets a stream sound, from its beginning or where it was paused. `onEnded` is called once, by
  /// an event of the loop, when it ends by itself; never after `Release`.
  void Play(const std::shared_ptr<SoundStream>& stream, std::function<void()> onEnded);

  /// Ends a stream, whether it plays or not.
  void Release(const std::shared_ptr<SoundStream>& stream);

 private:
  class Body;
  std::shared_ptr<Body> Inside;
};

}  // namespace marlex
