#include "scenario/recovery.h"

#include <algorithm>
#include <sstream>

#include "scenario/inspectors/call.h"
#include "scenario/random_day.h"
#include "scenario/random_installation.h"
#include "schedule/open_sequences.h"
#include "state/week_time.h"
#include "text/split.h"

namespace marlex {
namespace {

constexpr int kMinuteMs = 60'000;
constexpr int kLongestWaitMs = 20 * kMinuteMs;
constexpr int kRoutingDelayMs = 200;
constexpr int kCloseMs = 50;
constexpr int kSettleMs = 2000;  // for bytes that are on their way

std::string ByText(const std::string& rule, const std::string& expected, const std::string& found) {
  return rule + "\nexpected:\n" + expected + "found:\n" + found;
}

bool IsClockTime(const std::string& time) {
  const auto digit = [&](std::size_t place) { return time[place] >= '0' && time[place] <= '9'; };
  return time.size() == 5 && time[2] == ':' && digit(0) && digit(1) && digit(3) && digit(4) &&
         time < "24:00" && time[3] < '6';
}

}  // namespace

void Recovery::Run() {
  Heal();
  AnswerBoxes();
  CloseWindows();
  RunProgram();
  ChooseDirectories();
  TheDesk.Status(0);
  EndWaits();
  LetGoOfTheButton();
  if (TickIsHeld()) Call();
  StopAndPlay();
  TheDesk.Advance(kSettleMs);
  while (!Announce(AwaitRow())) {
  }
  if (!TheDesk.CallWasPressed()) return;
  Call();
  RequireRestored();
}

void Recovery::Heal() {
  for (const std::string& path : BreakablePaths()) {
    TheDesk.Pc.Disk.Return(path);
    TheDesk.Pc.Disk.Heal(path);
  }
  TheDesk.Pc.Mixer.RefusesSettings = false;
  AddGoodFiles(TheDesk.Pc.Disk);  // a save may have overwritten them by mistake
}

/// A box closes once the waits on top of it have ended.
void Recovery::AnswerBoxes() {
  SimulatedDialogs& dialogs = TheDesk.Pc.Dialogs;
  dialogs.AnswerAfterMs = 0;
  dialogs.OpenResults.clear();
  for (int boxes = dialogs.OpenBoxCount(); boxes > 0; --boxes) {
    dialogs.Answer();
    TheDesk.Advance(0);
  }
}

/// The schedule resumes once the editor is closed. A program that has ended took its windows along.
void Recovery::CloseWindows() {
  if (TheDesk.Pc.Process.Ended()) return;
  Windows& windows = TheDesk.Sys->TheWindows;
  if (windows.frmDirSel.Visible) TheDesk.Click("cmdOK");
  if (windows.frmChimeSelect.Visible) TheDesk.Click("cmdCancel");
  if (windows.TheWavWindow.Visible) TheDesk.Click("mnuExit");
  if (windows.frmPlaylist.Visible) TheDesk.Click(windows.frmPlaylist.mnuExit);
  Require(!windows.TheWavWindow.Loaded() && !windows.frmPlaylist.Loaded(),
          "An editor does not close");
}

/// The line is found one second after it is plugged in.
void Recovery::RunProgram() {
  constexpr int kSplashMs = 2500;
  if (TheDesk.Pc.Process.Ended()) TheDesk.Restart();
  if (!TheDesk.Main().Visible) TheDesk.Advance(kSplashMs);
  if (!TheDesk.Main().Visible && TheDesk.Shows("cmdOK")) {
    TheDesk.Click("cmdOK");
    TheDesk.Advance(kSplashMs);
  }
  // Unreadable settings have made this a first run.
  if (TheDesk.Sys->TheWindows.frmSettings.Visible) TheDesk.Click("cmdCancel");
  if (TheDesk.Pc.Process.Ended()) TheDesk.Restart();
  Require(TheDesk.Main().Visible, "The main window does not come up");
  TheDesk.PlugIn();
  TheDesk.Advance(1000);
}

/// What an operator does after finding out why there is no sound.
void Recovery::ChooseDirectories() {
  const Settings& settings = TheDesk.Values();
  if (settings.MusicDirectory == "/music/" && settings.MessageDirectory == "/messages/") return;
  TheDesk.Click("mnuSettings");
  ChooseDirectory("cmdBgBrowse", "/music");
  ChooseDirectory("cmdMsgBrowse", "/messages");
  TheDesk.Click("cmdOK");
  Require(settings.MusicDirectory == "/music/" && settings.MessageDirectory == "/messages/",
          "The directories cannot be chosen");
  TheDesk.Advance(1000);
}

void Recovery::ChooseDirectory(const std::string& browse, const std::string& directory) {
  TheDesk.Click(browse);
  ListBox& tree = TheDesk.Sys->TheWindows.frmDirSel.Dir1;
  TheDesk.DoubleClick(tree, "/");
  TheDesk.Choose(tree, directory);
  TheDesk.Click("cmdOK");
}

void Recovery::EndWaits() {
  const bool ended =
      TheDesk.Pc.Loop.RunUntil([this] { return TheDesk.Pc.Loop.Waits() == 1; }, kLongestWaitMs);
  Require(ended, "A wait does not end");
  Require(TheDesk.Pc.Dialogs.OpenBoxCount() == 0, "A box does not close");
}

void Recovery::LetGoOfTheButton() {
  Require(!TheDesk.State().CallActive || TheDesk.CallButtonIsHeld(),
          "A call has outlived its release");
  TheDesk.Do([this] { TheDesk.StrikeCallButton(1, false); });
  EndWaits();
}

/// After a call that the amplifier has cut off, the tick stays off until another call.
bool Recovery::TickIsHeld() {
  return !TheDesk.Sys->TheFrmPlayers.tmrMessage.Enabled && !TheDesk.State().MessageAwaitingSongEnd;
}

/// Every press speaks, with one exception: the first call with a pre-chime after calls without one,
/// before the first WAV of all, counts as released immediately.
void Recovery::Call() {
  const bool isLost = TheDesk.State().CallEndedDuringChime && !TheDesk.Values().PreChime.empty();
  if (isLost) CallOnce();
  Require(CallOnce(), "No call comes through");
}

/// Presses, speaks for a while, and releases. False when the press had no effect.
bool Recovery::CallOnce() {
  const int number = TheDesk.Values().RouterPresent ? 1 : 2;
  TheDesk.TakeJournal();
  TheDesk.Do([this, number] { TheDesk.StrikeCallButton(number, true); });
  EndWaits();
  TheDesk.Advance(kSettleMs);
  const bool speaks = TheDesk.State().CallActive && CallButtonsSay(TheDesk, kStrSpeak);
  TheDesk.Do([this, number] { TheDesk.StrikeCallButton(number, false); });
  EndWaits();
  Require(!TheDesk.State().CallActive, "A call outlives its release");
  return speaks;
}

void Recovery::StopAndPlay() {
  TheDesk.Click("cmdStop");
  if (!TheDesk.Enabled("cmdPlay") && TheDesk.Main().lstPlaylist.ListCount() > 0) TheDesk.Select(0);
  TheDesk.Click("cmdPlay");
  if (TheDesk.Pc.Song.PlayState() != kPlaying) OpenGoodList();
  Require(TheDesk.Pc.Song.PlayState() == kPlaying, "The music does not play");
}

void Recovery::OpenGoodList() {
  TheDesk.Pc.Dialogs.OpenResults = {kGoodPlaylist};
  TheDesk.Click("mnuOpen");
  TheDesk.Click("cmdPlay");
}

/// Whether the music's clock may interfere with the announcement of this row: it stops only what it
/// has started, from its stop time on, and may have done so already.
bool Recovery::ClockMayStopBy(const DueRow& row) {
  constexpr int kLongestAnnouncementMinutes = 10;
  const Flags& flags = TheDesk.State();
  const Settings& settings = TheDesk.Values();
  if (flags.MusicStoppedBySchedule) return true;
  if (!flags.MusicStartedBySchedule || flags.MusicStopOverridden) return false;
  if (settings.MusicStartTime.empty()) return false;
  const LocalTime now = TheDesk.Pc.Clock.Now();
  const int over = std::stoi(row.Time.substr(0, 2)) * 60 + std::stoi(row.Time.substr(3)) +
                   kLongestAnnouncementMinutes;
  const bool today = row.Time > MinuteText(now) && over < 24 * 60;
  return !today || MinuteText({.Hour = over / 60, .Minute = over % 60}) >= settings.MusicStopTime;
}

/// Runs to ten seconds before a row that nothing prevents from firing.
Recovery::DueRow Recovery::AwaitRow() {
  constexpr int kTries = 8;
  constexpr int kReadySecond = 50;
  for (int tries = 0; tries < kTries; ++tries) {
    const auto tickIsOn = [this] {
      return AtRest(TheDesk) && TheDesk.Sys->TheFrmPlayers.tmrMessage.Enabled;
    };
    Require(TheDesk.Pc.Loop.RunUntil(tickIsOn, kLongestWaitMs), "The tick does not come back");
    // In the last seconds of a minute it is too late to prepare for the next one.
    const int second = TheDesk.Pc.Clock.Now().Second;
    TheDesk.Advance(second >= kReadySecond ? (60 - second) * 1000 : 0);
    if (!tickIsOn()) continue;
    std::optional<DueRow> row = NextRow(MinuteText(TheDesk.Pc.Clock.Now()));
    if (!row) {
      TheDesk.Pc.Dialogs.OpenResults = {kGoodSchedule};
      TheDesk.Click("mnuSequence");
      row = NextRow(MinuteText(TheDesk.Pc.Clock.Now()));
    }
    if (!row) row = NextRow("");  // tomorrow's first
    Require(row.has_value(), "The good schedule has no row");
    // A list of extremely short songs would start over millions of times before the row is due.
    constexpr double kMomentSeconds = 1;
    const bool moments = TheDesk.Pc.Song.Duration() < kMomentSeconds;
    if (moments || ClockMayStopBy(*row)) OpenGoodList();
    const int hour = std::stoi(row->Time.substr(0, 2));
    const int minute = std::stoi(row->Time.substr(3));
    TheDesk.RunTo(minute == 0 ? (hour + 23) % 24 : hour, (minute + 59) % 60, kReadySecond);
    if (tickIsOn()) return *row;
  }
  throw BrokenRule("The desk does not come to rest");
}

/// The first row after this minute that fires today. Only the first row of each minute counts, even
/// if it does not run today.
std::optional<Recovery::DueRow> Recovery::NextRow(const std::string& after) {
  const Grid& table = TheDesk.Main().grdSchedule;
  std::string seen;
  for (int row = 1; row < table.Rows(); ++row) {
    const std::string time = TheDesk.Cell(row, kTimeColumn).substr(0, 5);
    if (table.RowHeight(row) == 0 || time == seen || time <= after || !IsClockTime(time)) continue;
    seen = time;
    if (RunsToday(row)) return RowAt(row);
  }
  return std::nullopt;
}

/// Ignores the sixth character of the mask, as the tick does.
bool Recovery::RunsToday(int row) {
  std::string mask = TheDesk.Cell(row, kDaysColumn);
  if (mask.size() >= 6) mask.erase(5, 1);
  return DayIsOn(mask, TheDesk.Pc.Clock.Now().Weekday);
}

Recovery::DueRow Recovery::RowAt(int row) {
  DueRow due;
  const std::string time = TheDesk.Cell(row, kTimeColumn);
  due.Time = time.substr(0, 5);
  due.AtMusicBreak = time.find('+') != std::string::npos;
  due.Zones = TheDesk.Cell(row, kRoutingColumn);
  for (const std::string& name : SplitCuttingLast(TheDesk.Cell(row, kMessagesColumn), ','))
    due.Files.push_back(name + ".wav");
  return due;
}

/// False when another row began before the last byte of this one was sent.
bool Recovery::Announce(const DueRow& row) {
  Require(TheDesk.Pc.Song.PlayState() == kPlaying, "The music has stopped by itself");
  TheDesk.TakeJournal();
  const auto tickIsOn = [this] { return TheDesk.Sys->TheFrmPlayers.tmrMessage.Enabled.Get(); };
  const bool begun = TheDesk.Pc.Loop.RunUntil([&] { return !tickIsOn(); }, kMinuteMs);
  Require(begun, "The next row does not fire");
  EndWaits();
  Require(TheDesk.Pc.Loop.RunUntil(tickIsOn, kLongestWaitMs),
          "The tick does not come back after an announcement");
  RequireRestored();
  TheDesk.Advance(kRoutingDelayMs + kCloseMs);
  if (!tickIsOn()) return false;
  RequireHeard(row);
  RequireSent(row);
  return true;
}

/// Lines of the journal of these categories, without their times.
std::string Recovery::Lines(const std::string& categories) {
  std::string lines;
  std::istringstream text(TheDesk.Journal());
  for (std::string time, line; text >> time && std::getline(text, line);) {
    const std::string category = line.substr(1, line.find(' ', 1) - 1);
    if (categories.find(category) != std::string::npos) lines += line.substr(1) + "\n";
  }
  return lines;
}

/// Songs may end and begin around the announcement; a paused one comes back.
void Recovery::RequireHeard(const DueRow& row) {
  std::string expected;
  for (const std::string& file : row.Files) {
    const bool sounds =
        TheDesk.Pc.Disk.MediaLengthMs("/messages/" + file, MediaKind::Wav).has_value();
    expected +=
        sounds ? "wav play " + file + "\nwav end " + file + "\n" : "wav refuse " + file + "\n";
  }
  const std::string heard = Lines("wav");
  Require(heard == expected, ByText("The messages are not as due", expected, heard));
  const std::string songs = Lines("song");
  const bool paused = songs.find("song pause\nsong resume") != std::string::npos;
  Require(paused != row.AtMusicBreak,
          ByText("The music does not make way and come back", "", songs));
}

/// Zones that the music's would replace within the routing delay are never sent.
void Recovery::RequireSent(const DueRow& row) {
  const int lengthMs = MessagesMs(row);
  if (std::abs(lengthMs - kRoutingDelayMs) < kCloseMs) return;
  std::string expected;
  if (TheDesk.Values().RouterPresent && !row.AtMusicBreak) {
    if (lengthMs > kRoutingDelayMs) expected = "send " + ByteFor(row.Zones, '\0') + "\n";
    expected += "send " + ByteFor(TheDesk.Values().MusicRouting, '1') + "\n";
  }
  const std::string sent = Lines("send lost");
  Require(sent == expected, ByText("The bytes are not as due", expected, sent));
}

int Recovery::MessagesMs(const DueRow& row) {
  int lengthMs = 0;
  for (const std::string& file : row.Files) {
    const auto length = TheDesk.Pc.Disk.MediaLengthMs("/messages/" + file, MediaKind::Wav);
    if (length) lengthMs += std::max(*length, 1);
  }
  return lengthMs;
}

/// The byte for six places. A place feeds its zone if it holds `fed` or, when `fed` is 0, its own
/// digit.
std::string Recovery::ByteFor(const std::string& zones, char fed) {
  int byte = 0;
  for (std::size_t place = 0; place < kZones && place < zones.size(); ++place) {
    const char on = fed != '\0' ? fed : static_cast<char>('1' + place);
    if (zones[place] == on) byte |= 1 << place;
  }
  return std::to_string(byte == 0 ? 0 : byte + TheDesk.Values().OwnPriorityLevel);
}

/// A fade up that reaches full level on its way past the target stays there.
void Recovery::RequireRestored() {
  constexpr int kTouchesFullLevel = 4000;
  const int volume = TheDesk.Values().MusicVolume;
  const int slider = TheDesk.WaveSlider();
  Require(slider == volume || (slider == 0 && volume < kTouchesFullLevel),
          "The music's level is " + std::to_string(slider) + ", not " + std::to_string(volume));
  // Where the card shows no wave line, the master takes its place.
  const bool ownMaster = TheDesk.Sys->Mixer.WaveLine != 0;
  Require(!ownMaster || TheDesk.Slider(0) == TheDesk.Values().MasterVolume,
          "The master's level is not back");
  Require(!TheDesk.MuteCheck(0) && !TheDesk.MuteCheck(TheDesk.Sys->Mixer.WaveLine),
          "A mute stays on");
  Require(TheDesk.Pc.Song.PlayState() == kPlaying, "The music is not back");
  for (const char* button : {"cmdPlay", "cmdSkip", "cmdStop"})
    Require(TheDesk.Enabled(button), std::string("A button stays disabled: ") + button);
}

}  // namespace marlex
