#include "windows/frm_playlist.h"

#include "windows/captions.h"

namespace marlex {

FrmPlaylist::FrmPlaylist(const Directories& files)
    : Form("frmPlaylist", "Music playlist:"), MP3List(*this, "MP3List", files) {
  DesignMenus();
  DesignSelection();
  DesignStart();
  MP3List.Visible = false;
  lstRandom.Visible = false;
}

void FrmPlaylist::DesignMenus() {
  Text(mnuFile, "File", "270");
  Text(mnuOpen, "Open playlist", "881");
  Text(mnuSave, "Save playlist", "882");
  Text(mnuExit, "Exit", "310");
}

void FrmPlaylist::DesignSelection() {
  Text(frMessageSelection, "Background music selection", "880");
  Text(WavText, "Available music", "890");
  Text(Label3, "Selected music", "900");
  Text(cmdSelectAll, "Select all", "910");
  Text(RemoveKey, "Remove", "920");
  Text(RemAll_Key, "Remove all", "930");
  Text(cmdRandomize, "Randomize", "940");
  Text(PrevKey, "Play", "230");
  AvailMP3s.ClickActs = true;
  SelectedMP3s.ShowsNewest = true;
  RemoveKey.Enabled = false;
  PrevKey.Enabled = false;
}

void FrmPlaylist::DesignStart() {
  Text(Frame1, "Background music start", "950");
  Text(optScheduled[kScheduled], "Scheduled", "980");
  Text(optScheduled[kManual], "Manual", "970");
  Text(optScheduled[kAutostart], "Autostart", "960");
  optScheduled[kAutostart].SetValue(true);
  Text(frMusicTime, "Background music schedule", "990");
  Text(Label1, "Starts at:", "14");
  Text(Label2, "Stops at:", "16");
  Text(Label5, " M  T  W   T   F   S   S", "871");
  frMusicTime.Visible = false;
}

}  // namespace marlex
