#pragma once

#include "desktop/sound/decoder.h"

namespace marlex {

/// Opens an MP3 file: MPEG 1, 2 or 2.5, layer III, of any bitrate, the free format included. Junk,
/// tags and damaged frames in mid file are skipped, and the silence that the encoder added at both
/// ends is cut where the file states its length. Null for any other file.
std::unique_ptr<Decoder> OpenMp3(const std::string& path);

}  // namespace marlex
