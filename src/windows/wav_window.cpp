#include "windows/wav_window.h"

#include "windows/captions.h"

namespace marlex {

WavWindow::WavWindow(EventLoop& loop, const Directories& files)
    : Form("WavWindow", "Message schedule"),
      WavList(*this, "WavList", files),
      tmrWriteDelay(*this, "tmrWriteDelay", loop, 500, false) {
  DesignTexts();
  DesignMenus();
  AvailWavs.ClickActs = true;
  SelectedWavs.ShowsNewest = true;
  optExact.Group = frMode.Name;
  optBetween.Group = frMode.Name;
  optExact.SetValue(true);
  for (VisualControl* control : std::initializer_list<VisualControl*>{
           &AvailableFiles, &WavList, &SelectedFiles, &Repeat, &lblDescription, &txtDescription}) {
    control->Visible = false;
    control->NeverShown = true;
  }
  frInterval.Visible = false;
  Height = kPlainHeight;
  frTimeSetting.Height = kPlainTimeHeight;
}

void WavWindow::DesignTexts() {
  Text(frMessageSelection, "Message selection", "350");
  Text(WavText, "Available messages", "360");
  Text(Label3, "Selected sequence", "370");
  Text(Label4, "Total time in sec.", "380");
  Text(PrevKey, "Play", "230");
  Text(RemoveKey, "Remove", "920");
  Text(RemAll_Key, "Remove all", "930");
  Text(frTimeSetting, "Time setting (in 24 hours format)");
  Text(frHours, "Hours", "400");
  Text(lblHours, "e.g. 1,2,3 or 1-5", "38");
  Text(frMinutes, "Minutes", "410");
  Text(lblMinutes, "e.g. 10,20,30", "62");
  Text(cmdInterval, "Interval", "420");
  Text(frInterval, "Interval (minutes)", "32");
  Text(Label1, "starting at:", "34");
  for (const auto& interval : optInterval) {
    interval->Caption = std::to_string(interval->Index);
  }
  Text(cmdOK, "OK");
  Text(cmdCancel, "Cancel");
  Text(frWeekDays, "Weekdays", "430");
  Text(lblWeekdays, " M  T  W   T   F   S   S", "871");
  Text(frMode, "Sequence start", "440");
  Text(optExact, "At set time", "450");
  Text(optBetween, "At music break", "460");
  Text(lblDescription, "Description");
}

void WavWindow::DesignMenus() {
  Text(mnuFile, "File", "270");
  Text(mnuOpen, "Open message schedule", "341");
  Text(mnuSave, "Save message schedule", "342");
  Text(mnuExit, "Exit", "310");
  Text(mnuKey, "Function key");
  // The menu of the function keys is disabled in every installation.
  mnuKey.Enabled = false;
  for (const auto& key : mnuFKey) key->Caption = "F" + std::to_string(key->Index);
}

}  // namespace marlex
