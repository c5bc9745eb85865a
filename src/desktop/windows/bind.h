#pragma once

#include <QWidget>
#include <memory>

#include "controls/control.h"
#include "desktop/windows/binding.h"
#include "desktop/windows/hand.h"

namespace marlex {

/// Binds `control` to the widget or action of its object name in `window`. Null for a control that
/// is never seen, such as a list that the design hides. Throws `RuntimeFailure` for a control that
/// can be seen but has no widget of its kind in the window.
std::unique_ptr<Binding> Bind(Control& control, QWidget& window, Hand& hand);

}  // namespace marlex
