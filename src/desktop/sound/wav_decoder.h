#pragma once

#include "desktop/sound/decoder.h"

namespace marlex {

/// Opens a WAV file: integer or floating-point samples of any width, any number of channels, which
/// are mixed down to two. A recording that was never closed plays to the end of the file. Null for
/// any other file.
std::unique_ptr<Decoder> OpenWav(const std::string& path);

}  // namespace marlex
