#include "scenario/inspectors/playlist_editor.h"

#include "music/playlist_files.h"

namespace marlex {

PlaylistEditorInspector::PlaylistEditorInspector(const Scene& scene, const CallTraces& call)
    : Inspector(scene), Call(call) {
  for (Control* control : TheDesk.Sys->TheWindows.frmPlaylist.Controls) {
    const bool isTheWindow = control->Name.empty();
    if (!isTheWindow) control->Watcher = [this] { Touched = true; };
  }
  Main().lstPlaylist.Watcher = [this] { MainListTouched = true; };
  SimulatedDialogs& dialogs = TheDesk.Pc.Dialogs;
  dialogs.BeforeChosen = [this, &dialogs](const FileDialog& dialog, const std::string& path) {
    Chosen = Choice{dialog, path, LastDialog == dialogs.FileDialogs.size()};
  };
}

void PlaylistEditorInspector::Remember() {
  MainLoaded = Main().Loaded();
  if (IsOpen() != Open) DialogOutlivesEditor = true;
  Open = IsOpen();
  Draft = ReadPlaylistDraft(TheDesk);
  Times = ReadMusicTimes(TheDesk);
  Stepped = Touched = MainListTouched = false;
  Chosen.reset();
}

void PlaylistEditorInspector::Step(const std::function<void(FrmPlaylist&)>& step) {
  const SimulatedPc& pc = TheDesk.Pc;
  const std::size_t dialogs = pc.Dialogs.FileDialogs.size();
  const std::size_t bytes = pc.Serial.Sent().size();
  const std::size_t lines = pc.Journal.Lines().size();
  Stepped = true;
  MainListTouched = false;
  step(TheDesk.Sys->TheWindows.frmPlaylist);
  Require(!MainListTouched, "The playlist editor has changed the list of the main window");
  Require(pc.Serial.Sent().size() == bytes, "The playlist editor sends to the amplifier");
  CheckSongPreview(lines);
  if (pc.Dialogs.FileDialogs.size() == dialogs) return;
  LastDialog = dialogs + 1;
  DialogOutlivesEditor = false;
}

/// A song that begins is heard, and never begins while anything with precedence is active.
void PlaylistEditorInspector::CheckSongPreview(std::size_t firstLine) {
  const Journal& journal = TheDesk.Pc.Journal;
  if (JournalHas(journal, " song stop", firstLine)) ++Corners["music that the editor stops"];
  if (!JournalHas(journal, " song play ", firstLine)) return;
  Require(!TheDesk.MuteCheck(0) && !TheDesk.MuteCheck(TheDesk.Sys->Mixer.WaveLine),
          "A song begins in the playlist editor, and is muted");
  Require(!OutrunsPreviews() && !State().FadeRunning && State().PriorityClear,
          "A song begins in the playlist editor under what goes before it");
  ++Corners["a song that is heard in the editor"];
}

void PlaylistEditorInspector::Check() {
  CheckTouch();
  if (MainLoaded) CheckTimes();
}

void PlaylistEditorInspector::CheckTouch() {
  const bool opensList = Chosen && Chosen->ByEditor;
  const bool comesOrGoes = IsOpen() != WasOpen();
  // The cause of its end may itself have ended within the same event.
  const bool outrun = OutrunsPreviews() || Call.HoldsTick() || Journaled(" wav ");
  const bool previewEnds = PreviewInPlayer && outrun && Journaled(" song stop");
  if (previewEnds && Touched) {
    if (State().PriorityPreempted) ++Corners["a takeover that ends the preview of a song"];
    if (State().CallActive) ++Corners["a call that ends the preview of a song"];
    if (State().MessagePlaying) ++Corners["an announcement that ends the preview of a song"];
  }
  CheckSongInPlayer();
  Require(!Touched || Stepped || opensList || comesOrGoes || previewEnds,
          "The playlist editor changes by itself");
}

/// A preview stays in the player until its song ends or another begins; a paused one could come
/// back.
void PlaylistEditorInspector::CheckSongInPlayer() {
  if (Journaled(" song play ")) PreviewInPlayer = Stepped;
  PreviewInPlayer = PreviewInPlayer && TheDesk.Pc.Song.PlayState() != kStopped;
  Require(!PreviewInPlayer || !OutrunsPreviews(), "The preview of a song outlives what ends it");
}

void PlaylistEditorInspector::CheckTimes() {
  if (!Chosen || Chosen->Dialog.Filter != PlaylistDialog(TheDesk.Sys->Store).Filter) {
    Require(ReadMusicTimes(TheDesk) == Times, "The music's times change by themselves");
  } else if (!Chosen->ByEditor) {
    CheckMainList();
  } else {
    Require(!MainListTouched, "A file of the playlist editor has reached the main window");
    Chosen->Dialog.Save ? CheckListSave() : CheckListOpen();
  }
}

/// What could not be read counts as empty; the inspector itself reads it.
void PlaylistEditorInspector::CheckMainList() {
  if (Journaled(" fault profile read")) return;
  MusicTimes expected = TimesOf(Chosen->Path);
  expected.File = Chosen->Path;
  expected.Scheduled = !expected.StartTime.empty();
  Require(ReadMusicTimes(TheDesk) == expected,
          "The music's times are not those of the opened list");
}

/// A file that is only viewed in the editor sets the times, but not whether the clock follows them.
/// A file chosen for an editor that has been closed sets nothing in the next one.
void PlaylistEditorInspector::CheckListOpen() {
  const bool reads = WasOpen() && !DialogOutlivesEditor;
  const MusicTimes expected = reads ? TimesOf(Chosen->Path) : Times;
  Require(ReadMusicTimes(TheDesk) == expected,
          "The music's times are not those of the list in the editor");
  if (!reads) return;
  Require(ReadPlaylistDraft(TheDesk).Songs == SongsIn(Chosen->Path),
          "The editor shows other songs than its file");
  if (expected != Times) ++Corners["times that were but looked at"];
}

/// A list that could not be saved leaves everything unchanged.
void PlaylistEditorInspector::CheckListSave() {
  const bool asked = WasOpen() && !DialogOutlivesEditor && !Chosen->Path.empty();
  const bool saves = asked && !Draft.Songs.empty();
  const bool saved = Journaled(" rebuild ");
  Require(saves || !saved, "The playlist editor saves what nobody asked it to");
  if (saved) return CheckSavedList();
  Require(IsOpen() == WasOpen() && ReadPlaylistDraft(TheDesk) == Draft,
          "The playlist editor loses what it has not saved");
  Require(ReadMusicTimes(TheDesk) == Times, "A list that is not saved sets the music's times");
  if (saves) ++Corners["a list that could not be saved"];
}

/// When a time is missing, the file gets only the songs, and the editor stays open.
void PlaylistEditorInspector::CheckSavedList() {
  const bool whole = !Draft.HasTimes() || !Draft.LacksTimes();
  const MusicTimes saved = Draft.TimesWhenSaved(Times);
  MusicTimes expected = Times;
  if (!Draft.HasTimes()) {
    expected.Autostart = saved.Autostart;
  } else if (whole) {
    expected.StartTime = saved.StartTime;
    expected.StopTime = saved.StopTime;
  }
  Require(ReadMusicTimes(TheDesk) == expected,
          "A save does not set the music's times as it should");
  Require(IsOpen() == !whole, "A save closes the editor, or leaves it, as it should not");
  CheckSavedFile();
  ++Corners["a saved list"];
  if (Chosen->Path == Times.File) ++Corners["a list saved over the one in force"];
  if (!whole) ++Corners["a list saved without a time"];
}

void PlaylistEditorInspector::CheckSavedFile() {
  const std::string& file = Chosen->Path;
  if (!TheDesk.Pc.Disk.Read(file)) return;
  Require(SongsIn(file) == Draft.Songs, "A save has not written the songs");
  Require(TheDesk.Setting("Last played", "Last song", file) == "0",
          "A saved list does not begin at its first song");
  Require(TimesOf(file) == Draft.TimesWhenSaved(Times), "A save has not written the start");
}

std::vector<std::string> PlaylistEditorInspector::SongsIn(const std::string& file) const {
  constexpr std::size_t kLongestValue = 1499;
  return TheDesk.Pc.Profiles.GetNumbered("Playlist", "Song:", file, kLongestValue);
}

}  // namespace marlex
