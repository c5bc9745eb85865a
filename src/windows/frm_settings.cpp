#include "windows/frm_settings.h"

#include "windows/captions.h"

namespace marlex {

FrmSettings::FrmSettings() : Form("frmSettings", "Settings") {
  DesignDirectories();
  DesignSound();
  DesignAmplifier();
  Text(cmdOK, "OK");
  Text(cmdCancel, "Cancel", "770");
  cmdOK.Top = kPlainButtonTop;
  cmdCancel.Top = kPlainButtonTop;
  Height = kPlainHeight;
}

void FrmSettings::DesignDirectories() {
  Text(Explain[0], "Directory where the MP3 background music files are stored", "620");
  Text(Explain[1], "Directory where the wav message file are stored", "630");
  Text(cmdBgBrowse, "Browse", "610");
  Text(cmdMsgBrowse, "Browse", "610");
}

void FrmSettings::DesignSound() {
  Text(frVolume, "Volume setting", "640");
  Text(frMasterVol, "Master", "650");
  Text(frMusicVol, "Music", "870");
  Text(frMesVolume, "Msg", "670");
  Text(frMicroVolume, "Mic", "680");
  Text(Frame3, "Fading time", "690");
  Text(optFast, "Fast", "700");
  Text(optSlow, "Slow", "710");
  optFast.Group = Frame3.Name;
  optSlow.Group = Frame3.Name;
  Text(frChimes, "Chime setting", "740");
  Text(chkPreChime, "Chime precedes call", "750");
  Text(chkPostChime, "Chime succeeds call", "760");
  Text(cmdPreSelect, "Select");
  Text(cmdPostSelect, "Select");
  Text(lblSound, "Microphone function not available due to limitations of the PC sound system");
}

void FrmSettings::DesignAmplifier() {
  Text(Frame1, "Amplifier type", "720");
  Text(optTolvo[0], "QRT4410/20");
  Text(optTolvo[1], "Other Tolvo", "730");
  Text(frNames, "Zone names", "780");
  for (int zone = 0; zone < kZones; ++zone) {
    txtZoneName[zone].Text = "Zone " + std::to_string(zone + 1);
  }
  Text(frPort, "Com port", "830");
  Text(optCom[0], "Com 1", "840");
  Text(optCom[1], "Com 2", "850");
  Text(frPriority, "Priority", "800");
  Text(optPriority[0], "Low", "810");
  Text(optPriority[1], "High", "820");
}

}  // namespace marlex
