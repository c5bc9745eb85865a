#include "schedule/conflicts.h"

#include "schedule/conflict_pairs.h"

namespace marlex {

Conflicts::Conflicts(const Settings& settings, FrmMain& frmMain, const SoundLines& lines,
                     ScheduleColumns& columns, const StringTable& strings, Notices& notices)
    : TheSettings(settings),
      TheFrmMain(frmMain),
      TheGrid(frmMain.grdSchedule),
      Lines(lines),
      Columns(columns),
      Strings(strings),
      TheNotices(notices) {
  TheGrid.OnDblClick = [this] { grdSchedule_DblClick(); };
}

void Conflicts::DetectConflicts() {
  ClearMarks();
  ConflictFound = false;
  const std::set<std::string> incomplete =
      FindConflictPairs(TheGrid, [this](int earlier, int later) { MarkPair(earlier, later); });
  if (!incomplete.empty()) ReportIncomplete(incomplete);
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
  for (int row = 1; row < TheGrid.Rows(); ++row) {
    TheGrid.SetRow(row);
    TheGrid.SetCellColors(kWhite, kBlack);
  }
}

void Conflicts::ReportIncomplete(const std::set<std::string>& incomplete) {
  std::string body = Strings.LoadString(kStrIncompleteWeekdays);
  for (const std::string& schedule : incomplete) body += "\r\n" + schedule;
  TheNotices.Error(body);
}

void Conflicts::MarkPair(int earlierRow, int laterRow) {
  TheGrid.SetRow(earlierRow);
  TheGrid.SetCellColors(kRed, kWhite);
  TheGrid.SetCol(kTimeColumn);
  TheGrid.SetRow(laterRow);
  TheGrid.SetCellColors(kRed, kWhite);
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
  const int row = TheGrid.Row();
  if (TheGrid.CellBackColor() != kRed) return;
  TheGrid.SetRowHeight(row, 0);
  DetectConflicts();
}

}  // namespace marlex
