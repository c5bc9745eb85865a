#include "desktop/sound/stream_mixer.h"

#include <algorithm>

namespace marlex {

void StreamMixer::Add(const std::shared_ptr<SoundStream>& stream) {
  Collect();
  Place& place = FreePlace();
  place.Owner = stream;
  place.Leaving = false;
  place.Sounding = stream.get();
}

void StreamMixer::Remove(const std::shared_ptr<SoundStream>& stream) {
  stream->Stop();
  for (Place& place : Places) {
    if (place.Owner == stream) place.Leaving = true;
  }
  Collect();
}

void StreamMixer::AwaitDecoding(int frames) {
  for (Place& place : Places) {
    if (place.Owner) place.Owner->AwaitDecoding(frames);
  }
}

void StreamMixer::StopAll() {
  for (Place& place : Places) {
    if (place.Owner) place.Owner->Stop();
  }
}

/// A free place; failing that, the place of a stream that cannot finish its fade-out because
/// nothing is rendered. There are many more places than players, so one of the two exists.
StreamMixer::Place& StreamMixer::FreePlace() {
  const auto free = std::find_if(Places.begin(), Places.end(), [](Place& p) { return !p.Owner; });
  if (free != Places.end()) return *free;
  const auto leaving =
      std::find_if(Places.begin(), Places.end(), [](Place& p) { return p.Leaving; });
  Place& place = leaving != Places.end() ? *leaving : Places.front();
  Empty(place);
  return place;
}

/// Takes the stream out of its place. A block that is being mixed at this moment may still use the
/// stream, so it is kept until that block is finished.
void StreamMixer::Empty(Place& place) {
  place.Sounding = nullptr;
  Discards.push_back({std::move(place.Owner), Rounds.load()});
  place.Owner = nullptr;
}

/// Frees what the rendering thread no longer uses.
void StreamMixer::Collect() {
  for (Place& place : Places) {
    if (place.Owner && place.Leaving && place.Over == place.Owner->Id()) Empty(place);
  }
  const std::uint64_t rounds = Rounds.load();
  std::erase_if(Discards, [rounds](const Discarded& discarded) {
    return discarded.Round % 2 == 0 || discarded.Round != rounds;
  });
}

bool StreamMixer::MixInto(float* stereo, int frames) {
  ++Rounds;
  Matters = false;
  bool sounds = false;
  for (Place& place : Places) sounds = MixPlace(place, stereo, frames) || sounds;
  ++Rounds;
  return sounds;
}

bool StreamMixer::MixPlace(Place& place, float* stereo, int frames) {
  SoundStream* const stream = place.Sounding.load();
  if (!stream || place.Over == stream->Id()) return false;
  switch (stream->MixInto(stereo, frames)) {
    case SoundStream::State::kActive:
      Matters = Matters || stream->Report() == EndReport::kHeard;
      return true;
    case SoundStream::State::kSilent:
      return false;
    case SoundStream::State::kEnded:
      if (OnEnded(Context, *stream)) place.Over = stream->Id();
      return true;
    case SoundStream::State::kGone:
      place.Over = stream->Id();
      return true;
  }
  return false;
}

}  // namespace marlex
