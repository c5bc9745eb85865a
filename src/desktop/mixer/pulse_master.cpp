#include "desktop/mixer/pulse_master.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>

namespace marlex {

namespace {

void TakeSuccess(pa_context*, int success, void* answer) {
  *static_cast<bool*>(answer) = success != 0;
}

pa_channel_map StereoMap() {
  pa_channel_map map;
  return *pa_channel_map_init_stereo(&map);
}

pa_volume_t ToServer(int level) {
  return pa_volume_t(std::lround(double(level) * PA_VOLUME_NORM / kFullLevel));
}

int FromServer(pa_volume_t volume) {
  return int(std::lround(std::min(double(volume) / PA_VOLUME_NORM, 1.0) * kFullLevel));
}

StereoLevel LevelOf(pa_cvolume volume, const pa_channel_map& channels) {
  const pa_channel_map stereo = StereoMap();
  pa_cvolume_remap(&volume, &channels, &stereo);
  return {FromServer(volume.values[0]), FromServer(volume.values[1])};
}

/// An output without left and right gets the louder channel's volume, and the balance is lost.
pa_cvolume VolumeOf(StereoLevel level, const pa_channel_map& channels) {
  const pa_channel_map stereo = StereoMap();
  pa_cvolume volume;
  if (!pa_channel_map_can_balance(&channels)) {
    return *pa_cvolume_set(&volume, channels.channels, ToServer(std::max(level.Left, level.Right)));
  }
  pa_cvolume_set(&volume, stereo.channels, ToServer(level.Left));
  volume.values[1] = ToServer(level.Right);
  return *pa_cvolume_remap(&volume, &stereo, &channels);
}

}  // namespace

std::unique_ptr<PulseMaster> PulseMaster::Open(const std::string& sink) {
  auto connection = PulseConnection::Connect();
  if (!connection) return nullptr;
  auto master =
      std::make_unique<PulseMaster>(std::move(connection), eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC));
  // Subscribe before looking the sink up, so that a loss in between is not missed.
  return master->Watch() && master->Find(sink) ? std::move(master) : nullptr;
}

PulseMaster::PulseMaster(std::unique_ptr<PulseConnection> connection, int events)
    : Connection(std::move(connection)), Events(events) {}

PulseMaster::~PulseMaster() {
  Connection->Locked([this] {
    Connection->OnLost = nullptr;
    pa_context_set_subscribe_callback(Connection->Context(), nullptr, nullptr);
  });
  Connection.reset();
  close(Events);
}

bool PulseMaster::Find(const std::string& sink) {
  Connection->Complete([&] {
    return pa_context_get_sink_info_by_name(Connection->Context(), sink.c_str(), Take, this);
  });
  return Index != PA_INVALID_INDEX;
}

void PulseMaster::Take(pa_context*, const pa_sink_info* info, int, void* self) {
  if (!info) return;
  auto& master = *static_cast<PulseMaster*>(self);
  master.Index = info->index;
  master.Channels = info->channel_map;
  master.State = {LevelOf(info->volume, info->channel_map), info->mute != 0};
}

/// Asks the server to report changes of its outputs.
bool PulseMaster::Watch() {
  const auto changed = [](pa_context*, pa_subscription_event_type_t type, std::uint32_t index,
                          void* self) {
    auto& master = *static_cast<PulseMaster*>(self);
    const bool gone = (type & PA_SUBSCRIPTION_EVENT_TYPE_MASK) == PA_SUBSCRIPTION_EVENT_REMOVE;
    if (gone && index == master.Index) master.Lose();
  };
  Connection->Locked([&] {
    Connection->OnLost = [this] { Lose(); };
    pa_context_set_subscribe_callback(Connection->Context(), changed, this);
  });
  bool done = false;
  const auto subscribe = [&] {
    return pa_context_subscribe(Connection->Context(), PA_SUBSCRIPTION_MASK_SINK, TakeSuccess,
                                &done);
  };
  return Connection->Complete(subscribe) && done;
}

void PulseMaster::Lose() {
  Lost = true;
  eventfd_write(Events, 1);
}

bool PulseMaster::SetLevel(StereoLevel level) {
  const pa_cvolume volume = VolumeOf(level, Channels);
  bool done = false;
  const auto set = [&] {
    return pa_context_set_sink_volume_by_index(Connection->Context(), Index, &volume, TakeSuccess,
                                               &done);
  };
  return Connection->Complete(set) && done;
}

bool PulseMaster::SetMute(bool muted) {
  bool done = false;
  const auto set = [&] {
    return pa_context_set_sink_mute_by_index(Connection->Context(), Index, muted, TakeSuccess,
                                             &done);
  };
  return Connection->Complete(set) && done;
}

void PulseMaster::AppendDescriptors(std::vector<pollfd>& descriptors) const {
  descriptors.push_back({Events, POLLIN, 0});
}

bool PulseMaster::HandleEvents() { return !Lost; }

}  // namespace marlex
