#include "music/music_player.h"

#include <algorithm>

#include "state/media_names.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace marlex {
std::string FormatSeconds(double seconds) {
  const long whole = RoundHalfEven(seconds);
  const long rest = whole % 60;
  return std::to_string(whole / 60) + (rest < 10 ? ":0" : ":") + std::to_string(rest);
}

MusicPlayer::MusicPlayer(Flags& flags, SettingsStore& store, Directories& directories,
                         FrmMain& frmMain, FrmPlayers& frmPlayers, SoundLines& lines,
                         ZoneRouting& routing, Previews& previews, Record& record,
                         const StringTable& strings, Notices& notices)
    : TheFlags(flags),
      Store(store),
      TheDirectories(directories),
      TheFrmMain(frmMain),
      TheFrmPlayers(frmPlayers),
      Lines(lines),
      Routing(routing),
      ThePreviews(previews),
      TheRecord(record),
      Strings(strings),
      TheNotices(notices) {
  frmMain.cmdPlay.OnClick = [this] { cmdPlay_Click(); };
  frmMain.cmdSkip.OnClick = [this] { cmdSkip_Click(); };
  frmMain.cmdStop.OnClick = [this] { cmdStop_Click(); };
  frmPlayers.MP3Player.OnEndOfStream = [this] { MP3Player_EndOfStream(); };
  frmPlayers.tmrMP3Position.OnTimer = [this] { ShowPosition(); };
  WireList();
}

void MusicPlayer::cmdPlay_Click() {
  const Settings& settings = Store.Values;
  if (TheDirectories.Search(settings.MusicDirectory).empty()) {
    TheNotices.Problem(Strings.LoadString(kStrNoMusicDirectory) + " " + settings.MusicDirectory);
    return;
  }
  if (settings.RouterPresent) {
    if (!TheFlags.PriorityClear) return;
    if (TheFrmPlayers.MP3Player.PlayState() != kPlaying) Routing.RequestRouting();
  }
  Lines.OpenMaster();
  CurrentSongPath = SelectedSongPath();
  ThePreviews.HoldSongPlayer = false;
  TheFrmPlayers.MP3Player.SetFileName(CurrentSongPath);
  Lines.SetMaster(settings.MasterVolume);
  Lines.SetWave(settings.MusicVolume);
  ShowLength();
  if (TheFrmPlayers.MP3Player.FileName().empty()) {
    cmdSkip_Click();
  } else {
    PlaySong();
  }
  WriteLastSong(TheFrmMain.lstPlaylist.ListIndex());
  ShowNumber();
  CurrentSongIndex = TheFrmMain.lstPlaylist.ListIndex();
  TheFrmMain.EnableSkipAndStop(true);
  if (TheFlags.MusicStoppedBySchedule) {
    TheFlags.MusicStopOverridden = true;
    TheFlags.MusicStoppedBySchedule = false;
  }
  TheFlags.MusicStoppedByUser = false;
  Lines.OpenWave();
  if (TheFrmPlayers.MP3Player.PlayState() == kPlaying)
    TheRecord.SongPlays(FileNameOf(CurrentSongPath));
}

/// Deliberate: tests `CurrentSongPath`, even if the caller has given the player another file.
void MusicPlayer::PlaySong() {
  if (!TheDirectories.Search(CurrentSongPath).empty()) TheFrmPlayers.MP3Player.Play();
}

void MusicPlayer::cmdSkip_Click() {
  TheFrmPlayers.MP3Player.Stop();
  MP3Player_EndOfStream();
}

void MusicPlayer::cmdStop_Click() {
  TheFrmPlayers.MP3Player.Stop();
  Lines.MuteWave();
  TheFrmMain.EnableSkipAndStop(false);
  TheFlags.MusicStoppedByUser = true;
  TheRecord.MusicStops();
  if (Store.Values.RouterPresent) Routing.Release();
}

/// Skips songs that the player refuses, as an operator would, but tries each entry of the list only
/// once. Saves the first position at once, and after skipping only the last one: thousands of
/// writes to a disk would hold up the amplifier and the buttons.
void MusicPlayer::MP3Player_EndOfStream() {
  ThePreviews.HoldSongPlayer = false;
  const bool callTookOver = PlayWaitingMessages();
  const int songs = TheFrmMain.lstPlaylist.ListCount();
  if (songs == 0) return;
  const ListBox& list = TheFrmMain.lstPlaylist;
  bool wrapped = MoveToNextSong();
  const int written = list.ListIndex();
  WriteLastSong(written);
  bool loaded = LoadSong(wrapped);
  for (int tried = 1; !loaded && tried < songs; ++tried) {
    wrapped = MoveToNextSong();
    loaded = LoadSong(wrapped);
  }
  if (CurrentSongIndex != written) WriteLastSong(CurrentSongIndex);
  if (loaded) PlaySong();
  if (callTookOver) TheFrmPlayers.MP3Player.Pause();
}

