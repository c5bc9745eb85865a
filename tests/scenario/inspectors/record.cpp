#include "scenario/inspectors/record.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/day_ribbon.h"
#include "state/week_time.h"

namespace marlex {

RecordInspector::RecordInspector(const Scene& scene) : Inspector(scene) {
  TheDesk.Pc.Log.OnLine = [this](const std::string& line) {
    for (const char* fate : {": play", ": wait", ": lost"}) {
      const auto end = line.find(fate);
      if (line.starts_with("row ") && end != std::string::npos)
        Settled.insert(line.substr(4, end - 4));
    }
  };
}

void RecordInspector::Check() {
  const LocalTime now = TheDesk.Pc.Clock.Now();
  const int minute = now.Hour * 60 + now.Minute;
  if (minute == MinuteOfDay) return;
  const bool follows = minute == (MinuteOfDay + 1) % kMinutesPerDay;
  const bool isSteady = TheDesk.Pc.Clock.AheadMs() == AheadMs;
  if (follows && isSteady) {
    EndMinute();
  } else {
    Due.clear();
    Former.clear();
  }
  MinuteOfDay = minute;
  AheadMs = TheDesk.Pc.Clock.AheadMs();
  Minute = MinuteText(now);
  if (isSteady) Due = DueRows();
  std::erase_if(Settled, [this](const std::string& row) {
    return !Former.contains(row) && !Due.contains(row);
  });
}

void RecordInspector::EndMinute() {
  for (const std::string& row : Former)
    Require(Settled.contains(row), "The record does not say what became of row " + row);
  Corners["a row that the record accounts for"] += static_cast<int>(Former.size());
  const std::set<std::string> still = DueRows();
  Former.clear();
  std::ranges::set_intersection(Due, still, std::inserter(Former, Former.end()));
}

std::set<std::string> RecordInspector::DueRows() const {
  std::set<std::string> rows;
  for (const RecordedRow& row : TheDesk.Sys->Tick.RowsOf(Minute, Before.Weekday))
    rows.insert(row.Time + " " + row.Messages);
  return rows;
}

}  // namespace marlex
