#pragma once

#include <alsa/asoundlib.h>

#include <memory>
#include <string>
#include <vector>

#include "desktop/sound/card_address.h"

namespace marlex {

/// One direction of an ALSA device: stereo, 44100 frames a second, floating point or 16 bits,
/// whichever it takes. Of one thread.
class AlsaDevice {
 public:
  /// Opens the device without waiting for it; null when it is not there, or busy. `pieceMs` is how
  /// often it works, `bufferMs` how much it holds.
  static std::unique_ptr<AlsaDevice> Open(const std::string& name, snd_pcm_stream_t direction,
                                          int pieceMs, int bufferMs);

  explicit AlsaDevice(snd_pcm_t* handle) : Handle(handle) {}
  ~AlsaDevice() { snd_pcm_close(Handle); }
  AlsaDevice(const AlsaDevice&) = delete;
  AlsaDevice& operator=(const AlsaDevice&) = delete;

  /// Name of the card behind the device, for the operator and to know it again; that of the device
  /// when it has none.
  std::string CardName() const;

  /// Where the mixer of the card behind the device is found; of a device without a card, by the
  /// same name.
  CardAddress Address() const;

  /// Frames in which the device works, and that it holds, as it was opened.
  int PieceFrames() const { return Piece; }
  int BufferFrames() const { return Buffer; }

  /// Lets `Await` return as soon as so many frames can be written or read.
  void SetReady(int frames);

  /// Waits up to `limitMs` until as much can be written or read as was set, or else a piece, and
  /// returns how many frames can be; -1 when the device is gone. One that ran dry is started again.
  int Await(int limitMs);

  /// Frames between what is written next and its sound.
  int Delay() const;

  /// Writes or reads that many frames, which `Await` has promised; false when the device is gone.
  bool Write(const float* stereo, int frames);
  bool Read(float* stereo, int frames);

  /// Forgets what it holds; the next `Start` begins anew.
  void Drop() { snd_pcm_drop(Handle); }
  bool Start();

 private:
  int CardNumber() const;
  bool Configure(int pieceMs, int bufferMs);
  bool AwaitSign(int limitMs);
  bool Recover(long error) { return snd_pcm_recover(Handle, int(error), 1) == 0; }

  snd_pcm_t* const Handle;
  bool Floating = true;
  int Piece = 0;
  int Buffer = 0;
  int Ready = 0;             // frames that end a wait, 0 for the device's own choice
  std::vector<short> Whole;  // samples on their way, of a device that takes 16 bits
};

}  // namespace marlex
