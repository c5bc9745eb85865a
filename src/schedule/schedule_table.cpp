#include "schedule/schedule_table.h"

#include "i18n/operator_failure.h"
#include "state/week_time.h"
#include "text/paths.h"

namespace marlex {

ScheduleTable::ScheduleTable(SettingsStore& store, WallClock& clock, FrmMain& frmMain,
                             FrmPlayers& frmPlayers, ScheduleColumns& columns, Conflicts& conflicts,
                             const StringTable& strings, Notices& notices)
    : Store(store),
      Clock(clock),
      TheGrid(frmMain.grdSchedule),
      SeqFileList(frmPlayers.SeqFileList),
      Columns(columns),
      TheConflicts(conflicts),
      Strings(strings),
      TheNotices(notices) {}

void ScheduleTable::RebuildScheduleTable() {
  Columns.ShowDaysColumn();
  NextTableRow = 1;
  TheGrid.SetRows(1);
  // Without an open file, neither conflicts nor columns are updated, and ConflictFound keeps its
  // value.
  if (SeqFileList.ListCount() == 0) return;
  AddAllFiles();
  if (TheGrid.Rows() > 1) {
    TheGrid.SetCol(kTimeColumn);
    TheGrid.Sort();
  }
  TheConflicts.DetectConflicts();
  if (!TheConflicts.ConflictFound) Columns.LayoutScheduleColumns();
}

void ScheduleTable::AddAllFiles() {
  std::vector<std::string> badFiles;
  for (int file = 0; file < SeqFileList.ListCount(); ++file) {
    CurrentSequenceFile = SeqFileList.List(file);
    try {
      AtPlace(CurrentSequenceFile, [this] { AddSequenceRows(); });
    } catch (const RuntimeFailure& failure) {
      badFiles.push_back(TextOf(failure, Strings));
    }
  }
  if (!badFiles.empty()) ReportBadFiles(badFiles);
}

void ScheduleTable::ReportBadFiles(const std::vector<std::string>& badFiles) {
  std::string body = Strings.LoadString(kStrUnusableSchedules);
  for (const std::string& file : badFiles) body += "\r\n" + file;
  TheNotices.Error(body);
}

void ScheduleTable::AddSequenceRows() {
  const std::string path = Store.Values.SequencePath + CurrentSequenceFile;
  const auto read = [&](const ProfileKey& key) { return Store.ReadProfileValue(key, path); };
  Times.HourExpression = read(keys::kHours);
  Times.MinuteExpression = read(keys::kMinutes);
  const std::string zones = read(keys::kRowZones);
  const std::string weekdays = read(keys::kSequenceWeekdays);
  const std::string messages = read(keys::kMessages);
  TimerModeExact = read(keys::kTimer) == "Exact";
  if (!Store.Values.AllDaysView && !DayIsOn(weekdays, Clock.Now().Weekday)) return;

  AtPlace(std::string(keys::kHours.Key), [this] { Times.ParseHours(); });
  AtPlace(std::string(keys::kMinutes.Key), [this] { Times.ParseMinutes(); });
  if (NextTableRow - 1 + Times.HourCount * Times.MinuteCount > kMostRows) {
    throw OperatorFailure(kStrTooManyRows);
  }
  for (int hour = 1; hour <= Times.HourCount; ++hour) {
    for (int minute = 1; minute <= Times.MinuteCount; ++minute) {
      AddRow(Times.HourList[static_cast<std::size_t>(hour)] + ":" +
                 Times.MinuteList[static_cast<std::size_t>(minute)],
             weekdays, zones, messages);
    }
  }
}

void ScheduleTable::AddRow(const std::string& time, const std::string& weekdays,
                           const std::string& zones, const std::string& messages) {
  TheGrid.SetRows(TheGrid.Rows() + 1);
  TheGrid.SetTextMatrix(NextTableRow, kDaysColumn, weekdays);
  TheGrid.SetTextMatrix(NextTableRow, kMessagesColumn, messages);
  TheGrid.SetTextMatrix(NextTableRow, kRoutingColumn, zones);
  TheGrid.SetTextMatrix(NextTableRow, kNameColumn, UpToFirstPoint(CurrentSequenceFile));
  // A blank sorts before "+", so within a minute the rows at the set time come first.
  TheGrid.SetTextMatrix(NextTableRow, kTimeColumn, time + (TimerModeExact ? "  " : "+"));
  ++NextTableRow;
}

}  // namespace marlex
