#pragma once

#include "amplifier/zones.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/list_box.h"
#include "controls/timer.h"
#include "controls/widgets.h"

namespace marlex {

/// Columns of `grdSchedule`.
enum ScheduleColumn : int {
  kTimeColumn,
  kDaysColumn,
  kRoutingColumn,
  kNameColumn,
  kMessagesColumn
};

/// The main window. Lengths are in twips.
struct FrmMain : Form {
  explicit FrmMain(EventLoop& loop);

  static constexpr const char* kCaption = "Tolvo Marlex";
  static constexpr int kTransportHeight = 615;
  static constexpr int kShrunkenTransportHeight = 255;  // makes room for `lblHiPrio`
  static constexpr int kZoneButtonHeight = 255;
  static constexpr int kTallZoneButtonHeight = 616;

  Frame frBGMusic{*this, "frBGMusic"};
  ListBox lstPlaylist{*this, "lstPlaylist"};

  Frame Frame4{*this, "Frame4"};
  Frame Frame2{*this, "Frame2"};
  Label lblMP3Number{*this, "lblMP3Number"};
  Frame Frame3{*this, "Frame3"};
  Label lblMP3Position{*this, "lblMP3Position"};
  Frame Frame1{*this, "Frame1"};
  Label lblMP3Length{*this, "lblMP3Length"};
  CommandButton cmdPlay{*this, "cmdPlay"};
  CommandButton cmdSkip{*this, "cmdSkip"};
  CommandButton cmdStop{*this, "cmdStop"};
  Label lblHiPrio{*this, "lblHiPrio"};

  Frame frSchedule{*this, "frSchedule"};
  Grid grdSchedule{*this, "grdSchedule"};
  Label lblConflict{*this, "lblConflict"};

  Frame frRouting{*this, "frRouting"};
  ControlArray<Label> lblZoneName{*this, "lblZoneName", 0, kZones - 1};
  ControlArray<Label> lblCurrentZone{*this, "lblCurrentZone", 0, kZones - 1};
  ControlArray<ToggleButton> cmdMusicZones{*this, "cmdMusicZones", 0, kZones - 1};
  ControlArray<ToggleButton> cmdCallZone{*this, "cmdCallZone", 0, kZones - 1};
  Label lblMusic{*this, "lblMusic"};
  Label lblCall{*this, "lblCall"};
  CommandButton cmdCall{*this, "cmdCall"};
  ControlArray<Label> lblBusy{*this, "lblBusy", 0, 1};

  Frame frCall{*this, "frCall"};
  CommandButton cmdCall2{*this, "cmdCall2"};

  Menu mnuFile{*this, "mnuFile"};
  Menu mnuOpen{*this, "mnuOpen"};
  Menu mnuSequence{*this, "mnuSequence"};
  Menu mnuClose{*this, "mnuClose"};
  Menu mnuExit{*this, "mnuExit"};
  Menu mnuEdit{*this, "mnuEdit"};
  Menu mnuPlaylist{*this, "mnuPlaylist"};
  Menu mnuSchedule{*this, "mnuSchedule"};
  Menu mnuFKeys{*this, "mnuFKeys"};
  Menu mnuSettings{*this, "mnuSettings"};
  Menu mnuView{*this, "mnuView"};
  Menu mnuSchedules{*this, "mnuSchedules"};
  Menu mnuCurrentDay{*this, "mnuCurrentDay"};
  Menu mnuAllDays{*this, "mnuAllDays"};
  Menu mnuScheduleName{*this, "mnuScheduleName"};
  Menu mnuAbout{*this, "mnuAbout"};
  Menu mnuAdresses{*this, "mnuAdresses"};
  Menu mnuAboutbox{*this, "mnuAboutbox"};

  Timer Seconds;  // updates the clock in the caption of `frSchedule`

  /// Enables or disables Play, Skip and Stop together.
  void EnableTransport(bool enabled);
  /// Enables or disables Skip and Stop, which apply only to a playing song.
  void EnableSkipAndStop(bool enabled);
  void SetTransportHeight(int height);

  bool BusyLampsAreLit();
  void PaintBusyLamps(Color color);

  /// Sets the heights in the schedule column. It is `low` when a router or a call station needs the
  /// lower part of the window; the note about conflicts takes its space from the table.
  void SizeSchedule(bool low, bool withNote);
  void PlaceConflictNote(bool low);

 private:
  void DesignTexts();
  void DesignMenus();
  void DesignSizes();
};

}  // namespace marlex
