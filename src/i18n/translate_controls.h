#pragma once

#include "controls/form.h"
#include "i18n/string_table.h"

namespace marlex {

/// Translates a form at its load: each control keeps the id of its text as a number, in the
/// property that suits its kind. A control without a number, or with one that the table lacks,
/// keeps its text of the design.
void TranslateControls(Form& form, const StringTable& strings);

}  // namespace marlex
