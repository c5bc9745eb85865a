#include "schedule/conflicts.h"

#include "platform/runtime_failure.h"

namespace marlex {
namespace {

/// Character of a mask of weekdays at day 1 to 7.
char DayCharacter(const std::string& mask, int day) {
  if (day > static_cast<int>(mask.size())) {
    throw RuntimeFailure("The weekdays \"" + mask + "\" of a sequence are incomplete");
  }
  return mask[static_cast<std::size_t>(day - 1)];
}

}  // namespace

std::string TimeOf(const Grid& table, int row) {
  return table.TextMatrix(row, kTimeColumn).substr(0, 5);
}

Conflicts::Conflicts(const Settings& settings, FrmMain& frmMain, const MixerAccess& mixer,
                     ScheduleColumns& columns, const StringTable& strings, Notices& notices)
    : TheSettings(settings),
      TheFrmMain(frmMain),
      Table(frmMain.grdSchedule),
      Mixer(mixer),
      Columns(columns),
      Strings(strings),
      TheNotices(notices) {
  Table.OnDblClick = [this] { grdSchedule_DblClick(); };
}

void Conflicts::DetectConflicts() {
  ClearMarks();
  ConflictFound = false;
  for (int row = 1; row < Table.Rows(); ++row) {
    if (Table.RowHeight(row) >= 1) CompareWithLaterRows(row);
  }
  if (ConflictFound) {
    ShowConflictNote();
  } else {
    Columns.LayoutScheduleColumns();
    SetNormalHeights();
    TheFrmMain.lblConflict.Visible = false;
  }
}

/// The current column stays: the first after a build, the clicked one after a double-click.
void Conflicts::ClearMarks() {
  for (int row = 1; row < Table.Rows(); ++row) {
    Table.SetRow(row);
    Table.SetCellColors(kWhite, kBlack);
  }
}

/// The table is sorted: the first row of another minute ends the search, a removed row or one
/// without a common day does not.
void Conflicts::CompareWithLaterRows(int row) {
  const std::string time = TimeOf(Table, row);
  for (int later = row + 1; later < Table.Rows(); ++later) {
    if (Table.RowHeight(later) < 1) continue;
    if (TimeOf(Table, later) != time) return;
    try {
      if (ShareADay(row, later)) MarkPair(row, later);
    } catch (const RuntimeFailure& failure) {
      // One bad file must not take the check of all others with it.
      TheNotices.Tell(failure.what(), BoxIcon::Critical, Strings.LoadString(kStrError));
    }
  }
}

/// The two sides are tested unlike: the later row must hold the right digit, the earlier one
/// anything but "0". This is meant.
bool Conflicts::ShareADay(int earlierRow, int laterRow) const {
  const std::string& earlier = Table.TextMatrix(earlierRow, kDaysColumn);
  const std::string& later = Table.TextMatrix(laterRow, kDaysColumn);
  for (int day = 1; day <= 7; ++day) {
    const bool laterOn = DayCharacter(later, day) == static_cast<char>('0' + day);
    const bool earlierOn = DayCharacter(earlier, day) != '0';
    if (laterOn && earlierOn) return true;
  }
  return false;
}

void Conflicts::MarkPair(int earlierRow, int laterRow) {
  Table.SetRow(earlierRow);
  Table.SetCellColors(kRed, kWhite);
  Table.SetCol(kTimeColumn);
  Table.SetRow(laterRow);
  Table.SetCellColors(kRed, kWhite);
  ConflictFound = true;
}

bool Conflicts::CompactLayout() const { return TheSettings.RouterPresent || Mixer.MicLine != 0; }

void Conflicts::SetNormalHeights() {
  TheFrmMain.frSchedule.Height = CompactLayout() ? 4095 : 5655;
  Table.Height = CompactLayout() ? 3765 : 5325;
}

/// The warning takes the room that the shrunken table leaves.
void Conflicts::ShowConflictNote() {
  TheFrmMain.lblConflict.Caption = Strings.LoadString(kStrTimeConflict);
  TheFrmMain.frSchedule.Height = CompactLayout() ? 3855 : 5295;
  Table.Height = CompactLayout() ? 3525 : 4965;
  TheFrmMain.lblConflict.Visible = true;
  TheFrmMain.lblConflict.Top = CompactLayout() ? 4005 : 5520;
}

/// Only a red time cell reacts; the other row of the pair stays and fires as usual.
void Conflicts::grdSchedule_DblClick() {
  const int row = Table.Row();
  if (Table.CellBackColor() != kRed) return;
  Table.SetRowHeight(row, 0);
  DetectConflicts();
}

}  // namespace marlex
