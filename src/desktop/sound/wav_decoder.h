#pragma once

#include "desktop/sound/decoder.h"

namespace marlex {

/// Opens a WAV file: any width of whole or floating numbers, any number of channels, of which the
/// first two count; a single one sounds on both sides. Null for any other file.
std::unique_ptr<Decoder> OpenWav(const std::string& path);

}  // namespace marlex
