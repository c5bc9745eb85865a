#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "scenario/inspectors/call_traces.h"
#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/music_times.h"
#include "scenario/inspectors/playlist_draft.h"

namespace marlex {

/// What the playlist editor shows changes only by a step of the operator in it, by a list that is
/// opened in it, or by whatever ends its preview. The music's times change only by a list that is
/// opened in either window, or by a save. A step affects neither the main window's list nor the
/// amplifier, and a song that it starts is heard.
class PlaylistEditorInspector : public Inspector {
 public:
  PlaylistEditorInspector(const Scene& scene, const CallTraces& call);
  void Check() override;
  void Remember() override;

  /// The operator does something in the editor, which is open and not covered by a box.
  void Step(const std::function<void(FrmPlaylist&)>& step);

  bool IsOpen() const { return TheDesk.Sys->TheWindows.frmPlaylist.Loaded(); }
  bool WasOpen() const { return Open; }                    // before this event
  const MusicTimes& TimesBefore() const { return Times; }  // this event

 private:
  void CheckSongPreview(std::size_t firstLine);
  void CheckTouch();
  void CheckSongInPlayer();
  void CheckTimes();
  void CheckMainList();
  void CheckListOpen();
  void CheckListSave();
  void CheckSavedList();
  void CheckSavedFile();
  MusicTimes TimesOf(const std::string& file) const { return MusicTimesOf(file, Times, TheDesk); }
  std::vector<std::string> SongsIn(const std::string& file) const;

  /// What the operator chose in a file dialog.
  struct Choice {
    FileDialog Dialog;
    std::string Path;
    bool ByEditor = false;
  };

  const CallTraces& Call;

  // About the event that is being checked.
  bool Stepped = false;
  bool Touched = false;          // something in the editor's window has changed
  bool MainListTouched = false;  // the main window's list of songs has changed
  std::optional<Choice> Chosen;

  bool PreviewInPlayer = false;  // the song is the editor's

  std::size_t LastDialog = 0;         // number of the last file dialog that the editor opened
  bool DialogOutlivesEditor = false;  // the editor has been closed since

  // Before the event.
  bool MainLoaded = false;
  bool Open = false;
  PlaylistDraft Draft;
  MusicTimes Times;
};

}  // namespace marlex
