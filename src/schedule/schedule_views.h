#pragma once

#include "schedule/schedule_table.h"
#include "state/settings_store.h"
#include "windows/frm_main.h"

namespace marlex {

/// The view menus of the schedule. The two day entries are a pair of which exactly one is ticked; a
/// click on either flips both.
class ScheduleViews {
 public:
  ScheduleViews(SettingsStore& store, FrmMain& frmMain, ScheduleTable& table);

 private:
  void SetAllDaysView(bool allDays);
  void mnuScheduleName_Click();

  SettingsStore& Store;
  FrmMain& TheFrmMain;
  ScheduleTable& Table;
};

}  // namespace marlex
