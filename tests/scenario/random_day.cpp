#include "scenario/random_day.h"

#include <algorithm>
#include <utility>

#include "scenario/dice.h"
#include "scenario/editor_hands.h"
#include "scenario/playlist_hands.h"
#include "scenario/random_installation.h"
#include "scenario/settings_hands.h"

namespace marlex {
namespace {

using Texts = std::vector<std::string>;

/// A file dialog that is already open gets this answer instead.
Deed OpenDialog(const std::string& menu, const std::string& answer) {
  return {"choose \"" + answer + "\" through " + menu, [menu, answer](WatchedDesk& desk) {
            if (!desk.Shows(menu)) return;
            desk.Pc.Dialogs.OpenResults = {answer};
            desk.Click(menu);
          }};
}

Deed DrawTransport(Dice& dice) {
  static const Texts buttons{"cmdPlay", "cmdPlay", "cmdSkip", "cmdSkip", "cmdStop"};
  return ClickOn(dice.Of(buttons));
}

/// What the finger on a call button does, and when.
struct Stroke {
  int AfterMs = 0;
  bool Down = true;
};

/// Mostly a press and its release; the hand may also tremble, miss the button, or stay on it.
std::vector<Stroke> DrawStrokes(Dice& dice) {
  const int kind = dice.Between(1, 10);
  if (kind == 1) return {{0, false}};
  if (kind == 2) return {{0, true}};
  const std::vector<int> lengthsMs{0, 300, 700, 1500, 5000, 5000, 60'000};
  const int lengthMs = dice.Between(0, dice.Of(lengthsMs));
  std::vector<Stroke> strokes{{0, true}, {lengthMs, false}};
  while (dice.OneIn(3)) strokes.push_back({dice.Between(0, lengthMs + 1500), dice.OneIn(2)});
  return strokes;
}

/// The strokes interrupt whatever is waiting at that moment.
Deed DrawTalk(Dice& dice) {
  const bool first = !dice.OneIn(3);
  const std::vector<Stroke> strokes = DrawStrokes(dice);
  std::string what = first ? "call button 1:" : "call button 2:";
  for (const Stroke& stroke : strokes)
    what += (stroke.Down ? " down " : " up ") + std::to_string(stroke.AfterMs);
  return {what, [strokes, first](WatchedDesk& desk) {
            for (const Stroke& stroke : strokes) {
              desk.Pc.Loop.Schedule(stroke.AfterMs, [&desk, first, down = stroke.Down] {
                desk.StrikeCallButton(first ? 1 : 2, down);
              });
            }
            desk.Advance(0);
          }};
}

/// What an operator does when the shop is silent.
Deed SetThingsRight(Dice& /*dice*/) {
  return {"open the good list and play", [](WatchedDesk& desk) {
            if (!desk.Shows("mnuOpen")) return;
            desk.Pc.Dialogs.OpenResults = {kGoodPlaylist};
            desk.Click("mnuOpen");
            desk.Click("cmdPlay");
          }};
}

Deed DrawZoneButton(Dice& dice) {
  const std::string zone = std::to_string(dice.Between(0, kZones - 1));
  return ClickOn((dice.OneIn(4) ? "cmdCallZone_" : "cmdMusicZones_") + zone);
}

Deed DrawMenu(Dice& dice) {
  static const Texts menus{"mnuAllDays",  "mnuCurrentDay", "mnuScheduleName",
                           "mnuAboutbox", "cmdOK",         "mnuPlaylist",
                           "mnuSettings", "mnuFKeys",      "mnuAdresses"};
  if (dice.OneIn(20)) return ClickOn("mnuClose");
  if (dice.OneIn(30)) return ClickOn("mnuExit");
  if (dice.OneIn(20)) return ClickOn("optLanguage_" + std::to_string(dice.Between(0, 13)));
  const std::string& menu = dice.Of(menus);
  if (menu == "mnuAdresses") return OpenDialog(menu, "");
  return ClickOn(menu);
}

Deed DrawFileDialog(Dice& dice) {
  if (dice.OneIn(2)) {
    const bool cancels = dice.OneIn(6);
    return OpenDialog("mnuOpen", cancels ? "" : dice.Of(PlaylistPaths()));
  }
  std::string result = "/app/" + dice.Of(ScheduleNames());
  if (dice.OneIn(2)) {
    result = "/app/";
    for (int files = dice.Between(2, 4); files > 0; --files)
      result += " " + dice.Of(ScheduleNames());
  }
  if (dice.OneIn(8)) result = dice.Of(Texts{"", "/app/notes.txt", "/app/a.sch.bak"});
  return OpenDialog("mnuSequence", result);
}

Deed DrawListHand(Dice& dice) {
  const int entry = dice.Between(0, dice.OneIn(3) ? 29 : 5);
  const auto deed = [entry](const std::string& what, void (*hand)(WatchedDesk&, int)) {
    return Deed{what + " song " + std::to_string(entry), [entry, hand](WatchedDesk& desk) {
                  const bool there = entry < desk.Main().lstPlaylist.ListCount();
                  if (desk.Main().Visible && there) hand(desk, entry);
                }};
  };
  switch (dice.Between(1, 10)) {
    case 10: {
      const int to = dice.Between(0, 6);
      return {"drag song " + std::to_string(entry) + " to " + std::to_string(to),
              [entry, to](WatchedDesk& desk) {
                desk.PressSong(entry);
                desk.DragTo(to);
                desk.LetGo();
              }};
    }
    case 1:
    case 2:
      return deed("select", [](WatchedDesk& desk, int song) { desk.Select(song); });
    case 3:
    case 4:
      return deed("double-click", [](WatchedDesk& desk, int song) { desk.DoubleClickSong(song); });
    case 5:
      return {"delete the selected song", [](WatchedDesk& desk) {
                if (desk.Main().Visible) desk.PressKeyInList(kKeyDelete);
              }};
    case 6:
    case 7:
      return deed("press", [](WatchedDesk& desk, int song) { desk.PressSong(song); });
    case 8:
      return deed("drag to", [](WatchedDesk& desk, int song) { desk.DragTo(song); });
    default:
      return {"let go of the song", [](WatchedDesk& desk) { desk.LetGo(); }};
  }
}

/// A cell of any row, preferably one that is marked red. A single click only moves the table's row
/// and column, even during an announcement.
Deed DrawTableHand(Dice& dice) {
  const int place = dice.Between(0, 1000);
  const int column = dice.OneIn(4) ? dice.Between(0, Grid::kColumns - 1) : kTimeColumn;
  const bool twice = !dice.OneIn(3);
  const auto click = [place, column, twice](WatchedDesk& desk) {
    std::vector<int> rows, redRows;
    for (int row = 1; row < desk.Main().grdSchedule.Rows(); ++row) {
      if (desk.Main().grdSchedule.RowHeight(row) == 0) continue;
      rows.push_back(row);
      if (desk.CellColor(row, kTimeColumn) == kRed) redRows.push_back(row);
    }
    const std::vector<int>& among = redRows.empty() || place % 4 == 0 ? rows : redRows;
    if (!desk.Main().Visible || among.empty()) return;
    const int row = among[static_cast<std::size_t>(place) % among.size()];
    if (twice) {
      desk.DoubleClickCell(row, column);
    } else {
      desk.ClickCell(row, column);
    }
  };
  return {(twice ? "double-click row " : "click row ") + std::to_string(place) + " column " +
              std::to_string(column),
          click};
}

Deed DrawBytes(Dice& dice) {
  std::vector<int> bytes;
  const bool noise = dice.OneIn(4);
  const int count = noise ? dice.Between(1, 40) : 1;
  for (int byte = 0; byte < count; ++byte) {
    static const std::vector<int> statuses{0, 0, 0, 64, 128, 128, 192, 63, 127, 191, 255};
    bytes.push_back(noise ? dice.Between(0, 255) : dice.Of(statuses));
  }
  const bool oneByOne = dice.OneIn(2);
  std::string what = oneByOne ? "bytes, one by one," : "bytes";
  for (const int byte : bytes) what += " " + std::to_string(byte);
  return {what, [bytes, oneByOne](WatchedDesk& desk) {
            if (!oneByOne) desk.Pc.Serial.Receive(bytes);
            int delayMs = 0;
            for (const int byte : oneByOne ? bytes : std::vector<int>{})
              desk.Pc.Serial.ReceiveIn(delayMs++, {byte});
            desk.Advance(0);
          }};
}

/// A call at the amplifier's own inputs, from its beginning to its end.
Deed DrawCall(Dice& dice) {
  const int level = dice.Of(std::vector<int>{64, 128, 128, 192});
  const int lengthMs = dice.OneIn(2) ? dice.Between(50, 3000) : dice.Between(3000, 90'000);
  return {"a call of level " + std::to_string(level) + " for " + std::to_string(lengthMs) + " ms",
          [level, lengthMs](WatchedDesk& desk) {
            desk.Pc.Serial.ReceiveIn(lengthMs, {0});
            desk.Status(level);
          }};
}

void HealEverything(WatchedDesk& desk) {
  for (const std::string& broken : BreakablePaths()) {
    desk.Pc.Disk.Return(broken);
    desk.Pc.Disk.Heal(broken);
  }
  desk.PlugIn();
  desk.Pc.Mixer.RefusesSettings = false;
}

/// A fault that somebody repairs after a while, together with all others.
Deed DrawFault(Dice& dice) {
  const std::string path = dice.Of(BreakablePaths());
  const int lengthMs =
      dice.OneIn(2) ? dice.Between(100, 5000) : dice.Between(5000, RandomDay::kLongestMs);
  const auto fault = [&](const std::string& what,
                         const std::function<void(WatchedDesk&)>& breakIt) {
    return Deed{what + " for " + std::to_string(lengthMs) + " ms",
                [lengthMs, breakIt](WatchedDesk& desk) {
                  breakIt(desk);
                  desk.Pc.Loop.Schedule(lengthMs, [&desk] { HealEverything(desk); });
                }};
  };
  switch (dice.Between(1, 5)) {
    case 5:
      return fault("refuse all levels and mutes",
                   [](WatchedDesk& desk) { desk.Pc.Mixer.RefusesSettings = true; });
    case 1:
      return fault("vanish " + path, [path](WatchedDesk& desk) { desk.Pc.Disk.Vanish(path); });
    case 2:
      return fault("fail reads of " + path,
                   [path](WatchedDesk& desk) { desk.Pc.Disk.FailReads(path); });
    case 3:
      return fault("fail writes of " + path,
                   [path](WatchedDesk& desk) { desk.Pc.Disk.FailWrites(path); });
    default:
      return fault("unplug the amplifier", [](WatchedDesk& desk) { desk.Pc.Serial.Unplug(); });
  }
}

Deed DrawClock(Dice& dice) {
  if (dice.OneIn(5)) {
    const int ms = dice.Between(1, 90'000);
    return {"the machine stalls for " + std::to_string(ms) + " ms",
            [ms](WatchedDesk& desk) { desk.Pc.Loop.Block(ms); }};
  }
  static const std::vector<int> jumps{60, -60, 3600, -3600, 86'400, -86'400, 7 * 86'400};
  const int seconds = dice.OneIn(4) ? dice.Between(-400, 400) : dice.Of(jumps);
  return {"the clock jumps by " + std::to_string(seconds) + " s",
          [seconds](WatchedDesk& desk) { desk.Pc.Clock.Jump(seconds); }};
}

Deed DrawAnswer(Dice& dice) {
  if (dice.OneIn(2)) {
    return {"answer the box on top", [](WatchedDesk& desk) {
              desk.Pc.Dialogs.Answer();
              desk.Advance(0);
            }};
  }
  const std::vector<int> delays{0, SimulatedDialogs::kNever, dice.Between(1, 60'000)};
  const int delayMs = dice.Of(delays);
  return {"boxes are answered after " + std::to_string(delayMs) + " ms",
          [delayMs](WatchedDesk& desk) { desk.Pc.Dialogs.AnswerAfterMs = delayMs; }};
}

Deed DrawEnd(Dice& dice) {
  if (dice.OneIn(4)) {
    return {"close the main window", [](WatchedDesk& desk) {
              if (desk.Main().Visible) desk.CloseMainWindow();
            }};
  }
  return {"power cut", [](WatchedDesk& desk) { desk.Restart(); }};
}

/// What happens on one day. Every day leaves out some kinds, so that the effects which they would
/// undo can accumulate.
class Luck {
 public:
  explicit Luck(Dice& dice) : TheDice(dice) {
    for (const auto& [draw, weight] : kKinds) {
      const int share = dice.OneIn(3) ? 0 : weight;
      Kinds.insert(Kinds.end(), static_cast<std::size_t>(share), draw);
    }
    if (Kinds.empty()) Kinds.push_back(DrawTransport);
  }

  Deed DrawDeed() { return TheDice.Of(Kinds)(TheDice); }

 private:
  using Draw = Deed (*)(Dice&);
  static inline const std::vector<std::pair<Draw, int>> kKinds{
      {SetThingsRight, 6},  {DrawTransport, 15},    {DrawZoneButton, 5}, {DrawMenu, 9},
      {DrawFileDialog, 5},  {DrawListHand, 11},     {DrawTableHand, 9},  {DrawBytes, 6},
      {DrawCall, 14},       {DrawFault, 8},         {DrawClock, 5},      {DrawAnswer, 6},
      {DrawEnd, 2},         {DrawSettingsHand, 12}, {DrawPickerHand, 7}, {DrawTalk, 16},
      {DrawEditorHand, 25}, {DrawPlaylistHand, 25}};

  Dice& TheDice;
  std::vector<Draw> Kinds;
};

/// The minutes of a day are either busy or quiet. In a busy one, most things happen within seconds
/// of its beginning, when announcements begin.
std::vector<std::int64_t> DrawTimesMs(Dice& dice, int startSecond, std::int64_t lengthMs,
                                      int calmness) {
  constexpr std::int64_t kFirstMs = 3000;
  std::vector<std::int64_t> timesMs;
  for (std::int64_t minuteMs = 60'000; minuteMs < lengthMs; minuteMs += 60'000) {
    if (!dice.OneIn(calmness)) continue;
    for (int happenings = dice.Between(1, 9); happenings > 0; --happenings) {
      const std::vector<int> windowsMs{2500, 2500, 15'000, 59'000};
      const int afterMs = dice.Between(-200, dice.Of(windowsMs));
      timesMs.push_back(std::max(minuteMs - startSecond * 1000 + afterMs, kFirstMs));
    }
  }
  std::sort(timesMs.begin(), timesMs.end());
  return timesMs;
}

/// Skips the rest of a day of which only a part is simulated.
Deed SkipTheRestOfTheDay() {
  constexpr int kDaySeconds = 86'400;
  return {"the rest of the day goes by",
          [](WatchedDesk& desk) { desk.Pc.Clock.Jump(kDaySeconds - RandomDay::kLivedMs / 1000); }};
}

}  // namespace

const std::vector<std::string>& BreakablePaths() {
  static const Texts paths{"/app",   "/app/Tolvo.ini",   "/app/Day.lst", "/app/a.sch",
                           "/music", "/music/march.mp3", "/messages",    "/messages/welcome.wav"};
  return paths;
}

RandomDay::RandomDay(std::uint64_t seed, Span span)
    : LengthMs(span == Span::Week ? 7 * kLivedMs : kLivedMs) {
  Dice dice(seed);
  Installation = DrawInstallation(dice);
  if (span == Span::Week) {
    constexpr int kLastMinutes = 40;  // before midnight
    Installation.Now[3] = 23;
    Installation.Now[4] = dice.Between(kLastMinutes, 59);
    // In a week, songs without any length would cause half a billion events; the days have them
    // too.
    constexpr int kShortestSongMs = 20'000;
    for (Medium& song : Installation.Music)
      song.LengthMs = std::max(song.LengthMs, kShortestSongMs);
  }
  Prepare = DrawFiles(dice, Installation);
  Luck luck(dice);
  const int calmness = span == Span::Week ? 8 : 2;
  for (const std::int64_t atMs : DrawTimesMs(dice, Installation.Now[5], LengthMs, calmness)) {
    auto [what, deed] = luck.DrawDeed();
    Happenings.push_back({atMs, what, deed});
  }
  for (std::int64_t dayMs = kLivedMs; dayMs < LengthMs; dayMs += kLivedMs) {
    auto [what, deed] = SkipTheRestOfTheDay();
    Happenings.push_back({dayMs, what, deed});
  }
  std::stable_sort(
      Happenings.begin(), Happenings.end(),
      [](const Happening& left, const Happening& right) { return left.AtMs < right.AtMs; });
}

std::string RandomDay::Describe() const {
  const DeskOptions& o = Installation;
  std::string text = "start";
  for (const int part : o.Now) text += " " + std::to_string(part);
  text +=
      o.Router ? ", router at com port " + o.ComPort + ", priority " + o.Priority : ", no router";
  text += ", fade " + o.FadeTime + ", music at " + std::to_string(o.MusicVolume) + " in \"" +
          o.MusicRouting + "\", " + o.Language + (o.AllDays ? ", all days" : ", today") +
          (o.ScheduleName ? ", names" : "") + (o.Microphone ? "" : ", no microphone") +
          ", chimes \"" + o.PreChime + "\" \"" + o.PostChime + "\" into \"" + o.CallRouting +
          "\"\n";
  text += "playlist " + o.StartTime + "-" + o.StopTime + " \"" + o.WeekDays + "\" autostart \"" +
          o.Autostart + "\" last \"" + o.LastSong + "\":";
  for (const Medium& song : o.Music) text += " " + song.Name + " " + std::to_string(song.LengthMs);
  text += "\nmessages:";
  for (const Medium& wav : o.Messages) text += " " + wav.Name + " " + std::to_string(wav.LengthMs);
  for (const Sequence& s : o.Sequences) {
    text += "\n" + s.File + ": \"" + s.Messages + "\" at " + s.Hours + " : " + s.Minutes +
            " on \"" + s.Weekdays + "\" into \"" + s.Zones + "\" " + s.Timer;
  }
  return text + "\n";
}

}  // namespace marlex
