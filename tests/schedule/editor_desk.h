#pragma once

#include <string>
#include <vector>

#include "desk/desk.h"

namespace marlex {

/// A desk with the messages welcome (3 s), closing (2 s), gong (0.8 s) and alarm (12.35 s), and the
/// message schedule editor open. The sequence file that is open does not matter here.
struct EditorDesk : Desk {
  explicit EditorDesk(DeskOptions options = {}) : Desk(WithMessages(std::move(options))) {
    Click("mnuSchedule");
    Pc.Journal.Clear();
  }

  static constexpr const char* kFile = "/app/new.sch";

  WavWindow& TheWavWindow() { return Sys->TheWindows.TheWavWindow; }

  /// Clicks the messages in the list of available ones.
  void Add(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
      Do([this, name] {
        ListBox& list = TheWavWindow().AvailWavs;
        const int before = list.ListIndex();
        for (int entry = 0; entry < list.ListCount(); ++entry) {
          if (list.List(entry) != name) continue;
          list.SetListIndex(entry);
          if (entry == before) list.OnClick();  // a click on the selected entry
        }
      });
    }
  }

  /// Clicks an entry of the sequence.
  void SelectEntry(int entry) {
    Do([this, entry] {
      TheWavWindow().SelectedWavs.SetListIndex(entry);
      TheWavWindow().SelectedWavs.OnGotFocus();
    });
  }

  void Type(TextBox& box, const std::string& text) {
    Do([&box, text] { box.Text = text; });
  }

  /// A sequence that can be saved: welcome at 12:30 on Mondays.
  void Compose(const std::string& hours = "12", const std::string& minutes = "30") {
    Add({"welcome"});
    Type(TheWavWindow().txtHours, hours);
    Type(TheWavWindow().txtMinutes, minutes);
    Click("WkDays_0");
  }

  /// Chooses Save and a file in the dialog; an empty name cancels it.
  void SaveAs(const std::string& file) {
    Pc.Dialogs.OpenResults.push_back(file);
    Click("mnuSave");
    Advance(0);
  }
  void Open(const std::string& file) {
    Pc.Dialogs.OpenResults.push_back(file);
    Do([this] { TheWavWindow().mnuOpen.OnClick(); });
    Advance(0);
  }

  std::string Sequence() {
    std::string names;
    for (int entry = 0; entry < TheWavWindow().SelectedWavs.ListCount(); ++entry)
      names += (entry > 0 ? " " : "") + TheWavWindow().SelectedWavs.List(entry);
    return names;
  }
  std::string Total() { return TheWavWindow().lblTotalTime.Caption; }

  std::string Days() {
    std::string days;
    for (const auto& day : TheWavWindow().WkDays) days += day->Value != 0 ? '1' : '-';
    return days;
  }
  std::string Zones() {
    std::string zones;
    for (const auto& zone : TheWavWindow().cmdZone) zones += zone->Value ? '1' : '-';
    return zones;
  }

  /// Which of the three buttons of the sequence are enabled.
  std::string Buttons() {
    std::string buttons;
    for (const char* button : {"PrevKey", "RemoveKey", "RemAll_Key"}) {
      if (Enabled(button)) buttons += (buttons.empty() ? "" : " ") + std::string(button);
    }
    return buttons;
  }

  std::string Saved(const std::string& key, const std::string& file = kFile) {
    return Setting("Schedule", key, file);
  }

  /// "title: body" of the last box; empty if there was none.
  std::string LastBox() {
    if (Pc.Dialogs.Boxes.empty()) return "";
    const auto& box = Pc.Dialogs.Boxes.back();
    return box.Caption + ": " + box.Body;
  }

 private:
  static DeskOptions WithMessages(DeskOptions options) {
    options.Messages = {{"welcome", 3000}, {"closing", 2000}, {"gong", 800}, {"alarm", 12'350}};
    return options;
  }
};

}  // namespace marlex
