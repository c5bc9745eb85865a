#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "desk/desk.h"
#include "scenario/inspectors/inspector.h"
#include "scenario/require.h"

namespace marlex {

class Inspectors;

/// A desk whose inspectors check, after every event including nested ones, what must always hold. A
/// violation is thrown as a BrokenRule out of the call that let time pass. Each run of the program
/// has its own inspectors.
class WatchedDesk : public Desk {
 public:
  WatchedDesk(const DeskOptions& options, const std::function<void(SimulatedPc&)>& prepare);
  ~WatchedDesk();

  /// Virtual milliseconds of the day, which begins with the first start of the program.
  std::int64_t NowMs() const { return Pc.Loop.NowMs(); }
  void AdvanceToMs(std::int64_t dayMs);

  CornerCounts Corners;

  // The operator's hands, for what those of a plain desk cannot do.

  /// Presses or releases call button 1 or 2. To be called from an event. A disabled button cannot
  /// be pressed.
  void StrikeCallButton(int number, bool down);
  bool CallWasPressed() const;    // since the start of the program
  bool CallButtonIsHeld() const;  // since a press that began a call

  /// The operator does something in the playlist editor, as one event, if it is open and no box
  /// covers it.
  void StepAtPlaylist(const std::function<void(FrmPlaylist&)>& step);

  void PlugIn();  // the amplifier, into the port that the program uses

  // A drag in the list of songs. It begins on an entry, and the selection follows the pointer.
  void PressSong(int entry);
  void DragTo(int entry);
  void LetGo();

 private:
  void Arm();

  std::unique_ptr<Inspectors> TheInspectors;
  bool SongPressed = false;
};

}  // namespace marlex
