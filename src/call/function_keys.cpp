#include "call/function_keys.h"

#include "platform/directories.h"

namespace marlex {

FunctionKeys::FunctionKeys(SettingsStore& store, Windows& windows, SequenceEditor& editor,
                           SelectedMessages& messages)
    : Store(store), Window(windows.TheWavWindow), Editor(editor), Messages(messages) {
  windows.frmMain.mnuFKeys.OnClick = [this] { mnuFKeys_Click(); };
  for (const auto& key : Window.mnuFKey)
    key->OnClick = [this, number = key->Index] { mnuFKey_Click(number); };
  editor.SaveFunctionKey = [this] { Save(); };
}

void FunctionKeys::mnuFKeys_Click() {
  Editor.FunctionKeyMode = true;
  Window.Show();
}

/// An entry that is empty leaves the messages and the zones of the key before on the screen, and
/// they are saved with this one. This is meant.
void FunctionKeys::mnuFKey_Click(int key) {
  Window.mnuSave.Enabled = true;
  CurrentFunctionKey = key;
  Window.Caption = "Function key programming: F" + std::to_string(key);
  Editor.MessagesText = Store.ReadProfileValue(Section(), "Schedule", File());
  if (!Editor.MessagesText.empty()) Messages.LoadSelectedMessages(Editor.MessagesText);
  const std::string zones = Store.ReadProfileValue(Section(), "Routing", File());
  if (!zones.empty()) ApplyZoneText(Window, zones);
  Window.txtDescription.Text = Store.ReadProfileValue(Section(), "Description", File());
}

/// Nothing is checked, and the editor stays open. A key without messages has no zones either.
void FunctionKeys::Save() {
  Editor.MessagesText = Messages.BuildMessagesText();
  const std::string zones = Editor.MessagesText.empty() ? "" : BuildZoneText(Window);
  const bool written =
      Store.WriteProfileValues({{Section(), "Schedule", Editor.MessagesText},
                                {Section(), "Routing", zones},
                                {Section(), "Description", Window.txtDescription.Text}},
                               File());
  if (!written) Editor.TellNotSaved(File());
}

std::string FunctionKeys::File() const {
  return JoinPath(Store.ApplicationDirectory(), "Functionkeys.ini");
}

std::string FunctionKeys::Section() const {
  return "Function key " + std::to_string(CurrentFunctionKey);
}

}  // namespace marlex
