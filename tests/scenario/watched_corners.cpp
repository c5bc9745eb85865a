#include "scenario/watched_desk.h"

namespace marlex {

void WatchedDesk::NoteCorners() {
  const auto note = [this](bool here, const char* corner) {
    if (here) ++Corners[corner];
  };
  const Flags& flags = State();
  const bool takenOver = flags.PriorityPreempted && !Before.Preempted;
  note(takenOver && Before.Fading, "a takeover in a fade");
  note(takenOver && flags.MessagePlaying, "a takeover in a message");
  note(takenOver && flags.MessageAwaitingSongEnd, "a takeover before a music break");
  note(flags.PriorityPreempted && flags.PriorityClear, "a lower call after a takeover");
  note(Before.Awaiting && !flags.MessageAwaitingSongEnd, "a music break");
  note(Pc.Loop.Waits() >= 3, "waits in waits");
  note(Pc.Dialogs.OpenBoxCount() > 0 && flags.FadeRunning, "a box over a fade");
  note(Pc.Dialogs.OpenBoxCount() > 0 && flags.MessagePlaying, "a box over a message");
  note(Main().lblConflict.Visible, "a conflict");
  note(flags.MusicStartedBySchedule, "music started by the clock");
  note(flags.MusicStoppedBySchedule, "music stopped by the clock");
  note(flags.CurrentMinute == "00:00", "midnight");
  note(Pc.Mixer.RefusesSettings && flags.FadeRunning, "a fade on a card that refuses");
  note(flags.CallActive && KeySays(kStrSpeak), "a call that speaks");
  note(flags.CallActive && Before.Playing, "a call over a message");
  note(flags.CallActive && flags.CallEndedDuringFade, "a release in a fade");
  note(flags.CallActive && flags.CallEndedDuringChime, "a release in a chime");
  note(takenOver && Before.CallActive, "a takeover in a call");
  note(Pc.Dialogs.FileDialogIsOpen() && flags.MessagePlaying, "a file dialog over a message");
  note(Before.SettingsShown && flags.FadeRunning, "the settings over a fade");
  note(Before.SettingsShown && flags.MessagePlaying, "the settings over a message");
  note(Before.EditorOpen && flags.FadeRunning, "the editor over a fade");
  note(Before.EditorOpen && flags.MessagePlaying, "the editor over a message");
  note(Before.EditorOpen && flags.CallActive, "the editor over a call");
  note(Before.EditorOpen && flags.MessageAwaitingSongEnd, "the editor before a music break");
  note(!EditorIsOpen() && Before.EditorOpen && flags.MessagePlaying,
       "an editor that closes in a message");
  note(takenOver && Before.EditorOpen, "a takeover in the editor");
  note(PreviewSounds, "a preview");
  note(Before.PreviewSounds && flags.CallActive, "a call over a preview");
  note(Before.PlaylistOpen && flags.FadeRunning, "the playlist editor over a fade");
  note(Before.PlaylistOpen && flags.MessagePlaying, "the playlist editor over a message");
  note(Before.PlaylistOpen && flags.CallActive, "the playlist editor over a call");
  note(takenOver && Before.PlaylistOpen, "a takeover in the playlist editor");
  note(Before.PlaylistOpen && EditorIsOpen(), "both editors");
  note(Sys->TheWindows.frmDirSel.Visible && flags.MessagePlaying,
       "a directory picker over a message");
  note(Sys->TheWindows.frmChimeSelect.Visible && flags.CallActive, "a chime picker over a call");
  note(Values().MusicDirectory != "/music/", "another music directory");
  note(Values().MessageDirectory != "/messages/", "another message directory");
  note(Pc.Serial.Sent().size() > Before.Bytes && Pc.Serial.CommPort() == 2, "a byte out of port 2");
  note(Values().RouterPresent != Before.Router && Before.MainShown, "another amplifier");
}

}  // namespace marlex
