#pragma once

#include <memory>

#include "controls/widgets.h"
#include "desktop/windows/binding.h"
#include "desktop/windows/hand.h"

class QCheckBox;
class QPushButton;
class QRadioButton;

namespace marlex {

// The bindings of all kinds of buttons, by what shows the control.

std::unique_ptr<Binding> MakeBinding(CommandButton& control, QPushButton& widget, Hand& hand);
std::unique_ptr<Binding> MakeBinding(ToggleButton& control, QPushButton& widget, Hand& hand);
std::unique_ptr<Binding> MakeBinding(CheckBox& control, QCheckBox& widget, Hand& hand);
std::unique_ptr<Binding> MakeBinding(OptionButton& control, QRadioButton& widget, Hand& hand);

}  // namespace marlex
