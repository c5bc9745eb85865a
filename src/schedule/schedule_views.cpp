#include "schedule/schedule_views.h"

#include "schedule/schedule_columns.h"

namespace marlex {

ScheduleViews::ScheduleViews(SettingsStore& store, FrmMain& frmMain, ScheduleTable& table)
    : Store(store), TheFrmMain(frmMain), Table(table) {
  frmMain.mnuAllDays.OnClick = [this] { SetAllDaysView(!TheFrmMain.mnuAllDays.Checked); };
  frmMain.mnuCurrentDay.OnClick = [this] { SetAllDaysView(TheFrmMain.mnuCurrentDay.Checked); };
  frmMain.mnuScheduleName.OnClick = [this] { mnuScheduleName_Click(); };
}

void ScheduleViews::SetAllDaysView(bool allDays) {
  TheFrmMain.mnuAllDays.Checked = allDays;
  TheFrmMain.mnuCurrentDay.Checked = !allDays;
  Store.Values.AllDaysView = allDays;
  Store.WriteFlag(keys::kAllDaysView, allDays);
  Table.RebuildScheduleTable();
}

void ScheduleViews::mnuScheduleName_Click() {
  const bool show = !TheFrmMain.mnuScheduleName.Checked;
  TheFrmMain.mnuScheduleName.Checked = show;
  Store.Values.ScheduleNameView = show;
  Store.WriteFlag(keys::kScheduleNameView, show);
  TheFrmMain.grdSchedule.SetColWidth(kNameColumn, show ? ScheduleColumns::kNameWidth : 0);
  Table.RebuildScheduleTable();
}

}  // namespace marlex
