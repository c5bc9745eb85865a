#include "call/function_keys.h"

#include "platform/runtime_failure.h"
#include "schedule/editor_masks.h"
#include "text/paths.h"
#include "text/profile_text.h"

namespace marlex {
namespace {

constexpr const char* kFile = "Functionkeys.ini";

}  // namespace

FunctionKeys::FunctionKeys(ProfileStore& store, Windows& windows, SequenceEditor& editor,
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

/// Deliberate: where an entry is empty, the messages or zones of the previous key stay on the
/// screen and are saved with this one. Throws `RuntimeFailure` for a zone text that is too short;
/// the previous key then stays chosen.
void FunctionKeys::mnuFKey_Click(int key) {
  const std::string section = keys::FunctionKey(key);
  const auto read = [&](std::string_view name) {
    return Store.ReadProfileValue({section, name}, File());
  };
  const std::string messages = read(keys::kKeyMessages);
  const std::string zones = read(keys::kKeyRouting);
  if (!zones.empty())
    AtPlace(kFile + (": " + section) + ": " + std::string(keys::kKeyRouting),
            [&] { ApplyZoneText(Window, zones); });
  CurrentFunctionKey = key;
  Window.mnuSave.Enabled = true;
  Window.Caption = "Function key programming: F" + std::to_string(key);
  Editor.MessagesText = messages;
  if (!messages.empty()) Messages.LoadSelectedMessages(messages);
  Window.txtDescription.Text = read(keys::kKeyDescription);
}

/// Checks nothing and leaves the editor open. A key without messages is saved without zones.
void FunctionKeys::Save() {
  Editor.MessagesText = Messages.BuildMessagesText();
  const std::string zones = Editor.MessagesText.empty() ? "" : BuildZoneText(Window);
  const std::string section = keys::FunctionKey(CurrentFunctionKey);
  const bool written = Store.WriteProfileValues(
      {EntryOf({section, keys::kKeyMessages}, QuotedName(Editor.MessagesText)),
       EntryOf({section, keys::kKeyRouting}, zones),
       EntryOf({section, keys::kKeyDescription}, QuotedName(Window.txtDescription.Text.Get()))},
      File());
  if (!written) Editor.ReportNotSaved(File());
}

std::string FunctionKeys::File() const { return JoinPath(Store.ApplicationDirectory(), kFile); }

}  // namespace marlex
