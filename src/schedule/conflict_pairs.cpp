#include "schedule/conflict_pairs.h"

#include <array>
#include <string_view>
#include <vector>

#include "schedule/schedule_columns.h"
#include "state/week_time.h"
#include "text/text_case.h"

namespace marlex {
namespace {

/// What is looked at in a row. The views point into the cells of the grid.
struct DueRow {
  int Row;
  std::string Time;
  std::array<std::string_view, kWeekdays> Days;  // one character each, empty past the mask's end
};

/// The rows that the operator has not removed.
std::vector<DueRow> RowsInPlace(const Grid& grid) {
  std::vector<DueRow> rows;
  for (int row = 1; row < grid.Rows(); ++row) {
    if (grid.RowHeight(row) < 1) continue;
    const std::string& mask = grid.TextMatrix(row, kDaysColumn);
    DueRow& due = rows.emplace_back(DueRow{row, TimeOf(grid, row), {}});
    for (std::size_t day = 0; day < due.Days.size(); ++day) {
      due.Days[day] = CharactersFrom(mask, day + 1, 1);
    }
  }
  return rows;
}

/// Whether two rows have a weekday in common. Deliberate: the later row must have the digit of the
/// day, the earlier one anything but "0". If the weekdays of a row end before a common day is
/// found, the pair counts as none, and the row goes into `tooShort`.
bool ShareADay(const DueRow& earlier, const DueRow& later, std::set<int>& tooShort) {
  constexpr std::string_view kDigits = "1234567";
  for (std::size_t day = 0; day < kDigits.size(); ++day) {
    bool ended = false;
    for (const DueRow* row : {&earlier, &later}) {
      if (!row->Days[day].empty()) continue;
      tooShort.insert(row->Row);
      ended = true;
    }
    if (ended) return false;
    if (later.Days[day] == kDigits.substr(day, 1) && earlier.Days[day] != "0") return true;
  }
  return false;
}

}  // namespace

std::set<std::string> FindConflictPairs(const Grid& grid,
                                        const std::function<void(int, int)>& found) {
  std::set<int> tooShort;
  const std::vector<DueRow> rows = RowsInPlace(grid);
  for (auto row = rows.begin(); row != rows.end(); ++row) {
    // The table is sorted: the first row of another minute ends the search.
    for (auto later = row + 1; later != rows.end() && later->Time == row->Time; ++later) {
      if (ShareADay(*row, *later, tooShort)) found(row->Row, later->Row);
    }
  }
  std::set<std::string> schedules;
  for (const int row : tooShort) schedules.insert(grid.TextMatrix(row, kNameColumn));
  return schedules;
}

}  // namespace marlex
