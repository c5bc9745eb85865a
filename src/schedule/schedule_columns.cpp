#include "schedule/schedule_columns.h"

#include "text/text_case.h"

namespace marlex {

void ScheduleColumns::SetupScheduleGrid() {
  for (const int column : {kTimeColumn, kDaysColumn, kRoutingColumn}) {
    Table.SetColAlignment(column, GridAlignment::Centre);
  }
  Table.SetColAlignment(kNameColumn, GridAlignment::Left);
  Table.SetColAlignment(kMessagesColumn, GridAlignment::Left);
  Table.SetColWidth(kTimeColumn, 600);
  Table.SetColWidth(kRoutingColumn, kRoutingWidth);
  Table.SetColWidth(kMessagesColumn, 6500);
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
  Table.SetColWidth(kDaysColumn, TheSettings.AllDaysView ? kDaysWidth : 0);
  Table.SetTextMatrix(0, kDaysColumn, TheSettings.AllDaysView ? Strings.LoadString(kStrDays) : "");
}

void ScheduleColumns::Show(int column, int headingId, int width) {
  Table.SetTextMatrix(0, column, Strings.LoadString(headingId));
  Table.SetColWidth(column, width);
}

void ScheduleColumns::HideAndEmpty(int column) {
  Table.SetColWidth(column, 0);
  for (int row = 0; row < Table.Rows(); ++row) Table.SetTextMatrix(row, column, "");
}

std::string TimeOf(const Grid& table, int row) {
  return std::string(FirstCharacters(table.TextMatrix(row, kTimeColumn), 5));
}

bool PlaysAtBreak(const Grid& table, int row) {
  return table.TextMatrix(row, kTimeColumn).find('+') != std::string::npos;
}

}  // namespace marlex
