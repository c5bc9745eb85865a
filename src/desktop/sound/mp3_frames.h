#pragma once

#include <cstdint>

#include "desktop/sound/sound_file.h"

namespace marlex {

/// What the beginning of an MP3 file tells.
struct Mp3Start {
  std::int64_t FirstFrame = 0;     // offset of the first frame, behind an ID3 tag and junk
  std::int64_t ClaimedFrames = 0;  // of a Xing or Info header; 0 without one
  std::int64_t ClaimedBytes = 0;   // of the same, from the first frame to the end of the last
};

/// Looks for the first frame of an MPEG layer III stream: a chain of frames of one kind, each where
/// the one before says it is (ISO 11172-3 and 13818-3), so that neither a WAV nor any other data
/// passes for one. False when there is none.
bool FindMp3Start(SoundFile& file, Mp3Start& start);

}  // namespace marlex
