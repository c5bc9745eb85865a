#include "desktop/sound/pulse_microphone.h"

#include <algorithm>
#include <cstring>

#include "desktop/sound/pulse_volume.h"
#include "desktop/sound/steady_time.h"

namespace marlex {
namespace {

constexpr int kFragmentMs = 5;  // captured per transfer
constexpr int kLatencyMs = 16;  // of the playback, including the card's own pieces
constexpr int kStartMs = 8;     // playback starts with this much
constexpr int kRequestMs = 2;
constexpr int kBlockFrames = 1024;
constexpr std::int64_t kMuteUs = 100 * kUsPerMs;    // without a block: nothing is left to fade out
constexpr std::int64_t kDeadUs = 2 * kUsPerSecond;  // without a block: reopen the microphone
constexpr std::int64_t kLookUs = kUsPerSecond;  // between two checks, and two attempts to open it
constexpr std::uint32_t kServersChoice = std::uint32_t(-1);

std::uint32_t BytesIn(int milliseconds) {
  return std::uint32_t(FramesIn(milliseconds) * kFrameBytes);
}

constexpr pa_sample_spec kFormat = {PA_SAMPLE_FLOAT32LE, kSampleRate, kChannels};
constexpr auto kFlags = PA_STREAM_DONT_MOVE | PA_STREAM_ADJUST_LATENCY;

void EndWhenMade(pa_stream* stream, void*) {
  if (pa_stream_get_state(stream) == PA_STREAM_CREATING) return;
  pa_stream_set_state_callback(stream, nullptr, nullptr);
  pa_stream_disconnect(stream);
  pa_stream_unref(stream);
}

/// Ends a stream. One that the server is still creating cannot be withdrawn, and would stay there
/// for ever, so it is ended as soon as it exists.
void Disconnect(pa_stream*& stream) {
  if (!stream) return;
  pa_stream_set_state_callback(stream, EndWhenMade, nullptr);
  pa_stream_set_read_callback(stream, nullptr, nullptr);
  EndWhenMade(stream, nullptr);
  stream = nullptr;
}

}  // namespace

PulseMicrophone::PulseMicrophone(PulseConnection& connection, const PulseCard& card,
                                 const MicrophoneLines& lines)
    : Connection(connection),
      Card(card),
      Line(lines.Microphone),
      Path(lines),
      Block(std::size_t(kBlockFrames + MicrophonePath::kMostAdded) * kChannels) {}

PulseMicrophone::~PulseMicrophone() {
  Close();
  SetWatch(false);
}

/// An open microphone that is muted closes itself when its sound has faded out; if it is unmuted
/// before that, it stays open.
void PulseMicrophone::Follow() {
  const bool wanted = !Line.Muted();
  if (wanted && !Capture) Open();
  if (wanted && !Watch) SetWatch(true);
  if (!wanted) SetWatch(false);
  if (!wanted && Capture && (!Flowing || SteadyUs() - LastBlockUs > kMuteUs)) Close();
}

void PulseMicrophone::Open() {
  Flowing = false;
  LastBlockUs = SteadyUs();
  Path.Begin();
  if (!OpenPlayback() || !OpenCapture()) Lost();
}

void PulseMicrophone::Close() {
  Disconnect(Capture);
  Disconnect(Playback);
}

void PulseMicrophone::Lost() {
  Close();
  if (!Line.Muted()) SetWatch(true);
}

/// Reopens a microphone that is gone, or that is there but dead.
void PulseMicrophone::Look() {
  SetWatch(!Line.Muted());
  if (Capture && SteadyUs() - LastBlockUs >= kDeadUs) Close();
  Follow();
}

void PulseMicrophone::SetWatch(bool on) {
  pa_mainloop_api* const loop = Connection.Api();
  if (Watch) loop->time_free(Watch);
  Watch = nullptr;
  if (!on) return;
  const auto look = [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
    static_cast<PulseMicrophone*>(self)->Look();
  };
  Watch = pa_context_rttime_new(Connection.Context(), pa_rtclock_now() + kLookUs, look, this);
}

bool PulseMicrophone::OpenCapture() {
  Capture = pa_stream_new(Connection.Context(), "Microphone", &kFormat, nullptr);
  if (!Capture) return false;
  const auto state = [](pa_stream* stream, void* self) {
    auto& microphone = *static_cast<PulseMicrophone*>(self);
    if (!PA_STREAM_IS_GOOD(pa_stream_get_state(stream))) return microphone.Lost();
    if (pa_stream_get_state(stream) != PA_STREAM_READY) return;
    Release(CheckCaptureVolume(microphone.Connection.Context(), stream));
  };
  pa_stream_set_state_callback(Capture, state, this);
  pa_stream_set_read_callback(
      Capture, [](pa_stream*, size_t, void* self) { static_cast<PulseMicrophone*>(self)->Pass(); },
      this);
  const pa_buffer_attr buffer = {kServersChoice, kServersChoice, kServersChoice, kServersChoice,
                                 BytesIn(kFragmentMs)};
  return pa_stream_connect_record(Capture, Card.Source.c_str(), &buffer,
                                  pa_stream_flags_t(kFlags)) == 0;
}

bool PulseMicrophone::OpenPlayback() {
  Playback = pa_stream_new(Connection.Context(), "Announcement", &kFormat, nullptr);
  if (!Playback) return false;
  const auto state = [](pa_stream* stream, void* self) {
    auto& microphone = *static_cast<PulseMicrophone*>(self);
    if (!PA_STREAM_IS_GOOD(pa_stream_get_state(stream))) return microphone.Lost();
    if (pa_stream_get_state(stream) != PA_STREAM_READY) return;
    Release(CheckPlaybackVolume(microphone.Connection.Context(), stream, microphone.Card));
  };
  pa_stream_set_state_callback(Playback, state, this);
  const pa_buffer_attr buffer = {kServersChoice, BytesIn(kLatencyMs), BytesIn(kStartMs),
                                 BytesIn(kRequestMs), kServersChoice};
  return ConnectAtFullVolume(Playback, Card, buffer, pa_stream_flags_t(kFlags));
}

/// Takes everything that was captured. Until the playback is ready it is dropped, since it would be
/// late.
void PulseMicrophone::Pass() {
  while (Capture && pa_stream_readable_size(Capture) > 0) {
    const void* data = nullptr;
    size_t bytes = 0;
    if (pa_stream_peek(Capture, &data, &bytes) != 0 || bytes == 0) return;
    const int frames = int(std::int64_t(bytes) / kFrameBytes);
    const bool ready = Playback && pa_stream_get_state(Playback) == PA_STREAM_READY;
    const float* const stereo = static_cast<const float*>(data);
    for (int done = 0; data && ready && done < frames; done += kBlockFrames) {
      PassBlock(stereo + done * kChannels, std::min(kBlockFrames, frames - done));
    }
    pa_stream_drop(Capture);
  }
  LastBlockUs = SteadyUs();
  if (Path.Silent() && Line.Muted()) Close();
}

void PulseMicrophone::PassBlock(const float* stereo, int frames) {
  Flowing = true;
  std::memcpy(Block.data(), stereo, size_t(frames * kFrameBytes));
  const int passed = Path.Pass(Block.data(), frames, Queued());
  if (passed > 0)
    pa_stream_write(Playback, Block.data(), size_t(passed * kFrameBytes), nullptr, 0,
                    PA_SEEK_RELATIVE);
}

/// Frames that wait in the server for the card.
int PulseMicrophone::Queued() const {
  const pa_buffer_attr* const buffer = pa_stream_get_buffer_attr(Playback);
  const size_t room = pa_stream_writable_size(Playback);
  if (!buffer || room == size_t(-1)) return 0;
  return int((std::int64_t(buffer->tlength) - std::int64_t(room)) / kFrameBytes);
}

}  // namespace marlex
