#include "schedule_bench.h"

#include <time.h>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <memory>

#include "desk/desk.h"
#include "desktop/windows/views.h"

namespace marlex::bench {
namespace {

constexpr int kRepetitions = 5;
constexpr int kMostRows = ScheduleTable::kMostRows;
constexpr int kMinutesOfAFile = 30;  // the most that a time expression may hold
constexpr int kRowsOfAFile = 24 * kMinutesOfAFile;
constexpr double kTableBudgetMs = 200;
constexpr double kYearBudgetSeconds = 60;
constexpr int kDaysOfAYear = 365;

double ProcessorMs() {
  timespec used{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
  return double(used.tv_sec) * 1e3 + double(used.tv_nsec) / 1e6;
}

/// Processor time of all threads. Nothing that is measured here waits, so this is the time that it
/// takes when no other program uses the processor.
double MillisecondsOf(const std::function<void()>& action) {
  const double start = ProcessorMs();
  action();
  return ProcessorMs() - start;
}

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string Minutes(int first, int count) {
  std::string text = TwoDigits(first);
  for (int minute = first + 1; minute < first + count; ++minute) text += "," + TwoDigits(minute);
  return text;
}

/// The mask of one day, 1 to 7, or of none.
std::string OnlyDay(int day) {
  std::string mask = "0000000";
  if (day <= 7) mask[static_cast<std::size_t>(day - 1)] = static_cast<char>('0' + day);
  return mask;
}

/// Files for the largest table, which fill the first and the second half of each hour in turn. With
/// conflicts all run every day. Without, no two rows of a minute share a day: the first seven files
/// of each half hour get one day each, the others none.
std::vector<Sequence> LargestSchedule(bool withConflicts) {
  std::vector<Sequence> files;
  const auto add = [&](const std::string& hours, int minutes) {
    const int file = static_cast<int>(files.size());
    files.push_back({.File = "s" + TwoDigits(file) + ".sch",
                     .Hours = hours,
                     .Minutes = Minutes(file % 2 * kMinutesOfAFile, minutes),
                     .Weekdays = withConflicts ? "1234567" : OnlyDay(file / 2 + 1),
                     .Timer = "Between"});
  };
  int rest = kMostRows;
  for (; rest >= kRowsOfAFile; rest -= kRowsOfAFile) add("00-23", kMinutesOfAFile);
  if (const int perHour = rest / 24; perHour > 0) add("00-23", perHour);
  if (const int last = rest % 24; last > 0) add("12", last);
  return files;
}

DeskOptions LargestInstallation(bool withConflicts) {
  return {.Music = {{"song"}}, .Sequences = LargestSchedule(withConflicts), .AllDays = true};
}

std::string RowsFailure(Desk& desk, bool withConflicts) {
  const int rows = desk.Main().grdSchedule.Rows() - 1;
  if (rows != kMostRows) return "the table has " + std::to_string(rows) + " rows";
  const bool found = desk.Sys->TheConflicts.ConflictFound;
  return found == withConflicts ? "" : "the conflicts are not those of the files";
}

const char* Kind(bool withConflicts) { return withConflicts ? "all in conflict" : "no conflicts"; }

Figure MeasureRebuild(bool withConflicts) {
  Figure figure{
      std::string("32,767 rows rebuilt, sorted, checked, ") + Kind(withConflicts) + " [ms]", {}};
  Desk desk(LargestInstallation(withConflicts));
  for (int i = 0; i < kRepetitions; ++i) {
    desk.Do([&] {
      figure.Values.push_back(MillisecondsOf([&] { desk.Sys->Table.RebuildScheduleTable(); }));
    });
  }
  figure.Failure = RowsFailure(desk, withConflicts);
  return figure;
}

/// Notices when a widget paints itself.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
  bool Painted = false;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    Painted = Painted || event->type() == QEvent::Paint;
    return false;
  }
};

/// The same with the windows on top, up to the painted picture. Everything runs on the thread of
/// the windows.
Figure MeasureShown(bool withConflicts) {
  Figure figure{
      std::string("the same and shown, ") + Kind(withConflicts) + " [ms]", {}, kTableBudgetMs};
  Desk desk(LargestInstallation(withConflicts), nullptr, false);
  Views views(desk.Sys->TheWindows, desk.Pc.Loop);
  EventLoop& loop = desk.Pc.Loop;
  const auto settle = [&loop] {
    loop.Pump();
    QApplication::processEvents();
  };
  loop.Post([&desk] { desk.Sys->Start(); });
  loop.PumpUntil([&desk] { return desk.Main().Visible.Get(); });
  for (int round = 0; round < 5; ++round) settle();
  auto* table = views.Main().findChild<QAbstractScrollArea*>("grdSchedule");
  PaintWatch watch(*table->viewport());
  for (int i = 0; i < kRepetitions && figure.Failure.empty(); ++i) {
    watch.Painted = false;
    figure.Values.push_back(MillisecondsOf([&] {
      constexpr int kMostRounds = 100;
      loop.Post([&desk] { desk.Sys->Table.RebuildScheduleTable(); });
      for (int round = 0; round < kMostRounds && !watch.Painted; ++round) settle();
    }));
    if (!watch.Painted) figure.Failure = "the table was not painted";
  }
  if (figure.Failure.empty()) figure.Failure = RowsFailure(desk, withConflicts);
  return figure;
}

/// A tick of the last minute of a day, which searches the whole table. Music plays, so that a due
/// row is marked and keeps waiting for the end of the song.
Figure MeasureTick(bool isDue) {
  Figure figure{std::string("one tick over 32,767 rows, ") +
                    (isDue ? "the last is due" : "none due") + " [ms]",
                {}};
  Desk desk(LargestInstallation(isDue));
  desk.Click("cmdPlay");
  for (int i = 0; i < kRepetitions; ++i) {
    // Without conflicts the first row of a minute runs only on Mondays; this is a Tuesday.
    desk.Pc.Clock.Set(2024, 1, 2, 23, 59, 0);
    desk.Sys->Tick.LastMinute.clear();
    desk.State().MessageAwaitingSongEnd = false;
    desk.Do([&] { figure.Values.push_back(MillisecondsOf([&] { desk.Sys->Tick.Tick(); })); });
    if (desk.State().MessageAwaitingSongEnd != isDue) figure.Failure = "the tick found another row";
  }
  return figure;
}

}  // namespace

