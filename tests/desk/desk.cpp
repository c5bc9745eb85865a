#include "desk/desk.h"

#include <stdexcept>

namespace marlex {
namespace {

constexpr int kSplashMs = 2500;

std::string Line(const std::string& key, const std::string& value) {
  return key + "=" + value + "\r\n";
}

std::string Volumes(const DeskOptions& options) {
  return "[Volume]\r\n" + Line("Music volume", std::to_string(options.MusicVolume)) +
         Line("Message volume", std::to_string(options.MessageVolume)) +
         Line("Master volume", std::to_string(options.MasterVolume)) +
         Line("Micro volume", std::to_string(options.MicroVolume)) +
         Line("Fade time", options.FadeTime);
}

std::string Installation(const DeskOptions& options) {
  return "[User language]\r\n" + Line("Language", options.Language) + "[Selected paths]\r\n" +
         Line("Music directory", "/music/") + Line("Message directory", "/messages/") +
         "[Schedule]\r\n" + Line("All days", options.AllDays ? "Yes" : "No") +
         Line("View", options.ScheduleName ? "Yes" : "No") + "[Selected type]\r\n" +
         Line("QRT4410/20", options.Router ? "Yes" : "No") + "[Used com port]\r\n" +
         Line("Com port", options.ComPort) + "[Priority level]\r\n" +
         Line("Priority", options.Priority) + "[Routing]\r\n" +
         Line("Music routing", options.MusicRouting) + Line("Call routing", options.CallRouting) +
         "[Zone names]\r\n" + Line("Zone:1", "Hall") + Line("Zone:2", "Yard");
}

}  // namespace

Desk::Desk(const DeskOptions& options) : Desk(options, nullptr) {}

Desk::Desk(const DeskOptions& options, const std::function<void(SimulatedPc&)>& prepare,
           bool start) {
  LayOut(options);
  if (prepare) prepare(Pc);
  MakeSystem();
  if (start) Start();
}

Desk::~Desk() { Pc.Kill(); }

void Desk::LayOut(const DeskOptions& options) {
  const std::vector<int>& now = options.Now;
  Pc.Clock.Set(now[0], now[1], now[2], now[3], now[4], now[5]);
  if (!options.Microphone) Pc.Mixer.Line(kComponentMicrophone)->HasVolume = false;
  Pc.Serial.Device = options.ComPort == "2" ? 2 : 1;
  Pc.Disk.AddDirectory("/music");
  for (const Medium& song : options.Music)
    Pc.Disk.AddMp3("/music/" + song.Name + ".mp3", song.LengthMs);
  for (const Medium& wav : options.Messages) {
    Pc.Disk.AddWav("/messages/" + wav.Name + ".wav", wav.LengthMs);
  }
  std::string ini = Installation(options) + Volumes(options);
  ini += "[Chime selection]\r\n" + Line("PreChime", options.PreChime) +
         Line("PostChime", options.PostChime);
  ini += "[Playlist]\r\n" + Line("Current List", options.Music.empty() ? "" : kPlaylist);
  std::string files;
  for (const Sequence& sequence : options.Sequences)
    files += (files.empty() ? "" : "|") + sequence.File;
  ini +=
      "[Current sequence list]\r\n" + Line("Sequence list", files) + Line("Sequence path", "/app/");
  Pc.Disk.AddFile(kIni, ini);
  WriteSequences(options);
  if (!options.Music.empty()) WritePlaylist(options);
}

void Desk::WriteSequences(const DeskOptions& options) {
  for (const Sequence& sequence : options.Sequences) {
    Pc.Disk.AddFile("/app/" + sequence.File,
                    "[Schedule]\r\n" + Line("Message(s)", sequence.Messages) +
                        Line("Hour(s)", sequence.Hours) + Line("Minute(s)", sequence.Minutes) +
                        Line("Weekday(s)", sequence.Weekdays) + Line("Zone(s)", sequence.Zones) +
                        Line("Timer", sequence.Timer));
  }
}

void Desk::WritePlaylist(const DeskOptions& options) {
  std::string text = "[Last played]\r\n" + Line("Last song", options.LastSong) + "[Playlist]\r\n";
  int position = 0;
  for (const Medium& song : options.Music)
    text += Line("Song:" + std::to_string(++position), song.Name);
  text += "[Background music]\r\n" + Line("Start time", options.StartTime) +
          Line("Stop time", options.StopTime) + Line("Weekdays", options.WeekDays);
  if (!options.Autostart.empty()) text += Line("Autostart", options.Autostart);
  Pc.Disk.AddFile(kPlaylist, text);
}

void Desk::MakeSystem() { Sys = std::make_unique<System>(Pc.Ports()); }

void Desk::Start() {
  Pc.Loop.Do([this] { Sys->Start(); });
  Advance(kSplashMs);
}

void Desk::Restart() {
  Pc.Restart();
  Sys.reset();
  MakeSystem();
  if (OnRestart) OnRestart();
  Start();
}

void Desk::RunTo(int hour, int minute, int second) {
  constexpr std::int64_t kDaySeconds = 24 * 3600;
  const LocalTime now = Pc.Clock.Now();
  const std::int64_t seconds =
      (hour - now.Hour) * 3600 + (minute - now.Minute) * 60 + (second - now.Second);
  Pc.Loop.RunFor(((seconds + kDaySeconds) % kDaySeconds) * 1000);
}

/// While the interval panel is hidden, so are its buttons.
bool Desk::OnHiddenPanel(const Control& control) {
  const WavWindow& editor = Sys->TheWindows.TheWavWindow;
  return (&control == &editor.cmdOK || &control == &editor.cmdCancel) && !editor.frInterval.Visible;
}

/// Windows that are open together may have controls of the same name. Finds the first one in this
/// order: the message schedule editor comes before the main window, and the main window before
/// the playlist editor, whose tests pass the control itself.
template <class T>
T* Desk::Look(const std::string& name) {
  Windows& windows = Sys->TheWindows;
  for (Form* form :
       {static_cast<Form*>(&windows.frmDirSel), static_cast<Form*>(&windows.frmChimeSelect),
        static_cast<Form*>(&windows.TheWavWindow), static_cast<Form*>(&windows.frmSettings),
        static_cast<Form*>(&windows.frmMain), static_cast<Form*>(&windows.frmPlaylist),
        static_cast<Form*>(&windows.frmLogo), static_cast<Form*>(&windows.frmlangSel),
        static_cast<Form*>(&windows.frmAbout)}) {
    if (!form->Visible) continue;
    for (Control* control : form->Controls) {
      auto* found = dynamic_cast<T*>(control);
      if (OnHiddenPanel(*control)) continue;
      if (found && control->ObjectName() == name) return found;
    }
  }
  return nullptr;
}

template <class T>
T& Desk::Find(const std::string& name) {
  if (T* found = Look<T>(name)) return *found;
  throw std::logic_error("No window shows a control " + name + " of that kind");
}

void Desk::Click(const std::string& name) { Click(Find<VisualControl>(name)); }

void Desk::Click(VisualControl& control) {
  if (!control.Enabled || !control.Visible) return;
  Pc.Loop.Do([&control] { Operate(control); });
}

void Desk::Operate(VisualControl& control) {
  // Its window may have closed at this moment.
  if (!control.Owner.Visible || !control.Enabled || !control.Visible) return;
  if (auto* button = dynamic_cast<CommandButton*>(&control)) {
    if (button->OnClick) button->OnClick();
  } else if (auto* menu = dynamic_cast<Menu*>(&control)) {
    if (menu->OnClick) menu->OnClick();
  } else if (auto* toggle = dynamic_cast<ToggleButton*>(&control)) {
    toggle->Value = !toggle->Value;
  } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
    option->SetValue(true);
  } else if (auto* check = dynamic_cast<CheckBox*>(&control)) {
    check->Value = check->Value == 0 ? 1 : 0;
  }
}

