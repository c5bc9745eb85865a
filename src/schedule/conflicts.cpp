#include "schedule/conflicts.h"

#include "text/text_case.h"

namespace marlex {

Conflicts::Conflicts(const Settings& settings, FrmMain& frmMain, const SoundLines& lines,
                     ScheduleColumns& columns, const StringTable& strings, Notices& notices)
    : TheSettings(settings),
      TheFrmMain(frmMain),
      Table(frmMain.grdSchedule),
      Lines(lines),
      Columns(columns),
      Strings(strings),
      TheNotices(notices) {
  Table.OnDblClick = [this] { grdSchedule_DblClick(); };
}

void Conflicts::DetectConflicts() {
  ClearMarks();
  ConflictFound = false;
  Incomplete.clear();
  const std::vector<DueRow> rows = RowsInPlace();
  for (auto row = rows.begin(); row != rows.end(); ++row) {
    // The table is sorted: the first row of another minute ends the search.
    for (auto later = row + 1; later != rows.end() && later->Time == row->Time; ++later) {
      if (ShareADay(*row, *later)) MarkPair(row->Row, later->Row);
    }
  }
  if (!Incomplete.empty()) TellIncomplete();
  if (ConflictFound) {
    ShowConflictNote();
  } else {
    Columns.LayoutScheduleColumns();
    SetNormalHeights();
    TheFrmMain.lblConflict.Visible = false;
  }
}

/// Clears the current column only: the time after a build, the clicked column after a double-click.
void Conflicts::ClearMarks() {
  for (int row = 1; row < Table.Rows(); ++row) {
    Table.SetRow(row);
    Table.SetCellColors(kWhite, kBlack);
  }
}

/// The rows that the operator has not removed.
std::vector<Conflicts::DueRow> Conflicts::RowsInPlace() const {
  std::vector<DueRow> rows;
  for (int row = 1; row < Table.Rows(); ++row) {
    if (Table.RowHeight(row) < 1) continue;
    const std::string& mask = Table.TextMatrix(row, kDaysColumn);
    DueRow& due = rows.emplace_back(DueRow{row, TimeOf(Table, row), {}});
    for (std::size_t day = 1; day <= kDays; ++day) {
      due.Days[day - 1] = CharactersFrom(mask, day, 1);
    }
  }
  return rows;
}

/// Whether two rows have a weekday in common. Deliberate: the later row must have the digit of the
/// day, the earlier one anything but "0". If the weekdays of a row end before a common day is
/// found, the pair counts as none, and the schedule of that row goes into `Incomplete`.
bool Conflicts::ShareADay(const DueRow& earlier, const DueRow& later) {
  constexpr std::string_view kDigits = "1234567";
  for (std::size_t day = 0; day < kDays; ++day) {
    bool ended = false;
    for (const DueRow* row : {&earlier, &later}) {
      if (!row->Days[day].empty()) continue;
      Incomplete.insert(Table.TextMatrix(row->Row, kNameColumn));
      ended = true;
    }
    if (ended) return false;
    if (later.Days[day] == kDigits.substr(day, 1) && earlier.Days[day] != "0") return true;
  }
  return false;
}

void Conflicts::TellIncomplete() {
  std::string body = "The weekdays of these message schedules are incomplete:";
  for (const std::string& schedule : Incomplete) body += "\r\n" + schedule;
  TheNotices.Error(body);
}

void Conflicts::MarkPair(int earlierRow, int laterRow) {
  Table.SetRow(earlierRow);
  Table.SetCellColors(kRed, kWhite);
  Table.SetCol(kTimeColumn);
  Table.SetRow(laterRow);
  Table.SetCellColors(kRed, kWhite);
  ConflictFound = true;
}

bool Conflicts::CompactLayout() const { return TheSettings.RouterPresent || Lines.HasMicrophone(); }

void Conflicts::SetNormalHeights() { TheFrmMain.SizeSchedule(CompactLayout(), false); }

/// The warning takes the space by which the table shrinks.
void Conflicts::ShowConflictNote() {
  TheFrmMain.lblConflict.Caption = Strings.LoadString(kStrTimeConflict);
  TheFrmMain.SizeSchedule(CompactLayout(), true);
  TheFrmMain.lblConflict.Visible = true;
  TheFrmMain.PlaceConflictNote(CompactLayout());
}

/// Only a red time cell reacts: its row is removed. The other row of the pair stays and fires as
/// usual.
void Conflicts::grdSchedule_DblClick() {
  const int row = Table.Row();
  if (Table.CellBackColor() != kRed) return;
  Table.SetRowHeight(row, 0);
  DetectConflicts();
}

}  // namespace marlex
