#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/system.h"
#include "simulation/simulated_pc.h"

namespace marlex {

/// A song or message and its length.
struct Medium {
  std::string Name;  // without extension
  int LengthMs = 180'000;
};

/// A sequence file as an operator would save it.
struct Sequence {
  std::string File = "spot.sch";
  std::string Messages = "welcome";
  std::string Hours = "12";
  std::string Minutes = "01";
  std::string Weekdays = "1234567";
  std::string Zones = "123456";
  std::string Timer = "Exact";
};

/// An installation. A test sets only what matters to it; the rest is a small shop on a Monday at
/// noon.
struct DeskOptions {
  std::vector<Medium> Music = {};
  std::vector<Medium> Messages = {{"welcome", 3000}, {"closing", 2000}};
  std::vector<Sequence> Sequences = {};
  bool Router = true;
  std::string ComPort = "1";  // where the amplifier is, too
  std::string Priority = "Low";
  std::string FadeTime = "Fast";
  int MusicVolume = 20000;
  int MessageVolume = 10000;
  int MasterVolume = 5000;
  int MicroVolume = 15000;
  std::string MusicRouting = "110000";
  std::string CallRouting = "001000";
  bool AllDays = false;
  bool ScheduleName = false;
  bool Microphone = true;
  std::string Language = "English";
  std::string StartTime = "";
  std::string StopTime = "";
  std::string WeekDays = "";
  std::string Autostart = "";
  std::string LastSong = "";
  std::string PreChime = "";
  std::string PostChime = "";
  std::vector<int> Now = {2024, 1, 1, 12, 0, 30};  // a Monday
};

/// The application on a simulated PC, with the hands and eyes of an operator. Time does not advance
/// between the calls.
class Desk {
 public:
  /// Creates the installation and starts the program up to its main window.
  explicit Desk(const DeskOptions& options = {});

  /// The same, with a last change to the PC before the start. When `start` is false the program is
  /// not started.
  Desk(const DeskOptions& options, const std::function<void(SimulatedPc&)>& prepare,
       bool start = true);
  ~Desk();

  static constexpr const char* kIni = "/app/Tolvo.ini";
  static constexpr const char* kPlaylist = "/app/Day.lst";

  void Start();    // up to the end of the splash
  void Restart();  // kills the program and starts it again on the same PC

  std::function<void()> OnRestart;  // a new system has been created and is about to start
  void Advance(int ms) { Pc.Loop.RunFor(ms); }
  void RunTo(int hour, int minute, int second = 0);  // of the wall clock, today or tomorrow

  // The operator's hands. A disabled or hidden control does not react.
  void Click(const std::string& control);
  void Click(VisualControl& control);           // for a control whose name another window uses too
  static void Operate(VisualControl& control);  // the click itself, in the middle of an event
  void Press(const std::string& control);
  void Release(const std::string& control);
  void Select(int entry);  // in the list of songs
  void DoubleClickSong(int entry);
  void PressKeyInList(int keyCode);
  void Choose(ListBox& list, const std::string& text);  // by a click on an entry of any list
  void DoubleClick(ListBox& list, const std::string& text);
  void ClickCell(int row, int column);
  void DoubleClickCell(int row, int column);
  void CloseMainWindow();
  void Do(const std::function<void()>& action) { Pc.Loop.Do(action); }

  void Status(int byte) {
    Pc.Serial.Receive({byte});
    Advance(0);
  }

  // The operator's eyes.
  bool Shows(const std::string& control);        // whether an open window has it
  std::string Text(const std::string& control);  // its caption
  bool Enabled(const std::string& control);
  bool Visible(const std::string& control);
  std::string Cell(int row, int column) { return Main().grdSchedule.TextMatrix(row, column); }
  Color CellColor(int row, int column) { return Main().grdSchedule.BackColorAt(row, column); }
  static int Row(const ListBox& list, const std::string& text);  // kNoSelection if there is none
  std::vector<std::string> Rows();  // of the table: the cells of each row joined by "|"
  std::string LitZones();           // six characters, "1" is a green label
  std::string Heard() const { return Pc.Heard(); }
  std::string Journal() const { return Pc.Journal.Text(); }
  std::string TakeJournal() { return Pc.Journal.Take(); }

  std::string Setting(const std::string& section, const std::string& key,
                      const std::string& file = kIni);
  int Slider(int line) { return Sys->TheFrmMxr.SldrVol[line].Value; }
  bool MuteCheck(int line) { return Sys->TheFrmMxr.ChkMute[line].Value != 0; }
  int WaveSlider() { return Slider(Sys->Mixer.WaveLine); }

  FrmMain& Main() { return Sys->TheWindows.frmMain; }
  Flags& State() { return Sys->TheFlags; }
  Settings& Values() { return Sys->Store.Values; }

  SimulatedPc Pc;
  std::unique_ptr<System> Sys;

 private:
  void LayOut(const DeskOptions& options);
  void MakeSystem();
  bool OnHiddenPanel(const Control& control);
  template <class T>
  T* Look(const std::string& name);
  template <class T>
  T& Find(const std::string& name);
  void WriteSequences(const DeskOptions& options);
  void WritePlaylist(const DeskOptions& options);
};

}  // namespace marlex
