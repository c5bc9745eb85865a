#include "call/function_keys.h"

#include "platform/directories.h"
#include "platform/runtime_failure.h"
#include "text/profile_text.h"

namespace marlex {
namespace {

constexpr const char* kFile = "Functionkeys.ini";

}  // namespace

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

/// Deliberate: an empty entry leaves the messages and zones of the previous key on the screen, and
/// they are saved with this one. Zones that are too short are a RuntimeFailure, and the previous
/// key stays chosen.
void FunctionKeys::mnuFKey_Click(int key) {
  const auto read = [&](const char* name) {
    return Store.ReadProfileValue(Section(key), name, File());
  };
  const std::string messages = read("Schedule");
  const std::string zones = read("Routing");
  if (!zones.empty())
    AtPlace(kFile + (": " + Section(key)) + ": Routing", [&] { ApplyZoneText(Window, zones); });
  CurrentFunctionKey = key;
  Window.mnuSave.Enabled = true;
  Window.Caption = "Function key programming: F" + std::to_string(key);
  Editor.MessagesText = messages;
  if (!messages.empty()) Messages.LoadSelectedMessages(messages);
  Window.txtDescription.Text = read("Description");
}

/// Nothing is checked, and the editor stays open. A key without messages has no zones either.
void FunctionKeys::Save() {
  Editor.MessagesText = Messages.BuildMessagesText();
  const std::string zones = Editor.MessagesText.empty() ? "" : BuildZoneText(Window);
  const std::string section = Section(CurrentFunctionKey);
  const bool written = Store.WriteProfileValues(
      {{section, "Schedule", QuotedName(Editor.MessagesText)},
       {section, "Routing", zones},
       {section, "Description", QuotedName(Window.txtDescription.Text.Get())}},
      File());
  if (!written) Editor.TellNotSaved(File());
}

std::string FunctionKeys::File() const { return JoinPath(Store.ApplicationDirectory(), kFile); }

std::string FunctionKeys::Section(int key) { return "Function key " + std::to_string(key); }

}  // namespace marlex
