#include "desktop/sound/pulse_output.h"

#include <algorithm>
#include <cstring>

#include "desktop/sound/pulse_volume.h"
#include "desktop/sound/steady_time.h"

namespace marlex {
namespace {

// The server splits the latency in two halves: the card, which takes samples in pieces of that
// length, and a queue that can be rewritten while the card plays. So a mute takes effect at most
// one piece late, and each piece costs one wake-up.
constexpr int kPieceMs = 40;
constexpr int kRequestMs = 2;  // smallest request
// From writing a sample to hearing it.
constexpr int kLatencyMs = 2 * kPieceMs + 2 * kRequestMs;
constexpr int kLeftMs = 8;  // of the queue that are never rewritten
constexpr std::int64_t kGuardUs =
    6 * kUsPerMs;             // before the card's next piece: too late to rewrite
constexpr int kWorthMs = 10;  // a shorter rewrite is not worth its message
constexpr int kStartMs = 10;  // playback starts with this much
constexpr std::int64_t kProofLimitUs = 2500 * kUsPerMs;  // for a card to take its first samples

constexpr std::uint32_t BytesIn(int milliseconds) {
  return std::uint32_t(FramesIn(milliseconds) * kFrameBytes);
}

}  // namespace

PulseOutput::PulseOutput(std::unique_ptr<PulseConnection> connection, const PulseCard& card,
                         const MicrophoneLines& lines)
    : Connection(std::move(connection)), Card(card), InputIsGone(lines.IsGone) {
  if (!card.Source.empty()) {
    Input = std::make_unique<PulseMicrophone>(*Connection, card, lines);
  }
  Connection->Locked([this] { Connection->OnLost = [this] { Lose(); }; });
}

PulseOutput::~PulseOutput() {
  Connection->Locked([this] {
    Connection->OnLost = nullptr;
    InputWatch.reset();
    Input.reset();
    if (!Stream) return;
    pa_stream_set_state_callback(Stream, nullptr, nullptr);
    pa_stream_set_write_callback(Stream, nullptr, nullptr);
    pa_stream_set_started_callback(Stream, nullptr, nullptr);
    pa_stream_disconnect(Stream);
    pa_stream_unref(Stream);
  });
}

std::unique_ptr<PulseOutput> PulseOutput::Open(std::unique_ptr<PulseConnection> connection,
                                               const PulseCard& card, const MicrophoneLines& lines,
                                               bool prove) {
  auto output = std::make_unique<PulseOutput>(std::move(connection), card, lines);
  PulseConnection& server = *output->Connection;
  bool connected = false;
  server.Locked([&] { connected = output->Connect(); });
  const auto settled = [&] {
    return !output->Living || pa_stream_get_state(output->Stream) == PA_STREAM_READY;
  };
  if (!connected || !server.Await(settled, server.AnswerLimitUs()) || !output->Living)
    return nullptr;
  server.Complete([&] { return CheckPlaybackVolume(server.Context(), output->Stream, card); });
  if (!prove) return output;
  server.Locked([&] { output->SetCorked(false); });
  const auto decided = [&] { return output->Started || !output->Living; };
  if (!server.Await(decided, kProofLimitUs) || !output->Living) return nullptr;
  return output;
}

bool PulseOutput::Connect() {
  if (Input) InputWatch = std::make_unique<PulseSourceWatch>(*Connection, Card.Source, InputIsGone);
  const pa_sample_spec format = {PA_SAMPLE_FLOAT32LE, kSampleRate, kChannels};
  Stream = pa_stream_new(Connection->Context(), "Music and messages", &format, nullptr);
  if (!Stream) return false;
  pa_stream_set_state_callback(
      Stream,
      [](pa_stream* stream, void* self) {
        auto& output = *static_cast<PulseOutput*>(self);
        output.Connection->Signal();
        if (!PA_STREAM_IS_GOOD(pa_stream_get_state(stream))) output.Lose();
      },
      this);
  pa_stream_set_write_callback(
      Stream, [](pa_stream*, size_t, void* self) { static_cast<PulseOutput*>(self)->Fill(); },
      this);
  pa_stream_set_started_callback(
      Stream,
      [](pa_stream*, void* self) {
        static_cast<PulseOutput*>(self)->Started = true;
        static_cast<PulseOutput*>(self)->Connection->Signal();
      },
      this);
  const pa_buffer_attr buffer = {std::uint32_t(-1), BytesIn(kLatencyMs), BytesIn(kStartMs),
                                 BytesIn(kRequestMs), std::uint32_t(-1)};
  const auto flags = pa_stream_flags_t(PA_STREAM_DONT_MOVE | PA_STREAM_ADJUST_LATENCY |
                                       PA_STREAM_START_CORKED | PA_STREAM_INTERPOLATE_TIMING);
  return ConnectAtFullVolume(Stream, Card, buffer, flags);
}

/// Time until the next sample written is heard. The server is asked only while that matters, and
/// its first answer takes about one piece to arrive; until then the shortest delay is assumed.
std::int64_t PulseOutput::DelayUs() {
  if (!Source || !Source->NeedsDelay()) return kPieceMs * kUsPerMs;
  Release(pa_stream_update_timing_info(Stream, nullptr, nullptr));
  pa_usec_t latency = 0;
  int negative = 0;
  const bool known = pa_stream_get_latency(Stream, &latency, &negative) == 0 && !negative;
  return known ? std::int64_t(latency) : kPieceMs * kUsPerMs;
}

void PulseOutput::Start(OutputSource& source) {
  Connection->Locked([&] {
    Source = &source;
    SetCorked(false);
    if (Input) Input->Follow();
  });
}

void PulseOutput::Wake() {
  Connection->Locked([this] {
    if (Corked) {
      SetCorked(false);
    } else {
      Rewrite();
    }
    if (Input && Living) Input->Follow();
  });
}

/// Replaces what the server has not yet passed to the card, so that a change is heard now. Just
/// before the card takes its next piece a rewrite would come too late and the sound would jump, so
/// it is postponed until after that piece.
void PulseOutput::Rewrite() {
  if (!Living || !Source) return;
  RewriteDue = SteadyUs() > NextPieceUs - kGuardUs;
  if (!RewriteDue) WriteFrom(Rewindable(), 0);
}

/// Frames that are certain to be still in the server's queue.
int PulseOutput::Rewindable() const {
  const pa_buffer_attr* const buffer = pa_stream_get_buffer_attr(Stream);
  const size_t room = pa_stream_writable_size(Stream);
  if (!buffer || room == size_t(-1)) return 0;
  const std::int64_t queued = std::int64_t(buffer->tlength) - std::int64_t(room);
  return std::max(0, int(queued / kFrameBytes) - FramesIn(kLeftMs));
}

/// Rewrites up to `frames` frames that can be rendered again, and appends `bytes` new bytes.
void PulseOutput::WriteFrom(int frames, size_t bytes) {
  RewriteDue = false;
  const std::int64_t back = Source ? Source->Rewind(FramesIn(kWorthMs), frames) * kFrameBytes : 0;
  Write(size_t(back) + bytes, -back);
}

/// A stream is filled before it is uncorked, so that the sound begins with its first sample.
void PulseOutput::SetCorked(bool corked) {
  if (!Living || pa_stream_get_state(Stream) != PA_STREAM_READY) return;
  Corked = corked;
  Silence.Reset();
  if (!corked) Fill();
  Release(pa_stream_cork(Stream, corked, nullptr, nullptr));
  if (corked) Release(pa_stream_flush(Stream, nullptr, nullptr));
  if (corked && Source) Source->OutputChanged();
}

/// Gives the server all that it requests, which is what the card has just taken. It will take the
/// same amount again after that amount has played.
void PulseOutput::Fill() {
  if (Corked || !Living) return;
  const size_t bytes = pa_stream_writable_size(Stream);
  if (bytes == size_t(-1) || bytes < size_t(kFrameBytes)) return;
  NextPieceUs = SteadyUs() + UsOf(std::int64_t(bytes) / kFrameBytes);
  WriteFrom(RewriteDue ? Rewindable() : 0, bytes);
}

/// Writes `bytes` bytes starting at `offset`, which counts from the end of what was written.
void PulseOutput::Write(size_t bytes, std::int64_t offset) {
  bool sleepy = false;
  std::int64_t delayUs = DelayUs() + UsOf(offset / kFrameBytes);
  while (bytes >= size_t(kFrameBytes)) {
    void* data = nullptr;
    size_t piece = bytes;
    if (pa_stream_begin_write(Stream, &data, &piece) != 0 || !data) return;
    piece = std::min(piece, bytes) / size_t(kFrameBytes) * size_t(kFrameBytes);
    if (piece == 0) {
      pa_stream_cancel_write(Stream);
      return;
    }
    sleepy = Render(static_cast<float*>(data), int(std::int64_t(piece) / kFrameBytes), delayUs);
    if (pa_stream_write(Stream, data, piece, nullptr, offset, PA_SEEK_RELATIVE) != 0) return;
    delayUs += UsOf(std::int64_t(piece) / kFrameBytes);
    bytes -= piece;
    offset = 0;
  }
  if (sleepy) SetCorked(true);
}

/// True when nothing has played for so long that the stream should sleep.
bool PulseOutput::Render(float* stereo, int frames, std::int64_t delayUs) {
  if (Source) return Silence.Passed(Source->RenderBlock(stereo, frames, delayUs), frames);
  std::memset(stereo, 0, size_t(frames * kFrameBytes));
  return false;
}

void PulseOutput::Lose() {
  if (!Living.exchange(false)) return;
  Connection->Signal();
  if (Source) Source->OutputChanged();
}

}  // namespace marlex
