#pragma once

#include <string>
#include <utility>
#include <vector>

#include "desk/desk.h"

namespace marlex {

/// A desk whose songs are observed: its journal begins after the start and holds what is heard.
class MusicDesk : public Desk {
 public:
  explicit MusicDesk(DeskOptions options = {},
                     const std::function<void(SimulatedPc&)>& prepare = {})
      : Desk(WithSongs(std::move(options)), prepare) {
    Pc.Journal.Only({"song", "wav", "box", "failure"});
    Pc.Journal.Clear();
  }

  /// Songs "a", "b", "c" and so on, of equal length.
  static std::vector<Medium> Songs(int count, int lengthMs = 10'000) {
    std::vector<Medium> songs;
    for (int song = 0; song < count; ++song) {
      songs.push_back({std::string(1, static_cast<char>('a' + song)), lengthMs});
    }
    return songs;
  }

  /// The entries of the list, joined by blanks.
  std::string Entries() {
    std::string entries;
    for (int index = 0; index < List().ListCount(); ++index) {
      entries += (index > 0 ? " " : "") + List().List(index);
    }
    return entries;
  }

  /// Which of the transport buttons are enabled, as "play skip stop".
  std::string Buttons() {
    std::string buttons;
    for (const std::string button : {"Play", "Skip", "Stop"}) {
      if (Enabled("cmd" + button)) buttons += (buttons.empty() ? "" : " ") + button;
    }
    return buttons;
  }

  /// Which of the four flags of the music's clock are set, as "ByUser BySchedule Started
  /// Overridden".
  std::string MusicFlags() {
    std::string flags;
    const auto add = [&flags](bool set, const std::string& name) {
      if (set) flags += (flags.empty() ? "" : " ") + name;
    };
    add(State().MusicStoppedByUser, "ByUser");
    add(State().MusicStoppedBySchedule, "BySchedule");
    add(State().MusicStartedBySchedule, "Started");
    add(State().MusicStopOverridden, "Overridden");
    return flags;
  }

  std::string LastSong() { return Setting("Last played", "Last song", kPlaylist); }
  int Position() { return List().ListIndex(); }
  int PlayState() { return Pc.Song.PlayState(); }
  ListBox& List() { return Main().lstPlaylist; }
  FrmPlayers& Players() { return Sys->TheFrmPlayers; }
  marlex::Slider& Wave() { return Sys->TheFrmMxr.SldrVol[Sys->Mixer.WaveLine]; }
  CheckBox& WaveMute() { return Sys->TheFrmMxr.ChkMute[Sys->Mixer.WaveLine]; }

 private:
  static DeskOptions WithSongs(DeskOptions options) {
    if (options.Music.empty()) options.Music = Songs(3);
    return options;
  }
};

}  // namespace marlex
