#pragma once

#include <map>
#include <string>

#include "simulation/memory_disk.h"
#include "windows/windows.h"

namespace marlex {

/// Fills the windows with the captions and contents of a working day. `longer` makes every caption
/// 1.6 times as long, which is more than any language needs.
class Texts {
 public:
  explicit Texts(bool longer = false) : Longer(longer) {}

  void Fill(Windows& forms) {
    Fill(forms.frmMain);
    Fill(forms.frmSettings);
    Fill(forms.frmPlaylist);
    Fill(forms.TheWavWindow);
    Stretch(forms.frmDirSel);
    Stretch(forms.frmChimeSelect);
    Languages(forms.frmlangSel);
    for (Form* form : {static_cast<Form*>(&forms.frmLogo), static_cast<Form*>(&forms.frmAbout)})
      Stretch(*form);
  }

  std::string Word(const std::string& text) const {
    if (!Longer || text.empty()) return text;
    return text + text.substr(0, (text.size() * 6 + 9) / 10);
  }

 private:
  void Fill(FrmMain& main) {
    Stretch(main);
    main.frSchedule.Caption = "14:23:05" + Word(" Message time schedule ") + Word("today");
    main.frBGMusic.Caption = Word("Music playlist: Morning  Starts at: 08:00  Stops at: 18:30");
    main.lblMP3Number.Caption = "4/24";
    main.lblMP3Position.Caption = "1:07";
    main.lblMP3Length.Caption = "3:42";
    const char* zones[] = {"Entrance", "Hall A", "Hall B", "Canteen", "Workshop", "Car park"};
    for (int zone = 0; zone < kZones; ++zone) main.lblZoneName[zone].Caption = Word(zones[zone]);
    Songs(main);
    Heading(main.grdSchedule);
    main.mnuCurrentDay.Checked = true;
  }

  void Fill(FrmSettings& settings) {
    Stretch(settings);
    settings.lblBGDir_Name.Caption = Word("/home/operator/Music/Background/");
    settings.lblMsgDir_Name.Caption = Word("/home/operator/Messages/");
    settings.chkPreChime.Value = 1;
    settings.lblPreChime.Caption = Word("three_tones");
    settings.cmdPostSelect.Enabled = false;
    settings.lblPostChime.Visible = false;
    const char* zones[] = {"Entrance", "Hall A", "Hall B", "Canteen", "Workshop", "Car park"};
    for (int zone = 0; zone < kZones; ++zone) settings.txtZoneName[zone].Text = zones[zone];
    settings.slMasterVolume.Value = 9000;
    settings.slMusicVolume.Value = 30000;
    settings.slMessageVolume.Value = 15000;
    settings.slMicroVolume.Value = 52000;
    settings.optTolvo[0].SetValue(true);
    settings.optCom[0].SetValue(true);
    settings.optPriority[1].SetValue(true);
    settings.optFast.SetValue(true);
    settings.frSound.Visible = false;
  }

  void Fill(FrmPlaylist& playlist) {
    const std::string days = playlist.Label5.Caption;
    Stretch(playlist);
    playlist.Label5.Caption = days;  // letters, in every language
    playlist.Caption = Word("Music playlist") + " Morning.lst";
    Songs(playlist.AvailMP3s, 24);
    Songs(playlist.SelectedMP3s, 8);
    playlist.SelectedMP3s.SetListIndex(2);
    playlist.frMusicTime.Visible = true;
    playlist.optScheduled[FrmPlaylist::kScheduled].SetValue(true);
    const auto select = [](ComboBox& list, const std::string& text) {
      list.AddItem(text);
      list.SetListIndex(0);
    };
    select(playlist.cmbStartHours, "08");
    select(playlist.cmbStartMinutes, "00");
    select(playlist.cmbStopHours, "18");
    select(playlist.cmbStopMinutes, "30");
    for (int day = 0; day < 5; ++day) playlist.chkDays[day].Value = 1;
    playlist.RemoveKey.Enabled = true;
    playlist.PrevKey.Enabled = true;
  }

  void Fill(WavWindow& editor) {
    const std::string days = editor.lblWeekdays.Caption;
    Stretch(editor);
    editor.lblWeekdays.Caption = days;  // letters, in every language
    editor.Caption = Word("Message schedule") + " Offers.sch";
    for (const char* name : {"closing", "fire drill", "gong", "lost child", "offers of the day"})
      editor.AvailWavs.AddItem(name);
    for (const char* name : {"gong", "offers of the day", "gong"})
      editor.SelectedWavs.AddItem(name);
    editor.SelectedWavs.SetListIndex(1);
    editor.lblTotalTime.Caption = "14.2";
    editor.txtHours.Text = "9-18";
    editor.txtMinutes.Text = "00,30";
    for (int day = 0; day < 5; ++day) editor.WkDays[day].Value = 1;
    const char* zones[] = {"Hall", "Yard", "Entrance", "Car park", "Office", "Store"};
    for (int zone = 0; zone < kZones; ++zone) editor.cmdZone[zone].Caption = Word(zones[zone]);
    editor.cmdZone[0].Value = true;
    editor.cmdZone[2].Value = true;
    editor.optInterval[15].SetValue(true);
    editor.cmbStart.AddItem("0");
    editor.cmbStart.SetListIndex(0);
  }

