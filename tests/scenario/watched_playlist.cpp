#include <algorithm>

#include "music/playlist_files.h"
#include "scenario/watched_desk.h"

namespace marlex {
namespace {

constexpr std::size_t kLongestValue = 1499;

bool IsTrue(const std::string& text) { return text == "True" || text == "1"; }

std::string ClockText(int hours, int minutes) {
  const auto twoDigits = [](int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
  };
  return twoDigits(hours) + ":" + twoDigits(minutes);
}

}  // namespace

/// Notes what an operator does to the lists of songs, and what he chooses in a dialog.
void WatchedDesk::ArmPlaylist() {
  PlaylistStep = PlaylistTouched = SongListTouched = false;
  DialogOfPlaylist = 0;
  Chosen.reset();
  FrmPlaylist& editor = Sys->TheWindows.frmPlaylist;
  for (Control* control : editor.Controls) {
    const bool isTheWindow = control->Name.empty();
    if (!isTheWindow) control->Watcher = [this] { PlaylistTouched = true; };
  }
  Main().lstPlaylist.Watcher = [this] { SongListTouched = true; };
  Pc.Dialogs.BeforeChosen = [this](const FileDialog& dialog, const std::string& path) {
    Chosen = Choice{dialog, path, DialogOfPlaylist == Pc.Dialogs.FileDialogs.size()};
  };
}

void WatchedDesk::StepAtPlaylist(const std::function<void(FrmPlaylist&)>& step) {
  Do([&] {
    FrmPlaylist& editor = Sys->TheWindows.frmPlaylist;
    if (!editor.Visible || Pc.Dialogs.OpenBoxCount() > 0) return;
    const std::size_t dialogs = Pc.Dialogs.FileDialogs.size();
    const std::size_t bytes = Pc.Serial.Sent().size();
    const std::size_t lines = Pc.Journal.Lines().size();
    PlaylistStep = true;
    SongListTouched = false;
    step(editor);
    Require(!SongListTouched, "The playlist editor has changed the list of the main window");
    Require(Pc.Serial.Sent().size() == bytes, "The playlist editor sends to the amplifier");
    CheckSongPreview(lines);
    if (Pc.Dialogs.FileDialogs.size() == dialogs) return;
    DialogOfPlaylist = dialogs + 1;
    DialogOutlivesPlaylist = false;
  });
}

/// A song that begins is heard, and never under what goes before it.
void WatchedDesk::CheckSongPreview(std::size_t firstLine) {
  if (JournalHas(" song stop", firstLine)) ++Corners["music that the editor stops"];
  if (!JournalHas(" song play ", firstLine)) return;
  Require(!MuteCheck(0) && !MuteCheck(Sys->Mixer.WaveLine),
          "A song begins in the playlist editor, and is muted");
  Require(!OutrunsPreviews() && !State().FadeRunning && State().PriorityClear,
          "A song begins in the playlist editor under what goes before it");
  ++Corners["a song that is heard in the editor"];
}

/// What a preview, of a song as of messages, neither begins under nor goes on.
bool WatchedDesk::OutrunsPreviews() {
  constexpr int kHighPriority = 128;
  return State().CallActive || State().MessagePlaying || State().PriorityPreempted ||
         State().AmplifierStatus >= kHighPriority;
}

/// A preview is in the player until its song ends or another begins. Paused it could come back.
void WatchedDesk::CheckSongInPlayer() {
  if (JournalHas(" song play ", Before.Lines)) PreviewInPlayer = PlaylistStep;
  PreviewInPlayer = PreviewInPlayer && Pc.Song.PlayState() != kStopped;
  Require(!PreviewInPlayer || !OutrunsPreviews(), "The preview of a song outlives what ends it");
}

bool WatchedDesk::PlaylistIsOpen() { return Sys->TheWindows.frmPlaylist.Loaded(); }

/// What the editor shows changes by a step at it, by a list that is opened in it, or by what ends
/// its preview, and by nothing else. What is in force of a playlist changes by a list that is
/// opened in either window, or by a save.
void WatchedDesk::CheckPlaylist() {
  const bool opensInEditor = Chosen && Chosen->ByEditor;
  const bool comesOrGoes = PlaylistIsOpen() != Before.PlaylistOpen;
  // What ends it may be over in the same event.
  const bool outrun = OutrunsPreviews() || TickOffByCall || JournalHas(" wav ", Before.Lines);
  const bool previewEnds = PreviewInPlayer && outrun && JournalHas(" song stop", Before.Lines);
  if (previewEnds && PlaylistTouched) {
    if (State().PriorityPreempted) ++Corners["a takeover that ends the preview of a song"];
    if (State().CallActive) ++Corners["a call that ends the preview of a song"];
    if (State().MessagePlaying) ++Corners["an announcement that ends the preview of a song"];
  }
  CheckSongInPlayer();
  Require(!PlaylistTouched || PlaylistStep || opensInEditor || comesOrGoes || previewEnds,
          "The playlist editor changes by itself");
  if (!Before.MainLoaded) return;
  if (!Chosen || Chosen->Dialog.Filter != PlaylistDialog(Sys->Store).Filter) {
    Require(ReadWindow() == Before.Playlist, "The music's times change by themselves");
  } else if (!Chosen->ByEditor) {
    CheckMainList();
  } else {
    Require(!SongListTouched, "A file of the playlist editor has reached the main window");
    Chosen->Dialog.Save ? CheckListSave() : CheckListOpen();
  }
}

/// The times as a file has them, and all else as it is.
WatchedDesk::Window WatchedDesk::WindowOf(const std::string& file) {
  const auto read = [&](const char* key) { return Setting("Background music", key, file); };
  Window window = Before.Playlist;
  window.StartTime = read("Start time");
  window.StopTime = read("Stop time");
  window.WeekDays = read("Weekdays");
  window.Autostart = IsTrue(read("Autostart"));
  return window;
}

void WatchedDesk::CheckMainList() {
  Window expected = WindowOf(Chosen->Path);
  expected.File = Chosen->Path;
  expected.Scheduled = !expected.StartTime.empty();
  Require(ReadWindow() == expected, "The music's times are not those of the opened list");
}

/// A file that is looked at sets the times, but not whether the clock goes by them. One that is
/// chosen for an editor that has been closed sets nothing in the next.
void WatchedDesk::CheckListOpen() {
  const bool reads = Before.PlaylistOpen && !DialogOutlivesPlaylist;
  const Window expected = reads ? WindowOf(Chosen->Path) : Before.Playlist;
  Require(ReadWindow() == expected, "The music's times are not those of the list in the editor");
  if (!reads) return;
  Require(ReadDraft().Songs == SongsIn(Chosen->Path), "The editor shows other songs than its file");
  if (ReadWindow() != Before.Playlist) ++Corners["times that were but looked at"];
}

/// A list that could not be saved leaves all as it is.
void WatchedDesk::CheckListSave() {
  const bool asked = Before.PlaylistOpen && !DialogOutlivesPlaylist && !Chosen->Path.empty();
  const bool saves = asked && !Before.Composed.Songs.empty();
  const bool saved = JournalHas(" rebuild ", Before.Lines);
  Require(saves || !saved, "The playlist editor saves what nobody asked it to");
  if (saved) return CheckSavedList();
  Require(PlaylistIsOpen() == Before.PlaylistOpen && ReadDraft() == Before.Composed,
          "The playlist editor loses what it has not saved");
  Require(ReadWindow() == Before.Playlist, "A list that is not saved sets the music's times");
  if (saves) ++Corners["a list that could not be saved"];
}

/// A time that is missing leaves the songs on the disk alone, and the editor open.
void WatchedDesk::CheckSavedList() {
  const Draft& draft = Before.Composed;
  const bool whole = !draft.HasTimes() || !draft.LacksTimes();
  const Window start = StartOf(draft);
  Window expected = Before.Playlist;
  if (!draft.HasTimes()) {
    expected.Autostart = start.Autostart;
  } else if (whole) {
    expected.StartTime = start.StartTime;
    expected.StopTime = start.StopTime;
  }
  Require(ReadWindow() == expected, "A save does not set the music's times as it should");
  Require(PlaylistIsOpen() == !whole, "A save closes the editor, or leaves it, as it should not");
  if (Pc.Disk.Read(Chosen->Path)) {
    Require(SongsIn(Chosen->Path) == draft.Songs, "A save has not written the songs");
    Require(Setting("Last played", "Last song", Chosen->Path) == "0",
            "A saved list does not begin at its first song");
    Require(WindowOf(Chosen->Path) == start, "A save has not written the start");
  }
  ++Corners["a saved list"];
  if (Chosen->Path == Before.Playlist.File) ++Corners["a list saved over the one in force"];
  if (!whole) ++Corners["a list saved without a time"];
}

/// What the file of a list says of the start of its music.
WatchedDesk::Window WatchedDesk::StartOf(const Draft& draft) {
  Window start = Before.Playlist;
  start.StartTime = start.StopTime = start.WeekDays = "";
  start.Autostart = false;
  if (!draft.HasTimes()) {
    start.WeekDays = std::string(kWeekdays, '0');
    start.Autostart = draft.Autostart;
  } else if (!draft.LacksTimes()) {
    start.StartTime = ClockText(draft.Times[0], draft.Times[1]);
    start.StopTime = ClockText(draft.Times[2], draft.Times[3]);
    start.WeekDays = draft.Days;
  }
  return start;
}

std::vector<std::string> WatchedDesk::SongsIn(const std::string& file) {
  return Pc.Profiles.GetNumbered("Playlist", "Song:", file, kLongestValue);
}

bool WatchedDesk::JournalHas(const std::string& word, std::size_t firstLine) {
  const auto& lines = Pc.Journal.Lines();
  for (std::size_t line = firstLine; line < lines.size(); ++line) {
    if (lines[line].find(word) != std::string::npos) return true;
  }
  return false;
}

WatchedDesk::Draft WatchedDesk::ReadDraft() {
  if (!PlaylistIsOpen()) return {};
  FrmPlaylist& editor = Sys->TheWindows.frmPlaylist;
  Draft draft;
  for (int song = 0; song < editor.SelectedMP3s.ListCount(); ++song)
    draft.Songs.push_back(editor.SelectedMP3s.List(song));
  draft.Times = {editor.cmbStartHours.ListIndex(), editor.cmbStartMinutes.ListIndex(),
                 editor.cmbStopHours.ListIndex(), editor.cmbStopMinutes.ListIndex()};
  for (const auto& day : editor.chkDays)
    draft.Days += static_cast<char>(day->Value != 0 ? '1' + day->Index : '0');
  draft.TimesShown = editor.frMusicTime.Visible;
  draft.Autostart = editor.optScheduled[FrmPlaylist::kAutostart].Value();
  return draft;
}

/// Lists that nobody has touched, or that are hidden, are no times.
bool WatchedDesk::Draft::HasTimes() const {
  return TimesShown && std::any_of(Times.begin(), Times.end(),
                                   [](int time) { return time != ListBox::kNoSelection; });
}

bool WatchedDesk::Draft::LacksTimes() const {
  return std::find(Times.begin(), Times.end(), ListBox::kNoSelection) != Times.end();
}

}  // namespace marlex
