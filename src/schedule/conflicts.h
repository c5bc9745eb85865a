#pragma once

#include <array>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "i18n/notices.h"
#include "i18n/string_table.h"
#include "mixer/sound_lines.h"
#include "schedule/schedule_columns.h"
#include "state/settings.h"
#include "windows/frm_main.h"

namespace marlex {

/// Finds rows that cannot both fire: not removed, at the same minute, with a weekday in common.
/// Marks them red; the operator removes one from the table by a double-click. No file changes.
class Conflicts {
 public:
  Conflicts(const Settings& settings, FrmMain& frmMain, const SoundLines& lines,
            ScheduleColumns& columns, const StringTable& strings, Notices& notices);

  bool ConflictFound = false;  // the last pass marked a pair; kept until the next pass

  void DetectConflicts();
  void SetNormalHeights();  // of the table and its frame

 private:
  static constexpr std::size_t kDays = 7;

  /// What a pass looks at in a row. The views point into the cells of the table.
  struct DueRow {
    int Row;
    std::string Time;
    std::array<std::string_view, kDays> Days;  // one character each, empty past the mask's end
  };

  void grdSchedule_DblClick();
  void ClearMarks();
  std::vector<DueRow> RowsInPlace() const;
  bool ShareADay(const DueRow& earlier, const DueRow& later);
  void TellIncomplete();
  void MarkPair(int earlierRow, int laterRow);
  void ShowConflictNote();
  bool CompactLayout() const;

  const Settings& TheSettings;
  FrmMain& TheFrmMain;
  Grid& Table;
  const SoundLines& Lines;
  ScheduleColumns& Columns;
  const StringTable& Strings;
  Notices& TheNotices;
  std::set<std::string> Incomplete;  // schedules whose weekdays were too short in the last pass
};

}  // namespace marlex
