#include "core/plan_media.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "music/playlist_files.h"
#include "schedule/schedule_columns.h"
#include "state/media_names.h"
#include "state/week_time.h"
#include "text/paths.h"
#include "text/split.h"

namespace marlex {
namespace {

constexpr const char* kEndOfDay = "24:00";

/// Adds files, each once.
class Wanted {
 public:
  Wanted(std::vector<WatchedFile>& files, MediumKind kind) : Files(files), Kind(kind) {}

  void Add(const std::string& path) {
    if (Asked.insert(path).second) Files.push_back({path, Kind});
  }

 private:
  std::vector<WatchedFile>& Files;
  MediumKind Kind;
  std::set<std::string> Asked;
};

}  // namespace

std::vector<BadMedium> PlanMedia::Look() {
  NoteMusic();
  WatchNeeded();
  std::vector<BadMedium> bad;
  const std::vector<MediaState>& states = Media.States();
  for (std::size_t file = 0; file < states.size(); ++file) {
    if (states[file] == MediaState::Missing || states[file] == MediaState::Unplayable)
      bad.push_back({FileNameOf(Files[file].Path), states[file] == MediaState::Missing});
  }
  return bad;
}

void PlanMedia::WatchNeeded() {
  const LocalTime now = Clock.Now();
  const std::string minute = MinuteText(now);
  const Sources present = PresentSources(now.Weekday, minute);
  if (present == Of && From <= minute && minute < Until) return;
  Of = present;
  From = minute;
  Until = NextMinute(minute);
  std::vector<WatchedFile> needed = Needed();
  if (needed == Files) return;
  Files = std::move(needed);
  Media.Watch(Files);
}

/// The minute from which on the list may be another one.
std::string PlanMedia::NextMinute(const std::string& minute) const {
  const std::vector<int> rows = TheDay.RowsToCome();
  std::string next = rows.empty() ? kEndOfDay : TimeOf(TheFrmMain.grdSchedule, rows.front());
  const std::string& stop = TheSettings.MusicStopTime;
  return stop > minute ? std::min(next, stop) : next;
}

std::vector<WatchedFile> PlanMedia::Needed() const {
  std::vector<WatchedFile> files;
  AddTexts(files);
  AddMessages(files);
  if (SongsAreNeeded()) AddSongs(files);
  return files;
}

PlanMedia::Sources PlanMedia::PresentSources(int weekday, const std::string& minute) const {
  return {weekday,
          Tick.LastMinute > minute ? Tick.LastMinute : "",
          {TheFrmMain.grdSchedule.Changes, TheFrmMain.lstPlaylist.Changes,
           TheFrmPlayers.SeqFileList.Changes, TheFrmPlayers.lstMsgSequence.Changes},
          TheFlags.MessageAwaitingSongEnd,
          MusicIsOn,
          TheFlags.MusicStoppedByUser,
          TheSettings.MusicScheduled,
          TheSettings.LastSongIndex,
          {TheSettings.MusicDirectory, TheSettings.MessageDirectory, TheSettings.SequencePath,
           TheSettings.CurrentPlaylistFile, TheSettings.MusicWeekDays, TheSettings.MusicStartTime,
           TheSettings.MusicStopTime}};
}

void PlanMedia::AddTexts(std::vector<WatchedFile>& files) const {
  const ListBox& sequences = TheFrmPlayers.SeqFileList;
  for (int file = 0; file < sequences.ListCount(); ++file)
    files.push_back({TheSettings.SequencePath + sequences.List(file), MediumKind::TextFile});
  const std::string& playlist = TheSettings.CurrentPlaylistFile;
  if (!playlist.empty()) files.push_back({playlist, MediumKind::TextFile});
}

/// The messages of a row that waits for the music break are in the list of the player.
void PlanMedia::AddMessages(std::vector<WatchedFile>& files) const {
  Wanted messages(files, MediumKind::Message);
  const ListBox& waiting = TheFrmPlayers.lstMsgSequence;
  const int count = TheFlags.MessageAwaitingSongEnd ? waiting.ListCount() : 0;
  for (int entry = 0; entry < count; ++entry)
    messages.Add(TheSettings.MessageDirectory + waiting.List(entry));
  const Grid& table = TheFrmMain.grdSchedule;
  std::set<std::string_view> sequences;  // a sequence has many rows
  for (const int row : TheDay.RowsToCome()) {
    const std::string& names = table.TextMatrix(row, kMessagesColumn);
    if (!sequences.insert(names).second) continue;
    for (const std::string& name : SplitCuttingLast(names, ','))
      messages.Add(MessagePath(TheSettings, name));
  }
}

/// Music that its clock will start begins with the song of the last run, whatever is selected.
void PlanMedia::AddSongs(std::vector<WatchedFile>& files) const {
  Wanted songs(files, MediumKind::Song);
  const ListBox& list = TheFrmMain.lstPlaylist;
  const int start =
      MusicIsOn ? list.ListIndex() : PlaylistPosition(TheSettings.LastSongIndex, list.ListCount());
  const int first = std::max(0, start);
  const int count = std::min(list.ListCount(), kSongsAhead);
  for (int ahead = 0; ahead < count; ++ahead)
    songs.Add(SongPath(TheSettings, list.List((first + ahead) % list.ListCount())));
}

/// A message stops the music that comes back after it.
void PlanMedia::NoteMusic() {
  if (TheFlags.MessagePlaying) return;
  MusicIsOn = TheFrmPlayers.MP3Player.PlayState() != kStopped && !ThePreviews.HoldSongPlayer;
}

/// Whether music is on, or the clock will start it today.
bool PlanMedia::SongsAreNeeded() const {
  return MusicIsOn || (!TheFlags.MusicStoppedByUser && TheDay.MusicIsToCome());
}

}  // namespace marlex
