#pragma once

#include <set>
#include <string>

#include "i18n/notices.h"
#include "i18n/string_table.h"
#include "mixer/sound_lines.h"
#include "schedule/schedule_columns.h"
#include "state/settings.h"
#include "windows/frm_main.h"

namespace marlex {

/// Marks the rows that cannot both fire red, and shows a note below the table; the operator removes
/// one of them from the table by a double-click. No file changes.
class Conflicts {
 public:
  Conflicts(const Settings& settings, FrmMain& frmMain, const SoundLines& lines,
            ScheduleColumns& columns, const StringTable& strings, Notices& notices);

  bool ConflictFound = false;  // the last pass marked a pair; kept until the next pass

  void DetectConflicts();
  void SetNormalHeights();  // of the table and its frame

 private:
  void grdSchedule_DblClick();
  void ClearMarks();
  void ReportIncomplete(const std::set<std::string>& incomplete);
  void MarkPair(int earlierRow, int laterRow);
  void ShowConflictNote();
  bool CompactLayout() const;

  const Settings& TheSettings;
  FrmMain& TheFrmMain;
  Grid& TheGrid;
  const SoundLines& Lines;
  ScheduleColumns& Columns;
  const StringTable& Strings;
  Notices& TheNotices;
};

}  // namespace marlex
