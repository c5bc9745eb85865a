#include "schedule/schedule_columns.h"

#include "text/text_case.h"

namespace marlex {

void ScheduleColumns::SetupScheduleGrid() {
  for (const int column : {kTimeColumn, kDaysColumn, kRoutingColumn}) {
    TheGrid.SetColAlignment(column, GridAlignment::Centre);
  }
  TheGrid.SetColAlignment(kNameColumn, GridAlignment::Left);
  TheGrid.SetColAlignment(kMessagesColumn, GridAlignment::Left);
  TheGrid.SetColWidth(kTimeColumn, 600);
  TheGrid.SetColWidth(kRoutingColumn, kRoutingWidth);
  TheGrid.SetColWidth(kMessagesColumn, 6500);
}

void ScheduleColumns::LayoutScheduleColumns() {
  if (TheSettings.AllDaysView) {
    Show(kDaysColumn, kStrDays, kDaysWidth);
  } else {
    HideAndEmpty(kDaysColumn);
  }
  if (TheSettings.ScheduleNameView) {
    Show(kNameColumn, kStrSchedule, kNameWidth);
  } else {
    HideAndEmpty(kNameColumn);
  }
  if (TheSettings.RouterPresent) {
    Show(kRoutingColumn, kStrRouting, kRoutingWidth);
  } else {
    HideAndEmpty(kRoutingColumn);
  }
}

void ScheduleColumns::ShowDaysColumn() {
  TheGrid.SetColWidth(kDaysColumn, TheSettings.AllDaysView ? kDaysWidth : 0);
  TheGrid.SetTextMatrix(0, kDaysColumn,
                        TheSettings.AllDaysView ? Strings.LoadString(kStrDays) : "");
}

void ScheduleColumns::Show(int column, int headingId, int width) {
  TheGrid.SetTextMatrix(0, column, Strings.LoadString(headingId));
  TheGrid.SetColWidth(column, width);
}

void ScheduleColumns::HideAndEmpty(int column) {
  TheGrid.SetColWidth(column, 0);
  for (int row = 0; row < TheGrid.Rows(); ++row) TheGrid.SetTextMatrix(row, column, "");
}

std::string TimeOf(const Grid& grid, int row) {
  return std::string(FirstCharacters(grid.TextMatrix(row, kTimeColumn), 5));
}

bool PlaysAtBreak(const Grid& grid, int row) {
  return grid.TextMatrix(row, kTimeColumn).find('+') != std::string::npos;
}

}  // namespace marlex
