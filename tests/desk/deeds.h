#pragma once

#include "desk/desk.h"

namespace marlex {

/// Pauses the music as the preview of a message does, which leaves it paused, and closes the
/// message schedule editor again. Takes no time.
inline void PauseByPreview(Desk& desk) {
  desk.Click("mnuSchedule");
  desk.Choose(desk.Sys->TheWindows.TheWavWindow.AvailWavs, "welcome");
  desk.Click("PrevKey");
  desk.Click("PrevKey");
  desk.Click("mnuExit");
}

/// Stops the music with the preview button of the playlist editor, which leaves no trace in the
/// flags of the music's clock, and closes the editor again. Takes no time.
inline void StopByPreview(Desk& desk) {
  FrmPlaylist& editor = desk.Sys->TheWindows.frmPlaylist;
  desk.Click("mnuPlaylist");
  const std::string song = editor.AvailMP3s.List(0);
  desk.Choose(editor.AvailMP3s, song);
  desk.Choose(editor.SelectedMP3s, song);
  desk.Click(editor.PrevKey);
  desk.Click(editor.mnuExit);
}

/// Plays the list of the main window and stops it, so that a preview finds its song. Takes no time.
inline void PlayAndStop(Desk& desk) {
  desk.Click("cmdPlay");
  desk.Click("cmdStop");
}

/// Selects a chime before calls in the settings, where there was none. Takes no time.
inline void PickPreChime(Desk& desk, const std::string& chime) {
  desk.Click("mnuSettings");
  desk.Click("chkPreChime");
  desk.Click("cmdPreSelect");
  desk.Choose(desk.Sys->TheWindows.frmChimeSelect.lstChimeList, chime + ".wav");
  desk.Click("cmdOK");
  desk.Click("cmdOK");  // of the settings
}

}  // namespace marlex
