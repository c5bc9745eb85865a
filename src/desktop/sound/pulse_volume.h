#pragma once

#include "desktop/sound/pulse_connection.h"

namespace marlex {

// A server remembers the volume and the mute of earlier streams. Here all levels are the engine's,
// so every stream has a volume of 100 % at the server, and is put back to it should the server know
// better.

/// Connects a stream to the card's sink; false when that cannot be asked for.
bool ConnectAtFullVolume(pa_stream* stream, const PulseCard& card, const pa_buffer_attr& buffer,
                         pa_stream_flags_t flags);

/// Looks at a playback stream that is ready. The operation is the caller's, and may be null.
pa_operation* CheckPlaybackVolume(pa_context* server, pa_stream* stream, const PulseCard& card);

/// The same for a stream that captures.
pa_operation* CheckCaptureVolume(pa_context* server, pa_stream* stream);

/// Lets an operation go on by itself; null is none.
void Release(pa_operation* operation);

}  // namespace marlex
