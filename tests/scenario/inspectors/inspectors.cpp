#include "scenario/inspectors/inspectors.h"

namespace marlex {

Inspectors::Inspectors(Desk& desk, CornerCounts& corners)
    : TheDesk(desk),
      Before(desk),
      TheScene{desk, Before, corners},
      Traces(TheScene),
      Call(TheScene),
      Playlists(TheScene, Traces),
      Editor(TheScene, Traces),
      View(TheScene, Editor),
      Bytes(TheScene),
      MasterMute(TheScene),
      Messages(TheScene, Traces),
      Priority(TheScene),
      Mixer(TheScene),
      Microphone(TheScene, Call),
      Preview(TheScene, Editor, Traces),
      Save(TheScene, Editor),
      Tick(TheScene, Editor),
      Table(TheScene),
      FiringRow(TheScene, Editor, Traces, Tick, Table),
      MusicClock(TheScene, Tick, Playlists),
      Rest(TheScene, Editor, Preview, Traces),
      Zones(TheScene, Traces),
      Waits(TheScene),
      Corners(TheScene, Editor, Preview, Playlists, Bytes),
      InOrder{&Editor,    &View,  &Playlists,  &Traces, &Bytes,   &MasterMute, &Messages,
              &Priority,  &Mixer, &Microphone, &Call,   &Preview, &Save,       &Tick,
              &FiringRow, &Table, &MusicClock, &Rest,   &Zones} {
  Remember();
}

void Inspectors::Check() {
  Waits.Check();
  if (TheDesk.Main().Loaded()) {
    for (Inspector* inspector : InOrder) inspector->Check();
  }
  Corners.Check();
  Remember();
}

void Inspectors::Remember() {
  for (Inspector* inspector : InOrder) inspector->Remember();
  Corners.Remember();
  Before = DeskBefore(TheDesk);
}

void Inspectors::NotePress() {
  Call.NotePress();
  Traces.NotePress();
  Tick.NotePress();
  FiringRow.NotePress();
}

}  // namespace marlex
