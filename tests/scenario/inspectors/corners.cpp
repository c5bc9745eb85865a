#include "scenario/inspectors/corners.h"

#include "scenario/inspectors/call.h"

namespace marlex {

void CornerCounter::Check() {
  CountAmplifier();
  CountMessages();
  CountCalls();
  CountEditor();
  CountPlaylists();
  CountSettings();
  Count(TheDesk.Pc.Loop.Waits() >= 3, "waits in waits");
  Count(State().MusicStartedBySchedule, "music started by the clock");
  Count(State().MusicStoppedBySchedule, "music stopped by the clock");
}

void CornerCounter::Remember() {
  SettingsShown = TheDesk.Sys->TheWindows.frmSettings.Visible;
  Router = Values().RouterPresent;
}

void CornerCounter::Count(bool here, const char* corner) {
  if (here) ++Corners[corner];
}

void CornerCounter::CountAmplifier() {
  const Flags& flags = State();
  Count(AmplifierTookOver() && Before.Flags.FadeRunning, "a takeover in a fade");
  Count(AmplifierTookOver() && flags.MessagePlaying, "a takeover in a message");
  Count(AmplifierTookOver() && flags.MessageAwaitingSongEnd, "a takeover before a music break");
  Count(AmplifierTookOver() && Before.Flags.CallActive, "a takeover in a call");
  Count(AmplifierTookOver() && SequenceEdits.WasOpen(), "a takeover in the editor");
  Count(AmplifierTookOver() && Playlists.WasOpen(), "a takeover in the playlist editor");
  Count(flags.PriorityPreempted && flags.PriorityClear, "a lower call after a takeover");
  Count(Bytes.HasSent() && TheDesk.Pc.Serial.CommPort() == 2, "a byte out of port 2");
}

void CornerCounter::CountMessages() {
  const Flags& flags = State();
  const SimulatedDialogs& dialogs = TheDesk.Pc.Dialogs;
  const bool boxed = dialogs.OpenBoxCount() > 0;
  Count(Before.Flags.MessageAwaitingSongEnd && !flags.MessageAwaitingSongEnd, "a music break");
  Count(boxed && flags.FadeRunning, "a box over a fade");
  Count(boxed && flags.MessagePlaying, "a box over a message");
  Count(dialogs.FileDialogIsOpen() && flags.MessagePlaying, "a file dialog over a message");
  Count(Main().lblConflict.Visible, "a conflict");
  Count(flags.CurrentMinute == "00:00", "midnight");
  Count(TheDesk.Pc.Mixer.RefusesSettings && flags.FadeRunning, "a fade on a card that refuses");
}

void CornerCounter::CountCalls() {
  if (!State().CallActive) return;
  Count(CallButtonsSay(TheDesk, kStrSpeak), "a call that speaks");
  Count(Before.Flags.MessagePlaying, "a call over a message");
  Count(State().CallEndedDuringFade, "a release in a fade");
  Count(State().CallEndedDuringChime, "a release in a chime");
  Count(Preview.SoundedBefore(), "a call over a preview");
}

void CornerCounter::CountEditor() {
  const Flags& flags = State();
  Count(Preview.Sounds(), "a preview");
  if (!SequenceEdits.WasOpen()) return;
  Count(flags.FadeRunning, "the editor over a fade");
  Count(flags.MessagePlaying, "the editor over a message");
  Count(flags.CallActive, "the editor over a call");
  Count(flags.MessageAwaitingSongEnd, "the editor before a music break");
  Count(!SequenceEdits.IsOpen() && flags.MessagePlaying, "an editor that closes in a message");
}

void CornerCounter::CountPlaylists() {
  if (!Playlists.WasOpen()) return;
  Count(State().FadeRunning, "the playlist editor over a fade");
  Count(State().MessagePlaying, "the playlist editor over a message");
  Count(State().CallActive, "the playlist editor over a call");
  Count(SequenceEdits.IsOpen(), "both editors");
}

void CornerCounter::CountSettings() {
  const Windows& windows = TheDesk.Sys->TheWindows;
  const bool messages = State().MessagePlaying;
  Count(SettingsShown && State().FadeRunning, "the settings over a fade");
  Count(SettingsShown && messages, "the settings over a message");
  Count(windows.frmDirSel.Visible && messages, "a directory picker over a message");
  Count(windows.frmChimeSelect.Visible && State().CallActive, "a chime picker over a call");
  Count(Values().MusicDirectory != "/music/", "another music directory");
  Count(Values().MessageDirectory != "/messages/", "another message directory");
  Count(Values().RouterPresent != Router && Before.MainShown, "another amplifier");
}

}  // namespace marlex
