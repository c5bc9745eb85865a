#pragma once

#include <string>
#include <vector>

#include "music/music_desk.h"

namespace marlex {

/// A desk with the songs a, b and c and the playlist editor open.
struct PlaylistDesk : MusicDesk {
  explicit PlaylistDesk(DeskOptions options = {},
                        const std::function<void(SimulatedPc&)>& prepare = {})
      : MusicDesk(std::move(options), prepare) {
    Click("mnuPlaylist");
  }

  static constexpr const char* kFile = "/app/new.lst";

  FrmPlaylist& TheFrmPlaylist() { return Sys->TheWindows.frmPlaylist; }

  static std::string Join(const ListBox& list) {
    std::string entries;
    for (int entry = 0; entry < list.ListCount(); ++entry)
      entries += (entry > 0 ? " " : "") + list.List(entry);
    return entries;
  }
  std::string Available() { return Join(TheFrmPlaylist().AvailMP3s); }
  std::string Selected() { return Join(TheFrmPlaylist().SelectedMP3s); }

  /// Clicks songs of the music directory, each once.
  void Add(const std::vector<std::string>& songs) {
    for (const std::string& song : songs) Choose(TheFrmPlaylist().AvailMP3s, song);
  }

  /// Which of the buttons of the selected songs are enabled.
  std::string SongButtons() {
    std::string buttons;
    for (const char* button : {"RemoveKey", "RemAll_Key", "PrevKey"}) {
      if (Enabled(button)) buttons += (buttons.empty() ? "" : " ") + std::string(button);
    }
    return buttons;
  }

  /// The selected option, "Scheduled", "Manual" or "Autostart"; empty when there is none.
  std::string Choice() {
    std::string choices;
    for (const auto& option : TheFrmPlaylist().optScheduled) {
      if (option->Value()) choices += option->Caption.Get();
    }
    return choices;
  }

  /// What the time frame shows: "08:15-18:45 1-3----". An unset list is "__"; the contents of a
  /// hidden frame are in brackets.
  std::string Times() {
    const auto text = [](const ComboBox& list) { return list.Text().empty() ? "__" : list.Text(); };
    FrmPlaylist& form = TheFrmPlaylist();
    std::string shown = text(form.cmbStartHours) + ":" + text(form.cmbStartMinutes) + "-" +
                        text(form.cmbStopHours) + ":" + text(form.cmbStopMinutes) + " ";
    for (const auto& day : form.chkDays)
      shown += day->Value != 0 ? std::to_string(day->Index + 1) : "-";
    return form.frMusicTime.Visible ? shown : "(" + shown + ")";
  }

  void SetTimes(const std::string& startHours, const std::string& startMinutes,
                const std::string& stopHours, const std::string& stopMinutes) {
    Choose(TheFrmPlaylist().cmbStartHours, startHours);
    Choose(TheFrmPlaylist().cmbStartMinutes, startMinutes);
    Choose(TheFrmPlaylist().cmbStopHours, stopHours);
    Choose(TheFrmPlaylist().cmbStopMinutes, stopMinutes);
  }

  /// Chooses a menu item and a file in its dialog; an empty name cancels it.
  void SaveAs(const std::string& file = kFile) { ChooseFile(TheFrmPlaylist().mnuSave, file); }
  void Open(const std::string& file) { ChooseFile(TheFrmPlaylist().mnuOpen, file); }
  void OpenText(const std::string& text) {
    Pc.Disk.AddFile(kFile, text);
    Open(kFile);
  }

  void Exit() {
    Do([this] { TheFrmPlaylist().mnuExit.OnClick(); });
  }

  /// Text of a file; empty if there is none.
  std::string File(const std::string& file = kFile) { return Pc.Disk.Read(file).value_or(""); }

  /// All boxes so far as "title: body", one per line, with "!" before a critical one.
  std::string Boxes() {
    std::string boxes;
    for (const auto& box : Pc.Dialogs.Boxes) {
      boxes += (box.Icon == BoxIcon::Critical ? "!" : "") + box.Caption + ": " + box.Body + "\n";
    }
    return boxes;
  }

  /// The times in force: "08:15-18:45 1030500 autostart scheduled".
  std::string LiveTimes() {
    return Values().MusicStartTime + "-" + Values().MusicStopTime + " " + Values().MusicWeekDays +
           (Values().MusicAutostart ? " autostart" : "") +
           (Values().MusicScheduled ? " scheduled" : "");
  }

 private:
  // The main window has menus of the same names.
  void ChooseFile(Menu& menu, const std::string& file) {
    Pc.Dialogs.OpenResults = {file};
    Do([&menu] { menu.OnClick(); });
  }
};

}  // namespace marlex
