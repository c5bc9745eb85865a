#pragma once

#include "controls/widgets.h"

namespace marlex {

/// Gives a control the caption of its design, and as its tag the id of the text that a translation
/// puts in the caption's place.
inline void Text(VisualControl& control, const char* caption, const char* tag = "") {
  control.Caption = caption;
  control.Tag = tag;
}

/// The same for a menu, which has no tag: the id of its text waits until the load of its form.
inline void Text(Menu& menu, const char* caption, const char* textId = "") {
  menu.Caption = caption;
  menu.TextId = textId;
}

}  // namespace marlex
