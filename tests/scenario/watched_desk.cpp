#include "scenario/watched_desk.h"

#include "scenario/inspectors/failures.h"
#include "scenario/inspectors/inspectors.h"

namespace marlex {

WatchedDesk::WatchedDesk(const DeskOptions& options,
                         const std::function<void(SimulatedPc&)>& prepare)
    : Desk(options, prepare, false) {
  Arm();
  OnRestart = [this] { Arm(); };
  Start();
}

/// The system is destroyed before the inspectors, since its controls report to them.
WatchedDesk::~WatchedDesk() {
  Pc.Kill();
  Sys.reset();
}

void WatchedDesk::Arm() {
  TheInspectors = std::make_unique<Inspectors>(*this, Corners);
  SongPressed = false;
  Pc.Loop.AfterEvent = [this] { TheInspectors->Check(); };
  WatchFailures(*this);
}

void WatchedDesk::AdvanceToMs(std::int64_t dayMs) {
  if (dayMs > NowMs()) Pc.Loop.RunFor(dayMs - NowMs());
}

void WatchedDesk::StrikeCallButton(int number, bool down) {
  CommandButton& button = number == 1 ? Main().cmdCall : Main().cmdCall2;
  if (!Main().Visible) return;
  TheInspectors->Traces.Check();  // a nested stroke may be the first event of a call
  if (!down) {
    TheInspectors->Call.NoteRelease();  // either button ends the call of the other
    return button.OnMouseUp(MouseButton::Left);
  }
  if (!button.Enabled || !button.Visible) return;
  const Flags& flags = State();
  if (!flags.CallActive && !flags.PriorityPreempted && flags.PriorityClear)
    TheInspectors->NotePress();
  button.OnMouseDown(MouseButton::Left);
}

bool WatchedDesk::CallWasPressed() const { return TheInspectors->Call.ButtonWasPressed(); }

bool WatchedDesk::CallButtonIsHeld() const { return TheInspectors->Call.ButtonIsHeld(); }

void WatchedDesk::StepAtPlaylist(const std::function<void(FrmPlaylist&)>& step) {
  Do([&] {
    const bool atHand = Sys->TheWindows.frmPlaylist.Visible && Pc.Dialogs.OpenBoxCount() == 0;
    if (atHand) TheInspectors->Playlists.Step(step);
  });
}

void WatchedDesk::PlugIn() {
  Pc.Serial.Device = Pc.Serial.CommPort();
  Pc.Serial.Plug();
}

void WatchedDesk::PressSong(int entry) {
  if (!Main().Visible || entry >= Main().lstPlaylist.ListCount()) return;
  SongPressed = true;
  Do([this, entry] {
    Main().lstPlaylist.SetListIndex(entry);
    Main().lstPlaylist.OnMouseDown(MouseButton::Left);
  });
}

void WatchedDesk::DragTo(int entry) {
  if (!SongPressed || entry >= Main().lstPlaylist.ListCount()) return;
  Do([this, entry] {
    ListBox& list = Main().lstPlaylist;
    for (int steps = list.ListCount(); steps > 0 && list.ListIndex() != entry; --steps) {
      const int at = list.ListIndex();
      list.SetListIndex(at == ListBox::kNoSelection ? entry : at + (at < entry ? 1 : -1));
      list.OnMouseMove();
    }
  });
}

void WatchedDesk::LetGo() {
  if (!SongPressed) return;
  SongPressed = false;
  Do([this] { Main().lstPlaylist.OnMouseUp(); });
}

}  // namespace marlex
