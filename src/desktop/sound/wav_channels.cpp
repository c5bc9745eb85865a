#include "desktop/sound/wav_channels.h"

#include <algorithm>

namespace marlex {
namespace {

constexpr float kDown = 0.7071f;  // 3 dB
constexpr ChannelShare kLeft = {1, 0};
constexpr ChannelShare kRight = {0, 1};
constexpr ChannelShare kCentre = {kDown, kDown};
constexpr ChannelShare kLeftBehind = {kDown, 0};
constexpr ChannelShare kRightBehind = {0, kDown};

ChannelShare ShareOf(int place) {
  switch (place) {
    case SF_CHANNEL_MAP_LEFT:
    case SF_CHANNEL_MAP_FRONT_LEFT:
      return kLeft;
    case SF_CHANNEL_MAP_RIGHT:
    case SF_CHANNEL_MAP_FRONT_RIGHT:
      return kRight;
    case SF_CHANNEL_MAP_FRONT_LEFT_OF_CENTER:
    case SF_CHANNEL_MAP_REAR_LEFT:
    case SF_CHANNEL_MAP_SIDE_LEFT:
    case SF_CHANNEL_MAP_TOP_FRONT_LEFT:
    case SF_CHANNEL_MAP_TOP_REAR_LEFT:
      return kLeftBehind;
    case SF_CHANNEL_MAP_FRONT_RIGHT_OF_CENTER:
    case SF_CHANNEL_MAP_REAR_RIGHT:
    case SF_CHANNEL_MAP_SIDE_RIGHT:
    case SF_CHANNEL_MAP_TOP_FRONT_RIGHT:
    case SF_CHANNEL_MAP_TOP_REAR_RIGHT:
      return kRightBehind;
    case SF_CHANNEL_MAP_LFE:
      return {};
    default:
      return kCentre;
  }
}

/// Positions of the channels in a file that does not name them.
std::vector<int> UsualPlaces(int channels) {
  std::vector<int> places = {SF_CHANNEL_MAP_LEFT, SF_CHANNEL_MAP_RIGHT};
  if (channels != 4) places.push_back(SF_CHANNEL_MAP_CENTER);
  if (channels >= 6) places.push_back(SF_CHANNEL_MAP_LFE);
  if (channels == 7) places.push_back(SF_CHANNEL_MAP_REAR_CENTER);
  places.insert(places.end(), {SF_CHANNEL_MAP_REAR_LEFT, SF_CHANNEL_MAP_REAR_RIGHT});
  places.insert(places.end(), {SF_CHANNEL_MAP_SIDE_LEFT, SF_CHANNEL_MAP_SIDE_RIGHT});
  places.resize(std::size_t(channels), SF_CHANNEL_MAP_INVALID);
  return places;
}

}  // namespace

std::vector<ChannelShare> SharesOf(SNDFILE* file, int channels) {
  if (channels == 1) return {{1, 1}};
  if (channels == 2) return {kLeft, kRight};
  std::vector<int> places = UsualPlaces(channels);
  std::vector<int> known(places.size());
  const int bytes = int(known.size() * sizeof(int));
  if (sf_command(file, SFC_GET_CHANNEL_MAP_INFO, known.data(), bytes) == SF_TRUE) places = known;
  std::vector<ChannelShare> shares(places.size());
  std::transform(places.begin(), places.end(), shares.begin(), ShareOf);
  return shares;
}

}  // namespace marlex
