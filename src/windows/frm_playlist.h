#pragma once

#include "controls/file_lists.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/widgets.h"
#include "windows/wav_window.h"

namespace marlex {

/// The editor for playlists of background music.
struct FrmPlaylist : Form {
  explicit FrmPlaylist(const Directories& files);

  // The choices of `optScheduled`.
  static constexpr int kScheduled = 0;
  static constexpr int kManual = 1;
  static constexpr int kAutostart = 2;

  Menu mnuFile{*this, "mnuFile"};
  Menu mnuOpen{*this, "mnuOpen"};
  Menu mnuSave{*this, "mnuSave"};
  Menu mnuExit{*this, "mnuExit"};

  Frame frMessageSelection{*this, "frMessageSelection"};
  Label WavText{*this, "WavText"};  // heading of the available music
  ListBox AvailMP3s{*this, "AvailMP3s"};
  CommandButton cmdSelectAll{*this, "cmdSelectAll"};
  Label Label3{*this, "Label3"};  // heading of the music in the playlist
  ListBox SelectedMP3s{*this, "SelectedMP3s"};
  CommandButton RemoveKey{*this, "RemoveKey"};
  CommandButton RemAll_Key{*this, "RemAll_Key"};
  CommandButton cmdRandomize{*this, "cmdRandomize"};
  CommandButton PrevKey{*this, "PrevKey"};

  Frame Frame1{*this, "Frame1"};
  ControlArray<OptionButton> optScheduled{*this, "optScheduled", kScheduled, kAutostart};

  Frame frMusicTime{*this, "frMusicTime"};
  Label Label1{*this, "Label1"};  // beside the start time
  ComboBox cmbStartHours{*this, "cmbStartHours"};
  ComboBox cmbStartMinutes{*this, "cmbStartMinutes"};
  Label Label2{*this, "Label2"};  // beside the stop time
  ComboBox cmbStopHours{*this, "cmbStopHours"};
  ComboBox cmbStopMinutes{*this, "cmbStopMinutes"};
  Label Label5{*this, "Label5"};                                       // heading of the days
  ControlArray<CheckBox> chkDays{*this, "chkDays", 0, kWeekdays - 1};  // Monday first

  // Never shown: the files of the music directory, and the workspace of the shuffle.
  FileListBox MP3List;
  ListBox lstRandom{*this, "lstRandom"};

 private:
  void DesignMenus();
  void DesignSelection();
  void DesignStart();
};

}  // namespace marlex
