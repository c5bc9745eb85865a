#include "windows/frm_main.h"

#include "windows/captions.h"

namespace marlex {

FrmMain::FrmMain(EventLoop& loop)
    : Form("frmMain", kCaption), Seconds(*this, "Seconds", loop, 450, true) {
  DesignTexts();
  DesignMenus();
  DesignSizes();
  grdSchedule.MarkColumn = kTimeColumn;
  grdSchedule.NarrowColumn = kNameColumn;
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
  Text(mnuFile, "File", "270");
  Text(mnuOpen, "Open music playlist", "280");
  Text(mnuSequence, "Open message schedule(s)", "290");
  Text(mnuClose, "Close message schedule(s)", "300");
  Text(mnuExit, "Exit", "310");
  Text(mnuEdit, "Edit", "320");
  Text(mnuPlaylist, "Music playlist", "330");
  Text(mnuSchedule, "Message schedule", "340");
  Text(mnuFKeys, "Function keys");
  Text(mnuSettings, "Settings", "480");
  Text(mnuView, "View", "490");
  Text(mnuSchedules, "Schedules", "500");
  Text(mnuCurrentDay, "Schedule for current day", "510");
  Text(mnuAllDays, "All days", "520");
  Text(mnuScheduleName, "Schedule name(s)", "530");
  Text(mnuAbout, "Help", "540");
  Text(mnuAdresses, "Contact", "560");
  Text(mnuAboutbox, "About Tolvo Marlex", "590");
  // Deliberate: nothing fires a stored function key, so the menu that leads to their editor is
  // disabled in every installation.
  mnuFKeys.Enabled = false;
}

void FrmMain::DesignSizes() {
  Height = 6525;
  SetTransportHeight(kTransportHeight);
  SizeSchedule(true, false);
  PlaceConflictNote(true);
  lblMusic.Top = 840;
  for (int zone = 0; zone < kZones; ++zone) {
    cmdMusicZones[zone].Height = kZoneButtonHeight;
    cmdCallZone[zone].Height = kZoneButtonHeight;
  }
}

void FrmMain::EnableTransport(bool enabled) {
  cmdPlay.Enabled = enabled;
  EnableSkipAndStop(enabled);
}

void FrmMain::EnableSkipAndStop(bool enabled) {
  cmdSkip.Enabled = enabled;
  cmdStop.Enabled = enabled;
}

void FrmMain::SetTransportHeight(int height) {
  for (CommandButton* button : {&cmdPlay, &cmdSkip, &cmdStop}) button->Height = height;
}

bool FrmMain::BusyLampsAreLit() { return lblBusy[0].BackColor == kGreen; }

void FrmMain::PaintBusyLamps(Color color) {
  lblBusy[0].BackColor = color;
  lblBusy[1].BackColor = color;
}

void FrmMain::SizeSchedule(bool low, bool withNote) {
  if (withNote) {
    frSchedule.Height = low ? 3855 : 5295;
    grdSchedule.Height = low ? 3525 : 4965;
  } else {
    frSchedule.Height = low ? 4095 : 5655;
    grdSchedule.Height = low ? 3765 : 5325;
  }
}

void FrmMain::PlaceConflictNote(bool low) { lblConflict.Top = low ? 4005 : 5520; }

}  // namespace marlex
