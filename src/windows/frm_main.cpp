#include "windows/frm_main.h"

#include "windows/captions.h"

namespace marlex {

FrmMain::FrmMain(EventLoop& loop)
    : Form("frmMain", kCaption), Seconds(*this, "Seconds", loop, 450, true) {
  DesignTexts();
  DesignMenus();
  DesignSizes();
  lblHiPrio.Visible = false;
  lblConflict.Visible = false;
  lblConflict.BackColor = kRed;
  lblConflict.ForeColor = kWhite;
}

void FrmMain::DesignTexts() {
  Text(frBGMusic, "Background music playlist", "170");
  Text(Frame1, "Length", "200");
  Text(Frame2, "Position", "220");
  Text(Frame3, "Time", "210");
  Text(cmdPlay, "Play", "230");
  Text(cmdSkip, "Skip", "240");
  Text(cmdStop, "Stop", "250");
  Text(frSchedule, " Message time schedule ", "180");
  Text(frRouting, "Routing", "860");
  Text(lblMusic, "Music", "870");
  Text(lblCall, "Call", "260");
  Text(cmdCall, "Call", "260");
  Text(cmdCall2, "Call", "260");
  for (int zone = 0; zone < kZones; ++zone) {
    lblCurrentZone[zone].Caption = std::to_string(zone + 1);
  }
}

void FrmMain::DesignMenus() {
  mnuFile.Caption = "File";
  mnuOpen.Caption = "Open music playlist";
  mnuSequence.Caption = "Open message schedule(s)";
  mnuClose.Caption = "Close message schedule(s)";
  mnuExit.Caption = "Exit";
  mnuEdit.Caption = "Edit";
  mnuPlaylist.Caption = "Music playlist";
  mnuSchedule.Caption = "Message schedule";
  mnuFKeys.Caption = "Function keys";
  mnuSettings.Caption = "Settings";
  mnuView.Caption = "View";
  mnuSchedules.Caption = "Schedules";
  mnuCurrentDay.Caption = "Schedule for current day";
  mnuAllDays.Caption = "All days";
  mnuScheduleName.Caption = "Schedule name(s)";
  mnuAbout.Caption = "Help";
  mnuAdresses.Caption = "Contact";
  mnuAboutbox.Caption = "About Tolvo Marlex";
  // Function keys can be stored but not fired; the way to them stays closed in every installation.
  mnuFKeys.Enabled = false;
}

void FrmMain::DesignSizes() {
  Height = 6525;
  for (CommandButton* key : {&cmdPlay, &cmdSkip, &cmdStop}) key->Height = kTransportKeyHeight;
  frSchedule.Height = 4095;
  grdSchedule.Height = 3765;
  lblConflict.Top = 4005;
  lblMusic.Top = 840;
  for (int zone = 0; zone < kZones; ++zone) {
    cmdMusicZones[zone].Height = kZoneKeyHeight;
    cmdCallZone[zone].Height = kZoneKeyHeight;
  }
}

}  // namespace marlex
