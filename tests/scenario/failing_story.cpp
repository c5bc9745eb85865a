#include "scenario/failing_story.h"

#include "scenario/settings_hands.h"

namespace marlex {

namespace {

constexpr const char* kNewList = "/app/New.lst";
constexpr const char* kNewSequence = "/app/new.sch";
constexpr const char* kAllSequences = "/app/ spot.sch break.sch new.sch";

/// The hands of somebody who does what the windows offer, and goes on with the next thing where
/// they do not.
class Operator {
 public:
  explicit Operator(WatchedDesk& desk) : TheDesk(desk) {}

  /// At this time of the clock.
  void At(int hour, int minute, int second) {
    TheDesk.RunTo(hour, minute, second);
    TheDesk.Pc.Dialogs.OpenResults.clear();
    if (TheDesk.Pc.Process.Ended()) TheDesk.Restart();
  }

  void Wait(int ms) { TheDesk.Advance(ms); }

  void Click(const std::string& control) {
    if (!Ended() && TheDesk.Shows(control)) TheDesk.Click(control);
  }

  void Click(VisualControl& control) {
    if (!Ended() && control.Owner.Visible) TheDesk.Click(control);
  }

  void Choose(ListBox& list, int place) {
    if (Ended() || !list.Owner.Visible) return;
    TheDesk.Do([&] { ClickEntry(list, place); });
  }

  void Choose(ListBox& list, const std::string& text) {
    if (Desk::Row(list, text) != ListBox::kNoSelection) Choose(list, Desk::Row(list, text));
  }

  void DoubleClick(ListBox& list, const std::string& text) {
    Choose(list, text);
    if (!Ended() && list.Owner.Visible) TheDesk.Do([&] { list.OnDblClick(); });
  }

  void Call(int ms) {
    TheDesk.Do([this] { TheDesk.StrikeCallButton(1, true); });
    Wait(ms);
    TheDesk.Do([this] { TheDesk.StrikeCallButton(1, false); });
    Wait(1500);
    Status(0);  // the amplifier's answer to the end of the call
  }

  void AtPlaylist(const std::function<void(FrmPlaylist&)>& step) {
    if (!Ended()) TheDesk.StepAtPlaylist(step);
  }

  /// The answer to the file dialog that comes next.
  void WillChoose(const std::string& file) { TheDesk.Pc.Dialogs.OpenResults = {file}; }

  /// Opens these files, if the last one of them could be saved: a file dialog offers no other.
  void Open(Menu& menu, const std::string& files, const std::string& last) {
    if (!TheDesk.Pc.Disk.Read(last)) return;
    WillChoose(files);
    Click(menu);
  }

  void Move(Slider& slider, int position) {
    if (Ended() || !slider.Owner.Visible || !slider.Enabled) return;
    TheDesk.Do([&] { slider.Value = position; });
  }

  void Type(TextBox& box, const std::string& text) {
    if (Ended() || !box.Owner.Visible) return;
    TheDesk.Do([&] { box.Text = text; });
  }

  void Status(int byte) { TheDesk.Status(byte); }

  Windows& Screen() { return TheDesk.Sys->TheWindows; }

 private:
  bool Ended() const { return TheDesk.Pc.Process.Ended(); }

