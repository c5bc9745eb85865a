#include "scenario/settings_hands.h"

#include <vector>

#include "windows/frm_mxr.h"

namespace marlex {

Deed ClickOn(const std::string& control) {
  return {"click " + control, [control](WatchedDesk& desk) {
            if (desk.Shows(control)) desk.Click(control);
          }};
}

void ClickEntry(ListBox& list, int place) {
  if (list.ListCount() == 0) return;
  const int entry = place % list.ListCount();
  const bool isClickAlone = entry == list.ListIndex();
  list.SetListIndex(entry);
  if (isClickAlone && list.OnClick) list.OnClick();
}

namespace {

using Texts = std::vector<std::string>;

bool PickerIsOpen(WatchedDesk& desk) {
  const Windows& windows = desk.Sys->TheWindows;
  return windows.frmDirSel.Visible || windows.frmChimeSelect.Visible;
}

/// Changes the type of the amplifier in one step, and only while the amplifier reports no call: a
/// port that is closed during a takeover never receives its end.
Deed ChangeAmplifier(const std::string& type) {
  return {"change the amplifier by " + type, [type](WatchedDesk& desk) {
            if (!desk.Main().Visible || desk.State().AmplifierStatus != 0) return;
            if (PickerIsOpen(desk)) return;
            desk.Click("mnuSettings");
            desk.Click(type);
            desk.Click("cmdOK");
            // Without its directories, as after an unreadable file, the dialog has refused.
            if (desk.Sys->TheWindows.frmSettings.Visible) desk.Click("cmdCancel");
          }};
}

Deed MoveSlider(Slider FrmSettings::*slider, const std::string& name, int position) {
  return {"move " + name + " to " + std::to_string(position),
          [slider, position](WatchedDesk& desk) {
            FrmSettings& settings = desk.Sys->TheWindows.frmSettings;
            if (!settings.Visible || !(settings.*slider).Enabled) return;
            desk.Do([&] { (settings.*slider).Value = position; });
          }};
}

}  // namespace

Deed DrawSettingsHand(Dice& dice) {
  static const Texts parts{"mnuSettings",   "mnuSettings",   "optFast",     "optSlow",
                           "optPriority_0", "optPriority_1", "chkPreChime", "chkPostChime",
                           "optCom_0",      "optCom_1",      "cmdOK",       "cmdOK",
                           "cmdCancel"};
  const int position = dice.OneIn(3) ? 0 : dice.Between(0, FrmMxr::kSilent);
  switch (dice.Between(1, 12)) {
    case 1:
      return ChangeAmplifier(dice.OneIn(2) ? "optTolvo_0" : "optTolvo_1");
    case 2:
      return MoveSlider(&FrmSettings::slMasterVolume, "slMasterVolume", position);
    case 3:
      return MoveSlider(&FrmSettings::slMusicVolume, "slMusicVolume", position);
    case 4:
      return MoveSlider(&FrmSettings::slMessageVolume, "slMessageVolume", position);
    case 5:
      return MoveSlider(&FrmSettings::slMicroVolume, "slMicroVolume", position);
    default:
      return ClickOn(dice.Of(parts));
  }
}

namespace {

/// Opens the settings first if they are closed.
Deed OpenPicker(const std::string& button) {
  return {"open a picker by " + button, [button](WatchedDesk& desk) {
            if (!desk.Shows(button) && desk.Shows("mnuSettings")) desk.Click("mnuSettings");
            if (desk.Shows(button)) desk.Click(button);
          }};
}

/// Half of the directories that are chosen are the ones that hold the installation's media.
void ChooseDirectory(WatchedDesk& desk, int place, bool right) {
  FrmDirSel& picker = desk.Sys->TheWindows.frmDirSel;
  if (right) {
    const bool music = desk.Sys->ThePickers.BrowsingMusicDirectory;
    desk.DoubleClick(picker.Dir1, "/");
    if (desk.Row(picker.Dir1, music ? "/music" : "/messages") != ListBox::kNoSelection)
      desk.Choose(picker.Dir1, music ? "/music" : "/messages");
  } else if (place % 5 == 0) {
    desk.Choose(picker.Drive1, picker.Drive1.List(place % picker.Drive1.ListCount()));
  } else if (place % 5 == 1) {
    desk.DoubleClick(picker.Dir1, picker.Dir1.List(place % picker.Dir1.ListCount()));
  } else {
    desk.Choose(picker.Dir1, picker.Dir1.List(place % picker.Dir1.ListCount()));
  }
}

Deed ChooseInPicker(int place, bool right) {
  return {
      "choose " + (right ? "the right entry" : "entry " + std::to_string(place)) + " of the picker",
      [place, right](WatchedDesk& desk) {
        Windows& windows = desk.Sys->TheWindows;
        ListBox& chimes = windows.frmChimeSelect.lstChimeList;
        if (windows.frmDirSel.Visible) {
          ChooseDirectory(desk, place, right);
        } else if (windows.frmChimeSelect.Visible && chimes.ListCount() > 0) {
          desk.Choose(chimes, chimes.List(place % chimes.ListCount()));
        }
      }};
}

}  // namespace

Deed DrawPickerHand(Dice& dice) {
  static const Texts buttons{"cmdBgBrowse", "cmdMsgBrowse", "cmdPreSelect", "cmdPostSelect"};
  switch (dice.Between(1, 8)) {
    case 1:
    case 2:
    case 3:
      return OpenPicker(dice.Of(buttons));
    case 4:
    case 5:
    case 6:
      return ChooseInPicker(dice.Between(0, 1000), dice.OneIn(2));
    case 7:
      return ClickOn("cmdOK");
    default:
      return ClickOn("cmdCancel");
  }
}

}  // namespace marlex
