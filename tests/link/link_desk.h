#pragma once

#include <string>
#include <utility>

#include "desk/desk.h"

namespace marlex {

/// A desk with two songs whose journal holds only the bytes on the line, beginning with the first
/// second after the start.
class LinkDesk : public Desk {
 public:
  explicit LinkDesk(DeskOptions options = {}, const std::function<void(SimulatedPc&)>& prepare = {})
      : Desk(WithSongs(std::move(options)), prepare) {
    Pc.Journal.Only({"send", "lost"});
    Advance(1000);
    Pc.Journal.Clear();
  }

  /// Starts the music and waits until its routing byte has been sent.
  void PlayMusic() {
    Click("cmdPlay");
    Advance(1000);
    Pc.Journal.Clear();
  }

  /// The same, and then the adapter of the line is unplugged.
  void PlayMusicAndUnplug() {
    PlayMusic();
    Pc.Serial.Unplug();
  }

  /// The last status and the two priority flags: "128 held preempted".
  std::string Priority() {
    std::string text = std::to_string(State().AmplifierStatus);
    if (!State().PriorityClear) text += " held";
    if (State().PriorityPreempted) text += " preempted";
    return text;
  }

  /// Text and height of the parts of the window that a status byte changes: "Higher ..., 255 255
  /// 255".
  std::string Label() {
    std::string text = Main().lblHiPrio.Visible ? Main().lblHiPrio.Caption.Get() : "hidden";
    for (CommandButton* button : {&Main().cmdPlay, &Main().cmdSkip, &Main().cmdStop}) {
      text += " " + std::to_string(button->Height);
    }
    return text;
  }

  FrmPlayers& Players() { return Sys->TheFrmPlayers; }
  bool WaveMuted() { return MuteCheck(Sys->Mixer.WaveLine); }
  bool MicMuted() { return MuteCheck(Sys->Mixer.MicLine); }

 private:
  static DeskOptions WithSongs(DeskOptions options) {
    if (options.Music.empty()) options.Music = {{"march"}, {"waltz"}};
    return options;
  }
};

}  // namespace marlex
