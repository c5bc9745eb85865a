#pragma once

#include <string>

#include "desk/desk.h"

namespace marlex {

/// A change to the settings file before the program starts.
inline std::function<void(SimulatedPc&)> With(const std::string& section, const std::string& key,
                                              const std::string& value) {
  return [=](SimulatedPc& pc) { pc.Profiles.WriteString(section, key, value, Desk::kIni); };
}

/// A settings file with only this text, and media in the operator's home.
inline std::function<void(SimulatedPc&)> FirstRun(const std::string& text = "") {
  return [=](SimulatedPc& pc) {
    pc.Disk.AddFile(Desk::kIni, "[User language]\r\nLanguage=English\r\n" + text);
    pc.Disk.AddMp3("/home/operator/songs/march.mp3", 60'000);
    pc.Disk.AddWav("/home/operator/spots/gong.wav", 1000);
  };
}

/// A desk with the operator's hands and eyes on the settings dialog and its pickers.
struct SettingsDesk : Desk {
  using Desk::Desk;

  FrmSettings& TheFrmSettings() { return Sys->TheWindows.frmSettings; }
  FrmDirSel& DirSel() { return Sys->TheWindows.frmDirSel; }
  FrmChimeSelect& ChimeSelect() { return Sys->TheWindows.frmChimeSelect; }

  SettingsDesk& Open() {
    Click("mnuSettings");
    return *this;
  }
  void Move(marlex::Slider& slider, int position) {
    Do([&] { slider.Value = position; });
  }
  void Type(TextBox& box, const std::string& text) {
    Do([&] { box.Text = text; });
  }
  /// Bodies of the boxes so far, one per line.
  std::string BoxTexts() {
    std::string texts;
    for (const auto& box : Pc.Dialogs.Boxes) texts += box.Caption + ": " + box.Body + "\n";
    return texts;
  }
};

/// Entries of a list, one per line.
inline std::string Entries(const ListBox& list) {
  std::string entries;
  for (int row = 0; row < list.ListCount(); ++row) entries += list.List(row) + "\n";
  return entries;
}

}  // namespace marlex
