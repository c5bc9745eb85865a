#include "i18n/translate_controls.h"

#include <cstdlib>
#include <string>

#include "controls/widgets.h"
#include "text/numbers.h"

namespace marlex {
namespace {

/// Sets `text` to the text whose id the string `id` holds. An `id` that is empty or not a number,
/// and a missing text, leave it unchanged.
void Translate(const std::string& id, Property<std::string>& text, const StringTable& strings) {
  const auto number = ToNumber(id);
  if (id.empty() || !number) return;
  if (const auto found = strings.Find(*number)) text = *found;
}

/// Number at the beginning of the text; 0 if there is none.
int LeadingNumber(const std::string& text) { return std::atoi(text.c_str()); }

/// For buttons, check boxes, option buttons, lists and all other kinds: a tag or tooltip only has
/// to begin with a number to count as an id.
void TranslateLoosely(VisualControl& control, const StringTable& strings) {
  if (const int id = LeadingNumber(control.Tag); id > 0) {
    Translate(std::to_string(id), control.Caption, strings);
  }
  if (const int id = LeadingNumber(control.ToolTipText); id >= 1) {
    Translate(std::to_string(id), control.ToolTipText, strings);
  }
}

void TranslateByKind(VisualControl& control, const StringTable& strings) {
  switch (control.Kind()) {
    case ControlKind::Label:
    case ControlKind::Frame:
      return Translate(control.Tag, control.Caption, strings);
    case ControlKind::Menu:
      return Translate(control.Caption, control.Caption, strings);
    case ControlKind::TextBox:
    case ControlKind::ComboBox:
      return Translate(control.Tag, control.ToolTipText, strings);
    case ControlKind::CommandButton:
    case ControlKind::ToggleButton:
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
    case ControlKind::Slider:
    case ControlKind::PictureBox:
    case ControlKind::ListBox:
    case ControlKind::DriveListBox:
    case ControlKind::DirListBox:
    case ControlKind::FileListBox:
    case ControlKind::Grid:
      return TranslateLoosely(control, strings);
    case ControlKind::Form:
    case ControlKind::Timer:
      return;
  }
}

}  // namespace

void WriteMenuIds(Form& form) {
  for (Control* control : form.Controls) {
    auto* menu = dynamic_cast<Menu*>(control);
    if (menu && !menu->TextId.empty()) menu->Caption = menu->TextId;
  }
}

void TranslateControls(Form& form, const StringTable& strings) {
  for (Control* control : form.Controls) {
    auto* visual = dynamic_cast<VisualControl*>(control);
    if (!visual) continue;
    TranslateByKind(*visual, strings);
  }
}

}  // namespace marlex
