#pragma once

#include "desktop/sound/decoder.h"

namespace marlex {

/// Opens an MP3 file: MPEG 1, 2 or 2.5, layer III, any bitrate, including the free format. Skips
/// junk, tags and damaged frames in mid-file, and cuts the silence that the encoder added at both
/// ends where the file states its length. Null for any other file.
std::unique_ptr<Decoder> OpenMp3(const std::string& path);

}  // namespace marlex