/// True when a call has cut the messages off and is still in progress. The schedule then stays
/// held, and the next song is paused until the end of the call resumes it.
bool MusicPlayer::PlayWaitingMessages() {
  if (!TheFlags.MessageAwaitingSongEnd) return false;
  TheFlags.MessageAwaitingSongEnd = false;
  // A call that began earlier has dropped the messages. During its fade, the next song fades as
  // well; after that, the call owns the lines.
  const bool inCall = TheFlags.CallActive;
  if (inCall && !TheFlags.FadeRunning) return false;
  ThePreviews.End();
  AnnounceAtBreak();
  if (!TheFlags.CallActive) TheFrmPlayers.ResumeSchedule();
  return TheFlags.CallActive && !inCall;
}

/// Moves to the next entry. True if it wraps around to the first one.
bool MusicPlayer::MoveToNextSong() {
  ListBox& list = TheFrmMain.lstPlaylist;
  const bool wraps = list.ListIndex() == list.ListCount() - 1;
  if (wraps) {
    list.SetListIndex(0);
  } else {
    NewListPosition();
  }
  CurrentSongIndex = list.ListIndex();
  return wraps;
}

/// Loads the selected song. False if the player refuses it.
bool MusicPlayer::LoadSong(bool wrapped) {
  CurrentSongPath = SelectedSongPath();
  TheFrmPlayers.MP3Player.SetFileName(CurrentSongPath);
  // Deliberate: after a wrap, the length of the last song is shown throughout the first one.
  LengthAwaited = false;
  if (!wrapped) ShowLength();
  ShowNumber();
  return !TheFrmPlayers.MP3Player.FileName().empty();
}

/// Selects the next entry. In a long list it first selects an entry ten places ahead, which scrolls
/// the list, so that the coming entries stay in view.
void MusicPlayer::NewListPosition() {
  ListBox& list = TheFrmMain.lstPlaylist;
  const int index = list.ListIndex();
  if (list.ListCount() > 18 && list.ListCount() - index > 10) {
    list.SetListIndex(index + 10);
    list.SetListIndex(index + 10 - 9);
  } else {
    list.SetListIndex(index + 1);
  }
}

std::string MusicPlayer::SelectedSongPath() const {
  return SongPath(Store.Values, TheFrmMain.lstPlaylist.Text());
}

void MusicPlayer::ShowNumber() {
  const ListBox& list = TheFrmMain.lstPlaylist;
  TheFrmMain.lblMP3Number.Caption =
      std::to_string(list.ListIndex() + 1) + "/" + std::to_string(list.ListCount());
}

void MusicPlayer::ShowLength() {
  const double seconds = TheFrmPlayers.MP3Player.Duration();
  LengthAwaited = seconds == 0;
  TheFrmMain.lblMP3Length.Caption = FormatSeconds(seconds);
}

void MusicPlayer::ShowPosition() {
  const SongPlayer& player = TheFrmPlayers.MP3Player;
  TheFrmMain.lblMP3Position.Caption =
      player.PlayState() == kStopped ? "" : FormatSeconds(player.CurrentPosition());
  if (LengthAwaited && player.Duration() > 0) ShowLength();
}

void MusicPlayer::WriteLastSong(int index) {
  Store.WriteProfileValue(keys::kLastSong, std::to_string(index), Store.Values.CurrentPlaylistFile);
}

void MusicPlayer::WireList() {
  ListBox& list = TheFrmMain.lstPlaylist;
  list.OnClick = [this] {
    if (!TheFlags.MessagePlaying) TheFrmMain.cmdPlay.Enabled = true;
  };
  list.OnDblClick = [this] {
    if (!TheFlags.MessagePlaying) cmdPlay_Click();
  };
  list.OnKeyDown = [this](int keyCode) { DeleteSelected(keyCode); };
  list.OnMouseDown = [this, &list](MouseButton) { Drag.Start(list); };
  list.OnMouseMove = [this] { MoveDrag(); };
  list.OnMouseUp = [this] { EndDrag(); };
}

/// Removes the entry from the list on the screen, not from the file.
void MusicPlayer::DeleteSelected(int keyCode) {
  ListBox& list = TheFrmMain.lstPlaylist;
  if (keyCode == kKeyDelete && list.ListIndex() != ListBox::kNoSelection)
    list.RemoveItem(list.ListIndex());
}

void MusicPlayer::MoveDrag() {
  if (Drag.Move(TheFrmMain.lstPlaylist)) ShowNumber();
}

/// Selects the current song again, unless the playing song itself was moved. Deliberate:
/// `CurrentSongIndex` is not corrected, so repeated drags start from the old value.
void MusicPlayer::EndDrag() {
  Drag.End();
  const bool playingSongMoved = TheFrmPlayers.MP3Player.PlayState() == kPlaying &&
                                CurrentSongPath.find(Drag.DragText) != std::string::npos;
  if (playingSongMoved) return;
  ListBox& list = TheFrmMain.lstPlaylist;
  if (Drag.DragMoved) {
    const int place =
        list.ListIndex() <= CurrentSongIndex ? CurrentSongIndex + 1 : CurrentSongIndex;
    list.SetListIndex(std::min(place, list.ListCount() - 1));
  }
  ShowNumber();
}

}  // namespace marlex
