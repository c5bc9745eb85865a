#pragma once

#include <string>
#include <vector>

#include "i18n/notices.h"
#include "platform/wall_clock.h"
#include "schedule/conflicts.h"
#include "schedule/schedule_columns.h"
#include "schedule/time_expressions.h"
#include "state/settings_store.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// The expanded form of all open sequence files: a row of `grdSchedule` for every firing time,
/// sorted by time. The grid is the only store of the schedule. It is discarded and rebuilt whenever
/// something may have changed.
class ScheduleTable {
 public:
  ScheduleTable(SettingsStore& store, WallClock& clock, FrmMain& frmMain, FrmPlayers& frmPlayers,
                ScheduleColumns& columns, Conflicts& conflicts, const StringTable& strings,
                Notices& notices);

  static constexpr int kMostRows = 32767;

  int NextTableRow = 1;             // index of the next row to be filled
  std::string CurrentSequenceFile;  // file being read, with extension
  bool TimerModeExact = false;      // the file's rows play at the set time, not at a music break

  /// Builds the table from `SeqFileList`. A file that exceeds the limits of a time expression, or
  /// of `kMostRows` rows in the table, adds no row; one box names all such files. The other files
  /// are added as usual.
  void RebuildScheduleTable();

 private:
  void AddAllFiles();
  void AddSequenceRows();
  void AddRow(const std::string& time, const std::string& weekdays, const std::string& zones,
              const std::string& messages);
  void ReportBadFiles(const std::vector<std::string>& badFiles);

  SettingsStore& Store;
  WallClock& Clock;
  Grid& TheGrid;
  ListBox& SeqFileList;
  ScheduleColumns& Columns;
  Conflicts& TheConflicts;
  const StringTable& Strings;
  Notices& TheNotices;
  TimeExpressions Times;
};

}  // namespace marlex
