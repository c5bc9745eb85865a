#pragma once

#include "i18n/string_table.h"
#include "state/settings.h"
#include "windows/frm_main.h"

namespace marlex {

/// Headings, widths and alignments of the schedule table. Widths are in twips.
class ScheduleColumns {
 public:
  ScheduleColumns(const Settings& settings, FrmMain& frmMain, const StringTable& strings)
      : TheSettings(settings), TheGrid(frmMain.grdSchedule), Strings(strings) {}

  static constexpr int kDaysWidth = 800;
  static constexpr int kRoutingWidth = 800;
  static constexpr int kNameWidth = 1800;

  /// Sets the alignments and the fixed widths. Call once, when the main window loads.
  void SetupScheduleGrid();

  /// Shows or hides the columns of days, names and zones. A hidden column loses its texts in all
  /// rows until the table is rebuilt.
  void LayoutScheduleColumns();

  void ShowDaysColumn();  // sets heading and width of the days only

 private:
  void Show(int column, int headingId, int width);
  void HideAndEmpty(int column);

  const Settings& TheSettings;
  Grid& TheGrid;
  const StringTable& Strings;
};

/// Firing time of a row: the first five characters of its time cell.
std::string TimeOf(const Grid& grid, int row);

/// Whether a row waits for the next music break: its time has a "+" after it.
bool PlaysAtBreak(const Grid& grid, int row);

}  // namespace marlex
