#include "music/playlist_editor.h"

#include <string_view>

#include "i18n/translate_controls.h"
#include "music/playlist_files.h"
#include "music/shuffle.h"
#include "state/media_names.h"
#include "state/week_time.h"
#include "text/text_case.h"

namespace marlex {
namespace {

constexpr std::size_t kShownPathCharacters = 32;

}  // namespace

std::string SongName(const std::string& fileName) {
  constexpr std::string_view kExtension = kSongExtension;
  std::size_t end = 0;
  while (end < fileName.size() &&
         !SameButForCase(std::string_view(fileName).substr(end, kExtension.size()), kExtension)) {
    ++end;
  }
  return fileName.substr(0, end);
}

PlaylistEditor::PlaylistEditor(SettingsStore& store, Directories& directories, WallClock& clock,
                               Dialogs& dialogs, Windows& windows, FrmPlayers& frmPlayers,
                               SoundLines& lines, Fades& fades, MusicPlayer& player,
                               Previews& previews, const StringTable& strings, Notices& notices)
    : Store(store),
      Values(store.Values),
      TheDirectories(directories),
      Clock(clock),
      TheDialogs(dialogs),
      TheFrmMain(windows.frmMain),
      TheFrmSettings(windows.frmSettings),
      TheFrmPlaylist(windows.frmPlaylist),
      Times(windows.frmPlaylist),
      TheFrmPlayers(frmPlayers),
      Lines(lines),
      TheFades(fades),
      Player(player),
      ThePreviews(previews),
      Strings(strings),
      TheNotices(notices) {
  TheFrmMain.mnuPlaylist.OnClick = [this] { mnuPlaylist_Click(); };
  TheFrmPlaylist.OnLoad = [this] { Load(); };
  WireSelection();
  WireFile();
}

void PlaylistEditor::WireSelection() {
  TheFrmPlaylist.AvailMP3s.OnClick = [this] { AddClicked(); };
  TheFrmPlaylist.SelectedMP3s.OnClick = [this] {
    TheFrmPlaylist.PrevKey.Enabled = true;
    TheFrmPlaylist.RemoveKey.Enabled = true;
  };
  TheFrmPlaylist.cmdSelectAll.OnClick = [this] { cmdSelectAll_Click(); };
  TheFrmPlaylist.RemoveKey.OnClick = [this] { RemoveKey_Click(); };
  TheFrmPlaylist.RemAll_Key.OnClick = [this] { RemAll_Key_Click(); };
  TheFrmPlaylist.cmdRandomize.OnClick = [this] { cmdRandomize_Click(); };
  TheFrmPlaylist.PrevKey.OnClick = [this] { PrevKey_Click(); };
  for (const auto& option : TheFrmPlaylist.optScheduled) {
    option->OnClick = [this, index = option->Index] { optScheduled_Click(index); };
  }
}

void PlaylistEditor::WireFile() {
  TheFrmPlaylist.mnuOpen.OnClick = [this] { mnuOpen_Click(); };
  TheFrmPlaylist.mnuSave.OnClick = [this] { mnuSave_Click(); };
  TheFrmPlaylist.mnuExit.OnClick = [this] { TheFrmPlaylist.Unload(); };
}

void PlaylistEditor::mnuPlaylist_Click() {
  if (!TheDirectories.Search(Values.MusicDirectory).empty()) return TheFrmPlaylist.Show();
  TheNotices.Error(Strings.LoadString(kStrNoMusicDirectoryFound) + Values.MusicDirectory + "\r" +
                       Strings.LoadString(kStrOpenConfiguration),
                   [this] { TheFrmSettings.Show(); });
}

void PlaylistEditor::Load() {
  WriteMenuIds(TheFrmPlaylist);
  TranslateControls(TheFrmPlaylist, Strings);
  TheFrmPlaylist.Caption = Strings.LoadString(kStrPlaylistEditor);
  TheFrmPlaylist.MP3List.SetPattern(kSongPattern);
  TheFrmPlaylist.MP3List.SetPath(Values.MusicDirectory);
  for (int file = 0; file < TheFrmPlaylist.MP3List.ListCount(); ++file) {
    TheFrmPlaylist.AvailMP3s.AddItem(SongName(TheFrmPlaylist.MP3List.List(file)));
  }
  TheFrmPlaylist.PrevKey.Enabled = false;
  TheFrmPlaylist.frMusicTime.Visible = false;
  Times.Fill();
}

void PlaylistEditor::AddClicked() {
  if (TheFrmPlaylist.AvailMP3s.ListIndex() == ListBox::kNoSelection) return;
  TheFrmPlaylist.SelectedMP3s.AddItem(TheFrmPlaylist.AvailMP3s.Text());
  TheFrmPlaylist.RemAll_Key.Enabled = true;
}

/// Deliberate: the buttons do not change, here or wherever the list is filled other than by a
/// click.
void PlaylistEditor::cmdSelectAll_Click() {
  TheFrmPlaylist.SelectedMP3s.Clear();
  for (int file = 0; file < TheFrmPlaylist.MP3List.ListCount(); ++file) {
    TheFrmPlaylist.SelectedMP3s.AddItem(SongName(TheFrmPlaylist.MP3List.List(file)));
  }
}

/// The button can be enabled without a selection, after a preview or a shuffle; it then removes
/// nothing.
void PlaylistEditor::RemoveKey_Click() {
  ListBox& songs = TheFrmPlaylist.SelectedMP3s;
  if (songs.ListCount() > 0) {
    if (songs.ListIndex() != ListBox::kNoSelection) songs.RemoveItem(songs.ListIndex());
    TheFrmPlaylist.RemoveKey.Enabled = false;
  }
  if (songs.ListCount() > 0) return;
  TheFrmPlaylist.PrevKey.Enabled = false;
  TheFrmPlaylist.RemAll_Key.Enabled = false;
}

void PlaylistEditor::RemAll_Key_Click() {
  TheFrmPlaylist.SelectedMP3s.Clear();
  TheFrmPlaylist.RemAll_Key.Enabled = false;
}

void PlaylistEditor::cmdRandomize_Click() {
  ListBox& songs = TheFrmPlaylist.SelectedMP3s;
  ListBox& left = TheFrmPlaylist.lstRandom;
  left.Clear();
  for (int song = 0; song < songs.ListCount(); ++song) left.AddItem(songs.List(song));
  songs.Clear();
  for (const int song : DrawOrder(left.ListCount(), RandomNumbers(ClockSeed(Clock.Now())))) {
    songs.AddItem(left.List(song));
  }
  left.Clear();
}

/// Deliberate: tests the player, not the preview, so the button stops the background music as well.
void PlaylistEditor::PrevKey_Click() {
  if (TheFrmPlayers.MP3Player.PlayState() == kPlaying) {
    StopPreview();
  } else if (ThePreviews.MayBegin()) {
    StartPreview();
  }
}

/// A preview outlives its window; the buttons of the next opening are not changed. If the music's
/// clock is fading the preview, the fade ends with it, since it would go on over what plays next.
void PlaylistEditor::EndPreview() {
  SongPlayer& player = TheFrmPlayers.MP3Player;
  if (!ThePreviews.HoldSongPlayer || player.PlayState() == kStopped) return;
  PreviewOpening.Holds() ? StopPreview() : player.Stop();
  TheFades.Stop();
}

void PlaylistEditor::StartPreview() {
  TheFrmPlaylist.PrevKey.Caption = Strings.LoadString(kStrStop);
  Lines.OpenMaster();
  Lines.OpenWave();
  TheFrmPlaylist.RemAll_Key.Enabled = false;
  TheFrmPlaylist.RemoveKey.Enabled = false;
  ThePreviews.HoldSongPlayer = true;
  PreviewOpening = TheFrmPlaylist.ThisOpening();
  TheFrmPlayers.MP3Player.SetFileName(
      JoinPath(TheFrmPlaylist.MP3List.Path(), TheFrmPlaylist.SelectedMP3s.Text() + kSongExtension));
  // Deliberate: `PlaySong` tests whether the main window's song exists, not this one.
  Player.PlaySong();
}

void PlaylistEditor::StopPreview() {
  TheFrmPlaylist.PrevKey.Caption = Strings.LoadString(kStrPlay);
  TheFrmPlayers.MP3Player.Stop();
  TheFrmPlaylist.RemAll_Key.Enabled = true;
  TheFrmPlaylist.RemoveKey.Enabled = true;
}

void PlaylistEditor::optScheduled_Click(int index) {
  TheFrmPlaylist.frMusicTime.Visible = index == FrmPlaylist::kScheduled;
  if (index != FrmPlaylist::kScheduled) Times.Clear();
}

void PlaylistEditor::mnuOpen_Click() {
  TheDialogs.LeaveOpen(PlaylistDialog(Store),
                       TheFrmPlaylist.WhileOpen([this](const std::string& file) { Open(file); }));
}

/// Deliberate: the times of the chosen file become the ones that the clock tests, until a list is
/// opened in the main window. A cancelled dialog counts as an empty file.
void PlaylistEditor::Open(const std::string& file) {
  TheFrmPlaylist.SelectedMP3s.Clear();
  ShowName(file);
  for (const std::string& song : Store.ReadNumberedValues(keys::kSongs, file)) {
    TheFrmPlaylist.SelectedMP3s.AddItem(song);
  }
  ReadPlaylistTimes(Store, file);
  if (Values.MusicAutostart) TheFrmPlaylist.optScheduled[FrmPlaylist::kAutostart].SetValue(true);
  ShowTimes();
}

/// Deliberate: cuts as many characters off the path as the application's directory has, wherever
/// the file is.
void PlaylistEditor::ShowName(const std::string& file) {
  const std::size_t cut = CountCharacters(JoinPath(Store.ApplicationDirectory(), ""));
  TheFrmPlaylist.Caption = Strings.LoadString(kStrPlaylist) + " " +
                           std::string(CharactersFrom(file, cut + 1, kShownPathCharacters));
}

void PlaylistEditor::ShowTimes() {
  const bool scheduled = !Values.MusicStartTime.empty();
  TheFrmPlaylist.frMusicTime.Visible = scheduled;
  TheFrmPlaylist.optScheduled[FrmPlaylist::kScheduled].SetValue(scheduled);
  if (scheduled) Times.Show(Values);
}

void PlaylistEditor::mnuSave_Click() {
  if (RefuseEmptyList()) return;
  FileDialog dialog = PlaylistDialog(Store);
  dialog.Save = true;
  TheDialogs.LeaveOpen(dialog, TheFrmPlaylist.WhileOpen([this](const std::string& file) {
    // The list may have been emptied while the dialog was open.
    if (!file.empty() && !RefuseEmptyList()) Save(file);
  }));
}

bool PlaylistEditor::RefuseEmptyList() {
  if (TheFrmPlaylist.SelectedMP3s.ListCount() > 0) return false;
  TheNotices.Error(kStrNoSongsSelected);
  return true;
}

/// Deliberate: the songs are saved even when a time is missing, in a file without times. The file
/// is written in one step.
void PlaylistEditor::Save(const std::string& file) {
  const bool timed = Times.AnyIsChosen();
  const int missing = timed ? Times.Missing() : 0;
  std::vector<ProfileEntry> entries = SongEntries();
  if (missing == 0) AddStart(entries, timed);
  if (!Store.RebuildProfile(entries, file)) {
    return TheNotices.Error(Strings.LoadString(kStrFileNotSaved) + file);
  }
  if (missing != 0) return TheNotices.Error(missing);
  if (timed) {
    Values.MusicStartTime = Times.Start();
    Values.MusicStopTime = Times.Stop();
  } else {
    Values.MusicAutostart = TheFrmPlaylist.optScheduled[FrmPlaylist::kAutostart].Value();
  }
  TheFrmPlaylist.Unload();
}

std::vector<ProfileEntry> PlaylistEditor::SongEntries() const {
  std::vector<ProfileEntry> entries = {EntryOf(keys::kLastSong, "0")};
  for (int song = 0; song < TheFrmPlaylist.SelectedMP3s.ListCount(); ++song) {
    const std::string key = std::string(keys::kSongs.Key) + std::to_string(song + 1);
    entries.push_back(
        EntryOf({keys::kSongs.Section, key}, QuotedName(TheFrmPlaylist.SelectedMP3s.List(song))));
  }
  return entries;
}

/// A file with times has no entry for the autostart.
void PlaylistEditor::AddStart(std::vector<ProfileEntry>& entries, bool timed) const {
  const auto add = [&entries](const ProfileKey& key, const std::string& value) {
    entries.push_back(EntryOf(key, value));
  };
  add(keys::kStartTime, timed ? Times.Start() : "");
  add(keys::kStopTime, timed ? Times.Stop() : "");
  add(keys::kMusicWeekdays, timed ? Times.Days() : std::string(kWeekdays, '0'));
  if (timed) return;
  add(keys::kAutostart,
      TheFrmPlaylist.optScheduled[FrmPlaylist::kAutostart].Value() ? "True" : "False");
}

}  // namespace marlex
