#include "scenario/inspectors/inspectors.h"

namespace marlex {

Inspectors::Inspectors(Desk& desk, CornerCounts& corners)
    : TheDesk(desk),
      Before(desk),
      TheScene{desk, Before, corners},
      Traces(TheScene),
      Call(TheScene),
      Playlists(TheScene, Traces),
      SequenceEdits(TheScene, Traces),
      View(TheScene, SequenceEdits),
      Bytes(TheScene),
      MasterMute(TheScene),
      Messages(TheScene, Traces),
      Priority(TheScene),
      Mixer(TheScene),
      OpenMicrophone(TheScene, Call),
      Preview(TheScene, SequenceEdits, Traces),
      Save(TheScene, SequenceEdits),
      Tick(TheScene, SequenceEdits),
      Rows(TheScene),
      FiringRow(TheScene, SequenceEdits, Traces, Tick, Rows),
      MusicClock(TheScene, Tick, Playlists),
      Record(TheScene),
      Media(TheScene),
      Rest(TheScene, SequenceEdits, Preview, Traces),
      Zones(TheScene, Traces),
      Waits(TheScene),
      Corners(TheScene, SequenceEdits, Preview, Playlists, Bytes),
      InOrder{&SequenceEdits, &View,  &Playlists,      &Traces, &Bytes,   &MasterMute, &Messages,
              &Priority,      &Mixer, &OpenMicrophone, &Call,   &Preview, &Save,       &Tick,
              &FiringRow,     &Rows,  &MusicClock,     &Record, &Media,   &Rest,       &Zones} {
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
