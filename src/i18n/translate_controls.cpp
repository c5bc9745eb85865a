#include "i18n/translate_controls.h"

#include <cstdlib>
#include <string>

#include "controls/widgets.h"
#include "text/numbers.h"

namespace marlex {
namespace {

/// Puts the text whose id stands in `id` into `text`; an empty or foreign id and a missing text
/// leave it alone.
void Translate(const std::string& id, Property<std::string>& text, const StringTable& strings) {
  const auto number = ToNumber(id);
  if (id.empty() || !number) return;
  if (const auto found = strings.Find(*number)) text = *found;
}

/// Number that the text begins with; 0 where it begins with none.
int LeadingNumber(const std::string& text) { return std::atoi(text.c_str()); }

/// Keys, checks, options and lists hold their ids more loosely: any text that begins with a number
/// counts.
void TranslateLoosely(VisualControl& control, const StringTable& strings) {
  if (const int id = LeadingNumber(control.Tag); id > 0) {
    Translate(std::to_string(id), control.Caption, strings);
  }
  if (const int id = LeadingNumber(control.ToolTipText); id >= 1) {
    Translate(std::to_string(id), control.ToolTipText, strings);
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
    const std::string kind = control->Kind();
    if (kind == "Label" || kind == "Frame") {
      Translate(visual->Tag, visual->Caption, strings);
    } else if (kind == "Menu") {
      Translate(visual->Caption, visual->Caption, strings);
    } else if (kind == "TextBox" || kind == "ComboBox") {
      Translate(visual->Tag, visual->ToolTipText, strings);
    } else {
      TranslateLoosely(*visual, strings);
    }
  }
}

}  // namespace marlex
