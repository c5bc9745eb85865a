#pragma once

#include <set>
#include <string>

#include "i18n/string_table.h"
#include "mixer/mixer_access.h"
#include "schedule/schedule_columns.h"
#include "state/notices.h"
#include "state/settings.h"
#include "windows/frm_main.h"

namespace marlex {

/// Rows that cannot both fire: not removed, of the same minute, with a day in common. They are
/// marked red, and the operator takes one out of the table by a double-click; no file changes.
class Conflicts {
 public:
  Conflicts(const Settings& settings, FrmMain& frmMain, const MixerAccess& mixer,
            ScheduleColumns& columns, const StringTable& strings, Notices& notices);

  bool ConflictFound = false;  // the last pass marked a pair; kept until the next pass

  void DetectConflicts();
  void SetNormalHeights();  // of the table and its frame

 private:
  void grdSchedule_DblClick();
  void ClearMarks();
  void CompareWithLaterRows(int row, std::set<std::string>& incomplete);
  void TellIncomplete(const std::set<std::string>& schedules);
  bool ShareADay(int earlierRow, int laterRow, std::set<std::string>& incomplete) const;
  void MarkPair(int earlierRow, int laterRow);
  void ShowConflictNote();
  bool CompactLayout() const;

  const Settings& TheSettings;
  FrmMain& TheFrmMain;
  Grid& Table;
  const MixerAccess& Mixer;
  ScheduleColumns& Columns;
  const StringTable& Strings;
  Notices& TheNotices;
};

/// Firing time of a row: the first five characters of its time cell.
std::string TimeOf(const Grid& table, int row);

}  // namespace marlex