  void Songs(FrmMain& main) {
    Songs(main.lstPlaylist, 24);
    main.lstPlaylist.SetListIndex(3);
    main.lstPlaylist.ToolTipText = "Double-click to play song";
  }

  void Songs(ListBox& list, int count) {
    const char* songs[] = {"Evening walk",   "Harbour lights", "Blue tram",       "Morning market",
                           "Paper lanterns", "Slow river",     "Garden of glass", "First snow",
                           "Two bicycles",   "Sunday radio",   "Window seat",     "North wind"};
    for (int song = 1; song <= count; ++song) {
      const std::string number = (song < 10 ? "0" : "") + std::to_string(song);
      list.AddItem(number + " " + songs[song * 5 % 12]);
    }
  }

  void Heading(Grid& grid) {
    const char* texts[] = {"Time", "", "Routing", "Schedule", "Message info"};
    const int widths[] = {600, 0, 800, 1800, 6500};
    for (int column = 0; column < Grid::kColumns; ++column) {
      grid.SetTextMatrix(0, column, Word(texts[column]));
      grid.SetColWidth(column, widths[column]);
      grid.SetColAlignment(column,
                           column < kNameColumn ? GridAlignment::Centre : GridAlignment::Left);
    }
  }

  void Stretch(Form& form) {
    for (Control* control : form.Controls) {
      auto* visual = dynamic_cast<VisualControl*>(control);
      const bool isDigit = visual && visual->Caption.Get().size() < 2;
      if (visual && !isDigit) visual->Caption = Word(visual->Caption);
    }
  }

  void Languages(FrmLangSel& form) {
    const char* names[] = {"English",   "French",    "German",  "Spanish", "Finnish",
                           "Hungarian", "Greek",     "Russian", "Hebrew",  "Turkish",
                           "Dutch",     "Norwegian", "Italian", "Swedish"};
    for (int language = 0; language < FrmLangSel::kLanguages; ++language) {
      form.optLanguage[language].Caption = Word(names[language]);
    }
    form.optLanguage[0].SetValue(true);
  }

  bool Longer;
};

/// The media of a small shop, in the operator's home.
inline void FillMedia(MemoryDisk& disk) {
  const std::string home = std::string(MemoryDisk::kHome) + "/";
  for (const char* song : {"Blue tram", "Evening walk", "First snow", "Harbour lights"})
    disk.AddMp3(home + "Music/" + song + ".mp3", 1000);
  for (const char* directory : {"Background", "Christmas", "Sundays"})
    disk.AddDirectory(home + "Music/" + directory);
  for (const char* message : {"closing_time", "gong", "good_morning", "three_tones"})
    disk.AddWav(home + "Messages/" + message + ".wav", 1000);
}

/// A day's rows, every half hour from seven on.
inline void FillSchedule(Grid& grid, int rows) {
  const char* messages[] = {"gong,good_morning", "gong,lunch_break", "closing_time,gong",
                            "fire_drill_test,thank_you"};
  const char* names[] = {"Morning", "Breaks", "Closing", "Safety"};
  grid.SetRows(rows + 1);
  for (int row = 1; row <= rows; ++row) {
    const int minutes = 7 * 60 + (row - 1) * 30;
    const auto two = [](int value) {
      return std::string(value < 10 ? "0" : "") + std::to_string(value);
    };
    grid.SetTextMatrix(row, kTimeColumn,
                       two(minutes / 60 % 24) + ":" + two(minutes % 60) + (row % 3 ? "  " : "+"));
    grid.SetTextMatrix(row, kDaysColumn, "1234500");
    grid.SetTextMatrix(row, kRoutingColumn, row % 2 ? "123456" : "120000");
    grid.SetTextMatrix(row, kNameColumn, names[row % 4]);
    grid.SetTextMatrix(row, kMessagesColumn, messages[row % 4]);
  }
}

inline void PaintRow(Grid& grid, int row, Color back, Color text) {
  grid.SetRow(row);
  for (int column = 0; column < Grid::kColumns; ++column) {
    grid.SetCol(column);
    grid.SetCellColors(back, text);
  }
}

}  // namespace marlex
