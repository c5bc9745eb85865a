#pragma once

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
            MediaCheck& media)
      : TheFlags(flags),
        TheSettings(settings),
        TheFrmMain(frmMain),
        TheFrmPlayers(frmPlayers),
        ThePreviews(previews),
        TheDay(day),
        Media(media) {}

  /// Asks for each file once, and returns the bad ones, first the sequence files and the playlist,
  /// then the messages by time, then the songs in their order.
  std::vector<BadMedium> Look();

  /// Songs that are checked ahead, for the sake of a playlist of thousands.
  static constexpr int kSongsAhead = 100;

 private:
  void NoteMusic();
  bool SongsAreNeeded() const;
  void CheckTexts(std::vector<BadMedium>& bad);
  void CheckMessages(std::vector<BadMedium>& bad);
  void CheckSongs(std::vector<BadMedium>& bad);

  const Flags& TheFlags;
  const Settings& TheSettings;
  const FrmMain& TheFrmMain;
  const FrmPlayers& TheFrmPlayers;
  const Previews& ThePreviews;
  const DayPlan& TheDay;
  MediaCheck& Media;
  bool MusicIsOn = false;  // also while it is stopped for a message
};

}  // namespace marlex
