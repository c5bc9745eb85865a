#pragma once

#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "schedule/conflicts.h"
#include "schedule/schedule_table.h"
#include "state/settings_store.h"
#include "windows/frm_main.h"
#include "windows/frm_players.h"

namespace marlex {

/// The list of open sequence files, which lie in one directory: read from the settings, chosen and
/// closed by the operator.
class SequenceFiles {
 public:
  SequenceFiles(SettingsStore& store, Dialogs& dialogs, FrmMain& frmMain, FrmPlayers& frmPlayers,
                Conflicts& conflicts, ScheduleTable& table);

  /// Reads the list and, unless it is empty, builds the table from it.
  void LoadSequenceList();

  void mnuSequence_Click();
  void mnuClose_Click();

 private:
  void Open(const std::string& result);
  SettingsStore& Store;
  Dialogs& TheDialogs;
  FrmMain& TheFrmMain;
  ListBox& SeqFileList;
  Conflicts& TheConflicts;
  ScheduleTable& Table;
};

/// Files of a file dialog's result and their directory, as the settings keep them.
struct SequenceSelection {
  std::string List;  // names separated by "|"
  std::string
      Path;  // with the final separator; behind several files it keeps the blank of the result
};

/// Takes the result of an open dialog apart: the path of one file, or a directory with its final
/// separator, a blank and names separated by blanks. Names may hold blanks and end in lower-case
/// ".sch". A RuntimeFailure when the names part holds no such name.
SequenceSelection ParseSequenceSelection(const std::string& result);

}  // namespace marlex
