#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "desk/desk.h"
#include "scenario/require.h"

namespace marlex {

/// How the desk stood before the event that has just ended. Holds only what several inspectors ask
/// for; what one alone needs, it remembers itself.
struct DeskBefore {
  explicit DeskBefore(Desk& desk);

  marlex::Flags Flags;
  int Waits = 0;
  int Weekday = 0;
  bool TickOn = false;
  bool MainShown = false;
  std::size_t JournalLines = 0;
};

/// How often the desk was found in each of the corners that a campaign must reach, by event.
using CornerCounts = std::map<std::string, int>;

/// What every inspector is given.
struct Scene {
  Desk& TheDesk;
  const DeskBefore& Before;
  CornerCounts& Corners;
};

/// Whether the journal has this word in one of the lines from this one on.
bool JournalHas(const Journal& journal, std::string_view word, std::size_t firstLine);

/// Watches one part of the desk. Lives as long as one run of the program.
class Inspector {
 public:
  explicit Inspector(const Scene& scene)
      : TheDesk(scene.TheDesk), Before(scene.Before), Corners(scene.Corners) {}
  virtual ~Inspector() = default;
  Inspector(const Inspector&) = delete;
  Inspector& operator=(const Inspector&) = delete;

  /// Throws a BrokenRule if the event that has just ended broke one. Called after every event,
  /// nested ones included.
  virtual void Check() = 0;

  /// Takes the desk as it stands for the next check. Called once all inspectors have checked.
  virtual void Remember() {}

 protected:
  const Flags& State() const { return TheDesk.State(); }
  const Settings& Values() const { return TheDesk.Values(); }
  FrmMain& Main() const { return TheDesk.Main(); }
  bool TickIsOn() const { return TheDesk.Sys->TheFrmPlayers.tmrMessage.Enabled; }
  std::int64_t NowMs() const { return TheDesk.Pc.Loop.NowMs(); }

  /// In this event.
  bool AmplifierTookOver() const {
    return State().PriorityPreempted && !Before.Flags.PriorityPreempted;
  }

  /// Whether the event has put a line with this word into the journal.
  bool Journaled(std::string_view word) const {
    return JournalHas(TheDesk.Pc.Journal, word, Before.JournalLines);
  }

  /// What a preview, of a song as of messages, neither begins under nor goes on.
  bool OutrunsPreviews() const {
    return State().CallActive || State().MessagePlaying || State().PriorityPreempted ||
           State().AmplifierStatus >= kHighPriority;
  }

  Desk& TheDesk;
  const DeskBefore& Before;
  CornerCounts& Corners;
};

/// Nothing waits, and the main window is up.
inline bool AtRest(Desk& desk) { return desk.Pc.Loop.Waits() == 1 && desk.Main().Visible; }

}  // namespace marlex
