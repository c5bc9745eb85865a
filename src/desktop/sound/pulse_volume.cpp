#include "desktop/sound/pulse_volume.h"

namespace marlex {
namespace {

pa_cvolume Full(std::uint8_t channels) {
  pa_cvolume volume;
  pa_cvolume_set(&volume, channels, PA_VOLUME_NORM);
  return volume;
}

void RestoreMute(pa_context* server, const pa_sink_input_info* info, int, void*) {
  if (info && info->mute)
    Release(pa_context_set_sink_input_mute(server, info->index, 0, nullptr, nullptr));
}

void RestorePlayback(pa_context* server, const pa_sink_input_info* info, int last, void* unused) {
  RestoreMute(server, info, last, unused);
  if (!info || !info->has_volume || !info->volume_writable) return;
  const pa_cvolume full = Full(info->channel_map.channels);
  if (pa_cvolume_equal(&full, &info->volume)) return;
  Release(pa_context_set_sink_input_volume(server, info->index, &full, nullptr, nullptr));
}

void RestoreCapture(pa_context* server, const pa_source_output_info* info, int, void*) {
  if (!info) return;
  if (info->mute)
    Release(pa_context_set_source_output_mute(server, info->index, 0, nullptr, nullptr));
  if (!info->has_volume || !info->volume_writable) return;
  const pa_cvolume full = Full(info->channel_map.channels);
  if (pa_cvolume_equal(&full, &info->volume)) return;
  Release(pa_context_set_source_output_volume(server, info->index, &full, nullptr, nullptr));
}

}  // namespace

bool ConnectAtFullVolume(pa_stream* stream, const PulseCard& card, const pa_buffer_attr& buffer,
                         pa_stream_flags_t flags) {
  const pa_cvolume full = Full(pa_stream_get_sample_spec(stream)->channels);
  const auto all = pa_stream_flags_t(flags | PA_STREAM_START_UNMUTED | PA_STREAM_RELATIVE_VOLUME);
  return pa_stream_connect_playback(stream, card.Sink.c_str(), &buffer, all, &full, nullptr) == 0;
}

/// With flat volumes, the stream's volume follows the card's, so only its mute is reset.
pa_operation* CheckPlaybackVolume(pa_context* server, pa_stream* stream, const PulseCard& card) {
  const auto restore = card.FlatVolume ? RestoreMute : RestorePlayback;
  return pa_context_get_sink_input_info(server, pa_stream_get_index(stream), restore, nullptr);
}

pa_operation* CheckCaptureVolume(pa_context* server, pa_stream* stream) {
  return pa_context_get_source_output_info(server, pa_stream_get_index(stream), RestoreCapture,
                                           nullptr);
}

void Release(pa_operation* operation) {
  if (operation) pa_operation_unref(operation);
}

}  // namespace marlex
