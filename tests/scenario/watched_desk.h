#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "desk/desk.h"
#include "scenario/inspectors/inspector.h"
#include "scenario/require.h"

namespace marlex {

class Inspectors;

/// A desk whose inspectors test after every event, nested ones included, what must always hold, and
/// throw a BrokenRule out of the call that let time pass. Each run of the program has inspectors of
/// its own.
class WatchedDesk : public Desk {
 public:
  WatchedDesk(const DeskOptions& options, const std::function<void(SimulatedPc&)>& prepare);
  ~WatchedDesk();

  /// Virtual milliseconds of the day, which begins with the first start of the program.
  std::int64_t NowMs() const { return Pc.Loop.NowMs(); }
  void AdvanceToMs(std::int64_t dayMs);

  CornerCounts Corners;

  // The operator's hands, for what a plain desk's cannot do.

  /// Call key 1 or 2 goes down or up. To be called from an event. A key that is disabled cannot be
  /// pressed.
  void StrikeCallKey(int key, bool down);
  bool CallWasPressed() const;  // since the start of the program
  bool KeyIsHeld() const;       // a call key, since a press that began a call

  /// The operator does something at the playlist editor, as one event, if it is open and no box
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
