#include "scenario/inspectors/table.h"

namespace marlex {

TableInspector::TableInspector(const Scene& scene) : Inspector(scene) {
  Main().grdSchedule.Watcher = [this] { Changed = true; };
}

void TableInspector::Check() {
  if (!Changed) return;
  Changed = false;
  BeforeChange = Read();
  for (int column = 0; column < Grid::kColumns; ++column)
    Require(TheDesk.CellColor(0, column) == kWhite, "The heading is painted");
  const Grid& table = Main().grdSchedule;
  for (int row = 2; row < table.Rows(); ++row) {
    Require(table.TextMatrix(row - 1, kTimeColumn) <= table.TextMatrix(row, kTimeColumn),
            "The table is not in the order of time");
  }
}

TableInspector::Rows TableInspector::Read() const {
  const Grid& table = Main().grdSchedule;
  Rows rows;
  for (int row = 1; row < table.Rows(); ++row) {
    rows.push_back({table.TextMatrix(row, kTimeColumn).substr(0, 5),
                    table.TextMatrix(row, kDaysColumn), table.RowHeight(row) == 0});
  }
  return rows;
}

/// The first row of the minute that is not removed, if the day is on in its mask, read without the
/// sixth character.
int TableInspector::RowDueIn(const Rows& rows, const std::string& minute, int weekday) {
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (rows[row].Removed || rows[row].Minute != minute) continue;
    std::string days = rows[row].Days;
    if (days.size() > 5) days.erase(5, 1);
    const auto place = static_cast<std::size_t>(weekday - 1);
    const bool off = place < days.size() && days[place] == '0';
    return off ? 0 : static_cast<int>(row) + 1;
  }
  return 0;
}

bool TableInspector::IsDue(int row, const std::string& minute) const {
  const Rows rows = Read();
  const int weekday = TheDesk.Pc.Clock.Now().Weekday;
  return row == RowDueIn(rows, minute, weekday) || row == RowDueIn(rows, minute, Before.Weekday) ||
         row == RowDueIn(BeforeChange, minute, weekday) ||
         row == RowDueIn(BeforeChange, minute, Before.Weekday);
}

}  // namespace marlex
