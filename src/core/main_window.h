#pragma once

#include "i18n/notices.h"
#include "i18n/string_table.h"
#include "link/zone_routing.h"
#include "mixer/sound_lines.h"
#include "music/playlist_files.h"
#include "platform/pc.h"
#include "schedule/schedule_columns.h"
#include "schedule/sequence_files.h"
#include "state/settings_store.h"
#include "windows/windows.h"

namespace marlex {

/// The main window: what it shows at its load and how it adapts to the installation, its clock, and
/// the way out.
class MainWindow {
 public:
  MainWindow(Pc& pc, SettingsStore& store, Windows& windows, FrmPlayers& frmPlayers, FrmMxr& frmMxr,
             SoundLines& lines, const StringTable& strings, ScheduleColumns& columns,
             PlaylistFiles& playlist, SequenceFiles& sequences, ZoneRouting& routing,
             Notices& notices);

  /// Adapts what stands on the screen to another type of amplifier.
  void RedoLayout();

  /// Puts the names of the zones on their labels.
  void ShowZoneNames();

  /// Hides what is of no use without a microphone. Nothing brings it back while the application
  /// runs.
  void ArrangeCallControls();

  /// Ends the application at once, with the release byte on the line. Nothing is asked and nothing
  /// needs saving.
  void mnuExit_Click();

 private:
  void Load();
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
  SequenceFiles& Sequences;
  ZoneRouting& Routing;
  Notices& TheNotices;
};

}  // namespace marlex
