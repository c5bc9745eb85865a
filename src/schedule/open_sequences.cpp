#include "schedule/open_sequences.h"

#include "i18n/operator_failure.h"
#include "platform/directories.h"
#include "text/profile_text.h"
#include "text/split.h"

namespace marlex {

namespace {

constexpr const char* kSequenceExtension = ".sch";

}  // namespace

SequenceSelection ParseSequenceSelection(const std::string& result) {
  const std::string extension = kSequenceExtension;
  // The name of a directory may begin with a blank: only the last separator ends the directory.
  const auto severalFiles = result.rfind(std::string(1, kSeparator) + " ");
  const bool several =
      severalFiles != std::string::npos && severalFiles == result.find_last_of(kSeparator);
  const auto nameStart = several ? severalFiles + 2 : result.find_last_of(kSeparator) + 1;
  const std::string names = result.substr(nameStart) + " ";

  std::string list;
  std::size_t position = 0;
  while (names.find(extension, position) != std::string::npos) {
    const auto end = names.find(extension + " ", position);
    if (end == std::string::npos) break;
    list += names.substr(position, end + extension.size() - position) + "|";
    position = end + extension.size() + 1;
  }
  if (list.empty()) throw OperatorFailure(kStrNoScheduleChosen);
  list.pop_back();
  return {list, result.substr(0, result.size() + 1 - names.size())};
}

OpenSequences::OpenSequences(SettingsStore& store, Dialogs& dialogs, FrmMain& frmMain,
                             FrmPlayers& frmPlayers, Conflicts& conflicts, ScheduleTable& table)
    : Store(store),
      TheDialogs(dialogs),
      TheFrmMain(frmMain),
      SeqFileList(frmPlayers.SeqFileList),
      TheConflicts(conflicts),
      Table(table) {
  frmMain.mnuSequence.OnClick = [this] { mnuSequence_Click(); };
  frmMain.mnuClose.OnClick = [this] { mnuClose_Click(); };
}

void OpenSequences::LoadSequenceList() {
  SeqFileList.Clear();
  const std::string list = Store.Read(keys::kSequenceList);
  Store.Values.SequencePath = Store.Read(keys::kSequencePath);
  if (list.empty()) return;
  for (const std::string& file : SplitCuttingLast(list, '|')) SeqFileList.AddItem(file);
  Table.RebuildScheduleTable();
}

void OpenSequences::mnuSequence_Click() {
  TheDialogs.LeaveOpen({.Filter = "Msg sequence files (*.sch)|*.sch",
                        .DefaultExtension = "sch",
                        .InitialDirectory = Store.ApplicationDirectory(),
                        .AllowMultiselect = true},
                       [this](const std::string& result) { Open(result); });
}

void OpenSequences::Open(const std::string& result) {
  if (result.find(kSequenceExtension) == std::string::npos) return;
  const SequenceSelection selection = ParseSequenceSelection(result);
  Store.Write(keys::kSequenceList, QuotedName(selection.List));
  Store.Write(keys::kSequencePath, selection.Path);
  LoadSequenceList();
}

/// Keeps the directory in the settings, and the value of ConflictFound.
void OpenSequences::mnuClose_Click() {
  Store.Write(keys::kSequenceList, "");
  TheFrmMain.grdSchedule.SetRows(1);
  TheConflicts.SetNormalHeights();
  TheFrmMain.lblConflict.Visible = false;
  SeqFileList.Clear();
}

}  // namespace marlex
