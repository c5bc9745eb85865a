#pragma once

#include <alsa/asoundlib.h>

#include <memory>
#include <string>
#include <vector>

#include "desktop/sound/card_address.h"

namespace marlex {

/// One direction of an ALSA device: stereo, 44100 frames per second, in floating point or in 16-bit
/// integers, whichever the device takes. Not thread-safe: use from one thread only.
class AlsaDevice {
 public:
  /// Opens the device without waiting for it; null when it is missing or busy. `pieceMs` is the
  /// period at which it transfers samples, `bufferMs` the length of its buffer, both in
  /// milliseconds; the device may choose values nearby.
  static std::unique_ptr<AlsaDevice> Open(const std::string& name, snd_pcm_stream_t direction,
                                          int pieceMs, int bufferMs);

  explicit AlsaDevice(snd_pcm_t* handle) : Handle(handle) {}
  ~AlsaDevice() { snd_pcm_close(Handle); }
  AlsaDevice(const AlsaDevice&) = delete;
  AlsaDevice& operator=(const AlsaDevice&) = delete;

  /// Name of the device's card, shown to the operator and used to recognise the card later; the
  /// name of the device when it has no card.
  std::string CardName() const;

  /// Address of the mixer of the device's card; for a device without a card, the device name
  /// itself.
  CardAddress Address() const;

  /// Frames per transfer, and frames that the buffer holds, as negotiated when the device was
  /// opened.
  int PieceFrames() const { return Piece; }
  int BufferFrames() const { return Buffer; }

  /// Sets how many frames must be writable or readable before `Await` returns.
  void SetReady(int frames);

  /// Waits up to `limitMs` milliseconds until the frames set by `SetReady` (by default one piece)
  /// can be written or read, and returns how many can be; 0 at the limit, -1 when the device is
  /// gone. A device that ran dry is restarted, which returns 0.
  int Await(int limitMs);

  /// Frames between the next one written and the moment it is heard.
  int Delay() const;

  /// Writes or reads `frames` frames, no more than `Await` has returned. A device that has run
  /// dry since then may transfer fewer, and is restarted; what is missing of a reading is silence.
  /// False when the device is gone.
  bool Write(const float* stereo, int frames);
  bool Read(float* stereo, int frames);

  /// False once the card has been pulled, whether the device runs or not.
  bool IsConnected() const { return snd_pcm_state(Handle) != SND_PCM_STATE_DISCONNECTED; }

  /// Discards what the buffer holds; the next `Start` begins with an empty one.
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
  int Ready = 0;             // frames that end a wait; 0 for one piece
  std::vector<short> Whole;  // scratch buffer of a device that takes 16 bits
};

}  // namespace marlex
