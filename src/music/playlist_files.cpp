#include "music/playlist_files.h"

#include <algorithm>
#include <cctype>

#include "state/week_time.h"
#include "text/numbers.h"
#include "text/profile_text.h"

namespace marlex {
namespace {

/// True for "true" in any case and for any number but 0; false for all else.
bool ToFlag(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text == "true" || ToNumber(text).value_or(0) != 0;
}

}  // namespace

FileDialog PlaylistDialog(const ProfileStore& store) {
  return {.Filter = "Playlist files (*.lst)|*.lst",
          .DefaultExtension = "lst",
          .InitialDirectory = store.ApplicationDirectory()};
}

void ReadPlaylistTimes(SettingsStore& store, const std::string& file) {
  Settings& settings = store.Values;
  settings.MusicStartTime = store.ReadProfileValue(keys::kStartTime, file);
  settings.MusicStopTime = store.ReadProfileValue(keys::kStopTime, file);
  settings.MusicWeekDays = store.ReadProfileValue(keys::kMusicWeekdays, file);
  settings.MusicAutostart = ToFlag(store.ReadProfileValue(keys::kAutostart, file));
}

int PlaylistPosition(int lastSongIndex, int songCount) {
  if (songCount == 0) return ListBox::kNoSelection;
  return lastSongIndex >= 0 && lastSongIndex < songCount ? lastSongIndex : 0;
}

PlaylistFiles::PlaylistFiles(Flags& flags, SettingsStore& store, Directories& directories,
                             WallClock& clock, Dialogs& dialogs, FrmMain& frmMain,
                             MusicPlayer& player, const StringTable& strings)
    : TheFlags(flags),
      Store(store),
      TheDirectories(directories),
      Clock(clock),
      TheDialogs(dialogs),
      TheFrmMain(frmMain),
      Player(player),
      Strings(strings) {
  frmMain.mnuOpen.OnClick = [this] { mnuOpen_Click(); };
}

void PlaylistFiles::LoadPlaylist() {
  TheFrmMain.lstPlaylist.Clear();
  ReadSongs();
  ReadPlaylistTimes(Store, Store.Values.CurrentPlaylistFile);
  ShowName();
  if (Store.Values.MusicAutostart) {
    AutostartMusic();
  } else if (InsideWindow()) {
    // Deliberate: tests no weekday and selects no entry. The player refuses the empty name, and the
    // skip that follows starts the first song.
    Player.cmdPlay_Click();
  } else if (TheFrmMain.lstPlaylist.ListCount() > 0) {
    TheFrmMain.lstPlaylist.SetListIndex(0);
  }
}

void PlaylistFiles::ReadSongs() {
  for (const std::string& song :
       Store.ReadNumberedValues(keys::kSongs, Store.Values.CurrentPlaylistFile)) {
    TheFrmMain.lstPlaylist.AddItem(song);
  }
}

void PlaylistFiles::ShowName() {
  Settings& settings = Store.Values;
  const std::string name = TheDirectories.Search(settings.CurrentPlaylistFile);
  std::string caption = Strings.LoadString(kStrBackgroundMusicPlaylist) + ": " + name;
  settings.MusicScheduled = !settings.MusicStartTime.empty();
  if (settings.MusicScheduled)
    caption += " " + settings.MusicStartTime + "-" + settings.MusicStopTime;
  TheFrmMain.frBGMusic.Caption = caption;
}

/// Deliberate: uses the position read at the program's start, even if another file has been opened
/// since.
void PlaylistFiles::AutostartMusic() {
  TheFlags.CurrentMinute = MinuteText(Clock.Now());
  ListBox& list = TheFrmMain.lstPlaylist;
  list.SetListIndex(PlaylistPosition(Store.Values.LastSongIndex, list.ListCount()));
  Player.CurrentSongPath = Player.SelectedSongPath();
  Player.cmdPlay_Click();
}

/// Before the first tick `CurrentMinute` is empty, and so inside no window.
bool PlaylistFiles::InsideWindow() const {
  const Settings& settings = Store.Values;
  return !settings.MusicStartTime.empty() && TheFlags.CurrentMinute >= settings.MusicStartTime &&
         TheFlags.CurrentMinute < settings.MusicStopTime;
}

void PlaylistFiles::mnuOpen_Click() {
  TheDialogs.LeaveOpen(PlaylistDialog(Store), [this](const std::string& file) { Open(file); });
}

void PlaylistFiles::Open(const std::string& file) {
  Store.Values.CurrentPlaylistFile = file;
  Store.Write(keys::kCurrentPlaylist, QuotedName(Store.Values.CurrentPlaylistFile));
  LoadPlaylist();
  TheFlags.MusicStoppedByUser = false;
}

}  // namespace marlex
