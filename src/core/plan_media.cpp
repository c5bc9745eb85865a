#include "core/plan_media.h"

#include <algorithm>
#include <set>

#include "music/playlist_files.h"
#include "schedule/schedule_columns.h"
#include "state/media_names.h"
#include "text/paths.h"
#include "text/split.h"

namespace marlex {
namespace {

void Note(std::vector<BadMedium>& bad, const std::string& path, MediaState state) {
  if (state == MediaState::Missing || state == MediaState::Unplayable)
    bad.push_back({FileNameOf(path), state == MediaState::Missing});
}

}  // namespace

std::vector<BadMedium> PlanMedia::Look() {
  NoteMusic();
  std::vector<BadMedium> bad;
  CheckTexts(bad);
  CheckMessages(bad);
  if (SongsAreNeeded()) CheckSongs(bad);
  return bad;
}

void PlanMedia::CheckTexts(std::vector<BadMedium>& bad) {
  const ListBox& sequences = TheFrmPlayers.SeqFileList;
  for (int file = 0; file < sequences.ListCount(); ++file) {
    const std::string path = TheSettings.SequencePath + sequences.List(file);
    Note(bad, path, Media.TextFile(path));
  }
  const std::string& playlist = TheSettings.CurrentPlaylistFile;
  if (!playlist.empty()) Note(bad, playlist, Media.TextFile(playlist));
}

/// The messages of a row that waits for the music break are in the list of the player.
void PlanMedia::CheckMessages(std::vector<BadMedium>& bad) {
  std::set<std::string> asked;
  const auto check = [&](const std::string& path) {
    if (asked.insert(path).second) Note(bad, path, Media.Message(path));
  };
  const ListBox& waiting = TheFrmPlayers.lstMsgSequence;
  const int count = TheFlags.MessageAwaitingSongEnd ? waiting.ListCount() : 0;
  for (int entry = 0; entry < count; ++entry)
    check(TheSettings.MessageDirectory + waiting.List(entry));
  const Grid& table = TheFrmMain.grdSchedule;
  for (const int row : TheDay.RowsToCome()) {
    for (const std::string& name : SplitCuttingLast(table.TextMatrix(row, kMessagesColumn), ','))
      check(MessagePath(TheSettings, name));
  }
}

/// Music that its clock will start begins with the song of the last run, whatever is selected.
void PlanMedia::CheckSongs(std::vector<BadMedium>& bad) {
  std::set<std::string> asked;
  const ListBox& list = TheFrmMain.lstPlaylist;
  const int start =
      MusicIsOn ? list.ListIndex() : PlaylistPosition(TheSettings.LastSongIndex, list.ListCount());
  const int first = std::max(0, start);
  const int count = std::min(list.ListCount(), kSongsAhead);
  for (int ahead = 0; ahead < count; ++ahead) {
    const std::string path = SongPath(TheSettings, list.List((first + ahead) % list.ListCount()));
    if (asked.insert(path).second) Note(bad, path, Media.Song(path));
  }
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
