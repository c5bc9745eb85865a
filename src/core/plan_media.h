#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/day_ribbon.h"
#include "platform/media_check.h"
#include "state/flags.h"
#include "state/previews.h"
#include "state/settings.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// A song, message, playlist or sequence file that today's plan needs but that cannot be played or
/// read.
struct BadMedium {
  std::string FileName;
  bool IsMissing = false;  // otherwise it is there, but unreadable or not of its kind
};

/// Checks the files of today's plan before their time comes: the messages of all rows that the tick
/// has still to fire, and the songs that follow, if music is on or its clock will start it; also
/// the playlist and the sequence files that are open, without which there are no songs or rows.
class PlanMedia {
 public:
  PlanMedia(const Flags& flags, const Settings& settings, const FrmMain& frmMain,
            const FrmPlayers& frmPlayers, const Previews& previews, const DayPlan& day,
            const ScheduleTick& tick, MediaCheck& media, WallClock& clock)
      : TheFlags(flags),
        TheSettings(settings),
        TheFrmMain(frmMain),
        TheFrmPlayers(frmPlayers),
        ThePreviews(previews),
        TheDay(day),
        Tick(tick),
        Media(media),
        Clock(clock) {}

  /// The bad files, each once: first the sequence files and the playlist, then the messages by
  /// time, then the songs in their order.
  std::vector<BadMedium> Look();

  /// All files that the plan needs at this moment, in that order. `Look` works with a list that it
  /// makes only when it may have changed.
  std::vector<WatchedFile> Needed() const;

  /// Those that are watched since the last `Look`.
  const std::vector<WatchedFile>& Watched() const { return Files; }

  /// Songs that are checked ahead, for the sake of a playlist of thousands.
  static constexpr int kSongsAhead = 100;

 private:
  /// Everything that the list of files is made from.
  struct Sources {
    int Weekday = 0;
    std::string LastMinute;             // only if the clock has been set back since
    std::array<unsigned, 4> Changes{};  // of the table and the lists
    bool RowWaits = false;
    bool MusicIsOn = false;
    bool MusicIsStopped = false;
    bool MusicIsScheduled = false;
    int LastSong = 0;
    std::array<std::string, 7> Texts;  // of the settings

    bool operator==(const Sources&) const = default;
  };

  void NoteMusic();
  void WatchNeeded();
  bool SongsAreNeeded() const;
  Sources PresentSources(int weekday, const std::string& minute) const;
  std::string NextMinute(const std::string& minute) const;
  void AddTexts(std::vector<WatchedFile>& files) const;
  void AddMessages(std::vector<WatchedFile>& files) const;
  void AddSongs(std::vector<WatchedFile>& files) const;

  const Flags& TheFlags;
  const Settings& TheSettings;
  const FrmMain& TheFrmMain;
  const FrmPlayers& TheFrmPlayers;
  const Previews& ThePreviews;
  const DayPlan& TheDay;
  const ScheduleTick& Tick;
  MediaCheck& Media;
  WallClock& Clock;
  bool MusicIsOn = false;  // also while it is stopped for a message

  // The list of files, and what it holds for: from the minute in which it was made to before the
  // one in which a row, or the music's time, goes by.
  std::vector<WatchedFile> Files;
  Sources Of;
  std::string From;
  std::string Until;
};

}  // namespace marlex
