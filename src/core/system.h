#pragma once

#include "call/call_sequence.h"
#include "call/function_keys.h"
#include "core/day_ribbon.h"
#include "core/faults.h"
#include "core/glance.h"
#include "core/main_window.h"
#include "core/pickers.h"
#include "core/settings_dialog.h"
#include "core/settings_loader.h"
#include "core/start_up.h"
#include "i18n/notices.h"
#include "i18n/string_table.h"
#include "link/serial_link.h"
#include "link/zone_routing.h"
#include "mixer/mixer_access.h"
#include "mixer/mixer_window.h"
#include "mixer/sound_lines.h"
#include "music/fades.h"
#include "music/music_player.h"
#include "music/music_schedule.h"
#include "music/playlist_editor.h"
#include "music/playlist_files.h"
#include "platform/pc.h"
#include "schedule/conflicts.h"
#include "schedule/interval_panel.h"
#include "schedule/message_playback.h"
#include "schedule/message_preview.h"
#include "schedule/message_wavs.h"
#include "schedule/missed_minutes.h"
#include "schedule/open_sequences.h"
#include "schedule/schedule_columns.h"
#include "schedule/schedule_table.h"
#include "schedule/schedule_tick.h"
#include "schedule/schedule_views.h"
#include "schedule/selected_messages.h"
#include "schedule/sequence_editor.h"
#include "schedule/time_fields.h"
#include "state/flags.h"
#include "state/previews.h"
#include "state/record.h"
#include "state/settings_store.h"
#include "windows/windows.h"

namespace marlex {

/// The whole application on the PC that it is given, composed from the bottom up. Several systems
/// can coexist, each on its own PC.
class System {
 public:
  explicit System(const Pc& pc);

  void Start() {
    TheRecord.ProgramStarts();
    StartUp_.Start();
  }

 private:
  Pc ThePc;

 public:
  Flags TheFlags;
  Previews ThePreviews;
  Record TheRecord;
  StringTable Strings;
  Notices TheNotices;
  SettingsStore Store;
  Windows TheWindows;
  FrmPlayers TheFrmPlayers;
  FrmMxr TheFrmMxr;
  MixerAccess Mixer;
  MixerWindow TheMixerWindow;
  SoundLines Lines;
  ZoneRouting Routing;
  SerialLink Link;
  Fades TheFades;
  MusicPlayer Music;
  PlaylistFiles Playlist;
  PlaylistEditor ThePlaylistEditor;
  MusicSchedule MusicClock;
  ScheduleColumns Columns;
  Conflicts TheConflicts;
  ScheduleTable Table;
  ScheduleViews Views;
  OpenSequences Sequences;
  MessageWavs Wavs;
  MessagePlayback Playback;
  ScheduleTick Tick;
  MissedMinutes Missed;
  SelectedMessages Selected;
  IntervalPanel Interval;
  TimeFields Times;
  MessagePreview Preview;
  SequenceEditor Editor;
  CallSequence Call;
  FunctionKeys Keys;
  MainWindow TheMainWindow;
  SettingsDialog TheSettingsDialog;
  Pickers ThePickers;
  SettingsLoader Loader;
  DayPlan TheDay;
  Faults TheFaults;
  Passerby ThePasserby;

 private:
  StartUp StartUp_;
};

}  // namespace marlex
