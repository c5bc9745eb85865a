#pragma once

#include <optional>
#include <string>
#include <vector>

#include "scenario/watched_desk.h"

namespace marlex {

/// Repairs every fault, answers every box, lets the operator press Stop and Play once, and then
/// requires what the program exists for: the next row is announced in full, the music comes back,
/// and the next call can be heard. Throws a BrokenRule when one of them fails. Only if the
/// amplifier has cut off a call, a complete call comes first.
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
  void LetGoOfTheButton();
  bool TickIsHeld();
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
