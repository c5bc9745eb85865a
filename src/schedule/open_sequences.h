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

/// The list of open sequence files, all in one directory: read from the settings at start, chosen
/// and closed by the operator.
class OpenSequences {
 public:
  OpenSequences(SettingsStore& store, Dialogs& dialogs, FrmMain& frmMain, FrmPlayers& frmPlayers,
                Conflicts& conflicts, ScheduleTable& table);

  /// Reads the list from the settings and, unless it is empty, builds the table from it.
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

/// The files chosen in a file dialog, and their directory, as stored in the settings.
struct SequenceSelection {
  std::string List;  // names separated by "|"
  /// Ends in a separator; for several files, in the blank that follows it in the result.
  std::string Path;
};

/// Parses the result of an open dialog: the path of one file, or a directory with its final
/// separator, a blank, and names separated by blanks. A name ends in ".sch", in lower case, and may
/// contain blanks. Throws `RuntimeFailure` if there is no such name.
SequenceSelection ParseSequenceSelection(const std::string& result);

}  // namespace marlex
