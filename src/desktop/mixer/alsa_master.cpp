#include "desktop/mixer/alsa_master.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace marlex {

namespace {

constexpr const char* kMasterName = "Master";
constexpr auto kLeft = SND_MIXER_SCHN_FRONT_LEFT;
constexpr auto kRight = SND_MIXER_SCHN_FRONT_RIGHT;

snd_mixer_elem_t* FindMaster(snd_mixer_t* mixer) {
  snd_mixer_selem_id_t* id = nullptr;
  snd_mixer_selem_id_alloca(&id);
  snd_mixer_selem_id_set_name(id, kMasterName);
  snd_mixer_selem_id_set_index(id, 0);
  return snd_mixer_find_selem(mixer, id);
}

std::string CardOf(snd_mixer_t* mixer, const std::string& device) {
  snd_hctl_t* door = nullptr;
  snd_ctl_card_info_t* info = nullptr;
  snd_ctl_card_info_alloca(&info);
  if (snd_mixer_get_hctl(mixer, device.c_str(), &door) < 0) return "";
  return snd_ctl_card_info(snd_hctl_ctl(door), info) < 0 ? "" : snd_ctl_card_info_get_name(info);
}

/// Silences the library: while a server is gone, it would log one line for each attempt. The
/// handler is global to the program.
void SayNothing(const char*, int, const char*, int, const char*, ...) {}

}  // namespace

std::unique_ptr<AlsaMaster> AlsaMaster::Open(const std::string& device, const std::string& card) {
  snd_lib_error_set_handler(SayNothing);
  snd_mixer_t* opened = nullptr;
  if (snd_mixer_open(&opened, 0) < 0) return nullptr;
  Handle mixer(opened);
  if (snd_mixer_attach(opened, device.c_str()) < 0) return nullptr;
  if (!card.empty() && CardOf(opened, device) != card) return nullptr;
  if (snd_mixer_selem_register(opened, nullptr, nullptr) < 0) return nullptr;
  if (snd_mixer_load(opened) < 0) return nullptr;
  snd_mixer_elem_t* master = FindMaster(opened);
  if (!master || !snd_mixer_selem_has_playback_volume(master)) return nullptr;
  std::unique_ptr<AlsaMaster> found(new AlsaMaster(std::move(mixer), master));
  return found->Lowest < found->Highest ? std::move(found) : nullptr;
}

AlsaMaster::AlsaMaster(Handle mixer, snd_mixer_elem_t* master)
    : Mixer(std::move(mixer)), Master(master) {
  snd_mixer_selem_get_playback_volume_range(Master, &Lowest, &Highest);
}

CardState AlsaMaster::Read() const {
  long left = Highest;
  snd_mixer_selem_get_playback_volume(Master, kLeft, &left);
  long right = left;
  if (!snd_mixer_selem_is_playback_mono(Master)) {
    snd_mixer_selem_get_playback_volume(Master, kRight, &right);
  }
  int sounds = 1;
  if (snd_mixer_selem_has_playback_switch(Master)) {
    snd_mixer_selem_get_playback_switch(Master, kLeft, &sounds);
  }
  return {{FromCard(left), FromCard(right)}, sounds == 0};
}

/// A master with a single volume gets the louder channel's, and the balance is lost.
bool AlsaMaster::SetLevel(StereoLevel level) {
  const long left = ToCard(level.Left);
  const long right = ToCard(level.Right);
  if (left == right || snd_mixer_selem_is_playback_mono(Master)) {
    return snd_mixer_selem_set_playback_volume_all(Master, std::max(left, right)) >= 0;
  }
  return snd_mixer_selem_set_playback_volume(Master, kLeft, left) >= 0 &&
         snd_mixer_selem_set_playback_volume(Master, kRight, right) >= 0;
}

bool AlsaMaster::SetMute(bool muted) {
  if (!snd_mixer_selem_has_playback_switch(Master)) return true;
  return snd_mixer_selem_set_playback_switch_all(Master, muted ? 0 : 1) >= 0;
}

void AlsaMaster::AppendDescriptors(std::vector<pollfd>& descriptors) const {
  const int count = snd_mixer_poll_descriptors_count(Mixer.get());
  if (count <= 0) return;
  const std::size_t begin = descriptors.size();
  descriptors.resize(begin + count);
  snd_mixer_poll_descriptors(Mixer.get(), descriptors.data() + begin, count);
}

bool AlsaMaster::HandleEvents() { return snd_mixer_handle_events(Mixer.get()) >= 0; }

long AlsaMaster::ToCard(int level) const {
  return Lowest + std::lround(static_cast<double>(level) * (Highest - Lowest) / kFullLevel);
}

int AlsaMaster::FromCard(long volume) const {
  const double share = static_cast<double>(volume - Lowest) / (Highest - Lowest);
  return static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * kFullLevel));
}

}  // namespace marlex
