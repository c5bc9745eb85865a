#pragma once

#include "desktop/sound/pulse_connection.h"
#include "desktop/sound/pulse_microphone.h"
#include "desktop/sound/pulse_source_watch.h"
#include "desktop/sound/sound_output.h"

namespace marlex {

/// Plays through a stream of the sound server, pinned to one sink: the server closes the stream
/// rather than move it to another card. The stream is corked while nothing plays.
class PulseOutput : public SoundOutput {
 public:
  /// Opens a stream on the card's sink; null when the sink is missing. With `prove`, the sink must
  /// also take samples (of silence) before the output counts as open.
  static std::unique_ptr<PulseOutput> Open(std::unique_ptr<PulseConnection> connection,
                                           const PulseCard& card, const MicrophoneLines& lines,
                                           bool prove);

  PulseOutput(std::unique_ptr<PulseConnection> connection, const PulseCard& card,
              const MicrophoneLines& lines);
  ~PulseOutput() override;

  void Start(OutputSource& source) override;
  void Wake() override;
  bool Alive() const override { return Living; }
  bool Asleep() const override { return Corked; }

 private:
  bool Connect();
  void Fill();
  void Rewrite();
  int Rewindable() const;
  void WriteFrom(int frames, size_t bytes);
  void Write(size_t bytes, std::int64_t offset);
  bool Render(float* stereo, int frames, std::int64_t delayUs);
  std::int64_t DelayUs();
  void SetCorked(bool corked);
  void Lose();

  std::unique_ptr<PulseConnection> Connection;
  const PulseCard Card;
  std::unique_ptr<PulseMicrophone> Input;        // null when the card has none
  std::unique_ptr<PulseSourceWatch> InputWatch;  // likewise
  std::atomic<bool>& InputIsGone;
  pa_stream* Stream = nullptr;
  OutputSource* Source = nullptr;  // null before `Start`: silence
  SleepTimer Silence;
  std::int64_t NextPieceUs = 0;  // when the card is expected to take more, on the steady clock
  bool RewriteDue = false;       // a change is heard only from that piece on
  bool Started = false;          // the sink has begun to take samples
  std::atomic<bool> Corked{true};
  std::atomic<bool> Living{true};
};

}  // namespace marlex
