#include "scenario/inspectors/inspector.h"

namespace marlex {

DeskBefore::DeskBefore(Desk& desk)
    : Flags(desk.State()),
      Waits(desk.Pc.Loop.Waits()),
      Weekday(desk.Pc.Clock.Now().Weekday),
      TickOn(desk.Sys->TheFrmPlayers.tmrMessage.Enabled),
      MainShown(desk.Main().Visible),
      JournalLines(desk.Pc.Journal.Lines().size()) {}

bool JournalHas(const Journal& journal, std::string_view word, std::size_t firstLine) {
  const auto& lines = journal.Lines();
  for (std::size_t line = firstLine; line < lines.size(); ++line) {
    if (lines[line].find(word) != std::string::npos) return true;
  }
  return false;
}

}  // namespace marlex
