#pragma once

#include "desktop/sound/pulse_connection.h"

namespace marlex {

// A server remembers the volume and the mute of earlier streams. Here the engine alone sets levels,
// so every stream runs unmuted at 100 % on the server, and is reset to that if the server starts it
// otherwise.

/// Connects a stream to the card's sink, unmuted and at full volume; false when the request fails.
bool ConnectAtFullVolume(pa_stream* stream, const PulseCard& card, const pa_buffer_attr& buffer,
                         pa_stream_flags_t flags);

/// Checks a playback stream that is ready, and resets its volume and mute. The caller owns the
/// returned operation, which may be null.
pa_operation* CheckPlaybackVolume(pa_context* server, pa_stream* stream, const PulseCard& card);

/// The same for a capturing stream.
pa_operation* CheckCaptureVolume(pa_context* server, pa_stream* stream);

/// Drops the reference to an operation, which then finishes by itself. Does nothing for null.
void Release(pa_operation* operation);

}  // namespace marlex
