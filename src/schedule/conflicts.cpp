#include "schedule/conflicts.h"

#include "schedule/conflict_pairs.h"

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
  const std::set<std::string> incomplete =
      FindConflictPairs(Table, [this](int earlier, int later) { MarkPair(earlier, later); });
  if (!incomplete.empty()) TellIncomplete(incomplete);
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

void Conflicts::TellIncomplete(const std::set<std::string>& incomplete) {
  std::string body = "The weekdays of these message schedules are incomplete:";
  for (const std::string& schedule : incomplete) body += "\r\n" + schedule;
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
