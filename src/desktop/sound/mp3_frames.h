#pragma once

#include <cstdint>

#include "desktop/sound/sound_file.h"

namespace marlex {

/// What the beginning of an MP3 file says about it.
struct Mp3Start {
  std::int64_t FirstFrame = 0;     // offset of the first frame, past ID3v2 tags and junk
  std::int64_t ClaimedFrames = 0;  // from a Xing or Info header; 0 without one
  std::int64_t ClaimedBytes = 0;   // likewise, from the first frame to the end of the last
};

/// Looks for the first frame of an MPEG layer III stream: a chain of frames of one kind, each
/// starting where the previous one ends (ISO/IEC 11172-3 and 13818-3), so that neither a WAV file
/// nor other data is mistaken for one. False when there is none.
bool FindMp3Start(SoundFile& file, Mp3Start& start);

}  // namespace marlex