void MeasureTable(Report& report) {
  report.Section("The largest table, on the simulated PC");
  for (const bool withConflicts : {false, true}) report.Add(MeasureRebuild(withConflicts));
  for (const bool withConflicts : {false, true}) report.Add(MeasureShown(withConflicts));
  for (const bool isDue : {false, true}) report.Add(MeasureTick(isDue));
}

void MeasureDay(Report& report) {
  constexpr int kDayMs = 24 * 3600 * 1000;
  report.Section("A day of music and 100 announcements, on the simulated PC");
  Figure day{"a simulated day [s]", {}};
  Desk desk({.Music = {{"one"}, {"two"}, {"three"}, {"four"}},
             .Sequences = {{.File = "a.sch", .Hours = "00-23", .Minutes = "00,30"},
                           {.File = "b.sch",
                            .Messages = "welcome,closing",
                            .Hours = "00-23",
                            .Minutes = "15,45",
                            .Timer = "Between"},
                           {.File = "c.sch", .Hours = "09,12,15,18", .Minutes = "05"}},
             .Autostart = "True"});
  for (int i = 0; i < kRepetitions; ++i) {
    desk.Pc.Journal.Clear();
    day.Values.push_back(MillisecondsOf([&] { desk.Advance(kDayMs); }) / 1000);
    int announcements = 0;
    for (const std::string& line : desk.Pc.Journal.Lines())
      if (line.find(" wav play") != std::string::npos) ++announcements;
    if (announcements < 100) day.Failure = "only " + std::to_string(announcements) + " messages";
  }
  report.Add(day);
  Figure year{"a year of such days [s]", day.Values, kYearBudgetSeconds, day.Failure};
  for (double& value : year.Values) value *= kDaysOfAYear;
  report.Add(year);
}

}  // namespace marlex::bench
