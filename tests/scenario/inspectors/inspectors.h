#pragma once

#include <array>

#include "scenario/inspectors/bytes.h"
#include "scenario/inspectors/call.h"
#include "scenario/inspectors/call_traces.h"
#include "scenario/inspectors/corners.h"
#include "scenario/inspectors/firing_row.h"
#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/master_mute.h"
#include "scenario/inspectors/media.h"
#include "scenario/inspectors/messages.h"
#include "scenario/inspectors/microphone.h"
#include "scenario/inspectors/mixer.h"
#include "scenario/inspectors/music_clock.h"
#include "scenario/inspectors/playlist_editor.h"
#include "scenario/inspectors/preview.h"
#include "scenario/inspectors/priority.h"
#include "scenario/inspectors/record.h"
#include "scenario/inspectors/rest.h"
#include "scenario/inspectors/sequence_editor.h"
#include "scenario/inspectors/sequence_save.h"
#include "scenario/inspectors/table.h"
#include "scenario/inspectors/tick.h"
#include "scenario/inspectors/view.h"
#include "scenario/inspectors/waits.h"
#include "scenario/inspectors/zones.h"

namespace marlex {

/// All inspectors of one run of the program.
class Inspectors {
 public:
  Inspectors(Desk& desk, CornerCounts& corners);

  /// Called after an event: all inspectors check, then all remember.
  void Check();

  /// The operator is about to press a call button, which begins a call. This must be known
  /// beforehand, since the events during the waits of the press are checked before the press
  /// itself.
  void NotePress();

 private:
  void Remember();

  Desk& TheDesk;
  DeskBefore Before;
  Scene TheScene;

 public:
  CallTraces Traces;
  CallInspector Call;
  PlaylistEditorInspector Playlists;

 private:
  SequenceEditorInspector SequenceEdits;
  ViewInspector View;
  BytesInspector Bytes;
  MasterMuteInspector MasterMute;
  MessagesInspector Messages;
  PriorityInspector Priority;
  MixerInspector Mixer;
  MicrophoneInspector OpenMicrophone;
  PreviewInspector Preview;
  SequenceSaveInspector Save;
  TickInspector Tick;
  TableInspector Rows;
  FiringRowInspector FiringRow;
  MusicClockInspector MusicClock;
  RecordInspector Record;
  MediaInspector Media;
  RestInspector Rest;
  ZonesInspector Zones;
  WaitsInspector Waits;
  CornerCounter Corners;

  /// Those that check while the main window is loaded, in the order in which they check. Each comes
  /// after the ones whose findings about the same event it needs. The exception is the editor,
  /// which asks how the call was before the event.
  std::array<Inspector*, 21> InOrder;
};

}  // namespace marlex
