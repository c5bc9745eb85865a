#pragma once

#include "controls/widgets.h"

namespace marlex {

/// Sets a control's design caption and, as its tag, the id of the text that replaces it in
/// translation.
inline void Text(VisualControl& control, const char* caption, const char* tag = "") {
  control.Caption = caption;
  control.Tag = tag;
}

/// The same for a menu, which has no tag: the id of its text is stored until its form is loaded.
inline void Text(Menu& menu, const char* caption, const char* textId = "") {
  menu.Caption = caption;
  menu.TextId = textId;
}

}  // namespace marlex
