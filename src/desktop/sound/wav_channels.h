#pragma once

#include <sndfile.h>

#include <vector>

namespace marlex {

/// How loud a channel is on each side, as an amplitude factor: 1 is unchanged.
struct ChannelShare {
  float Left = 0;
  float Right = 0;
};

/// Shares of all channels of an open file. A single channel sounds on both sides; two are left and
/// right. With more, the front pair is unchanged, centre and surround channels are added 3 dB down,
/// and the low-frequency channel is left out (ITU-R BS.775-3). If the file does not name its
/// channels, the usual order for their number is assumed. A channel without a known position is
/// treated as centre, so that nothing said in it is lost.
std::vector<ChannelShare> SharesOf(SNDFILE* file, int channels);

}  // namespace marlex
