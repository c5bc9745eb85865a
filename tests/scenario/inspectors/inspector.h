#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "desk/desk.h"
#include "scenario/require.h"

namespace marlex {

/// The state of the desk before the event that has just ended. Holds only what several inspectors
/// ask for; each inspector remembers by itself what it alone needs.
struct DeskBefore {
  explicit DeskBefore(Desk& desk);

  marlex::Flags Flags;
  int Waits = 0;
  int Weekday = 0;
  bool TickOn = false;
  bool MainShown = false;
  std::size_t JournalLines = 0;
};

/// For each of the corners that a campaign must reach, the number of events after which the desk
/// was in it.
using CornerCounts = std::map<std::string, int>;

/// What every inspector is given.
struct Scene {
  Desk& TheDesk;
  const DeskBefore& Before;
  CornerCounts& Corners;
};

/// Whether the journal has this word in a line from the given one on.
bool JournalHas(const Journal& journal, std::string_view word, std::size_t firstLine);

/// Watches one part of the desk. Lives as long as one run of the program.
class Inspector {
 public:
  explicit Inspector(const Scene& scene)
      : TheDesk(scene.TheDesk), Before(scene.Before), Corners(scene.Corners) {}
  virtual ~Inspector() = default;
  Inspector(const Inspector&) = delete;
  Inspector& operator=(const Inspector&) = delete;

  /// Throws a BrokenRule if the event that has just ended broke a rule. Called after every event,
  /// including nested ones.
  virtual void Check() = 0;

  /// Remembers the state of the desk for the next check. Called once all inspectors have checked.
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

  /// Whether the event has written a line with this word to the journal.
  bool Journaled(std::string_view word) const {
    return JournalHas(TheDesk.Pc.Journal, word, Before.JournalLines);
  }

  /// A condition under which no preview, of a song or of messages, begins or continues.
  bool OutrunsPreviews() const {
    return State().CallActive || State().MessagePlaying || State().PriorityPreempted ||
           State().AmplifierStatus >= kHighPriority;
  }

  Desk& TheDesk;
  const DeskBefore& Before;
  CornerCounts& Corners;
};

/// Nothing is waiting, and the main window is open.
inline bool AtRest(Desk& desk) { return desk.Pc.Loop.Waits() == 1 && desk.Main().Visible; }

}  // namespace marlex
