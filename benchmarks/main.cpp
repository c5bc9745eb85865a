// marlex_bench [table] [day] [players] [answers]: measures how fast the program is and what it
// costs, in all or some groups, and prints one table. Exits with 1 when a measurement failed; a
// missed budget is reported but is not a failure.

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <set>
#include <string>
#include <thread>

#include "latency_bench.h"
#include "players_bench.h"
#include "report.h"
#include "schedule_bench.h"

namespace marlex::bench {
namespace {

void PrintLoad(const char* when) {
  double load = 0;
  if (getloadavg(&load, 1) != 1) return;
  printf("Load of the machine %s: %.1f on %u cores.\n", when, load,
         std::thread::hardware_concurrency());
}

/// Keeps the platform without a screen from printing its complaints between the figures.
void IgnoreMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

struct Group {
  const char* Name;
  void (*Measure)(Report&);
};

constexpr Group kGroups[] = {{"table", MeasureTable},
                             {"day", MeasureDay},
                             {"players", MeasurePlayers},
                             {"answers", MeasureLatencies}};

/// If a group cannot run at all, the reason becomes a line of the table.
void Run(const Group& group, Report& report) {
  try {
    group.Measure(report);
  } catch (const std::exception& failure) {
    report.Add({group.Name, {}, std::nullopt, failure.what()});
  }
}

bool IsChosen(const std::string& name, const std::set<std::string>& chosen) {
  return chosen.empty() || chosen.contains(name);
}

}  // namespace
}  // namespace marlex::bench

int main(int argc, char* argv[]) {
  using namespace marlex::bench;
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  qInstallMessageHandler(IgnoreMessage);
  QApplication application(argc, argv);
  PrintLoad("before");
  Report report;
  const std::set<std::string> chosen(argv + 1, argv + argc);
  for (const Group& group : kGroups) {
    if (IsChosen(group.Name, chosen)) Run(group, report);
  }
  report.Print();
  printf("\n");
  PrintLoad("after");
  return report.HasFailures() ? 1 : 0;
}
