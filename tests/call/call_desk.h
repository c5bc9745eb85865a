#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "desk/desk.h"

namespace marlex {

inline constexpr const char* kRest = "Call, lamps off";
inline constexpr const char* kAllAlive = "tick cmdPlay cmdSkip cmdStop";
inline constexpr const char* kMusic = "song march.mp3 at 20000";

/// A desk with chimes of 1000 and 800 ms, with or without music, whose journal begins when the
/// operator is about to press. The rows of its schedule, if any, begin at 12:01.
class CallDesk : public Desk {
 public:
  enum class MusicAtStart { Plays, IsSilent };

  explicit CallDesk(DeskOptions options = Chimes(), MusicAtStart music = MusicAtStart::Plays)
      : Desk(WithMedia(std::move(options))) {
    if (music == MusicAtStart::Plays) Click("cmdPlay");
    Advance(1000);
    Pc.Loop.AfterEvent = [this] {
      if (!MuteCheck(Sys->Mixer.MicLine)) MicrophoneOpened = true;
    };
    Pc.Journal.Clear();
    StartMs = Pc.Loop.NowMs();
  }
  ~CallDesk() { Pc.Loop.AfterEvent = nullptr; }

  static DeskOptions Chimes() { return {.PreChime = "chime", .PostChime = "gong"}; }

  void AdvanceTo(int journalMs) {
    Advance(static_cast<int>(StartMs + journalMs - Pc.Loop.NowMs()));
  }
  void PressAt(int journalMs) {
    AdvanceTo(journalMs);
    Press("cmdCall");
  }
  void ReleaseAt(int journalMs) {
    AdvanceTo(journalMs);
    Release("cmdCall");
  }

  /// "Speak, lamps green", followed by ", speaks" while the microphone is open.
  std::string Station() {
    const Color lamp = Main().lblBusy[0].BackColor;
    const std::string color = lamp == kGreen ? "green" : lamp == kDarkGreen ? "dark green" : "off";
    return ButtonCaption() + ", lamps " + color + (Speaks() ? ", speaks" : "");
  }
  /// The caption of the button, in English whatever the language.
  std::string ButtonCaption() {
    std::string shown = Text("cmdCall");
    for (const int id : {kStrCall, kStrWait, kStrSpeak}) {
      if (shown == Sys->Strings.LoadString(id)) return Sys->Strings.LoadEnglish(id);
    }
    return shown;
  }
  bool Speaks() { return !MuteCheck(Sys->Mixer.MicLine) && !MuteCheck(0); }

  /// Which of the tick and the transport buttons are enabled.
  std::string Alive() {
    std::string names = Sys->TheFrmPlayers.tmrMessage.Enabled ? "tick" : "";
    for (const char* button : {"cmdPlay", "cmdSkip", "cmdStop"}) {
      if (Enabled(button)) names += (names.empty() ? "" : " ") + std::string(button);
    }
    return names;
  }

  bool MicrophoneOpened = false;  // at any moment since the start

 private:
  static DeskOptions WithMedia(DeskOptions options) {
    options.Music = {{"march"}, {"waltz"}};
    options.Messages = {{"welcome", 3000}, {"closing", 2000}, {"chime", 1000}, {"gong", 800}};
    return options;
  }

  std::int64_t StartMs = 0;
};

/// A call that is now made is heard, and leaves the desk as it should be.
inline void ExpectWholeCall(CallDesk& desk) {
  desk.Press("cmdCall");
  desk.Advance(3000);
  ASSERT_EQ(desk.Station(), "Speak, lamps green, speaks");
  desk.Release("cmdCall");
  ASSERT_FALSE(desk.Speaks());
  desk.Advance(5000);
  ASSERT_FALSE(desk.State().CallActive);
  ASSERT_EQ(desk.Station(), kRest);
  ASSERT_EQ(desk.Heard(), kMusic);
  ASSERT_EQ(desk.Alive(), kAllAlive);
  ASSERT_EQ(desk.Pc.Loop.Waits(), 1);
}

}  // namespace marlex
