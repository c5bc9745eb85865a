#pragma once

#include <optional>
#include <string>
#include <vector>

#include "scenario/watched_desk.h"

namespace marlex {

/// Takes every fault away, answers every box, has the operator press Stop and Play once, and then
/// asks for what the program is there for: that the next row is announced in full, the music comes
/// back, and the next call speaks. Throws a BrokenRule when one of them fails. Only where the
/// amplifier has cut a call off, a whole call comes first.
class Recovery {
 public:
  explicit Recovery(WatchedDesk& desk) : TheDesk(desk) {}
  void Run();

 private:
  struct DueRow {
    std::string Time;  // "HH:MM"
    bool AtMusicBreak = false;
    std::string Zones;
    std::vector<std::string> Files;
  };

  void Heal();
  void AnswerBoxes();
  void CloseWindows();
  void RunProgram();
  void ChooseDirectories();
  void ChooseDirectory(const std::string& browse, const std::string& directory);
  void EndWaits();
  void LetGoOfTheKey();
  bool TickStandsStill();
  void Call();
  bool CallOnce();
  void StopAndPlay();
  void OpenGoodList();
  bool ClockMayStopBy(const DueRow& row);
  DueRow AwaitRow();
  std::optional<DueRow> NextRow(const std::string& after);
  DueRow RowAt(int row);
  bool RunsToday(int row);
  bool Announce(const DueRow& row);
  void RequireHeard(const DueRow& row);
  void RequireSent(const DueRow& row);
  void RequireRestored();
  int MessagesMs(const DueRow& row);
  std::string ByteFor(const std::string& zones, char fed);
  std::string Lines(const std::string& categories);

  WatchedDesk& TheDesk;
};

}  // namespace marlex
