#include "sheets/scenes.h"

#include <set>

namespace marlex {
namespace {

// What the amplifier reports about one of its own calls.
constexpr int kHigherCall = 128;
constexpr int kLowerCall = 64;

std::vector<Medium> Songs() {
  std::vector<Medium> songs;
  for (const char* song : {"Evening walk", "Harbour lights", "Blue tram", "Morning market",
                           "Paper lanterns", "Slow river", "Garden of glass", "First snow"}) {
    songs.push_back({song});
  }
  return songs;
}

std::vector<Sequence> Day() {
  return {{"Morning.sch", "gong,good_morning", "7-11", "00,30", "1234567", "120000", "Exact"},
          {"Offers.sch", "gong,offers_of_the_day,gong", "12-18", "01,21,41", "1234560", "123456",
           "Exact"},
          {"Breaks.sch", "lunch_break", "12-14", "15", "1234500", "003400", "Between"},
          {"Closing.sch", "gong,closing_time", "19,20", "45", "1234560", "123456", "Exact"}};
}

}  // namespace

DeskOptions Shop() {
  DeskOptions shop;
  shop.Music = Songs();
  for (const char* message : {"gong", "good_morning", "offers_of_the_day", "lunch_break",
                              "closing_time", "three_tones"}) {
    shop.Messages.push_back({message, 4000});
  }
  shop.Sequences = Day();
  shop.StartTime = "08:00";
  shop.StopTime = "20:00";
  shop.WeekDays = "1234560";
  shop.MusicRouting = "111010";
  shop.CallRouting = "100001";
  return shop;
}

namespace {

DeskOptions With(const std::function<void(DeskOptions&)>& change) {
  DeskOptions shop = Shop();
  change(shop);
  return shop;
}

DeskOptions Plain() {
  return With([](DeskOptions& shop) { shop.Router = false; });
}

DeskOptions Deaf() {
  return With([](DeskOptions& shop) { shop.Microphone = false; });
}

/// Two sequences that want the same minute.
DeskOptions InConflict(DeskOptions shop) {
  shop.Sequences.push_back({"Twice.sch", "gong", "12-14", "21", "1234500", "123456", "Exact"});
  return shop;
}

/// Every quarter of an hour from morning to night.
DeskOptions Busy() {
  return With([](DeskOptions& shop) {
    shop.Sequences.push_back(
        {"Quarters.sch", "gong", "8-20", "05,35,50", "1234567", "100000", "Between"});
    shop.Sequences.push_back({"Early.sch", "good_morning", "5-7", "10", "1234567", "100000"});
    shop.Sequences.push_back({"Late.sch", "closing_time", "21-23", "40", "1234567", "100000"});
  });
}

/// An operator whose file names are whole sentences.
DeskOptions Wordy() {
  const char* song = "A very long title of a song & its two composers, remastered for the hall";
  const char* message = "offers_of_the_day_in_the_departments_of_the_upper_and_of_the_lower_floor";
  DeskOptions shop = Shop();
  for (Medium& medium : shop.Music) medium.Name = song + (" " + medium.Name);
  for (Medium& medium : shop.Messages) medium.Name = message + ("_" + medium.Name);
  for (Sequence& sequence : shop.Sequences) {
    sequence.File = "Announcements of the winter season, weekdays " + sequence.File;
    sequence.Messages = message + ("_gong,three_tones," + std::string(message)) + "_gong";
  }
  return shop;
}

QWidget& MainOf(ShownDesk& desk) { return desk.Screen().Main(); }

/// Opens the main window with the music playing.
void Open(ShownDesk& desk) {
  desk.ReachMainWindow();
  if (desk.Enabled("cmdPlay")) desk.Click("cmdPlay");
  desk.Advance(42'000);
}

QWidget& BeforeTheMusic(ShownDesk& desk) {
  desk.ReachMainWindow();
  desk.Advance(1000);
  return MainOf(desk);
}

QWidget& AtRest(ShownDesk& desk) {
  Open(desk);
  return MainOf(desk);
}

QWidget& InAMessage(ShownDesk& desk) {
  Open(desk);
  desk.RunTo(12, 21, 6);
  return MainOf(desk);
}

QWidget& InACall(ShownDesk& desk, const char* button) {
  Open(desk);
  desk.Press(button);
  desk.Advance(4000);
  return MainOf(desk);
}

QWidget& BeforeTheChime(ShownDesk& desk) {
  Open(desk);
  desk.Press("cmdCall");
  return MainOf(desk);
}

QWidget& UnderACallOfTheAmplifier(ShownDesk& desk, int status) {
  Open(desk);
  desk.Status(status);
  desk.Advance(2000);
  return MainOf(desk);
}

QWidget& UnderACallOfTheAmplifierInACall(ShownDesk& desk) {
  Open(desk);
  desk.Press("cmdCall");
  desk.Advance(4000);
  desk.Status(kHigherCall);
  return MainOf(desk);
}

QWidget& UnderACallOfTheAmplifierInAMessage(ShownDesk& desk) {
  Open(desk);
  desk.RunTo(12, 21, 6);
  desk.Status(kHigherCall);
  return MainOf(desk);
}

QWidget& InThePostChime(ShownDesk& desk) {
  Open(desk);
  desk.Press("cmdCall");
  desk.Advance(4000);
  desk.Release("cmdCall");
  desk.Advance(500);
  return MainOf(desk);
}

/// The schedule is held until the next call.
QWidget& AfterACallThatTheAmplifierCutOff(ShownDesk& desk) {
  Open(desk);
  desk.Press("cmdCall");
  desk.Advance(4000);
  desk.Status(kHigherCall);
  desk.Release("cmdCall");
  desk.Status(0);
  desk.Advance(1000);
  return MainOf(desk);
}

QWidget& Resized(ShownDesk& desk, QWidget& window, QSize size) {
  window.resize(size);
  desk.Settle();
  return window;
}

QWidget& OnALargeScreen(ShownDesk& desk) { return Resized(desk, AtRest(desk), kLargeScreen); }

QWidget& InAUsualWindow(ShownDesk& desk) { return Resized(desk, AtRest(desk), kUsualWindow); }

QWidget& InAMessageOfAFullDay(ShownDesk& desk) {
  return Resized(desk, InAMessage(desk), kUsualWindow);
}

/// A serial line and a message that were missing before, and then the sound device.
QWidget& WithFaults(ShownDesk& desk) {
  desk.Pc.Serial.Unplug();
  desk.Pc.Disk.Vanish("/messages/closing_time.wav");
  Open(desk);
  desk.Pc.Sound.OutletNow = SoundOutlet::Gone;
  desk.Advance(3000);
  return MainOf(desk);
}

QWidget& WithFaultsInAUsualWindow(ShownDesk& desk) {
  return Resized(desk, WithFaults(desk), kUsualWindow);
}

/// One whose file has a name that is too long for the line.
QWidget& WithALongFault(ShownDesk& desk) {
  desk.Pc.Disk.Vanish("/messages");
  Open(desk);
  return MainOf(desk);
}

QWidget& WithAllDays(ShownDesk& desk) {
  Open(desk);
  desk.Click("mnuAllDays");
  desk.Click("mnuScheduleName");
  desk.Advance(1000);
  return MainOf(desk);
}

void OpenSettings(ShownDesk& desk) {
  desk.ReachMainWindow();
  desk.Click("mnuSettings");
}

QWidget& SettingsOf(ShownDesk& desk) {
  OpenSettings(desk);
  return desk.Screen().Settings();
}

QWidget& ChimePicker(ShownDesk& desk) {
  OpenSettings(desk);
  desk.Click("chkPreChime");
  desk.Click("cmdPreSelect");
  return desk.Screen().ChimeSelect();
}

QWidget& DirectoryPicker(ShownDesk& desk) {
  OpenSettings(desk);
  desk.Click("cmdBgBrowse");
  return desk.Screen().DirSel();
}

void ComposeSequence(ShownDesk& desk) {
  desk.ReachMainWindow();
  desk.Click("mnuSchedule");
  WavWindow& editor = desk.Sys->TheWindows.TheWavWindow;
  for (const char* message : {"gong", "offers_of_the_day", "gong"})
    desk.Choose(editor.AvailWavs, message);
  desk.Do([&editor] {
    editor.txtHours.Text = "9-18";
    editor.txtMinutes.Text = "00,30";
    editor.SelectedWavs.SetListIndex(1);
    if (editor.SelectedWavs.OnGotFocus) editor.SelectedWavs.OnGotFocus();
  });
  for (const char* day : {"WkDays_0", "WkDays_2", "WkDays_4"}) desk.Click(day);
}

QWidget& ScheduleEditor(ShownDesk& desk) {
  ComposeSequence(desk);
  return desk.Screen().ScheduleEditor();
}

QWidget& IntervalPanel(ShownDesk& desk) {
  ComposeSequence(desk);
  desk.Click("cmdInterval");
  return desk.Screen().ScheduleEditor();
}

QWidget& MessagePreview(ShownDesk& desk) {
  ComposeSequence(desk);
  desk.Click("PrevKey");
  return desk.Screen().ScheduleEditor();
}

void ChooseSongs(ShownDesk& desk) {
  desk.ReachMainWindow();
  desk.Click("mnuPlaylist");
  FrmPlaylist& editor = desk.Sys->TheWindows.frmPlaylist;
  for (const char* song : {"Blue tram", "Slow river", "First snow"})
    desk.Choose(editor.AvailMP3s, song);
  desk.Choose(editor.SelectedMP3s, "Slow river");
}

QWidget& PlaylistEditor(ShownDesk& desk) {
  ChooseSongs(desk);
  return desk.Screen().Playlist();
}

QWidget& PlaylistWithTimes(ShownDesk& desk) {
  ChooseSongs(desk);
  FrmPlaylist& editor = desk.Sys->TheWindows.frmPlaylist;
  desk.Click("optScheduled_0");
  desk.Choose(editor.cmbStartHours, "08");
  desk.Choose(editor.cmbStartMinutes, "00");
  desk.Choose(editor.cmbStopHours, "18");
  desk.Choose(editor.cmbStopMinutes, "30");
  desk.Click("chkDays_0");
  return desk.Screen().Playlist();
}

QWidget& EditorOfLongMessages(ShownDesk& desk) {
  desk.ReachMainWindow();
  desk.Click("mnuSchedule");
  WavWindow& editor = desk.Sys->TheWindows.TheWavWindow;
  desk.Choose(editor.AvailWavs, editor.AvailWavs.List(0));
  return desk.Screen().ScheduleEditor();
}

QWidget& EditorOfLongSongs(ShownDesk& desk) {
  desk.ReachMainWindow();
  desk.Click("mnuPlaylist");
  FrmPlaylist& editor = desk.Sys->TheWindows.frmPlaylist;
  desk.Choose(editor.AvailMP3s, editor.AvailMP3s.List(0));
  return desk.Screen().Playlist();
}

/// The splash stays while the operator reads why the program cannot go on.
QWidget& EndOfSplash(ShownDesk& desk) {
  desk.Pc.Mixer.Devices.clear();
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  desk.Advance(2500);
  return desk.Screen().Logo();
}

QWidget& AboutBox(ShownDesk& desk) {
  desk.ReachMainWindow();
  desk.Click("mnuAboutbox");
  return desk.Screen().About();
}

QWidget& Menus(ShownDesk& desk, QWidget& window, const char* menu) {
  desk.Settle();
  auto* shown = window.findChild<QMenu*>(menu);
  shown->ensurePolished();
  shown->resize(shown->sizeHint());
  return *shown;
}

QWidget& FileMenuOf(ShownDesk& desk, const char* way, QWidget& (Views::*editor)()) {
  desk.ReachMainWindow();
  desk.Click(way);
  return Menus(desk, (desk.Screen().*editor)(), "mnuFile");
}

QWidget& MainMenu(ShownDesk& desk, const char* menu) {
  Open(desk);
  return Menus(desk, MainOf(desk), menu);
}

std::vector<Scene> MainScenes() {
  const auto router = Shop();
  return {
      {"main_music", router, AtRest},
      {"main_idle", With([](DeskOptions& shop) { shop.StartTime = shop.StopTime = ""; }),
       BeforeTheMusic},
      {"main_message", router, InAMessage},
      {"main_call", router, [](ShownDesk& desk) -> QWidget& { return InACall(desk, "cmdCall"); }},
      {"main_chime", With([](DeskOptions& shop) { shop.PreChime = "three_tones"; }),
       BeforeTheChime},
      {"main_takeover_higher", router,
       [](ShownDesk& desk) -> QWidget& { return UnderACallOfTheAmplifier(desk, kHigherCall); }},
      {"main_takeover_lower", With([](DeskOptions& shop) { shop.Priority = "High"; }),
       [](ShownDesk& desk) -> QWidget& { return UnderACallOfTheAmplifier(desk, kLowerCall); }},
      {"main_takeover_in_call", router, UnderACallOfTheAmplifierInACall},
      {"main_takeover_in_message", router, UnderACallOfTheAmplifierInAMessage},
      {"main_schedule_stopped", router, AfterACallThatTheAmplifierCutOff},
      {"main_post_chime", With([](DeskOptions& shop) { shop.PostChime = "three_tones"; }),
       InThePostChime},
      {"main_conflict", InConflict(Shop()), AtRest},
      {"main_conflict_takeover", InConflict(Shop()),
       [](ShownDesk& desk) -> QWidget& { return UnderACallOfTheAmplifier(desk, kHigherCall); }},
      {"main_conflict_plain", InConflict(Plain()), AtRest},
      {"main_conflict_no_microphone", InConflict(Deaf()), AtRest},
      {"main_long_names", Wordy(), WithAllDays},
      {"main_large", router, OnALargeScreen, kLargeScreen},
      {"main_full_day", Busy(), InAMessageOfAFullDay, kUsualWindow},
      {"main_full_day_conflict", InConflict(Busy()), InAUsualWindow, kUsualWindow},
      {"main_empty_day", With([](DeskOptions& shop) {
         shop.Sequences.clear();
         shop.StartTime = shop.StopTime = "";
       }),
       InAUsualWindow, kUsualWindow},
      {"main_faults", InConflict(Shop()), WithFaults},
      {"main_faults_usual", router, WithFaultsInAUsualWindow, kUsualWindow},
      {"main_faults_long", Wordy(), WithALongFault},
      {"main_all_days", router, WithAllDays},
      {"main_plain", Plain(), AtRest},
      {"main_plain_call", Plain(),
       [](ShownDesk& desk) -> QWidget& { return InACall(desk, "cmdCall2"); }},
      {"main_no_microphone", Deaf(), AtRest},
      {"main_player_only", With([](DeskOptions& shop) { shop.Router = shop.Microphone = false; }),
       AtRest},
      {"menu_file", router, [](ShownDesk& desk) -> QWidget& { return MainMenu(desk, "mnuFile"); }},
      {"menu_edit", router, [](ShownDesk& desk) -> QWidget& { return MainMenu(desk, "mnuEdit"); }},
      {"menu_help", router, [](ShownDesk& desk) -> QWidget& { return MainMenu(desk, "mnuAbout"); }},
      {"menu_view", router,
       [](ShownDesk& desk) -> QWidget& { return MainMenu(desk, "mnuSchedules"); }},
  };
}

std::vector<Scene> OtherScenes() {
  return {
      {"settings", Shop(), SettingsOf},
      {"settings_plain", Plain(), SettingsOf},
      {"settings_no_microphone", Deaf(), SettingsOf},
      {"chime_picker", Shop(), ChimePicker},
      {"directory_picker", Shop(), DirectoryPicker},
      {"schedule_editor", Shop(), ScheduleEditor},
      {"schedule_editor_plain", Plain(), ScheduleEditor},
      {"schedule_editor_interval", Shop(), IntervalPanel},
      {"schedule_editor_preview", Shop(), MessagePreview},
      {"schedule_editor_menu", Shop(),
       [](ShownDesk& desk) -> QWidget& {
         return FileMenuOf(desk, "mnuSchedule", &Views::ScheduleEditor);
       }},
      {"schedule_editor_long_names", Wordy(), EditorOfLongMessages},
      {"playlist_editor", Shop(), PlaylistEditor},
      {"playlist_editor_menu", Shop(),
       [](ShownDesk& desk) -> QWidget& {
         return FileMenuOf(desk, "mnuPlaylist", &Views::Playlist);
       }},
      {"playlist_editor_long_names", Wordy(), EditorOfLongSongs},
      {"playlist_editor_times", Shop(), PlaylistWithTimes},
      {"splash", Shop(), [](ShownDesk& desk) -> QWidget& { return desk.Screen().Logo(); }},
      {"splash_end", Shop(), EndOfSplash},
      {"about", Shop(), AboutBox},
  };
}

}  // namespace

const std::vector<Scene>& Scenes() {
  static const std::vector<Scene> scenes = [] {
    std::vector<Scene> all = MainScenes();
    for (Scene& scene : OtherScenes()) all.push_back(std::move(scene));
    return all;
  }();
  return scenes;
}

const Scene& SceneOf(const std::string& name) {
  for (const Scene& scene : Scenes()) {
    if (scene.Name == name) return scene;
  }
  throw RuntimeFailure("No scene " + name);
}

std::vector<Language> PaintedLanguages() {
#ifdef __SANITIZE_ADDRESS__
  const std::set<std::string> painted = {"Hungarian", "Hebrew"};
  std::vector<Language> languages;
  for (const Language& language : kLanguageTable) {
    if (painted.contains(language.Name)) languages.push_back(language);
  }
  return languages;
#else
  return {kLanguageTable.begin(), kLanguageTable.end()};
#endif
}

}  // namespace marlex
