#include "scenario/watched_desk.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

#include "state/week_time.h"

namespace marlex {
namespace {

constexpr int kZoneBits = 63;
constexpr int kMostWaits = 16;
constexpr int kMostBoxes = 12;

/// Since 1970, of the wall clock.
std::int64_t SecondsOf(const LocalTime& time) {
  using namespace std::chrono;
  const sys_days day(year_month_day(year(time.Year), month(static_cast<unsigned>(time.Month)),
                                    std::chrono::day(static_cast<unsigned>(time.Day))));
  return sys_seconds(day).time_since_epoch().count() + time.Hour * 3600 + time.Minute * 60 +
         time.Second;
}

}  // namespace

WatchedDesk::WatchedDesk(const DeskOptions& options,
                         const std::function<void(SimulatedPc&)>& prepare)
    : Desk(options, prepare, false) {
  Arm();
  OnRestart = [this] { Arm(); };
  Start();
}

void WatchedDesk::Require(bool holds, std::string_view rule) {
  if (!holds) throw BrokenRule(std::string(rule));
}

void WatchedDesk::AdvanceToMs(std::int64_t dayMs) {
  if (dayMs > NowMs()) Pc.Loop.RunFor(dayMs - NowMs());
}

void WatchedDesk::Arm() {
  Before = {};
  Before.Bytes = Pc.Serial.Sent().size();
  MasterHasSounded = ZonesLeftBehind = SongPressed = LevelChanged = false;
  TickOffByCall = CallStands = CallCutShort = KeysLeftDead = CallOverMessage = false;
  EditorOverWaitingRow = ViewOwed = PreviewSounds = PreviewInPlayer = KeyHeld = false;
  CallOverWaitingRow = WavOfCall = FadeOfCall = CallWasPressed = false;
  TickBegunInWaits.reset();
  WavReportedAtMs.reset();
  CallLeftAtMs.reset();
  Main().grdSchedule.Watcher = [this] { TableChanged = true; };
  ArmPlaylist();
  Pc.Loop.AfterEvent = [this] { Check(); };
  Pc.Loop.OnFailure = [this, told = Pc.Loop.OnFailure](const RuntimeFailure& failure) {
    Require(IsOperatorsFault(failure.what()), std::string("A rule broke: ") + failure.what());
    told(failure);
  };
}

void WatchedDesk::Check() {
  CheckWaits();
  if (Main().Loaded()) {
    CheckEditor();
    CheckPlaylist();
    RememberCall();
    CheckBytes();
    CheckMasterMute();
    CheckMessages();
    CheckPriority();
    CheckMixer();
    CheckMicrophone();
    CheckLamps();
    CheckHeldCall();
    CheckPreview();
    CheckSave();
    CheckFiringRow();
    CheckMinute();
    CheckDueRow();
    CheckTable();
    CheckMusicClock();
    CheckMessageGoesOn();
    if (AtRest()) CheckRest();
  }
  NoteCorners();
  Remember();
}

void WatchedDesk::Remember() {
  Before.Bytes = Pc.Serial.Sent().size();
  Before.Preempted = State().PriorityPreempted;
  Before.CallActive = State().CallActive;
  Before.MasterMuted = MuteCheck(0);
  Before.Awaiting = State().MessageAwaitingSongEnd;
  Before.Playing = State().MessagePlaying;
  Before.Lines = Pc.Journal.Lines().size();
  Before.Fading = State().FadeRunning;
  Before.TickOn = Sys->TheFrmPlayers.tmrMessage.Enabled;
  Before.PriorityClear = State().PriorityClear;
  Before.OwnLevel = Values().OwnPriorityLevel;
  Before.Router = Values().RouterPresent;
  Before.MainShown = Main().Visible;
  Before.SettingsShown = Sys->TheWindows.frmSettings.Visible;
  Before.EditorOpen = EditorIsOpen();
  Before.Fields = ReadFields();
  Before.PreviewSounds = PreviewSounds;
  Before.Writing = Sys->TheWindows.TheWavWindow.tmrWriteDelay.Enabled;
  Before.AllDaysTicked = Main().mnuAllDays.Checked;
  Before.StoppedByUser = State().MusicStoppedByUser;
  Before.Overridden = State().MusicStopOverridden;
  Before.StartedBySchedule = State().MusicStartedBySchedule;
  Before.StoppedBySchedule = State().MusicStoppedBySchedule;
  Before.WaitCount = Pc.Loop.Waits();
  Before.Weekday = Pc.Clock.Now().Weekday;
  Before.LastMinute = Sys->Tick.LastMinute;
  Before.MainLoaded = Main().Loaded();
  Before.Playlist = ReadWindow();
  if (PlaylistIsOpen() != Before.PlaylistOpen) DialogOutlivesPlaylist = true;
  Before.PlaylistOpen = PlaylistIsOpen();
  Before.Composed = ReadDraft();
  Chosen.reset();
  PlaylistStep = PlaylistTouched = SongListTouched = false;
  if (Main().Loaded() && !MuteCheck(0)) MasterHasSounded = true;
  if (!Main().Loaded()) return;
  if (ZonesLeftBehind) ZonesLeftBehind = CallCutShort || !MusicZonesAreLit();
  if (KeysLeftDead) KeysLeftDead = CallCutShort || !Main().cmdPlay.Enabled;
}

/// A byte with zones carries our own priority and the zones that the labels show, and is held back
/// by a takeover; the only other byte is the release.
void WatchedDesk::CheckBytes() {
  const auto& bytes = Pc.Serial.Sent();
  if (bytes.size() > Before.Bytes) Require(Values().RouterPresent, "A byte without a router");
  for (std::size_t byte = Before.Bytes; byte < bytes.size(); ++byte) {
    const int value = bytes[byte].Value;
    if (value == 0) continue;
    Require((value & kPriorityBits) == Values().OwnPriorityLevel,
            "A byte of another priority: " + std::to_string(value));
    int zones = 0;
    for (int zone = 0; zone < kZones; ++zone) zones |= (LitZones()[zone] == '1') << zone;
    Require((value & kZoneBits) == zones && zones != 0,
            "A byte of other zones than the labels: " + std::to_string(value));
    Require(!State().PriorityPreempted, "Zones sent during a takeover");
  }
}

/// A takeover drops the rest of the messages, and whoever plays others opens the master first. An
/// announcement that begins under a takeover leaves its zones on the labels.
void WatchedDesk::CheckMessages() {
  if (JournalHas(" wav play ", Before.Lines))
    Require(!Before.Preempted || !MuteCheck(0), "A message begins while the master is muted");
  if (State().MessagePlaying && !Before.Playing) ZonesLeftBehind |= Before.Preempted;
}

/// A takeover mutes the master until status 0. Only what starts meanwhile opens it again: the
/// messages of a row that had been waiting for the song's end, or of a row of the very tick that
/// the takeover interrupted, and, once a lower status lets us start again, whatever then starts.
void WatchedDesk::CheckMasterMute() {
  if (Before.Preempted && State().PriorityPreempted && Before.MasterMuted && !MuteCheck(0)) {
    const bool waitedForTheBreak = Before.Awaiting && !State().MessageAwaitingSongEnd;
    Require(State().MessagePlaying || waitedForTheBreak || State().PriorityClear,
            "The master opens during a takeover and nothing starts");
  }
  if (MuteCheck(0) && MasterHasSounded)
    Require(State().PriorityPreempted, "The master is muted without a takeover");
}

void WatchedDesk::CheckPriority() {
  const int status = State().AmplifierStatus;
  const bool blocked = status > 0 && status >= Values().OwnPriorityLevel;
  const bool follows = State().PriorityClear == !blocked;
  if (follows) LevelChanged = false;
  if (Values().OwnPriorityLevel != Before.OwnLevel) LevelChanged = true;
  // Another level of our own counts from the next status on.
  Require(follows || LevelChanged, "PriorityClear does not follow the status");
  Require(!State().PriorityPreempted || status != 0, "A takeover outlives status 0");
  Require(Main().lblHiPrio.Visible == (status != 0), "The note of a call does not follow status");
  const int height = status != 0 ? FrmMain::kShrunkenKeyHeight : FrmMain::kTransportKeyHeight;
  Require(Main().cmdPlay.Height == height, "The transport keys do not follow the status");
}

void WatchedDesk::CheckMixer() {
  for (int line = 0; line < FrmMxr::kLines; ++line) {
    Require(Slider(line) >= 0 && Slider(line) <= FrmMxr::kSilent, "A slider beyond its ends");
  }
  Require(LevelsAgree(0, kComponentSpeakers), "The master line is not where its slider is");
  Require(LevelsAgree(Sys->Mixer.WaveLine, kComponentWaveOut),
          "The wave line is not where its slider is");
  Require(State().FadeRunning == Sys->TheFrmPlayers.tmrFadeTime.Enabled,
          "A fade and its timer differ");
}

/// The microphone is open only while a call speaks, and the keys say so.
void WatchedDesk::CheckMicrophone() {
  if (Pc.Mixer.HasMissed(kComponentMicrophone, kControlMute)) return;
  if (Pc.Mixer.Muted(kComponentMicrophone)) return;
  Require(State().CallActive, "The microphone is open without a call");
  Require(KeyHeld, "The microphone is open without a held key");
  Require(KeySays(kStrSpeak), "The microphone is open, and the keys do not say so");
  Require(!State().PriorityPreempted, "The microphone is open under a takeover");
}

/// They flash while a call is prepared or ends, and for nothing else.
void WatchedDesk::CheckLamps() {
  Require(State().CallActive || !Sys->TheFrmPlayers.tmrFlash.Enabled,
          "The lamps flash without a call");
}

/// A call whose release leaves its waits ends with them. What it only pumps for counts as no wait,
/// and takes no time.
void WatchedDesk::CheckHeldCall() {
  if (!AtRest() || !State().CallActive || KeyHeld) return CallLeftAtMs.reset();
  if (!CallLeftAtMs) CallLeftAtMs = NowMs();
  Require(NowMs() == *CallLeftAtMs, "A call stands that nobody holds");
}

bool WatchedDesk::KeySays(StringId caption) {
  const std::string text = Sys->Strings.LoadString(caption);
  return Main().cmdCall.Caption.Get() == text && Main().cmdCall2.Caption.Get() == text;
}

/// A card that has refused a setting stands where it stood until the next one.
bool WatchedDesk::LevelsAgree(int line, std::uint32_t componentType) {
  const SimulatedMixer& card = Pc.Mixer;
  const int level = static_cast<int>(card.Level(componentType));
  return (level == FrmMxr::kSilent - Slider(line) ||
          card.HasMissed(componentType, kControlVolume)) &&
         (card.Muted(componentType) == MuteCheck(line) ||
          card.HasMissed(componentType, kControlMute));
}

void WatchedDesk::CheckTable() {
  if (!TableChanged) return;
  TableChanged = false;
  Before.Table = ReadTable();
  const Grid& table = Main().grdSchedule;
  for (int column = 0; column < Grid::kColumns; ++column)
    Require(CellColor(0, column) == kWhite, "The heading is painted");
  for (int row = 2; row < table.Rows(); ++row) {
    Require(table.TextMatrix(row - 1, kTimeColumn) <= table.TextMatrix(row, kTimeColumn),
            "The table is not in the order of time");
  }
}

/// Traces that a call leaves behind it. They are meant, and gone with the end of the next one.
void WatchedDesk::RememberCall() {
  const Flags& flags = State();
  const bool takenOver = flags.PriorityPreempted && !Before.Preempted;
  if (takenOver && (Before.CallActive || TickOffByCall)) CallCutShort = true;
  if (CallCutShort) ZonesLeftBehind = KeysLeftDead = true;
  if (Sys->TheFrmPlayers.tmrMessage.Enabled) {
    TickOffByCall = false;
    if (!flags.CallActive) CallCutShort = false;
  }
  const bool called = flags.CallActive || TickOffByCall;
  CallStands = called || (CallStands && Pc.Loop.Waits() > 1);
  // With the other amplifier its end paints no zones, whoever has painted them before.
  if (CallStands && !Values().RouterPresent) ZonesLeftBehind = true;
  CallOverWaitingRow = flags.MessageAwaitingSongEnd && (CallOverWaitingRow || CallStands);
  CallOverMessage = flags.MessagePlaying && (CallOverMessage || CallStands);
  WavOfCall = Pc.Wav.Mode() == kWavePlaying &&
              (WavOfCall || flags.CallActive || takenOver || TickOffByCall);
  FadeOfCall = flags.FadeRunning && (FadeOfCall || flags.CallEndedDuringFade);
}

/// Whoever, but a call or the editor, switches the tick off has just painted the row that fires.
void WatchedDesk::CheckFiringRow() {
  if (!Before.TickOn || Sys->TheFrmPlayers.tmrMessage.Enabled || TickOffByCall) return;
  if (EditorIsOpen() && !Before.EditorOpen) return;
  Require(!Before.CallActive, "A row fires under a call");
  Require(State().PriorityClear || Before.PriorityClear, "A row fires under the amplifier's call");
  const int row = Sys->Tick.ScheduleRow;
  const Grid& table = Main().grdSchedule;
  if (row >= table.Rows() || CellColor(row, kMessagesColumn) != kNavy) return;  // built anew since
  Require(table.RowHeight(row) != 0, "A removed row fires");
  Require(Cell(row, kTimeColumn).substr(0, 5) == State().CurrentMinute,
          "A row of another minute fires");
}

/// A tick that is on takes up each minute within a second of its beginning, or of the end of a call
/// or an announcement. Calls and the editor arm it again at their end, though it may be on.
void WatchedDesk::CheckMinute() {
  constexpr int kPositionTimerMs = 100;  // the longest that nothing happens on a running machine
  constexpr int kTickMs = 1000;
  const LocalTime now = Pc.Clock.Now();
  const std::int64_t aheadS = SecondsOf(now) - NowMs() / 1000;
  const bool jumped = std::abs(aheadS - ClockAheadS) > 1;
  const bool stoodStill = NowMs() - CheckedAtMs > kPositionTimerMs;
  const bool tickOn = Sys->TheFrmPlayers.tmrMessage.Enabled;
  const bool armedAnew = Before.CallActive || Pc.Loop.Waits() < Before.WaitCount;
  const bool looksAway = State().CallActive || State().MessagePlaying || Before.Playing;
  if (looksAway || !tickOn || !Before.TickOn || jumped || stoodStill || armedAnew)
    SteadySinceMs = NowMs();
  if (NowMs() - SteadySinceMs > kTickMs && now.Second > 1) {
    Require(Sys->Tick.LastMinute == MinuteText(now), "The tick misses a minute");
  }
  CheckedAtMs = NowMs();
  ClockAheadS = aheadS;
}

std::vector<WatchedDesk::TableRow> WatchedDesk::ReadTable() {
  const Grid& table = Main().grdSchedule;
  std::vector<TableRow> rows;
  for (int row = 1; row < table.Rows(); ++row) {
    rows.push_back({table.TextMatrix(row, kTimeColumn).substr(0, 5),
                    table.TextMatrix(row, kDaysColumn), table.RowHeight(row) == 0});
  }
  return rows;
}

/// Number of the row that the minute of the tick makes due on that day, 0 for none: the first one
/// that is not removed, when its mask, without the sixth character, has the day on.
int WatchedDesk::RowDueIn(const std::vector<TableRow>& table, int weekday) {
  for (std::size_t row = 0; row < table.size(); ++row) {
    if (table[row].Removed || table[row].Minute != Sys->Tick.LastMinute) continue;
    std::string days = table[row].Days;
    if (days.size() > 5) days.erase(5, 1);
    const auto place = static_cast<std::size_t>(weekday - 1);
    const bool off = place < days.size() && days[place] == '0';
    return off ? 0 : static_cast<int>(row) + 1;
  }
  return 0;
}

/// The event that is looked at may have come behind the search, and changed table or date: one of
/// the two states around it must agree.
bool WatchedDesk::IsDue(int row) {
  const std::vector<TableRow> table = ReadTable();
  const int weekday = Pc.Clock.Now().Weekday;
  return row == RowDueIn(table, weekday) || row == RowDueIn(table, Before.Weekday) ||
         row == RowDueIn(Before.Table, weekday) || row == RowDueIn(Before.Table, Before.Weekday);
}

/// A minute that the tick accepts has its row fire, or has none. The row is sought after the fade
/// of the music's stop; another minute that comes in this fade takes the place of the first, and a
/// call of the amplifier that begins in it loses the row.
void WatchedDesk::CheckDueRow() {
  if (Sys->Tick.LastMinute != Before.LastMinute) {
    TickBegunInWaits.reset();
    Require(!Before.CallActive && !Before.Playing, "A minute is used up under a call or message");
    if (Before.PriorityClear) TickBegunInWaits = Before.WaitCount;
  }
  if (!State().PriorityClear) TickBegunInWaits.reset();
  if (!TickBegunInWaits) return;
  if (!Sys->TheFrmPlayers.tmrMessage.Enabled) {
    Require(IsDue(Sys->Tick.ScheduleRow), "Another row fires than the one that is due");
    ++Corners["a row that fires"];
  } else if (Pc.Loop.Waits() <= *TickBegunInWaits) {
    Require(IsDue(0), "A row that is due does not fire");
  } else {
    return;
  }
  TickBegunInWaits.reset();
}

WatchedDesk::Window WatchedDesk::ReadWindow() {
  const Settings& settings = Values();
  return {settings.MusicScheduled, settings.MusicStartTime, settings.MusicStopTime,
          settings.MusicWeekDays,  settings.MusicAutostart, settings.CurrentPlaylistFile};
}

bool WatchedDesk::OpensTheMusic(const Window& window) {
  const std::string& minute = Sys->Tick.LastMinute;
  const bool on =
      DayIsOn(window.WeekDays, Pc.Clock.Now().Weekday) || DayIsOn(window.WeekDays, Before.Weekday);
  return window.Scheduled && on && minute >= window.StartTime && minute < window.StopTime;
}

/// The clock starts music in a minute of its window alone, and never where the stop key or a call
/// bars it; an override lasts as long as the program.
void WatchedDesk::CheckMusicClock() {
  const Flags& flags = State();
  Require(flags.MusicStopOverridden || !Before.Overridden, "An override is taken back");
  if (flags.MusicStartedBySchedule && !Before.StartedBySchedule) {
    Require(Sys->Tick.LastMinute != Before.LastMinute,
            "The clock starts music between two minutes");
    Require(OpensTheMusic(ReadWindow()) || OpensTheMusic(Before.Playlist),
            "The clock starts music outside its window");
    Require(Before.PriorityClear && !Before.StoppedByUser && !Before.CallActive,
            "The clock starts music that is barred");
    ++Corners["a start by the clock"];
  }
  if (flags.MusicStoppedBySchedule && !Before.StoppedBySchedule) {
    Require(!Before.Overridden, "The clock stops music though the operator has overridden it");
    Require(Before.StartedBySchedule, "The clock stops music that it has not started");
  }
}

/// Where the player has reported the end of a message, the next one begins or the sequence ends at
/// once, whatever box or dialog is open. One that a call has cut off waits under it for its end.
void WatchedDesk::CheckMessageGoesOn() {
  if (!State().MessagePlaying || !State().WavFinished || CallOverMessage) {
    WavReportedAtMs.reset();
    return;
  }
  if (!WavReportedAtMs) WavReportedAtMs = NowMs();
  Require(NowMs() == *WavReportedAtMs, "A message has ended, and its sequence stands still");
}

void WatchedDesk::CheckWaits() {
  Require(Pc.Loop.Waits() <= kMostWaits, "Waits pile up");
  Require(Pc.Dialogs.OpenBoxCount() <= kMostBoxes, "Boxes pile up");
}

/// Nothing waits: no fade and no message is on, and the tick is off only for a row that waits for
/// the song's end, or for the editor.
void WatchedDesk::CheckRest() {
  if (State().CallActive) return;  // it speaks
  Require(!State().FadeRunning || FadeOfCall, "At rest, and a fade runs");
  Require(!State().MessagePlaying, "At rest, and messages play");
  Require(Pc.Wav.Mode() != kWavePlaying || WavOfCall || PreviewSounds,
          "At rest, and a message sounds");
  CheckKeysAtRest();
  CheckZonesAtRest();
}

/// After a call that was cut short the tick stands until the next whole one, and so do the keys if
/// the call had cut a message off.
void WatchedDesk::CheckKeysAtRest() {
  const bool tickOn = Sys->TheFrmPlayers.tmrMessage.Enabled;
  const bool awaiting = State().MessageAwaitingSongEnd;
  Require(tickOn || awaiting || CallCutShort || EditorIsOpen(),
          "At rest, and the tick is off without a reason");
  Require(!tickOn || !awaiting || CallOverWaitingRow || EditorOverWaitingRow,
          "At rest, and the tick is on too early");
  Require(Main().cmdPlay.Enabled || KeysLeftDead ||
              Main().lstPlaylist.ListIndex() == ListBox::kNoSelection,
          "At rest, and the play key is dead");
}

void WatchedDesk::CheckZonesAtRest() {
  for (int zone = 0; zone < kZones; ++zone)
    Require(Main().cmdMusicZones[zone].Enabled, "At rest, and a zone key is dead");
  Require(ZonesLeftBehind || MusicZonesAreLit(),
          "At rest, and the labels are not those of the music");
}

bool WatchedDesk::MusicZonesAreLit() {
  for (int zone = 0; zone < kZones; ++zone) {
    const bool lit = Main().lblCurrentZone[zone].BackColor == kGreen;
    if (lit != Main().cmdMusicZones[zone].Value) return false;
  }
  return true;
}

void WatchedDesk::StrikeCallKey(int key, bool down) {
  CommandButton& button = key == 1 ? Main().cmdCall : Main().cmdCall2;
  if (!Main().Visible) return;
  RememberCall();              // a nested stroke may be the first event of a call
  if (!down) KeyHeld = false;  // either key ends the call of the other
  if (!down) return button.OnMouseUp(MouseButton::Left);
  if (!button.Enabled || !button.Visible) return;
  const Flags& flags = State();
  if (!flags.CallActive && !flags.PriorityPreempted && flags.PriorityClear) {
    KeyHeld = CallWasPressed = TickOffByCall = true;
    CallCutShort |= flags.CallEndedDuringChime && !Values().PreChime.empty();
    CallOverWaitingRow |= flags.MessageAwaitingSongEnd;
    TickBegunInWaits.reset();
    Before.LastMinute = Sys->Tick.LastMinute;
    SteadySinceMs = NowMs();
  }
  button.OnMouseDown(MouseButton::Left);
}

void WatchedDesk::PlugIn() {
  Pc.Serial.Device = Pc.Serial.CommPort();
  Pc.Serial.Plug();
}

void WatchedDesk::PressSong(int entry) {
  if (!Main().Visible || entry >= Main().lstPlaylist.ListCount()) return;
  SongPressed = true;
  Do([this, entry] {
    Main().lstPlaylist.SetListIndex(entry);
    Main().lstPlaylist.OnMouseDown(MouseButton::Left);
  });
}

void WatchedDesk::DragTo(int entry) {
  if (!SongPressed || entry >= Main().lstPlaylist.ListCount()) return;
  Do([this, entry] {
    ListBox& list = Main().lstPlaylist;
    for (int steps = list.ListCount(); steps > 0 && list.ListIndex() != entry; --steps) {
      const int at = list.ListIndex();
      list.SetListIndex(at == ListBox::kNoSelection ? entry : at + (at < entry ? 1 : -1));
      list.OnMouseMove();
    }
  });
}

void WatchedDesk::LetGo() {
  if (!SongPressed) return;
  SongPressed = false;
  Do([this] { Main().lstPlaylist.OnMouseUp(); });
}

}  // namespace marlex
