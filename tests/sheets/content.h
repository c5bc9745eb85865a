#pragma once

#include <QWidget>

#include "controls/form.h"

namespace marlex {

/// Fails for each control of the form that should be visible and has no widget in the window, and
/// for each whose widget shows anything other than what the control holds: texts, entries, cells,
/// marks, tool tips.
void ExpectContentShown(const Form& form, QWidget& window);

}  // namespace marlex
