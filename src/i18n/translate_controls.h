#pragma once

#include "controls/form.h"
#include "i18n/string_table.h"

namespace marlex {

/// Writes the text ids of a form's menus into their captions, where `TranslateControls` looks for
/// them. Call first when a form loads. A menu without an id keeps its caption.
///
/// How a menu gets its text: the form's design gives it an English caption and an id (`Text` in
/// windows/captions.h) -> when the form loads, `WriteMenuIds` puts the id into the caption ->
/// `TranslateControls` replaces it with the text from `StringTable`, compiled from
/// strings/<Language>.txt -> the caption's watcher has the view show it (desktop/windows).
void WriteMenuIds(Form& form);

/// Translates a form when it loads. Labels and frames have the id of their text in `Tag`, menus in
/// `Caption`; text and combo boxes have that of their tooltip in `Tag`; all others have the id of
/// their text in `Tag` and that of their tooltip in `ToolTipText`. A control without an id, or with
/// one that the table lacks, keeps its text.
void TranslateControls(Form& form, const StringTable& strings);

}  // namespace marlex
