#pragma once

#include "i18n/notices.h"
#include "i18n/string_table.h"
#include "link/zone_routing.h"
#include "mixer/sound_lines.h"
#include "music/playlist_files.h"
#include "platform/pc.h"
#include "schedule/open_sequences.h"
#include "schedule/schedule_columns.h"
#include "state/record.h"
#include "state/settings_store.h"
#include "windows/windows.h"

namespace marlex {

/// The main window: what it shows when it loads, how it adapts to the installation, its clock, and
/// the exit.
class MainWindow {
 public:
  MainWindow(Pc& pc, SettingsStore& store, Windows& windows, FrmPlayers& frmPlayers, FrmMxr& frmMxr,
             SoundLines& lines, const StringTable& strings, ScheduleColumns& columns,
             PlaylistFiles& playlist, OpenSequences& sequences, ZoneRouting& routing,
             Record& record, Notices& notices);

  /// Adapts the window after the type of amplifier has changed.
  void RedoLayout();

  /// Shows the zone names of the settings on their labels.
  void ShowZoneNames();

  /// Hides the controls that are useless without a microphone. They stay hidden until the next
  /// start.
  void ArrangeCallControls();

  /// Sends the release byte, if there is a router, and ends the process. Asks nothing, and has
  /// nothing to save.
  void mnuExit_Click();

 private:
  void Load();
  void LoadAbout();
  void WriteHeadings();
  void ShowViewMenus();
  void LoadCurrentPlaylist();
  void ArrangeForInstallation();
  void ArrangeWithoutRouter();
  void LoadRouting();
  void ShowClock();  // Seconds
  void mnuAdresses_Click();

  Pc& ThePc;
  SettingsStore& Store;
  FrmMain& TheFrmMain;
  FrmAbout& TheFrmAbout;
  FrmPlayers& TheFrmPlayers;
  FrmMxr& TheFrmMxr;
  SoundLines& Lines;
  const StringTable& Strings;
  ScheduleColumns& Columns;
  PlaylistFiles& Playlist;
  OpenSequences& Sequences;
  ZoneRouting& Routing;
  Record& TheRecord;
  Notices& TheNotices;
};

}  // namespace marlex
