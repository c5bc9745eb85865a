#pragma once

#include "schedule/schedule_table.h"
#include "state/settings_store.h"
#include "windows/frm_main.h"

namespace marlex {

/// The view menus of the schedule. Exactly one of the two day entries is ticked; a click on either
/// toggles both.
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
