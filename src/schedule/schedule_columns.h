#pragma once

#include "i18n/string_table.h"
#include "state/settings.h"
#include "windows/frm_main.h"

namespace marlex {

/// Headings, widths and alignments of the schedule table. Widths in twips.
class ScheduleColumns {
 public:
  ScheduleColumns(const Settings& settings, FrmMain& frmMain, const StringTable& strings)
      : TheSettings(settings), Table(frmMain.grdSchedule), Strings(strings) {}

  static constexpr int kDaysWidth = 800;
  static constexpr int kRoutingWidth = 800;
  static constexpr int kNameWidth = 1800;

  /// Alignments and the fixed widths, once, at the main window's load.
  void SetupScheduleGrid();

  /// Shows or hides the columns of days, names and zones. A column that is hidden loses its texts
  /// in all rows until the next build of the table.
  void LayoutScheduleColumns();

  void ShowDaysColumn();  // heading and width of the days alone

 private:
  void Show(int column, int headingId, int width);
  void HideAndEmpty(int column);

  const Settings& TheSettings;
  Grid& Table;
  const StringTable& Strings;
};

/// Firing time of a row: the first five characters of its time cell.
std::string TimeOf(const Grid& table, int row);

/// Whether a row waits for the next music break: its time has a "+" after it.
bool PlaysAtBreak(const Grid& table, int row);

}  // namespace marlex
