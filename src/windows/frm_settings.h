#pragma once

#include "controls/form.h"
#include "controls/widgets.h"
#include "windows/frm_main.h"

namespace marlex {

/// The settings dialog. Lengths are in twips.
struct FrmSettings : Form {
  FrmSettings();

  // The window is lower when the frames for the router amplifier are hidden.
  static constexpr int kRouterHeight = 6645;
  static constexpr int kRouterButtonTop = 5640;
  static constexpr int kPlainHeight = 5565;
  static constexpr int kPlainButtonTop = 4560;

  ControlArray<Label> Explain{*this, "Explain", 0, 1};
  Label lblBGDir_Name{*this, "lblBGDir_Name"};
  CommandButton cmdBgBrowse{*this, "cmdBgBrowse"};
  Label lblMsgDir_Name{*this, "lblMsgDir_Name"};
  CommandButton cmdMsgBrowse{*this, "cmdMsgBrowse"};

  Frame frVolume{*this, "frVolume"};
  Frame frMasterVol{*this, "frMasterVol"};
  Slider slMasterVolume{*this, "slMasterVolume"};
  Frame frMusicVol{*this, "frMusicVol"};
  Slider slMusicVolume{*this, "slMusicVolume"};
  Frame frMesVolume{*this, "frMesVolume"};
  Slider slMessageVolume{*this, "slMessageVolume"};
  Frame frMicroVolume{*this, "frMicroVolume"};
  Slider slMicroVolume{*this, "slMicroVolume"};

  Frame Frame3{*this, "Frame3"};
  OptionButton optFast{*this, "optFast"};
  OptionButton optSlow{*this, "optSlow"};

  Frame Frame1{*this, "Frame1"};
  ControlArray<OptionButton> optTolvo{*this, "optTolvo", 0, 1};  // 0 is the router amplifier

  // In the same place: the chimes, or a note that there is no microphone.
  Frame frChimes{*this, "frChimes"};
  CheckBox chkPreChime{*this, "chkPreChime"};
  CommandButton cmdPreSelect{*this, "cmdPreSelect"};
  Label lblPreChime{*this, "lblPreChime"};
  CheckBox chkPostChime{*this, "chkPostChime"};
  CommandButton cmdPostSelect{*this, "cmdPostSelect"};
  Label lblPostChime{*this, "lblPostChime"};
  Frame frSound{*this, "frSound"};
  Label lblSound{*this, "lblSound"};

  // Only with the router amplifier.
  Frame frNames{*this, "frNames"};
  ControlArray<TextBox> txtZoneName{*this, "txtZoneName", 0, kZones - 1};
  Frame frPort{*this, "frPort"};
  ControlArray<OptionButton> optCom{*this, "optCom", 0, 1};  // ports 1 and 2
  Frame frPriority{*this, "frPriority"};
  ControlArray<OptionButton> optPriority{*this, "optPriority", 0, 1};  // low and high

  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdCancel{*this, "cmdCancel"};

 private:
  void DesignDirectories();
  void DesignSound();
  void DesignAmplifier();
};

}  // namespace marlex