void Desk::Press(const std::string& name) {
  auto& button = Find<CommandButton>(name);
  if (!button.Enabled || !button.Visible || !button.OnMouseDown) return;
  Pc.Loop.Do([&button] { button.OnMouseDown(MouseButton::Left); });
}

void Desk::Release(const std::string& name) {
  auto& button = Find<CommandButton>(name);
  if (!button.OnMouseUp) return;
  Pc.Loop.Do([&button] { button.OnMouseUp(MouseButton::Left); });
}

void Desk::Select(int entry) {
  Pc.Loop.Do([this, entry] { Main().lstPlaylist.SetListIndex(entry); });
}

void Desk::DoubleClickSong(int entry) {
  Select(entry);
  Pc.Loop.Do([this] { Main().lstPlaylist.OnDblClick(); });
}

void Desk::PressKeyInList(int keyCode) {
  Pc.Loop.Do([this, keyCode] { Main().lstPlaylist.OnKeyDown(keyCode); });
}

void Desk::Choose(ListBox& list, const std::string& text) {
  Pc.Loop.Do([&] {
    const int row = Row(list, text);
    const bool isClickAlone = row == list.ListIndex();
    list.SetListIndex(row);
    if (isClickAlone && list.OnClick) list.OnClick();
  });
}

void Desk::DoubleClick(ListBox& list, const std::string& text) {
  Choose(list, text);
  Pc.Loop.Do([&] { list.OnDblClick(); });
}

void Desk::ClickCell(int row, int column) {
  Pc.Loop.Do([this, row, column] {
    Main().grdSchedule.SetRow(row);
    Main().grdSchedule.SetCol(column);
  });
}

void Desk::DoubleClickCell(int row, int column) {
  Pc.Loop.Do([this, row, column] {
    Main().grdSchedule.SetRow(row);
    Main().grdSchedule.SetCol(column);
    Main().grdSchedule.OnDblClick();
  });
}

void Desk::CloseMainWindow() {
  Pc.Loop.Do([this] { Main().Close(); });
}

bool Desk::Shows(const std::string& control) { return Look<VisualControl>(control) != nullptr; }

std::string Desk::Text(const std::string& control) { return Find<VisualControl>(control).Caption; }
bool Desk::Enabled(const std::string& control) { return Find<VisualControl>(control).Enabled; }
bool Desk::Visible(const std::string& control) { return Find<VisualControl>(control).Visible; }

int Desk::Row(const ListBox& list, const std::string& text) {
  for (int row = 0; row < list.ListCount(); ++row) {
    if (list.List(row) == text) return row;
  }
  return ListBox::kNoSelection;
}

std::vector<std::string> Desk::Rows() {
  std::vector<std::string> rows;
  for (int row = 1; row < Main().grdSchedule.Rows(); ++row) {
    std::string text = Cell(row, 0);
    for (int column = 1; column < Grid::kColumns; ++column) text += "|" + Cell(row, column);
    rows.push_back(text);
  }
  return rows;
}

std::string Desk::LitZones() {
  std::string zones;
  for (int zone = 0; zone < kZones; ++zone) {
    zones += Main().lblCurrentZone[zone].BackColor == kGreen ? '1' : '0';
  }
  return zones;
}

std::string Desk::Setting(const std::string& section, const std::string& key,
                          const std::string& file) {
  return Pc.Profiles.GetString(section, key, file, 1499);
}

}  // namespace marlex
