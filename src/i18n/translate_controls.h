#pragma once

#include "controls/form.h"
#include "i18n/string_table.h"

namespace marlex {

/// Writes the ids of a form's menu texts into their captions, where TranslateControls looks for
/// them: the first step of a form's load. A menu without an id keeps its caption.
void WriteMenuIds(Form& form);

/// Translates a form at its load: each control keeps the id of its text as a number, in the
/// property that suits its kind. A control without a number, or with one that the table lacks,
/// keeps its text of the design.
void TranslateControls(Form& form, const StringTable& strings);

}  // namespace marlex
