#include "desktop/sound/alsa_device.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <thread>

#include "desktop/sound/sound_format.h"
#include "desktop/sound/steady_time.h"

namespace marlex {
namespace {

constexpr float kFullWhole = 32767;                  // full scale in 16 bits
constexpr int kMostSigns = 16;                       // poll descriptors of one device
constexpr auto kNap = std::chrono::milliseconds(1);  // after a false wake-up

}  // namespace

std::unique_ptr<AlsaDevice> AlsaDevice::Open(const std::string& name, snd_pcm_stream_t direction,
                                             int pieceMs, int bufferMs) {
  snd_pcm_t* handle = nullptr;
  if (snd_pcm_open(&handle, name.c_str(), direction, SND_PCM_NONBLOCK) != 0) return nullptr;
  auto device = std::make_unique<AlsaDevice>(handle);
  if (!device->Configure(pieceMs, bufferMs)) return nullptr;
  return device;
}

bool AlsaDevice::Configure(int pieceMs, int bufferMs) {
  snd_pcm_hw_params_t* hardware = nullptr;
  snd_pcm_hw_params_alloca(&hardware);
  if (snd_pcm_hw_params_any(Handle, hardware) < 0) return false;
  snd_pcm_hw_params_set_rate_resample(Handle, hardware, 1);
  if (snd_pcm_hw_params_set_access(Handle, hardware, SND_PCM_ACCESS_RW_INTERLEAVED) < 0)
    return false;
  Floating = snd_pcm_hw_params_set_format(Handle, hardware, SND_PCM_FORMAT_FLOAT_LE) == 0;
  if (!Floating && snd_pcm_hw_params_set_format(Handle, hardware, SND_PCM_FORMAT_S16_LE) < 0)
    return false;
  if (snd_pcm_hw_params_set_channels(Handle, hardware, kChannels) < 0) return false;
  if (snd_pcm_hw_params_set_rate(Handle, hardware, kSampleRate, 0) < 0) return false;
  unsigned pieceUs = unsigned(pieceMs) * kUsPerMs;
  unsigned bufferUs = unsigned(bufferMs) * kUsPerMs;
  snd_pcm_hw_params_set_period_time_near(Handle, hardware, &pieceUs, nullptr);
  snd_pcm_hw_params_set_buffer_time_near(Handle, hardware, &bufferUs, nullptr);
  if (snd_pcm_hw_params(Handle, hardware) != 0 || snd_pcm_prepare(Handle) != 0) return false;
  snd_pcm_uframes_t piece = 0;
  snd_pcm_uframes_t buffer = 0;
  if (snd_pcm_get_params(Handle, &buffer, &piece) != 0) return false;
  Piece = int(piece);
  Buffer = int(buffer);
  return true;
}

void AlsaDevice::SetReady(int frames) {
  if (frames == Ready) return;
  Ready = frames;
  snd_pcm_sw_params_t* software = nullptr;
  snd_pcm_sw_params_alloca(&software);
  if (snd_pcm_sw_params_current(Handle, software) != 0) return;
  snd_pcm_sw_params_set_avail_min(Handle, software, snd_pcm_uframes_t(frames));
  snd_pcm_sw_params(Handle, software);
}

/// Negative for a device without a card.
int AlsaDevice::CardNumber() const {
  snd_pcm_info_t* info = nullptr;
  snd_pcm_info_alloca(&info);
  return snd_pcm_info(Handle, info) == 0 ? snd_pcm_info_get_card(info) : -1;
}

std::string AlsaDevice::CardName() const {
  char* text = nullptr;
  const int card = CardNumber();
  if (card < 0 || snd_card_get_name(card, &text) != 0) return snd_pcm_name(Handle);
  std::string name = text;
  std::free(text);
  return name;
}

CardAddress AlsaDevice::Address() const {
  const int card = CardNumber();
  if (card < 0) return {"", snd_pcm_name(Handle), ""};
  return {"", "hw:" + std::to_string(card), CardName()};
}

/// `snd_pcm_wait` would never return for a device that keeps waking it for nothing, as one does
/// that is present but dead.
int AlsaDevice::Await(int limitMs) {
  const std::int64_t dueUs = SteadyUs() + std::int64_t(limitMs) * kUsPerMs;
  for (std::int64_t nowUs = 0; (nowUs = SteadyUs()) < dueUs;) {
    const snd_pcm_sframes_t frames = snd_pcm_avail_update(Handle);
    if (frames < 0) return Recover(frames) && Start() ? 0 : -1;
    if (frames >= (Ready > 0 ? Ready : Piece)) return int(frames);
    if (AwaitSign(int((dueUs - nowUs) / kUsPerMs) + 1)) {
      std::this_thread::sleep_for(kNap);
    }
  }
  return 0;
}

/// True when the device woke up without having room or samples, which may mean nothing.
bool AlsaDevice::AwaitSign(int limitMs) {
  std::array<pollfd, kMostSigns> signs;
  const int count = snd_pcm_poll_descriptors(Handle, signs.data(), unsigned(signs.size()));
  if (count <= 0) return true;
  if (poll(signs.data(), nfds_t(count), limitMs) <= 0) return false;
  unsigned short events = 0;
  snd_pcm_poll_descriptors_revents(Handle, signs.data(), unsigned(count), &events);
  const snd_pcm_sframes_t frames = snd_pcm_avail_update(Handle);
  return frames >= 0 && frames < (Ready > 0 ? Ready : Piece);
}

int AlsaDevice::Delay() const {
  snd_pcm_sframes_t frames = 0;
  return snd_pcm_delay(Handle, &frames) == 0 ? int(std::max<snd_pcm_sframes_t>(0, frames)) : 0;
}

bool AlsaDevice::Write(const float* stereo, int frames) {
  const void* data = stereo;
  if (!Floating) {
    Whole.resize(std::size_t(frames) * kChannels);
    const auto whole = [](float sample) {
      return short(std::lround(std::clamp(sample, -1.0f, 1.0f) * kFullWhole));
    };
    std::transform(stereo, stereo + frames * kChannels, Whole.begin(), whole);
    data = Whole.data();
  }
  const snd_pcm_sframes_t written = snd_pcm_writei(Handle, data, snd_pcm_uframes_t(frames));
  return written >= 0 || written == -EAGAIN || Recover(written);
}

bool AlsaDevice::Read(float* stereo, int frames) {
  void* data = stereo;
  if (!Floating) {
    Whole.resize(std::size_t(frames) * kChannels);
    data = Whole.data();
  }
  const snd_pcm_sframes_t got = snd_pcm_readi(Handle, data, snd_pcm_uframes_t(frames));
  const auto samples = std::clamp<snd_pcm_sframes_t>(got, 0, frames) * kChannels;
  if (!Floating) {
    std::transform(Whole.begin(), Whole.begin() + samples, stereo,
                   [](short sample) { return float(sample) / kFullWhole; });
  }
  std::fill(stereo + samples, stereo + frames * kChannels, 0.0f);
  return got >= 0 || got == -EAGAIN || (Recover(got) && Start());
}

bool AlsaDevice::Start() {
  if (snd_pcm_state(Handle) == SND_PCM_STATE_RUNNING) return true;
  if (snd_pcm_state(Handle) != SND_PCM_STATE_PREPARED && snd_pcm_prepare(Handle) != 0) return false;
  // Playback starts by itself with its first samples; capture must be started.
  return snd_pcm_stream(Handle) == SND_PCM_STREAM_PLAYBACK || snd_pcm_start(Handle) == 0;
}

}  // namespace marlex
