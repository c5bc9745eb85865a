#include "schedule/conflicts.h"

#include "platform/text_case.h"

namespace marlex {
namespace {

/// Character of a row's weekdays at day 1 to 7; empty behind their end.
std::string_view DayCharacter(const Grid& table, int row, int day) {
  return CharactersFrom(table.TextMatrix(row, kDaysColumn), static_cast<std::size_t>(day), 1);
}

}  // namespace

std::string TimeOf(const Grid& table, int row) {
  return std::string(FirstCharacters(table.TextMatrix(row, kTimeColumn), 5));
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
  std::set<std::string> incomplete;
  for (int row = 1; row < Table.Rows(); ++row) {
    if (Table.RowHeight(row) >= 1) CompareWithLaterRows(row, incomplete);
  }
  if (!incomplete.empty()) TellIncomplete(incomplete);
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
void Conflicts::CompareWithLaterRows(int row, std::set<std::string>& incomplete) {
  const std::string time = TimeOf(Table, row);
  for (int later = row + 1; later < Table.Rows(); ++later) {
    if (Table.RowHeight(later) < 1) continue;
    if (TimeOf(Table, later) != time) return;
    if (ShareADay(row, later, incomplete)) MarkPair(row, later);
  }
}

void Conflicts::TellIncomplete(const std::set<std::string>& schedules) {
  std::string body = "The weekdays of these message schedules are incomplete:";
  for (const std::string& schedule : schedules) body += "\r\n" + schedule;
  TheNotices.Tell(body, BoxIcon::Critical, Strings.LoadString(kStrError));
}

/// The two sides are tested unlike: the later row must hold the right digit, the earlier one
/// anything but "0". This is meant. Weekdays that end before a common day is found leave the pair
/// undecided, and their schedule is named.
bool Conflicts::ShareADay(int earlierRow, int laterRow, std::set<std::string>& incomplete) const {
  for (int day = 1; day <= 7; ++day) {
    const std::string_view later = DayCharacter(Table, laterRow, day);
    const std::string_view earlier = DayCharacter(Table, earlierRow, day);
    if (later.empty()) incomplete.insert(Table.TextMatrix(laterRow, kNameColumn));
    if (earlier.empty()) incomplete.insert(Table.TextMatrix(earlierRow, kNameColumn));
    if (later.empty() || earlier.empty()) return false;
    if (later == std::to_string(day) && earlier != "0") return true;
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
