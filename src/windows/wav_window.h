#pragma once

#include "controls/file_lists.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/timer.h"
#include "controls/widgets.h"
#include "state/week_time.h"
#include "windows/frm_main.h"

namespace marlex {

inline constexpr int kFunctionKeys = 12;  // F1 to F12

/// The message schedule editor, in which the operator composes one sequence. Lengths are in twips.
struct WavWindow : Form {
  WavWindow(EventLoop& loop, const Directories& files);

  static constexpr int kRouterHeight = 6825;
  static constexpr int kRouterTimeHeight = 3015;
  static constexpr int kPlainHeight = 6090;
  static constexpr int kPlainTimeHeight = 2175;
  static constexpr int kZonesTop = 2160;

  Frame frMessageSelection{*this, "frMessageSelection"};
  Label WavText{*this, "WavText"};
  ListBox AvailWavs{*this, "AvailWavs"};  // names of the available messages
  Label Label3{*this, "Label3"};
  ListBox SelectedWavs{*this, "SelectedWavs"};  // the sequence: names in playing order
  Label Label4{*this, "Label4"};
  Label lblTotalTime{*this, "lblTotalTime"};  // seconds; its text is the only store of the total
  CommandButton PrevKey{*this, "PrevKey"};
  CommandButton RemoveKey{*this, "RemoveKey"};
  CommandButton RemAll_Key{*this, "RemAll_Key"};

  Frame frTimeSetting{*this, "frTimeSetting"};
  Frame frHours{*this, "frHours"};
  TextBox txtHours{*this, "txtHours"};
  Label lblHours{*this, "lblHours"};
  // In the same place: the minutes, or a panel that fills them in at an interval.
  Frame frMinutes{*this, "frMinutes"};
  TextBox txtMinutes{*this, "txtMinutes"};
  Label lblMinutes{*this, "lblMinutes"};
  CommandButton cmdInterval{*this, "cmdInterval"};
  Frame frInterval{*this, "frInterval"};
  ControlArray<OptionButton> optInterval{*this, "optInterval", {2, 5, 10, 15, 20, 30}};
  Label Label1{*this, "Label1"};
  ComboBox cmbStart{*this, "cmbStart"};  // starting minute
  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdCancel{*this, "cmdCancel"};

  Frame frWeekDays{*this, "frWeekDays"};
  Label lblWeekdays{*this, "lblWeekdays"};
  ControlArray<CheckBox> WkDays{*this, "WkDays", 0, kWeekdays - 1};  // Monday to Sunday
  Frame frZones{*this, "frZones"};
  ControlArray<ToggleButton> cmdZone{*this, "cmdZone", 0, kZones - 1};
  Frame frMode{*this, "frMode"};
  OptionButton optExact{*this, "optExact"};
  OptionButton optBetween{*this, "optBetween"};

  Menu mnuFile{*this, "mnuFile"};
  Menu mnuOpen{*this, "mnuOpen"};
  Menu mnuSave{*this, "mnuSave"};
  Menu mnuExit{*this, "mnuExit"};
  Menu mnuKey{*this, "mnuKey"};
  ControlArray<Menu> mnuFKey{*this, "mnuFKey", 1, kFunctionKeys};

  // Never shown.
  ListBox AvailableFiles{*this, "AvailableFiles"};  // file names of `AvailWavs`, in its order
  FileListBox WavList;                              // reads the directory
  ListBox SelectedFiles{*this, "SelectedFiles"};    // likewise of `SelectedWavs`
  Label lblDescription{*this, "lblDescription"};
  TextBox txtDescription{*this, "txtDescription"};
  CheckBox Repeat{*this, "Repeat"};  // has no effect

  Timer tmrWriteDelay;  // one-shot pause after a save

 private:
  void DesignTexts();
  void DesignMenus();
};

}  // namespace marlex