  WatchedDesk& TheDesk;
};

void ComposeASequence(Operator& hand) {
  hand.Click("mnuSchedule");
  WavWindow& editor = hand.Screen().TheWavWindow;
  hand.Choose(editor.AvailWavs, 0);
  hand.Choose(editor.AvailWavs, 1);
  hand.Click("PrevKey");
  hand.Wait(1500);
  hand.Click("PrevKey");
  hand.Click(editor.mnuSave);  // too early: a box says what is missing
  hand.Type(editor.txtHours, "0-23");
  hand.Type(editor.txtMinutes, "03,08,13,18");
  for (const char* day : {"WkDays_0", "WkDays_1", "WkDays_2"}) hand.Click(day);
  hand.Click("cmdZone_1");
  hand.WillChoose(kNewSequence);
  hand.Click(editor.mnuSave);
  hand.Wait(3000);
  hand.Click(editor.mnuExit);
  hand.Open(hand.Screen().frmMain.mnuSequence, kAllSequences, kNewSequence);
}

void ComposeAList(Operator& hand) {
  hand.Click("mnuPlaylist");
  hand.AtPlaylist([](FrmPlaylist& editor) { Desk::Operate(editor.cmdSelectAll); });
  hand.AtPlaylist([](FrmPlaylist& editor) { ClickEntry(editor.SelectedMP3s, 1); });
  hand.AtPlaylist([](FrmPlaylist& editor) { Desk::Operate(editor.PrevKey); });
  hand.Wait(2000);
  hand.AtPlaylist([](FrmPlaylist& editor) {
    Desk::Operate(editor.PrevKey);
    Desk::Operate(editor.optScheduled[FrmPlaylist::kScheduled]);
    editor.cmbStartHours.SetListIndex(0);
    editor.cmbStartMinutes.SetListIndex(1);
    editor.cmbStopHours.SetListIndex(23);
    editor.cmbStopMinutes.SetListIndex(58);
    for (int day = 0; day < kWeekdays; ++day) Desk::Operate(editor.chkDays[day]);
  });
  hand.WillChoose(kNewList);
  hand.AtPlaylist([](FrmPlaylist& editor) { Desk::Operate(editor.mnuSave); });
  hand.Wait(1000);
  hand.Click(hand.Screen().frmPlaylist.mnuExit);
  hand.Open(hand.Screen().frmMain.mnuOpen, kNewList, kNewList);
  hand.Click("cmdPlay");
}

void ChangeTheSettings(Operator& hand) {
  hand.Click("mnuSettings");
  FrmSettings& settings = hand.Screen().frmSettings;
  hand.Move(settings.slMusicVolume, 22'000);
  hand.Move(settings.slMessageVolume, 11'000);
  hand.Move(settings.slMasterVolume, 6000);
  hand.Click("optSlow");
  hand.Click("optPriority_1");
  hand.Click("cmdMsgBrowse");
  FrmDirSel& folders = hand.Screen().frmDirSel;
  hand.DoubleClick(folders.Dir1, "/");
  hand.Choose(folders.Dir1, "/messages");
  hand.Click(folders.cmdOK);
  hand.Click("cmdPreSelect");
  hand.Choose(hand.Screen().frmChimeSelect.lstChimeList, 0);
  hand.Click(hand.Screen().frmChimeSelect.cmdOK);
  hand.Type(settings.txtZoneName[2], "Garden");
  hand.Click(settings.cmdOK);
}

}  // namespace

DeskOptions StoryInstallation() {
  return {
      .Music = {{"march", 70'000}, {"waltz", 80'000}, {"polka", 90'000}},
      .Messages = {{"welcome", 3000}, {"closing", 2000}, {"ding", 900}, {"dong", 700}},
      .Sequences = {{.File = "spot.sch",
                     .Messages = "welcome,closing",
                     .Hours = "0-23",
                     .Minutes = "00,06,15,25,35,45,51,54",
                     .Zones = "003000"},
                    {.File = "break.sch",
                     .Messages = "closing",
                     .Hours = "23",
                     .Minutes = "52",
                     .Zones = "123456",
                     .Timer = "Between"}},
      .StartTime = "23:50",
      .StopTime = "23:58",
      .WeekDays = "1234567",
      .PreChime = "ding",
      .PostChime = "dong",
      .Now = {2024, 1, 1, 23, 49, 40},
  };
}

void LiveTheStory(WatchedDesk& desk) {
  Operator hand(desk);
  hand.At(23, 53, 20);  // the music by the clock, a row, a row at the break
  hand.Call(4000);
  hand.At(23, 54, 2);  // in a message
  hand.Status(128);
  hand.At(23, 54, 12);
  hand.Status(0);
  hand.At(23, 55, 0);
  ComposeASequence(hand);
  hand.At(23, 56, 0);
  ComposeAList(hand);
  hand.At(23, 57, 0);
  ChangeTheSettings(hand);
  hand.At(23, 58, 30);  // the clock has stopped the music
  hand.Call(2500);
  hand.At(23, 59, 0);
  hand.Click("cmdPlay");
  hand.At(0, 0, 30);  // after the first row of the day
  hand.Status(192);
  hand.At(0, 0, 35);
  hand.Status(0);
  hand.At(0, 0, 50);
  hand.Click("mnuExit");
  hand.At(0, 0, 55);  // starts it again
  hand.At(0, 2, 0);   // the music of the new list by the clock
  hand.Click("cmdMusicZones_3");
  hand.At(0, 3, 30);  // after a row of the new sequence
}

}  // namespace marlex
