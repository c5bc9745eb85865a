#pragma once

#include <sndfile.h>

#include <vector>

namespace marlex {

/// How loud a channel is heard on each side: amplitude, 1 is unchanged.
struct ChannelShare {
  float Left = 0;
  float Right = 0;
};

/// The shares of all channels of an open file. A single channel sounds on both sides, and two are
/// left and right. Of more, the front ones stay as they are, and the centre and those at the sides
/// and behind are added 3 dB down, low frequencies not at all (ITU-R BS.775-3). A file that does
/// not say where its channels belong has them in the order that is usual for their number; a
/// channel without a place is heard like the centre, so that nothing that was said is lost.
std::vector<ChannelShare> SharesOf(SNDFILE* file, int channels);

}  // namespace marlex
